// A test of the real program: its own display, window manager and copy of the program folder, and a user who types and
// clicks. See README.md beside it.
#pragma once
#include <QImage>
#include <QSize>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/child_process.h"
#include "desktop/control_places.h"
#include "desktop/x_display.h"

namespace zirvo::window_tests {

/// What stands in a file; "" where there is none.
std::string BytesOf(const std::filesystem::path& file);

/// Waiting too long for anything throws, which fails the test; the screen of that moment is then saved as a picture
/// beside the test programs.
class DesktopSession {
public:
    explicit DesktopSession(QSize screen = {1024, 768});
    ~DesktopSession();
    DesktopSession(const DesktopSession&) = delete;
    DesktopSession& operator=(const DesktopSession&) = delete;

    /// Copy of the folder of the program: what it writes stays here.
    const std::filesystem::path& ProgramFolder() const { return programs_; }
    /// An empty folder for the files of the user.
    const std::filesystem::path& WorkFolder() const { return work_; }

    /// The folder in which the program keeps its state; made by itself.
    std::filesystem::path StateFolder() const { return home_ / "state"; }

    /// From now on the program is run by a user who may not write in its folder, with a home of his own. False where
    /// the user of the test cannot become another.
    bool BecomeAnotherUser();
    /// Starts the program and waits for its first screen.
    void Start();
    /// Starts the program, with these arguments, and waits for nothing.
    void Launch(const std::vector<std::string>& arguments = {});
    /// Starts it with kN and MPa and goes on by keys to the data screen of that objective (1 analysis, 2 graphics);
    /// what is asked there is not answered.
    void StartAt(int objective, forms::Language language);
    /// Ends it as a crash does, and waits until the system has taken it away.
    void Kill();
    /// Waits for the program to end. Gives its exit status.
    int WaitForExit();
    bool IsRunning();

    void WaitFor(const std::string& what, const std::function<bool()>& condition);
    /// Until the window is on the screen, has the keys and has painted itself.
    void WaitForWindow(const std::string& role);
    /// Until the window is on the screen and has the keys, painted or not: for a test that only types.
    void WaitForKeys(const std::string& role);
    void WaitForNoWindow(const std::string& role);
    bool IsShown(const std::string& role) const;
    std::string TitleOf(const std::string& role) const;

    /// What another program would find on the clipboard, and what it puts there.
    std::string Clipboard();
    void PutOnClipboard(const std::string& text);
    /// The mouse button goes down in the middle of a control, or at a point of it; moves; and goes up.
    void PressAt(const std::string& form, const std::string& control, QPoint at);
    void MoveTo(const std::string& form, const std::string& control, QPoint at);
    void Release();
    /// Another program drags that file: behind this call the mouse holds it. MoveTo takes it over a control, Release
    /// lets it go.
    void Drag(const std::filesystem::path& file);
    /// What the other program has noted of it so far, see drag_source.cpp.
    std::string DragNotes() const;
    void WaitForDragNote(const std::string& note);
    /// Notches of the wheel over a control, downwards.
    void TurnWheel(const std::string& form, const std::string& control, int notches);
    /// Keys as xdotool names them: "Return", "Tab", "shift+Tab", "Down".
    void Key(const std::string& keys);
    void Type(const std::string& text);
    /// In the middle of a control; `at` counts from its corner where given.
    void Click(const std::string& form, const std::string& control);
    void ClickAt(const std::string& form, const std::string& control, QPoint at, int clicks = 1);
    /// The language that has been chosen: the places of controls may differ.
    void Language(forms::Language language) { places_->Choose(language); }
    /// Presses the button of the message box that stands so far behind the first, and waits until the box is gone.
    void AnswerBox(int button = 0);
    /// Types a path into the file or folder dialog and takes it.
    void GivePath(const std::string& dialog, const std::string& path);
    /// A polite request of the window manager, as its close button makes it.
    void AskToClose(const std::string& role);

    QImage Picture(const std::string& form, const std::string& control);
    /// Until the control looks different from the picture.
    void WaitUntilItChanges(const std::string& form, const std::string& control, const QImage& before);
    /// The whole screen as a PNG, to be looked at.
    void Screenshot(const std::string& file) const;

private:
    void StartDisplay(QSize screen);
    /// What the program writes to standard error.
    std::string Complaints() const { return (folder_ / "complaints").string(); }
    void Tool(const std::vector<std::string>& arguments);
    QRect OnScreen(const std::string& form, const std::string& control);

    std::filesystem::path folder_;
    std::filesystem::path home_;
    std::filesystem::path programs_;
    std::filesystem::path work_;
    std::vector<std::string> asUser_;  ///< in front of the program
    Environment environment_;
    std::unique_ptr<ChildProcess> server_;
    std::unique_ptr<ChildProcess> manager_;
    std::unique_ptr<ChildProcess> program_;
    std::unique_ptr<XDisplay> display_;
    std::unique_ptr<ChildProcess> dragSource_;
    std::unique_ptr<ChildProcess> clipboard_;  ///< the program that holds what has been put there
    std::unique_ptr<ControlPlaces> places_;
};

}  // namespace zirvo::window_tests
