// Lines of text, see text_line.h.
#include "qt/widgets/text_line.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <memory>

namespace zirvo::widgets {
namespace {

int CharactersIn(QStringView text) {
    return static_cast<int>(text.toUcs4().size());
}

/// UTF-16 units of the first so many characters.
int UnitsOf(const QString& text, int characters) {
    qsizetype unit = 0;
    for (int i = 0; i < characters && unit < text.size(); ++i) {
        unit += text.at(unit).isHighSurrogate() && unit + 1 < text.size() ? 2 : 1;
    }
    return static_cast<int>(unit);
}

}  // namespace

TextLine::TextLine(QWidget* parent) : QLineEdit(parent) {
    setDragEnabled(false);
    setAcceptDrops(false);
    connect(this, &QLineEdit::textEdited, this, [this] {
        if (Edited) {
            Edited();
        }
    });
    connect(this, &QLineEdit::selectionChanged, this, [this] { TellMoved(); });
    connect(this, &QLineEdit::cursorPositionChanged, this, [this] { TellMoved(); });
}

CharacterRange TextLine::Selected() const {
    const QString whole = text();
    const QStringView view(whole);
    if (hasSelectedText()) {
        return {CharactersIn(view.left(selectionStart())), CharactersIn(QStringView(selectedText()))};
    }
    return {CharactersIn(view.left(cursorPosition())), 0};
}

void TextLine::Display(const QString& text, CharacterRange selected) {
    quiet_ = true;
    if (text != this->text()) {
        setText(text);
    }
    if (selected != Selected()) {
        const int start = UnitsOf(text, selected.Start);
        const int end = UnitsOf(text, selected.Start + selected.Length);
        if (end > start) {
            setSelection(start, end - start);
        } else {
            deselect();
            setCursorPosition(start);
        }
    }
    quiet_ = false;
}

/// Without a frame it lies over a cell of a grid: a thin one in the colour of what is chosen tells that the cell is
/// open.
void TextLine::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (!hasFrame() && parentWidget() != nullptr && qobject_cast<QComboBox*>(parentWidget()) == nullptr) {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Active, QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void TextLine::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste)) {
        PasteClipboard();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void TextLine::contextMenuEvent(QContextMenuEvent* event) {
    const std::unique_ptr<QMenu> menu(createStandardContextMenu());
    // Qt's own paste would join the lines of the clipboard.
    const QString words = QLineEdit::tr("&Paste");
    for (QAction* action : menu->actions()) {
        if (action->text().startsWith(words)) {
            disconnect(action, nullptr, this, nullptr);
            connect(action, &QAction::triggered, this, [this] { PasteClipboard(); });
        }
    }
    menu->exec(event->globalPos());
}

void TextLine::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton) {  // which would paste
        QLineEdit::mouseReleaseEvent(event);
    }
}

void TextLine::focusInEvent(QFocusEvent* event) {
    const CharacterRange before = Selected();
    quiet_ = true;
    QLineEdit::focusInEvent(event);
    quiet_ = false;
    Display(text(), before);
}

void TextLine::focusOutEvent(QFocusEvent* event) {
    // Qt drops the selection; the model keeps it.
    const CharacterRange before = Selected();
    quiet_ = true;
    QLineEdit::focusOutEvent(event);
    quiet_ = false;
    Display(text(), before);
}

void TextLine::PasteClipboard() {
    if (!isReadOnly() && Pasted) {
        Pasted(QGuiApplication::clipboard()->text());
    }
}

void TextLine::TellMoved() {
    if (!quiet_ && Moved) {
        Moved();
    }
}

}  // namespace zirvo::widgets
