// Counts of 16 bits at the ends of their range.
#include "base/int16.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/fault_of.h"

namespace zirvo {
namespace {

TEST(Int16, ValuesOfTheRangePassAndTheNextOnesOverflow) {
    EXPECT_EQ(ToInt16(32767), 32767);
    EXPECT_EQ(ToInt16(-32768), -32768);
    EXPECT_EQ(FaultOf([] { ToInt16(32768); }), 6);
    EXPECT_EQ(FaultOf([] { ToInt16(-32769); }), 6);
    EXPECT_EQ(FaultOf([] { ToInt16(std::numeric_limits<long long>::max()); }), 6);
    EXPECT_EQ(FaultOf([] { ToInt16(std::numeric_limits<long long>::min()); }), 6);
}

TEST(Int16, SumsOverflowInsteadOfWrappingAround) {
    EXPECT_EQ(AddInt16(32766, 1), 32767);
    EXPECT_EQ(AddInt16(-32767, -1), -32768);
    EXPECT_EQ(FaultOf([] { AddInt16(32767, 1); }), 6);
    EXPECT_EQ(FaultOf([] { AddInt16(-32768, -1); }), 6);
}

}  // namespace
}  // namespace zirvo
