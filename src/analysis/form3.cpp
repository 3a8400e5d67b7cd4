// The steps of the data screen that are its own, see form3.h; those of every data screen stand in
// shell/data_screen.cpp, its layout in form3_layout.cpp.
#include "analysis/form3.h"

#include <initializer_list>
#include <optional>
#include <utility>

#include "analysis/form4.h"
#include "pavement/analysis_input.h"
#include "pavement/run_lock.h"
#include "pavement/solver_process.h"
#include "platform/files.h"
#include "shell/screen_language.h"
#include "text/file_helpers.h"
#include "text/number_text.h"

namespace zirvo {

using forms::Icon;

Form3::Form3(forms::Application& application, ProcessService& processes, std::string programFolder)
    : DataScreen(application, FormName, std::move(programFolder)), processes_(processes) {
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
          .Tables = {{Label7, VScroll1, MSFlexGrid1, 52},
                     {Label8, VScroll2, MSFlexGrid2, 53},
                     {Label9, VScroll3, MSFlexGrid3, 54}},
          .FileNames = {{Text7, ".eva"}, {Text8, ".bre"}, {Text1, ".san"}}});
}

void Form3::Form_Load() {
    DataScreen::Form_Load();
    Text9.Visible = false;
}

void Form3::Option1_Click() {  // NEW DATA
    ZeroBars();
    DataScreen::Option1_Click();
}

void Form3::Option2_Click() {  // IMPORT FROM FILE
    DataScreen::Option2_Click();
    Command6.Enabled = false;
}

// Data --------------------------------------------------------------------------------------------------------------

PavementTexts Form3::TextsFromControls() const {
    return {LoadedPavementTextsFromControls(), Label9.Caption, Text8.Text, Text1.Text,
            CellsOf<PointColumns>(MSFlexGrid3)};
}

void Form3::Command5_Click() {  // DATA OK!
    UnmarkCells();
    const PavementTexts texts = TextsFromControls();
    const DataRule failed = ValidateData(texts);
    if (failed != DataRule::None) {
        MarkCell(FirstBadCell(texts, failed));
        TellRefused(MessageOf(failed));
        return;
    }
    AcceptData();
}

std::string Form3::FileBytes() const {
    return WriteAnalysisInput(ModelFromTexts(TextsFromControls()), Units(), LanguageBase());
}

// Import ------------------------------------------------------------------------------------------------------------

void Form3::ImportFile() {
    const std::optional<std::string> name = ChooseFile();
    if (!name) {
        return;
    }
    if (!FileExists(*name)) {
        Tell(172, Icon::Stop);
        return;
    }
    AnalysisInputResult input = ReadAnalysisInput(JoinPath(WorkFolder(), *name));
    if (!input.Passed()) {
        if (const Int16 k = MessageOf(input.Failure().Error); k != 0) {
            TellRefused(k);
        }
        if (input.Failure().Focus == ImportFocus::FocusQuit) {
            Command9.SetFocus();
        }
        return;
    }
    input->InputFileName = *name;
    ShowModel(*input);
    if (AskForUpdate()) {
        Command6.Enabled = false;
    }
}

void Form3::ShowModel(const PavementModel& model) {
    ShowLoadedPavement(model);
    Label9.Caption = CaptionInteger(model.PointCount);  // gives its grid the rows
    VScroll3.Value = model.PointCount;
    for (int i = 1; i <= model.PointCount; ++i) {
        const InterestPoint& point = model.Points[i];
        FillRow(MSFlexGrid3, i, {static_cast<double>(point.LayerNumber), point.PointX, point.PointY, point.PointZ});
    }
    Text7.Text = model.InputFileName;
    Text8.Text = model.ResultFileName;
    Text1.Text = model.PrincipalFileName;
}

// Run ---------------------------------------------------------------------------------------------------------------

void Form3::ShowNote() {
    Text9.Enabled = false;
    Text9.Text = Words(164);
    Text9.Visible = true;
    World().PaintNow(*this);  // nothing more is painted until the solver has ended
}

void Form3::HideNote() {
    Text9.Visible = false;
    World().DiscardInput();
}

SolverRunResult Form3::RunAnalysis(const SolverRunRequest& request, const SolverRunCallbacks& callbacks) {
    return RunSolver(request, processes_, callbacks);
}

void Form3::Command7_Click() {  // ANALYZE
    const SolverRunRequest request{.InputFileName = Text7.Text,
                                   .ResultFileName = Text8.Text,
                                   .PrincipalFileName = Text1.Text,
                                   .Language = LanguageNumberOf(LanguageBaseOf(App())),
                                   .Units = Units(),
                                   .ProgramFolder = FolderOfPrograms()};
    const auto enable = [](std::initializer_list<forms::CommandButton*> buttons, bool enabled) {
        for (forms::CommandButton* button : buttons) {
            button->Enabled = enabled;
        }
    };
    const SolverRunCallbacks callbacks{
        .PaintComputing = [this] { ShowNote(); },
        .HandleObtained =
            [&] {
                enable({&Command1, &Command3, &Command4, &Command5, &Command6, &Command7, &Command8, &Command9}, false);
            },
        .WaitOver =
            [&] {
                enable({&Command3, &Command4, &Command8, &Command9}, true);
            },
        .HideComputing = [this] { HideNote(); },
        .Waiting = [this] { World().WorkGoesOn(-1); }};

    switch (RunAnalysis(request, callbacks)) {
        case SolverRunResult::InputMissing:
            Tell(172, Icon::Stop);
            Text9.Visible = false;
            break;
        case SolverRunResult::FolderBusy:
            Tell(FolderBusyText(LanguageBaseOf(App())), Icon::Stop);
            Text9.Visible = false;
            break;
        case SolverRunResult::Uncompleted:
            Tell(173, Icon::Stop);
            break;
        case SolverRunResult::Finished:
            Hide();
            App().Show(Form4::FormName);
            break;
    }
}

}  // namespace zirvo
