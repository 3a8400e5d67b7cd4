// The limits of what there may be, under the real programs: the largest pavement, many files, long paths, strange
// names, an old clock, a foreign locale, little memory. What cannot be done is told.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "base/utf8.h"
#include "batch/work_folder.h"
#include "faults/limits.h"
#include "platform/code_page.h"
#include "text/catalogue.h"

namespace zirvo::test {
namespace {

using Arguments = std::vector<std::string>;

constexpr const char* Batch = ZIRVO_BIN "/zirvo-batch";

class Limits : public testing::Test {
protected:
    const WorkFolder Folder;

    Outcome Run(const Arguments& arguments, Surroundings surroundings = {}) const {
        return Folder.Batch(arguments, std::move(surroundings));
    }
    static Arguments Analyze(const std::string& file, const std::string& language = "en") {
        return {"analyze", file, "--units", "3", "--language", language};
    }
    static Arguments Map(const std::string& picture) {
        return {"map", "road.ven",   "--section", "xz",          "--position", "0",  "--units",
                "3",   "--language", "en",        "--component", "EPSz",       "-o", picture};
    }
};

TEST_F(Limits, TheLargestPavementGoesThroughEveryCommandInBothLanguages) {
    Folder.Put("limit.eva", WriteAnalysisInput(ModelAtTheLimit(), UnitSystem::KnToMPa, EnglishBase));
    const Outcome check = Run({"check", "limit.eva"});
    EXPECT_EQ(check.Out, "limit.eva: passes: 100 layers, 100 loads, 10000 points\n") << check.Err;
    const Outcome solve = Run({"solve", "limit.eva", "--units", "3", "--csv", "limit.csv"});
    EXPECT_EQ(solve.Code, 0) << solve.Err;
    EXPECT_EQ(LinesOf(Folder.Get("limit.csv")).size(), 10001U);
    for (const char* language : {"en", "ja"}) {
        const Outcome outcome = Run(Analyze("limit.eva", language));
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        EXPECT_EQ(RowsOfReport(Folder.Get("limit.bre")), 10000) << language;
        EXPECT_EQ(RowsOfReport(Folder.Get("limit.san")), 10000) << language;
        EXPECT_EQ(LinesOf(Folder.Get("limit_bre.csv")).size(), LinesOf(Folder.Get("limit.bre")).size());
    }
}

#ifdef ZIRVO_DRAWS_MAPS
TEST_F(Limits, AMapOfAHundredLayersAndLoadsIsDrawn) {
    Folder.Put("road.ven", WriteGraphicsInput(GraphicsAtTheLimit(5), UnitSystem::KnToMPa, EnglishBase));
    EXPECT_EQ(Run({"check", "road.ven"}).Out, "road.ven: passes: 100 layers, 100 loads\n");
    const Outcome outcome = Run(Map("limit.png"));
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_TRUE(Folder.Get("limit.png").starts_with("\x89PNG"));
}

// Ten columns of loads: 20 edges, with five positions between two of them and margins 119 in all; 1100 levels.
TEST_F(Limits, AMapOfMorePointsThanThereMayBeHasThemCounted) {
    Folder.Put("road.ven", WriteGraphicsInput(GraphicsAtTheLimit(10), UnitSystem::KnToMPa, EnglishBase));
    const Outcome outcome = Run(Map("limit.png"));
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Err, "road.ven: the loads make a grid of 130900 points, more than 100000\n");
    EXPECT_EQ(Folder.Names(), Arguments{"road.ven"});
}
#endif

TEST_F(Limits, AThousandFilesInTheFolderAreNoHindrance) {
    for (int i = 0; i < 1000; ++i) {
        Folder.Put((i % 2 == 0 ? ".zirvo-" : "file-") + std::to_string(i) + "-1.tmp", "left");
    }
    Folder.PutSample("road.eva");
    EXPECT_EQ(Run(Analyze("road.eva")).Code, 0);
    EXPECT_EQ(Folder.Names().size(), 1005U);
}

/// Folders within folders, until the path of the innermost has so many bytes.
std::string LongFolder(const WorkFolder& folder, std::size_t bytes) {
    std::string path = folder.Path();
    while (path.size() < bytes) {
        const std::size_t left = bytes - path.size();
        path += "/" + std::string(left <= 201 ? std::max<std::size_t>(left, 2) - 1 : left == 202 ? 199 : 200, 'd');
    }
    std::filesystem::create_directories(path);
    return path;
}

TEST_F(Limits, APathOfFourThousandBytesIsAPathLikeAnyOther) {
    const std::string deep = LongFolder(Folder, 4000);
    ASSERT_EQ(deep.size(), 4000U);
    for (const char* name : {"/road.eva", "/road.ven"}) {
        std::filesystem::copy_file(std::string(ZIRVO_SAMPLES) + name, deep + name);
    }
    EXPECT_EQ(Run({"check", deep + "/road.eva"}).Code, 0);
    const Outcome analyze = Run(Analyze(deep + "/road.eva"));
    EXPECT_EQ(analyze.Code, 0) << analyze.Err.substr(0, 300);
    EXPECT_TRUE(std::filesystem::exists(deep + "/road_bre.csv"));
    const Outcome solve = Run({"solve", deep + "/road.eva", "--units", "3", "--csv", deep + "/road.csv"});
    EXPECT_EQ(solve.Code, 0) << solve.Err.substr(0, 300);
#ifdef ZIRVO_DRAWS_MAPS
    Folder.PutSample("road.ven");
    EXPECT_EQ(Run(Map(deep + "/map.png")).Code, 0);
#endif
}

// The system knows no path of 4096 bytes or more.
TEST_F(Limits, APathThatIsTooLongForTheSystemIsToldAndNothingIsTouched) {
    const std::string deep = Folder.Path() + std::string(5000, '/') + "road.eva";
    Folder.PutSample("road.eva");
    for (const Arguments& line :
         {Arguments{"check", deep}, Analyze(deep), Arguments{"solve", deep, "--units", "3", "--csv", "road.csv"}}) {
        const Outcome outcome = Run(line);
        EXPECT_EQ(outcome.Code, 1) << line[0];
        EXPECT_TRUE(outcome.Err.starts_with(deep)) << outcome.Err.substr(5000);
    }
    const Outcome outcome =
        Run({"solve", "road.eva", "--units", "3", "--csv", Folder.Path() + std::string(5000, '/') + "road.csv"});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_NE(outcome.Err.find("cannot be written: Run-time error '52'"), std::string::npos);
    EXPECT_EQ(Folder.Names(), Arguments{"road.eva"});
}

/// Every character of the code page that a file name of the system may hold and that ends no field of a file, in names
/// of eighty of them, which with the longest ending take 248 bytes of the 255 that a name may have.
std::vector<std::string> NamesOfEveryCharacter() {
    std::vector<std::string> names;
    std::string name;
    int count = 0;
    const auto add = [&](const std::string& bytes) {
        const std::string character = DecodeText(bytes);
        if (ToCharacters(character).size() != 1 || character == "\xEF\xBF\xBD" || EncodeText(character) != bytes) {
            return;  // not in the code page, two characters, or a second code of one
        }
        name += character;
        if (++count % 80 == 0) {
            names.push_back(std::exchange(name, {}));
        }
    };
    for (unsigned code = 0x21; code <= 0xDF; ++code) {
        if (std::string_view("/,\"\x7F").find(static_cast<char>(code)) == std::string_view::npos && code != '.') {
            add(std::string(1, static_cast<char>(code)));
        }
    }
    for (unsigned lead = 0x81; lead <= 0xFC; ++lead) {
        for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
            add({static_cast<char>(lead), static_cast<char>(trail)});
        }
    }
    names.push_back(name);
    return names;
}

