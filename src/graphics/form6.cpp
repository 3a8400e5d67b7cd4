// The road from the load of the map screen to the choice of a section, and the buttons that lead away; see form6.h. The
// run stands in form6_run.cpp, the work on a standing map in form6_map.cpp, places and words in form6_layout.cpp.
//
// Setting a box or a text raises the events of its change, which enable and disable buttons on their own. So each
// handler sets the enabled states that it is to leave last.
#include "graphics/form6.h"

#include <utility>

#include "dialogs/common_dialog.h"
#include "graphics/form5.h"
#include "graphics/picture_file.h"
#include "shell/combo_auto_complete.h"
#include "shell/form2.h"
#include "shell/layout.h"
#include "shell/screen_language.h"
#include "text/catalogue.h"
#include "text/number_text.h"
#include "text/version_stamp.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::Buttons;
using forms::Icon;

constexpr Int16 TitleStamp = 2;
/// A failure of a dialog that is told; nothing in this system raises it.
constexpr int ToldDialogFailure = 32755;

}  // namespace

Form6::Form6(forms::Application& application, MapPictureFactory makePicture, std::string programFolder,
             std::shared_ptr<ProcessService> process)
    : forms::Form(application, FormName),
      makePicture_(std::move(makePicture)),
      programFolder_(std::move(programFolder)),
      process_(std::move(process)) {
    LayOut();
    BindEvents();
}

