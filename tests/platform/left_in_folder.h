// A folder in which killed programs have left files.
#pragma once
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "platform/files.h"
#include "platform/folders.h"
#include "platform/temporary_folder.h"
#include "platform/temporary_names.h"
#include "platform/utf8_path.h"

namespace zirvo::test {

constexpr const char* Left = ".zirvo-12-3.tmp";

class LeftTemporaries : public testing::Test {
protected:
    const TemporaryFolder folder_;

    void MakeOlder(const std::string& name, std::chrono::hours age) const {
        std::filesystem::last_write_time(Utf8Path(folder_.Path(name)),
                                         std::filesystem::file_time_type::clock::now() - age);
    }
    void PutOld(const std::string& name) const {
        folder_.Put(name, "half a rep");
        MakeOlder(name, std::chrono::hours(25));
    }
    void Write() const {
        WriteWholeFile(folder_.Path("road.eva"), "new");
        EXPECT_EQ(folder_.Get("road.eva"), "new");
    }
    /// The one temporary file in the folder.
    std::string OneThere() const {
        std::string found;
        for (const std::string& name : NamesIn(folder_.Path())) {
            if (IsTemporaryName(name)) {
                EXPECT_EQ(found, "");
                found = name;
            }
        }
        EXPECT_NE(found, "");
        return found;
    }
};

}  // namespace zirvo::test
