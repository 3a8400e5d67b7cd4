// From the report of a section to its comma file: what is skipped, what is kept, what stops the conversion.
#include "graphics/result_conversion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "base/fault_of.h"
#include "pavement/graphics_example.h"
#include "pavement/support.h"
#include "platform/in_child.h"

namespace zirvo {
namespace {

using test::CrLfLines;
using test::GetFile;
using test::PutFile;
using test::Replaced;
using Lines = std::vector<std::string>;

constexpr Int16 Japanese = 1;
constexpr Int16 English = 2;
const std::string Stamp = "   <ZIRVO Ver2.3>\r\n";

/// Eighteen columns; the third coordinate, EPSx and EPSz are those of the arguments.
std::string ReportRow(const std::string& x, const std::string& y, const std::string& z, const std::string& epsX,
                      const std::string& epsZ) {
    return "  " + x + " " + y + "  " + z + " 4 5 6 7 8 9 10 11 12 " + epsX + " 14 " + epsZ + " 16 17 18\r\n";
}

const std::string Rows = ReportRow("-35", "0.0000", "5", "1.234560000E+02", "-2.5E-01") +
                         ReportRow("0.5", "-0", "1E-7", "0", "3.3333333333333333");

/// A report of two layers; line 3 holds the comma of English with unit system 1.
std::string Report(bool comma, const std::string& rows = Rows) {
    return std::string("   TITLE\r\n\r\n   UNITS IN") + (comma ? "," : ";") +
           " OUT\r\n\r\n   No. E NU\r\n     1 2 3\r\n     2 - -\r\n\r\n   ====\r\n   POINT --- STRAIN\r\n   X ---\r\n" +
           rows + "   END OF REPORT\r\n";
}

ConversionRequest Request(Int16 language = English, UnitSystem units = UnitSystem::KnToMPa,
                          Int16 component = ComponentEpsX) {
    return {"ZIRVO_SV.BRE", "ZIRVO_SV.CSV", language, units, 2, 2, component};
}

int FaultOfConversion(const ConversionRequest& request) {
    return FaultOf([&] { ConvertResultsToCsv(request); });
}

class ConvertResults : public testing::Test {
protected:
    test::WorkFolder Folder;
};

const std::string CsvOfEpsX =
    "# ZIRVO Ver2.3\r\n# X,Y,Z,EPSx\r\n# (cm),(cm),(cm),micro\r\n"
    "-35 , 0 , 5 , 123.456 \r\n"
    " 0.5 , 0 , 0.0000001 , 0 \r\n";
const std::string CsvOfEpsZ =
    "# ZIRVO Ver2.3\r\n# X,Y,Z,EPSz\r\n# (cm),(cm),(cm),micro\r\n"
    "-35 , 0 , 5 ,-0.25 \r\n"
    " 0.5 , 0 , 0.0000001 , 3.33333333333333 \r\n";

TEST(HeadFieldCount, IsThatOfItsRowForEveryStateLanguageAndUnit) {
    for (const UnitSystem units : {UnitSystem::KgfToKgf, UnitSystem::KgfToMPa, UnitSystem::KnToMPa}) {
        const int comma = units == UnitSystem::KgfToKgf ? 1 : 0;
        EXPECT_EQ(HeadFieldCount(false, Japanese, units), 5);
        EXPECT_EQ(HeadFieldCount(false, English, units), 5 + comma);
        EXPECT_EQ(HeadFieldCount(true, Japanese, units), 6);
        EXPECT_EQ(HeadFieldCount(true, English, units), 6 + comma);
    }
}

TEST_F(ConvertResults, AFreshReportIsStampedAndItsPointsStandInTheCommaFile) {
    PutFile("ZIRVO_SV.BRE", Report(false));
    ConvertResultsToCsv(Request());
    EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), CsvOfEpsX);
    EXPECT_EQ(GetFile("ZIRVO_SV.BRE"), Stamp + Report(false));
    EXPECT_EQ(Folder.Names(), (Lines{"ZIRVO_SV.BRE", "ZIRVO_SV.CSV"})) << "no temporary file stays";
}

