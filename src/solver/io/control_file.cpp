// Reader of "Initial_File". Called by the solver run. Inside, an InputError is thrown at the first finding.
#include "solver/io/control_file.h"

#include <utility>

#include "base/runtime_fault.h"
#include "platform/code_page.h"
#include "solver/io/row_reader.h"
#include "text/text_fields.h"

namespace zirvo::solver {
namespace {

/// The line without the blanks around it.
std::string Trimmed(const std::string& line) {
    const std::size_t first = line.find_first_not_of(" \t");
    return first == std::string::npos ? std::string() : line.substr(first, line.find_last_not_of(" \t") + 1 - first);
}

InputError LineError(long long line, Word reason, Word value = Word::None, std::string text = "") {
    InputError error;
    error.Line = line;
    error.Reason = reason;
    error.Value = value;
    error.Text = std::move(text);
    return error;
}

/// The number from 1 to `highest` that is all that the line holds; else the error, as an exception.
int NumberOfLine(const std::string& line, long long lineNumber, Word name, int highest) {
    const std::string text = Trimmed(line);
    long long number = 0;
    if (!ReadInteger(text, number) || number < 1 || number > highest) {
        InputError error = LineError(lineNumber, Word::OutsideRange, name, text);
        error.Arguments = {"1", std::to_string(highest)};
        throw error;
    }
    return static_cast<int>(number);
}

std::string NextLine(TextStream& stream, long long lineNumber) {
    try {
        return ReadLineBytes(stream);
    } catch (const RuntimeFault& caught) {
        throw LineError(lineNumber, caught.Number() == fault::InputPastEnd  ? Word::EndsEarly
                                    : caught.Number() == fault::InvalidCall ? Word::TextTooLong
                                                                            : Word::FileUnreadable);
    }
}

ControlFile ReadLines(std::istream& input) {
    constexpr long long LineCount = 8;
    constexpr long long LanguageLine = 2;
    constexpr long long UnitLine = 5;
    TextStream stream(input);
    ControlFile control;
    for (long long number = 1; number <= LineCount; ++number) {
        const std::string line = NextLine(stream, number);
        if (number == LanguageLine) {
            control.Words = static_cast<Language>(NumberOfLine(line, number, Word::LanguageNumber, 2));
        } else if (number == UnitLine) {
            control.Units = static_cast<UnitSystem>(NumberOfLine(line, number, Word::UnitNumber, 3));
        } else if (number == LineCount) {
            control.InputName = DecodeName(line);
        }
    }
    if (control.InputName.empty()) {
        throw LineError(LineCount, Word::NameEmpty, Word::InputName);
    }
    if (control.InputName.find('\0') != std::string::npos) {
        throw LineError(LineCount, Word::NameUnusable, Word::InputName, control.InputName);
    }
    return control;
}

}  // namespace

std::variant<ControlFile, InputError> ReadControlFile(std::istream& input) {
    try {
        return ReadLines(input);
    } catch (const InputError& error) {
        return error;
    }
}

}  // namespace zirvo::solver
