// What the window of a form does for its user beside what the form knows of: larger letters, looking for words,
// printing, files that are dropped on it; see form_window.h.
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QTimer>
#include <optional>

#include "forms/text_box.h"
#include "qt/widgets/dropped_file.h"
#include "qt/widgets/form_window.h"

namespace zirvo::widgets {
/// A stroke with Ctrl that is for the window itself. True if that is all there is to do.
bool FormWindow::WindowKey(const QKeyEvent& event) {
    if (const std::optional<TextStep> step = TextStepOf(event)) {
        if (TextSizeAsked) {
            TextSizeAsked(*step);
        }
        return true;
    }
    if (event.modifiers() != Qt::ControlModifier || (event.key() != Qt::Key_F && event.key() != Qt::Key_P)) {
        return false;
    }
    QPlainTextEdit* page = Page();
    if (page == nullptr) {
        return false;
    }
    if (event.key() == Qt::Key_F) {
        if (find_.isNull()) {
            find_ = new FindWindow(*page, form_.ViewLanguage);
        }
        find_->ShowAsked();
    } else if (ChoosePrinter) {
        const QString name = form_.PageName.empty() ? windowTitle() : QString::fromStdString(form_.PageName);
        PrintColumns(page->toPlainText(), page->font(), name, *this, form_.ViewLanguage, ChoosePrinter);
    }
    return true;
}

/// The page of text that the form shows, if it shows one.
QPlainTextEdit* FormWindow::Page() const {
    for (const auto& [control, binding] : bindings_) {
        auto* page = qobject_cast<QPlainTextEdit*>(&binding->Widget());
        if (page != nullptr && page->isVisible()) {
            return page;
        }
    }
    return nullptr;
}

void FormWindow::dragEnterEvent(QDragEnterEvent* event) {
    const std::optional<std::string> file = FileOf(*event->mimeData());
    if (!IsBusy() && file && form_.TakesFile(*file)) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    } else {
        event->ignore();
    }
}

void FormWindow::dropEvent(QDropEvent* event) {
    const std::optional<std::string> file = FileOf(*event->mimeData());
    if (IsBusy() || !file || !form_.TakesFile(*file)) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // The other program waits for the answer, and the import may ask the user something.
    auto* behind = new QTimer(this);
    behind->setSingleShot(true);
    connect(behind, &QTimer::timeout, this, [this, behind, path = *file] {
        behind->deleteLater();
        if (!IsBusy() && form_.TakesFile(path)) {
            activateWindow();
            form_.UserDrop(path);
        }
    });
    behind->start();
}

void FormWindow::hideEvent(QHideEvent* event) {
    if (!find_.isNull()) {
        find_->close();
    }
    QWidget::hideEvent(event);
}

}  // namespace zirvo::widgets
