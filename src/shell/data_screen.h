// What the two data screens share: the steps that they take alike, a table as cell texts and from numbers, a count with
// its bar, the row of buttons. Callers: Form3 and Form5.
#pragma once
#include <array>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/application.h"
#include "forms/ms_flex_grid.h"
#include "forms/simple_controls.h"
#include "grid/cls_flex_grid_edit.h"
#include "pavement/first_bad_cell.h"
#include "pavement/pavement_rules.h"
#include "shell/table_editing.h"

namespace zirvo {

class KeptData;
class KeptStore;
struct KeptScreen;
class StartFile;

/// The data cells of a grid, by row; entry 0 stands for the headings and is empty. Fewer columns than asked for are
/// fault 9.
template <std::size_t Columns>
std::vector<std::array<std::string, Columns>> CellsOf(const forms::MSFlexGrid& grid) {
    std::vector<std::array<std::string, Columns>> rows(static_cast<std::size_t>(grid.Rows));
    for (int row = 1; row < grid.Rows; ++row) {
        for (std::size_t c = 0; c < Columns; ++c) {
            rows[static_cast<std::size_t>(row)][c] = grid.TextMatrix(row, static_cast<int>(c) + 1);
        }
    }
    return rows;
}

/// Writes the texts of the numbers into a row, from column 1 on. Outside the grid: fault 9.
void FillRow(forms::MSFlexGrid& grid, int row, std::initializer_list<double> values);

/// Width of the column in which PlaceCount puts a count [pixels of the design].
inline constexpr double CountColumnWidth = 74;

/// Puts a count into one column of its frame: the name, the value, and the bar under both, which works like a spinner
/// from 0 up to `highest` and is disabled.
/// @param left, top, barHeight  pixels of the design
void PlaceCount(double left, double top, double barHeight, int highest, forms::Label& name, forms::Label& value,
                forms::VScrollBar& bar);

/// Puts the seven buttons of a data screen into its last row, in the order in which they are pressed; the last two,
/// HELP and QUIT, stand apart from the work.
void PlaceButtonRow(const std::array<forms::CommandButton*, 7>& buttons);

/// A table of a data screen: its grid, the count of its rows, and the bar that sets the count.
struct DataTable {
    forms::Label& Count;
    forms::VScrollBar& Bar;
    forms::MSFlexGrid& Grid;
    Int16 RowName = 0;  ///< message of its row headings
};

/// A box that holds the name of a file, and the extension that DATA OK! gives it.
struct FileNameBox {
    forms::TextBox& Box;
    const char* Extension = "";
};

/// The controls that both data screens have under the same names, and what they have several of.
struct DataControls {
    forms::OptionButton& Option1;
    forms::OptionButton& Option2;
    forms::CommandButton& Command1;
    forms::CommandButton& Command3;
    forms::CommandButton& Command4;
    forms::CommandButton& Command5;
    forms::CommandButton& Command6;
    forms::CommandButton& Command7;
    forms::CommandButton& Command8;
    forms::CommandButton& Command9;
    std::vector<DataTable> Tables;       ///< layers, loads, and points where the screen has them
    std::vector<FileNameBox> FileNames;  ///< the file of the data first
};

/// A data screen: what is enabled is its whole state, and each step sets only what it names. A step that both screens
/// take alike stands here; where one of them does more or something else, that one has a handler of its own.
class DataScreen : public forms::Form {
public:
    ~DataScreen() override;

    /// What stands here is kept in this store, and what it has is offered once the screen is up. Before the load, or
    /// nothing is kept. The store must outlive the screen.
    void KeepIn(KeptStore& store);
    /// The file that the program was started with, if it is one of this screen's, is imported once the screen is up and
    /// nothing stands in it. Before the load. It must outlive the screen.
    void ImportAtStart(StartFile& file) { start_ = &file; }

    void Form_Load() override;
    void Form_Unload() override;
    void Form_ProgramEnds() override;
    virtual void Option1_Click();       ///< NEW DATA
    virtual void Option2_Click();       ///< IMPORT FROM FILE
    void Command1_Click();              ///< OPEN FILE
    void Command3_Click();              ///< PREVIOUS
    void Command4_Click();              ///< CLEAR FORM
    virtual void Command5_Click() = 0;  ///< DATA OK!
    void Command6_Click();              ///< SAVE DATA
    virtual void Command7_Click() = 0;  ///< on with the work
    void Command8_Click();              ///< HELP
    void Command9_Click();              ///< QUIT

