// Shared means of the tests of the graphics path, see support.h.
#include "pavement/graphics_example.h"

#include <gtest/gtest.h>

namespace zirvo::test {

GraphicsInputData ExampleData() {
    GraphicsInputData data;
    data.LayerCount = 2;
    data.LoadCount = 1;
    data.Layers[1] = {35000, 0.35, 5, 0};
    data.Layers[2] = {1000, 0.4, 0, 0};
    data.Loads[1] = {5000, 15, 0, 0, 0, 0};
    return data;
}

std::string ExampleVen() {
    // "\x81\x40" is the ideographic space that the headings hold in English too.
    return "LAYERS  \x81\x40LOADS\r\n"
           "  2         1\r\n"
           "\r\n"
           "LAYER PROPERTIES\r\n"
           "MODULUS(kgf/cm2)\x81\x40   \x81\x40\x81\x40   MU\x81\x40       THICKNESS(cm)\x81\x40   SLIP RATE\r\n"
           "        35000             0.35                5               0\r\n"
           "         1000              0.4\r\n"
           "\r\n"
           "LOAD POINT\r\n"
           "VERT. LOAD(kgf)   RADIUS(cm)      X-AXIS(cm)      Y-AXIS(cm)     HORIZ. LOAD(kgf)    ANGLE FROM X(deg)\r\n"
           "      5000               15                0               0              0                  0\r\n";
}

std::vector<std::string> CrLfLines(const std::string& bytes) {
    std::vector<std::string> lines;
    std::size_t first = 0;
    while (first < bytes.size()) {
        const std::size_t end = bytes.find("\r\n", first);
        if (end == std::string::npos) {
            ADD_FAILURE() << "the last line has no end";
            break;
        }
        lines.push_back(bytes.substr(first, end - first));
        EXPECT_EQ(lines.back().find_first_of("\r\n"), std::string::npos) << "a line end of another kind";
        first = end + 2;
    }
    return lines;
}

}  // namespace zirvo::test
