// What the two data screens share, see data_screen.h.
#include "shell/data_screen.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/runtime_fault.h"
#include "dialogs/common_dialog.h"
#include "grid/grid_sizing.h"
#include "platform/files.h"
#include "shell/form2.h"
#include "shell/kept_data.h"
#include "shell/layout.h"
#include "shell/screen_language.h"
#include "shell/start_file.h"
#include "text/catalogue.h"
#include "text/file_helpers.h"
#include "text/number_text.h"
#include "text/version_stamp.h"

namespace zirvo {

using forms::Answer;
using forms::Buttons;
using forms::Icon;

void FillRow(forms::MSFlexGrid& grid, int row, std::initializer_list<double> values) {
    int col = 1;
    for (const double value : values) {
        grid.SetTextMatrix(row, col++, FormatNumberText(value));
    }
}

void PlaceCount(double left, double top, double barHeight, int highest, forms::Label& name, forms::Label& value,
                forms::VScrollBar& bar) {
    constexpr double width = CountColumnWidth;
    Place(name, left + 4, top, width - 8, 16);  // headings side by side keep apart where they are condensed
    Place(value, left + 7, top + 18, width - 14, 18);
    Place(bar, left + 25, top + 40, 24, barHeight);
    name.Align = forms::Alignment::Center;
    value.Align = forms::Alignment::Center;
    value.BackColor = 0xFFFFFF;
    bar.Max = 0;
    bar.Min = highest;  // the minimum stands at the top: the value grows upwards
    bar.Enabled = false;
}

void PlaceButtonRow(const std::array<forms::CommandButton*, 7>& buttons) {
    double left = 8;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        Place(*buttons[i], left, 527, 102, 30);
        left += i == 4 ? 114 : 110;
    }
}

// The screen --------------------------------------------------------------------------------------------------------

DataScreen::DataScreen(forms::Application& application, std::string name, std::string programFolder)
    : Form(application, std::move(name)), programFolder_(std::move(programFolder)) {}

void DataScreen::Bind(DataControls controls) {
    its_.emplace(std::move(controls));
    its_->Option1.Click = [this] {
        StartOtherData();
        Option1_Click();
    };
    its_->Option2.Click = [this] {
        StartOtherData();
        Option2_Click();
    };
    its_->Command1.Click = [this] { Command1_Click(); };
    its_->Command3.Click = [this] { Command3_Click(); };
    its_->Command4.Click = [this] {
        StartOtherData();
        Command4_Click();
    };
    its_->Command5.Click = [this] { Command5_Click(); };
    its_->Command6.Click = [this] { Command6_Click(); };
    its_->Command7.Click = [this] { Command7_Click(); };
    its_->Command8.Click = [this] { Command8_Click(); };
    its_->Command9.Click = [this] { Command9_Click(); };
    for (const DataTable& table : its_->Tables) {
        BindTable(table);
    }
    std::vector<CountedTable> tables;
    std::vector<Int16> rowNames;
    for (const DataTable& table : its_->Tables) {
        tables.push_back({table.Count, table.Bar, table.Grid});
        rowNames.push_back(table.RowName);
    }
    editing_.emplace(*this, std::move(tables), std::move(rowNames), editor_);
    editing_->DataGo = [this] { StartOtherData(); };
    editing_->DataAreBack = [this] { DataComeBack(); };
    Shortcut = [this](const forms::KeyStroke& stroke) { return editing_->Key(stroke); };
}

void DataScreen::BindTable(const DataTable& table) {
    table.Bar.Change = [&table] { table.Count.Caption = CaptionInteger(table.Bar.Value); };
    table.Count.Change = [this, &table] {  // also when the program writes it: that enables the grid
        FollowCount(table.Grid, CountOf(table.Count.Caption.Get()), Words(table.RowName));
    };
    table.Grid.GotFocus = [this, &table] { EditIn(table.Grid); };
    table.Grid.LostFocus = [&table] { table.Grid.Highlight = forms::HighlightKind::Always; };
}

/// Puts a new editor into service on a grid; the one before goes.
void DataScreen::EditIn(forms::MSFlexGrid& grid) {
    grid.Highlight = forms::HighlightKind::Never;
    editor_ = std::make_shared<clsFlexGridEdit>();
    editor_->FlexGridControl(grid);
}

