// What the tests of reading share: files in memory, and rows that pass.
#pragma once
#include <sstream>
#include <string>

#include "pavement/analysis_input.h"
#include "pavement/graphics_input.h"

namespace zirvo {

inline AnalysisInputResult ReadAnalysis(const std::string& bytes) {
    std::istringstream stream(bytes);
    return ReadAnalysisInput(stream);
}

inline GraphicsInputResult ReadGraphics(const std::string& bytes) {
    std::istringstream stream(bytes);
    return ReadGraphicsInput(stream);
}

inline std::string Repeat(const std::string& row, int count) {
    std::string rows;
    for (int i = 0; i < count; ++i) {
        rows += row;
    }
    return rows;
}

inline constexpr const char* LayerRow = "1000 0.35 10 0\r\n";
inline constexpr const char* LastLayerRow = "100 0.4\r\n";
inline constexpr const char* LoadRow = "49 15 0 0 0 0\r\n";

}  // namespace zirvo
