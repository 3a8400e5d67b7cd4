// The graphics input file: import and check judge alike, and what is read is written and read back.
#include <array>
#include <sstream>
#include <string>

#include "pavement/graphics_input.h"
#include "support/round_trip.h"
#include "text/catalogue.h"

namespace zirvo::fuzz {
namespace {

constexpr std::array<std::size_t, LayerColumns> LayerWidths{13, 17, 17, 16};
constexpr std::array<std::size_t, LoadColumns> LoadWidths{10, 17, 17, 16, 15, 19};

GraphicsInputResult Read(const std::string& bytes) {
    std::istringstream stream(bytes);
    return ReadGraphicsInput(stream);
}

WrittenNumbers NumbersOf(const GraphicsInputData& data) {
    WrittenNumbers numbers;
    for (int i = 1; i <= data.LayerCount; ++i) {
        numbers.AddRow(data.Layers[i], LayerFields, FieldsOfLayer(i == data.LayerCount), LayerWidths);
    }
    for (int i = 1; i <= data.LoadCount; ++i) {
        numbers.AddRow(data.Loads[i], LoadFields, LoadColumns, LoadWidths);
    }
    return numbers;
}

}  // namespace

const int LongestRun = 1;

void RunInput(std::string_view bytes) {
    const std::string file(bytes);
    const GraphicsInputResult read = Read(file);
    std::istringstream stream(file);
    RequireSameJudgement(read, CheckGraphicsInput(stream));
    if (!read.Passed()) {
        return;
    }
    const Int16 base = bytes.size() % 2 == 0 ? EnglishBase : JapaneseBase;
    const auto units = static_cast<UnitSystem>(bytes.size() % 4);
    RequireRoundTrip(
        *read, NumbersOf(*read), [&](const GraphicsInputData& data) { return WriteGraphicsInput(data, units, base); },
        Read);
}

}  // namespace zirvo::fuzz
