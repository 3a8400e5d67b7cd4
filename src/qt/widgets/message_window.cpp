// Message boxes, see message_window.h.
#include "qt/widgets/message_window.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <vector>

#include "qt/widgets/control_binding.h"
#include "qt/widgets/screen_fonts.h"

namespace zirvo::widgets {
namespace {

using forms::Answer;

struct Choice {
    Answer Meaning;
    const char* Japanese;
    const char* English;
};

constexpr Choice OkChoice{Answer::Ok, "OK", "OK"};
constexpr Choice CancelChoice{Answer::Cancel, "キャンセル", "Cancel"};
constexpr Choice YesChoice{Answer::Yes, "はい", "Yes"};
constexpr Choice NoChoice{Answer::No, "いいえ", "No"};

std::vector<Choice> ChoicesOf(forms::Buttons buttons) {
    switch (buttons) {
        case forms::Buttons::YesNo:
            return {YesChoice, NoChoice};
        case forms::Buttons::OkCancel:
            return {OkChoice, CancelChoice};
        case forms::Buttons::Ok:
            break;
    }
    return {OkChoice};
}

QMessageBox::Icon ToQt(forms::Icon icon) {
    switch (icon) {
        case forms::Icon::Exclamation:
            return QMessageBox::Warning;
        case forms::Icon::Stop:
            return QMessageBox::Critical;
        case forms::Icon::Information:
            return QMessageBox::Information;
        case forms::Icon::Question:
            return QMessageBox::Question;
        case forms::Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

constexpr qsizetype LongestWord = 32;  // characters: of the widest ones no line of a box holds more than 38

/// A word with places where it may be broken: behind each separator of folders, else often enough to fill the lines.
QString BreakableWord(const QString& word) {
    constexpr qsizetype piece = 4;
    const QChar zeroWidthSpace(0x200B);
    QString broken;
    qsizetype unbroken = 0;
    for (const QChar c : word) {
        if (++unbroken > piece && !c.isLowSurrogate()) {
            broken += zeroWidthSpace;
            unbroken = 1;
        }
        broken += c;
        if (c == '/' || c == '\\') {
            broken += zeroWidthSpace;
            unbroken = 0;
        }
    }
    return broken;
}

/// The text with places where a long path may be broken: it has no blanks, and would stand out of the box. All other
/// words stay as they are.
QString Breakable(const QString& text) {
    QString out;
    qsizetype begin = 0;
    for (qsizetype i = 0; i <= text.size(); ++i) {
        if (i == text.size() || text[i].isSpace()) {
            const QString word = text.mid(begin, i - begin);
            out += word.size() > LongestWord ? BreakableWord(word) : word;
            if (i < text.size()) {
                out += text[i];
            }
            begin = i + 1;
        }
    }
    return out;
}

/// Y and N press the buttons of a box that asks for one of the two, whatever the language of the words on them.
class AnsweringBox final : public QMessageBox {
public:
    using QMessageBox::QMessageBox;
    QPushButton* Yes = nullptr;
    QPushButton* No = nullptr;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        constexpr Qt::KeyboardModifiers others = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
        // A key that was held down before must not answer a question that has only just come up.
        const bool plain = (event->modifiers() & others) == Qt::NoModifier && !event->isAutoRepeat();
        QPushButton* meant = event->key() == Qt::Key_Y ? Yes : event->key() == Qt::Key_N ? No : nullptr;
        if (meant != nullptr && plain) {
            event->accept();
            meant->click();
            return;
        }
        QMessageBox::keyPressEvent(event);
    }
};

}  // namespace

Answer AskUser(const forms::Message& message, QWidget* owner) {
    AnsweringBox box(owner);
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setWindowRole(box.objectName());
    box.setWindowModality(Qt::ApplicationModal);
    box.setWindowTitle(message.Title.empty() ? QStringLiteral("ZIRVO") : ToQt(message.Title));
    box.setTextFormat(Qt::PlainText);
    box.setText(Breakable(ToQt(message.Text)));
    box.setIcon(ToQt(message.Picture));
    box.setFont(ScreenFont({}));
    const std::vector<Choice> choices = ChoicesOf(message.Choice);
    std::vector<QPushButton*> buttons;
    for (const Choice& choice : choices) {
        const bool japanese = message.Words == forms::Language::Japanese;
        // One role for all: Qt would take a role of refusing for what Esc means.
        auto* button =
            box.addButton(QString::fromUtf8(japanese ? choice.Japanese : choice.English), QMessageBox::AcceptRole);
        button->setAutoDefault(true);
        buttons.push_back(button);
    }
    box.setDefaultButton(buttons.front());
    if (auto* text = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
        // A least width that is set takes the place of the text's own, which would be cut off without this. A text
        // beyond `whole` is too wide for the box in one line, and Qt breaks it.
        constexpr int wideEnoughForTheTitle = 220;  // pixels
        constexpr int whole = 440;
        text->setMinimumWidth(std::clamp(text->sizeHint().width(), wideEnoughForTheTitle, whole));
    }
    const bool mustChoose = message.Choice == forms::Buttons::YesNo;
    Qt::WindowFlags frame = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    if (mustChoose) {
        box.Yes = buttons.front();
        box.No = buttons.back();
    } else {
        box.setEscapeButton(buttons.back());
        frame |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    }
    box.setWindowFlags(frame);
    box.exec();
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        if (box.clickedButton() == buttons[i]) {
            return choices[i].Meaning;
        }
    }
    return choices.back().Meaning;  // the program ends while it stands open
}

}  // namespace zirvo::widgets
