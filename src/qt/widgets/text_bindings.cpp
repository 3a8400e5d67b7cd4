// Text boxes, see text_bindings.h.
#include "qt/widgets/text_bindings.h"

#include <QTextCursor>

namespace zirvo::widgets {

TextBinding::TextBinding(forms::TextBox& box, QWidget& parent)
    : ControlBinding(box, *new TextLine(&parent)), box_(box), shown_(static_cast<TextLine&>(Widget())) {
    shown_.Edited = [this] {
        const CharacterRange selected = shown_.Selected();
        Act([&] { box_.UserEdited(shown_.text().toStdString(), selected.Start, selected.Length); });
    };
    shown_.Moved = [this] {
        // While an edit is on its way the caret moves first; the edit itself tells both.
        if (!IsShowing() && MayAct() && shown_.text().toStdString() == box_.Text.Get()) {
            const CharacterRange selected = shown_.Selected();
            box_.UserSelected(selected.Start, selected.Length);
        }
    };
    shown_.Pasted = [this](const QString& text) { Act([&] { box_.Paste(text.toStdString()); }); };
}

bool TextBinding::Commit(const QString& text) {
    Act([&] { box_.Type(text.toStdString()); });
    return true;
}

void TextBinding::ShowState() {
    shown_.setFrame(box_.BorderStyle.Get() != 0);
    shown_.setReadOnly(box_.Locked);
    shown_.Display(ToQt(box_.Text.Get()), {box_.SelStart, box_.SelLength});
}

/// It scrolls sideways; a line of it must be as high as the box.
std::optional<TextInBox> TextBinding::TextToFit() const {
    const int edges = box_.BorderStyle.Get() != 0 ? 4 : 0;
    return TextInBox{.Text = {}, .Room = Place().size() - QSize(0, edges)};
}

PageBinding::PageBinding(forms::TextBox& box, QWidget& parent)
    : ControlBinding(box, *new QPlainTextEdit(&parent)), box_(box), shown_(static_cast<QPlainTextEdit&>(Widget())) {
    shown_.setLineWrapMode(QPlainTextEdit::NoWrap);
    shown_.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    shown_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    shown_.setUndoRedoEnabled(false);
    shown_.setAcceptDrops(false);
    connect(&shown_, &QPlainTextEdit::textChanged, this, [this] {
        if (!IsShowing() && MayAct()) {
            shownText_ = shown_.toPlainText().toStdString();
            box_.UserEdited(shownText_, 0, 0);
        }
    });
}

bool PageBinding::Commit(const QString& text) {
    if (!box_.Locked && MayAct()) {
        shown_.insertPlainText(text);
    }
    return true;
}

void PageBinding::ShowState() {
    shown_.setFrameShape(box_.BorderStyle.Get() != 0 ? QFrame::StyledPanel : QFrame::NoFrame);
    const Qt::TextInteractionFlags reading = Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard;
    shown_.setTextInteractionFlags(box_.Locked ? reading : reading | Qt::TextEditable);
    if (box_.Text.Get() != shownText_) {
        shownText_ = box_.Text.Get();
        shown_.setPlainText(ToQt(shownText_));
    }
}

}  // namespace zirvo::widgets
