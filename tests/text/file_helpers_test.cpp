// The shared file routines on real files.
#include "text/file_helpers.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "base/fault_of.h"
#include "platform/files.h"
#include "platform/in_child.h"
#include "platform/temporary_folder.h"

namespace zirvo {
namespace {

const std::string Stamp = "   <ZIRVO Ver2.3>\r\n";

TEST(FileExists, IsTrueForAnyFileAndForAFolder) {
    const TemporaryFolder folder;
    EXPECT_TRUE(FileExists(folder.Put("a", "text")));
    EXPECT_TRUE(FileExists(folder.Put("empty", "")));
    EXPECT_TRUE(FileExists(folder.Path()));
}

TEST(FileExists, IsFalseWhereNoLengthCanBeTaken) {
    const TemporaryFolder folder;
    folder.Put("a", "text");
    EXPECT_FALSE(FileExists(folder.Path("none")));
    EXPECT_FALSE(FileExists(folder.Path("none/none")));
    EXPECT_FALSE(FileExists(folder.Path("a/none")));
    EXPECT_FALSE(FileExists(""));
    EXPECT_FALSE(FileExists(folder.Path(std::string(300, 'n'))));
    EXPECT_FALSE(FileExists(std::string("a\0b", 3)));
}

TEST(FileExists, TakesANameWithoutFolderFromTheCurrentFolder) {
    const TemporaryFolder folder;
    folder.Put("a", "text");
    const int fault = FaultInChild([] {},
                                   [&] {
                                       ChangeFolder(folder.Path());
                                       if (!FileExists("a") || FileExists("b")) {
                                           throw RuntimeFault(fault::InvalidCall);
                                       }
                                   });
    EXPECT_EQ(fault, 0);
}

TEST(IsWritableFolder, IsTrueForAFolderAndFalseForAFile) {
    const TemporaryFolder folder;
    EXPECT_TRUE(IsWritableFolder(folder.Path()));
    EXPECT_FALSE(IsWritableFolder(folder.Put("a", "")));
}

TEST(IsWritableFolder, IsFalseForAFolderThatTheUserMayNotWrite) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path("inner"));
    chmod(folder.Path("inner").c_str(), 0555);
    const auto expect = [](const std::string& path, bool writable) {
        if (IsWritableFolder(path) != writable) {
            throw RuntimeFault(fault::InvalidCall);
        }
    };
    EXPECT_EQ(FaultAsOrdinaryUser([&] { expect(folder.Path("inner"), false); }), 0);
    EXPECT_EQ(FaultAsOrdinaryUser([&] { expect(folder.Path(), true); }), 0);
}

TEST(IsWritableFolder, PathWithoutAttributesIsTheCallersFault) {
    const TemporaryFolder folder;
    EXPECT_EQ(FaultOf([&] { IsWritableFolder(folder.Path("none")); }), 53);
    EXPECT_EQ(FaultOf([&] { IsWritableFolder(folder.Path("none/none")); }), 76);
}

TEST(ReadWholeFile, GivesTheDecodedTextWithItsLineEnds) {
    const TemporaryFolder folder;
    EXPECT_EQ(ReadWholeFile(folder.Put("a", "\x91\x77\r\n \xFF\n")), "層\r\n \uFFFD\n");
    EXPECT_EQ(ReadWholeFile(folder.Put("empty", "")), "");
}

TEST(ReadWholeFile, GivesTheFaultsNumberInPlaceOfTheText) {
    const TemporaryFolder folder;
    EXPECT_EQ(ReadWholeFile(folder.Path("none")), "53");
    EXPECT_EQ(ReadWholeFile(folder.Path("none/none")), "76");
    EXPECT_EQ(ReadWholeFile(folder.Path()), "75");
}

/// Stamps a file with these bytes; gives its new bytes, and expects that no other file is left.
std::string Stamped(std::string_view bytes) {
    const TemporaryFolder folder;
    MakeStampedCopy(folder.Put("a.bre", bytes), folder.Path("ZIRVO_SV.TMP"));
    EXPECT_EQ(folder.Entries(), 1U);
    return folder.Get("a.bre");
}

TEST(MakeStampedCopy, PutsTheStampLineInFront) {
    EXPECT_EQ(Stamped("one\r\ntwo\r\n"), Stamp + "one\r\ntwo\r\n");
}

TEST(MakeStampedCopy, LastLineGainsALineEndAndAFinalLineEndNoEmptyLine) {
    EXPECT_EQ(Stamped("one"), Stamp + "one\r\n");
    EXPECT_EQ(Stamped("one\r\n"), Stamp + "one\r\n");
    EXPECT_EQ(Stamped("one\r\n\r\n"), Stamp + "one\r\n\r\n");
    EXPECT_EQ(Stamped("one\r\n "), Stamp + "one\r\n \r\n");
}

TEST(MakeStampedCopy, EveryLineEndBecomesCarriageReturnAndLineFeed) {
    EXPECT_EQ(Stamped("1\n2\r3\r\n4\n\r5\r\r6"), Stamp + "1\r\n2\r\n3\r\n4\r\n\r\n5\r\n\r\n6\r\n");
}

TEST(MakeStampedCopy, EmptyFileBecomesTheStampLineAlone) {
    EXPECT_EQ(Stamped(""), Stamp);
}

