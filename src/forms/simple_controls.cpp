// Labels, frames and pictures.
#include "forms/simple_controls.h"

#include "forms/application.h"

namespace zirvo::forms {

Label::Label(Form& form, ControlId id, Control* container)
    : Control(form, std::move(id), container),
      Caption(
          "", [this] { TellView(); }, [this] { Raise(Change); }),
      Align(Alignment::Left, [this] { TellView(); }),
      ForeColor(DefaultColor, [this] { TellView(); }),
      BackColor(DefaultColor, [this] { TellView(); }) {}

Frame::Frame(Form& form, ControlId id, Control* container)
    : Control(form, std::move(id), container), Caption("", [this] { TellView(); }) {}

Image::Image(Form& form, ControlId id, Control* container)
    : Control(form, std::move(id), container), Picture("", [this] { TellView(); }) {}

PictureBox::PictureBox(Form& form, ControlId id, Control* container)
    : Control(form, std::move(id), container),
      Picture("", [this] { TellView(); }),
      Text("", [this] { TellView(); }),
      BackColor(DefaultColor, [this] { TellView(); }) {}

void PictureBox::UserMouseDown(int button, int x, int y) {
    if (IsUsable()) {
        App().Dispatch([&] { Raise(MouseDown, button, x, y); });
    }
}

}  // namespace zirvo::forms