TEST_F(ConvertResults, AStampedReportIsReadBehindItsStampAndNotStampedAgain) {
    PutFile("ZIRVO_SV.BRE", Stamp + Report(false));
    ConvertResultsToCsv(Request(English, UnitSystem::KnToMPa, ComponentEpsZ));
    EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), CsvOfEpsZ);
    EXPECT_EQ(GetFile("ZIRVO_SV.BRE"), Stamp + Report(false));
}

TEST_F(ConvertResults, EveryRowOfTheSkipTableReadsItsReport) {
    for (const Int16 language : {Japanese, English}) {
        for (const UnitSystem units : {UnitSystem::KgfToKgf, UnitSystem::KgfToMPa, UnitSystem::KnToMPa}) {
            const bool comma = language == English && units == UnitSystem::KgfToKgf;
            PutFile("ZIRVO_SV.BRE", Report(comma));
            ConvertResultsToCsv(Request(language, units));
            EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), CsvOfEpsX);
            // The second conversion of the same run, of the other component.
            ConvertResultsToCsv(Request(language, units, ComponentEpsZ));
            EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), CsvOfEpsZ);
            // And a report whose head is one field off is a word where a number should stand, or a number too few.
            PutFile("ZIRVO_SV.BRE", Report(!comma));
            EXPECT_NE(FaultOfConversion(Request(language, units)), 0);
        }
    }
}

// A report that another version has stamped has the same line more.
TEST_F(ConvertResults, TheFirstLineTellsTheStampOfAnyVersion) {
    for (const std::string stamp : {"   <ZIRVO Ver2.2>\r\n", "   <ZIRVO Ver10.0>\n"}) {
        PutFile("ZIRVO_SV.BRE", stamp + Report(false));
        ConvertResultsToCsv(Request());
        EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), CsvOfEpsX);
        EXPECT_EQ(GetFile("ZIRVO_SV.BRE"), stamp + Report(false));
    }
}

TEST_F(ConvertResults, AStampAnywhereElseIsNone) {
    for (const std::string title : {"<ZIRVO Ver2.3>", " x <ZIRVO Ver2.3>", "ZIRVO"}) {
        const std::string report = Replaced(Report(false), "   TITLE", title);
        PutFile("ZIRVO_SV.BRE", report);
        ConvertResultsToCsv(Request());
        EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), CsvOfEpsX) << title;
        EXPECT_EQ(GetFile("ZIRVO_SV.BRE"), Stamp + report);
    }
}

TEST_F(ConvertResults, AFaultTellsTheReportAndWhatTheSolverSaysInIt) {
    const auto about = [] {
        try {
            ConvertResultsToCsv(Request());
        } catch (const RuntimeFault& caught) {
            return caught.About();
        }
        return FaultSubject();
    };
    EXPECT_EQ(about(), (FaultSubject{FaultMatter::Report, Folder.Path("ZIRVO_SV.BRE"), ""}));
    PutFile("ZIRVO_SV.BRE",
            "   TITLE\r\n\r\n   ERROR - THIS REPORT HOLDS NO RESULTS\r\n   FILE: ZIRVO_SV.EVA\r\n   REASON: x\r\n");
    EXPECT_EQ(about(), (FaultSubject{FaultMatter::File, Folder.Path("ZIRVO_SV.BRE"),
                                     "TITLE\nERROR - THIS REPORT HOLDS NO RESULTS\nFILE: ZIRVO_SV.EVA\nREASON: x"}));
    PutFile("ZIRVO_SV.BRE", Report(false, "1 2 3"));  // a table, however short, is no word of the solver's
    EXPECT_EQ(about(), (FaultSubject{FaultMatter::File, Folder.Path("ZIRVO_SV.BRE"), ""}));
    PutFile("ZIRVO_SV.BRE", Report(false));
    PutFile("ZIRVO_SV.TMP", "left over");
    EXPECT_EQ(about(), (FaultSubject{FaultMatter::File, Folder.Path("ZIRVO_SV.TMP"), ""}));
}

