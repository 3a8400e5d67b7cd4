// The steps of the data screen that are its own, see form5.h; those of every data screen stand in
// shell/data_screen.cpp.
#include "graphics/form5.h"

#include <optional>
#include <utility>

#include "pavement/pavement_rules.h"
#include "text/file_helpers.h"

namespace zirvo {

using forms::Icon;

Form5::Form5(forms::Application& application, std::string programFolder)
    : DataScreen(application, FormName, std::move(programFolder)) {
    LayOut();
    Bind({.Option1 = Option1,
          .Option2 = Option2,
          .Command1 = Command1,
          .Command3 = Command3,
          .Command4 = Command4,
          .Command5 = Command5,
          .Command6 = Command6,
          .Command7 = Command7,
          .Command8 = Command8,
          .Command9 = Command9,
          .Tables = {{Label4, VScroll1, MSFlexGrid1, 52}, {Label5, VScroll2, MSFlexGrid2, 53}},
          .FileNames = {{Text3, ".ven"}}});
}

void Form5::ImportFile() {
    const std::optional<std::string> name = ChooseFile();
    if (!name) {
        return;
    }
    if (!FileExists(*name)) {
        Tell(172, Icon::Stop);  // and the read that follows fails quietly
    }
    const GraphicsInputResult read = ReadGraphicsInput(*name);
    if (!read.Passed()) {
        if (const Int16 k = MessageOf(read.Failure().Error); k != 0) {
            TellRefused(k);
            Command9.SetFocus();
        }
        return;
    }
    ShowLoadedPavement(*read);
    Text3.Text = *name;
    AskForUpdate();
}

void Form5::Command5_Click() {  // DATA OK!
    UnmarkCells();
    const LoadedPavementTexts texts = LoadedPavementTextsFromControls();
    const DataRule failed = ValidateLoadedPavement(texts);
    if (failed != DataRule::None) {
        MarkCell(FirstBadCell(texts, failed));
        if (failed == DataRule::Counts || failed == DataRule::FileNames) {
            Command6.Enabled = false;
        }
        TellRefused(MessageOf(failed));
        return;
    }
    AcceptData();
}

void Form5::Command7_Click() {  // TO GRAPHICS
    Hide();
    App().Show("Form6");
}

GraphicsInputData Form5::ModelFromControls() const {
    return LoadedPavementFromTexts(LoadedPavementTextsFromControls());
}

std::string Form5::FileBytes() const {
    return WriteGraphicsInput(ModelFromControls(), Units(), LanguageBase());
}

}  // namespace zirvo
