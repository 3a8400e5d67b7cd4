// Qt without a display, see offscreen.h.
#include "qt/offscreen.h"

#include <QByteArray>
#include <QHash>
#include <QTemporaryDir>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "platform/files.h"
#include "platform/interruption.h"
#include "qt/program_fonts.h"

namespace zirvo {
namespace {

constexpr int CannotGoOn = 1;

void KeepQuiet(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type == QtFatalMsg) {  // Qt would abort behind this
        std::fprintf(stderr, "Qt cannot be started: %s\n", message.toUtf8().constData());
        std::_Exit(CannotGoOn);
    }
}

/// On its way up Qt looks for a display in the user's runtime folder, and makes one among the temporary folders, for
/// good, where that is missing. This one is there for so long, and gone afterwards.
class RuntimeFolder {
public:
    RuntimeFolder() {
        for (int tries = 0; tries < MostTries && !(folder_ && folder_->isValid()); ++tries) {
            folder_.emplace();
        }
        if (folder_->isValid()) {
            qputenv(Variable, folder_->path().toLocal8Bit());
        }
    }
    ~RuntimeFolder() {
        folder_.reset();
        if (earlier_.isNull()) {
            qunsetenv(Variable);
        } else {
            qputenv(Variable, earlier_);
        }
    }
    RuntimeFolder(const RuntimeFolder&) = delete;
    RuntimeFolder& operator=(const RuntimeFolder&) = delete;

private:
    static constexpr int MostTries = 3;  // else Qt would make the one that stays, had it more luck
    static constexpr const char* Variable = "XDG_RUNTIME_DIR";

    std::optional<QTemporaryDir> folder_;
    QByteArray earlier_ = qgetenv(Variable);
    const NotInterrupted untilItIsGone_;  // Qt would make it again were it taken away from under its feet
};

}  // namespace

OffscreenQt::OffscreenQt() : earlier_(qInstallMessageHandler(KeepQuiet)) {
    QHashSeed::setDeterministicGlobalSeed();  // PDF files list their fonts in the order of a hash
    qunsetenv("QT_QPA_PLATFORMTHEME");        // a theme may want a display
    static char name[] = "zirvo";
    static char option[] = "-platform";
    static char platform[] = "offscreen";
    static std::array<char*, 4> arguments{name, option, platform, nullptr};
    static int count = 3;
    const RuntimeFolder runtime;
    const std::string fonts = JoinPath(ProgramFolder(), FontsFolderName);
    FindFontSettings(fonts);
    application_ = std::make_unique<QGuiApplication>(count, arguments.data());
    RegisterFonts(fonts);
}

OffscreenQt::~OffscreenQt() {
    application_.reset();
    qInstallMessageHandler(earlier_);
}

}  // namespace zirvo