// The head is counted in text fields, not in lines.
TEST_F(ConvertResults, ACommaInTheHeadAddsAFieldAndAnEmptyLineIsOne) {
    PutFile("ZIRVO_SV.BRE", Replaced(Report(false), "TITLE", "TI,TLE"));
    EXPECT_EQ(FaultOfConversion(Request()), 13);
    PutFile("ZIRVO_SV.BRE", Replaced(Report(true), "TITLE\r\n\r\n", "TITLE\r\n"));
    ConvertResultsToCsv(Request());
    EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), CsvOfEpsX) << "the comma stands for the line that is gone";
}

TEST_F(ConvertResults, ARowMayGoOnOverLinesAndColumnsMayBeParted) {
    PutFile("ZIRVO_SV.BRE", Replaced(Report(false), " 4 5 6 7", "\r\n\r\n4,5 , 6\t7"));
    ConvertResultsToCsv(Request());
    EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), CsvOfEpsX);
}

TEST_F(ConvertResults, NoComponentLeavesAnEmptyCommaFileButAStampedReport) {
    for (const Int16 component : {Int16{0}, Int16{3}, Int16{-1}}) {
        PutFile("ZIRVO_SV.BRE", Report(false));
        PutFile("ZIRVO_SV.CSV", "old");
        ConvertResultsToCsv(Request(English, UnitSystem::KnToMPa, component));
        EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), "");
        EXPECT_EQ(GetFile("ZIRVO_SV.BRE"), Stamp + Report(false));
    }
}

TEST_F(ConvertResults, TheCommaFileOfAnEarlierConversionIsReplacedWhole) {
    PutFile("ZIRVO_SV.CSV", std::string(100000, 'x'));
    PutFile("ZIRVO_SV.BRE", Report(false));
    ConvertResultsToCsv(Request());
    EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), CsvOfEpsX);
}

TEST_F(ConvertResults, AMissingReportIsFaultFiftyThreeAndTheCommaFileStays) {
    PutFile("ZIRVO_SV.CSV", "old");
    EXPECT_EQ(FaultOfConversion(Request()), 53);
    EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), "old");
    std::filesystem::create_directory("ZIRVO_SV.BRE");
    EXPECT_EQ(FaultOfConversion(Request()), 75);
}

TEST_F(ConvertResults, AReportCutAtAnyByteIsAFaultAndChangesNothing) {
    const std::string whole = Report(false);
    const std::size_t lastNumber = whole.rfind("18");
    for (std::size_t length = 0; length < lastNumber + 1; ++length) {
        PutFile("ZIRVO_SV.BRE", whole.substr(0, length));
        const int fault = FaultOfConversion(Request());
        EXPECT_TRUE(fault == 62 || fault == 13) << length << ": " << fault;
        EXPECT_EQ(Folder.Names(), Lines{"ZIRVO_SV.BRE"});
        EXPECT_EQ(GetFile("ZIRVO_SV.BRE"), whole.substr(0, length));
    }
}

TEST_F(ConvertResults, WordsForNumbersAreFaultThirteen) {
    for (const char* const word : {"abc", "nan", "inf", "1.2.3", "--5", "1E"}) {
        PutFile("ZIRVO_SV.BRE", Replaced(Report(false), " 11 ", std::string(" ") + word + " "));
        EXPECT_EQ(FaultOfConversion(Request()), 13) << word;
        EXPECT_EQ(Folder.Names(), Lines{"ZIRVO_SV.BRE"});
    }
}

