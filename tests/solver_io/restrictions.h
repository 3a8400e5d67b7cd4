// What a test takes away from itself for a while: rights, room for files. POSIX only, as the tests of it are.
#pragma once
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <string>

#include <gtest/gtest.h>

namespace zirvo::solver::test {

/// Root may write anywhere; this makes it an ordinary user until the end of the block.
class AsOrdinaryUser {
public:
    AsOrdinaryUser() : before_(geteuid()) {
        if (before_ == 0) {
            constexpr uid_t Nobody = 65534;
            EXPECT_EQ(seteuid(Nobody), 0);
        }
    }
    ~AsOrdinaryUser() {
        if (before_ == 0) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }
    AsOrdinaryUser(const AsOrdinaryUser&) = delete;
    AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;

private:
    uid_t before_;
};

/// No file may grow beyond so many bytes: what a full disk looks like to a writer.
class LargestFile {
public:
    explicit LargestFile(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &before_), 0);
        rlimit limit = before_;
        limit.rlim_cur = bytes;
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~LargestFile() {
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &before_), 0);
        std::signal(SIGXFSZ, handler_);
    }
    LargestFile(const LargestFile&) = delete;
    LargestFile& operator=(const LargestFile&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int);
};

inline void MakePipe(const std::string& name) {
    EXPECT_EQ(mkfifo(name.c_str(), 0666), 0);
}

}  // namespace zirvo::solver::test
