// Code page 932 both ways, against the system's converter for the whole text, and names through a file's line.
#include <iconv.h>

#include <optional>
#include <sstream>
#include <string>

#include "base/utf8.h"
#include "pavement/pavement_rules.h"
#include "platform/code_page.h"
#include "support/fuzzing.h"
#include "text/text_fields.h"

namespace zirvo::fuzz {
namespace {

/// The system's own reading of the bytes; nothing where it refuses them.
std::optional<std::string> SystemsReading(const std::string& bytes) {
    static iconv_t const converter = iconv_open("UTF-8", "CP932");
    Require(converter != reinterpret_cast<iconv_t>(-1), "the system knows code page 932");
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    std::string from = bytes;
    std::string text(bytes.size() * 3 + 16, '\0');
    char* source = from.data();
    char* target = text.data();
    std::size_t left = from.size();
    std::size_t room = text.size();
    if (iconv(converter, &source, &left, &target, &room) == static_cast<std::size_t>(-1)) {
        return std::nullopt;
    }
    text.resize(text.size() - room);
    return text;
}

bool HasPrivateCharacters(const std::string& text) {
    for (const char32_t c : ToCharacters(text)) {
        if ((c >= 0xE000 && c <= 0xF8FF) || (c >= 0x80 && c <= 0xA0)) {
            return true;
        }
    }
    return false;
}

/// ASCII and half-width katakana stand as they are, whatever a converter makes of the yen sign's place.
void RunBytes(const std::string& bytes) {
    const std::string text = DecodeText(bytes);
    Require(IsValidUtf8(text), "whatever the bytes, the text is UTF-8");
    Require(CharacterCount(text) <= bytes.size(), "no byte makes two characters");
    const std::string clean = DecodeText(EncodeText(text));
    std::string expected;
    for (const char32_t c : ToCharacters(text)) {
        expected += c == 0xFFFD ? "?" : FromCharacters(std::u32string(1, c));
    }
    RequireEqual(clean, expected, "what was read is written and read as the same");
    const std::optional<std::string> systems = SystemsReading(bytes);
    if (systems && !HasPrivateCharacters(*systems)) {
        RequireEqual(text, *systems, "both converters read the same");
    }
}

void RunText(const std::string& bytes) {
    if (!IsValidUtf8(bytes)) {
        return;
    }
    const std::string encoded = EncodeText(bytes);
    const std::string back = DecodeText(encoded);
    const std::u32string before = ToCharacters(bytes);
    const std::u32string after = ToCharacters(back);
    Require(before.size() == after.size(), "each character is written as one");
    for (std::size_t i = 0; i < before.size(); ++i) {
        Require(before[i] == after[i] || after[i] == U'?', "a character is written as itself or as a question mark");
    }
}

void RunName(const std::string& name) {
    if (!SurvivesInFile(name)) {
        return;
    }
    std::istringstream whole(EncodeName(name) + "\r\nnext\r\n");
    TextStream line(whole);
    RequireEqual(DecodeName(ReadLineBytes(line)), name, "a name that survives is the whole line that is read");
    std::istringstream again(EncodeName(name) + "\r\nnext\r\n");
    TextStream fields(again);
    RequireEqual(DecodeName(ReadTextFieldBytes(fields)), name, "a name that survives is the field that is read");
    RequireEqual(ReadTextFieldBytes(fields), "next", "and no more than that field");
}

}  // namespace

const int LongestRun = 1;

void RunInput(std::string_view input) {
    const std::string bytes(input);
    RunBytes(bytes);
    RunText(bytes);
    RunName(bytes);
    RunName(DecodeText(bytes));
    Require(IsValidUtf8(DecodeName(bytes)), "whatever the bytes, a name is UTF-8");
}

}  // namespace zirvo::fuzz
