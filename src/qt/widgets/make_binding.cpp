// One binding for each kind of control, see make_binding.h.
#include "qt/widgets/make_binding.h"

#include <cassert>

#include "forms/combo_box.h"
#include "forms/ms_flex_grid.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "qt/widgets/button_bindings.h"
#include "qt/widgets/combo_binding.h"
#include "qt/widgets/grid_binding.h"
#include "qt/widgets/label_bindings.h"
#include "qt/widgets/picture_bindings.h"
#include "qt/widgets/scroll_bar_binding.h"
#include "qt/widgets/text_bindings.h"

namespace zirvo::widgets {

ControlBinding& MakeBinding(forms::Control& control, QWidget& parent, const MapPictures& maps) {
    if (auto* label = dynamic_cast<forms::Label*>(&control)) {
        return *new LabelBinding(*label, parent);
    }
    if (auto* frame = dynamic_cast<forms::Frame*>(&control)) {
        return *new FrameBinding(*frame, parent);
    }
    if (auto* image = dynamic_cast<forms::Image*>(&control)) {
        return *new ImageBinding(*image, parent);
    }
    if (auto* picture = dynamic_cast<forms::PictureBox*>(&control)) {
        return *new PictureBinding(*picture, parent, maps);
    }
    if (auto* button = dynamic_cast<forms::CommandButton*>(&control)) {
        return *new CommandBinding(*button, parent);
    }
    if (auto* option = dynamic_cast<forms::OptionButton*>(&control)) {
        return *new OptionBinding(*option, parent);
    }
    if (auto* check = dynamic_cast<forms::CheckBox*>(&control)) {
        return *new CheckBinding(*check, parent);
    }
    if (auto* bar = dynamic_cast<forms::VScrollBar*>(&control)) {
        return *new ScrollBarBinding(*bar, parent);
    }
    if (auto* combo = dynamic_cast<forms::ComboBox*>(&control)) {
        return *new ComboBinding(*combo, parent);
    }
    if (auto* grid = dynamic_cast<forms::MSFlexGrid*>(&control)) {
        return *new GridBinding(*grid, parent);
    }
    auto* box = dynamic_cast<forms::TextBox*>(&control);
    assert(box != nullptr && "every kind of control has a widget");
    if (box->MultiLine) {
        return *new PageBinding(*box, parent);
    }
    return *new TextBinding(*box, parent);
}

}  // namespace zirvo::widgets
