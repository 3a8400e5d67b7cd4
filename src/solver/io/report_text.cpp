// Lines of the reports. Called by the reports.
#include "solver/io/report_text.h"

#include "platform/code_page.h"

namespace zirvo::solver {
namespace {

constexpr std::string_view Margin = "   ";
constexpr std::string_view LineEnd = "\r\n";

}  // namespace

void ReportText::Line(std::string_view text) {
    bytes_ += Margin;
    bytes_ += EncodeText(text);
    bytes_ += LineEnd;
}

void ReportText::Line(Word word, std::initializer_list<std::string_view> arguments) {
    Line(FillIn(TextOf(language_, word), arguments));
}

void ReportText::EmptyLine() {
    bytes_ += LineEnd;
}

void ReportText::Rule(char character, std::size_t lastColumn) {
    bytes_ += Margin;
    bytes_.append(lastColumn - Margin.size(), character);
    bytes_ += LineEnd;
}

void ReportText::Cells(std::span<const Cell> cells) {
    for (const Cell& cell : cells) {
        // A double-width character is two bytes of the code page, a single-width one is one: bytes are columns.
        const std::string text = EncodeText(cell.Text);
        bytes_.append(cell.Width > text.size() ? cell.Width - text.size() : 0, ' ');
        bytes_ += text;
    }
    bytes_ += LineEnd;
}

void ReportText::GroupHeading(std::span<const Cell> cells) {
    std::string_view lead = Margin;
    for (const Cell& cell : cells) {
        std::string text(lead);
        text += EncodeText(cell.Text) + ' ';
        if (text.size() < cell.Width) {
            text.append(cell.Width - text.size(), '-');
        }
        bytes_ += text;
        lead = " ";
    }
    bytes_ += LineEnd;
}

char* ReportText::Rows(std::size_t count, std::size_t width) {
    const std::size_t first = bytes_.size();
    const std::size_t stride = width + LineEnd.size();
    bytes_.resize(first + count * stride, ' ');
    for (std::size_t row = 1; row <= count; ++row) {
        LineEnd.copy(bytes_.data() + first + row * stride - LineEnd.size(), LineEnd.size());
    }
    return bytes_.data() + first;
}

}  // namespace zirvo::solver
