// Qt without a display, see offscreen.h.
#include "qt/offscreen.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace zirvo {
namespace {

constexpr int CannotGoOn = 1;

void KeepQuiet(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type == QtFatalMsg) {  // Qt would abort behind this
        std::fprintf(stderr, "Qt cannot be started: %s\n", message.toUtf8().constData());
        std::_Exit(CannotGoOn);
    }
}

}  // namespace

OffscreenQt::OffscreenQt() : earlier_(qInstallMessageHandler(KeepQuiet)) {
    qunsetenv("QT_QPA_PLATFORMTHEME");  // a theme may want a display
    static char name[] = "zirvo";
    static char option[] = "-platform";
    static char platform[] = "offscreen";
    static std::array<char*, 4> arguments{name, option, platform, nullptr};
    static int count = 3;
    application_ = std::make_unique<QGuiApplication>(count, arguments.data());
}

OffscreenQt::~OffscreenQt() {
    application_.reset();
    qInstallMessageHandler(earlier_);
}

}  // namespace zirvo
