// Windows of forms, see form_window.h.
#include "qt/widgets/form_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

#include "forms/application.h"
#include "forms/ms_flex_grid.h"
#include "forms/text_box.h"
#include "qt/widgets/key_strokes.h"
#include "qt/widgets/make_binding.h"
#include "qt/widgets/pixels.h"
#include "qt/widgets/screen_fonts.h"

namespace zirvo::widgets {

FormWindow::FormWindow(forms::Form& form, const MapPictures& maps) : form_(form), maps_(maps) {
    setObjectName(ToQt(form.Name()));
    setWindowRole(objectName());  // by which other programs tell the windows apart: their titles are all the same
    setFocusPolicy(Qt::NoFocus);
    setAcceptDrops(true);
    for (forms::Control* control : form_.Controls) {
        if (BindingOf(control) == nullptr) {
            Bind(*control);
        }
    }
    std::vector<forms::Control*> byDepth(form_.Controls.begin(), form_.Controls.end());
    std::sort(byDepth.begin(), byDepth.end(),
              [](const forms::Control* left, const forms::Control* right) { return left->Depth() < right->Depth(); });
    for (const forms::Control* control : byDepth) {
        BindingOf(control)->Widget().raise();
    }
    form_.Attach(this);
    Refresh();
    FocusMoved();
}

FormWindow::~FormWindow() {
    Retire();
}

void FormWindow::Retire() {
    if (retired_) {
        return;
    }
    retired_ = true;
    form_.Attach(nullptr);
    for (const auto& [control, binding] : bindings_) {
        binding->Retire();
    }
    bindings_.clear();
    hide();
}

void FormWindow::Refresh() {
    if (retired_) {
        return;
    }
    setWindowTitle(ToQt(form_.Caption.Get()));
    setFont(ScreenFont(form_.Font));
    const QSize size(PixelEdge(form_.Width), PixelEdge(form_.Height));
    if (size != minimumSize()) {
        setFixedSize(size);
    }
    Qt::WindowFlags frame = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowMinimizeButtonHint;
    if (form_.HasCloseEntry) {
        frame |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    }
    if (windowFlags() != frame) {
        const bool wasVisible = isVisible();
        setWindowFlags(frame);  // hides it
        setVisible(wasVisible);
    }
    if (isVisible()) {
        return;  // it stays where the user has moved it
    }
    if (form_.Centered) {
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        setGeometry(
            QRect(screen.topLeft() + QPoint((screen.width() - size.width()) / 2, (screen.height() - size.height()) / 2),
                  size));
    } else {
        move(PixelEdge(form_.Left), PixelEdge(form_.Top));
    }
}

void FormWindow::SetTextScale(double scale) {
    if (scale == textScale_) {
        return;
    }
    textScale_ = scale;
    form_.TextSizesChanged();
    for (forms::Control* control : form_.Controls) {
        if (auto* grid = dynamic_cast<forms::MSFlexGrid*>(control)) {
            form_.App().Dispatch([grid, scale] { grid->UserScaleCells(scale); });
        }
    }
    for (const auto& [control, binding] : bindings_) {
        binding->Refresh();
    }
}

ControlBinding& FormWindow::Bind(forms::Control& control) {
    QWidget* parent = this;
    if (forms::Control* container = control.Container(); container != nullptr) {
        ControlBinding* around = BindingOf(container);
        parent = &(around != nullptr ? *around : Bind(*container)).Widget();
    }
    ControlBinding& binding = MakeBinding(control, *parent, maps_);
    bindings_.emplace(&control, &binding);
    Watch(binding.Widget());
    binding.Begin();
    return binding;
}

void FormWindow::Watch(QWidget& widget) {
    widget.installEventFilter(this);
    for (QWidget* child : widget.findChildren<QWidget*>()) {
        if (!child->isWindow() && !child->window()->windowFlags().testFlag(Qt::Popup)) {
            child->installEventFilter(this);
        }
    }
}

void FormWindow::ControlAdded(forms::Control& control) {
    if (!retired_ && BindingOf(&control) == nullptr) {
        Bind(control);
    }
}

void FormWindow::ControlRemoved(forms::Control& control) {
    if (const auto found = bindings_.find(&control); found != bindings_.end()) {
        found->second->Retire();
        bindings_.erase(found);
    }
}

void FormWindow::FocusMoved() {
    ControlBinding* active = BindingOf(form_.ActiveControl());
    QWidget& target = active != nullptr ? active->Widget() : *this;
    setAttribute(Qt::WA_KeyboardFocusChange);  // who has it is marked, also when a click has given it
    target.setFocus(Qt::OtherFocusReason);
}

ControlBinding* FormWindow::BindingOf(const forms::Control* control) const {
    const auto found = bindings_.find(control);
    return found == bindings_.end() ? nullptr : found->second;
}

ControlBinding* FormWindow::BindingAt(QObject* watched) const {
    for (QObject* object = watched; object != nullptr && object != this; object = object->parent()) {
        for (const auto& [control, binding] : bindings_) {
            if (&binding->Widget() == object) {
                return binding;
            }
        }
    }
    return nullptr;
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    if (retired_) {
        return false;
    }
    switch (event->type()) {
        case QEvent::KeyPress:
            if (passing_) {
                return false;
            }
            Key(static_cast<QKeyEvent&>(*event), watched);
            return true;
        case QEvent::InputMethod:
            return InputMethod(static_cast<QInputMethodEvent&>(*event), BindingAt(watched));
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick: {
            ControlBinding* at = BindingAt(watched);
            return at != nullptr && Press(*at);
        }
        case QEvent::Wheel: {
            const ControlBinding* at = BindingAt(watched);
            return IsBusy() || (at != nullptr && !at->TakesWheel());
        }
        case QEvent::ContextMenu:
            return IsBusy();
        default:
            return false;
    }
}

bool FormWindow::event(QEvent* event) {
    // The window itself has the keys while no control does.
    if (event->type() == QEvent::KeyPress && !retired_) {
        if (!passing_) {
            Key(static_cast<QKeyEvent&>(*event), nullptr);
        }
        return true;
    }
    return QWidget::event(event);
}

/// The form sees the stroke, and what it leaves goes to the widget that edits: to that alone, since Qt hands what a
/// widget makes nothing of on to the widgets around it, where it would come by here as another stroke.
void FormWindow::Key(const QKeyEvent& event, QObject* receiver) {
    if (IsBusy() || WindowKey(event)) {
        return;
    }
    const forms::Control* before = form_.ActiveControl();
    ControlBinding* active = BindingOf(before);
    const QPointer<QWidget> widget = active == nullptr ? nullptr : &active->Widget();
    const QPointer<QObject> alive = receiver;
    forms::KeyStroke stroke = StrokeOfEvent(event);
    // A display that is busy hands a repetition over as a new press; no hand strikes one key so fast again.
    constexpr quint64 fasterThanAHand = 60;  // ms
    const bool sameKey = event.key() == lastKey_ && event.timestamp() - lastStroke_ <= fasterThanAHand;
    lastKey_ = event.key();
    lastStroke_ = event.timestamp();
    if ((event.isAutoRepeat() || sameKey) && keyDown_.isValid()) {
        stroke.HeldFor = static_cast<int>(std::clamp<qint64>(keyDown_.elapsed(), 1, 1'000'000));
    } else {
        keyDown_.start();
    }
    const bool used = form_.UserKey(stroke);
    if (used || widget.isNull() || active != BindingOf(before) || !active->EditsText() || IsBusy()) {
        return;
    }
    QObject* target = alive;
    if (BindingAt(target) != active) {
        FocusMoved();  // Qt's focus had been taken by the disabling of a widget
        target = widget;
    }
    passing_ = true;
    const std::unique_ptr<QKeyEvent> copy(event.clone());
    QCoreApplication::sendEvent(target, copy.get());
    passing_ = false;
}

/// The focus moves before the widget sees the press. True if the press comes to nothing by that.
bool FormWindow::Press(ControlBinding& at) {
    if (IsBusy()) {
        return true;
    }
    if (!at.TakesFocusOnPress()) {
        return false;
    }
    const QPointer<QWidget> widget = &at.Widget();
    at.Model().UserFocus();
    return widget.isNull() || at.IsRetired() || !at.Model().IsUsable() || IsBusy();
}

bool FormWindow::InputMethod(const QInputMethodEvent& event, ControlBinding* at) {
    if (IsBusy() || at == nullptr) {
        return true;
    }
    if (event.commitString().isEmpty() || event.replacementLength() != 0) {
        return !at->EditsText();  // what is not yet decided is shown where text is edited
    }
    // What has been decided passes the filters of the control like strokes of keys. Elsewhere than in a text field
    // nothing was shown of it before.
    QWidget& widget = at->Widget();
    const QPointer<QWidget> alive = &widget;
    if (at->EditsText()) {
        QInputMethodEvent clear;
        QCoreApplication::sendEvent(&widget, &clear);
    }
    at->Commit(event.commitString());
    if (!event.preeditString().isEmpty() && !alive.isNull() && !at->IsRetired() && at->EditsText()) {
        QInputMethodEvent rest(event.preeditString(), event.attributes());
        QCoreApplication::sendEvent(&widget, &rest);
    }
    return true;
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (!IsBusy()) {
        form_.UserClose();
    }
}

void FormWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    NameForAssistance();
    FocusMoved();
}

