// A folder of its own for a test that works on real files.
#pragma once
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

#include "platform/utf8_path.h"

namespace zirvo {

#ifdef _WIN32
inline constexpr char Slash = '\\';
#else
inline constexpr char Slash = '/';
#endif

/// Made empty, and removed with all that is in it. Other users may enter and write, so that rights of files can be
/// tested from under another user.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        do {
            const std::string name = "zirvo-test-" + std::to_string(random());
            path_ = (std::filesystem::temp_directory_path() / name).string();
        } while (!std::filesystem::create_directory(path_));  // false: another test has taken that name
        std::filesystem::permissions(path_, std::filesystem::perms::all);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& Path() const { return path_; }
    std::string Path(const std::string& name) const {
        std::string path = path_ + Slash + name;
        if (Slash != '/') {  // as the program itself would put it
            std::replace(path.begin(), path.end(), '/', Slash);
        }
        return path;
    }

    /// Writes a file with these bytes, by other means than those under test; gives its path.
    std::string Put(const std::string& name, std::string_view bytes) const {
        std::ofstream file(test::Utf8Path(Path(name)), std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return Path(name);
    }

    /// The bytes of a file; "<missing>" where there is none.
    std::string Get(const std::string& name) const {
        std::ifstream file(test::Utf8Path(Path(name)), std::ios::binary);
        if (!file) {
            return "<missing>";
        }
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    bool Has(const std::string& name) const {
        return std::filesystem::exists(std::filesystem::symlink_status(test::Utf8Path(Path(name))));
    }

    /// Number of entries, hidden ones included.
    std::size_t Entries() const {
        std::size_t count = 0;
        for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(path_)) {
            ++count;
        }
        return count;
    }

private:
    std::string path_;
};

}  // namespace zirvo
