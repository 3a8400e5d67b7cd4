// What all bindings share, see control_binding.h.
#include "qt/widgets/control_binding.h"

#include "forms/form.h"
#include "qt/widgets/form_window.h"
#include "qt/widgets/pixels.h"
#include "qt/widgets/screen_fonts.h"

namespace zirvo::widgets {
namespace {

QString ObjectName(const forms::Control& model) {
    const QString name = ToQt(model.Name());
    return model.Index() < 0 ? name : QStringLiteral("%1(%2)").arg(name).arg(model.Index());
}

}  // namespace

QString ToQt(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString WithoutMnemonics(const std::string& text) {
    return ToQt(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

ControlBinding::ControlBinding(forms::Control& model, QWidget& widget)
    : QObject(&widget), model_(model), widget_(&widget) {
    widget.setObjectName(ObjectName(model));
    widget.setFocusPolicy(Qt::NoFocus);  // the model decides who has it
}

ControlBinding::~ControlBinding() {
    if (!retired_) {
        model_.Attach(nullptr);
    }
}

void ControlBinding::Begin() {
    model_.Attach(&View());
    Refresh();
}

void ControlBinding::Retire() {
    if (retired_) {
        return;
    }
    retired_ = true;
    Retiring();
    model_.Attach(nullptr);
    widget_->hide();
    widget_->deleteLater();
}

void ControlBinding::Refresh() {
    if (retired_ || showing_) {
        return;
    }
    showing_ = true;
    widget_->setGeometry(Place());
    ShowFont();
    ShowState();
    widget_->setEnabled(model_.Enabled || ScrollsDisabled());
    widget_->setVisible(model_.Visible);
    if (model_.Depth() != shownDepth_) {
        shownDepth_ = model_.Depth();
        widget_->raise();
    }
    if (model_.HasFocus() && model_.IsUsable() && widget_->window()->focusWidget() != widget_) {
        widget_->setFocus(Qt::OtherFocusReason);  // Qt took it from a widget that was disabled for a while
    }
    showing_ = false;
}

/// As told, unless the user has asked for another size or the text would be cut off.
void ControlBinding::ShowFont() {
    const forms::FontSpec& own = model_.Font;
    const auto* window = dynamic_cast<const FormWindow*>(widget_->window());
    FontChoice choice{.Spec = own == forms::FontSpec{} ? model_.Parent().Font.Get() : own,
                      .Scale = window == nullptr ? 1 : window->TextScale(),
                      .Text = TextToFit()};
    if (shownFont_ == choice) {
        return;
    }
    const QFont told = ScreenFont(choice.Spec);
    const QFont scaled = ScaledFont(told, choice.Scale, choice.Text ? choice.Text->Room.height() : AnyHeight);
    widget_->setFont(choice.Text ? LargestFontThatFits(told, scaled, *choice.Text) : scaled);
    shownFont_ = std::move(choice);
}

QRect ControlBinding::Place() const {
    return PixelRect(model_.Left, model_.Top, model_.Width, model_.Height);
}

bool ControlBinding::MayAct() const {
    return !retired_ && !model_.Parent().App().InHandler();
}

bool ControlBinding::Commit(const QString& text) {
    Q_UNUSED(text)
    return true;
}

}  // namespace zirvo::widgets
