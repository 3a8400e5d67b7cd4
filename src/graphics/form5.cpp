// The data screen of the graphics path, see form5.h. What is enabled is the whole state of the screen: each handler
// sets only what it names.
#include "graphics/form5.h"

#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "base/runtime_fault.h"
#include "dialogs/common_dialog.h"
#include "grid/grid_sizing.h"
#include "pavement/pavement_rules.h"
#include "shell/data_screen.h"
#include "shell/form2.h"
#include "shell/layout.h"
#include "shell/screen_language.h"
#include "text/catalogue.h"
#include "text/file_helpers.h"
#include "text/number_text.h"
#include "text/version_stamp.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::Buttons;
using forms::Icon;
using forms::MSFlexGrid;

constexpr Int16 TitleStamp = 2;
constexpr Int16 BoxStamp = 3;

double CellValue(const MSFlexGrid& grid, int row, int column) {
    return ParseNumberPrefix(grid.TextMatrix(row, column));
}

template <std::size_t Columns>
void FillHeadings(MSFlexGrid& grid, const std::array<Int16, Columns>& headings, Int16 languageBase) {
    grid.Row = 0;
    for (std::size_t column = 0; column < Columns; ++column) {
        const Int16 k = headings[column];
        grid.SetTextMatrix(0, static_cast<int>(column) + 1,
                           k == 0 ? std::string() : std::string(GetMessage(languageBase, k)));
    }
}

}  // namespace

Form5::Form5(forms::Application& application, std::string programFolder)
    : forms::Form(application, FormName), programFolder_(std::move(programFolder)) {
    LayOut();
    BindEvents();
}

void Form5::BindEvents() {
    Option1.Click = [this] { Option1_Click(); };
    Option2.Click = [this] { Option2_Click(); };
    Command1.Click = [this] { Command1_Click(); };
    Command3.Click = [this] { Command3_Click(); };
    Command4.Click = [this] { Command4_Click(); };
    Command5.Click = [this] { Command5_Click(); };
    Command6.Click = [this] { Command6_Click(); };
    Command7.Click = [this] { Command7_Click(); };
    Command8.Click = [this] { Command8_Click(); };
    Command9.Click = [this] { Command9_Click(); };
    Label4.Change = [this] { Label4_Change(); };
    Label5.Change = [this] { Label5_Change(); };
    VScroll1.Change = [this] { VScroll1_Change(); };
    VScroll2.Change = [this] { VScroll2_Change(); };
    MSFlexGrid1.GotFocus = [this] { MSFlexGrid1_GotFocus(); };
    MSFlexGrid1.LostFocus = [this] { MSFlexGrid1_LostFocus(); };
    MSFlexGrid2.GotFocus = [this] { MSFlexGrid2_GotFocus(); };
    MSFlexGrid2.LostFocus = [this] { MSFlexGrid2_LostFocus(); };
}

void Form5::Form_Load() {
    Caption = MakeVersionStamp(TitleStamp);
    TrimSystemMenu(*this);
    ScaleToScreen(*this);
    LanguageBase = LanguageBaseOf(App());
    SetCaptions();

    Option1.Value = false;
    Option2.Value = false;
    DisableSteps();
    Text3.Enabled = false;
    ClearCounts();
    Text3.Text = "";
    ClearHeadings();
    EnableGrids(false);  // the counts have enabled them
}

void Form5::Option1_Click() {  // NEW DATA
    const std::string workFolder = App().Get<Form2>().Label2.Caption;
    EnableBars(true);  // their values stay: a bar that stood at 3 goes on from there
    ClearCounts();
    Text3.Enabled = true;
    Text3.Text = "Untitled.ven";
    Command1.Enabled = false;
    Command3.Enabled = true;
    Command4.Enabled = true;
    Command5.Enabled = true;
    SetHeadings();
    ChangeFolder(workFolder);
}

void Form5::Option2_Click() {  // IMPORT FROM FILE
    EnableBars(false);
    ClearCounts();
    Text3.Text = "";
    Text3.Enabled = false;
    Command1.Enabled = true;
    Command1.SetFocus();
    Command3.Enabled = true;
    Command4.Enabled = true;
    Command5.Enabled = false;
    EnableGrids(false);
    SetHeadings();
}

void Form5::Command1_Click() {  // OPEN FILE
    try {
        ImportFile();
    } catch (const RuntimeFault&) {
        // Quiet by design, whatever has failed.
    }
}

void Form5::ImportFile() {
    const std::string workFolder = App().Get<Form2>().Label2.Caption;
    const auto name =
        OpenFileDialog(*this, Words(55), workFolder, "ZIRVO Files (*.ven)|*.ven", 1, LanguageOf(LanguageBase));
    if (!name) {
        return;
    }
    if (CurrentFolder() != workFolder) {  // as exact text
        Tell(171, Icon::Stop);
        return;
    }
    if (!FileExists(*name)) {
        Tell(172, Icon::Stop);  // and the read that follows fails quietly
    }
    if (!TakeFile(*name)) {
        return;
    }
    if (Tell(62, Icon::None, Buttons::YesNo) == Answer::No) {
        ChooseViewOnly();
    } else {
        ChooseUpdate();
    }
}

