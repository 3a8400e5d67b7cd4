// Code page 932 from tables that are filled once from the operating system's converter, so that text is the same bytes
// on every platform and takes no call to the system. Callers: every reader and writer of files.
//
// What is stored  for each code (one byte, or lead * 256 + trail) its character, for each character its code. A
//                 character is written only as what it is read from, so there is no best fit.
// Special cases   the bytes 80, A0, FD, FE and FF are not in the code page, though some converters give them characters
//                 of private use: they are bad bytes on every platform.
//                 A lead byte before a byte that cannot be its second is one bad byte, and the other is read anew: no
//                 line end or comma is swallowed. A pair that the code page lacks is one bad character.
#include "platform/code_page.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/utf8.h"
#include "platform/code_page_system.h"

namespace zirvo {
namespace {

constexpr char32_t Replacement = 0xFFFD;
constexpr std::size_t CodeCount = 0x10000;

bool IsLead(std::uint8_t b) {
    return (b >= 0x81 && b <= 0x9F) || (b >= 0xE0 && b <= 0xFC);
}
bool IsTrail(std::uint8_t b) {
    return (b >= 0x40 && b <= 0x7E) || (b >= 0x80 && b <= 0xFC);
}

struct Tables {
    std::array<char16_t, CodeCount> Characters{};  // 0 where the code page has none, except of code 0
    std::array<std::uint16_t, CodeCount> Codes{};  // 0 where the code page has none, except of character 0

    Tables();

    /// False if the code page lacks the character.
    bool CodeOf(char32_t c, std::uint16_t& code) const {
        code = c < CodeCount ? Codes[c] : std::uint16_t{0};
        return code != 0 || c == 0;
    }

private:
    void Add(const CodePageSystem& system, std::uint16_t code) {
        const char16_t c = system.Decode(code);
        Characters[code] = c;
        if (c != 0 && Codes[c] == 0) {
            Codes[c] = system.Encode(c);
        }
    }
    void AddOwn(std::uint16_t code, char16_t c) {
        Characters[code] = c;
        Codes[c] = code;
    }
};

Tables::Tables() {
    const CodePageSystem system;
    for (unsigned code = 0x00; code <= 0x7F; ++code) {
        AddOwn(static_cast<std::uint16_t>(code), static_cast<char16_t>(code));
    }
    for (unsigned code = 0xA1; code <= 0xDF; ++code) {  // half-width katakana
        AddOwn(static_cast<std::uint16_t>(code), static_cast<char16_t>(0xFF61 + code - 0xA1));
    }
    for (unsigned lead = 0x81; lead <= 0xFC; ++lead) {
        for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
            if (IsLead(static_cast<std::uint8_t>(lead)) && IsTrail(static_cast<std::uint8_t>(trail))) {
                Add(system, static_cast<std::uint16_t>(lead << 8 | trail));
            }
        }
    }
}

const Tables& TheTables() {
    static const Tables tables;
    return tables;
}

/// The bytes of the text, "?" where the code page lacks a character; tells whether it lacked one.
std::string Encode(std::string_view text, bool& complete) {
    const Tables& tables = TheTables();
    complete = true;
    std::string bytes;
    bytes.reserve(text.size());
    for (const char32_t c : ToCharacters(text)) {
        std::uint16_t code = 0;
        if (!tables.CodeOf(c, code)) {
            complete = false;
            code = '?';
        }
        if (code > 0xFF) {
            bytes += static_cast<char>(code >> 8);
        }
        bytes += static_cast<char>(code & 0xFF);
    }
    return bytes;
}

}  // namespace

std::string EncodeText(std::string_view text) {
    bool complete = true;
    return Encode(text, complete);
}

std::string DecodeText(std::string_view bytes) {
    const Tables& tables = TheTables();
    std::u32string characters;
    characters.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto first = static_cast<std::uint8_t>(bytes[i]);
        std::uint16_t code = first;
        if (IsLead(first)) {
            const auto second = i + 1 < bytes.size() ? static_cast<std::uint8_t>(bytes[i + 1]) : std::uint8_t{0};
            if (IsTrail(second)) {
                code = static_cast<std::uint16_t>(first << 8 | second);
                ++i;
            }
        }
        const char32_t c = tables.Characters[code];
        characters += c == 0 && code != 0 ? Replacement : c;
    }
    return FromCharacters(characters);
}

std::string EncodeName(std::string_view name) {
    bool complete = true;
    std::string bytes = Encode(name, complete);
    return complete ? bytes : std::string(name);
}

std::string DecodeName(std::string_view bytes) {
    if (IsValidUtf8(bytes)) {
        bool complete = true;
        Encode(bytes, complete);
        if (!complete) {
            return std::string(bytes);
        }
    }
    return DecodeText(bytes);
}

}  // namespace zirvo