// 7000 double-width characters and more: JIS X 0208 has 6879, the makers' extensions some hundreds.
TEST_F(Limits, AFileNameMayHoldEveryCharacterOfTheCodePage) {
    const std::vector<std::string> names = NamesOfEveryCharacter();
    ASSERT_GT(names.size(), 7000U / 80);
    for (const std::string& name : names) {
        PavementModel model;
        model.LayerCount = model.LoadCount = model.PointCount = 1;
        model.Layers[1] = {.Modulus = 100, .PoissonRatio = 0.35};
        model.Loads[1] = {.VerticalLoad = 49, .Radius = 15};
        model.Points[1] = {.LayerNumber = 1, .PointZ = 5};
        model.InputFileName = name + ".eva";
        model.ResultFileName = name + ".bre";
        model.PrincipalFileName = name + ".san";
        Folder.Put(model.InputFileName, WriteAnalysisInput(model, UnitSystem::KnToMPa, JapaneseBase));
        const Outcome outcome = Run(Analyze(model.InputFileName, "ja"));
        EXPECT_EQ(outcome.Code, 0) << name << ": " << outcome.Err;
        for (const char* end : {".eva", ".bre", ".san", "_bre.csv", "_san.csv"}) {
            EXPECT_TRUE(Folder.Has(name + end)) << name << end;
            std::filesystem::remove(Folder.Path(name + end));
        }
        EXPECT_EQ(Folder.Names(), Arguments{}) << name;
    }
}

