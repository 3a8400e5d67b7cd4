// What the code page converter asks of the operating system: one character at a time, once, to fill its tables.
// Called by code_page.cpp only.
#pragma once
#include <cstdint>

namespace zirvo {

/// The operating system's converter for code page 932, open as long as this object lives.
class CodePageSystem {
public:
    /// Fault 57 if the system has no such converter.
    CodePageSystem();
    ~CodePageSystem();
    CodePageSystem(const CodePageSystem&) = delete;
    CodePageSystem& operator=(const CodePageSystem&) = delete;

    /// The character (all are below U+10000) of a code of two bytes, lead byte * 256 + trail byte; 0 if the code page
    /// lacks it.
    char16_t Decode(std::uint16_t code) const;

    /// The code of a character that Decode gave: of several the one that the code page writes.
    std::uint16_t Encode(char16_t character) const;

private:
    void* decoder_ = nullptr;
    void* encoder_ = nullptr;
};

}  // namespace zirvo
