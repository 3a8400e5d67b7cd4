// Names of temporary files, see temporary_names.h.
#include "platform/temporary_names.h"

#include <charconv>
#include <system_error>

#include "platform/folders.h"
#include "platform/left_temporaries.h"

namespace zirvo {
namespace {

constexpr std::string_view Front = ".zirvo-";
constexpr std::string_view Extension = ".tmp";

std::string FrontOf(long long process) {
    return std::string(Front) + std::to_string(process) + "-";
}

}  // namespace

std::string TemporaryName(long long process, unsigned number) {
    return FrontOf(process).append(std::to_string(number)).append(Extension);
}

bool IsTemporaryName(std::string_view name) {
    if (!name.starts_with(Front)) {
        return false;
    }
    const char* const end = name.data() + name.size();
    long long process = 0;
    const auto [dash, noProcess] = std::from_chars(name.data() + Front.size(), end, process);
    if (noProcess != std::errc() || dash == end) {
        return false;
    }
    unsigned number = 0;
    const auto noNumber = std::from_chars(dash + 1, end, number).ec;
    return noNumber == std::errc() && process > 0 && name == TemporaryName(process, number);
}

void RemoveTemporariesOf(long long process) {
    const std::string front = FrontOf(process);
    for (const std::string& name : NamesIn(".")) {
        if (name.starts_with(front) && IsTemporaryName(name)) {
            RemoveTemporaryOfEnded(name);
        }
    }
}

}  // namespace zirvo
