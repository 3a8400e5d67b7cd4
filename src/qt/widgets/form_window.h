// The window of a form: its controls as widgets, and the user's keys and clicks on their way to the models.
#pragma once
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <unordered_map>

#include "forms/form.h"
#include "qt/widgets/control_binding.h"
#include "qt/widgets/find_window.h"
#include "qt/widgets/map_pictures.h"
#include "qt/widgets/print_page.h"
#include "qt/widgets/text_sizes.h"

namespace zirvo::widgets {

/// Of fixed size and without a close entry in its frame. Every key press goes to the form first; Qt's own editing gets
/// only what the form leaves to it. Qt never moves the focus: the form's active control has it.
class FormWindow final : public QWidget, public forms::FormView {
public:
    FormWindow(forms::Form& form, const MapPictures& maps);
    ~FormWindow() override;

    forms::Form& Model() const { return form_; }
    /// The form is going, or the program ends: every binding lets go of its control.
    void Retire();

    /// What the user has asked all texts to be scaled by; 1 is as told.
    double TextScale() const { return textScale_; }
    void SetTextScale(double scale);
    /// The user asks for another size of all texts, by Ctrl with +, - and 0.
    std::function<void(TextStep)> TextSizeAsked;
    /// How a printer is chosen for the page of text, at Ctrl+P. Nothing is printed without.
    PrinterChoice ChoosePrinter;

    void Refresh() override;
    void ControlAdded(forms::Control& control) override;
    void ControlRemoved(forms::Control& control) override;
    void FocusMoved() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    ControlBinding& Bind(forms::Control& control);
    void Watch(QWidget& widget);
    ControlBinding* BindingOf(const forms::Control* control) const;
    ControlBinding* BindingAt(QObject* watched) const;
    bool IsBusy() const { return retired_ || form_.App().InHandler(); }

    void Key(const QKeyEvent& event, QObject* receiver);
    bool WindowKey(const QKeyEvent& event);
    QPlainTextEdit* Page() const;
    bool Press(ControlBinding& at);
    bool InputMethod(const QInputMethodEvent& event, ControlBinding* at);
    void NameForAssistance();

    forms::Form& form_;
    const MapPictures& maps_;
    std::unordered_map<const forms::Control*, ControlBinding*> bindings_;
    QElapsedTimer keyDown_;  ///< since the last stroke that was no repetition
    int lastKey_ = 0;
    quint64 lastStroke_ = 0;  ///< the display's time of it [ms]
    bool passing_ = false;    ///< a stroke that the form has seen is on its way to a widget
    bool retired_ = false;
    double textScale_ = 1;
    QPointer<FindWindow> find_;  ///< belongs to this window; none before the first search
};

}  // namespace zirvo::widgets
