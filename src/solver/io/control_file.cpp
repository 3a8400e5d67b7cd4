// Reader of "Initial_File". Called by the solver run.
#include "solver/io/control_file.h"

#include <optional>
#include <string_view>

#include "base/runtime_fault.h"
#include "platform/code_page.h"
#include "shell/text_fields.h"
#include "solver/io/row_reader.h"

namespace zirvo::solver {
namespace {

/// The next line; nothing at the end of the file or if it is too long.
std::optional<std::string> NextLine(TextStream& stream) {
    try {
        return ReadLineBytes(stream);
    } catch (const RuntimeFault&) {
        return std::nullopt;
    }
}

/// The number of a line that holds nothing else, blanks around it allowed.
std::optional<long long> NumberOfLine(const std::string& line) {
    const std::size_t first = line.find_first_not_of(" \t");
    if (first == std::string::npos) {
        return std::nullopt;
    }
    long long number = 0;
    const std::size_t last = line.find_last_not_of(" \t");
    if (!ReadInteger(std::string_view(line).substr(first, last + 1 - first), number)) {
        return std::nullopt;
    }
    return number;
}

InputError LineError(long long line, Word reason, Word value, std::string text) {
    InputError error;
    error.Line = line;
    error.Reason = reason;
    error.Value = value;
    error.Text = std::move(text);
    return error;
}

InputError NumberError(long long line, Word value, const std::string& text, int highest) {
    InputError error = LineError(line, Word::OutsideRange, value, text);
    error.Arguments = {"1", std::to_string(highest)};
    return error;
}

}  // namespace

std::variant<ControlFile, InputError> ReadControlFile(std::istream& input) {
    constexpr int LineCount = 8;
    constexpr int LanguageLine = 2;
    constexpr int UnitLine = 5;
    TextStream stream(input);
    ControlFile control;
    for (int number = 1; number <= LineCount; ++number) {
        const std::optional<std::string> line = NextLine(stream);
        if (!line) {
            return LineError(number, Word::EndsEarly, Word::None, "");
        }
        if (number == LanguageLine) {
            const std::optional<long long> language = NumberOfLine(*line);
            if (language != 1 && language != 2) {
                return NumberError(number, Word::LanguageNumber, *line, 2);
            }
            control.Words = static_cast<Language>(*language);
        } else if (number == UnitLine) {
            const std::optional<UnitSystem> units = UnitSystemOf(NumberOfLine(*line).value_or(0));
            if (!units) {
                return NumberError(number, Word::UnitNumber, *line, 3);
            }
            control.Units = *units;
        } else if (number == LineCount) {
            control.InputName = DecodeName(*line);
        }
    }
    if (control.InputName.empty()) {
        return LineError(LineCount, Word::NameEmpty, Word::InputName, "");
    }
    if (control.InputName.find('\0') != std::string::npos) {
        return LineError(LineCount, Word::NameUnusable, Word::InputName, control.InputName);
    }
    return control;
}

}  // namespace zirvo::solver