    /// A file of this screen's data, while nothing stands here that it would replace: before the data's source is
    /// chosen, and where OPEN FILE waits.
    bool TakesFile(const std::string& path) const override;
    /// Imports it as IMPORT FROM FILE and OPEN FILE do, without their dialog.
    void UserDrop(const std::string& path) override;

    /// The groups that every state enables and disables together.
    void EnableBoxes(bool enabled);
    void EnableBars(bool enabled);
    void EnableGrids(bool enabled);

    /// What the screen behind does to this one on its way back, after "UPDATE INPUT DATA?".
    void ReturnToEditing();
    void ReturnAsItWas();

    /// The editor of the grid that got the focus last; none before the first focus.
    const std::shared_ptr<clsFlexGridEdit>& Editor() const { return editor_; }
    /// What can be undone here.
    const EditHistory& History() const { return editing_->History(); }

protected:
    /// @param programFolder  holds the solver and the help
    DataScreen(forms::Application& application, std::string name, std::string programFolder);

    /// Names the controls, and binds their events to the handlers. Once, from the constructor of the screen.
    void Bind(DataControls controls);

    virtual void SetCaptions() = 0;
    /// Imports what the user chooses. Whatever fails in it ends it without a word.
    virtual void ImportFile() = 0;
    /// The bytes of the data's file.
    virtual std::string FileBytes() const = 0;

    std::string Words(Int16 k) const;
    Int16 LanguageBase() const { return languageBase_; }  ///< own copy, taken on load
    UnitSystem Units() const;
    std::string WorkFolder() const;
    const std::string& FolderOfPrograms() const { return programFolder_; }

    void ZeroCounts();
    void ZeroBars();
    LoadedPavementTexts LoadedPavementTextsFromControls() const;
    /// Puts counts, bars and the rows of layers and loads in place.
    void ShowLoadedPavement(const LoadedPavement& data);

    /// A message box of the program; the words of message k.
    forms::Answer Tell(Int16 k, forms::Icon picture, forms::Buttons choice = forms::Buttons::Ok) const;
    /// The same with words that are in no catalogue.
    forms::Answer Tell(const std::string& text, forms::Icon picture, forms::Buttons choice = forms::Buttons::Ok) const;
    /// The pair of messages of data that are refused.
    void TellRefused(Int16 k) const;
    /// No cell is marked any more.
    void UnmarkCells();
    /// Marks the cell that a rule has refused and brings it into sight, so that it stands there when the message goes.
    void MarkCell(const std::optional<BadCell>& cell);

    /// The file to import, without its folder; none where the user cancels, or after the message where it lies outside
    /// the folder of the user's files.
    std::optional<std::string> ChooseFile();
    /// "UPDATE INPUT FILE?" behind an import, and what follows from the answer: the data can be changed, or only taken
    /// on as they are. True if they can be changed.
    bool AskForUpdate();
    /// The data have passed: proper names, and SAVE DATA alone leads on.
    void AcceptData();

private:
    void BindTable(const DataTable& table);
    void BeginKeeping();
    void StartOtherData();   ///< before the first of the data that stand here goes
    void DataComeBack();     ///< by undoing
    void DataStandInFile();  ///< what stands here has been read from a file or written to one
    void FillFrom(const KeptScreen& kept);
    void ImportTheFirst();
    void BeginUpdate();
    void DisableSteps();
    void DisableSource();
    void ClearFileNames();
    void SetHeadings();
    void ClearHeadings();
    void EditIn(forms::MSFlexGrid& grid);

    std::optional<DataControls> its_;  ///< its controls
    std::string programFolder_;
    Int16 languageBase_ = 0;
    std::shared_ptr<clsFlexGridEdit> editor_;
    std::optional<TableEditing> editing_;
    std::unique_ptr<KeptData> kept_;  ///< nothing where nothing is kept
    StartFile* start_ = nullptr;
    std::optional<std::string> dropped_;  ///< the file that OPEN FILE is to take
};

}  // namespace zirvo
