// A fresh folder for work files, see temporary_folder.h.
#include "batch/temporary_folder.h"

#include <chrono>
#include <random>
#include <string>
#include <system_error>
#include <thread>

#include "base/runtime_fault.h"
#include "platform/ask_again.h"
#include "platform/files.h"

namespace zirvo::batch {
namespace {

constexpr int MostTries = 100;

std::filesystem::path MakeFreshFolder() {
    std::error_code missing;
    const std::filesystem::path parent =
        AskAgain([](std::error_code& code) { return std::filesystem::temp_directory_path(code); }, missing);
    if (missing) {
        throw std::filesystem::filesystem_error("", missing);
    }
    std::random_device random;
    for (int tries = 0; tries < MostTries; ++tries) {
        std::filesystem::path folder = parent / ("zirvo-" + std::to_string(random()) + "-" + std::to_string(random()));
        std::error_code error;
        if (std::filesystem::create_directory(folder, error)) {  // false where something of that name is there
            return folder;
        }
        if (error && error != std::errc::interrupted) {
            throw std::filesystem::filesystem_error("", folder, error);
        }
    }
    throw RuntimeFault(fault::FileAlreadyExists);
}

/// For this user alone.
void MakePrivate(const std::filesystem::path& folder) {
    std::error_code error;
    const auto set = [&](std::error_code& code) {
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, code);
        return !code;
    };
    if (!AskAgain(set, error)) {
        throw std::filesystem::filesystem_error("", folder, error);
    }
}

/// Windows takes a folder for being used until the last of a process is gone that worked in it, which may be a moment
/// after its end, and until scanners of viruses have looked at its files.
void RemoveFolder(const std::filesystem::path& folder) {
    using namespace std::chrono_literals;
    constexpr int MostLooks = 100;
    for (int looks = 0; looks < MostLooks; ++looks) {
        std::error_code error;
        std::filesystem::remove_all(folder, error);
        if (!error) {
            return;
        }
        std::this_thread::sleep_for(20ms);
    }
}

std::string Utf8Of(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

}  // namespace

TemporaryFolder::TemporaryFolder() : earlier_(CurrentFolder()) {
    {
        const NotInterrupted untilItIsNoted;
        folder_ = MakeFreshFolder();
    }
    try {
        MakePrivate(folder_);
        ChangeFolder(Utf8Of(folder_));
    } catch (...) {
        const NotInterrupted untilItIsGone;
        Remove();
        throw;
    }
}

TemporaryFolder::~TemporaryFolder() {
    const NotInterrupted untilItIsGone;
    try {
        ChangeFolder(earlier_);
    } catch (const RuntimeFault&) {  // someone has removed it; the picture's folder is judged when it is written
    }
    Remove();
}

/// From outside of it, since some systems remove no folder in which a program stands.
void TemporaryFolder::Remove() {
    if (!folder_.empty()) {
        std::error_code ignored;
        std::filesystem::current_path(std::filesystem::path(std::u8string(earlier_.begin(), earlier_.end())), ignored);
        RemoveFolder(folder_);
        folder_.clear();
    }
}

}  // namespace zirvo::batch
