// The table of code page 932 against the converter of the C library, code by code and character by character.
#include <gtest/gtest.h>
#include <iconv.h>

#include <string>

#include "base/utf8.h"
#include "platform/code_page.h"
#include "platform/code_page_bytes.h"

namespace zirvo {
namespace {

/// The text in one encoding as the system's converter has it in another; empty where it lacks a character.
std::string BySystem(const char* to, const char* from, std::string text) {
    const iconv_t converter = iconv_open(to, from);
    char* source = text.data();
    std::size_t left = text.size();
    std::string out(16, '\0');
    char* target = out.data();
    std::size_t room = out.size();
    const std::size_t result = iconv(converter, &source, &left, &target, &room);
    iconv_close(converter);
    return result == static_cast<std::size_t>(-1) || left != 0 ? std::string() : out.substr(0, out.size() - room);
}

// Origin: iconv of the C library. Bytes that are not in the code page are ours to say (see DecodeText).
TEST(CodePage, EveryCodeIsTheCharacterThatTheSystemsConverterHas) {
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const unsigned lead = code >> 8;
        const bool pair = (lead >= 0x81 && lead <= 0x9F) || (lead >= 0xE0 && lead <= 0xFC);
        const bool byte = code <= 0x7F || (code >= 0xA1 && code <= 0xDF);
        if (!pair && !byte) {
            continue;
        }
        const std::string bytes = pair ? Pair(lead, code & 0xFF) : std::string(1, static_cast<char>(code));
        const std::string system = BySystem("UTF-8", "CP932", bytes);
        if (pair && (code & 0xFF) < 0x40) {
            continue;  // a lead byte alone, then another character
        }
        const std::string text = DecodeText(bytes);
        if (system.empty()) {
            EXPECT_EQ(text.substr(0, Bad.size()), Bad) << std::hex << code;
        } else {
            EXPECT_EQ(text, system) << std::hex << code;
        }
    }
}

TEST(CodePage, EveryCharacterHasTheCodeThatTheSystemsConverterWrites) {
    int held = 0;
    for (char32_t c = 0; c <= 0xFFFF; ++c) {
        if (c >= 0xD800 && c <= 0xDFFF) {
            continue;
        }
        const std::string text = FromCharacters(std::u32string(1, c));
        const std::string bytes = EncodeText(text);
        if (c == '?' || bytes != "?") {
            EXPECT_EQ(bytes, BySystem("CP932", "UTF-8", text)) << std::hex << static_cast<unsigned>(c);
            ++held;
        } else {
            // What the system writes for it, if anything, is read as something else: a best fit.
            const std::string system = BySystem("CP932", "UTF-8", text);
            EXPECT_TRUE(system.empty() || DecodeText(system) != text) << std::hex << static_cast<unsigned>(c);
        }
    }
    EXPECT_EQ(held, 128 + 63 + 9604 - 398);  // of one byte; pairs without the duplicates
}

}  // namespace
}  // namespace zirvo
