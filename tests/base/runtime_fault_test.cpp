// Numbers and words of the faults.
#include "base/runtime_fault.h"

#include <gtest/gtest.h>

#include <map>

namespace zirvo {
namespace {

TEST(RuntimeFault, EachNumberOfTheTableHasItsWords) {
    const std::map<int, std::string> words{{5, "Invalid procedure call or argument"},
                                           {6, "Overflow"},
                                           {9, "Subscript out of range"},
                                           {11, "Division by zero"},
                                           {13, "Type mismatch"},
                                           {52, "Bad file name or number"},
                                           {53, "File not found"},
                                           {55, "File already open"},
                                           {57, "Device I/O error"},
                                           {58, "File already exists"},
                                           {61, "Disk full"},
                                           {62, "Input past end of file"},
                                           {70, "Permission denied"},
                                           {75, "Path/File access error"},
                                           {76, "Path not found"}};
    for (const auto& [number, description] : words) {
        EXPECT_EQ(FaultDescription(number), description) << number;
    }
}

TEST(RuntimeFault, NumberOutsideTheTableHasTheCommonWords) {
    EXPECT_EQ(FaultDescription(0), "Application-defined error");
    EXPECT_EQ(FaultDescription(-1), "Application-defined error");
    EXPECT_EQ(FaultDescription(20001), "Application-defined error");
}

TEST(RuntimeFault, CarriesItsNumberAndTheWordsOfTheTable) {
    const RuntimeFault fault(fault::Overflow);
    EXPECT_EQ(fault.Number(), 6);
    EXPECT_STREQ(fault.what(), "Overflow");
}

TEST(RuntimeFault, IsAboutNothingUntilItIsSaidAndTheNearestPlaceKnowsBest) {
    RuntimeFault fault(fault::FileNotFound);
    EXPECT_EQ(fault.About(), FaultSubject());
    fault.SayAbout(FaultMatter::File, "/a");
    fault.SayAbout(FaultMatter::Folder, "/b");
    EXPECT_EQ(fault.About(), (FaultSubject{FaultMatter::File, "/a", ""}));
    fault.SayInstead(FaultMatter::Program, "/c");
    fault.GiveReason("why");
    EXPECT_EQ(fault.About(), (FaultSubject{FaultMatter::Program, "/c", "why"}));
    EXPECT_EQ(fault.Number(), 53);
}

TEST(RuntimeFault, CarriesWordsOfItsOwn) {
    const RuntimeFault fault(20001, "dialog failed");
    EXPECT_EQ(fault.Number(), 20001);
    EXPECT_STREQ(fault.what(), "dialog failed");
}

}  // namespace
}  // namespace zirvo
