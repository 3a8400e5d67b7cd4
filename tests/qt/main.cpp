// The tests of pictures run with Qt but without a display.
#include <gtest/gtest.h>

#include "qt/offscreen.h"
#include "qt/program_fonts.h"

int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    const zirvo::OffscreenQt qt;
    zirvo::RegisterFonts(ZIRVO_BIN "/fonts");  // beside the programs, and these tests lie elsewhere
    return RUN_ALL_TESTS();
}
