// Study files: what they mean, and what is told of those that are wrong.
#include <gtest/gtest.h>

#include "study/study_folder.h"

namespace zirvo::study {
namespace {

std::string Vary(const std::string& what, const std::string& how) {
    return "[[vary]]\nwhat = \"" + what + "\"\n" + how + "\n";
}

std::vector<double> ValuesOfRow(const Study& study, std::uint64_t row) {
    std::vector<double> values;
    study.ValuesOf(row, values);
    return values;
}

TEST(StudyFiles, AGridIsEveryValueWithEveryOtherTheLastOneFastest) {
    const StudyFolder folder;
    const Study study = folder.StudyOf(Head() + Vary("layer 1 thickness", "values = [10, 20]") +
                                       Vary("layer  2   modulus", "from = 100\nto = 300\ncount = 3") +
                                       Vary("load 1 x", "from = 0\nto = 1\nstep = 0.25") + Keeps());
    EXPECT_EQ(study.Rows, 2U * 3 * 5);
    EXPECT_EQ(ValuesOfRow(study, 0), (std::vector<double>{10, 100, 0}));
    EXPECT_EQ(ValuesOfRow(study, 1), (std::vector<double>{10, 100, 0.25}));
    EXPECT_EQ(ValuesOfRow(study, 5), (std::vector<double>{10, 200, 0}));
    EXPECT_EQ(ValuesOfRow(study, 29), (std::vector<double>{20, 300, 1}));
    EXPECT_EQ(study.LabelOf(study.Vary[1]), "layer 2 modulus [MPa]");
    EXPECT_EQ(study.LabelOf(study.Keep[0]), "EPSx 2 [micro]");
}

// 0.39 + 6 * 0.1 is 0.9900000000000001 in doubles, and a slip rate is 0.99 at most; 0.3 is 3 * 0.1 - 6E-17.
TEST(StudyFiles, StepsThatLeadToTheEndEndThere) {
    const StudyFolder folder;
    const Study study = folder.StudyOf(Head() + Vary("layer 1 slip", "from = 0.39\nto = 0.99\nstep = 0.1") +
                                       Vary("load 1 x", "from = 0\nto = 0.3\nstep = 0.1") +
                                       Vary("load 1 y", "from = 0\nto = 0.35\nstep = 0.1") + Keeps());
    EXPECT_EQ(study.Rows, 7U * 4 * 4);
    EXPECT_EQ(study.Vary[0].Values.back(), 0.99);
    EXPECT_EQ(study.Vary[1].Values.back(), 0.3);
    EXPECT_EQ(study.Vary[2].Values.back(), 3 * 0.1);
}

TEST(StudyFiles, ATableGivesItsRows) {
    const StudyFolder folder;
    folder.Put("t.csv", "layer 1 modulus,loads total\n3000,49\n4000,98\n");
    const Study study = folder.StudyOf(Head() + "table = \"t.csv\"\n" + Keeps());
    EXPECT_EQ(study.Rows, 2U);
    EXPECT_EQ(ValuesOfRow(study, 1), (std::vector<double>{4000, 98}));
    EXPECT_EQ(study.LabelOf(study.Vary[1]), "loads total [kN]");
}

TEST(StudyFiles, ASampleDependsOnItsSeedAlone) {
    const StudyFolder folder;
    const auto text = [](const char* seed) {
        return Head() + "rows = 10\nseed = " + seed + "\n" +
               Vary("layer 1 modulus", "distribution = \"lognormal\"\nmean = 5000\ndeviation = 500") + Keeps();
    };
    const Study study = folder.StudyOf(text("7"));
    EXPECT_EQ(ValuesOfRow(study, 3), ValuesOfRow(folder.StudyOf(text("7")), 3));
    EXPECT_NE(ValuesOfRow(study, 3), ValuesOfRow(folder.StudyOf(text("8")), 3));
    EXPECT_NE(ValuesOfRow(study, 3), ValuesOfRow(study, 4));
}

TEST(StudyFiles, AnotherByteInAnyFileIsAnotherStudy) {
    const StudyFolder folder;
    const std::string text = Head() + "table = \"t.csv\"\n" + Keeps();
    folder.Put("t.csv", "layer 1 modulus\n3000\n");
    const std::string digest = folder.StudyOf(text).Digest;
    EXPECT_EQ(folder.StudyOf(text).Digest, digest);
    EXPECT_NE(folder.StudyOf(text + "\n").Digest, digest);
    folder.Put("t.csv", "layer 1 modulus\n3001\n");
    EXPECT_NE(folder.StudyOf(text).Digest, digest);
}

TEST(StudyFiles, LivesAndLargestValuesAreKept) {
    const StudyFolder folder;
    const Study study =
        folder.StudyOf(Head() + Vary("layer 1 modulus", "values = [1]") +
                       "[[keep]]\nvalue = \"W\"\npoints = [1, 8]\nover = \"largest size\"\n" +
                       "[[keep]]\nname = \"years\"\nlife = \"ai-fatigue\"\npoint = 2\nvoids = 5\nbinder = 11\n");
    EXPECT_EQ(study.Keep[0].Name, "largest size W");
    EXPECT_EQ(study.Keep[0].Points, (std::vector<std::size_t>{0, 7}));
    EXPECT_EQ(study.LabelOf(study.Keep[0]), "largest size W [cm]");
    EXPECT_EQ(study.LabelOf(study.Keep[1]), "years [repetitions]");
    EXPECT_NEAR(study.Keep[1].MixFactor, 0.97252, 1e-5);  // as in the tests of lives
}

struct Wrong {
    std::string Text;
    std::string Told;
};

TEST(StudyFiles, WhatIsWrongIsToldWithFileAndLine) {
    const StudyFolder folder;
    folder.Put("t.csv", "layer 1 modulus\n");
    folder.Put("u.csv", "layer 9 modulus\n5\n");
    folder.Put("bad.eva", "x");
    const std::string modulus = Vary("layer 1 modulus", "values = [1000]");
    const std::string normal = "distribution = \"normal\"\nmean = 100\ndeviation = 60";
    const std::string sample = Head() + "rows = 100\nseed = 1\n";
    const std::vector<Wrong> rows{
        {"base = [", "s.toml:1: "},
        {"units = 3\n" + modulus + Keeps(), "s.toml:1: base: is missing"},
        {"base = \"road.eva\"\nunits = 4\n", "s.toml:2: units: must be a whole number from 1 to 3"},
        {"base = \"none.eva\"\nunits = 3\n", "s.toml:1: none.eva cannot be read: File not found"},
        {"base = \"bad.eva\"\nunits = 3\n", "bad.eva: "},
        {Head() + "[=]\n" + modulus + Keeps(), "s.toml:3: "},
        {Head() + "[\1vary]\n" + modulus + Keeps(), "s.toml:3: "},
        {Head() + "größe = 5\n" + modulus + Keeps(), "s.toml:3: a character beyond ASCII stands outside quotes"},
        {Head() + "\xE3\x80\x80" + modulus + Keeps(), "s.toml:3: a character beyond ASCII stands outside quotes"},
        {Head() + "\xEF\xBB\x9F" + modulus + Keeps(), "s.toml:3: a character beyond ASCII stands outside quotes"},
        {Head() + modulus + "name = \"a\n\xC3\xA9", "s.toml:7: a character beyond ASCII stands outside quotes"},
        {Head() + "colour = 5\n" + modulus + Keeps(), "s.toml:3: colour: is no key here; there are base, units"},
        {Head() + Keeps(), "s.toml:1: there is no [[vary]]: nothing varies"},
        {Head() + modulus, "s.toml:1: there is no [[keep]]: nothing is kept"},
        {Head() + Vary("layer 5 modulus", "values = [1]") + Keeps(),
         "s.toml:4: \"layer 5 modulus\": names no layer: there are 3"},
        {Head() + Vary("load 2 x", "values = [1]") + Keeps(), "s.toml:4: \"load 2 x\": names no load: there are 1"},
        {Head() + Vary("layer 3 thickness", "values = [1]") + Keeps(),
         "s.toml:4: \"layer 3 thickness\": the last layer has no thickness"},
        {Head() + Vary("weather", "values = [1]") + Keeps(), "s.toml:4: \"weather\" is no parameter; a parameter is"},
        {Head() + Vary("layer 1 modulus", "values = []") + Keeps(),
         "s.toml:5: values: is empty: there is nothing to do"},
        {Head() + Vary("layer 1 modulus", "values = [1000, -5]") + Keeps(),
         "s.toml:5: layer 1 modulus -5: is not above 0"},
        {Head() + Vary("layer 1 modulus", "values = [1, \"two\"]") + Keeps(), "s.toml:5: values: must be a number"},
        {Head() + Vary("layer 1 modulus", "from = 1\nto = 5") + Keeps(), "s.toml:3: from and to want either count or"},
        {Head() + Vary("layer 1 modulus", "from = 5\nto = 1\nstep = 1") + Keeps(),
         "s.toml:7: step: does not lead from 5 to 1: there is nothing to do"},
        {Head() + Vary("layer 1 modulus", "from = 1\nto = 1E300\nstep = 1E-300") + Keeps(), "s.toml:7: step: does not"},
        {Head() + Vary("layer 1 modulus", "from = 1\nto = 5\ncount = 1000001") + Keeps(),
         "s.toml:7: count: must be a whole number from 2 to 1000000"},
        {Head() + Vary("layer 1 modulus", "from = 1\nto = 100000000\nstep = 1") + Keeps(),
         "s.toml:7: step: makes more than 1000000 values"},
        {Head() + modulus + modulus + Keeps(), "s.toml:7: two columns of the results are named layer 1 modulus"},
        {Head() + modulus + Keeps() + Keeps(), "s.toml: two columns of the results are named EPSx 2; a name = "},
        {sample + Vary("layer 3 modulus", normal) + Keeps(), "s.toml:6: the distribution of layer 3 modulus gives -"},
        {sample + Vary("layer 3 modulus", "distribution = \"bell\"") + Keeps(), "s.toml:7: distribution: bell is none"},
        {sample + Vary("layer 3 modulus", "distribution = \"uniform\"\nfrom = 5\nto = 5") + Keeps(),
         "s.toml:7: uniform distribution of layer 3 modulus: to 5: is not above from"},
        {sample + modulus + Keeps(), "s.toml:5: distribution: is missing"},
        {Head() + "rows = 0\nseed = 1\n" + modulus + Keeps(), "s.toml:3: rows: must be a whole number from 1 to"},
        {Head() + "rows = 5\n" + modulus + Keeps(), "s.toml:1: seed: is missing"},
        {Head() + "seed = 5\n" + modulus + Keeps(), "s.toml:3: seed: belongs to a sample"},
        {Head() + "table = \"t.csv\"\n" + Keeps(), "t.csv: has no rows: there is nothing to do"},
        {Head() + "table = \"u.csv\"\n" + Keeps(), "u.csv:1: \"layer 9 modulus\": names no layer: there are 3"},
        {Head() + "table = \"no.csv\"\n" + Keeps(), "s.toml:3: no.csv cannot be read: File not found"},
        {Head() + "table = \"t.csv\"\n" + modulus + Keeps(),
         "s.toml:4: vary: a study takes its rows from a table or varies them"},
        {Head() + modulus + "[[keep]]\nvalue = \"EPSq\"\npoint = 1\n", "s.toml:7: value: EPSq is no component"},
        {Head() + modulus + "[[keep]]\nvalue = \"W\"\npoint = 13\n",
         "s.toml:8: point: 13 is no point of road.eva, which has 12"},
        {Head() + modulus + "[[keep]]\nvalue = \"W\"\n", "s.toml:6: either point or points"},
        {Head() + modulus + "[[keep]]\nvalue = \"W\"\npoints = [1]\n", "s.toml:6: points go with over"},
        {Head() + modulus + "[[keep]]\nlife = \"creep\"\npoint = 1\n", "s.toml:7: life: creep is no transfer function"},
        {Head() + modulus + "[[keep]]\nlife = \"ai-fatigue\"\npoint = 1\nc = -1\n", "s.toml:9: c: is not above 0"},
        {Head() + modulus + "[[keep]]\nvalue = \"W\"\npoint = 1\nname = \"a,b\"\n",
         "s.toml:9: name: must not be empty"},
    };
    for (const Wrong& row : rows) {
        EXPECT_EQ(folder.Told(row.Text).substr(0, row.Told.size()), row.Told) << row.Text;
    }
    EXPECT_EQ(ReadStudy(folder.Path("none.toml")).index(), 1U);
}

TEST(StudyFiles, QuotesAndCommentsMayHoldEveryCharacter) {
    const StudyFolder folder;
    const std::string keep = "[[keep]]\nvalue = 'W'\npoint = 1\nname = ";
    const std::string text = "# 舗装 é\n" + Head() + Vary("layer 1 modulus", "values = [1]  # ﬁ");
    for (const char* name : {"\"たわみ é\"", "'たわみ é'", "\"\"\"たわみ\\\nA é\"\"\"", "'''たわみ ''é'''",
                             "\"a \\\\\" # é", "'a \\' # é", "\"\" \"é\""}) {
        const bool right = std::string_view(name).find("\" \"") == std::string_view::npos;
        EXPECT_EQ(folder.Told(text + keep + name + "\n") == "passes", right) << name;
    }
}

// The quotes in the middle of a value are none for the library, which looks for the value's end.
TEST(StudyFiles, ALetterBeyondAsciiInABadValueIsRefused) {
    const StudyFolder folder;
    for (const char* letter : {"Й", "é", "、", "あ", "漢", "　", "Ａ"}) {
        for (const std::string& front :
             {std::string("[09999999\0\"a*", 13), std::string("1x\""), std::string("0x\"")}) {
            const std::string told = folder.Told("t3 = " + front + letter + "a500p\"\n");
            EXPECT_EQ(told.substr(0, 9), "s.toml:1:") << front << letter << told;
        }
    }
}

// Each row of it would be drawn before the first was worked on, which took minutes.
TEST(StudyFiles, ASampleWhoseEndsAreGoodIsReadWithoutDrawingItsThousandMillionRows) {
    const StudyFolder folder;
    const Study study =
        folder.StudyOf(Head() + "rows = 1000000000\nseed = 7\n" +
                       Vary("layer 1 modulus", "distribution = \"normal\"\nmean = 5000\ndeviation = 500") +
                       Vary("layer 1 poisson", "distribution = \"uniform\"\nfrom = 0\nto = 0.5") + Keeps());
    EXPECT_EQ(study.Rows, MostRows);
    EXPECT_GT(ValuesOfRow(study, MostRows - 1).front(), 0);
}

/// Cut at every byte a study is read or refused, and never more than that.
TEST(StudyFiles, AFileCutAtAnyByteIsReadOrRefused) {
    const StudyFolder folder;
    const std::string text =
        Head() + "rows = 5\nseed = 1\n" +
        Vary("layer 1 modulus", "distribution = \"normal\"\nmean = 100\ndeviation = 2\nlower = 1") + Keeps();
    EXPECT_EQ(folder.Told(text), "passes");
    for (std::size_t length = 0; length < text.size() - 1; ++length) {
        EXPECT_NE(folder.Told(text.substr(0, length)), "") << length;
    }
}

}  // namespace
}  // namespace zirvo::study
