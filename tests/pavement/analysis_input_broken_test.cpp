// Analysis input files that are no such files, are cut off, or cannot be read.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>

#include "pavement/analysis_input.h"
#include "pavement/read_bytes.h"
#include "pavement/support.h"
#include "platform/in_child.h"
#include "platform/peak_memory.h"
#include "text/catalogue.h"

namespace zirvo {
namespace {

using Error = InputError;
using test::ExampleFile;
using test::Replaced;

std::vector<Finding> FindingsOf(const std::string& bytes) {
    std::istringstream stream(bytes);
    return CheckAnalysisInput(stream);
}

/// A stream of one byte, repeated; then its end.
class EndlessBuffer : public std::streambuf {
public:
    EndlessBuffer(char byte, std::size_t count) : block_(65536, byte), left_(count) {}

protected:
    int_type underflow() override {
        if (left_ == 0) {
            return traits_type::eof();
        }
        const std::size_t length = std::min(left_, block_.size());
        left_ -= length;
        setg(block_.data(), block_.data(), block_.data() + length);
        return traits_type::to_int_type(block_[0]);
    }

private:
    std::string block_;
    std::size_t left_;
};

/// A stream that breaks off with an error of the device.
class BreakingBuffer : public std::stringbuf {
public:
    explicit BreakingBuffer(const std::string& bytes) : std::stringbuf(bytes) {}

protected:
    int_type underflow() override { throw std::runtime_error("the device is gone"); }
};

TEST(BrokenInput, AFileCutAtAnyByteReadsOrFails) {
    const std::string whole = ExampleFile();
    // The last number, "5", stands before the final line end: from there on the file is complete. And "0.4" cut to "0"
    // or "0." is a Poisson ratio of 0, which is judged before the file's end is met.
    const std::size_t complete = whole.size() - 2;
    const std::size_t ratio = whole.find("0.4\r\n");
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        const AnalysisInputResult result = ReadAnalysis(cut);
        const bool zeroRatio = length == ratio + 1 || length == ratio + 2;
        EXPECT_EQ(result.Passed(), length >= complete) << length;
        if (!result.Passed()) {
            EXPECT_EQ(result.Failure().Error, zeroRatio ? Error::LayerInvalid : Error::ReadFailed) << length;
        }
        EXPECT_EQ(FindingsOf(cut).empty(), result.Passed()) << length;
    }
}

TEST(BrokenInput, AFileCutInsideItsNumbersMayReadAsAnotherNumberButNeverCrashes) {
    PavementModel model = test::ExampleModel();
    model.LayerCount = 3;
    model.Layers[2] = {1234.5, 0.35, 1e-7, 0.99};
    model.Layers[3] = {100, 0.4, 0, 0};
    model.PointCount = 2;
    model.Points[2] = {3, 1e15, -2.5, 123.456};
    const std::string whole = WriteAnalysisInput(model, UnitSystem::KgfToKgf, JapaneseBase);
    int passed = 0;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const AnalysisInputResult result = ReadAnalysis(whole.substr(0, length));
        passed += result.Passed() ? 1 : 0;
    }
    // "123.456" cut to "12" to "123.456", and with CR and LF: 6 + 2 lengths pass; "1" lies above layer 3 at 5.0000001
    // cm.
    EXPECT_EQ(passed, 8);
}

TEST(BrokenInput, EveryByteReplacedByRubbishNeverCrashesAndTheCheckAgreesWithTheRead) {
    const std::string whole = ExampleFile();
    for (const char rubbish : {'\0', '\r', '\n', ',', '"', '-', '9', '\x81', '\xFF'}) {
        for (std::size_t at = 0; at < whole.size(); ++at) {
            std::string bytes = whole;
            bytes[at] = rubbish;
            const AnalysisInputResult result = ReadAnalysis(bytes);
            const std::vector<Finding> findings = FindingsOf(bytes);
            ASSERT_EQ(findings.empty(), result.Passed()) << at;
            if (!result.Passed()) {
                EXPECT_EQ(findings.front(), result.Failure().First) << at;
            }
        }
    }
}

TEST(BrokenInput, NumbersThatTouchAreMisreadOrRejected) {
    EXPECT_EQ(ReadAnalysis(Replaced(ExampleFile(), "35000             0.35", "350000.333333333333333")).Failure().Error,
              Error::LayerInvalid)
        << "350000.33 is a modulus, 5 then is the Poisson ratio";
    EXPECT_EQ(ReadAnalysis(Replaced(ExampleFile(), "35000             0.35", "31.670.333333333333333")).Failure().Error,
              Error::ReadFailed);
    EXPECT_EQ(ReadAnalysis(Replaced(ExampleFile(), "15                0", "15-1")).Failure().Error, Error::ReadFailed);
}

