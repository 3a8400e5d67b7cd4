// A kept screen as JSON and back; what else such a file may hold.
#include "kept/kept_json.h"

#include <gtest/gtest.h>

#include "kept/some_screens.h"

namespace zirvo::test {
namespace {

void ExpectSame(const KeptScreen& read, const KeptScreen& written) {
    EXPECT_TRUE(HoldSameData(read, written));
    EXPECT_EQ(read.When, written.When);
    EXPECT_EQ(read.Japanese, written.Japanese);
}

KeptScreen ReadBack(const KeptScreen& screen) {
    const std::optional<KeptScreen> read = ReadKeptJson(KeptJson(screen));
    EXPECT_TRUE(read.has_value());
    return read.value_or(KeptScreen{});
}

bool IsNothing(const std::string& bytes) {
    return !ReadKeptJson(bytes).has_value();
}

/// The JSON of SomeScreen with one piece of it replaced.
std::string With(const std::string& piece, const std::string& other) {
    std::string json = KeptJson(SomeScreen());
    const std::size_t at = json.find(piece);
    EXPECT_NE(at, std::string::npos) << piece << " in " << json;
    return json.replace(at, piece.size(), other);
}

TEST(KeptJson, AllThatStoodOnTheScreenComesBack) {
    ExpectSame(ReadBack(SomeScreen()), SomeScreen());
    KeptScreen closed = SomeScreen();
    closed.Open.reset();
    closed.Japanese = false;
    ExpectSame(ReadBack(closed), closed);
    ExpectSame(ReadBack(KeptScreen{}), KeptScreen{});
}

TEST(KeptJson, AFileOfToday) {
    KeptScreen screen;
    screen.Screen = "Form5";
    screen.Units = 1;
    screen.When = 1795300200000;
    screen.Counts = {1, 0};
    screen.Names = {"a.ven"};
    screen.Tables = {{.Columns = 2, .Cells = {"5", "x"}}};
    screen.Open = {.Table = 0, .Row = 0, .Column = 1, .Text = "y"};
    EXPECT_EQ(KeptJson(screen),
              R"({"counts":[1,0],"format":"zirvo kept screen","japanese":false,"names":["a.ven"],)"
              R"("open":{"column":1,"row":0,"table":0,"text":"y"},"screen":"Form5",)"
              R"("tables":[{"cells":["5","x"],"columns":2}],"units":1,"version":1,"when":1795300200000})");
}

TEST(KeptJson, TextsThatAreNoUtf8ComeBackByteForByte) {
    KeptScreen screen = SomeScreen();
    screen.Names[0] = std::string("\xFF\x00\x41\x80.eva", 8);
    screen.Tables[0].Cells[0] = "\xC3";
    screen.Open->Text = "\xED\xA0\x80";  // half of a pair of UTF-16
    ExpectSame(ReadBack(screen), screen);
}

TEST(KeptJson, AMillionCellsComeBack) {
    KeptScreen screen;
    screen.Screen = "Form3";
    screen.Tables = {{.Columns = 4, .Cells = std::vector<std::string>(1'000'000, "1.25")}};
    ExpectSame(ReadBack(screen), screen);
}

TEST(KeptJson, AFileThatIsCutOffAnywhereIsNothing) {
    const std::string whole = KeptJson(SomeScreen());
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_TRUE(IsNothing(whole.substr(0, length))) << length;
    }
}

TEST(KeptJson, AFileWithAWrongByteIsReadOrNothingAndNeverAFault) {
    const std::string whole = KeptJson(SomeScreen());
    for (std::size_t i = 0; i < whole.size(); ++i) {
        for (const char wrong : {'\0', '"', '{', ']', '9', '-', '\xFF'}) {
            std::string bytes = whole;
            bytes[i] = wrong;
            const auto read = ReadKeptJson(bytes);
            if (read && read->Open) {
                ASSERT_LT(static_cast<std::size_t>(read->Open->Table), read->Tables.size());
                ASSERT_LT(read->Open->Row, read->Tables[static_cast<std::size_t>(read->Open->Table)].Rows());
            }
        }
    }
}

TEST(KeptJson, ForeignFilesAreNothing) {
    for (const char* bytes : {"", "null", "true", "7", "[]", "{}", "\"x\"", "{\"format\":\"zirvo kept screen\"}",
                              "   15    2    3.5\r\n", "PK\x03\x04"}) {
        EXPECT_TRUE(IsNothing(bytes)) << bytes;
    }
    EXPECT_TRUE(IsNothing(With("zirvo kept screen", "another program's")));
    EXPECT_TRUE(IsNothing(With("\"version\":1", "\"version\":2")));
}

TEST(KeptJson, CountsAndPlacesThatCannotBeAreNothing) {
    for (const char* count : {"-1", "1.5", "1e3", "null", "\"2\"", "1000001", "18446744073709551615", "1e999"}) {
        EXPECT_TRUE(IsNothing(With("\"counts\":[2", "\"counts\":[" + std::string(count)))) << count;
    }
    EXPECT_TRUE(IsNothing(With("\"counts\":[2", "\"counts\":[0,0,0,0,0,0,0,0,0,0,0")));
    EXPECT_TRUE(IsNothing(With("\"columns\":6", "\"columns\":5")));  // six cells are no whole rows of five
    EXPECT_TRUE(IsNothing(With("\"columns\":6", "\"columns\":0")));
    EXPECT_TRUE(IsNothing(With("\"table\":2", "\"table\":3")));
    EXPECT_TRUE(IsNothing(With("\"row\":0", "\"row\":1")));
    EXPECT_TRUE(IsNothing(With("\"column\":1", "\"column\":4")));
    for (const char* when : {"1.5", "18446744073709551615", "null"}) {
        EXPECT_TRUE(IsNothing(With("\"when\":1795300200000", "\"when\":" + std::string(when)))) << when;
    }
    EXPECT_TRUE(IsNothing(With("\"0.35\"", "0.35")));
    EXPECT_TRUE(IsNothing(With("\"0.35\"", "{\"hex\":\"4G\"}")));
    EXPECT_TRUE(IsNothing(With("\"0.35\"", "{\"hex\":4}")));
}

TEST(KeptJson, ATowerOfBracketsIsNothing) {
    EXPECT_TRUE(IsNothing(std::string(10'000'000, '[')));
    EXPECT_TRUE(IsNothing(With("\"0.35\"", std::string(100'000, '[') + std::string(100'000, ']'))));
}

TEST(HoldSameData, LooksAtAllButTimeAndLanguage) {
    KeptScreen other = SomeScreen();
    other.When = 0;
    other.Japanese = false;
    EXPECT_TRUE(HoldSameData(SomeScreen(), other));
    for (const auto& change : std::vector<std::function<void(KeptScreen&)>>{
             [](KeptScreen& screen) { screen.Screen = "Form5"; }, [](KeptScreen& screen) { screen.Units = 1; },
             [](KeptScreen& screen) { screen.Counts[1] = 3; }, [](KeptScreen& screen) { screen.Names[2] = "x"; },
             [](KeptScreen& screen) { screen.Tables[1].Cells[5] = "x"; },
             [](KeptScreen& screen) { screen.Tables[0].Columns = 2; },
             [](KeptScreen& screen) { screen.Open->Text += "5"; }, [](KeptScreen& screen) { screen.Open.reset(); }}) {
        KeptScreen changed = SomeScreen();
        change(changed);
        EXPECT_FALSE(HoldSameData(SomeScreen(), changed));
    }
}

}  // namespace
}  // namespace zirvo::test
