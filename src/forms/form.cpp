// The life of a form: loading, showing, hiding, unloading.
#include "forms/form.h"

#include "forms/application.h"

namespace zirvo::forms {
namespace {

/// Widths of texts are measured anew behind so many: the row headings of the largest grid, twice over.
constexpr std::size_t MostWidths = 20000;

}  // namespace

Form::Form(forms::Application& application, std::string name)
    : Caption("", [this] { TellView(); }),
      Left(0, [this] { TellView(); }),
      Top(0, [this] { TellView(); }),
      Width(0, [this] { TellView(); }),
      Height(0, [this] { TellView(); }),
      Centered(false, [this] { TellView(); }),
      HasCloseEntry(true, [this] { TellView(); }),
      Font(FontSpec{}, [this] { TellView(); }),
      Controls(*this),
      application_(application),
      name_(std::move(name)) {}

Form::~Form() {
    Controls.added_.clear();  // while the members that they leave are still there
}

Desktop& Form::World() const {
    return application_.World();
}

void Form::TellView() const {
    if (view_ != nullptr) {
        view_->Refresh();
    }
}

void Form::Show() {
    application_.Dispatch([this] {
        if (!gone_) {
            visible_ = true;
            World().ShowForm(*this);
            TellFocus();
        }
    });
}

void Form::Hide() {
    application_.Dispatch([this] {
        if (visible_) {
            visible_ = false;
            World().HideForm(*this);
        }
    });
}

void Form::ZOrder() {
    if (visible_) {
        World().ShowForm(*this);
    }
}

void Form::Unload() {
    application_.Dispatch([this] { UnloadFor(UnloadMode::Code); });
}

void Form::UserClose() {
    if (HasCloseEntry) {
        application_.Dispatch([this] { UnloadFor(UnloadMode::ControlMenu); });
    }
}

void Form::UnloadFor(UnloadMode mode) {
    if (gone_ || unloading_) {
        return;
    }
    bool cancel = false;
    Form_QueryUnload(cancel, mode);
    if (cancel || gone_) {
        return;
    }
    unloading_ = true;
    Form_Unload();
    gone_ = true;
    loaded_ = false;
    Hide();
    application_.BuryForm(*this);
}

void Form::Form_QueryUnload(bool& cancel, UnloadMode mode) {
    cancel = mode == UnloadMode::ControlMenu;
}

float Form::TextWidth(const std::string& text) const {
    if (!(Font == widthsFont_) || widths_.size() >= MostWidths) {
        widths_.clear();
        widthsFont_ = Font;
    }
    const auto known = widths_.find(text);
    if (known != widths_.end()) {
        return known->second;
    }
    const float width = World().TextWidth(Font, text);
    widths_.emplace(text, width);
    return width;
}

}  // namespace zirvo::forms