bool Form5::TakeFile(const std::string& name) {
    const GraphicsInputResult read = ReadGraphicsInput(name);
    if (!read.Passed()) {
        if (const Int16 k = MessageOf(read.Status); k != 0) {
            TellRefused(k);
            Command9.SetFocus();
        }
        return false;
    }
    Label4.Caption = CaptionInteger(read.Data->LayerCount);
    Label5.Caption = CaptionInteger(read.Data->LoadCount);
    VScroll1.Value = CountOf(Label4.Caption.Get());
    VScroll2.Value = CountOf(Label5.Caption.Get());
    Text3.Text = name;
    FillGrids(*read.Data);
    return true;
}

void Form5::FillGrids(const GraphicsInputData& data) {
    for (int i = 1; i < data.LayerCount; ++i) {
        const PavementLayer& layer = data.Layers[i];
        FillRow(MSFlexGrid1, i, {layer.Modulus, layer.PoissonRatio, layer.Thickness, layer.SlipRate});
    }
    const PavementLayer& subgrade = data.Layers[data.LayerCount];
    FillRow(MSFlexGrid1, data.LayerCount, {subgrade.Modulus, subgrade.PoissonRatio});
    for (int i = 1; i <= data.LoadCount; ++i) {
        const SurfaceLoad& load = data.Loads[i];
        FillRow(MSFlexGrid2, i,
                {load.VerticalLoad, load.Radius, load.LoadX, load.LoadY, load.HorizontalLoad, load.AngleFromX});
    }
}

void Form5::ChooseViewOnly() {
    DisableSource();
    Command7.Enabled = true;
    Command7.SetFocus();
    EnableGrids(false);
    EnableBars(false);
}

void Form5::ChooseUpdate() {
    DisableSource();
    Command3.Enabled = true;
    Command4.Enabled = true;
    Command5.Enabled = true;
    Command5.SetFocus();
    Command7.Enabled = false;
    Text3.Enabled = true;
    EnableBars(true);
}

void Form5::Command3_Click() {  // PREVIOUS
    Unload();
    App().Show(Form2::FormName);
}

void Form5::Command4_Click() {  // CLEAR FORM
    Option1.Enabled = true;
    Option2.Enabled = true;
    Option1.Value = false;
    Option2.Value = false;
    DisableSteps();
    ClearCounts();
    Text3.Text = "";
    Text3.Enabled = false;
    VScroll1.Value = 0;  // a bar that stood elsewhere writes its count again: " 0"
    VScroll2.Value = 0;
    EnableBars(false);
    ClearHeadings();  // the grids stay as the counts have left them: enabled, and with no rows to edit
}

void Form5::Command5_Click() {  // DATA OK!
    if (const auto k = FailedRule()) {
        if (*k == 58 || *k == 63) {
            Command6.Enabled = false;
        }
        TellRefused(*k);
        return;
    }
    Text3.Text = NormaliseFileName(Text3.Text.Get(), ".ven");
    DisableSource();
    Command5.Enabled = false;
    Command6.Enabled = true;
    Command6.SetFocus();
    EnableBars(false);
    Text3.Enabled = false;
    EnableGrids(false);
}

/// The message of the first rule that the data breaks.
std::optional<Int16> Form5::FailedRule() const {
    const std::array<std::string_view, 2> captions{Label4.Caption.Get(), Label5.Caption.Get()};
    if (!ValidateCounts(captions)) {
        return MessageOf(DataRule::Counts);
    }
    const std::array<std::string_view, 1> names{Text3.Text.Get()};
    if (!ValidateFileNames(names)) {
        return MessageOf(DataRule::FileNames);
    }
    const Int16 layers = CountOf(Label4.Caption.Get());
    if (!ValidateLayers(CellsOf<LayerColumns>(MSFlexGrid1), layers)) {
        return MessageOf(DataRule::Layers);
    }
    const Int16 loads = CountOf(Label5.Caption.Get());
    if (!ValidateLoads(CellsOf<LoadColumns>(MSFlexGrid2), loads)) {
        return MessageOf(DataRule::Loads);
    }
    return {};
}

void Form5::Command6_Click() {  // SAVE DATA
    const std::string name = Text3.Text;
    if (FileExists(name) && Tell(64, Icon::None, Buttons::YesNo) == Answer::No) {
        Tell(65, Icon::Information);
        Command5.Enabled = true;
        Command5.SetFocus();
        Command6.Enabled = false;
        return;  // the name cannot be changed here, so that only Yes or CLEAR FORM leads on
    }
    WriteWholeFile(name, WriteGraphicsInput(ModelFromControls(), Units(), LanguageBase));
    Command6.Enabled = false;
    Command7.Enabled = true;
    Command7.SetFocus();
}

void Form5::Command7_Click() {  // TO GRAPHICS
    Hide();
    App().Show("Form6");
}

