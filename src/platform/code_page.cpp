// Code page 932 from tables that the compiler makes, so that text is the same bytes on every platform, takes no call to
// the system and costs no start. Callers: every reader and writer of files.
//
// What is stored  the characters of each lead byte (code_page_table.inl), and for each character its code. A character
//                 is written only as what it is read from, so there is no best fit.
// Steps           of several codes of one character the one in the lowest row is written, as Windows does: JIS X 0208
//                 before NEC's row 13 before IBM's; NEC's selection of IBM's (ED, EE) never.
// Special cases   the bytes 80, A0, FD, FE and FF are not in the code page, though some converters give them characters
//                 of private use: they are bad bytes on every platform.
//                 F040 to F9FC are the user's: U+E000 and on, without gaps.
//                 A lead byte before a byte that cannot be its second is one bad byte, and the other is read anew: no
//                 line end or comma is swallowed. A pair that the code page lacks is one bad character.
#include "platform/code_page.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/utf8.h"

namespace zirvo {
namespace {

constexpr char32_t Replacement = 0xFFFD;
constexpr std::size_t CharacterCount = 0x10000;
constexpr unsigned TrailCount = 188;
constexpr unsigned FirstUserLead = 0xF0;
constexpr unsigned LastUserLead = 0xF9;
constexpr unsigned FirstUserCharacter = 0xE000;

constexpr bool IsLead(unsigned b) {
    return (b >= 0x81 && b <= 0x9F) || (b >= 0xE0 && b <= 0xFC);
}
constexpr bool IsTrail(unsigned b) {
    return (b >= 0x40 && b <= 0x7E) || (b >= 0x80 && b <= 0xFC);
}

struct LeadRow {
    unsigned Lead;
    char16_t Characters[TrailCount + 1];
};
constexpr LeadRow Rows[] = {
#include "platform/code_page_table.inl"
};

/// The row of each lead byte, from 1; 0 where there is none.
constexpr std::array<std::uint8_t, 256> RowOfLead = [] {
    std::array<std::uint8_t, 256> rows{};
    std::uint8_t number = 0;
    for (const LeadRow& row : Rows) {
        rows[row.Lead] = ++number;
    }
    return rows;
}();

/// The character of a pair of bytes; Replacement where the code page has none.
constexpr char16_t CharacterOfPair(unsigned lead, unsigned trail) {
    const unsigned place = trail - 0x40 - (trail > 0x7F ? 1 : 0);
    if (lead >= FirstUserLead && lead <= LastUserLead) {
        return static_cast<char16_t>(FirstUserCharacter + (lead - FirstUserLead) * TrailCount + place);
    }
    const unsigned row = RowOfLead[lead];
    return row == 0 ? static_cast<char16_t>(Replacement) : Rows[row - 1].Characters[place];
}

constexpr char32_t CharacterOfByte(unsigned b) {
    if (b <= 0x7F) {
        return b;
    }
    return b >= 0xA1 && b <= 0xDF ? 0xFF61 + b - 0xA1 : Replacement;  // half-width katakana
}

using CodeTable = std::array<std::uint16_t, CharacterCount>;

constexpr void AddLead(unsigned lead, CodeTable& codes) {
    for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
        const char16_t c = IsTrail(trail) ? CharacterOfPair(lead, trail) : static_cast<char16_t>(Replacement);
        if (c != static_cast<char16_t>(Replacement) && codes[c] == 0) {
            codes[c] = static_cast<std::uint16_t>(lead << 8 | trail);
        }
    }
}

/// 0 where the code page has none, except of character 0.
constexpr CodeTable Codes = [] {
    constexpr unsigned NecSelected = 0xED;  // and the one after it
    CodeTable codes{};
    for (unsigned b = 0; b <= 0xFF; ++b) {
        if (CharacterOfByte(b) != Replacement) {
            codes[CharacterOfByte(b)] = static_cast<std::uint16_t>(b);
        }
    }
    for (unsigned lead = 0x81; lead <= 0xFC; ++lead) {
        if (IsLead(lead) && lead != NecSelected && lead != NecSelected + 1) {
            AddLead(lead, codes);
        }
    }
    return codes;
}();

/// False if the code page lacks the character.
bool CodeOf(char32_t c, std::uint16_t& code) {
    code = c < CharacterCount ? Codes[c] : std::uint16_t{0};
    return code != 0 || c == 0;
}

/// The bytes of the text, "?" where the code page lacks a character; tells whether it lacked one.
std::string Encode(std::string_view text, bool& complete) {
    complete = true;
    std::string bytes;
    bytes.reserve(text.size());
    for (const char32_t c : ToCharacters(text)) {
        std::uint16_t code = 0;
        if (!CodeOf(c, code)) {
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
    std::u32string characters;
    characters.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto first = static_cast<std::uint8_t>(bytes[i]);
        const auto second = i + 1 < bytes.size() ? static_cast<std::uint8_t>(bytes[i + 1]) : std::uint8_t{0};
        if (IsLead(first) && IsTrail(second)) {
            characters += CharacterOfPair(first, second);
            ++i;
        } else {
            characters += CharacterOfByte(first);
        }
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
