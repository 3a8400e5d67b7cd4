#include "platform/open_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <iterator>
#include <string>

#include "platform/files.h"
#include "platform/in_child.h"
#include "platform/temporary_folder.h"

namespace zirvo {
namespace {

int FaultOfOpening(const std::string& path) {
    try {
        OpenForReading(path);
        return 0;
    } catch (const RuntimeFault& caught) {
        return caught.Number();
    }
}

TEST(OpenForReading, GivesTheBytesAsTheyStand) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("路.eva");
    WriteWholeFile(path, std::string("a\r\n\0b", 5));
    std::ifstream file = OpenForReading(path);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), std::string("a\r\n\0b", 5));
}

TEST(OpenForReading, SaysWhyAFileCannotBeRead) {
    const TemporaryFolder folder;
    EXPECT_EQ(FaultOfOpening(folder.Path("none.eva")), fault::FileNotFound);
    EXPECT_EQ(FaultOfOpening(folder.Path("none/a.eva")), fault::PathNotFound);
    EXPECT_EQ(FaultOfOpening(folder.Path("")), fault::PathAccess);
}

// Opening a pipe for reading would wait for a writer that never comes.
TEST(OpenForReading, RefusesAPipeInsteadOfWaitingForIt) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("pipe.eva");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(FaultOfOpening(path), fault::PathAccess);
}

TEST(OpenForReading, NeedsTheRightToRead) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("secret.eva");
    WriteWholeFile(path, "x");
    chmod(path.c_str(), 0);
    EXPECT_EQ(FaultAsOrdinaryUser([&] { OpenForReading(path); }), fault::PermissionDenied);
}

}  // namespace
}  // namespace zirvo
