// The tests of pictures run with Qt but without a display.
#include <gtest/gtest.h>

#include "qt/offscreen.h"

int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    const zirvo::OffscreenQt qt;
    return RUN_ALL_TESTS();
}
