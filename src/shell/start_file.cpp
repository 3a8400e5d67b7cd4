// The file that the program was started with, see start_file.h.
#include "shell/start_file.h"

#include "platform/fault_subject.h"
#include "platform/files.h"
#include "text/file_helpers.h"
#include "text/version_stamp.h"

namespace zirvo {
namespace {

constexpr const char* OtherKind =
    "This is neither an analysis input file (.eva) nor a graphics input file (.ven)\n"
    "解析入力ファイル（.eva）でも図化入力ファイル（.ven）でもありません";
constexpr const char* NotThere =
    "This file is not there or cannot be opened\n"
    "ファイルがないか、開くことができません";

bool IsFile(const std::string& path) {
    try {
        return !AttributesOf(path).Directory;
    } catch (const RuntimeFault&) {
        return false;
    }
}

}  // namespace

StartFile::StartFile(const std::string& name) {
    const std::string path = name.empty() ? name : FullPath(name);
    const bool ours = HasExtension(path, ".eva") || HasExtension(path, ".ven");
    if (ours && IsFile(path)) {
        path_ = path;
    } else {
        complaint_ = std::string(ours ? NotThere : OtherKind) + "\n\n" + path;
    }
}

void StartFile::TellWhatIsWrong(forms::Desktop& desktop) const {
    if (!complaint_.empty()) {
        desktop.Show({.Text = complaint_, .Title = MakeVersionStamp(3), .Picture = forms::Icon::Exclamation});
    }
}

bool StartFile::Waits(std::string_view extension) const {
    return HasExtension(path_, extension);
}

std::string StartFile::Folder() const {
    return path_.empty() ? "" : FolderOf(path_);
}

}  // namespace zirvo
