// Code page 932 through iconv. Called by code_page.cpp.
#include <iconv.h>

#include <array>
#include <cstddef>

#include "base/runtime_fault.h"
#include "platform/code_page_system.h"

namespace zirvo {
namespace {

// What iconv_open gives in place of a converter.
const iconv_t Unavailable = reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr)

iconv_t OpenConverter(const char* to, const char* from) {
    const iconv_t converter = iconv_open(to, from);
    if (converter == Unavailable) {
        throw RuntimeFault(fault::DeviceError, "The system cannot convert code page 932");
    }
    return converter;
}

/// Converts the two bytes of one character; the number of bytes written, 0 if it cannot be converted.
std::size_t Convert(void* converter, std::uint16_t from, std::array<unsigned char, 4>& to) {
    std::array<char, 2> input{static_cast<char>(from >> 8), static_cast<char>(from & 0xFF)};
    char* source = input.data();
    char* target = reinterpret_cast<char*>(to.data());
    std::size_t left = input.size();
    std::size_t room = to.size();
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    const std::size_t result = iconv(converter, &source, &left, &target, &room);
    return result == static_cast<std::size_t>(-1) || left != 0 ? 0 : to.size() - room;
}

}  // namespace

CodePageSystem::CodePageSystem() : decoder_(OpenConverter("UTF-16BE", "CP932")) {
    try {
        encoder_ = OpenConverter("CP932", "UTF-16BE");
    } catch (...) {
        iconv_close(decoder_);
        throw;
    }
}

CodePageSystem::~CodePageSystem() {
    iconv_close(decoder_);
    iconv_close(encoder_);
}

char16_t CodePageSystem::Decode(std::uint16_t code) const {
    std::array<unsigned char, 4> wide{};
    return Convert(decoder_, code, wide) == 2 ? static_cast<char16_t>(wide[0] << 8 | wide[1]) : char16_t{0};
}

std::uint16_t CodePageSystem::Encode(char16_t character) const {
    std::array<unsigned char, 4> bytes{};
    const bool pair = Convert(encoder_, character, bytes) == 2;
    return pair ? static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]) : std::uint16_t{0};
}

}  // namespace zirvo