// The solver's report of an error has no row of numbers: its words stand where the first one should.
TEST_F(ConvertResults, TheSolversOwnErrorReportIsAFault) {
    PutFile("ZIRVO_SV.BRE",
            "   TITLE\r\n\r\n   ERROR - THIS REPORT HOLDS NO RESULTS\r\n   FILE: ZIRVO_SV.EVA\r\n   REASON: x\r\n");
    EXPECT_EQ(FaultOfConversion(Request()), 62);
}

TEST_F(ConvertResults, APointThatTheReportDoesNotHaveIsAFaultAndRowsTooManyDoNotMatter) {
    PutFile("ZIRVO_SV.BRE", Report(false));
    ConversionRequest request = Request();
    request.PointCount = 3;
    EXPECT_EQ(FaultOfConversion(request), 13) << "the tail's words stand where the third row should";
    request.PointCount = 1;
    ConvertResultsToCsv(request);
    EXPECT_EQ(CrLfLines(GetFile("ZIRVO_SV.CSV")).size(), 4U);
}

TEST_F(ConvertResults, AHundredThousandPointsAreConvertedAndOneMoreIsFaultNine) {
    std::string rows;
    for (int i = 0; i < 100001; ++i) {
        rows += "1 2 3 0 0 0 0 0 0 0 0 0 7 0 8 0 0 0\r\n";
    }
    PutFile("ZIRVO_SV.BRE", Report(false, rows));
    ConversionRequest request = Request();
    request.PointCount = 100001;
    EXPECT_EQ(FaultOfConversion(request), 9);
    EXPECT_EQ(Folder.Names(), Lines{"ZIRVO_SV.BRE"});
    request.PointCount = 100000;
    ConvertResultsToCsv(request);
    const Lines lines = CrLfLines(GetFile("ZIRVO_SV.CSV"));
    EXPECT_EQ(lines.size(), 100003U);
    EXPECT_EQ(lines.back(), " 1 , 2 , 3 , 7 ");
}

TEST_F(ConvertResults, ALeftOverTemporaryFileIsFaultFiftyEightAndNothingIsReplaced) {
    PutFile("ZIRVO_SV.BRE", Report(false));
    PutFile("ZIRVO_SV.TMP", "from an interrupted run");
    EXPECT_EQ(FaultOfConversion(Request()), 58);
    EXPECT_EQ(GetFile("ZIRVO_SV.TMP"), "from an interrupted run");
    EXPECT_EQ(Folder.Names(), (Lines{"ZIRVO_SV.BRE", "ZIRVO_SV.TMP"}));
}

TEST_F(ConvertResults, AFullDiskLosesNoReportAndNoCommaFile) {
    PutFile("ZIRVO_SV.BRE", Stamp + Report(false));
    PutFile("ZIRVO_SV.CSV", "old");
    EXPECT_EQ(FaultWithFilesLimitedTo(50, [] { ConvertResultsToCsv(Request()); }), 61);
    EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), "old");
    PutFile("ZIRVO_SV.BRE", Report(false));
    EXPECT_EQ(FaultWithFilesLimitedTo(Report(false).size(), [] { ConvertResultsToCsv(Request()); }), 61);
    EXPECT_EQ(GetFile("ZIRVO_SV.BRE"), Report(false));
    EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), "old");
}

TEST_F(ConvertResults, TellsHowFarItHasComeUpToItsEnd) {
    std::string rows;
    constexpr int count = 1000;
    for (int i = 0; i < count; ++i) {
        rows += ReportRow("1", "2", "3", "4", "5");
    }
    PutFile("ZIRVO_SV.BRE", Report(false, rows));
    ConversionRequest request = Request();
    request.PointCount = count;
    std::vector<double> told;
    ConvertResultsToCsv(request, [&](double done) { told.push_back(done); });
    EXPECT_GE(told.size(), 10U);  // 35000 rows would then be told of some hundred times
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_GT(told.front(), 0);
    EXPECT_LT(told.front(), 0.5);
    EXPECT_EQ(told.back(), 1);
}

}  // namespace
}  // namespace zirvo
