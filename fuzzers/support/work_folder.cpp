// The work folder of a fuzzer, see work_folder.h.
#include "support/work_folder.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/temporary_folder.h"

namespace zirvo::fuzz {

namespace files = std::filesystem;

const std::string& WorkFolder() {
    static const TemporaryFolder folder;
    static const bool entered = [] {
        files::current_path(folder.Path());
        return true;
    }();
    static_cast<void>(entered);
    return folder.Path();
}

void EmptyWorkFolder() {
    for (const files::directory_entry& entry : files::directory_iterator(WorkFolder())) {
        files::remove_all(entry.path());
    }
}

void PutFile(const std::string& name, std::string_view bytes) {
    std::ofstream file(name, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::optional<std::string> BytesOf(const std::string& name) {
    std::error_code missing;
    if (!files::is_regular_file(name, missing)) {
        return std::nullopt;
    }
    std::ifstream file(name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::map<std::string, std::string> AllFiles() {
    std::map<std::string, std::string> all;
    for (const files::directory_entry& entry : files::directory_iterator(WorkFolder())) {
        if (entry.is_regular_file()) {
            all[entry.path().filename().string()] = BytesOf(entry.path().string()).value_or("");
        }
    }
    return all;
}

}  // namespace zirvo::fuzz
