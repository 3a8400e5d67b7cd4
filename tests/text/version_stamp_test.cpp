// The four version texts.
#include "text/version_stamp.h"

#include <gtest/gtest.h>

namespace zirvo {
namespace {

TEST(MakeVersionStamp, GivesTheTextOfEachKind) {
    EXPECT_EQ(MakeVersionStamp(0), "2.3");
    EXPECT_EQ(MakeVersionStamp(1), "<ZIRVO Ver2.3>");
    EXPECT_EQ(MakeVersionStamp(2), "- ZIRVO Ver2.3 -");
    EXPECT_EQ(MakeVersionStamp(3), "ZIRVO Ver2.3");
}

TEST(MakeVersionStamp, AnyOtherKindIsNotAvailable) {
    for (const Int16 kind : {Int16{-1}, Int16{4}, Int16{7}, Int16{32767}, Int16{-32768}}) {
        EXPECT_EQ(MakeVersionStamp(kind), "NA");
    }
}

}  // namespace
}  // namespace zirvo
