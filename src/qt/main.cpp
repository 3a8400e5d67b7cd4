// The desktop program: it begins with the language screen and lives until a screen ends it. A file that is named behind
// it, as a double click does, is imported once its screen comes up.
#include <QApplication>
#include <QPalette>
#include <QStyleFactory>
#include <memory>
#include <string>
#include <vector>

#include "analysis/form3.h"
#include "analysis/form4.h"
#include "forms/application.h"
#include "graphics/form5.h"
#include "graphics/form6.h"
#include "kept/kept_store.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/process.h"
#include "platform/terminal.h"
#include "qt/program_fonts.h"
#include "qt/widgets/program_icon.h"
#include "qt/widgets/qt_desktop.h"
#include "qt/widgets/screen_fonts.h"
#include "shell/form1.h"
#include "shell/form2.h"
#include "shell/form7.h"
#include "shell/settings.h"
#include "shell/start_file.h"
#include "text/file_helpers.h"

namespace zirvo {
namespace {

template <class Screen>
void Register(forms::Application& application) {
    application.Register(Screen::FormName, [](forms::Application& owner) { return std::make_unique<Screen>(owner); });
}

/// The typed data in it; "" where the system knows no such folder.
std::string KeptFolderOf(const std::string& stateFolder) {
    return stateFolder.empty() ? "" : JoinPath(stateFolder, "kept");
}

std::unique_ptr<DataScreen> Prepared(std::unique_ptr<DataScreen> screen, KeptStore& kept, StartFile& start) {
    screen->KeepIn(kept);
    screen->ImportAtStart(start);
    return screen;
}

/// The style's own colours with darker words on what is disabled: data that waits for its run, and the note while the
/// solver works, are there to be read.
QPalette ReadablePalette() {
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x60, 0x60, 0x60));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x80, 0x80, 0x80));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x80, 0x80, 0x80));
    return palette;
}

/// A word, once, where the settings do not stand in the program's folder as the manual has it.
void TellOfSettings(forms::Desktop& desktop, const std::string& folder) {
    if (folder != ProgramFolder() && !FileExists(JoinPath(folder, SettingsFileName))) {
        desktop.Show({.Text = "The program's folder cannot be written: the settings are kept in\n"
                              "プログラムのフォルダに書き込めないため、設定の保存先は\n\n" +
                              folder,
                      .Picture = forms::Icon::Information});
    }
}

int Run(StartFile start) {
    const std::string settings = SettingsFolder(ProgramFolder(), UserStateFolder());
    const std::unique_ptr<ProcessService> processes = MakeProcessService();
    KeptStore kept(KeptFolderOf(UserStateFolder()));
    widgets::QtDesktop desktop;
    forms::Application application(desktop);
    application.KeepTypedData = [&kept] { return kept.IsKept(); };  // behind what each screen does at the end
    Register<Form1>(application);
    application.Register(Form2::FormName, [&settings, &start](forms::Application& owner) {
        auto form = std::make_unique<Form2>(owner, ProgramFolder(), settings);
        form->StartIn(start.Folder());
        return form;
    });
    application.Register(Form3::FormName, [&](forms::Application& owner) {
        return Prepared(std::make_unique<Form3>(owner, *processes, ProgramFolder()), kept, start);
    });
    Register<Form4>(application);
    application.Register(Form5::FormName, [&](forms::Application& owner) {
        return Prepared(std::make_unique<Form5>(owner), kept, start);
    });
    application.Register(Form6::FormName, [makePicture = desktop.MapPictureMaker()](forms::Application& owner) {
        return std::make_unique<Form6>(owner, makePicture);
    });
    Register<Form7>(application);
    application.Show(Form1::FormName);
    TellOfSettings(desktop, settings);
    start.TellWhatIsWrong(desktop);
    const int status = desktop.WaitForEnd();
    desktop.ReleaseForms();  // the windows go before what they show
    return status;
}

}  // namespace
}  // namespace zirvo

int main(int argc, char** argv) {
    const std::vector<std::string> arguments = zirvo::CommandLineArguments(argc, argv);
    // One look on every desktop: the layouts are made for it. It also saves reading the desktop's own settings.
    QApplication::setDesktopSettingsAware(false);
    QApplication::setStyle(QStringLiteral("Fusion"));
#ifdef Q_OS_WIN
    // Letters drawn by the same engine as everywhere, so that screens and maps have the same pixels.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "windows:fontengine=freetype");
    }
#endif
    const std::string fonts = zirvo::JoinPath(zirvo::ProgramFolder(), zirvo::FontsFolderName);
    zirvo::FindFontSettings(fonts);
    int nameOnly = 1;  // what is written behind the name is not for the toolkit
    const QApplication program(nameOnly, argv);
    QApplication::setApplicationName(QStringLiteral("zirvo"));
    QApplication::setApplicationDisplayName(QString());
    QApplication::setWindowIcon(zirvo::widgets::ProgramIcon());
    QApplication::setQuitOnLastWindowClosed(false);  // between two screens there is none
    zirvo::RegisterFonts(fonts);
    QApplication::setFont(zirvo::widgets::ScreenFont({}));
    QApplication::setPalette(zirvo::ReadablePalette());
    return zirvo::Run(arguments.empty() ? zirvo::StartFile() : zirvo::StartFile(arguments.front()));
}
