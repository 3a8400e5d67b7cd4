// Folders by the means of the standard library, see folders.h. Where the state of programs lies is the system's own.
#include "platform/folders.h"

#include <algorithm>
#include <filesystem>

namespace zirvo {
namespace {

namespace fs = std::filesystem;

fs::path PathOf(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string TextOf(const fs::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

/// A call that cannot be made (no memory, a name that the system's encoding cannot hold) has failed like any other.
template <class Call>
bool Succeeds(const Call& call) {
    try {
        return call();
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace

bool MakePrivateFolders(const std::string& path) {
    return Succeeds([&] {
        const fs::path folder = PathOf(path);
        std::error_code error;
        if (fs::is_directory(folder, error)) {
            return true;
        }
        const fs::path above = folder.parent_path();
        return (above == folder || above.empty() || MakePrivateFolders(TextOf(above))) && MakeNewFolder(path);
    });
}

bool MakeNewFolder(const std::string& path) {
    return Succeeds([&] {
        const fs::path folder = PathOf(path);
        std::error_code error;
        bool made = false;
        do {
            made = fs::create_directory(folder, error);
        } while (error == std::errc::interrupted);
        if (!made || error) {
            return false;
        }
        fs::permissions(folder, fs::perms::owner_all, error);
        return true;
    });
}

std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    Succeeds([&] {
        std::error_code error;
        for (fs::directory_iterator entry(PathOf(folder), error), end; !error && entry != end; entry.increment(error)) {
            names.push_back(TextOf(entry->path().filename()));
        }
        return true;
    });
    std::sort(names.begin(), names.end());
    return names;
}

bool MoveOver(const std::string& from, const std::string& to) {
    return Succeeds([&] {
        std::error_code error;
        do {
            fs::rename(PathOf(from), PathOf(to), error);
        } while (error == std::errc::interrupted);
        return !error;
    });
}

bool RemoveIfThere(const std::string& path) {
    return Succeeds([&] {
        std::error_code error;
        do {
            fs::remove(PathOf(path), error);
        } while (error == std::errc::interrupted);
        return !error;
    });
}

std::optional<std::int64_t> WrittenAt(const std::string& path) {
    std::optional<std::int64_t> time;
    Succeeds([&] {
        std::error_code error;
        const fs::path file = PathOf(path);
        const auto written = fs::last_write_time(file, error);
        if (!error && fs::is_regular_file(file, error)) {
            time = written.time_since_epoch().count();
        }
        return true;
    });
    return time;
}

}  // namespace zirvo