TEST(BrokenInput, NulBytesAmongTheNumbersFailTheRead) {
    EXPECT_EQ(ReadAnalysis(Replaced(ExampleFile(), "0.4\r\n", std::string("0.4\0\r\n", 6))).Failure().Error,
              Error::ReadFailed);
    EXPECT_EQ(ReadAnalysis(std::string(4096, '\0')).Failure().Error, Error::ReadFailed);
}

TEST(BrokenInput, NothingAtAllFailsTheRead) {
    EXPECT_EQ(ReadAnalysis("").Failure().Error, Error::ReadFailed);
    EXPECT_EQ(ReadAnalysis("\r\n").Failure().Error, Error::ReadFailed);
    EXPECT_EQ(ReadAnalysis("\x1A").Failure().Error, Error::ReadFailed);
}

TEST(BrokenInput, LargeCountsTakeNoMemoryBeforeTheyAreJudged) {
    const long before = test::PeakMemory();
    for (const char* count : {"32767", "40000", "3000000000", "99999999999999999999"}) {
        for (int place = 0; place < 3; ++place) {
            std::string counts;
            for (int i = 0; i < 3; ++i) {
                counts += std::string(i == place ? count : "1") + " ";
            }
            EXPECT_EQ(ReadAnalysis(Replaced(ExampleFile(), "  2         1          1", counts)).Failure().Error,
                      Error::ReadFailed);
        }
    }
    EXPECT_LT(test::PeakMemory() - before, 64L * 1024);
}

TEST(BrokenInput, AFloodOfBlanksDoesNotEatTheMemory) {
    const long before = test::PeakMemory();
    EndlessBuffer blanks(' ', std::size_t{256} << 20);
    std::istream stream(&blanks);
    EXPECT_EQ(ReadAnalysisInput(stream).Failure().Error, Error::ReadFailed);
    EXPECT_LT(test::PeakMemory() - before, 64L * 1024);
}

TEST(BrokenInput, AFloodOfLettersDoesNotEatTheMemory) {
    const long before = test::PeakMemory();
    EndlessBuffer letters('x', std::size_t{256} << 20);
    std::istream stream(&letters);
    const AnalysisInputResult result = ReadAnalysisInput(stream);
    EXPECT_EQ(result.Failure().Error, Error::ReadFailed);
    EXPECT_EQ(FindingText(result.Failure().First), "file: is longer than any field may be");
    EXPECT_LT(test::PeakMemory() - before, 64L * 1024);
}

TEST(BrokenInput, AStreamThatBreaksOffFailsTheReadAndIsNoShorterFile) {
    BreakingBuffer buffer(ExampleFile().substr(0, ExampleFile().size() - 3));  // without the last "5"
    std::istream stream(&buffer);
    const AnalysisInputResult result = ReadAnalysisInput(stream);
    EXPECT_EQ(result.Failure().Error, Error::ReadFailed);
    EXPECT_EQ(FindingText(result.Failure().First), "file: Device I/O error");
}

TEST(BrokenInput, AMissingFileFailsTheRead) {
    const test::WorkFolder folder;
    EXPECT_EQ(ReadAnalysisInput("missing.eva").Failure().Error, Error::ReadFailed);
    EXPECT_EQ(FindingText(CheckAnalysisInput("missing.eva").at(0)), "file: File not found");
    EXPECT_EQ(FindingText(CheckAnalysisInput("no/folder/missing.eva").at(0)), "file: Path not found");
    EXPECT_EQ(ReadAnalysisInput("").Failure().Error, Error::ReadFailed);
}

TEST(BrokenInput, AFolderInPlaceOfAFileFailsTheRead) {
    const test::WorkFolder folder;
    std::filesystem::create_directory("run.eva");
    const AnalysisInputResult result = ReadAnalysisInput("run.eva");
    EXPECT_EQ(result.Failure().Error, Error::ReadFailed);
    EXPECT_EQ(FindingText(result.Failure().First), "file: Path/File access error");
}

TEST(BrokenInput, AFileOfZeroBytesFailsTheRead) {
    const test::WorkFolder folder;
    test::PutFile("run.eva", "");
    EXPECT_EQ(ReadAnalysisInput("run.eva").Failure().Error, Error::ReadFailed);
}

TEST(BrokenInput, AFileWithoutTheRightToReadFailsTheRead) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can become another user";
    }
    const test::WorkFolder folder;
    test::PutFile("run.eva", ExampleFile());
    ASSERT_EQ(chmod("run.eva", 0600), 0);
    EXPECT_TRUE(ReadAnalysisInput("run.eva").Passed());
    const int told = FaultAsOrdinaryUser([] {
        const AnalysisInputResult result = ReadAnalysisInput("run.eva");
        if (!result.Passed() && result.Failure().Error == Error::ReadFailed &&
            FindingText(result.Failure().First) == "file: Permission denied") {
            throw RuntimeFault(fault::PermissionDenied);  // the child can say a number only
        }
    });
    EXPECT_EQ(told, 70);
}

}  // namespace
}  // namespace zirvo
