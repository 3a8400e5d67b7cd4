// The picture as the user takes it away: in which file, in which format, on the clipboard; see form6.h.
#include "contour/point_overlays.h"
#include "forms/combo_box.h"
#include "forms/text_box.h"
#include "graphics/form6.h"
#include "graphics/picture_file.h"

namespace zirvo {
namespace {

constexpr int ControlC = 3;

/// The control has a text of its own to copy.
bool HasSelection(const forms::Control& control) {
    if (const auto* box = dynamic_cast<const forms::TextBox*>(&control)) {
        return box->SelLength > 0;
    }
    const auto* combo = dynamic_cast<const forms::ComboBox*>(&control);
    return combo != nullptr && combo->SelLength > 0;
}

/// A range that stands in the map while something is drawn by it.
class RangeOf {
public:
    RangeOf(ContourMap& map, double lowest, double highest) : map_(map), lowest_(map.ValueMin), highest_(map.ValueMax) {
        map_.ValueMin = lowest;
        map_.ValueMax = highest;
    }
    ~RangeOf() {
        map_.ValueMin = lowest_;
        map_.ValueMax = highest_;
    }
    RangeOf(const RangeOf&) = delete;
    RangeOf& operator=(const RangeOf&) = delete;

private:
    ContourMap& map_;
    double lowest_;
    double highest_;
};

}  // namespace

/// Ctrl+C copies the picture while there is one to save, unless a text is selected where the focus is.
void Form6::BindCopyKey() {
    for (forms::Control* control : Controls) {
        if (!control->TakesFocus()) {
            continue;
        }
        control->KeyPress = [this, control, own = control->KeyPress](int& keyAscii) {
            if (keyAscii == ControlC && Command7.Enabled && !HasSelection(*control)) {
                picture_->Copy();
                keyAscii = 0;
                return;
            }
            if (own) {
                own(keyAscii);
            }
        };
    }
}

void Form6::SavePictureAs(const std::string& path) {
    if (ReplacesOtherThanPicture(path) && Tell(64, forms::Icon::None, forms::Buttons::YesNo) != forms::Answer::Yes) {
        return;
    }
    const MapFileFormat format = FormatOfPictureFile(path);
    if (format == MapFileFormat::Bitmap) {
        picture_->SaveBitmap(path);
        return;
    }
    picture_->Save(path, format, drawn_ ? TitleOf(Plot) : std::string(),
                   [this](PlotSurface& surface) { DrawAgain(surface); });
}

/// The same drawing as on the screen, which may be older than what the boxes say by now.
void Form6::DrawAgain(PlotSurface& surface) {
    surface.Cls();
    if (!drawn_) {
        return;
    }
    const RangeOf range(Plot.Data.Map, drawn_->ValueMin, drawn_->ValueMax);
    DrawSection(surface, Plot, drawn_->Items, drawn_->LineCount, picture_->Geometry(),
                [this](double done) { World().WorkGoesOn(done); });
    for (const ProbeMark& mark : drawn_->Marks) {
        DrawProbeMark(surface, mark.X, mark.Y, mark.Value);
    }
}

}  // namespace zirvo