void Form6::BindEvents() {
    Combo1.Click = [this] { Combo1_Click(); };
    Combo1.KeyPress = [this](int& keyAscii) { Combo1_KeyPress(keyAscii); };
    Combo1.LostFocus = [this] { Combo1_LostFocus(); };
    Option3.Click = [this] { Option3_Click(); };
    Option4.Click = [this] { Option4_Click(); };
    Option5.Click = [this] { Option5_Click(); };
    Text1.Change = [this] { Text1_Change(); };
    Text2.Change = [this] { Text2_Change(); };
    Text3.Change = [this] { Text3_Change(); };
    Text4.Change = [this] { Text4_Change(); };
    Text14.Change = [this] { Text14_Change(); };
    Text3.KeyPress = [this](int& keyAscii) { Text3_KeyPress(keyAscii); };
    Text4.KeyPress = [this](int& keyAscii) { Text4_KeyPress(keyAscii); };
    Text3.KeyDown = [this](int& keyCode) { Text3_KeyDown(keyCode); };
    Text4.KeyDown = [this](int& keyCode) { Text4_KeyDown(keyCode); };
    Text14.KeyDown = [this](int& keyCode) { Text14_KeyDown(keyCode); };
    for (int i = 0; i < DisplayItemCount; ++i) {
        Check1(i).Click = [this] { Check1_Click(); };
    }
    Command1.Click = [this] { Command1_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    Command3.Click = [this] { Command3_Click(); };
    Command5.Click = [this] { Command5_Click(); };
    Command6.Click = [this] { Command6_Click(); };
    Command7.Click = [this] { Command7_Click(); };
    Command8.Click = [this] { Command8_Click(); };
    Command9.Click = [this] { Command9_Click(); };
    Command10.Click = [this] { Command10_Click(); };
    BindCopyKey();
    Picture1.MouseDown = [this](int button, int x, int y) { Picture1_MouseDown(button, x, y); };
}

void Form6::Form_Load() {
    Caption = MakeVersionStamp(TitleStamp);
    TrimSystemMenu(*this);
    ScaleToScreen(*this);
    LanguageBase = LanguageBaseOf(App());
    MakePicture();
    SetCaptions();
    Combo1.Text = "";
    Combo1.AddItem(Words(83));
    Combo1.AddItem(Words(84));

    DataReady = false;
    ContourPanelOpen = false;
    Frame4.Visible = false;
    Text14.Text = "20";
    Label24.Visible = false;
    Text1.Visible = false;
    Text2.Visible = false;
    Label1.Visible = false;
    Label2.Visible = false;
    Option5.Enabled = false;
    ReturnToSectionChoice(false);
}

void Form6::MakePicture() {
    picture_ = makePicture_(Picture1);
    PlotSurface& surface = picture_->Surface();
    surface.BackColor = {0, 0, 0};
    surface.ForeColor = {255, 255, 255};
    surface.FontName = "arial";
    surface.FontSize = FontPoints::Ten;
    ClearPicture();
}

void Form6::ClearPicture() {
    drawn_.reset();
    picture_->Surface().Cls();
    picture_->Present();
}

void Form6::Combo1_Click() {
    component_ = Combo1.ListIndex;
    Plot.Section.OutputComponent = ToInt16(Combo1.ListIndex + 1);
    ClearPicture();
    if (!Command7.Enabled) {
        ReturnToSectionChoice(true);
        return;
    }
    // A map stands, and its data with it: RE-DRAW takes the other component out of the report.
    ResetItems();
    Text3.Text = "";
    Text4.Text = "";
    Command5.Enabled = true;
}

void Form6::Combo1_KeyPress(int& keyAscii) {
    ComboAutoComplete(Combo1, keyAscii, 1);
}

/// What was typed and is no component was never chosen: the box does not go on showing it.
void Form6::Combo1_LostFocus() {
    Combo1.ShowEntry(component_);
}

/// Back to the choice of a component (sections disabled) or of a section (enabled); nothing of a map is left.
void Form6::ReturnToSectionChoice(bool sectionsEnabled) {
    Image1.Visible = false;
    Image2.Visible = false;
    Image3.Visible = false;
    if (Option3.Value) {
        Text1.Text = "";
        Text1.Visible = false;
        Label1.Visible = false;
    } else if (Option4.Value) {
        Text2.Text = "";
        Text2.Visible = false;
        Label2.Visible = false;
    }
    Command10.Visible = false;
    Command1.Visible = true;
    Option3.Value = false;
    Option4.Value = false;
    Option5.Value = false;
    Label16.Visible = false;
    Label19.Visible = false;
    Label22.Visible = false;
    DropMap();
    Option3.Enabled = sectionsEnabled;
    Option4.Enabled = sectionsEnabled;
    Command1.Enabled = false;
    Command10.Enabled = false;
}

/// All that is there for the sake of a map: read-outs, data, items as after the load, and the buttons that work on it.
void Form6::DropMap() {
    EmptyReadOuts();
    DataReady = false;
    ContourLineCount = 20;
    Text14.Text = "20";
    ResetItems();
    DisableRangeBoxes();
    EnableItems(false);
    Command5.Enabled = false;
    Command6.Enabled = false;
    Command7.Enabled = false;
    Command8.Enabled = refused_;
}

/// Fill and legend, as after every reset. Cleared from the last one down, so that results never stand without their
/// points on the way and no message comes up.
void Form6::ResetItems() {
    for (int i = DisplayItemCount - 1; i >= 0; --i) {
        Check1(i).Value = false;
    }
    Check1(0).Value = true;
    Check1(2).Value = true;
}

void Form6::EnableItems(bool enabled) {
    for (int i = DisplayItemCount - 1; i >= 0; --i) {
        Check1(i).Enabled = enabled;
    }
}

void Form6::DisableRangeBoxes() {
    Text3.Enabled = false;
    Text4.Enabled = false;
}

void Form6::EmptyReadOuts() {
    Text3.Text = "";
    Text4.Text = "";
    Label17.Caption = "";
    Label18.Caption = "";
    Label20.Caption = "";
    Label21.Caption = "";
}

void Form6::Option3_Click() {  // X-Y SECTION
    ClearPicture();
    Image1.Visible = false;
    Image3.Visible = false;
    Image2.Visible = true;
    Label19.Caption = Words(106);
    Command10.Visible = false;
    Label2.Visible = false;
    Text2.Visible = false;
    Command1.Visible = true;
    Label1.Visible = true;
    Label1.Caption = Words(86);
    ChooseSection(Text1, Command1);
}

void Form6::Option4_Click() {  // X-Z SECTION
    ClearPicture();
    Image2.Visible = false;
    Image3.Visible = false;
    Image1.Visible = true;
    Label19.Caption = Words(145);
    Command1.Visible = false;
    Label1.Visible = false;
    Text1.Visible = false;
    Command10.Visible = true;
    Label2.Visible = true;
    Label2.Caption = Words(144);
    Command10.Caption = Words(98);
    ChooseSection(Text2, Command10);
}

/// What both kinds share. Where the box is empty already it does not change, and raises nothing that would drop an
/// earlier map: so it is dropped here. CLEAR FORM stays as it was.
void Form6::ChooseSection(forms::TextBox& position, forms::CommandButton& start) {
    Label16.Caption = Words(105);
    Label22.Caption = Words(107);
    Label16.Visible = true;
    Label19.Visible = true;
    Label22.Visible = true;
    EmptyReadOuts();
    position.Visible = true;
    position.Enabled = true;
    position.Text = "";
    position.SetFocus();
    DataReady = false;
    Command5.Enabled = false;
    Command7.Enabled = false;
    start.Enabled = false;
    DisableRangeBoxes();
    EnableItems(false);
}

void Form6::Option5_Click() {  // Y-Z SECTION: never enabled
    Image1.Visible = false;
    Image2.Visible = false;
    Image3.Visible = true;
}

void Form6::Text1_Change() {
    PositionChanged(Command1);
}

void Form6::Text2_Change() {
    PositionChanged(Command10);
}

/// All that belonged to the earlier position goes.
void Form6::PositionChanged(forms::CommandButton& start) {
    start.Enabled = true;
    start.Default = true;
    ClearPicture();
    DropMap();
}

void Form6::Command2_Click() {  // PREVIOUS
    auto& form5 = App().Get<Form5>();
    if (Tell(81, Icon::None, Buttons::YesNo) == Answer::Yes) {
        form5.ReturnToEditing();
    } else {
        form5.ReturnAsItWas();
    }
    App().Show(Form5::FormName);
    Unload();
}

void Form6::Command3_Click() {  // HELP
    OpenHelp(*this, programFolder_);
}

void Form6::Command7_Click() {  // SAVE PICTURE
    try {
        SavePicture();
    } catch (const RuntimeFault& failure) {
        if (failure.Number() == ToldDialogFailure) {
            Tell(std::string("Error: ") + failure.what(), "", Icon::None);
        }
        // Any other passes in silence by design, also that of a file that cannot be written.
    }
}

void Form6::SavePicture() {
    const auto path = SaveFileDialog(*this, Words(55), App().Get<Form2>().Label2.Caption, Words(126), 1, "*.bmp",
                                     LanguageOf(LanguageBase));
    if (path) {
        SavePictureAs(PictureFileName(*path));
    }
}

void Form6::Command8_Click() {  // CLEAR FORM
    ClearPicture();
    Combo1.Text = "";
    refused_ = false;
    component_ = -1;
    ReturnToSectionChoice(false);
    // A refused start has disabled them; as after the load they are there again.
    Command2.Enabled = true;
    Command3.Enabled = true;
    Command9.Enabled = true;
}

void Form6::Command9_Click() {  // QUIT
    if (Tell(127, Icon::Information, Buttons::OkCancel) == Answer::Ok) {
        App().End();
    }
}

std::string Form6::Words(Int16 k) const {
    return std::string(GetMessage(LanguageBase, k));
}

Answer Form6::Tell(const std::string& text, const std::string& title, Icon icon, Buttons choice) const {
    return World().Show(
        {.Text = text, .Title = title, .Picture = icon, .Choice = choice, .Words = LanguageOf(LanguageBase)});
}

Answer Form6::Tell(Int16 k, Icon icon, Buttons choice) const {
    return Tell(Words(k), MakeVersionStamp(BoxStamp), icon, choice);
}

}  // namespace zirvo
