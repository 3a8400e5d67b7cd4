// The user's work on a standing map: display items, value range, count of lines, RE-DRAW, the probe; see form6.h.
#include "base/runtime_fault.h"
#include "contour/display_rules.h"
#include "contour/number_format.h"
#include "contour/point_overlays.h"
#include "graphics/form6.h"
#include "text/number_text.h"

namespace zirvo {
namespace {

constexpr int LeftButton = 1;

void DropRefusedKey(int& keyAscii) {
    if (!ValueRangeKeyPasses(keyAscii)) {
        keyAscii = 0;
    }
}

std::string ValueRangeText(double value) {
    return FormatNumber(value, NumberFormat::Exponent2);
}

}  // namespace

DisplayItems Form6::Items() const {
    return {.ColorFill = Check1(0).Value,
            .ContourLines = Check1(1).Value,
            .Legend = Check1(2).Value,
            .AnalyticalPoints = Check1(3).Value,
            .AnalyticalResults = Check1(4).Value};
}

void Form6::Check1_Click() {
    if (!tellingItems_ && JudgeDisplayItems(Items()).ItemsCorrected) {
        tellingItems_ = true;  // the boxes that are set here fire this rule again, while their fellow still stands
        Tell(123, forms::Icon::Exclamation);
        Check1(3).Value = true;
        Check1(2).Value = false;
        tellingItems_ = false;
    }
    const DisplayRuling ruling = JudgeDisplayItems(Items());
    Command5.Enabled = ruling.RedrawEnabled;
    Command6.Enabled = ruling.PanelEnabled;
}

void Form6::Text3_Change() {
    Plot.Data.Map.ValueMin = ParseNumberPrefix(Text3.Text.Get());
    Command5.Enabled = true;
}

void Form6::Text4_Change() {
    Plot.Data.Map.ValueMax = ParseNumberPrefix(Text4.Text.Get());
    Command5.Enabled = true;
}

void Form6::Text14_Change() {
    try {
        ContourLineCount = RoundToInt16(ParseNumberPrefix(Text14.Text.Get()));
    } catch (RuntimeFault& caught) {
        caught.SayAbout(FaultMatter::LineCount, Text14.Text);
        throw;
    }
}

void Form6::Text3_KeyPress(int& keyAscii) {
    DropRefusedKey(keyAscii);
}

void Form6::Text4_KeyPress(int& keyAscii) {
    DropRefusedKey(keyAscii);
}

void Form6::Text3_KeyDown(int keyCode) {
    if (keyCode == forms::key::Enter) {
        Text3.Text = ValueRangeText(Plot.Data.Map.ValueMin);
    }
}

void Form6::Text4_KeyDown(int keyCode) {
    if (keyCode == forms::key::Enter) {
        Text4.Text = ValueRangeText(Plot.Data.Map.ValueMax);
    }
}

void Form6::Text14_KeyDown(int keyCode) {
    if (keyCode == forms::key::Enter) {
        Command6.Press();
    }
}

void Form6::Command5_Click() {  // RE-DRAW
    if (ParseNumberPrefix(Text4.Text.Get()) < ParseNumberPrefix(Text3.Text.Get())) {
        Text3.Text = ValueRangeText(Plot.Data.ContourMin);
        EnableAfterDrawing();
        return;
    }
    const bool fromTheReport = Text3.Text.Get().empty() || Text4.Text.Get().empty();
    std::optional<RunLock> folder;
    if (fromTheReport && (TellIfBusy(folder.emplace()) || TellIfReplaced())) {
        return;
    }
    DisableRangeBoxes();
    EnableItems(false);
    Command2.Enabled = false;
    Command3.Enabled = false;
    Command5.Enabled = false;
    Command10.Enabled = false;
    Command6.Enabled = false;
    Command7.Enabled = false;
    Command8.Enabled = false;
    Command9.Enabled = false;
    MendLineCount();
    if (!fromTheReport) {
        DrawContourMap();
    } else {
        ConvertSectionXY();  // a section of either kind: the report that stands has been stamped before
    }
}

/// A count below the least becomes the least, where it is used and where it is seen.
void Form6::MendLineCount() {
    const Int16 allowed = AllowedContourLineCount(ContourLineCount);
    if (allowed != ContourLineCount) {
        ContourLineCount = allowed;
        Text14.Text = std::to_string(allowed);
    }
}

void Form6::DrawContourMap() {
    drawn_ = DrawnMap{.Items = Items(),
                      .LineCount = ContourLineCount,
                      .ValueMin = Plot.Data.Map.ValueMin,
                      .ValueMax = Plot.Data.Map.ValueMax,
                      .Marks = {}};
    DrawSection(picture_->Surface(), Plot, drawn_->Items, drawn_->LineCount, picture_->Geometry(),
                [this](double done) { World().WorkGoesOn(done); });
    picture_->Present();
    EnableAfterDrawing();
}

/// What works once a map stands. The panel and the start buttons are not among it: they come back with a click of a
/// display item and with a change of the position.
void Form6::EnableAfterDrawing() {
    Text3.Enabled = true;
    Text4.Enabled = true;
    Command2.Enabled = true;
    Command3.Enabled = true;
    Command7.Enabled = true;
    Command8.Enabled = true;
    Command9.Enabled = true;
    EnableItems(true);
    Command5.Enabled = false;
}

void Form6::Command6_Click() {  // ">>" and "<<"
    if (!ContourPanelOpen) {
        ContourPanelOpen = true;
        Command6.Caption = Words(116);
        Frame4.Visible = true;
        Text14.SetFocus();
        Command5.Enabled = false;
        return;
    }
    ContourPanelOpen = false;
    Command6.Caption = Words(115);
    MendLineCount();
    Frame4.Visible = false;
    Command5.Enabled = DataReady;  // the map may have been dropped meanwhile
    Command5.SetFocus();
}

void Form6::Picture1_MouseDown(int button, int x, int y) {
    if (button != LeftButton || !DataReady) {
        return;
    }
    const PicturePoint point = picture_->PointAt(x, y);
    const auto value = ProbeValue(Plot.Data.Map, point.X, point.Y);
    if (value) {
        DrawProbeMark(picture_->Surface(), point.X, point.Y, *value);
        if (drawn_) {
            drawn_->Marks.push_back({.X = point.X, .Y = point.Y, .Value = *value});
        }
        picture_->Present();
    }
}

}  // namespace zirvo
