// An HTML page taken apart, as far as the manual needs it. Callers: the tests of this folder.
#pragma once
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zirvo::test {

/// A tag or a piece of text, in the order of the page.
struct HtmlToken {
    enum class Kind { Text, Open, Close };
    Kind What = Kind::Text;
    std::string Name{};  ///< of a tag, in small letters
    std::map<std::string, std::string> Attributes{};
    std::string Text{};  ///< with its entities replaced; blanks as they stand
};

using TableRow = std::vector<std::string>;

class HtmlPage {
public:
    /// Reads the page; what is wrong with its form is told by `Faults`.
    explicit HtmlPage(std::string_view html);

    /// What keeps the page from being well formed, each with its line: tags that do not match, unknown tags, attributes
    /// without quotes, entities that are none.
    const std::vector<std::string>& Faults() const { return faults_; }

    /// The values of an attribute of all tags of a kind, in order.
    std::vector<std::string> Values(std::string_view tag, const std::string& attribute) const;
    /// The names of the heading tags ("h1" to "h6"), in order.
    std::vector<std::string> HeadingKinds() const;

    /// All that a reader sees of the page, runs of blanks and line ends as one blank.
    std::string Text() const;
    /// The same from one anchor to another one behind it. Empty where there are none such.
    std::string TextBetween(std::string_view from, std::string_view to) const;
    /// The lines of the first block of plain text behind an anchor, as they stand.
    std::vector<std::string> BlockBehind(std::string_view anchor) const;
    /// The rows of the first table behind an anchor without its heading row, each cell as Text.
    std::vector<TableRow> TableBehind(std::string_view anchor) const;

private:
    std::vector<HtmlToken> tokens_;
    std::vector<std::string> faults_;

    std::size_t PlaceOf(std::string_view anchor) const;
    std::size_t PlaceOf(std::string_view tag, std::size_t from) const;
    std::string TextOf(std::size_t from, std::size_t to) const;
    friend class HtmlReader;
};

/// Runs of blanks and line ends as one blank, none at the ends.
std::string Squeezed(std::string_view text);

/// Without any blank and line end.
std::string WithoutBlanks(std::string_view text);

}  // namespace zirvo::test
