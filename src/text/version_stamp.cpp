// The version texts. Called for titles of windows and boxes, for the stamp of output files and by the version screen.
#include "text/version_stamp.h"

namespace zirvo {

std::string MakeVersionStamp(Int16 kind) {
    std::string number = "2.3";
    switch (kind) {
        case 0:
            return number;
        case 1:
            return "<ZIRVO Ver" + number + ">";
        case 2:
            return "- ZIRVO Ver" + number + " -";
        case 3:
            return "ZIRVO Ver" + number;
        default:
            return "NA";
    }
}

}  // namespace zirvo
