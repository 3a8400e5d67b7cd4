// `zirvo-batch map`: pictures of the samples, and what the options change in them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "batch/work_folder.h"

namespace zirvo::test {
namespace {

using Arguments = std::vector<std::string>;

/// The folder of the pavements and pictures, and an empty one for temporary files.
class Map : public testing::Test {
protected:
    WorkFolder Folder;
    const TemporaryFolder Temporary;
    Surroundings Here;

    Map() {
        Folder.PutSample("road.ven");
        Here.Variables.emplace_back(TemporaryVariable, Temporary.Path());
    }

    /// The picture's bytes; the run succeeds, says nothing, and leaves nothing else.
    std::string Picture(const Arguments& options, const std::string& name = "map.bmp",
                        const std::string& sample = "road.ven", const std::string& language = "en") {
        Arguments line{"map", sample, "--units", "3", "--language", language, "-o", name};
        line.insert(line.end(), options.begin(), options.end());
        const Outcome outcome = Folder.Batch(line, Here);
        EXPECT_EQ(outcome.Code, 0) << testing::PrintToString(options);
        EXPECT_EQ(outcome.Out, "");
        EXPECT_EQ(outcome.Err, "");
        EXPECT_EQ(Temporary.Entries(), 0U) << "work files were left";
        const std::string bytes = Folder.Get(name);
        std::filesystem::remove(Folder.Path(name));
        EXPECT_EQ(Folder.Names(), (Arguments{"road.ven"}));
        return bytes;
    }

