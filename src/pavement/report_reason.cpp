// The words of a report without results, see report_reason.h.
#include "pavement/report_reason.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/runtime_fault.h"
#include "base/utf8.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "text/version_stamp.h"

namespace zirvo {
namespace {

/// In front of each table of a report, and nowhere in one that holds none.
constexpr std::string_view Marker = "   ===";
/// A longer report is no note of a failure [bytes].
constexpr std::uint64_t LongestNote = 1 << 14;
/// No line fills the screen [characters].
constexpr std::size_t LongestLine = 100;

std::string NoteOf(const std::string& path) {
    try {
        return FileLength(path) > LongestNote ? std::string() : DecodeText(ReadFileBytes(path));
    } catch (const RuntimeFault&) {  // no report, no reason
        return {};
    }
}

std::string_view WithoutBlanks(std::string_view line) {
    const std::size_t first = line.find_first_not_of(" \t");
    return first == std::string_view::npos ? std::string_view()
                                           : line.substr(first, line.find_last_not_of(" \t") + 1 - first);
}

/// As it can be shown: no control characters, and not too long.
std::string Shown(std::string_view line) {
    std::string text(CharacterSlice(line, 0, LongestLine));
    for (char& c : text) {
        c = static_cast<unsigned char>(c) < ' ' ? '?' : c;
    }
    return text.size() < line.size() ? text + "..." : text;
}

}  // namespace

std::string ReasonInReport(const std::string& path) {
    const std::string note = NoteOf(path);
    std::string_view rest = note;
    std::string reason;
    int lines = 0;
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find_first_of("\r\n"));
        rest.remove_prefix(line.size() < rest.size() ? line.size() + 1 : line.size());
        if (line.starts_with(Marker)) {
            return {};
        }
        const std::string_view words = WithoutBlanks(line);
        if (!words.empty() && words != MakeVersionStamp(1) && lines < MostReasonLines) {
            reason.append(reason.empty() ? "" : "\n").append(Shown(words));
            ++lines;
        }
    }
    return reason;
}

}  // namespace zirvo
