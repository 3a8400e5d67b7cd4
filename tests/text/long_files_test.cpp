// Files made to eat the memory: fields and lines without end, that are never on a disk.
#include <gtest/gtest.h>

#include <algorithm>
#include <istream>
#include <streambuf>
#include <string>
#include <utility>

#include "base/fault_of.h"
#include "text/largest_allocation.h"
#include "text/text_fields.h"

namespace zirvo {
namespace {

/// A file that is never on a disk: a beginning, one byte very many times, an end.
class LongBuffer : public std::streambuf {
public:
    LongBuffer(std::string begin, char filling, std::size_t count, std::string end)
        : piece_(std::move(begin)), end_(std::move(end)), filling_(filling), left_(count) {
        Show();
    }

protected:
    int_type underflow() override {
        if (left_ > 0) {
            piece_.assign(std::min<std::size_t>(left_, 4096), filling_);
            left_ -= piece_.size();
        } else {
            piece_ = std::move(end_);
            end_.clear();
        }
        Show();
        return piece_.empty() ? traits_type::eof() : traits_type::to_int_type(piece_[0]);
    }

private:
    void Show() { setg(piece_.data(), piece_.data(), piece_.data() + piece_.size()); }
    std::string piece_;
    std::string end_;
    char filling_;
    std::size_t left_;
};

constexpr std::size_t Endless = std::size_t{16} << 20;
/// What a reader may ask for in one piece: a block, or a field with the room that a growing string takes.
constexpr std::size_t Room = 2 * LongestField + 1000;

TEST(LongFiles, BlanksBeforeATextAreSkippedWithoutMemory) {
    LongBuffer buffer("", ' ', Endless, "abc\r\n");
    std::istream input(&buffer);
    TextStream stream(input);
    ForgetAllocations();
    EXPECT_EQ(ReadTextFieldBytes(stream), "abc");
    EXPECT_LT(LargestAllocation(), Room);
}

TEST(LongFiles, BlanksBehindATextAreSkippedWithoutMemory) {
    LongBuffer buffer("abc", ' ', Endless, ",d");
    std::istream input(&buffer);
    TextStream stream(input);
    ForgetAllocations();
    EXPECT_EQ(ReadTextFieldBytes(stream), "abc");
    EXPECT_EQ(ReadTextFieldBytes(stream), "d");
    EXPECT_LT(LargestAllocation(), Room);
}

TEST(LongFiles, BlanksBetweenTwoWordsAreAnInvalidCallAndTakeNoMemory) {
    LongBuffer buffer("abc", ' ', Endless, "d");
    std::istream input(&buffer);
    TextStream stream(input);
    ForgetAllocations();
    EXPECT_EQ(FaultOf([&] { ReadTextFieldBytes(stream); }), 5);
    EXPECT_LT(LargestAllocation(), Room);
}

TEST(LongFiles, BlanksAloneEndTheFile) {
    for (const bool number : {false, true}) {
        LongBuffer buffer("", ' ', Endless, "");
        std::istream input(&buffer);
        TextStream stream(input);
        ForgetAllocations();
        EXPECT_EQ(FaultOf([&] {
                      if (number) {
                          ReadNumberField(stream);
                      } else {
                          ReadTextFieldBytes(stream);
                      }
                  }),
                  62);
        EXPECT_LT(LargestAllocation(), Room);
    }
}

TEST(LongFiles, LineEndsBeforeANumberAreSkippedWithoutMemory) {
    LongBuffer buffer("", '\r', Endless, "5");
    std::istream input(&buffer);
    TextStream stream(input);
    ForgetAllocations();
    EXPECT_EQ(ReadNumberField(stream), 5);
    EXPECT_LT(LargestAllocation(), Room);
}

TEST(LongFiles, FieldOrLineOfRubbishIsAnInvalidCallLongBeforeItsEnd) {
    for (const char filling : {'x', '9', '\0', '\xFF'}) {
        for (const char* begin : {"", "\""}) {
            LongBuffer text(begin, filling, Endless, "");
            std::istream input(&text);
            TextStream stream(input);
            ForgetAllocations();
            EXPECT_EQ(FaultOf([&] { ReadTextFieldBytes(stream); }), 5);
            EXPECT_LT(LargestAllocation(), Room);
        }
        LongBuffer number("", filling, Endless, "");
        std::istream numberInput(&number);
        TextStream numberStream(numberInput);
        EXPECT_EQ(FaultOf([&] { ReadNumberField(numberStream); }), 5);
        LongBuffer line("", filling, Endless, "");
        std::istream lineInput(&line);
        TextStream lineStream(lineInput);
        EXPECT_EQ(FaultOf([&] { ReadLineBytes(lineStream); }), 5);
    }
}

TEST(LongFiles, RubbishBehindAClosingQuoteIsSkippedWithoutMemory) {
    LongBuffer buffer("\"a\"", 'x', Endless, ",b");
    std::istream input(&buffer);
    TextStream stream(input);
    ForgetAllocations();
    EXPECT_EQ(ReadTextFieldBytes(stream), "a");
    EXPECT_EQ(ReadTextFieldBytes(stream), "b");
    EXPECT_LT(LargestAllocation(), Room);
}

}  // namespace
}  // namespace zirvo