void DataScreen::Form_Load() {
    Caption = MakeVersionStamp(2);
    TrimSystemMenu(*this);
    ScaleToScreen(*this);
    languageBase_ = LanguageBaseOf(App());
    SetCaptions();

    its_->Option1.Value = false;
    its_->Option2.Value = false;
    DisableSteps();
    EnableBoxes(false);
    ZeroCounts();
    ClearFileNames();
    ClearHeadings();
    EnableGrids(false);  // the counts have enabled them
    editing_->Speak(languageBase_);
    editing_->Forget();
    BeginKeeping();
    ImportTheFirst();
}

// What the controls say ---------------------------------------------------------------------------------------------

std::string DataScreen::Words(Int16 k) const {
    return std::string(GetMessage(languageBase_, k));
}

UnitSystem DataScreen::Units() const {
    return UnitSystemOf(App().Get<Form2>().UnitSystem());
}

std::string DataScreen::WorkFolder() const {
    return App().Get<Form2>().Label2.Caption;
}

LoadedPavementTexts DataScreen::LoadedPavementTextsFromControls() const {
    const DataTable& layers = its_->Tables.at(0);
    const DataTable& loads = its_->Tables.at(1);
    return {.LayerCount = layers.Count.Caption,
            .LoadCount = loads.Count.Caption,
            .InputFileName = its_->FileNames.front().Box.Text,
            .Layers = CellsOf<LayerColumns>(layers.Grid),
            .Loads = CellsOf<LoadColumns>(loads.Grid)};
}

// Messages ----------------------------------------------------------------------------------------------------------

Answer DataScreen::Tell(Int16 k, Icon picture, Buttons choice) const {
    return Tell(Words(k), picture, choice);
}

Answer DataScreen::Tell(const std::string& text, Icon picture, Buttons choice) const {
    return World().Show({.Text = text,
                         .Title = MakeVersionStamp(3),
                         .Picture = picture,
                         .Choice = choice,
                         .Words = LanguageOf(languageBase_)});
}

void DataScreen::TellRefused(Int16 k) const {
    Tell(k, Icon::Exclamation);
    Tell(57, Icon::Stop);
}

void DataScreen::UnmarkCells() {
    for (const DataTable& table : its_->Tables) {
        table.Grid.Unmark();
    }
}

void DataScreen::MarkCell(const std::optional<BadCell>& cell) {
    if (cell) {
        its_->Tables.at(static_cast<std::size_t>(cell->Table)).Grid.MarkCell(cell->Row, cell->Col);
    }
}

// Steps -------------------------------------------------------------------------------------------------------------

void DataScreen::Option1_Click() {  // NEW DATA
    EnableBars(true);
    ZeroCounts();
    for (const FileNameBox& name : its_->FileNames) {
        name.Box.Text = std::string("Untitled") + name.Extension;
    }
    EnableBoxes(true);
    its_->Command1.Enabled = false;
    its_->Command3.Enabled = true;
    its_->Command4.Enabled = true;
    its_->Command5.Enabled = true;
    SetHeadings();
    ChangeFolder(WorkFolder());
}

void DataScreen::Option2_Click() {  // IMPORT FROM FILE
    EnableBars(false);
    ZeroCounts();
    ClearFileNames();
    EnableBoxes(false);
    its_->Command1.Enabled = true;
    its_->Command1.SetFocus();
    its_->Command3.Enabled = true;
    its_->Command4.Enabled = true;
    its_->Command5.Enabled = false;
    EnableGrids(false);  // the counts have enabled them
    SetHeadings();
}

void DataScreen::Command1_Click() {  // OPEN FILE
    try {
        ImportFile();
    } catch (const RuntimeFault&) {
        // Quiet by design, whatever has failed.
    }
}

std::optional<std::string> DataScreen::ChooseFile() {
    const std::string pattern = std::string("*") + its_->FileNames.front().Extension;
    std::optional<std::string> name =
        dropped_ ? TakeFile(*dropped_)
                 : OpenFileDialog(*this, Words(55), WorkFolder(), "ZIRVO Files (" + pattern + ")|" + pattern, 1,
                                  LanguageOf(languageBase_));
    if (name && CurrentFolder() != WorkFolder()) {  // as exact text
        Tell(171, Icon::Stop);
        return {};
    }
    return name;
}

