// Code page 932 through the Windows converters, without best fit. Called by code_page.cpp.
#include <windows.h>

#include <array>

#include "base/runtime_fault.h"
#include "platform/code_page_system.h"

namespace zirvo {
namespace {

constexpr UINT CodePage = 932;

}  // namespace

CodePageSystem::CodePageSystem() {
    if (IsValidCodePage(CodePage) == 0) {
        throw RuntimeFault(fault::DeviceError, "The system cannot convert code page 932");
    }
}

CodePageSystem::~CodePageSystem() = default;

char16_t CodePageSystem::Decode(std::uint16_t code) const {
    const std::array<char, 2> bytes{static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
    std::array<wchar_t, 4> wide{};
    const int length = MultiByteToWideChar(CodePage, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()),
                                           wide.data(), static_cast<int>(wide.size()));
    return length == 1 ? static_cast<char16_t>(wide[0]) : char16_t{0};
}

std::uint16_t CodePageSystem::Encode(char16_t character) const {
    const wchar_t wide = static_cast<wchar_t>(character);
    std::array<unsigned char, 4> bytes{};
    BOOL lacking = FALSE;
    const int length =
        WideCharToMultiByte(CodePage, WC_NO_BEST_FIT_CHARS, &wide, 1, reinterpret_cast<char*>(bytes.data()),
                            static_cast<int>(bytes.size()), nullptr, &lacking);
    const bool pair = lacking == FALSE && length == 2;
    return pair ? static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]) : std::uint16_t{0};
}

}  // namespace zirvo
