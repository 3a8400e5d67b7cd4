// One run of the map screen, from the click of a start button to the finished map; see form6.h.
#include <string>

#include "graphics/form5.h"
#include "graphics/form6.h"
#include "platform/fault_subject.h"
#include "platform/folders.h"
#include "shell/form2.h"
#include "text/number_text.h"
#include "text/version_stamp.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::Buttons;
using forms::Icon;

}  // namespace

void Form6::Command1_Click() {  // START ANALYSIS of an X-Y section
    const RunLock folder;
    if (TellIfBusy(folder)) {
        return;
    }
    refused_ = false;
    Command1.Enabled = false;
    Command2.Enabled = false;
    Command3.Enabled = false;
    Command6.Enabled = false;
    Command7.Enabled = false;
    Command8.Enabled = false;
    Command9.Enabled = false;
    const GraphicsInputData model = App().Get<Form5>().ModelFromControls();
    ReadDefinition(SectionKind::XY, Text1);
    if (DecideLayer(model) && PrepareRun(model)) {
        RunSectionXY();
    }
}

void Form6::Command10_Click() {  // START ANALYSIS of an X-Z section
    const RunLock folder;
    if (TellIfBusy(folder)) {
        return;
    }
    refused_ = false;
    Command2.Enabled = false;
    Command3.Enabled = false;
    Command10.Enabled = false;
    Command6.Enabled = false;
    Command7.Enabled = false;
    Command8.Enabled = false;
    const GraphicsInputData model = App().Get<Form5>().ModelFromControls();
    ReadDefinition(SectionKind::XZ, Text2);
    if (PrepareRun(model)) {
        RunSectionXZ();
    }
}

void Form6::ReadDefinition(SectionKind kind, const forms::TextBox& position) {
    Plot.Units = UnitSystemOf(App().Get<Form2>().UnitSystem());
    Plot.LanguageBase = LanguageBase;
    Plot.PositionText = position.Text;
    Plot.Section.Kind = kind;
    Plot.Section.SectionPosition = ParseNumberPrefix(Plot.PositionText);
    Plot.Section.LayerOfInterest = 0;
}

/// Sets the layer in which the plane is evaluated; false if the user refuses both neighbours of an interface.
bool Form6::DecideLayer(const GraphicsInputData& model) {
    const LayerQuestion ask = [this](Int16 layer, std::string_view title) {
        const bool yes = Tell(std::to_string(layer), std::string(title), Icon::Question, Buttons::YesNo) == Answer::Yes;
        if (yes) {
            Text1.SetFocus();
        }
        return yes;
    };
    const auto layer =
        ResolveLayerOfInterest(Plot.Section.SectionPosition, ThicknessesOf(model), model.LayerCount, LanguageBase, ask);
    if (!layer) {
        Tell(Words(170), "", Icon::Stop);
        Command1.Enabled = true;
        OpenWaysOut();
        Text1.SetFocus();
        return false;
    }
    Plot.Section.LayerOfInterest = *layer;
    return true;
}

/// Writes the solver's input; false where the user has been told why there is none.
bool Form6::PrepareRun(const GraphicsInputData& model) {
    // The file that a failed depth test has left open cannot be opened again. Too many points are told before that.
    if (inputLeftOpen_ && PointCountOf(BuildSectionGrid(model, Plot.Section.Kind)) <= PointLimit) {
        RaiseFileFault(fault::FileAlreadyOpen, SectionInputName);
    }
    switch (StartSection(Plot, model)) {
        case SectionInputStatus::Written:
            return true;
        case SectionInputStatus::TooManyPoints:
            Tell(128, Icon::None);
            Tell(129, Icon::None);
            OpenWaysOut();
            return false;  // the start stays disabled: a change of the position leads on
        case SectionInputStatus::DepthInvalid:
            break;
    }
    Tell(61, Icon::Exclamation);
    Tell(57, Icon::Stop);
    inputLeftOpen_ = true;
    Command8.Enabled = true;
    Command9.Enabled = true;
    if (Plot.Section.Kind == SectionKind::XZ) {
        Command10.Enabled = true;
    }
    return false;
}

