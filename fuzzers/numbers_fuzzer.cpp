// The grammar of number texts against a slow second reading: each beginning of the text is held against the rule as a
// whole, and the platform's own conversion makes the number.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>
#include <sstream>
#include <string>

#include "base/decimal15.h"
#include "solver/io/row_reader.h"
#include "support/fuzzing.h"
#include "text/number_grammar.h"
#include "text/number_text.h"
#include "text/text_fields.h"

namespace zirvo::fuzz {
namespace {

std::size_t SkipDigits(const std::string& text, std::size_t at) {
    while (at < text.size() && text[at] >= '0' && text[at] <= '9') {
        ++at;
    }
    return at;
}

std::size_t SkipSign(const std::string& text, std::size_t at) {
    return at < text.size() && (text[at] == '+' || text[at] == '-') ? at + 1 : at;
}

/// A sign, digits with one point among them, and an exponent letter with a sign and digits; all but a digit may be
/// missing.
bool IsNumber(const std::string& text) {
    const std::size_t begin = SkipSign(text, 0);
    std::size_t at = SkipDigits(text, begin);
    std::size_t digits = at - begin;
    if (at < text.size() && text[at] == '.') {
        const std::size_t behind = SkipDigits(text, at + 1);
        digits += behind - at - 1;
        at = behind;
    }
    if (digits == 0) {
        return false;
    }
    if (at == text.size()) {
        return true;
    }
    if (std::strchr("EeDd", text[at]) == nullptr || text[at] == '\0') {
        return false;
    }
    const std::size_t exponent = SkipSign(text, at + 1);
    return exponent < text.size() && SkipDigits(text, exponent) == text.size();
}

/// No digits in front of the exponent can make good what more than so many digits in it say, in texts of this length.
std::string WithShortExponent(const std::string& text) {
    const std::size_t letter = text.find_first_of("EeDd");
    if (letter == std::string::npos) {
        return text;
    }
    std::string exponent = text.substr(letter + 1);
    const std::string sign = exponent.front() == '+' || exponent.front() == '-' ? exponent.substr(0, 1) : "";
    exponent.erase(0, sign.size());
    exponent.erase(0, std::min(exponent.find_first_not_of('0'), exponent.size() - 1));
    return text.substr(0, letter) + "e" + sign + (exponent.size() > 8 ? "99999999" : exponent);
}

double ValueOf(const std::string& text) {
    const double value = std::strtod(WithShortExponent(text).c_str(), nullptr);
    if (std::isinf(value)) {
        return std::copysign(std::numeric_limits<double>::max(), value);
    }
    return value == 0 ? 0.0 : value;
}

/// The same bits: 0 and -0 differ.
bool IsSame(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

/// The number that the text begins with, where blanks, tabs and line feeds count for nothing.
double PrefixOf(const std::string& text) {
    std::string bare;
    for (const char c : text) {
        if (c != ' ' && c != '\t' && c != '\n') {
            bare += c;
        }
    }
    for (std::size_t length = bare.size(); length > 0; --length) {
        const std::string front = bare.substr(0, length);
        if (IsNumber(front)) {
            return ValueOf(front);
        }
    }
    return 0;
}

void RunText(const std::string& text) {
    double value = -1;
    const bool whole = ReadWholeNumber(text, value);
    Require(whole == IsNumber(text), "both readings agree on what a number is");
    Require(!whole || IsSame(value, ValueOf(text)), "both readings agree on the value");
    Require(IsSame(ParseNumberPrefix(text), PrefixOf(text)), "both readings agree on the number in front");
    double solvers = -1;
    Require(solver::ReadNumber(text, solvers) == whole && (!whole || IsSame(solvers, value)),
            "the solver reads numbers by the same grammar");
}

/// A field of a file: what stands up to a blank, comma or line end, behind blanks and line ends.
void RunField(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    std::istringstream stream(text);
    TextStream fields(stream);
    double value = -1;
    const std::optional<int> fault = FaultOf([&] { value = ReadNumberField(fields); });
    if (begin == std::string::npos) {
        Require(fault == fault::InputPastEnd, "a file that ends is fault 62");
        return;
    }
    const std::string field = text.substr(begin, std::min(text.find_first_of(" \t\r\n,", begin), text.size()) - begin);
    if (!IsNumber(field)) {
        Require(fault == fault::TypeMismatch, "a field that is no number is fault 13");
    } else {
        Require(!fault && IsSame(value, ValueOf(field)), "a field that is a number is read");
    }

    std::istringstream again(text);
    TextStream integers(again);
    Int16 integer = 0;
    const std::optional<int> refused = FaultOf([&] { integer = ReadIntegerField(integers); });
    const std::size_t digits = SkipSign(field, 0);
    if (digits == field.size() || SkipDigits(field, digits) != field.size()) {
        Require(refused == fault::TypeMismatch, "an integer is a sign and digits, nothing else");
    } else if (std::fabs(ValueOf(field)) > 32768 || ValueOf(field) == 32768) {
        Require(refused == fault::Overflow, "an integer beyond 16 bits is fault 6");
    } else {
        Require(!refused && integer == ValueOf(field), "an integer is read");
    }
}

/// The strict reading of a cell.
void RunStrict(const std::string& text) {
    std::string bare = text;
    bare.erase(0, std::min(bare.find_first_not_of(' '), bare.size()));
    bare.erase(bare.find_last_not_of(' ') + 1);
    Int16 integer = 0;
    const std::optional<int> fault = FaultOf([&] { integer = StrictInt16(text); });
    if (!IsNumber(bare)) {
        Require(fault == fault::TypeMismatch, "a cell that is no number as a whole is fault 13");
        return;
    }
    const double rounded = std::nearbyint(ValueOf(bare));  // half to even
    if (rounded < -32768 || rounded > 32767) {
        Require(fault == fault::Overflow, "a cell beyond 16 bits is fault 6");
    } else {
        Require(!fault && integer == rounded, "a cell is rounded half to even");
    }
}

/// Texts of a double. The platform's printing gives the 15 digits.
void RunDouble(double x) {
    std::string text;
    const std::optional<int> fault = FaultOf([&] { text = FormatNumberText(x); });
    if (!std::isfinite(x)) {
        Require(fault == fault::Overflow, "no number is fault 6");
        return;
    }
    Require(!fault && IsNumber(text), "the text of a number is one");
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.14e", x);
    char again[40];
    std::snprintf(again, sizeof again, "%.14e", ParseNumberPrefix(text));
    if (x == 0) {
        RequireEqual(text, "0", "zero has no sign");
    } else if (std::isfinite(std::strtod(digits, nullptr))) {  // the largest double's 15 digits are beyond it
        RequireEqual(digits, again, "the text reads back to the same 15 digits");
        std::string upper = digits;
        upper[upper.find('e')] = 'E';
        RequireEqual(ScientificText(x, 14), upper, "all 15 digits are those of the platform's printing");
    }
    for (int decimals = 0; decimals <= 14; ++decimals) {
        Require(IsNumber(ScientificText(x, decimals)), "a scientific text is a number");
        const std::string fixed = FixedText(x, decimals);
        Require(IsNumber(fixed), "a fixed text is a number");
        Require(fixed.front() != '-' || ValueOf(fixed) != 0, "a value that rounds to zero has no sign");
        const double unit = std::pow(10.0, -decimals);
        Require(std::fabs(ValueOf(fixed) - x) <= 0.5000001 * unit + std::fabs(x) * 1e-14,
                "a fixed text lies within half a unit of its last digit");
    }
}

}  // namespace

const int LongestRun = 1;

void RunInput(std::string_view bytes) {
    const std::string text(bytes);
    RunText(text);
    RunField(text);
    RunStrict(text);
    if (bytes.size() >= sizeof(double)) {
        double x = 0;
        std::memcpy(&x, bytes.data(), sizeof x);
        RunDouble(x);
    }
    RunDouble(ParseNumberPrefix(text));
}

}  // namespace zirvo::fuzz
