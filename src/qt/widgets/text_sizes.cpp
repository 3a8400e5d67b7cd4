// Sizes of texts, see text_sizes.h.
#include "qt/widgets/text_sizes.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <algorithm>
#include <array>
#include <utility>

namespace zirvo::widgets {
namespace {

constexpr std::array Percents{80, 90, 100, 110, 125, 150, 175, 200, 250, 300};
constexpr std::size_t AsTold = 2;

const QString Key = QStringLiteral("TextPercent");

/// Whatever the file says, a size that there is.
std::size_t Nearest(int percent) {
    std::size_t nearest = AsTold;
    for (std::size_t i = 0; i < Percents.size(); ++i) {
        if (std::abs(Percents[i] - percent) < std::abs(Percents[nearest] - percent)) {
            nearest = i;
        }
    }
    return nearest;
}

std::size_t Remembered(const QString& file) {
    bool number = false;
    const int percent = QSettings(file, QSettings::IniFormat).value(Key).toInt(&number);
    return number ? Nearest(std::clamp(percent, Percents.front(), Percents.back())) : AsTold;
}

}  // namespace

std::optional<TextStep> TextStepOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (held != Qt::ControlModifier) {
        return std::nullopt;
    }
    switch (event.key()) {
        case Qt::Key_Plus:
        case Qt::Key_Equal:  // the key of "+" without Shift
            return TextStep::Larger;
        case Qt::Key_Minus:
        case Qt::Key_Underscore:
            return TextStep::Smaller;
        case Qt::Key_0:
            return TextStep::AsTold;
        default:
            return std::nullopt;
    }
}

TextSizes::TextSizes(QString file) : file_(std::move(file)), size_(file_.isEmpty() ? AsTold : Remembered(file_)) {}

double TextSizes::Scale() const {
    return Percents[size_] / 100.0;
}

bool TextSizes::Take(TextStep step) {
    const std::size_t before = size_;
    switch (step) {
        case TextStep::Larger:
            size_ = std::min(size_ + 1, Percents.size() - 1);
            break;
        case TextStep::Smaller:
            size_ = size_ == 0 ? 0 : size_ - 1;
            break;
        case TextStep::AsTold:
            size_ = AsTold;
            break;
    }
    if (size_ == before) {
        return false;
    }
    if (!file_.isEmpty()) {
        QDir().mkpath(QFileInfo(file_).absolutePath());
        QSettings(file_, QSettings::IniFormat).setValue(Key, Percents[size_]);
    }
    return true;
}

QString TextSizes::SettingsFile() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
#ifdef Q_OS_WIN
    const QString own = QStringLiteral("/ZIRVO");
#else
    const QString own = QStringLiteral("/zirvo");
#endif
    return folder.isEmpty() ? QString() : folder + own + QStringLiteral("/screens.ini");
}

}  // namespace zirvo::widgets
