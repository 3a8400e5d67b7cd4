// Gears of one's own, see ReadGearFile in gears.h.
#include <cmath>

#include "design/gears.h"

namespace zirvo::design {
namespace {

constexpr std::size_t MostWheels = 100;  // as many loads as a file may have
constexpr double Farthest = 1e6;         // cm
constexpr double LargestShare = 1e6;

std::string Refused(const char* name, double value, const char* reason) {
    return std::string(name).append(" ").append(ShortestText(value)).append(reason);
}

std::string ReasonAgainst(const Wheel& wheel) {
    for (const auto& [name, value] : {std::pair("x", wheel.X), std::pair("y", wheel.Y)}) {
        if (!(std::fabs(value) <= Farthest)) {
            return Refused(name, value, ": is farther out than 1E6 cm");
        }
    }
    if (!(wheel.Share > 0)) {
        return Refused("share", wheel.Share, ": is not above 0");
    }
    return wheel.Share > LargestShare ? Refused("share", wheel.Share, ": is above 1E6") : "";
}

}  // namespace

std::variant<std::vector<Wheel>, FileError> ReadGearFile(const std::string& path) {
    const std::variant<NumberTable, FileError> read = ReadNumberTable(path);
    if (const auto* error = std::get_if<FileError>(&read)) {
        return *error;
    }
    const auto& table = std::get<NumberTable>(read);
    const auto x = table.Find("x");
    const auto y = table.Find("y");
    const auto share = table.Find("share");
    if (!x || !y || table.Columns.size() != (share ? 3U : 2U)) {
        return FileError{path, 0, "the headings of a gear are x,y or x,y,share"};
    }
    if (table.Rows() == 0 || table.Rows() > MostWheels) {
        return FileError{path, 0, "holds " + std::to_string(table.Rows()) + " wheels; 1 to 100 are expected"};
    }
    std::vector<Wheel> wheels;
    for (std::size_t row = 0; row < table.Rows(); ++row) {
        wheels.push_back({table.At(row, *x), table.At(row, *y), share ? table.At(row, *share) : 1});
        if (const std::string reason = ReasonAgainst(wheels.back()); !reason.empty()) {
            return FileError{path, table.Lines[row], reason};
        }
    }
    return wheels;
}

}  // namespace zirvo::design
