// The sentences of an input error. Called by the reports of bad input and for standard error.
#include "solver/io/input_error.h"

namespace zirvo::solver {
namespace {

/// No more characters of a value than these are shown: enough for any number, and no line of rubbish fills the report.
constexpr std::size_t LongestShownValue = 60;

}  // namespace

std::string RowText(Language language, const InputError& error) {
    std::string text(TextOf(language, error.Row));
    if (error.RowNumber > 0) {
        text += ' ' + std::to_string(error.RowNumber);
    }
    if (error.Line > 0) {
        const std::string line = FillIn(TextOf(language, Word::ErrorLine), {std::to_string(error.Line)});
        text += text.empty() ? line : " (" + line + ")";
    }
    return text;
}

std::string ValueText(Language language, const InputError& error) {
    std::string text = error.Component.empty() ? std::string(TextOf(language, error.Value)) : error.Component;
    if (!text.empty() && !error.Text.empty()) {
        text += ' ' + PrintableText(error.Text, LongestShownValue);
    }
    return text;
}

std::string ReasonText(Language language, const InputError& error) {
    const std::string first = error.Arguments.empty() ? "" : error.Arguments[0];
    const std::string second = error.Arguments.size() < 2 ? "" : error.Arguments[1];
    return FillIn(TextOf(language, error.Reason), {first, second});
}

std::string OneLine(Language language, const std::string& file, const InputError& error) {
    std::string line = file;
    for (const std::string& part :
         {RowText(language, error), ValueText(language, error), ReasonText(language, error)}) {
        if (!part.empty()) {
            line += line.empty() ? part : ": " + part;
        }
    }
    return line;
}

}  // namespace zirvo::solver
