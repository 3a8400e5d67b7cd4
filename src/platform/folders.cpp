// Folders by the means of the standard library, see folders.h. Where the state of programs lies is the system's own.
#include "platform/folders.h"

#include <algorithm>
#include <filesystem>

#include "platform/ask_again.h"

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

/// Does it again while a signal interrupts it. Gives whether it went through.
template <class Act>
bool Again(const Act& act) {
    std::error_code error;
    const auto done = [&](std::error_code& code) {
        act(code);
        return !code;
    };
    return AskAgain(done, error);
}

/// What stands there; file_type::none where it cannot be known.
fs::file_type TypeOf(const std::string& path) {
    fs::file_type type = fs::file_type::none;
    Succeeds([&] {
        const fs::path file = PathOf(path);
        std::error_code error;
        type = AskAgain([&](std::error_code& code) { return fs::status(file, code).type(); }, error);
        return true;
    });
    return type;
}

}  // namespace

bool MakePrivateFolders(const std::string& path) {
    return Succeeds([&] {
        const fs::path folder = PathOf(path);
        if (IsFolder(path)) {
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
        if (!AskAgain([&](std::error_code& code) { return fs::create_directory(folder, code); }, error)) {
            return false;
        }
        Again([&](std::error_code& code) { fs::permissions(folder, fs::perms::owner_all, code); });
        return true;
    });
}

bool IsFolder(const std::string& path) {
    return TypeOf(path) == fs::file_type::directory;
}

bool IsGone(const std::string& path) {
    return TypeOf(path) == fs::file_type::not_found;
}

std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    const bool all = Succeeds([&] {
        return Again([&](std::error_code& error) {
            names.clear();
            for (fs::directory_iterator entry(PathOf(folder), error), end; !error && entry != end;
                 entry.increment(error)) {
                names.push_back(TextOf(entry->path().filename()));
            }
        });
    });
    if (!all) {
        names.clear();
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool MoveOver(const std::string& from, const std::string& to) {
    return Succeeds(
        [&] { return Again([&](std::error_code& error) { fs::rename(PathOf(from), PathOf(to), error); }); });
}

bool RemoveIfThere(const std::string& path) {
    return Succeeds([&] { return Again([&](std::error_code& error) { fs::remove(PathOf(path), error); }); });
}

std::optional<std::int64_t> WrittenAt(const std::string& path) {
    std::optional<std::int64_t> time;
    Succeeds([&] {
        std::error_code error;
        const fs::path file = PathOf(path);
        const auto written = AskAgain([&](std::error_code& code) { return fs::last_write_time(file, code); }, error);
        if (!error && TypeOf(path) == fs::file_type::regular) {
            time = written.time_since_epoch().count();
        }
        return true;
    });
    return time;
}

}  // namespace zirvo
