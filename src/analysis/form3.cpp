// The handlers of the data screen, see form3.h; its layout stands in form3_layout.cpp, the import and the run in
// form3_files.cpp.
#include "analysis/form3.h"

#include <utility>

#include "grid/grid_sizing.h"
#include "pavement/analysis_input.h"
#include "platform/files.h"
#include "shell/data_screen.h"
#include "shell/form2.h"
#include "shell/layout.h"
#include "shell/screen_language.h"
#include "text/catalogue.h"
#include "text/file_helpers.h"
#include "text/number_text.h"
#include "text/version_stamp.h"

namespace zirvo {

Form3::Form3(forms::Application& application, ProcessService& processes, std::string programFolder)
    : Form(application, FormName), processes_(processes), programFolder_(std::move(programFolder)) {
    LayOut();
    BindEvents();
}

// Load --------------------------------------------------------------------------------------------------------------

void Form3::Form_Load() {
    Caption = MakeVersionStamp(2);
    TrimSystemMenu(*this);
    ScaleToScreen(*this);
    languageBase_ = LanguageBaseOf(App());
    SetCaptions();
    Text9.Visible = false;

    Option1.Value = false;
    Option2.Value = false;
    for (forms::CommandButton* button : {&Command1, &Command4, &Command5, &Command6, &Command7}) {
        button->Enabled = false;
    }
    EnableBoxes(false);
    ZeroCounts();
    NameBoxes("", "", "");
    ClearColumnHeadings();
    EnableGrids(false);  // the counts have enabled them
}

void Form3::SetCaptions() {
    const auto set = [this](auto& control, Int16 k) { control.Caption = Words(k); };
    set(Label1, 14);
    set(Frame1, 15);
    set(Option1, 16);
    set(Option2, 17);
    set(Command1, 18);
    set(Frame2, 19);
    set(Label2, 20);
    set(Label3, 21);
    set(Label4, 22);
    set(Frame3, 23);
    set(Frame4, 24);
    set(Frame5, 25);
    set(Frame6, 26);
    set(Label5, 27);
    set(Label6, 158);
    set(Label10, 159);
    set(Command3, 30);
    set(Command4, 31);
    set(Command5, 32);
    set(Command6, 33);
    set(Command7, 34);
    set(Command8, 35);
    set(Command9, 36);
}
// What the controls say ---------------------------------------------------------------------------------------------

std::string Form3::Words(Int16 k) const {
    return std::string(GetMessage(languageBase_, k));
}

UnitSystem Form3::Units() const {
    const Form2& settings = App().Get<Form2>();
    const auto number = settings.Option1.Value ? 1 : settings.Option2.Value ? 2 : settings.Option3.Value ? 3 : 0;
    return UnitSystemOf(number);
}

std::string Form3::WorkFolder() const {
    return App().Get<Form2>().Label2.Caption;
}

PavementTexts Form3::TextsFromControls() const {
    return {.LayerCount = Label7.Caption,
            .LoadCount = Label8.Caption,
            .PointCount = Label9.Caption,
            .InputFileName = Text7.Text,
            .ResultFileName = Text8.Text,
            .PrincipalFileName = Text1.Text,
            .Layers = CellsOf<LayerColumns>(MSFlexGrid1),
            .Loads = CellsOf<LoadColumns>(MSFlexGrid2),
            .Points = CellsOf<PointColumns>(MSFlexGrid3)};
}

// Groups of controls ------------------------------------------------------------------------------------------------

void Form3::EnableBoxes(bool enabled) {
    Text7.Enabled = enabled;
    Text8.Enabled = enabled;
    Text1.Enabled = enabled;
}

void Form3::EnableScrollBars(bool enabled) {
    VScroll1.Enabled = enabled;
    VScroll2.Enabled = enabled;
    VScroll3.Enabled = enabled;
}

void Form3::EnableGrids(bool enabled) {
    MSFlexGrid1.Enabled = enabled;
    MSFlexGrid2.Enabled = enabled;
    MSFlexGrid3.Enabled = enabled;
}

void Form3::ZeroCounts() {
    Label7.Caption = "0";
    Label8.Caption = "0";
    Label9.Caption = "0";
}

void Form3::ZeroScrollBars() {
    VScroll1.Value = 0;
    VScroll2.Value = 0;
    VScroll3.Value = 0;
}

void Form3::NameBoxes(const std::string& input, const std::string& results, const std::string& principals) {
    Text7.Text = input;
    Text8.Text = results;
    Text1.Text = principals;
}

void Form3::SetColumnHeadings() {
    const auto set = [this](forms::MSFlexGrid& grid, std::span<const Int16> headings) {
        int col = 1;
        for (const Int16 k : headings) {
            grid.SetTextMatrix(0, col++, k == 0 ? "" : Words(k));  // 0: no unit system, neither of a pair
        }
        CA_AutosizeCols(grid);
    };
    set(MSFlexGrid1, LayerHeadings(Units()));
    set(MSFlexGrid2, LoadHeadings(Units()));
    set(MSFlexGrid3, PointHeadings());
}

void Form3::ClearColumnHeadings() {
    for (forms::MSFlexGrid* grid : {&MSFlexGrid1, &MSFlexGrid2, &MSFlexGrid3}) {
        for (int col = 1; col < grid->Cols; ++col) {
            grid->SetTextMatrix(0, col, "");
        }
    }
}

// Messages ----------------------------------------------------------------------------------------------------------

forms::Answer Form3::Box(Int16 k, forms::Icon picture, forms::Buttons choice) {
    return World().Show({.Text = Words(k),
                         .Title = MakeVersionStamp(3),
                         .Picture = picture,
                         .Choice = choice,
                         .Words = LanguageOf(languageBase_)});
}

void Form3::StopWith(Int16 k) {
    Box(k, forms::Icon::Exclamation);
    Box(57, forms::Icon::Stop);
}

// Buttons -----------------------------------------------------------------------------------------------------------

void Form3::Option1_Click() {  // NEW DATA
    EnableScrollBars(true);
    ZeroScrollBars();
    ZeroCounts();
    NameBoxes("Untitled.eva", "Untitled.bre", "Untitled.san");
    EnableBoxes(true);
    Command1.Enabled = false;
    Command3.Enabled = true;
    Command4.Enabled = true;
    Command5.Enabled = true;
    SetColumnHeadings();
    ChangeFolder(WorkFolder());
}

void Form3::Option2_Click() {  // IMPORT FROM FILE
    EnableScrollBars(false);
    ZeroCounts();
    NameBoxes("", "", "");
    EnableBoxes(false);
    Command1.Enabled = true;
    Command1.SetFocus();
    Command3.Enabled = true;
    Command4.Enabled = true;
    Command5.Enabled = false;
    Command6.Enabled = false;
    EnableGrids(false);  // the counts have enabled them
    SetColumnHeadings();
}

void Form3::Command3_Click() {  // PREVIOUS
    Unload();
    App().Show(Form2::FormName);
}

void Form3::Command4_Click() {  // CLEAR FORM
    Option1.Enabled = true;
    Option2.Enabled = true;
    Option1.Value = false;
    Option2.Value = false;
    for (forms::CommandButton* button : {&Command1, &Command4, &Command5, &Command6, &Command7}) {
        button->Enabled = false;
    }
    ZeroCounts();
    NameBoxes("", "", "");
    EnableBoxes(false);
    ZeroScrollBars();  // a bar that was not 0 writes " 0" into its count, and the change enables the grid once more
    EnableScrollBars(false);
    for (forms::MSFlexGrid* grid : {&MSFlexGrid1, &MSFlexGrid2, &MSFlexGrid3}) {
        grid->Row = 0;
    }
    ClearColumnHeadings();
}

void Form3::Command5_Click() {  // DATA OK!
    const DataRule failed = ValidateData(TextsFromControls());
    if (failed != DataRule::None) {
        StopWith(MessageOf(failed));
        return;
    }
    NameBoxes(NormaliseFileName(Text7.Text.Get(), ".eva"), NormaliseFileName(Text8.Text.Get(), ".bre"),
              NormaliseFileName(Text1.Text.Get(), ".san"));
    Option1.Enabled = false;
    Option2.Enabled = false;
    Command1.Enabled = false;
    Command5.Enabled = false;
    Command6.Enabled = true;
    Command6.SetFocus();
    EnableScrollBars(false);
    EnableBoxes(false);
    EnableGrids(false);
}

void Form3::Command8_Click() {  // HELP
    OpenHelp(*this, programFolder_);
}

void Form3::Command9_Click() {  // QUIT
    App().End();
}

// Counts ------------------------------------------------------------------------------------------------------------

void Form3::VScroll1_Change() {
    Label7.Caption = CaptionInteger(VScroll1.Value);
}

void Form3::VScroll2_Change() {
    Label8.Caption = CaptionInteger(VScroll2.Value);
}

void Form3::VScroll3_Change() {
    Label9.Caption = CaptionInteger(VScroll3.Value);
}

void Form3::Label7_Change() {
    FollowCount(MSFlexGrid1, CountOf(Label7.Caption.Get()), Words(52));
}

void Form3::Label8_Change() {
    FollowCount(MSFlexGrid2, CountOf(Label8.Caption.Get()), Words(53));
}

void Form3::Label9_Change() {
    FollowCount(MSFlexGrid3, CountOf(Label9.Caption.Get()), Words(54));
}

// Grids -------------------------------------------------------------------------------------------------------------

void Form3::EditIn(forms::MSFlexGrid& grid) {
    editor_ = std::make_shared<clsFlexGridEdit>();
    editor_->FlexGridControl(grid);
    grid.Highlight = forms::HighlightKind::Never;
}

void Form3::MSFlexGrid1_GotFocus() {
    EditIn(MSFlexGrid1);
}

void Form3::MSFlexGrid2_GotFocus() {
    EditIn(MSFlexGrid2);
}

void Form3::MSFlexGrid3_GotFocus() {
    EditIn(MSFlexGrid3);
}

void Form3::MSFlexGrid1_LostFocus() {
    MSFlexGrid1.Highlight = forms::HighlightKind::Always;
}

void Form3::MSFlexGrid2_LostFocus() {
    MSFlexGrid2.Highlight = forms::HighlightKind::Always;
}

void Form3::MSFlexGrid3_LostFocus() {
    MSFlexGrid3.Highlight = forms::HighlightKind::Always;
}

}  // namespace zirvo
