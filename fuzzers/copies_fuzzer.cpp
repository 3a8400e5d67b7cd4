// What is made of a solver's report for the user: the stamped report and the comma copy, against the rules told word by
// word.
#include <algorithm>
#include <string>
#include <vector>

#include "base/utf8.h"
#include "support/fuzzing.h"
#include "support/work_folder.h"
#include "text/csv_line.h"
#include "text/file_helpers.h"

namespace zirvo::fuzz {
namespace {

const std::string Report = "a.bre";

std::vector<std::string> LinesOf(std::string bytes) {
    for (std::size_t at = bytes.find("\r\n"); at != std::string::npos; at = bytes.find("\r\n", at)) {
        bytes.erase(at, 1);
    }
    std::replace(bytes.begin(), bytes.end(), '\r', '\n');
    std::vector<std::string> lines;
    std::size_t begin = 0;
    while (begin < bytes.size()) {
        const std::size_t end = std::min(bytes.find('\n', begin), bytes.size());
        lines.push_back(bytes.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

/// The comma line, step by step as the rule has it, with positions from 1.
std::string CommaLine(const std::string& line) {
    if (line.empty()) {
        return "";
    }
    const std::string s = " " + line;
    std::string r(1, s[1]);
    int run = 0;
    int lead = 0;
    bool seenText = false;
    for (std::size_t p = 2; p < s.size(); ++p) {
        const bool both = s[p - 1] == ' ' && s[p] == ' ';
        run = both ? run + 1 : 0;
        lead += both && !seenText ? 1 : 0;
        seenText = seenText || !both;
        if (both) {
            r.erase(r.size() - 1);
        }
        if (run > 11 || (seenText && lead == 7)) {
            r += ' ';
            run = 0;
            lead = 0;
        }
        r += s[p];
    }
    std::replace(r.begin(), r.end(), ' ', ',');
    if (r.substr(0, 1) == ",") {
        r = r.substr(1);
    }
    if (!r.empty() && r.back() == ',') {
        r.pop_back();
    }
    return r;
}

void RunStampedCopy(const std::string& bytes) {
    const bool before = IsStamped(Report);
    MakeStampedCopy(Report, StampTemporaryName);
    std::string expected = "   <ZIRVO Ver2.3>\r\n";
    for (const std::string& line : LinesOf(bytes)) {
        expected += line + "\r\n";
    }
    RequireEqual(BytesOf(Report).value_or("gone"), expected, "a stamped report has its lines behind the stamp");
    Require(!BytesOf(StampTemporaryName), "the temporary name is free again");
    Require(IsStamped(Report), "a stamped report is known by its first line");
    Require(!before || bytes.starts_with("   <ZIRVO Ver"), "only a stamp is taken for one");

    PutFile(StampTemporaryName, "in the way");
    Require(FaultOf([] { MakeStampedCopy(Report, StampTemporaryName); }) == fault::FileAlreadyExists,
            "what lies under the temporary name is fault 58");
    RequireEqual(BytesOf(Report).value_or("gone"), expected, "and the report stays as it is");
}

}  // namespace

const int LongestRun = 1;

void RunInput(std::string_view input) {
    EmptyWorkFolder();
    const std::string bytes(input);
    PutFile(Report, bytes);
    WriteCommaCopy(Report, "a.csv");
    std::string expected;
    for (const std::string& line : LinesOf(bytes)) {
        expected += CommaLine(line) + "\r\n";
    }
    RequireEqual(BytesOf("a.csv").value_or("gone"), expected, "both readings make the same comma copy");
    Require(IsValidUtf8(ReadWholeFile(Report)), "whatever lies in a file is shown as text");
    RunStampedCopy(bytes);
}

}  // namespace zirvo::fuzz
