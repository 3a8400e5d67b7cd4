// Names, formats and kinds of picture files.
#include "graphics/picture_file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "platform/temporary_folder.h"

namespace zirvo {
namespace {

TEST(PictureFileName, GetsTheExtensionOfABitmapWhereItHasNone) {
    EXPECT_EQ(PictureFileName("/maps/road"), "/maps/road.bmp");
    EXPECT_EQ(PictureFileName("/maps/road."), "/maps/road.bmp");
    EXPECT_EQ(PictureFileName("/maps.old/road"), "/maps.old/road.bmp") << "the point of a folder is none of the name's";
    EXPECT_EQ(PictureFileName("/maps/.road"), "/maps/.road.bmp");
    EXPECT_EQ(PictureFileName("道路"), "道路.bmp");
}

TEST(PictureFileName, StaysWhereItHasAnExtension) {
    for (const char* name : {"road.bmp", "road.BMP", "road.png", "road.svg", "road.pdf", "road.v2", "道路.bmp"}) {
        EXPECT_EQ(PictureFileName(name), name);
    }
}

TEST(PictureFileName, TellsTheFormat) {
    EXPECT_EQ(FormatOfPictureFile("/maps/road.png"), MapFileFormat::Png);
    EXPECT_EQ(FormatOfPictureFile("/maps/road.SVG"), MapFileFormat::Svg);
    EXPECT_EQ(FormatOfPictureFile("/maps/road.Pdf"), MapFileFormat::Pdf);
    for (const char* name : {"road.bmp", "road.eva", "road", ".png", "/maps.png/road.v2"}) {
        EXPECT_EQ(FormatOfPictureFile(name), MapFileFormat::Bitmap) << name;
    }
}

/// The first 26 bytes of a bitmap of one pixel: 58 bytes long, pixels from byte 54 on, a second header of 40 bytes.
std::string TinyBitmap() {
    std::string bytes(58, '\0');
    bytes[0] = 'B';
    bytes[1] = 'M';
    bytes[2] = 58;
    bytes[10] = 54;
    bytes[14] = 40;
    return bytes;
}

TEST(PictureFileKind, IsToldByTheFirstBytes) {
    EXPECT_TRUE(LooksLikePicture(TinyBitmap()));
    EXPECT_TRUE(LooksLikePicture("\x89PNG\r\n\x1a\n..."));
    EXPECT_TRUE(LooksLikePicture("%PDF-1.4\n"));
    EXPECT_TRUE(LooksLikePicture("<?xml version=\"1.0\"?>\n<!-- a road -->\n<svg width=\"1\"/>"));
    EXPECT_TRUE(LooksLikePicture("\xEF\xBB\xBF<svg/>"));
    EXPECT_TRUE(LooksLikePicture("\r\n<!DOCTYPE svg>\n<svg\n>"));
    EXPECT_TRUE(LooksLikePicture("\xFF\xD8\xFF\xE0"));
    EXPECT_TRUE(LooksLikePicture("GIF89a"));
    EXPECT_TRUE(LooksLikePicture(std::string("II*\0", 4)));
}

TEST(PictureFileKind, IsNotMistakenForTextsAndData) {
    for (const char* bytes :
         {"", "B", "BM", "BMW tyres, 40 kN each, on the new road\r\n", "<html><svg2></html>", "<html><svg/></html>",
          "<svgx/>", "<!-- <svg/>", "see <svg/>", " 3 4 ,,,,,layers and loads\r\n", "   <ZIRVO Ver2.3>\r\n", "%PD"}) {
        EXPECT_FALSE(LooksLikePicture(bytes)) << bytes;
    }
    std::string beyond = TinyBitmap();
    beyond[10] = 59;  // pixels behind the end of the file
    EXPECT_FALSE(LooksLikePicture(beyond));
}

TEST(PictureFileKind, OfAnExistingFileDecidesWhetherItGoesWithoutAQuestion) {
    const TemporaryFolder folder;
    folder.Put("road.eva", " 3 4\r\n");
    folder.Put("empty", "");
    folder.Put("road.bmp", TinyBitmap());
    EXPECT_TRUE(ReplacesOtherThanPicture(folder.Path("road.eva")));
    EXPECT_TRUE(ReplacesOtherThanPicture(folder.Path("empty")));
    EXPECT_FALSE(ReplacesOtherThanPicture(folder.Path("road.bmp")));
    EXPECT_FALSE(ReplacesOtherThanPicture(folder.Path("new.bmp"))) << "nothing lies there";
    EXPECT_FALSE(ReplacesOtherThanPicture(folder.Path())) << "a folder: the write itself refuses it";
}

}  // namespace
}  // namespace zirvo