TEST(MakeStampedCopy, KeepsBytesAlsoThoseThatTheCodePageLacks) {
    std::string bytes;
    for (int c = 0; c <= 0xFF; ++c) {
        if (c != '\r' && c != '\n') {
            bytes += static_cast<char>(c);
        }
    }
    EXPECT_EQ(Stamped(bytes), Stamp + bytes + "\r\n");
}

TEST(MakeStampedCopy, StampsAgainWheneverItIsCalled) {
    const TemporaryFolder folder;
    const std::string file = folder.Put("a", "x");
    MakeStampedCopy(file, folder.Path("t"));
    MakeStampedCopy(file, folder.Path("t"));
    EXPECT_EQ(folder.Get("a"), Stamp + Stamp + "x\r\n");
}

TEST(MakeStampedCopy, MissingFileIsTheCallersFault) {
    const TemporaryFolder folder;
    EXPECT_EQ(FaultOf([&] { MakeStampedCopy(folder.Path("a"), folder.Path("t")); }), 53);
    EXPECT_EQ(folder.Entries(), 0U);
}

TEST(MakeStampedCopy, LeftOverTemporaryFileIsAFaultAndBothFilesStay) {
    const TemporaryFolder folder;
    const std::string file = folder.Put("a", "report");
    folder.Put("t", "left over");
    EXPECT_EQ(FaultOf([&] { MakeStampedCopy(file, folder.Path("t")); }), 58);
    EXPECT_EQ(folder.Get("a"), "report");
    EXPECT_EQ(folder.Get("t"), "left over");
}

TEST(MakeStampedCopy, FullDiskGivesTheReportBackUnderItsOldName) {
    const TemporaryFolder folder;
    const std::string report(20000, 'r');
    const std::string file = folder.Put("a", report);
    EXPECT_EQ(FaultWithFilesLimitedTo(10000, [&] { MakeStampedCopy(file, folder.Path("t")); }), 61);
    EXPECT_EQ(folder.Get("a"), report);
    EXPECT_EQ(folder.Entries(), 1U);
}

TEST(MakeStampedCopy, FileThatCannotBeReadIsGivenBackUnderItsOldName) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path("a"));
    EXPECT_EQ(FaultOf([&] { MakeStampedCopy(folder.Path("a"), folder.Path("t")); }), 75);
    EXPECT_TRUE(folder.Has("a"));
    EXPECT_FALSE(folder.Has("t"));
}

TEST(MakeStampedCopy, WorksOnNamesInTheCurrentFolder) {
    const TemporaryFolder folder;
    folder.Put("a.san", "x\r\n");
    const int fault = FaultInChild([] {},
                                   [&] {
                                       ChangeFolder(folder.Path());
                                       MakeStampedCopy("a.san", "ZIRVO_SV.TMP");
                                   });
    EXPECT_EQ(fault, 0);
    EXPECT_EQ(folder.Get("a.san"), Stamp + "x\r\n");
    EXPECT_EQ(folder.Entries(), 1U);
}

/// The comma copy of a report with these bytes.
std::string CommaCopy(std::string_view bytes) {
    const TemporaryFolder folder;
    WriteCommaCopy(folder.Put("a.bre", bytes), folder.Path("a_bre.csv"));
    EXPECT_EQ(folder.Get("a.bre"), bytes);
    return folder.Get("a_bre.csv");
}

TEST(WriteCommaCopy, ConvertsEachLine) {
    EXPECT_EQ(CommaCopy("   <ZIRVO Ver2.3>\r\n\r\n  1   2\r\n"), "<ZIRVO,Ver2.3>\r\n\r\n1,2\r\n");
    EXPECT_EQ(CommaCopy("        X\n 1 2\r3"), ",X\r\n1,2\r\n3\r\n");
    EXPECT_EQ(CommaCopy(""), "");
}

TEST(WriteCommaCopy, KeepsBytesAlsoThoseThatTheCodePageLacks) {
    EXPECT_EQ(CommaCopy("\x91\x77\x94\xD4\x8D\x86  \x83\x5C \xFF\xFD\r\n"),
              "\x91\x77\x94\xD4\x8D\x86,\x83\x5C,\xFF\xFD\r\n");
    EXPECT_EQ(CommaCopy(std::string("a\0  b", 5)), std::string("a\0,b\r\n", 6));
}

TEST(WriteCommaCopy, FailuresLeaveAnEarlierCopyWhole) {
    const TemporaryFolder folder;
    folder.Put("copy", "earlier");
    EXPECT_EQ(FaultOf([&] { WriteCommaCopy(folder.Path("none"), folder.Path("copy")); }), 53);
    const std::string report = folder.Put("report", std::string(20000, 'r'));
    EXPECT_EQ(FaultWithFilesLimitedTo(10000, [&] { WriteCommaCopy(report, folder.Path("copy")); }), 61);
    EXPECT_EQ(folder.Get("copy"), "earlier");
    EXPECT_EQ(folder.Entries(), 2U);
}

TEST(WriteCommaCopy, ReportOfTenMegabytesIsConverted) {
    std::string report;
    std::string expected;
    while (report.size() < 10'000'000) {
        report += "    1  -1.2346E-01   1.2346E+02             4\r\n";
        expected += "1,-1.2346E-01,1.2346E+02,,4\r\n";
    }
    EXPECT_EQ(CommaCopy(report), expected);
}

}  // namespace
}  // namespace zirvo
