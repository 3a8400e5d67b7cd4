// An HTML page taken apart, see html_page.h.
#include "help/html_page.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <set>

namespace zirvo::test {
namespace {

/// What Qt's rich text shows and the manual may use.
const std::set<std::string, std::less<>> KnownTags{"a",     "b",   "body", "br",    "h1", "h2", "h3",  "head",
                                                   "html",  "img", "li",   "meta",  "ol", "p",  "pre", "style",
                                                   "table", "td",  "th",   "title", "tr", "ul"};
const std::set<std::string, std::less<>> TagsWithoutEnd{"br", "img", "meta"};

struct Entity {
    std::string_view Name;
    std::string_view Text;
};
constexpr std::array Entities{Entity{"amp", "&"}, Entity{"lt", "<"}, Entity{"gt", ">"}, Entity{"quot", "\""}};

bool IsBlank(char c) {
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

}  // namespace

class HtmlReader {
public:
    HtmlReader(std::string_view html, HtmlPage& page) : html_(html), page_(page) {}
    void Read();

private:
    std::string_view html_;
    HtmlPage& page_;
    std::size_t at_ = 0;
    std::vector<std::string> open_;

    void Fault(const std::string& what) {
        const auto line = 1 + std::count(html_.begin(), html_.begin() + static_cast<std::ptrdiff_t>(at_), '\n');
        page_.faults_.push_back("line " + std::to_string(line) + ": " + what);
    }
    void ReadText();
    void ReadTag();
    bool ReadAttributes(HtmlToken& token, std::string_view tag);
    void Nest(const HtmlToken& token);
};

void HtmlReader::Read() {
    constexpr std::string_view Doctype = "<!DOCTYPE html>";
    if (html_.substr(0, Doctype.size()) == Doctype) {
        at_ = Doctype.size();
    } else {
        Fault("no document type");
    }
    while (at_ < html_.size()) {
        constexpr std::string_view Comment = "<!--";
        if (html_.substr(at_, Comment.size()) == Comment) {
            const std::size_t end = html_.find("-->", at_);
            at_ = end == std::string_view::npos ? html_.size() : end + 3;
        } else if (html_[at_] == '<') {
            ReadTag();
        } else {
            ReadText();
        }
    }
    for (const std::string& name : open_) {
        Fault(name + " is never closed");
    }
}

void HtmlReader::ReadText() {
    const std::size_t end = std::min(html_.find('<', at_), html_.size());
    HtmlToken token;
    while (at_ < end) {
        if (html_[at_] != '&') {
            token.Text += html_[at_++];
            continue;
        }
        const std::string_view rest = html_.substr(at_ + 1, end - at_ - 1);
        const auto* const entity = std::find_if(Entities.begin(), Entities.end(), [&](const Entity& one) {
            return rest.substr(0, one.Name.size()) == one.Name && rest.substr(one.Name.size(), 1) == ";";
        });
        if (entity == Entities.end()) {
            Fault("an ampersand that begins no known entity");
            ++at_;
        } else {
            token.Text += entity->Text;
            at_ += entity->Name.size() + 2;
        }
    }
    page_.tokens_.push_back(std::move(token));
}

void HtmlReader::ReadTag() {
    const std::size_t end = html_.find('>', at_);
    if (end == std::string_view::npos) {
        Fault("a tag without an end");
        at_ = html_.size();
        return;
    }
    std::string_view tag = html_.substr(at_ + 1, end - at_ - 1);
    HtmlToken token;
    token.What = tag.substr(0, 1) == "/" ? HtmlToken::Kind::Close : HtmlToken::Kind::Open;
    if (token.What == HtmlToken::Kind::Close) {
        tag.remove_prefix(1);
    }
    const std::size_t nameEnd = std::min(tag.find_first_of(" \n"), tag.size());
    token.Name = std::string(tag.substr(0, nameEnd));
    if (KnownTags.count(token.Name) == 0) {
        Fault("the tag " + token.Name + " is none that the manual may use");
    }
    if (!ReadAttributes(token, tag.substr(nameEnd))) {
        Fault("attributes of " + token.Name + " that are not name=\"value\"");
    }
    Nest(token);
    at_ = end + 1;
    page_.tokens_.push_back(std::move(token));
}

bool HtmlReader::ReadAttributes(HtmlToken& token, std::string_view tag) {
    std::size_t at = 0;
    while (true) {
        while (at < tag.size() && IsBlank(tag[at])) {
            ++at;
        }
        if (at == tag.size()) {
            return true;
        }
        const std::size_t equals = tag.find("=\"", at);
        const std::size_t end = equals == std::string_view::npos ? equals : tag.find('"', equals + 2);
        if (end == std::string_view::npos) {
            return false;
        }
        token.Attributes[std::string(tag.substr(at, equals - at))] =
            std::string(tag.substr(equals + 2, end - equals - 2));
        at = end + 1;
    }
}

void HtmlReader::Nest(const HtmlToken& token) {
    if (TagsWithoutEnd.count(token.Name) > 0) {
        return;
    }
    if (token.What == HtmlToken::Kind::Open) {
        open_.push_back(token.Name);
    } else if (open_.empty() || open_.back() != token.Name) {
        Fault(token.Name + " is closed inside " + (open_.empty() ? "nothing" : open_.back()));
    } else {
        open_.pop_back();
    }
}

HtmlPage::HtmlPage(std::string_view html) {
    HtmlReader(html, *this).Read();
}

std::vector<std::string> HtmlPage::Values(std::string_view tag, const std::string& attribute) const {
    std::vector<std::string> values;
    for (const HtmlToken& token : tokens_) {
        const auto found = token.Attributes.find(attribute);
        if (token.Name == tag && found != token.Attributes.end()) {
            values.push_back(found->second);
        }
    }
    return values;
}

std::vector<std::string> HtmlPage::HeadingKinds() const {
    std::vector<std::string> kinds;
    for (const HtmlToken& token : tokens_) {
        if (token.What == HtmlToken::Kind::Open && token.Name.size() == 2 && token.Name[0] == 'h' &&
            std::isdigit(static_cast<unsigned char>(token.Name[1])) != 0) {
            kinds.push_back(token.Name);
        }
    }
    return kinds;
}

std::size_t HtmlPage::PlaceOf(std::string_view anchor) const {
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
        const auto name = tokens_[i].Attributes.find("name");
        if (tokens_[i].Name == "a" && name != tokens_[i].Attributes.end() && name->second == anchor) {
            return i;
        }
    }
    return tokens_.size();
}

std::size_t HtmlPage::PlaceOf(std::string_view tag, std::size_t from) const {
    while (from < tokens_.size() && !(tokens_[from].What == HtmlToken::Kind::Open && tokens_[from].Name == tag)) {
        ++from;
    }
    return from;
}

std::string HtmlPage::TextOf(std::size_t from, std::size_t to) const {
    static const std::set<std::string, std::less<>> Inline{"a", "b"};
    std::string text;
    for (std::size_t i = from; i < std::min(to, tokens_.size()); ++i) {
        text += tokens_[i].What == HtmlToken::Kind::Text ? tokens_[i].Text
                : Inline.count(tokens_[i].Name) > 0      ? ""
                                                         : " ";
    }
    return Squeezed(text);
}

std::string HtmlPage::Text() const {
    return TextOf(PlaceOf("body", 0), tokens_.size());
}

std::string HtmlPage::TextBetween(std::string_view from, std::string_view to) const {
    return TextOf(PlaceOf(from), PlaceOf(to));
}

std::vector<std::string> HtmlPage::BlockBehind(std::string_view anchor) const {
    std::size_t at = PlaceOf("pre", PlaceOf(anchor)) + 1;
    std::string text;
    while (at < tokens_.size() && tokens_[at].Name != "pre") {
        text += tokens_[at++].Text;
    }
    std::vector<std::string> lines{""};
    for (const char c : text) {
        if (c == '\n') {
            lines.emplace_back();
        } else {
            lines.back() += c;
        }
    }
    return lines;
}

std::vector<TableRow> HtmlPage::TableBehind(std::string_view anchor) const {
    std::vector<TableRow> rows;
    std::size_t cell = 0;
    for (std::size_t at = PlaceOf("table", PlaceOf(anchor)); at < tokens_.size(); ++at) {
        const HtmlToken& token = tokens_[at];
        const bool opens = token.What == HtmlToken::Kind::Open;
        if (token.Name == "table" && !opens) {
            break;
        }
        if (token.Name == "tr" && opens) {
            rows.emplace_back();
        } else if (token.Name == "td" && opens) {
            cell = at;
        } else if (token.Name == "td") {
            rows.back().push_back(TextOf(cell, at));
        }
    }
    rows.erase(std::remove_if(rows.begin(), rows.end(), [](const TableRow& row) { return row.empty(); }), rows.end());
    return rows;
}

std::string Squeezed(std::string_view text) {
    std::string squeezed;
    for (const char c : text) {
        if (!IsBlank(c)) {
            squeezed += c;
        } else if (!squeezed.empty() && squeezed.back() != ' ') {
            squeezed += ' ';
        }
    }
    if (!squeezed.empty() && squeezed.back() == ' ') {
        squeezed.pop_back();
    }
    return squeezed;
}

std::string WithoutBlanks(std::string_view text) {
    std::string rest;
    std::copy_if(text.begin(), text.end(), std::back_inserter(rest), [](char c) { return !IsBlank(c); });
    return rest;
}

}  // namespace zirvo::test