    static Arguments Surface(Arguments more = {}) {
        more.insert(more.begin(), {"--section", "xy", "--position", "0", "--component", "EPSx"});
        return more;
    }
};

/// How many different colours the pixels of a bitmap have, and whether a colour is among them.
std::set<std::string> ColorsOf(const std::string& bitmap) {
    std::set<std::string> colors;
    for (std::size_t place = 54; place + 3 <= bitmap.size();
         place += 3) {  // 529 pixels: a byte is filled up, no colour
        colors.insert(bitmap.substr(place, 3));
    }
    return colors;
}

TEST_F(Map, EverySampleHasItsMapsInBothLanguages) {
    for (std::string name : SampleNames()) {
        name = ZIRVO_SAMPLES "/" + name.substr(0, name.find('.')) + ".ven";
        for (const char* component : {"EPSx", "EPSz"}) {
            const Arguments surface{"--section", "xy", "--position", "0", "--component", component};
            const Arguments wheel{"--section", "xz", "--position", "0", "--component", component};
            for (const Arguments& options : {surface, wheel}) {
                const std::string english = Picture(options, "map.bmp", name, "en");
                EXPECT_GT(ColorsOf(english).size(), 200U) << name;
                EXPECT_EQ(english, Picture(options, "map.bmp", name, "ja")) << name;
            }
        }
    }
}

TEST_F(Map, EachFormatIsWrittenByItsExtension) {
    EXPECT_EQ(Picture(Surface(), "a.png").substr(0, 8), "\x89PNG\r\n\x1a\n");
    EXPECT_EQ(Picture(Surface(), "a.bmp").substr(0, 2), "BM");
    EXPECT_EQ(Picture(Surface(), "a.SVG").substr(0, 5), "<?xml");
    EXPECT_EQ(Picture(Surface(), "a.pdf").substr(0, 5), "%PDF-");
}

TEST_F(Map, TheSameMapHasTheSameBytes) {
    for (const char* name : {"a.png", "a.bmp", "a.svg", "a.pdf"}) {
        const std::string first = Picture(Surface(), name);
        for (int again = 0; again < 4; ++again) {
            EXPECT_EQ(Picture(Surface(), name), first) << name;
        }
    }
}

TEST_F(Map, WithoutOptionsItHasFillAndLegendTwentyLinesAndTheDesignSize) {
    const std::string plain = Picture(Surface());
    EXPECT_EQ(plain.size(), 54U + 540U * 1588U) << "529 pixels of 3 bytes, and one byte to a whole word";
    EXPECT_EQ(Picture(Surface({"--items", "legend,fill", "--size", "529x540", "--lines", "7"})), plain);
    EXPECT_EQ(Picture(Surface({"--items", "fill,lines", "--lines", "20"})),
              Picture(Surface({"--items", "fill,lines"})));
    EXPECT_NE(Picture(Surface({"--items", "fill,lines", "--lines", "21"})),
              Picture(Surface({"--items", "fill,lines"})));
}

TEST_F(Map, EveryItemChangesThePicture) {
    std::set<std::string> pictures{Picture(Surface())};
    for (const char* items : {"fill", "lines", "legend", "points", "values", "fill,lines", "fill,values"}) {
        EXPECT_TRUE(pictures.insert(Picture(Surface({"--items", items}))).second) << items;
    }
}

TEST_F(Map, ValuesBringTheirPointsAndDropTheLegendAsOnTheScreen) {
    const std::string values = Picture(Surface({"--items", "values"}));
    EXPECT_EQ(Picture(Surface({"--items", "values,legend"})), values);
    EXPECT_EQ(Picture(Surface({"--items", "values,points"})), values);
}

// At the surface of the road EPSx is between -185 and 25 micro.
TEST_F(Map, ANarrowedRangeIsDrawnInItsLimitsAndBlackBeyondThem) {
    const auto blackPixels = [](const std::string& bitmap) {
        std::size_t count = 0;
        for (std::size_t row = 0; row < 540; ++row) {
            for (std::size_t column = 0; column < 529; ++column) {
                count += bitmap.compare(54 + 1588 * row + 3 * column, 3, std::string(3, '\0')) == 0 ? 1U : 0U;
            }
        }
        return count;
    };
    const std::string plain = Picture(Surface());
    const std::string narrowed = Picture(Surface({"--min", "-100", "--max", "-50"}));
    EXPECT_GT(blackPixels(narrowed), blackPixels(plain) + 50000);
    EXPECT_EQ(Picture(Surface({"--min", "-1.00E+02", "--max", "-5D1"})), narrowed) << "the number counts, not its text";
    const std::string nothing = Picture(Surface({"--min", "7.5", "--max", "7.5"}));
    EXPECT_EQ(ColorsOf(nothing).count(std::string("\xff\xff\0", 3)), 0U) << "cyan: one value has no scale";
    EXPECT_NE(Picture(Surface({"--min", "-100"})), plain);
    EXPECT_NE(Picture(Surface({"--max", "-50"})), plain);
}

TEST_F(Map, OnAnInterfaceTheLayerDecides) {
    const auto at = [&](const std::string& layer) {
        return Picture({"--section", "xy", "--position", "15", "--component", "EPSz", "--layer", layer});
    };
    EXPECT_NE(at("1"), at("2"));
    const Arguments inside{"--section", "xy", "--position", "7", "--component", "EPSz"};
    Arguments named = inside;
    named.insert(named.end(), {"--layer", "1"});
    EXPECT_EQ(Picture(named), Picture(inside)) << "elsewhere it may agree";
}

TEST_F(Map, TakesNegativePositions) {
    const auto across = [&](const std::string& y) {
        return Picture({"--section", "xz", "--position", y, "--component", "EPSz", "--items", "fill"});
    };
    EXPECT_NE(across("-5"), across("5")) << "the title tells them apart";
}

TEST_F(Map, ADepthAboveThePavementIsDrawnWithANote) {
    const Outcome outcome = Folder.Batch({"map", "road.ven", "--units", "3", "--language", "en", "-o", "map.png",
                                          "--section", "xy", "--position", "-5", "--component", "EPSx"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Err,
              "road.ven: depth -5 cm lies above the pavement and is taken, as on the screen, in layer 3, at its top\n");
    EXPECT_TRUE(Folder.Has("map.png"));
}

TEST_F(Map, NeedsNoDisplayWhateverTheEnvironmentSays) {
    const std::string plain = Picture(Surface());
    Here.Variables.insert(Here.Variables.end(), {{"QT_QPA_PLATFORM", "xcb"},
                                                 {"DISPLAY", ":4711"},
                                                 {"QT_QPA_PLATFORMTHEME", "gtk3"},
                                                 {"QT_SCALE_FACTOR", "2"},
                                                 {"QT_FONT_DPI", "192"}});
    EXPECT_EQ(Picture(Surface()), plain);
}

TEST_F(Map, AnOrdinaryUserWithoutAHomeDrawsTheSame) {
    const std::string plain = Picture(Surface());
    std::filesystem::permissions(Temporary.Path(), std::filesystem::perms::all);
    const WorkFolder programs;  // of everybody, since the build may lie in a folder that only its owner may enter
    std::filesystem::copy(ZIRVO_BIN, programs.Path("bin"), std::filesystem::copy_options::recursive);
    Surroundings nobody;
    nobody.Program = programs.Path("bin/zirvo-batch");
    nobody.OrdinaryUser = true;
    const Outcome outcome = Folder.Batch({"map", "road.ven", "--units", "3", "--language", "en", "-o", "map.bmp",
                                          "--section", "xy", "--position", "0", "--component", "EPSx"},
                                         nobody);
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_EQ(Folder.Get("map.bmp"), plain);
}

}  // namespace
}  // namespace zirvo::test
