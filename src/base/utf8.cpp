// UTF-8 taken apart and put together. Used wherever columns are counted and by the code page converter.
#include "base/utf8.h"

#include <cstdint>

namespace zirvo {
namespace {

constexpr char32_t Replacement = 0xFFFD;
constexpr char32_t LastCodePoint = 0x10FFFF;

bool IsSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}

std::uint8_t ByteAt(std::string_view text, std::size_t i) {
    return static_cast<std::uint8_t>(text[i]);
}

struct Step {
    std::size_t Length;  // bytes; 1 for a byte that is no part of a well-formed character
    bool WellFormed;
    char32_t Character;
};

/// The character at `i`, which is inside the text.
Step StepAt(std::string_view text, std::size_t i) {
    const std::uint8_t lead = ByteAt(text, i);
    if (lead < 0x80) {
        return {1, true, lead};
    }
    const Step broken{1, false, Replacement};
    std::size_t length = 0;
    char32_t lowest = 0;  // anything below it in this many bytes is an overlong form
    char32_t c = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2, lowest = 0x80, c = lead & 0x1FU;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3, lowest = 0x800, c = lead & 0x0FU;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4, lowest = 0x10000, c = lead & 0x07U;
    } else {
        return broken;
    }
    if (text.size() - i < length) {
        return broken;
    }
    for (std::size_t k = 1; k < length; ++k) {
        const std::uint8_t trail = ByteAt(text, i + k);
        if ((trail & 0xC0U) != 0x80) {
            return broken;
        }
        c = (c << 6) | (trail & 0x3FU);
    }
    if (c < lowest || c > LastCodePoint || IsSurrogate(c)) {
        return broken;
    }
    return {length, true, c};
}

/// The byte position `count` characters behind the byte position `from`, at most the end.
std::size_t Advance(std::string_view text, std::size_t from, std::size_t count) {
    while (count > 0 && from < text.size()) {
        from += StepAt(text, from).Length;
        --count;
    }
    return from;
}

char TrailByte(char32_t c, int shift) {
    return static_cast<char>(0x80U | ((c >> shift) & 0x3FU));
}

void AppendCharacter(std::string& text, char32_t c) {
    if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xC0U | (c >> 6));
        text += TrailByte(c, 0);
    } else if (c < 0x10000) {
        text += static_cast<char>(0xE0U | (c >> 12));
        text += TrailByte(c, 6);
        text += TrailByte(c, 0);
    } else {
        text += static_cast<char>(0xF0U | (c >> 18));
        text += TrailByte(c, 12);
        text += TrailByte(c, 6);
        text += TrailByte(c, 0);
    }
}

}  // namespace

bool IsValidUtf8(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size();) {
        const Step step = StepAt(bytes, i);
        if (!step.WellFormed) {
            return false;
        }
        i += step.Length;
    }
    return true;
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); i += StepAt(text, i).Length) {
        ++count;
    }
    return count;
}

std::string_view CharacterSlice(std::string_view text, std::size_t first, std::size_t count) {
    const std::size_t from = Advance(text, 0, first);
    return text.substr(from, Advance(text, from, count) - from);
}

std::u32string ToCharacters(std::string_view text) {
    std::u32string characters;
    characters.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const Step step = StepAt(text, i);
        characters += step.Character;
        i += step.Length;
    }
    return characters;
}

std::string FromCharacters(std::u32string_view characters) {
    std::string text;
    text.reserve(characters.size());
    for (const char32_t c : characters) {
        AppendCharacter(text, c > LastCodePoint || IsSurrogate(c) ? Replacement : c);
    }
    return text;
}

}  // namespace zirvo
