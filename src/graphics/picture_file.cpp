// Names and kinds of picture files, see picture_file.h.
#include "graphics/picture_file.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/runtime_fault.h"
#include "platform/files.h"
#include "text/file_helpers.h"

namespace zirvo {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view BitmapExtension = ".bmp";

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return lower;
}

/// From the last point of the name on; "" where there is none, or where the name begins with it.
std::string_view ExtensionOf(std::string_view path) {
    const std::string_view name = path.substr(path.size() - FileNameOf(path).size());
    const std::size_t point = name.rfind('.');
    return point == std::string_view::npos || point == 0 ? std::string_view() : name.substr(point);
}

std::uint32_t LittleEndian(std::string_view bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;) {
        value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    }
    return value;
}

/// "BM" alone begins many a text. Behind it stand the length of the file, 4 zero bytes, where the pixels begin, and the
/// length of the second header, of which there are 7 (Windows GDI, "BITMAPINFOHEADER" and its like).
bool LooksLikeBitmap(std::string_view bytes) {
    constexpr std::size_t wholeHeader = 26;
    if (bytes.size() < wholeHeader || !bytes.starts_with("BM")) {
        return false;
    }
    constexpr std::array<std::uint32_t, 7> lengths{12, 40, 52, 56, 64, 108, 124};
    const std::uint32_t length = LittleEndian(bytes, 14);
    for (const std::uint32_t known : lengths) {
        if (length == known) {
            return LittleEndian(bytes, 10) <= bytes.size();
        }
    }
    return false;
}

/// Takes what `head` begins with up to and with `end`; false where it does not begin so or has no such end.
bool Take(std::string_view& head, std::string_view begin, std::string_view end) {
    const std::size_t at = head.starts_with(begin) ? head.find(end, begin.size()) : std::string_view::npos;
    if (at == std::string_view::npos) {
        return false;
    }
    head.remove_prefix(at + end.size());
    return true;
}

void SkipBlanks(std::string_view& head) {
    head.remove_prefix(std::min(head.find_first_not_of(" \t\r\n"), head.size()));
}

/// A document whose first element is "svg": before it stand a byte order mark, declarations, comments.
bool LooksLikeSvg(std::string_view bytes) {
    constexpr std::size_t far = 4096;
    std::string_view head = bytes.substr(0, far);
    Take(head, "\xEF\xBB\xBF"sv, "");
    SkipBlanks(head);
    while (Take(head, "<?", "?>") || Take(head, "<!--", "-->") || Take(head, "<!DOCTYPE", ">")) {
        SkipBlanks(head);
    }
    constexpr std::string_view element = "<svg";
    return head.starts_with(element) && head.size() > element.size() &&
           " \t\r\n/>"sv.find(head[element.size()]) != std::string_view::npos;
}

}  // namespace

std::string PictureFileName(std::string path) {
    const std::string_view extension = ExtensionOf(path);
    if (extension == ".") {
        path.pop_back();
        return path.append(BitmapExtension);
    }
    return extension.empty() ? path.append(BitmapExtension) : path;
}

MapFileFormat FormatOfPictureFile(std::string_view path) {
    const std::string extension = LowerCase(ExtensionOf(path));
    if (extension == ".png") {
        return MapFileFormat::Png;
    }
    if (extension == ".svg") {
        return MapFileFormat::Svg;
    }
    return extension == ".pdf" ? MapFileFormat::Pdf : MapFileFormat::Bitmap;
}

bool LooksLikePicture(std::string_view bytes) {
    constexpr std::array beginnings{
        "\x89PNG\r\n\x1a\n"sv, "%PDF-"sv, "\xFF\xD8\xFF"sv, "GIF87a"sv, "GIF89a"sv, "II*\0"sv, "MM\0*"sv};
    for (const std::string_view beginning : beginnings) {
        if (bytes.starts_with(beginning)) {
            return true;
        }
    }
    const bool webP = bytes.size() >= 12 && bytes.starts_with("RIFF") && bytes.substr(8, 4) == "WEBP";
    return webP || LooksLikeBitmap(bytes) || LooksLikeSvg(bytes);
}

bool ReplacesOtherThanPicture(const std::string& path) {
    if (!FileExists(path)) {
        return false;
    }
    try {
        return !AttributesOf(path).Directory && !LooksLikePicture(ReadFileBytes(path));
    } catch (const RuntimeFault&) {
        return true;
    }
}

}  // namespace zirvo
