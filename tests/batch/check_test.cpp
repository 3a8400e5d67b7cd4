// `zirvo-batch check`: every row and value that breaks a rule, and files that cannot be read.
#include <gtest/gtest.h>

#include <filesystem>

#include "batch/work_folder.h"

namespace zirvo::test {
namespace {

using Lines = std::vector<std::string>;

class Check : public testing::Test {
protected:
    WorkFolder Folder;
    const std::string Road = SampleBytes("road.eva");

    Lines ErrorsOf(const std::string& bytes) {
        Folder.Put("road.eva", bytes);
        const Outcome outcome = Folder.Batch({"check", "road.eva"});
        EXPECT_EQ(outcome.Code, 1);
        EXPECT_EQ(outcome.Out, "");
        return LinesOf(outcome.Err);
    }
};

TEST_F(Check, AFileThatPassesIsToldWithItsCounts) {
    Folder.PutSample("road.eva");
    const Outcome outcome = Folder.Batch({"check", "road.eva"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Out, "road.eva: passes: 3 layers, 1 load, 12 points\n");
    EXPECT_EQ(outcome.Err, "");
}

TEST_F(Check, EveryFailingRowAndValueIsNamedAndNotOnlyTheFirst) {
    std::string bytes = With(Road, "         5000             0.35", "        -5000             0.75");
    bytes = With(bytes, "        49               15", "         0              -15");
    bytes = With(bytes, "    3               0            0           45",
                 "    7               0            0           45");
    EXPECT_EQ(ErrorsOf(bytes), (Lines{"road.eva: layer 1, Modulus -5000: is not above 0",
                                      "road.eva: layer 1, PoissonRatio 0.75: is above 0.5",
                                      "road.eva: load 1, VerticalLoad 0: is 0, and so is HorizontalLoad: the load does "
                                      "nothing",
                                      "road.eva: load 1, Radius -15: is not above 0",
                                      "road.eva: point 5, LayerNumber 7: names no layer: there are 3"}));
}

TEST_F(Check, AGraphicsInputFileIsJudgedByItsOwnRules) {
    Folder.PutSample("motorway.ven");
    const Outcome outcome = Folder.Batch({"check", "motorway.ven"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_EQ(outcome.Out, "motorway.ven: passes: 6 layers, 4 loads\n");

    std::string bytes =
        With(SampleBytes("road.ven"), "         5000             0.35", "        -5000             0.75");
    bytes = With(bytes, "        49               15", "         0              -15");
    Folder.Put("bad.ven", bytes);
    const Outcome bad = Folder.Batch({"check", "bad.ven"});
    EXPECT_EQ(bad.Code, 1);
    EXPECT_EQ(bad.Out, "");
    EXPECT_EQ(LinesOf(bad.Err), (Lines{"bad.ven: layer 1, Modulus -5000: is not above 0",
                                       "bad.ven: layer 1, PoissonRatio 0.75: is above 0.5",
                                       "bad.ven: load 1, VerticalLoad 0: is 0, and so is HorizontalLoad: the load does "
                                       "nothing",
                                       "bad.ven: load 1, Radius -15: is not above 0"}));
    EXPECT_EQ(LinesOf(Folder.Batch({"check", "none.ven"}).Err), Lines{"none.ven: File not found"});
}

TEST_F(Check, APointOutsideItsLayerIsNamedWithTheDepthOfTheInterface) {
    const std::string bytes = With(Road, "    2               0            0           45",
                                   "    1               0            0           45");
    EXPECT_EQ(ErrorsOf(bytes), Lines{"road.eva: point 4, PointZ 45: lies below the bottom of layer 1 at 15 cm"});
}

TEST_F(Check, AFileThatIsCutSaysWhereItEnds) {
    EXPECT_EQ(ErrorsOf(Road.substr(0, Road.find("300"))), Lines{"road.eva: layer 2, Modulus: the file ends here"});
}

TEST_F(Check, AFieldThatIsNoNumberIsNamed) {
    const Lines errors = ErrorsOf(With(Road, "        49", "     heavy"));
    ASSERT_FALSE(errors.empty());
    EXPECT_EQ(errors[0].rfind("road.eva: load 1, VerticalLoad", 0), 0U) << errors[0];
}

TEST_F(Check, AFileCutAtAnyPlaceEitherPassesOrIsRefused) {
    // Only the last line may lose something without harm: its end, and digits that leave a number behind.
    for (std::size_t length = 0; length < Road.size(); length += 41) {
        Folder.Put("road.eva", Road.substr(0, length));
        const Outcome outcome = Folder.Batch({"check", "road.eva"});
        EXPECT_EQ(outcome.Code, 1) << length;
        EXPECT_EQ(outcome.Err.rfind("road.eva: ", 0), 0U) << length;
    }
}

TEST_F(Check, MissingFilesAndFoldersAreNamed) {
    EXPECT_EQ(Folder.Batch({"check", "none.eva"}).Err, "none.eva: File not found\n");
    EXPECT_EQ(Folder.Batch({"check", "none/none.eva"}).Err, "none/none.eva: Path not found\n");
    std::filesystem::create_directory(Folder.Path("a.eva"));
    const Outcome outcome = Folder.Batch({"check", "a.eva"});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Err, "a.eva: Path/File access error\n");
}

TEST_F(Check, ANameInJapaneseIsFoundAndTold) {
    Folder.Put("滑走路.eva", Road);
    EXPECT_EQ(Folder.Batch({"check", "滑走路.eva"}).Out, "滑走路.eva: passes: 3 layers, 1 load, 12 points\n");
}

TEST_F(Check, AnExtensionInCapitalsIsTheSameExtension) {
    Folder.Put("ROAD.EVA", Road);
    EXPECT_EQ(Folder.Batch({"check", "ROAD.EVA"}).Code, 0);
}

}  // namespace
}  // namespace zirvo::test