void Form5::Command8_Click() {  // HELP
    OpenHelp(*this, programFolder_);
}

void Form5::Command9_Click() {  // QUIT
    App().End();
}

void Form5::Label4_Change() {
    FollowCount(MSFlexGrid1, CountOf(Label4.Caption.Get()), Words(52));
}

void Form5::Label5_Change() {
    FollowCount(MSFlexGrid2, CountOf(Label5.Caption.Get()), Words(53));
}

void Form5::VScroll1_Change() {
    Label4.Caption = CaptionInteger(VScroll1.Value);
}

void Form5::VScroll2_Change() {
    Label5.Caption = CaptionInteger(VScroll2.Value);
}

void Form5::MSFlexGrid1_GotFocus() {
    EditGrid(MSFlexGrid1);
}

void Form5::MSFlexGrid1_LostFocus() {
    MSFlexGrid1.Highlight = forms::HighlightKind::Always;
}

void Form5::MSFlexGrid2_GotFocus() {
    EditGrid(MSFlexGrid2);
}

void Form5::MSFlexGrid2_LostFocus() {
    MSFlexGrid2.Highlight = forms::HighlightKind::Always;
}

/// Puts a new editor into service on a grid; the one before goes.
void Form5::EditGrid(MSFlexGrid& grid) {
    grid.Highlight = forms::HighlightKind::Never;
    editor_ = std::make_shared<clsFlexGridEdit>();
    editor_->FlexGridControl(grid);
}

GraphicsInputData Form5::ModelFromControls() const {
    GraphicsInputData data;
    data.LayerCount = CountOf(Label4.Caption.Get());
    data.LoadCount = CountOf(Label5.Caption.Get());
    for (int i = 1; i <= data.LayerCount; ++i) {
        PavementLayer& layer = data.Layers[i];
        layer.Modulus = CellValue(MSFlexGrid1, i, 1);
        layer.PoissonRatio = CellValue(MSFlexGrid1, i, 2);
        if (i < data.LayerCount) {
            layer.Thickness = CellValue(MSFlexGrid1, i, 3);
            layer.SlipRate = CellValue(MSFlexGrid1, i, 4);
        }
    }
    for (int i = 1; i <= data.LoadCount; ++i) {
        data.Loads[i] = {CellValue(MSFlexGrid2, i, 1), CellValue(MSFlexGrid2, i, 2), CellValue(MSFlexGrid2, i, 3),
                         CellValue(MSFlexGrid2, i, 4), CellValue(MSFlexGrid2, i, 5), CellValue(MSFlexGrid2, i, 6)};
    }
    return data;
}

UnitSystem Form5::Units() const {
    return UnitSystemOf(App().Get<Form2>().UnitSystem());
}

void Form5::ReturnToEditing() {
    Command5.Enabled = true;
    Command6.Enabled = false;
    Command7.Enabled = false;
    EnableGrids(true);
    Text3.Enabled = true;
    EnableBars(true);
}

void Form5::ReturnAsItWas() {
    EnableGrids(false);
    Text3.Enabled = false;
}

/// All that follows the choice where the data come from.
void Form5::DisableSteps() {
    for (forms::CommandButton* button : {&Command1, &Command4, &Command5, &Command6, &Command7}) {
        button->Enabled = false;
    }
}

/// That choice itself: the data are there.
void Form5::DisableSource() {
    Option1.Enabled = false;
    Option2.Enabled = false;
    Command1.Enabled = false;
}

void Form5::ClearCounts() {
    Label4.Caption = "0";
    Label5.Caption = "0";
}

void Form5::ClearHeadings() {
    FillHeadings<LayerColumns>(MSFlexGrid1, {}, LanguageBase);
    FillHeadings<LoadColumns>(MSFlexGrid2, {}, LanguageBase);
}

void Form5::SetHeadings() {
    const UnitSystem units = Units();
    FillHeadings(MSFlexGrid1, LayerHeadings(units), LanguageBase);
    CA_AutosizeCols(MSFlexGrid1);
    FillHeadings(MSFlexGrid2, LoadHeadings(units), LanguageBase);
    CA_AutosizeCols(MSFlexGrid2);
}

void Form5::EnableGrids(bool enabled) {
    MSFlexGrid1.Enabled = enabled;
    MSFlexGrid2.Enabled = enabled;
}

void Form5::EnableBars(bool enabled) {
    VScroll1.Enabled = enabled;
    VScroll2.Enabled = enabled;
}

std::string Form5::Words(Int16 k) const {
    return std::string(GetMessage(LanguageBase, k));
}

Answer Form5::Tell(Int16 k, Icon icon, Buttons choice) const {
    return World().Show({.Text = Words(k),
                         .Title = MakeVersionStamp(BoxStamp),
                         .Picture = icon,
                         .Choice = choice,
                         .Words = LanguageOf(LanguageBase)});
}

/// The pair of messages of data that are refused.
void Form5::TellRefused(Int16 k) const {
    Tell(k, Icon::Exclamation);
    Tell(57, Icon::Stop);
}

}  // namespace zirvo
