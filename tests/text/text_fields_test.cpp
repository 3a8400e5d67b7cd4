// Fields of text files: every rule, every line end, and rubbish.
#include "text/text_fields.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include "base/fault_of.h"

namespace zirvo {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();

/// A stream of fields over a text.
struct Fields {
    explicit Fields(std::string text) : Input(std::move(text)), Stream(Input) {}
    std::string Text() { return ReadTextFieldBytes(Stream); }
    double Number() { return ReadNumberField(Stream); }
    int Integer() { return ReadIntegerField(Stream); }
    std::string Line() { return ReadLineBytes(Stream); }
    int TextFault() {
        return FaultOf([this] { Text(); });
    }
    int NumberFault() {
        return FaultOf([this] { Number(); });
    }
    int IntegerFault() {
        return FaultOf([this] { Integer(); });
    }
    bool AtEnd() { return Stream.Peek() == TextStream::End; }
    std::istringstream Input;
    TextStream Stream;
};

/// The text with each of the three line ends in place of "\n".
std::vector<std::string> WithEachLineEnd(const std::string& text) {
    std::vector<std::string> texts;
    for (const std::string end : {"\r\n", "\n", "\r"}) {
        std::string changed;
        for (const char c : text) {
            changed += c == '\n' ? end : std::string(1, c);
        }
        texts.push_back(changed);
    }
    return texts;
}

TEST(TextStream, TellsEveryLineEndAsOneLineFeed) {
    Fields fields("a\r\nb\nc\rd\r\r\n\n\re");
    std::string seen;
    for (int c = fields.Stream.Next(); c != TextStream::End; c = fields.Stream.Next()) {
        seen += static_cast<char>(c);
    }
    EXPECT_EQ(seen, "a\nb\nc\nd\n\n\n\ne");
}

TEST(TextStream, PeekTakesNothingAndTheEndStaysTheEnd) {
    Fields fields("\r\nx");
    EXPECT_EQ(fields.Stream.Peek(), '\n');
    EXPECT_EQ(fields.Stream.Peek(), '\n');
    EXPECT_EQ(fields.Stream.Next(), '\n');
    EXPECT_EQ(fields.Stream.Next(), 'x');
    EXPECT_EQ(fields.Stream.Next(), TextStream::End);
    EXPECT_EQ(fields.Stream.Peek(), TextStream::End);
    EXPECT_EQ(fields.Stream.Next(), TextStream::End);
}

TEST(TextStream, GivesBytesAbove127AndNulAsTheyAre) {
    Fields fields(std::string("\xFF\0\x80", 3));
    EXPECT_EQ(fields.Stream.Next(), 255);
    EXPECT_EQ(fields.Stream.Next(), 0);
    EXPECT_EQ(fields.Stream.Next(), 128);
}

TEST(TextStream, PairOfCarriageReturnAndLineFeedMayLieOnTheEdgeOfABlock) {
    for (std::size_t length = 65530; length < 65540; ++length) {
        Fields fields(std::string(length, 'x') + "\r\ny\r");
        EXPECT_EQ(fields.Line().size(), length);
        EXPECT_EQ(fields.Line(), "y");
        EXPECT_TRUE(fields.AtEnd());
    }
}

class BreakingBuffer : public std::streambuf {
protected:
    int_type underflow() override { throw std::ios_base::failure("gone"); }
};

TEST(TextStream, DeviceThatFailsIsAFaultAndNoShorterFile) {
    BreakingBuffer buffer;
    std::istream input(&buffer);
    TextStream stream(input);
    EXPECT_EQ(FaultOf([&] { stream.Next(); }), 57);
}

TEST(TextField, EndsWithCommaOrLineEndWhichIsConsumed) {
    for (const std::string& text : WithEachLineEnd("abc,def\nghi\n")) {
        Fields fields(text);
        EXPECT_EQ(fields.Text(), "abc");
        EXPECT_EQ(fields.Text(), "def");
        EXPECT_EQ(fields.Text(), "ghi");
        EXPECT_EQ(fields.TextFault(), 62);
    }
}

TEST(TextField, BlanksAndTabsInFrontAndBlanksBehindAreDropped) {
    Fields fields(" \t  a  b \t c   , d\n");
    EXPECT_EQ(fields.Text(), "a  b \t c");
    EXPECT_EQ(fields.Text(), "d");
    EXPECT_EQ(Fields("a \t \n").Text(), "a \t");  // a tab at the end is text
}

TEST(TextField, EmptyLineIsAnEmptyTextAndConsumedWhole) {
    for (const std::string& text : WithEachLineEnd("\n   \nx\n")) {
        Fields fields(text);
        EXPECT_EQ(fields.Text(), "");
        EXPECT_EQ(fields.Text(), "");
        EXPECT_EQ(fields.Text(), "x");
    }
}

TEST(TextField, CommaBeforeALineEndBringsInAnEmptyField) {
    for (const std::string& text : WithEachLineEnd("abc,\nnext\n")) {
        Fields fields(text);
        EXPECT_EQ(fields.Text(), "abc");
        EXPECT_EQ(fields.Text(), "");
        EXPECT_EQ(fields.Text(), "next");
    }
}

TEST(TextField, CommaAtTheVeryEndOfTheFileBringsInNothing) {
    Fields fields("abc,");
    EXPECT_EQ(fields.Text(), "abc");
    EXPECT_EQ(fields.TextFault(), 62);
}

TEST(TextField, LastFieldNeedsNoLineEnd) {
    Fields fields("abc  ");
    EXPECT_EQ(fields.Text(), "abc");
    EXPECT_EQ(fields.TextFault(), 62);
}

TEST(TextField, NothingOrBlanksAloneBeforeTheEndOfTheFileAreNoField) {
    EXPECT_EQ(Fields("").TextFault(), 62);
    EXPECT_EQ(Fields(" \t ").TextFault(), 62);
}

TEST(TextField, QuotesKeepCommasAndBlanks) {
    Fields fields("  \" a, b \" , c\n");
    EXPECT_EQ(fields.Text(), " a, b ");
    EXPECT_EQ(fields.Text(), "c");
}

TEST(TextField, WhatFollowsTheClosingQuoteIsSkippedUpToCommaOrLineEnd) {
    for (const std::string& text : WithEachLineEnd("\"a\"rest \"x\",\"b\" more\n\"c\"")) {
        Fields fields(text);
        EXPECT_EQ(fields.Text(), "a");
        EXPECT_EQ(fields.Text(), "b");
        EXPECT_EQ(fields.Text(), "c");
        EXPECT_TRUE(fields.AtEnd());
    }
}

TEST(TextField, QuoteThatIsNotClosedEndsWithItsLine) {
    for (const std::string& text : WithEachLineEnd("\"a, b \nnext\n")) {
        Fields fields(text);
        EXPECT_EQ(fields.Text(), "a, b ");
        EXPECT_EQ(fields.Text(), "next");
    }
    EXPECT_EQ(Fields("\"open").Text(), "open");
    EXPECT_EQ(Fields("\"").Text(), "");
    EXPECT_EQ(Fields("\"\"").Text(), "");
}

TEST(TextField, QuoteInsideAFieldIsAnOrdinaryCharacter) {
    Fields fields("a\"b,c\"\n");
    EXPECT_EQ(fields.Text(), "a\"b");
    EXPECT_EQ(fields.Text(), "c\"");
}

TEST(TextField, NulBytesAreOrdinaryCharacters) {
    EXPECT_EQ(Fields(std::string("a\0b, c", 6)).Text(), std::string("a\0b", 3));
}

TEST(TextField, SecondBytesOfCharactersNeverSplitAField) {
    // All characters of code page 932 whose second byte is in the range of ASCII: 40 to 7E.
    for (int trail = 0x40; trail <= 0x7E; ++trail) {
        const char second = static_cast<char>(trail);
        const std::string text{'\x83', second, ' ', '\x83', second};
        EXPECT_EQ(Fields(text + ",x").Text(), text);
    }
}

TEST(TextField, IsDecodedFromCodePage932) {
    std::istringstream input("\x91\x77\x81\x40\x90\x94 ,\xFF");
    TextStream stream(input);
    EXPECT_EQ(ReadTextField(stream), "層　数");  // an ideographic space is no blank
    EXPECT_EQ(ReadTextField(stream), "\uFFFD");
    EXPECT_EQ(FaultOf([&] { ReadTextField(stream); }), 62);
}

TEST(NumberField, EndsWithBlankTabCommaOrLineEnd) {
    for (const std::string& text : WithEachLineEnd("1 2\t3,4\n5")) {
        Fields fields(text);
        for (const double expected : {1, 2, 3, 4, 5}) {
            EXPECT_EQ(fields.Number(), expected);
        }
        EXPECT_EQ(fields.NumberFault(), 62);
    }
}

TEST(NumberField, BlanksTabsAndLineEndsInFrontAreSkipped) {
    for (const std::string& text : WithEachLineEnd(" \t\n\n  7")) {
        EXPECT_EQ(Fields(text).Number(), 7);
    }
}

TEST(NumberField, BlanksAndThenOneCommaOrLineEndBehindAreConsumed) {
    for (const std::string& text : WithEachLineEnd("1 \t ,a\n2  \nb\n3 c")) {
        Fields fields(text);
        EXPECT_EQ(fields.Number(), 1);
        EXPECT_EQ(fields.Text(), "a");
        EXPECT_EQ(fields.Number(), 2);
        EXPECT_EQ(fields.Text(), "b");
        EXPECT_EQ(fields.Number(), 3);
        EXPECT_EQ(fields.Text(), "c");
    }
}

TEST(NumberField, CommaAndLineEndBetweenNumbersIsHarmless) {
    for (const std::string& text : WithEachLineEnd("1,\n2,\n")) {
        Fields fields(text);
        EXPECT_EQ(fields.Number(), 1);
        EXPECT_EQ(fields.Number(), 2);
        EXPECT_EQ(fields.NumberFault(), 62);
    }
}

TEST(NumberField, CommaBehindTheLastNumberOfARowBringsInAnEmptyTextField) {
    for (const std::string& text : WithEachLineEnd("1, 2,\nHEADING\n")) {
        Fields fields(text);
        EXPECT_EQ(fields.Number(), 1);
        EXPECT_EQ(fields.Number(), 2);
        EXPECT_EQ(fields.Text(), "");
        EXPECT_EQ(fields.Text(), "HEADING");
    }
}

TEST(NumberField, OnlyOneLineEndBehindIsConsumed) {
    for (const std::string& text : WithEachLineEnd("1\n\nHEADING\n")) {
        Fields fields(text);
        EXPECT_EQ(fields.Number(), 1);
        EXPECT_EQ(fields.Text(), "");
        EXPECT_EQ(fields.Text(), "HEADING");
    }
}

TEST(NumberField, NumberAtTheVeryEndOfTheFileIsComplete) {
    Fields fields("1.5");
    EXPECT_EQ(fields.Number(), 1.5);
    EXPECT_EQ(fields.NumberFault(), 62);
    EXPECT_EQ(Fields("").NumberFault(), 62);
    EXPECT_EQ(Fields(" \r\n\t ").NumberFault(), 62);
}

TEST(NumberField, TakesSignPointAndTheFourLettersOfAnExponent) {
    Fields fields("+1 -2.5 .5 5. 1E2 1e+2 1D-1 1d2 00012");
    for (const double expected : {1.0, -2.5, 0.5, 5.0, 100.0, 100.0, 0.1, 100.0, 12.0}) {
        EXPECT_EQ(fields.Number(), expected);
    }
}

TEST(NumberField, WhatHoldsNoNumberAsAWholeIsATypeMismatch) {
    for (const char* text : {"abc", "1a", ",5", ".", "-", "1E", "1E+", "1.2.3", "1-2", "-31.670.333333333333333", "inf",
                             "nan", "0x10", "\"1\"", "1;2", "１", "\x81\x40", "--1", "1E2.5"}) {
        EXPECT_EQ(Fields(text).NumberFault(), 13) << text;
    }
    EXPECT_EQ(Fields(std::string("1\0 2", 4)).NumberFault(), 13);
}

TEST(NumberField, FieldAfterABadOneIsStillReached) {
    Fields fields("x, 2");
    EXPECT_EQ(fields.NumberFault(), 13);
    EXPECT_EQ(fields.Number(), 2);
}

TEST(NumberField, MagnitudeBeyondADoubleIsTheLargestDouble) {
    Fields fields("1E400 -1E400 1E-400 1E99999999999999999999");
    for (const double expected : {LargestDouble, -LargestDouble, 0.0, LargestDouble}) {
        EXPECT_EQ(fields.Number(), expected);
    }
}

TEST(IntegerField, TakesASignAndDigitsWithin16Bits) {
    Fields fields(" 2 ,+3\n-4 -0 00032767,-32768");
    for (const int expected : {2, 3, -4, 0, 32767, -32768}) {
        EXPECT_EQ(fields.Integer(), expected);
    }
    EXPECT_EQ(fields.IntegerFault(), 62);
}

TEST(IntegerField, AnythingElseIsATypeMismatch) {
    for (const char* text : {"1.0", "1.", "1E2", "+", "-", "+-1", "1-", "a", ",", "0x1"}) {
        EXPECT_EQ(Fields(text).IntegerFault(), 13) << text;
    }
}

TEST(IntegerField, CountBeyond16BitsOverflows) {
    EXPECT_EQ(Fields("32768").IntegerFault(), 6);
    EXPECT_EQ(Fields("-32769").IntegerFault(), 6);
    EXPECT_EQ(Fields("40000").IntegerFault(), 6);
    EXPECT_EQ(Fields("3000000000").IntegerFault(), 6);
    EXPECT_EQ(Fields(std::string(1000, '9')).IntegerFault(), 6);
    EXPECT_EQ(Fields(std::string(1000, '0') + "7").Integer(), 7);
}

TEST(Line, IsTakenWholeWithBlanksCommasAndQuotes) {
    for (const std::string& text : WithEachLineEnd("  a, \"b\" \n\nlast")) {
        Fields fields(text);
        EXPECT_EQ(fields.Line(), "  a, \"b\" ");
        EXPECT_EQ(fields.Line(), "");
        EXPECT_EQ(fields.Line(), "last");
        EXPECT_EQ(FaultOf([&] { fields.Line(); }), 62);
    }
}

TEST(Fields, MixOnOneStream) {
    Fields fields("C:\\work\r\n 2 \r\n\"a,b\", 1.5\r\n");
    EXPECT_EQ(fields.Line(), "C:\\work");
    EXPECT_EQ(fields.Integer(), 2);
    EXPECT_EQ(fields.Text(), "a,b");
    EXPECT_EQ(fields.Number(), 1.5);
    EXPECT_TRUE(fields.AtEnd());
}

TEST(Fields, FieldOfTheGreatestLengthIsStillRead) {
    EXPECT_EQ(Fields(std::string(LongestField, 'x')).Text().size(), LongestField);
    EXPECT_EQ(Fields(std::string(LongestField + 1, 'x')).TextFault(), 5);
    const std::string filled = "a" + std::string(LongestField - 2, ' ') + "b";
    EXPECT_EQ(Fields(filled).Text(), filled);
    EXPECT_EQ(Fields("a" + std::string(LongestField - 1, ' ') + "b").TextFault(), 5);
}

TEST(Fields, RubbishOfAnyKindIsReadToItsEndOrIsAFaultThatTheReadersKnow) {
    const std::string alphabet("01.,-+E \"\t\r\nx\0\x81\x40\xFF", 18);
    std::mt19937_64 random(4);
    std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1);
    for (int i = 0; i < 20000; ++i) {
        std::string rubbish;
        for (int n = 0; n < 40; ++n) {
            rubbish += alphabet[letter(random)];
        }
        Fields fields(rubbish);
        int reads = 0;
        for (int fault = 0; fault != 62; ++reads) {
            switch (reads % 4) {
                case 0:
                    fault = fields.TextFault();
                    break;
                case 1:
                    fault = fields.NumberFault();
                    break;
                case 2:
                    fault = fields.IntegerFault();
                    break;
                default:
                    fault = FaultOf([&] { fields.Line(); });
                    break;
            }
            ASSERT_TRUE(fault == 0 || fault == 6 || fault == 13 || fault == 62) << fault;
            ASSERT_LE(reads, 41) << "a read that takes nothing would never come to the end";
        }
        ASSERT_TRUE(fields.AtEnd());
    }
}

// A valid file cut at every byte either reads or fails with a number that the readers know.
TEST(Fields, FileCutAtEveryByteReadsOrFailsAsTold) {
    const std::string whole = "\"title\", next\r\n 2 3\r\n1.5E+3,-2\r\nlast line\r\n";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        Fields fields(whole.substr(0, length));
        const int fault = FaultOf([&] {
            fields.Text();
            fields.Text();
            fields.Integer();
            fields.Integer();
            fields.Number();
            fields.Number();
            fields.Line();
        });
        EXPECT_TRUE(fault == 62 || fault == 13 || (fault == 0 && length > whole.find("last")))
            << length << ": " << fault;
    }
}

}  // namespace
}  // namespace zirvo
