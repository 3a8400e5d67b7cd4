// The control file and the hidden process.
#include "pavement/solver_process.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "base/runtime_fault.h"
#include "pavement/scripted_process.h"
#include "pavement/support.h"

namespace zirvo {
namespace {

using test::ScriptedProcess;

TEST(ControlFile, IsEightLinesWithPrintedIntegers) {
    EXPECT_EQ(ControlFileBytes(2, UnitSystem::KnToMPa, "INPUT FILENAME", "Untitled.eva"),
              "LANGUAGE PREFERENCE\r\n"
              " 2 \r\n"
              "\r\n"
              "INPUT/OUTPUT UNITS OF MEASUREMENT\r\n"
              " 3 \r\n"
              "\r\n"
              "INPUT FILENAME\r\n"
              "Untitled.eva\r\n");
}

TEST(ControlFile, HeadingsAreTheSameInJapaneseAndTheNameHeadingIsTheCallers) {
    EXPECT_EQ(ControlFileBytes(1, UnitSystem::KgfToKgf, "Input FileName", "ZIRVO_SV.EVA"),
              "LANGUAGE PREFERENCE\r\n 1 \r\n\r\nINPUT/OUTPUT UNITS OF MEASUREMENT\r\n 1 \r\n\r\n"
              "Input FileName\r\nZIRVO_SV.EVA\r\n");
}

TEST(ControlFile, NamesAreInTheCodePageOrUtf8WhereItCannotHoldThem) {
    EXPECT_NE(ControlFileBytes(1, UnitSystem::KgfToKgf, "x", "舗装.eva").find("\x95\xDC\x91\x95.eva\r\n"),
              std::string::npos);
    EXPECT_NE(ControlFileBytes(1, UnitSystem::KgfToKgf, "x", "Straße.eva")
                  .find("Stra\xC3\x9F"
                        "e.eva\r\n"),
              std::string::npos);
}

TEST(ControlFile, WithoutLanguageAndUnitsTheNumbersAreZero) {
    const std::string bytes = ControlFileBytes(0, UnitSystem::None, "x", "a.eva");
    EXPECT_NE(bytes.find("PREFERENCE\r\n 0 \r\n"), std::string::npos);
    EXPECT_NE(bytes.find("MEASUREMENT\r\n 0 \r\n"), std::string::npos);
}

TEST(ControlFile, ANameThatWouldBecomeAnotherOneInTheFileIsFaultFiftyTwo) {
    // No UTF-8, as a name of Linux may be; and half-width katakana that are C3 A9 in the code page, which is UTF-8 for
    // a letter that the code page lacks, and so is taken for that.
    for (const std::string& name : {std::string("a.eva\nb.eva"), std::string("a\r.eva"), std::string("a\0b.eva", 7),
                                    std::string("a\xFF.eva"), std::string("ﾃｩ.eva")}) {
        EXPECT_EQ(FaultOf([&] { ControlFileBytes(1, UnitSystem::KgfToKgf, "x", name); }), 52);
    }
}

TEST(LanguageNumber, IsOneForJapaneseAndTwoForEnglish) {
    EXPECT_EQ(LanguageNumberOf(100), 1);
    EXPECT_EQ(LanguageNumberOf(273), 2);
    EXPECT_EQ(LanguageNumberOf(0), 0);
}

class RunHiddenTest : public testing::Test {
protected:
    std::vector<std::string> Log;
    ScriptedProcess Process{Log};
    ProcessCallbacks Callbacks{[this] { Log.push_back("handle obtained"); }, [this] { Log.push_back("wait over"); }};
};

using Lines = std::vector<std::string>;

TEST_F(RunHiddenTest, OpensWaitsAndClosesBetweenTheCallbacks) {
    RunHidden(Process, "solver", StartFailure::Fault, Callbacks);
    EXPECT_EQ(Log, (Lines{"start solver", "open 41", "handle obtained", "wait 7", "close 7", "wait over"}));
}

/// Has ended at the third look.
class ThirdLook : public test::ScriptedProcess {
public:
    using ScriptedProcess::ScriptedProcess;
    bool WaitFor(std::intptr_t handle, int /*milliseconds*/) override {
        Log.push_back("look " + std::to_string(handle));
        return ++looks_ == 3;
    }

private:
    int looks_ = 0;
};

TEST_F(RunHiddenTest, CallsBackBetweenTheLooksWhereSomebodyWantsToKnow) {
    ThirdLook process(Log);
    Callbacks.Waiting = [this] { Log.emplace_back("waiting"); };
    RunHidden(process, "solver", StartFailure::Fault, Callbacks);
    EXPECT_EQ(Log, (Lines{"start solver", "open 41", "handle obtained", "look 7", "waiting", "look 7", "waiting",
                          "look 7", "close 7", "wait over"}));
}

TEST_F(RunHiddenTest, WithoutAHandleThereIsNoWaitButTheWaitIsOver) {
    Process.Handle = 0;
    RunHidden(Process, "solver", StartFailure::Fault, Callbacks);
    EXPECT_EQ(Log, (Lines{"start solver", "open 41", "wait over"}));
}

TEST_F(RunHiddenTest, WithIdentifierZeroNothingMoreHappens) {
    Process.Identifier = 0;
    RunHidden(Process, "solver", StartFailure::Fault, Callbacks);
    EXPECT_EQ(Log, (Lines{"start solver"}));
}

TEST_F(RunHiddenTest, AFailedStartIsTheCallersFaultOrSilentAsTheCallerWantsIt) {
    Process.WorkInWait = false;
    Process.Work = [] { throw RuntimeFault(fault::FileNotFound); };
    EXPECT_EQ(FaultOf([&] { RunHidden(Process, "solver", StartFailure::Fault, Callbacks); }), 53);
    EXPECT_EQ(FaultOf([&] { RunHidden(Process, "solver", StartFailure::Silent, Callbacks); }), 0);
    EXPECT_EQ(Log, (Lines{"start solver", "start solver"}));
}

TEST_F(RunHiddenTest, TheHandleIsClosedAlsoWhenACallbackFaults) {
    Callbacks.HandleObtained = [] { throw RuntimeFault(fault::Overflow); };
    EXPECT_EQ(FaultOf([&] { RunHidden(Process, "solver", StartFailure::Silent, Callbacks); }), 6);
    EXPECT_EQ(Log.back(), "close 7");
}

TEST_F(RunHiddenTest, CallbacksMayBeMissing) {
    RunHidden(Process, "solver", StartFailure::Fault, {});
    EXPECT_EQ(Log.back(), "close 7");
}

}  // namespace
}  // namespace zirvo
