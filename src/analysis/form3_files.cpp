// What the data screen does with files: import, SAVE DATA, ANALYZE. See form3.h.
#include <optional>

#include "analysis/form3.h"
#include "analysis/form4.h"
#include "base/runtime_fault.h"
#include "dialogs/common_dialog.h"
#include "pavement/analysis_input.h"
#include "pavement/solver_process.h"
#include "platform/files.h"
#include "shell/data_screen.h"
#include "shell/screen_language.h"
#include "text/file_helpers.h"
#include "text/number_text.h"

namespace zirvo {

// Import ------------------------------------------------------------------------------------------------------------

void Form3::Command1_Click() {  // OPEN FILE
    try {
        ImportFile();
    } catch (const RuntimeFault&) {  // whatever fails ends the import without a word
        return;
    }
}

void Form3::ImportFile() {
    const std::optional<std::string> name =
        OpenFileDialog(*this, Words(55), WorkFolder(), "ZIRVO Files (*.eva)|*.eva", 1, LanguageOf(languageBase_));
    if (!name) {
        return;
    }
    if (CurrentFolder() != WorkFolder()) {
        Box(171, forms::Icon::Stop);
        return;
    }
    if (!FileExists(*name)) {
        Box(172, forms::Icon::Stop);
        return;
    }
    AnalysisInputResult input = ReadAnalysisInput(JoinPath(WorkFolder(), *name));
    if (!input.Passed()) {
        if (const Int16 k = MessageOf(input.Status); k != 0) {
            StopWith(k);
        }
        if (input.Focus == ImportFocus::FocusQuit) {
            Command9.SetFocus();
        }
        return;
    }
    input.Model->InputFileName = *name;
    ShowModel(*input.Model);

    const bool update = Box(62, forms::Icon::None, forms::Buttons::YesNo) != forms::Answer::No;
    Option1.Enabled = false;
    Option2.Enabled = false;
    Command1.Enabled = false;
    if (!update) {
        Command7.Enabled = true;
        Command7.SetFocus();
        EnableGrids(false);
        EnableScrollBars(false);
        return;
    }
    Command3.Enabled = true;
    Command4.Enabled = true;
    Command5.Enabled = true;
    Command5.SetFocus();
    Command6.Enabled = false;
    Command7.Enabled = false;
    EnableBoxes(true);
    EnableScrollBars(true);
}

void Form3::ShowModel(const PavementModel& model) {
    Label7.Caption = CaptionInteger(model.LayerCount);  // gives its grid the rows
    Label8.Caption = CaptionInteger(model.LoadCount);
    Label9.Caption = CaptionInteger(model.PointCount);
    VScroll1.Value = model.LayerCount;
    VScroll2.Value = model.LoadCount;
    VScroll3.Value = model.PointCount;
    NameBoxes(model.InputFileName, model.ResultFileName, model.PrincipalFileName);

    MSFlexGrid1.Rows = model.LayerCount + 1;
    for (int i = 1; i < model.LayerCount; ++i) {
        const PavementLayer& layer = model.Layers[i];
        FillRow(MSFlexGrid1, i, {layer.Modulus, layer.PoissonRatio, layer.Thickness, layer.SlipRate});
    }
    const PavementLayer& subgrade = model.Layers[model.LayerCount];
    FillRow(MSFlexGrid1, model.LayerCount, {subgrade.Modulus, subgrade.PoissonRatio});
    MSFlexGrid2.Rows = model.LoadCount + 1;
    for (int i = 1; i <= model.LoadCount; ++i) {
        const SurfaceLoad& load = model.Loads[i];
        FillRow(MSFlexGrid2, i,
                {load.VerticalLoad, load.Radius, load.LoadX, load.LoadY, load.HorizontalLoad, load.AngleFromX});
    }
    MSFlexGrid3.Rows = model.PointCount + 1;
    for (int i = 1; i <= model.PointCount; ++i) {
        const InterestPoint& point = model.Points[i];
        FillRow(MSFlexGrid3, i, {static_cast<double>(point.LayerNumber), point.PointX, point.PointY, point.PointZ});
    }
}

// Save --------------------------------------------------------------------------------------------------------------

void Form3::Command6_Click() {  // SAVE DATA
    const PavementTexts texts = TextsFromControls();
    if (FileExists(texts.InputFileName) && Box(64, forms::Icon::None, forms::Buttons::YesNo) == forms::Answer::No) {
        Box(65, forms::Icon::Information);
        Command5.Enabled = true;
        Command6.Enabled = false;
        Command5.SetFocus();
        return;  // boxes and grids stay disabled: DATA OK! leads to the same question again
    }
    WriteWholeFile(texts.InputFileName, WriteAnalysisInput(ModelFromTexts(texts), Units(), languageBase_));
    Command6.Enabled = false;
    Command7.Enabled = true;
    Command7.SetFocus();
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
                                   .ProgramFolder = programFolder_};
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
        .HideComputing = [this] { HideNote(); }};

    switch (RunAnalysis(request, callbacks)) {
        case SolverRunResult::InputMissing:
            Box(172, forms::Icon::Stop);
            Text9.Visible = false;
            break;
        case SolverRunResult::Uncompleted:
            Box(173, forms::Icon::Stop);
            break;
        case SolverRunResult::Finished:
            Hide();
            App().Show(Form4::FormName);
            break;
    }
}

}  // namespace zirvo
