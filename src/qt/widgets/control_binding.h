// One control and the widget that shows it: model to widget without raising an event, the user's act into the model.
// A class for each kind of control derives from it; make_binding.h chooses.
#pragma once
#include <QFont>
#include <QObject>
#include <QRect>
#include <QString>
#include <QWidget>
#include <optional>
#include <string>
#include <utility>

#include "forms/application.h"
#include "forms/control.h"
#include "qt/widgets/fitted_font.h"

namespace zirvo::widgets {

/// The text of a label on a widget that would take "&" for a mark of its own.
QString WithoutMnemonics(const std::string& text);
QString ToQt(const std::string& text);

/// Belongs to its widget and dies with it, later than the control if the control goes first.
class ControlBinding : public QObject, public forms::ControlView {
public:
    ~ControlBinding() override;

    QWidget& Widget() const { return *widget_; }
    forms::Control& Model() const { return model_; }

    /// Reads the control again. Raises nothing.
    void Refresh() final;
    /// Makes the control's present state visible for the first time and begins to follow it.
    void Begin();
    /// The control is going: nothing more is read from it or written to it, and the widget goes as soon as nothing of
    /// it is running.
    void Retire();
    bool IsRetired() const { return retired_; }

    /// Whether strokes that the control leaves alone go on to the widget's own editing.
    virtual bool EditsText() const { return false; }
    /// Whether the wheel does anything here.
    virtual bool TakesWheel() const { return false; }
    /// Whether it can be scrolled while the control is disabled: Qt is then not told of that, and the widget draws
    /// itself as disabled.
    virtual bool ScrollsDisabled() const { return false; }
    /// Whether a press of the mouse gives the control the focus before the widget sees it.
    virtual bool TakesFocusOnPress() const { return model_.TakesFocus(); }
    /// An input method has committed a text here. True if that is all there is to do.
    virtual bool Commit(const QString& text);

protected:
    ControlBinding(forms::Control& model, QWidget& widget);

    /// Shows what is special to the kind of control. Called while IsShowing().
    virtual void ShowState() = 0;
    /// The view that the control is given; the binding itself unless the kind wants to know more.
    virtual forms::ControlView& View() { return *this; }
    virtual QRect Place() const;
    /// The control is going; the widget lives on for a while and must not look at it any more.
    virtual void Retiring() {}
    /// What must not be cut off, and the room for it. Nothing where the text can be scrolled.
    virtual std::optional<TextInBox> TextToFit() const { return std::nullopt; }

    /// True while the widget is brought up to date: its signals then are no acts of the user.
    bool IsShowing() const { return showing_; }
    /// Whether the user may act now: not on a control that is gone, nor while a handler runs.
    bool MayAct() const;
    /// Does what the user asks for if he may; then the widget shows what came of it.
    template <class Action>
    void Act(Action action) {
        if (showing_) {
            return;
        }
        if (MayAct()) {
            action();
        }
        Refresh();
    }

private:
    void ShowFont();

    forms::Control& model_;
    QWidget* widget_;
    /// What the widget's font was chosen by.
    struct FontChoice {
        forms::FontSpec Spec;
        double Scale = 1;
        std::optional<TextInBox> Text;
        bool operator==(const FontChoice&) const = default;
    };
    std::optional<FontChoice> shownFont_;
    int shownDepth_ = 0;
    bool showing_ = false;
    bool retired_ = false;
};

}  // namespace zirvo::widgets