TEST_F(Limits, AClockBeforeNineteenSeventyChangesNothing) {
    Folder.PutSample("road.eva");
    Folder.PutSample("road.ven");
    ASSERT_EQ(Run(Analyze("road.eva")).Code, 0);
    const std::string report = Folder.Get("road.bre");
    Surroundings old;
    old.Variables = {{"LD_PRELOAD", ZIRVO_OLD_CLOCK}, {"ASAN_OPTIONS", "verify_asan_link_order=0"}};
    EXPECT_EQ(Run(Analyze("road.eva"), old).Code, 0);
    EXPECT_EQ(Folder.Get("road.bre"), report);
#ifdef ZIRVO_DRAWS_MAPS
    for (const char* picture : {"map.png", "map.pdf"}) {
        EXPECT_EQ(Run(Map(picture), old).Code, 0) << picture;
    }
#endif
}

TEST_F(Limits, ALocaleWithADecimalCommaChangesNoByte) {
    const WorkFolder locales;
    const std::string locale = locales.Path("de_DE.UTF-8");
    ASSERT_EQ(
        RunProcess({"--no-archive", "-i", "de_DE", "-f", "UTF-8", locale}, {.Program = "/usr/bin/localedef"}).Code, 0)
        << "the package locales has what is needed";
    const Surroundings german{
        .Variables = {{"LOCPATH", locales.Path()}, {"LC_ALL", "de_DE.UTF-8"}, {"LANG", "de_DE.UTF-8"}}};
    // That the locale is there and has its comma:
    Surroundings print = german;
    print.Program = "/usr/bin/printf";
    ASSERT_EQ(Run({"%.1f", "1,5"}, print).Out, "1,5");
    Folder.PutSample("road.eva");
    Folder.PutSample("road.ven");
    const Arguments files{"road.bre", "road.san", "road_bre.csv", "road.csv", "map.png", "map.svg", "map.pdf"};
    std::vector<std::string> first;
    for (const Surroundings& surroundings : {Surroundings{}, german}) {
        EXPECT_EQ(Run(Analyze("road.eva"), surroundings).Code, 0);
        EXPECT_EQ(Run({"solve", "road.eva", "--units", "3", "--csv", "road.csv"}, surroundings).Code, 0);
#ifdef ZIRVO_DRAWS_MAPS
        for (const char* picture : {"map.png", "map.svg", "map.pdf"}) {
            EXPECT_EQ(Run(Map(picture), surroundings).Code, 0) << picture;
        }
#endif
        for (std::size_t i = 0; i < files.size(); ++i) {
            if (first.size() < files.size()) {
                first.push_back(Folder.Get(files[i]));
            } else {
                EXPECT_EQ(Folder.Get(files[i]), first[i]) << files[i];
            }
        }
    }
}

#ifndef __SANITIZE_ADDRESS__  // whose shadow takes terabytes
TEST_F(Limits, ASolverWithLittleMemorySolvesOrTellsAndNeverCrashes) {
    constexpr std::size_t megabyte = std::size_t{1} << 20;
    Folder.Put("limit.eva", WriteAnalysisInput(ModelAtTheLimit(), UnitSystem::KnToMPa, EnglishBase));
    Folder.Put("Initial_File", "LANGUAGE PREFERENCE\r\n 2 \r\n\r\nUNITS\r\n 3 \r\n\r\nINPUT\r\nlimit.eva\r\n");
    for (const std::size_t megabytes : {16U, 32U, 48U, 64U, 128U}) {
        const Outcome outcome = Run({}, {.Program = ZIRVO_BIN "/ZIRVO_SV12.EXE", .Memory = megabytes * megabyte});
        EXPECT_TRUE(outcome.Code == 0 || outcome.Code == 1) << megabytes << " MB: " << outcome.Code << outcome.Err;
        const std::string report = Folder.Get("limit.bre");
        if (outcome.Code == 0) {
            EXPECT_EQ(RowsOfReport(report), 10000);
        } else {
            EXPECT_EQ(outcome.Err, "limit.eva: there is not enough memory\n") << megabytes;
            EXPECT_NE(report.find("REASON: there is not enough memory"), std::string::npos) << report;
        }
    }
    EXPECT_EQ(Run({}, {.Program = ZIRVO_BIN "/ZIRVO_SV12.EXE", .Memory = 1024 * megabyte}).Code, 0);
}

TEST_F(Limits, ARoadNeedsNoMoreThanSixtyFourMegabytes) {
    Folder.PutSample("road.eva");
    Folder.Put("Initial_File", "LANGUAGE PREFERENCE\r\n 2 \r\n\r\nUNITS\r\n 3 \r\n\r\nINPUT\r\nroad.eva\r\n");
    const Outcome outcome = Run({}, {.Program = ZIRVO_BIN "/ZIRVO_SV12.EXE", .Memory = std::size_t{64} << 20});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
}
#endif

}  // namespace
}  // namespace zirvo::test