bool DataScreen::TakesFile(const std::string& path) const {
    const bool nothingStands = std::all_of(its_->Tables.begin(), its_->Tables.end(), [](const DataTable& table) {
        return CountOf(table.Count.Caption.Get()) == 0;
    });
    return HasExtension(path, its_->FileNames.front().Extension) && nothingStands &&
           (its_->Command1.IsUsable() || its_->Option2.IsUsable());
}

void DataScreen::UserDrop(const std::string& path) {
    if (!its_->Option2.Value) {
        its_->Option2.UserClick();
    }
    dropped_ = path;
    its_->Command1.UserClick();
    dropped_.reset();
}

/// Behind the question about kept data: who takes those back has the screen full, and the file waits for another time.
void DataScreen::ImportTheFirst() {
    if (start_ == nullptr || !start_->Waits(its_->FileNames.front().Extension)) {
        return;
    }
    App().DispatchBehind([this] {
        const std::string path = start_->Path();
        if (!IsGone() && IsVisible() && TakesFile(path)) {
            start_->Take();
            UserDrop(path);
        }
    });
}

bool DataScreen::AskForUpdate() {
    DataStandInFile();
    const bool update = Tell(62, Icon::None, Buttons::YesNo) != Answer::No;
    DisableSource();
    if (!update) {
        its_->Command7.Enabled = true;
        its_->Command7.SetFocus();
        EnableGrids(false);
        EnableBars(false);
        return false;
    }
    BeginUpdate();
    return true;
}

/// Data that were not typed here can be changed.
void DataScreen::BeginUpdate() {
    its_->Command3.Enabled = true;
    its_->Command4.Enabled = true;
    its_->Command5.Enabled = true;
    its_->Command5.SetFocus();
    its_->Command7.Enabled = false;
    EnableBoxes(true);
    EnableBars(true);
}

void DataScreen::Command3_Click() {  // PREVIOUS
    Unload();
    App().Show(Form2::FormName);
}

void DataScreen::Command4_Click() {  // CLEAR FORM
    its_->Option1.Enabled = true;
    its_->Option2.Enabled = true;
    its_->Option1.Value = false;
    its_->Option2.Value = false;
    DisableSteps();
    ZeroCounts();
    ClearFileNames();
    EnableBoxes(false);
    ZeroBars();  // a bar that was not 0 writes " 0" into its count, and the change enables the grid once more
    EnableBars(false);
    ClearHeadings();  // the grids stay as the counts have left them: enabled, and with no rows to edit
}

void DataScreen::AcceptData() {
    for (const FileNameBox& name : its_->FileNames) {
        name.Box.Text = NormaliseFileName(name.Box.Text.Get(), name.Extension);
    }
    DisableSource();
    its_->Command5.Enabled = false;
    its_->Command6.Enabled = true;
    its_->Command6.SetFocus();
    EnableBars(false);
    EnableBoxes(false);
    EnableGrids(false);
}

void DataScreen::Command6_Click() {  // SAVE DATA
    const std::string name = its_->FileNames.front().Box.Text;
    if (FileExists(name) && Tell(64, Icon::None, Buttons::YesNo) == Answer::No) {
        Tell(65, Icon::Information);
        its_->Command5.Enabled = true;
        its_->Command6.Enabled = false;
        its_->Command5.SetFocus();
        return;  // boxes and grids stay disabled: DATA OK! leads to the same question, CLEAR FORM away from it
    }
    WriteWholeFile(name, FileBytes());
    DataStandInFile();
    its_->Command6.Enabled = false;
    its_->Command7.Enabled = true;
    its_->Command7.SetFocus();
}

void DataScreen::Command8_Click() {  // HELP
    OpenHelp(*this, programFolder_);
}

void DataScreen::Command9_Click() {  // QUIT
    App().End();
}

void DataScreen::ReturnToEditing() {
    its_->Command5.Enabled = true;
    its_->Command6.Enabled = false;
    its_->Command7.Enabled = false;
    EnableGrids(true);
    EnableBoxes(true);
    EnableBars(true);
}

void DataScreen::ReturnAsItWas() {
    EnableGrids(false);
    EnableBoxes(false);
}

}  // namespace zirvo
