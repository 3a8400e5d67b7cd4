// The file routines that all screens share, on top of the platform's. Called by screens, solver runs and viewers.
#include "text/file_helpers.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <string_view>

#include "base/runtime_fault.h"
#include "platform/code_page.h"
#include "platform/fault_subject.h"
#include "platform/files.h"
#include "platform/interruption.h"
#include "platform/open_file.h"
#include "text/csv_line.h"
#include "text/version_stamp.h"

namespace zirvo {
namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view StampIndent = "   ";

/// Hands out the lines of a text one by one, without their ends (CR LF, LF or CR). The last one needs no end; behind a
/// final line end there is no further line.
template <class Use>
void ForEachLine(std::string_view text, Use use) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(LineEnd), text.size());
        use(text.substr(0, end));
        const bool pair = text.substr(end, 2) == LineEnd;
        text.remove_prefix(std::min(end + (pair ? 2 : 1), text.size()));
    }
}

/// The bytes with the stamp line in front and every line ended by CR LF.
std::string Stamped(std::string_view bytes) {
    std::string text = std::string(StampIndent) + MakeVersionStamp(1);
    text.reserve(text.size() + bytes.size() + bytes.size() / 16);
    text += LineEnd;
    ForEachLine(bytes, [&](std::string_view line) {
        text += line;
        text += LineEnd;
    });
    return text;
}

}  // namespace

bool HasExtension(const std::string& name, std::string_view extension) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return name.size() > extension.size() && std::equal(extension.rbegin(), extension.rend(), name.rbegin(),
                                                        [&](char a, char b) { return a == lower(b); });
}

bool FileExists(const std::string& path) {
    try {
        FileLength(path);
        return true;
    } catch (const RuntimeFault&) {
        return false;
    }
}

bool IsWritableFolder(const std::string& path) {
    const FileAttributes attributes = AttributesOf(path);
    return attributes.Directory && !attributes.ReadOnly;
}

std::string ReadWholeFile(const std::string& path) {
    try {
        return DecodeText(ReadFileBytes(path));
    } catch (const RuntimeFault& fault) {
        return std::to_string(fault.Number());
    }
}

void MakeStampedCopy(const std::string& file, const std::string& tempName) {
    bool aside = false;
    const UndoneIfInterrupted putBack([&] {
        if (aside) {
            FileExists(file) ? RemoveFile(tempName) : RenameFile(tempName, file);
        }
    });
    {
        const NotInterrupted untilItIsNoted;
        RenameFile(file, tempName);
        aside = true;
    }
    try {
        WriteWholeFile(file, Stamped(ReadFileBytes(tempName)), Flush::ToSystem);
    } catch (...) {
        // Nothing stands under the old name, so the report can go back there; else it would seem lost to its owner.
        const NotInterrupted untilItIsBack;
        try {
            RenameFile(tempName, file);
            aside = false;
        } catch (const RuntimeFault&) {  // the first failure is the one to tell; the report still lies in tempName
        }
        throw;
    }
    const NotInterrupted untilItIsGone;
    RemoveFile(tempName);
    aside = false;
}

bool IsStamped(const std::string& file) {
    const std::string stamp = std::string(StampIndent) + MakeVersionStamp(1);
    const std::string front = stamp.substr(0, stamp.find(MakeVersionStamp(0)));
    std::ifstream input = OpenForReading(file);
    std::string bytes(front.size(), '\0');
    input.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (input.bad()) {  // what cannot be read is not without a stamp
        RaiseFileFault(fault::DeviceError, file);
    }
    return bytes == front;
}

void WriteCommaCopy(const std::string& source, const std::string& target) {
    // Bytes, not text: in code page 932 no second byte of a character is a blank or a comma.
    const std::string bytes = ReadFileBytes(source);
    std::string copy;
    copy.reserve(bytes.size());
    ForEachLine(bytes, [&](std::string_view line) {
        copy += ConvertToCsvLine(line, ' ', ',');
        copy += LineEnd;
    });
    WriteWholeFile(target, copy, Flush::ToSystem);
}

}  // namespace zirvo
