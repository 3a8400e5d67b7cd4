// A line of text that is edited by Qt and owned by a model: the text boxes, and the text of a combo box.
#pragma once
#include <QLineEdit>
#include <functional>

namespace zirvo::widgets {

/// Positions as the models count them: characters, not UTF-16 units.
struct CharacterRange {
    int Start = 0;
    int Length = 0;
    bool operator==(const CharacterRange&) const = default;
};

class TextLine final : public QLineEdit {
public:
    explicit TextLine(QWidget* parent);

    /// The caret, or what is selected.
    CharacterRange Selected() const;
    /// Shows a text and its selection; what is there already is left alone, with what can be undone.
    void Display(const QString& text, CharacterRange selected);

    /// The user pastes this.
    std::function<void(const QString&)> Pasted;
    /// The user has edited, or moved the caret.
    std::function<void()> Edited;
    std::function<void()> Moved;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void PasteClipboard();
    void TellMoved();
    bool quiet_ = false;
};

}  // namespace zirvo::widgets
