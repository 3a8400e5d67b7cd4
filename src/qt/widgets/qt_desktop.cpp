// The desktop of people, see qt_desktop.h.
#include "qt/widgets/qt_desktop.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include "qt/widgets/file_dialogs.h"
#include "qt/widgets/input_drain.h"
#include "qt/widgets/message_window.h"
#include "qt/widgets/pixels.h"
#include "qt/widgets/screen_fonts.h"

namespace zirvo::widgets {

QtDesktop::~QtDesktop() {
    ReleaseForms();
}

forms::Answer QtDesktop::Show(const forms::Message& message) {
    const WorkShown::Pause pause(work_);
    return ended_ ? forms::Answer::Cancel : AskUser(message, Front());
}

std::optional<std::string> QtDesktop::Open(const forms::FileDialog& dialog) {
    const WorkShown::Pause pause(work_);
    return ended_ ? std::nullopt : AskForFile(dialog, FilePurpose::Open, WindowOf(dialog.Owner));
}

std::optional<std::string> QtDesktop::Save(const forms::FileDialog& dialog) {
    const WorkShown::Pause pause(work_);
    return ended_ ? std::nullopt : AskForFile(dialog, FilePurpose::Save, WindowOf(dialog.Owner));
}

std::optional<std::string> QtDesktop::ChooseFolder(forms::Form& owner, const std::string& title,
                                                   const std::string& start, forms::Language words) {
    const WorkShown::Pause pause(work_);
    return ended_ ? std::nullopt : AskForFolder(title, start, words, WindowOf(&owner));
}

bool QtDesktop::ShowHelp(forms::Form& owner, const std::string& file) {
    Q_UNUSED(owner)
    if (ended_) {
        return true;
    }
    if (help_ == nullptr) {
        help_ = std::make_unique<HelpWindow>();
        help_->TextSizeAsked = [this](TextStep step) { TakeTextStep(step); };
        help_->ChoosePrinter = choosePrinter_;
        help_->SetTextScale(textSizes_.Scale());
    }
    return help_->Open(ToQt(file));
}

forms::ScreenSize QtDesktop::Screen() const {
    const QSize pixels = QGuiApplication::primaryScreen()->size();
    return {pixels.width() * TwipsPerPixel, pixels.height() * TwipsPerPixel, TwipsPerPixel};
}

float QtDesktop::TextWidth(const forms::FontSpec& font, std::string_view text) const {
    return static_cast<float>(textSizes_.Scale()) * TextWidthTwips(font, text);
}

float QtDesktop::TextHeight(const forms::FontSpec& font, std::string_view text) const {
    return static_cast<float>(textSizes_.Scale()) * TextHeightTwips(font, text);
}

void QtDesktop::ShowForm(forms::Form& form) {
    if (ended_) {
        return;
    }
    FormWindow* window = WindowOf(&form);
    if (window == nullptr) {
        window = new FormWindow(form, maps_);
        windows_.emplace(&form, window);
        window->TextSizeAsked = [this](TextStep step) { TakeTextStep(step); };
        window->ChoosePrinter = choosePrinter_;
        window->SetTextScale(textSizes_.Scale());
    }
    front_ = window;
    window->show();
    window->raise();
    window->activateWindow();
}

void QtDesktop::SetPrinterChoice(PrinterChoice choose) {
    choosePrinter_ = std::move(choose);
    for (const auto& [form, window] : windows_) {
        window->ChoosePrinter = choosePrinter_;
    }
    if (help_ != nullptr) {
        help_->ChoosePrinter = choosePrinter_;
    }
}

/// All windows follow, also those that are hidden and come back.
void QtDesktop::TakeTextStep(TextStep step) {
    if (!textSizes_.Take(step)) {
        return;
    }
    for (const auto& [form, window] : windows_) {
        window->SetTextScale(textSizes_.Scale());
    }
    if (help_ != nullptr) {
        help_->SetTextScale(textSizes_.Scale());
    }
}

void QtDesktop::HideForm(forms::Form& form) {
    if (FormWindow* window = WindowOf(&form)) {
        window->hide();
    }
}

void QtDesktop::FormGone(forms::Form& form) {
    if (FormWindow* window = WindowOf(&form)) {
        windows_.erase(&form);
        window->Retire();
        window->deleteLater();
    }
}

std::string QtDesktop::ClipboardText() const {
    return QGuiApplication::clipboard()->text().toStdString();
}

void QtDesktop::SetClipboardText(const std::string& text) {
    QGuiApplication::clipboard()->setText(ToQt(text));
}

void QtDesktop::PaintNow(forms::Form& form) {
    FormWindow* window = WindowOf(&form);
    if (window == nullptr || !window->isVisible()) {
        return;
    }
    // A window that was only just shown cannot be painted before the display has made room for it.
    constexpr int longestWait = 500;  // ms
    QElapsedTimer waited;
    waited.start();
    while (!window->windowHandle()->isExposed() && waited.elapsed() < longestWait) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents, 20);
    }
    window->repaint();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtDesktop::WorkBegins() {
    work_.Begin();
}

void QtDesktop::WorkEnds() {
    work_.End();
}

void QtDesktop::WorkGoesOn(double done) {
    work_.GoOn(Front(), done);
}

void QtDesktop::DiscardInput() {
    DrainInput();
}

void QtDesktop::CallLater(int milliseconds, std::function<void()> call) {
    auto* timer = new QTimer(&timers_);
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, &timers_, [this, timer, call = std::move(call)] {
        timer->deleteLater();
        if (!ended_) {
            call();
        }
    });
    timer->start(milliseconds);
}

void QtDesktop::EndProgram(int status) {
    ended_ = true;
    status_ = status;
    QCoreApplication::exit(status);  // also the loops of boxes that stand open
}

int QtDesktop::WaitForEnd() {
    if (!ended_) {  // it may have ended while the first screen was loaded
        QCoreApplication::exec();
    }
    return status_;
}

MapPictureFactory QtDesktop::MapPictureMaker() {
    return [this](forms::PictureBox& control) { return maps_.Make(control); };
}

void QtDesktop::ReleaseForms() {
    help_.reset();
    const auto windows = std::move(windows_);
    windows_.clear();
    for (const auto& [form, window] : windows) {
        delete window;
    }
}

FormWindow* QtDesktop::WindowOf(const forms::Form* form) const {
    const auto found = windows_.find(form);
    return found == windows_.end() ? nullptr : found->second;
}

QWidget* QtDesktop::Front() const {
    return !front_.isNull() && front_->isVisible() ? front_.data() : nullptr;
}

}  // namespace zirvo::widgets
