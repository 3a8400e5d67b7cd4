// `zirvo-batch study --plot`: charts of results as SVG and PNG.
#include <gtest/gtest.h>

#include "batch/work_folder.h"

namespace zirvo::test {
namespace {

using Arguments = std::vector<std::string>;

class ChartWork : public WorkFolder {
public:
    ChartWork() {
        for (const char* name : {"road.eva", "road_study.toml", "road_sample.toml"}) {
            PutSample(name);
        }
    }
    Outcome Plot(const char* study, Arguments more) const {
        more.insert(more.begin(), {"study", study});
        return Batch(more);
    }
};

TEST(StudyChart, AxesAndLinesAreNamedWithTheirUnits) {
    const ChartWork folder;
    const Outcome outcome = folder.Plot("road_study.toml", {"--plot", "c.svg", "--x", "layer 1 thickness", "--y",
                                                            "fatigue", "--lines", "layer 1 modulus", "--log", "y"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    const std::string svg = folder.Get("c.svg");
    for (const char* text : {"layer 1 thickness [cm]", "fatigue [repetitions]", ">layer 1 modulus<", ">2000 MPa<",
                             ">5000 MPa<", ">10000 MPa<", ">30<", ">1E7<"}) {
        EXPECT_NE(svg.find(text), std::string::npos) << text;
    }
    EXPECT_EQ(svg.substr(0, 5), "<?xml");
    const Outcome again = folder.Plot("road_study.toml", {"--plot", "d.svg", "--x", "layer 1 thickness", "--y",
                                                          "fatigue", "--lines", "layer 1 modulus", "--log", "y"});
    EXPECT_NE(again.Err.find("33 of them done by earlier runs"), std::string::npos) << again.Err;
    EXPECT_EQ(folder.Get("d.svg"), svg);
}

TEST(StudyChart, APictureHasTheSizeThatIsAskedFor) {
    const ChartWork folder;
    const Outcome outcome =
        folder.Plot("road_study.toml", {"--plot", "c.png", "--x", "layer 1 thickness", "--y", "EPSx 2", "--where",
                                        "layer 1 modulus=5000", "--size", "640x400"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    const std::string png = folder.Get("c.png");
    EXPECT_EQ(png.substr(1, 3), "PNG");
    EXPECT_EQ(png.substr(16, 8), std::string("\0\0\x02\x80\0\0\x01\x90", 8));  // 640 and 400 in the head of the file
}

TEST(StudyChart, AHistogramCountsASample) {
    const ChartWork folder;
    const Outcome outcome =
        folder.Plot("road_sample.toml", {"--plot", "h.svg", "--histogram", "fatigue", "--log", "x", "--bins", "20"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_NE(folder.Get("h.svg").find(">rows<"), std::string::npos);
}

TEST(StudyChart, WhatCannotBeDrawnIsToldAndTheResultsStay) {
    const ChartWork folder;
    const std::vector<std::pair<Arguments, std::string>> rows{
        {{"--x", "layer 1 thickness", "--y", "EPSx 2"}, "several rows have layer 1 thickness = 10: hold the other"},
        {{"--x", "layer 1 modulus", "--y", "EPSx 2", "--lines", "EPSz 5"}, "EPSz 5 has 33 values, and a chart at most"},
        {{"--x", "layer 1 thickness", "--y", "EPSx 2", "--where", "layer 1 modulus=7"}, "no row fits --where"},
        {{"--x", "layer 1 thickness", "--y", "EPSz 5", "--lines", "layer 1 modulus", "--log", "y"},
         "none of the values"},
    };
    for (const auto& [more, told] : rows) {
        Arguments line{"--plot", "c.svg"};
        line.insert(line.end(), more.begin(), more.end());
        const Outcome outcome = folder.Plot("road_study.toml", line);
        EXPECT_EQ(outcome.Code, 1) << told;
        EXPECT_NE(outcome.Err.find("c.svg: " + told), std::string::npos) << outcome.Err;
        EXPECT_FALSE(folder.Has("c.svg"));
    }
    EXPECT_EQ(LinesOf(folder.Get("road_study_results.csv")).size(), 34U);
    const Outcome nowhere = folder.Plot("road_study.toml", {"--plot", "no/c.svg", "--histogram", "EPSx 2"});
    EXPECT_EQ(nowhere.Code, 1);
    EXPECT_NE(nowhere.Err.find("no/c.svg: cannot be written"), std::string::npos) << nowhere.Err;
}

}  // namespace
}  // namespace zirvo::test
