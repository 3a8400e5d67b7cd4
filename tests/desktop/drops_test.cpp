// Files that the user drops on a data screen from another program.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "desktop/desktop_session.h"

namespace zirvo::window_tests {
namespace {

namespace fs = std::filesystem;

struct Dropped {
    const char* Form;
    const char* Objective;
    const char* Sample;
    const char* Other;  ///< a file of the other screen
    const char* Count;  ///< label of the layers
};

class Drops : public testing::TestWithParam<Dropped> {
protected:
    Drops() {
        std::ofstream(session_.ProgramFolder() / "zirvo_sv.ini")
            << session_.WorkFolder().string() << "\r\n 3 \r\n " << GetParam().Objective << " \r\n";
        for (const char* sample : {GetParam().Sample, GetParam().Other}) {
            fs::copy(fs::path(ZIRVO_SAMPLES) / sample, session_.WorkFolder());
        }
        session_.Start();
        session_.Key("Down");
        session_.Language(forms::Language::English);
        session_.Key("Return");
        session_.WaitForWindow("Form2");
        session_.Key("Return");
        session_.WaitForWindow(GetParam().Form);
    }
    fs::path File(const char* name) const { return session_.WorkFolder() / name; }
    /// Over the first table, and then let go there.
    void DropOnTheTable() {
        session_.MoveTo(GetParam().Form, "MSFlexGrid1", {60, 60});
        session_.MoveTo(GetParam().Form, "MSFlexGrid1", {64, 64});
        session_.WaitForDragNote("accepted");
        session_.Release();
        session_.WaitForDragNote("copied");
    }

    DesktopSession session_;
};

TEST_P(Drops, AFileOfTheScreenIsImported) {
    const auto [form, objective, sample, other, count] = GetParam();
    const QImage empty = session_.Picture(form, count);
    session_.Drag(File(sample));
    DropOnTheTable();
    session_.AnswerBox(1);  // UPDATE INPUT FILE? No
    session_.WaitForWindow(form);
    EXPECT_NE(session_.Picture(form, count), empty);
    session_.Key("Return");  // the focus is on ANALYZE, or TO GRAPHICS
    session_.WaitForWindow(form == std::string("Form3") ? "Form4" : "Form6");
}

TEST_P(Drops, AFileIsTakenWhereOpenFileWaitsForIt) {
    const char* form = GetParam().Form;
    session_.Click(form, "Option2");
    session_.Drag(File(GetParam().Sample));
    DropOnTheTable();
    session_.AnswerBox(0);
    session_.WaitForWindow(form);
    session_.Key("Return");  // DATA OK!
    session_.Key("Return");  // SAVE DATA asks about the file that is there
    session_.WaitForWindow("MessageBox");
}

TEST_P(Drops, AnotherFileIsRefusedAndNothingHappens) {
    const char* form = GetParam().Form;
    session_.Drag(File(GetParam().Other));
    session_.MoveTo(form, "MSFlexGrid1", {60, 60});
    session_.MoveTo(form, "MSFlexGrid1", {64, 64});
    session_.Release();
    session_.WaitForDragNote("refused");
    EXPECT_EQ(session_.DragNotes().find("accepted"), std::string::npos);
    session_.Click(form, "Option2");
    session_.Click(form, "Command1");
    session_.WaitForWindow("FileDialog");  // the screen is as it was
    session_.Key("Escape");
    session_.WaitForNoWindow("FileDialog");
    EXPECT_FALSE(session_.IsShown("MessageBox"));
}

TEST_P(Drops, NoFileIsTakenWhereDataStand) {
    const char* form = GetParam().Form;
    session_.Click(form, "Option1");
    const QImage none = session_.Picture(form, GetParam().Count);
    session_.Click(form, "VScroll1");
    session_.Type("3");
    session_.Key("Return");
    session_.WaitUntilItChanges(form, GetParam().Count, none);
    session_.Drag(File(GetParam().Sample));
    const QImage three = session_.Picture(form, GetParam().Count);  // the bubble of the digit has gone by now
    session_.MoveTo(form, "MSFlexGrid1", {60, 60});
    session_.MoveTo(form, "MSFlexGrid1", {64, 64});
    session_.Release();
    session_.WaitForDragNote("refused");
    EXPECT_EQ(session_.Picture(form, GetParam().Count), three);
    EXPECT_FALSE(session_.IsShown("MessageBox"));
}

INSTANTIATE_TEST_SUITE_P(Screens, Drops,
                         testing::Values(Dropped{"Form3", "1", "road.eva", "road.ven", "Label7"},
                                         Dropped{"Form5", "2", "road.ven", "road.eva", "Label4"}),
                         [](const auto& dropped) { return dropped.param.Form; });

}  // namespace
}  // namespace zirvo::window_tests