/// After a refusal the user is free to go, and stays so on each way back to the choice of a section.
void Form6::OpenWaysOut() {
    refused_ = true;
    for (forms::CommandButton* button : {&Command2, &Command3, &Command8, &Command9}) {
        button->Enabled = true;
    }
}

void Form6::RunSectionXY() {
    RunSolverVisibly();
    ConvertSectionXY();
}

void Form6::RunSectionXZ() {
    RunSolverVisibly();
    ConvertSectionXZ();
}

void Form6::RunSolverVisibly() {
    Label24.Caption = Words(164);
    Label24.Visible = true;
    World().PaintNow(*this);
    RunGraphicsSolver();
    Label24.Visible = false;
    World().DiscardInput();
}

void Form6::RunGraphicsSolver() {
    if (Option3.Value) {
        Command1.Enabled = false;
    } else if (Option4.Value) {
        Command10.Enabled = false;
    }
    Command6.Enabled = false;
    Command7.Enabled = false;
    Command8.Enabled = false;
    Command9.Enabled = false;
    const ProcessCallbacks callbacks{
        .HandleObtained = {}, .WaitOver = {}, .Waiting = [this] { World().WorkGoesOn(-1); }};
    if (SolveSection(Plot, programFolder_, *process_, callbacks) == GraphicsRunResult::InputMissing) {
        Tell(172, Icon::Stop);  // and the caller goes on to the report
    }
}

void Form6::ConvertSectionXY() {
    Command6.Enabled = false;
    Command7.Enabled = false;
    Command8.Enabled = false;
    Command9.Enabled = false;
    ConvertAndLoad();
}

void Form6::ConvertSectionXZ() {
    ConvertAndLoad();
}

/// One work for the user who waits.
void Form6::ConvertAndLoad() {
    constexpr double shareOfConversion = 0.75;
    const Progress whole = [this](double done) { World().WorkGoesOn(done); };
    ConvertSection(Plot, PartOf(whole, 0, shareOfConversion));
    LoadSectionData(PartOf(whole, shareOfConversion, 1));
}

bool Form6::TellIfBusy(const RunLock& folder) const {
    if (folder.IsBusy()) {
        Tell(FolderBusyText(LanguageBase), MakeVersionStamp(BoxStamp), Icon::Stop);
    }
    return folder.IsBusy();
}

bool Form6::TellIfReplaced() const {
    const std::optional<std::int64_t> now = WrittenAt(SectionReportName);
    const bool replaced = now && reportWritten_ && *now != *reportWritten_;
    if (replaced) {
        Tell(ReportReplacedText(LanguageBase), MakeVersionStamp(BoxStamp), Icon::Stop);
    }
    return replaced;
}

void Form6::LoadSectionData(const Progress& progress) {
    reportWritten_ = WrittenAt(SectionReportName);
    const ReadOuts texts = LoadSection(Plot, progress);
    if (Plot.Data.Count() > DataLineLimit) {
        TellTooManyDataLines();
        return;
    }
    Label17.Caption = texts.AxisMin1;
    Label18.Caption = texts.AxisMax1;
    Label20.Caption = texts.AxisMin2;
    Label21.Caption = texts.AxisMax2;
    Text3.Text = texts.ValueMin;  // a changed text takes its number into the range once more
    Text4.Text = texts.ValueMax;
    Label17.BackColor = forms::White;
    Label18.BackColor = forms::White;
    Label20.BackColor = forms::White;
    Label21.BackColor = forms::White;
    DataReady = true;
    ClearPicture();
    Command5.Enabled = false;
    Command7.Enabled = false;
    DrawContourMap();
}

void Form6::TellTooManyDataLines() {
    Tell(Words(123) + "\n" + std::to_string(DataLineLimit) + Words(124), Words(125), Icon::Exclamation);
}

}  // namespace zirvo
