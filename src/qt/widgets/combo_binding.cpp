// Combo boxes, see combo_binding.h.
#include "qt/widgets/combo_binding.h"

#include <QAbstractItemView>
#include <QKeyEvent>

#include "forms/form.h"
#include "qt/widgets/key_strokes.h"

namespace zirvo::widgets {

ListCombo::ListCombo(QWidget& parent) : QComboBox(&parent), line_(new TextLine(nullptr)) {
    setEditable(true);
    setLineEdit(line_);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    // Qt would choose the entry whose text has been typed when the line is left.
    disconnect(line_, &QLineEdit::editingFinished, this, nullptr);
    disconnect(line_, &QLineEdit::returnPressed, this, nullptr);
}

void ListCombo::showPopup() {
    QComboBox::showPopup();
    if (Opened) {
        Opened(view()->isVisible());
    }
}

void ListCombo::hidePopup() {
    QComboBox::hidePopup();
    if (Opened) {
        Opened(false);
    }
}

ComboBinding::ComboBinding(forms::ComboBox& combo, QWidget& parent)
    : ControlBinding(combo, *new ListCombo(parent)), combo_(combo), shown_(static_cast<ListCombo&>(Widget())) {
    shown_.Opened = [this](bool open) {
        if (!IsRetired()) {
            combo_.ListOpen = open;
        }
    };
    shown_.view()->installEventFilter(this);
    shown_.view()->window()->installEventFilter(this);
    TextLine& line = shown_.Line();
    line.Edited = [this] { Edit(); };
    line.Moved = [this] {
        if (!IsShowing() && MayAct() && shown_.Line().text().toStdString() == combo_.Text.Get()) {
            const CharacterRange selected = shown_.Line().Selected();
            combo_.UserSelected(selected.Start, selected.Length);
        }
    };
    line.Pasted = [this](const QString& text) {
        shown_.Line().insert(text.section(QLatin1Char('\n'), 0, 0));
        Edit();
    };
    connect(&shown_, &QComboBox::activated, this, [this](int index) { Act([&] { combo_.UserChoose(index); }); });
}

void ComboBinding::Edit() {
    const CharacterRange selected = shown_.Line().Selected();
    Act([&] { combo_.UserEdited(shown_.Line().text().toStdString(), selected.Start, selected.Length); });
}

bool ComboBinding::Commit(const QString& text) {
    shown_.Line().insert(text);
    Edit();
    return true;
}

void ComboBinding::ShowState() {
    if (shown_.count() != combo_.ListCount()) {
        shown_.clear();
        for (int i = 0; i < combo_.ListCount(); ++i) {
            shown_.addItem(ToQt(combo_.List(i)));
        }
    }
    if (shown_.currentIndex() != combo_.ListIndex.Get()) {
        shown_.setCurrentIndex(combo_.ListIndex);
    }
    shown_.Line().Display(ToQt(combo_.Text.Get()), {combo_.SelStart, combo_.SelLength});
    const bool open = combo_.ListOpen && combo_.IsUsable();
    if (open != shown_.view()->isVisible()) {
        if (open) {
            shown_.showPopup();
        } else {
            shown_.hidePopup();
        }
    }
}

std::optional<TextInBox> ComboBinding::TextToFit() const {
    constexpr int edges = 4;
    return TextInBox{.Text = {}, .Room = Place().size() - QSize(0, edges)};
}

bool ComboBinding::eventFilter(QObject* watched, QEvent* event) {
    if (IsRetired()) {
        return false;
    }
    if (watched == shown_.view()) {
        if (event->type() == QEvent::ShortcutOverride) {
            event->accept();  // Qt would take its entry already now, and the stroke itself would fall on the window
            return true;
        }
        if (event->type() == QEvent::KeyPress) {
            return ListKey(static_cast<QKeyEvent&>(*event));
        }
    }
    if (event->type() == QEvent::Hide && watched == shown_.view()->window()) {
        combo_.ListOpen = false;  // closed by a click elsewhere
    }
    return false;
}

bool ComboBinding::ListKey(QKeyEvent& event) {
    if (!MayAct()) {
        return true;
    }
    const forms::KeyStroke stroke = StrokeOfEvent(event);
    if (stroke.Code == forms::key::Tab) {
        shown_.hidePopup();
    }
    const bool used = combo_.Parent().UserKey(stroke);
    if (IsRetired()) {
        return true;
    }
    switch (stroke.Code) {
        case forms::key::Escape:
        case forms::key::F4:
            shown_.hidePopup();
            return true;
        case forms::key::Enter: {
            const int entry = shown_.view()->currentIndex().row();
            shown_.hidePopup();
            Act([&] { combo_.UserChoose(entry); });
            return true;
        }
        case forms::key::Up:
        case forms::key::Down:
        case forms::key::PageUp:
        case forms::key::PageDown:
            return used;  // else the list's own
        default:
            if (!used) {
                shown_.Line().event(&event);
            }
            return true;
    }
}

}  // namespace zirvo::widgets
