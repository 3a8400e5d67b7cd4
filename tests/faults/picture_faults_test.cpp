// SAVE PICTURE over an old file, with one call to the system that fails, each call in turn and in five ways. Its
// failures are quiet on purpose: what is checked is that the picture is the old one or the new one, whole, and no
// temporary left.
#include <gtest/gtest.h>

#include <memory>

#include "base/runtime_fault.h"
#include "faults/each_call.h"
#include "platform/files.h"
#include "platform/temporary_folder.h"
#include "qt/image_surface.h"
#include "qt/picture_files.h"

namespace zirvo::test {
namespace {

constexpr const char* Old = "old";

void DrawALine(PlotSurface& surface) {
    surface.Cls();
    surface.Line(10, 10, 90, 90, Color{255, 0, 0});
}

/// The bytes of a picture and how it is written.
struct SavedPicture {
    std::unique_ptr<TemporaryFolder> Place = std::make_unique<TemporaryFolder>();
    const std::string Whole;
    mutable bool Saved = false;

    explicit SavedPicture(std::string bytes) : Whole(std::move(bytes)) { Place->Put("map", Old); }
    std::string Folder() const { return Place->Path(); }
    void Act() const {
        try {
            WriteWholeFile(Place->Path("map"), Whole);
            Saved = true;
        } catch (const RuntimeFault& caught) {
            EXPECT_NE(caught.About().Name, "");
        }
    }
    bool Done() const { return Saved; }
    void Judge(const Failure& /*failure*/) const {
        ExpectOldOrNew(Place->Get("map"), Old, Whole, Saved);
        ExpectNoTemporary(Folder());
    }
};

TEST(PictureFault, APictureOfEachFormatIsTheOldOneOrTheNewOne) {
    ImageSurface surface(100, 100);
    DrawALine(surface);
    for (const std::string& bytes :
         {PngBytes(surface.Image()), SvgBytes(100, 100, "title", DrawALine), PdfBytes(100, 100, "title", DrawALine)}) {
        FailEachCall<SavedPicture>([&] { return SavedPicture(bytes); });
    }
}

/// The bitmap has a function of its own.
struct SavedBitmap : SavedPicture {
    explicit SavedBitmap(const QImage& image) : SavedPicture(BitmapBytes(image)), Shown(image) {}
    QImage Shown;
    void Act() const {
        try {
            SaveBitmap(Shown, Place->Path("map"));
            Saved = true;
        } catch (const RuntimeFault& caught) {
            EXPECT_NE(caught.About().Name, "");
        }
    }
};

TEST(PictureFault, ABitmapIsTheOldOneOrTheNewOne) {
    ImageSurface surface(100, 100);
    DrawALine(surface);
    FailEachCall<SavedBitmap>([&] { return SavedBitmap(surface.Image()); });
}

}  // namespace
}  // namespace zirvo::test