/// Nothing moves the focus but the model: not Tab, nor the disabling of a widget.
bool FormWindow::focusNextPrevChild(bool next) {
    Q_UNUSED(next)
    return false;
}

/// A control without words of its own is called by the label that stands left of it, else by its group.
void FormWindow::NameForAssistance() {
    for (const auto& [control, binding] : bindings_) {
        QWidget& widget = binding->Widget();
        if (!control->TakesFocus() || dynamic_cast<const forms::CommandButton*>(control) != nullptr ||
            dynamic_cast<const forms::OptionButton*>(control) != nullptr ||
            dynamic_cast<const forms::CheckBox*>(control) != nullptr) {
            continue;
        }
        QString name;
        double nearest = std::numeric_limits<double>::infinity();
        for (forms::Control* other : form_.Controls) {
            const auto* label = dynamic_cast<const forms::Label*>(other);
            const bool beside = label != nullptr && label->Container() == control->Container() && label->Visible &&
                                label->Top < control->Top + control->Height &&
                                control->Top < label->Top + label->Height && label->Left < control->Left;
            if (beside && control->Left - label->Left < nearest) {
                nearest = control->Left - label->Left;
                name = ToQt(label->Caption.Get());
            }
        }
        if (const auto* frame = dynamic_cast<const forms::Frame*>(control->Container()); name.isEmpty() && frame) {
            name = ToQt(frame->Caption.Get());
        }
        widget.setAccessibleName(name.isEmpty() ? ToQt(control->Name()) : name);
    }
}

}  // namespace zirvo::widgets
