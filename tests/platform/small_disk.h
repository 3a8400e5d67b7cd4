// A disk of a few blocks, for tests of what happens when it is full.
#pragma once
#include <sys/mount.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

namespace zirvo::test {

/// Stands in a folder, which must be empty, as long as it lives.
class SmallDisk {
public:
    /// @param kilobytes  a multiple of 4
    SmallDisk(std::filesystem::path folder, int kilobytes) : folder_(std::move(folder)) {
        std::filesystem::create_directories(folder_);
        const std::string options = "size=" + std::to_string(kilobytes) + "k";
        mounted_ = mount("tmpfs", folder_.c_str(), "tmpfs", 0, options.c_str()) == 0;
    }
    ~SmallDisk() {
        if (mounted_) {
            umount2(folder_.c_str(), MNT_DETACH);  // also while somebody still stands in it
        }
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    /// Only root may mount a disk, and not in every container.
    bool IsThere() const { return mounted_; }
    /// Takes the room that is left, in a file of its own.
    /// @param spared  kilobytes that stay free, a multiple of 4
    void Fill(int spared = 0) const {
        std::ofstream out(folder_ / "filler", std::ios::binary);
        const std::string block(4096, 'x');
        std::uintmax_t written = 0;
        while (out.write(block.data(), static_cast<std::streamsize>(block.size())).flush()) {
            written += block.size();
        }
        out.close();
        std::filesystem::resize_file(folder_ / "filler", written - static_cast<std::uintmax_t>(spared) * 1024);
    }

private:
    std::filesystem::path folder_;
    bool mounted_ = false;
};

}  // namespace zirvo::test
