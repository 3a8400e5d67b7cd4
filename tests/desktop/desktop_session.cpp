// The real program on a display of its own, see desktop_session.h.
#include "desktop/desktop_session.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

namespace zirvo::window_tests {
namespace {

using Clock = std::chrono::steady_clock;
constexpr auto LongestWait = std::chrono::seconds(20);  // also on a machine that does much else
constexpr auto BetweenLooks = std::chrono::milliseconds(10);

bool IsPlain(const QImage& image) {
    QImage plain = image;
    if (!plain.isNull()) {
        plain.fill(image.pixelColor(image.rect().center()));
    }
    return plain == image;
}

std::filesystem::path NewFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zirvo-window-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("cannot make a folder for the test");
    }
    return pattern;
}

}  // namespace

std::string BytesOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

DesktopSession::DesktopSession(QSize screen)
    : folder_(NewFolder()), home_(folder_), programs_(folder_ / "bin"), work_(folder_ / "work") {
    const char* path = std::getenv("PATH");
    environment_ = {{"PATH", path == nullptr ? "/usr/bin:/bin" : path},
                    {"HOME", folder_.string()},
                    {"XDG_RUNTIME_DIR", folder_.string()},
                    {"XDG_STATE_HOME", StateFolder().string()},
                    {"LANG", "C.UTF-8"}};
    std::filesystem::copy(ZIRVO_BIN, programs_, std::filesystem::copy_options::recursive);
    std::filesystem::create_directory(work_);
    const std::filesystem::path empty = folder_ / "empty";
    std::filesystem::create_directory(empty);
    places_ = std::make_unique<ControlPlaces>(screen, empty.string());
    StartDisplay(screen);
}

DesktopSession::~DesktopSession() {
    program_.reset();
    dragSource_.reset();
    clipboard_.reset();
    display_.reset();
    manager_.reset();
    server_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

/// The server looks for a free number by itself and writes it once it is ready.
void DesktopSession::StartDisplay(QSize screen) {
    int ends[2];
    if (pipe(ends) != 0) {
        throw std::runtime_error("no pipe");
    }
    const std::string size = std::to_string(screen.width()) + "x" + std::to_string(screen.height()) + "x24";
    server_ = std::make_unique<ChildProcess>(std::vector<std::string>{"Xvfb", "-displayfd", std::to_string(ends[1]),
                                                                      "-screen", "0", size, "-nolisten", "tcp"},
                                             environment_, ".", ends[1]);
    close(ends[1]);
    std::string number;
    pollfd waiting{.fd = ends[0], .events = POLLIN, .revents = 0};
    char digit = 0;
    while (poll(&waiting, 1, 20000) > 0 && read(ends[0], &digit, 1) == 1 && digit != '\n') {
        number += digit;
    }
    close(ends[0]);
    if (number.empty()) {
        throw std::runtime_error("Xvfb does not start; is it installed?");
    }
    environment_["DISPLAY"] = ":" + number;
    display_ = std::make_unique<XDisplay>(":" + number);
    manager_ = std::make_unique<ChildProcess>(std::vector<std::string>{"openbox"}, environment_);
    WaitFor("the window manager", [this] { return display_->HasWindowManager(); });
}

void DesktopSession::Start() {
    Launch();
    WaitForWindow("Form1");
}

void DesktopSession::StartAt(int objective, forms::Language language) {
    std::ofstream(ProgramFolder() / "zirvo_sv.ini") << WorkFolder().string() << "\r\n 3 \r\n " << objective << " \r\n";
    Start();
    Key(language == forms::Language::Japanese ? "space" : "Down");
    Language(language);
    Key("Return");
    WaitForWindow("Form2");
    Key("Return");
}

void DesktopSession::Launch(const std::vector<std::string>& arguments) {
    std::vector<std::string> command = asUser_;
    command.push_back((programs_ / "zirvo").string());
    command.insert(command.end(), arguments.begin(), arguments.end());
    program_ = std::make_unique<ChildProcess>(command, environment_, work_.string(), -1, Complaints());
}

bool DesktopSession::BecomeAnotherUser() {
    constexpr uid_t nobody = 65534;
    home_ = folder_ / "home";
    std::filesystem::create_directory(home_);
    if (geteuid() != 0 || chown(home_.c_str(), nobody, nobody) != 0 || chown(work_.c_str(), nobody, nobody) != 0) {
        return false;
    }
    std::filesystem::permissions(folder_, std::filesystem::perms(0755));
    const std::string number = std::to_string(nobody);
    asUser_ = {"setpriv", "--reuid", number, "--regid", number, "--clear-groups"};
    environment_["HOME"] = home_.string();
    environment_["XDG_RUNTIME_DIR"] = home_.string();
    environment_["XDG_STATE_HOME"] = StateFolder().string();
    return true;
}

void DesktopSession::Kill() {
    program_->Kill();
}

bool DesktopSession::IsRunning() {
    return program_ != nullptr && !program_->ExitStatus().has_value();
}

int DesktopSession::WaitForExit() {
    WaitFor("the end of the program", [this] { return !IsRunning(); });
    return *program_->ExitStatus();
}

void DesktopSession::WaitFor(const std::string& what, const std::function<bool()>& condition) {
    const Clock::time_point end = Clock::now() + LongestWait;
    while (!condition()) {
        if (Clock::now() > end) {
            std::string picture;
            if (display_ != nullptr) {
                const auto* test = testing::UnitTest::GetInstance()->current_test_info();
                std::string name = test == nullptr ? "test" : test->name();
                std::replace(name.begin(), name.end(), '/', '-');  // of a test with parameters
                picture.append(ZIRVO_FAILURES).append("/").append(name).append(".png");
                std::filesystem::create_directories(ZIRVO_FAILURES);
                Screenshot(picture);
            }
            std::ifstream complaints(Complaints());
            const std::string said{std::istreambuf_iterator<char>(complaints), {}};
            std::string report = "waited too long for " + what;
            report.append("; the screen then: ").append(picture);
            report.append(IsRunning() ? "; it said: " : "; the program is not running; it said: ").append(said);
            throw std::runtime_error(report);
        }
        std::this_thread::sleep_for(BetweenLooks);
    }
}

void DesktopSession::WaitForWindow(const std::string& role) {
    WaitFor("the window " + role, [&] { return display_->IsActive(role); });
    // It is painted once it looks the same for a while and is no plain surface.
    constexpr int looksAlike = 8;
    QImage before;
    int same = 0;
    WaitFor("the contents of the window " + role, [&] {
        const std::optional<ShownWindow> window = display_->Find(role);
        const QImage now = window.has_value() ? display_->Pixels(window->Client) : QImage();
        same = now == before ? same + 1 : 0;
        before = now;
        return same >= looksAlike && !IsPlain(now);
    });
}

void DesktopSession::WaitForKeys(const std::string& role) {
    WaitFor("the window " + role, [&] { return display_->IsActive(role); });
}

void DesktopSession::WaitForNoWindow(const std::string& role) {
    WaitFor("the end of the window " + role, [&] { return !IsShown(role); });
}

bool DesktopSession::IsShown(const std::string& role) const {
    return display_->Find(role).has_value();
}

std::string DesktopSession::TitleOf(const std::string& role) const {
    const std::optional<ShownWindow> window = display_->Find(role);
    return window.has_value() ? window->Title : std::string();
}

void DesktopSession::Tool(const std::vector<std::string>& arguments) {
    ChildProcess tool(arguments, environment_);
    WaitFor(arguments.front(), [&] { return tool.ExitStatus().has_value(); });
    if (*tool.ExitStatus() != 0) {
        throw std::runtime_error(arguments.front() + " " + arguments.at(1) + " does not work; is it installed?");
    }
}

void DesktopSession::Key(const std::string& keys) {
    Tool({"xdotool", "key", "--delay", "5", keys});
}

void DesktopSession::Type(const std::string& text) {
    Tool({"xdotool", "type", "--delay", "5", "--", text});
}

QRect DesktopSession::OnScreen(const std::string& form, const std::string& control) {
    const std::optional<ShownWindow> window = display_->Find(form);
    if (!window.has_value()) {
        throw std::runtime_error(form + " is not on the screen");
    }
    return places_->PlaceOf(form, control).translated(window->Client.topLeft());
}

void DesktopSession::Click(const std::string& form, const std::string& control) {
    const QRect place = OnScreen(form, control);
    // Words of option and check boxes may end before the middle.
    ClickAt(form, control, {std::min(place.width() / 2, 10), place.height() / 2});
}

void DesktopSession::ClickAt(const std::string& form, const std::string& control, QPoint at, int clicks) {
    const QPoint point = OnScreen(form, control).topLeft() + at;
    Tool({"xdotool", "mousemove", std::to_string(point.x()), std::to_string(point.y()), "click", "--repeat",
          std::to_string(clicks), "--delay", "60", "1"});
}

std::string DesktopSession::Clipboard() {
    const std::filesystem::path file = folder_ / "copied";
    Tool({"sh", "-c", "xclip -selection clipboard -out > '" + file.string() + "'"});
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void DesktopSession::PutOnClipboard(const std::string& text) {
    const std::filesystem::path file = folder_ / "to-paste";
    std::ofstream(file, std::ios::binary) << text;
    clipboard_ = std::make_unique<ChildProcess>(
        std::vector<std::string>{"xclip", "-quiet", "-selection", "clipboard", "-in", file.string()}, environment_);
    WaitFor("the clipboard", [&] {
        ChildProcess look(
            {"sh", "-c", "test \"$(xclip -selection clipboard -out)\" = \"$(cat '" + file.string() + "')\""},
            environment_);
        WaitFor("a look at the clipboard", [&] { return look.ExitStatus().has_value(); });
        return *look.ExitStatus() == 0;
    });
}

void DesktopSession::MoveTo(const std::string& form, const std::string& control, QPoint at) {
    const QPoint point = OnScreen(form, control).topLeft() + at;
    Tool({"xdotool", "mousemove", std::to_string(point.x()), std::to_string(point.y())});
}

void DesktopSession::PressAt(const std::string& form, const std::string& control, QPoint at) {
    MoveTo(form, control, at);
    Tool({"xdotool", "mousedown", "1"});
}

void DesktopSession::Release() {
    Tool({"xdotool", "mouseup", "1"});
}

void DesktopSession::Drag(const std::filesystem::path& file) {
    dragSource_.reset();
    std::filesystem::remove(folder_ / "drag-notes");
    const QPoint corner = display_->Screen().bottomRight() - QPoint(60, 30);
    dragSource_ = std::make_unique<ChildProcess>(
        std::vector<std::string>{ZIRVO_DRAG_SOURCE, file.string(), (folder_ / "drag-notes").string(),
                                 std::to_string(corner.x()), std::to_string(corner.y())},
        environment_);
    WaitForDragNote("ready");
    const auto moveTo = [&](QPoint at) {
        Tool({"xdotool", "mousemove", std::to_string(corner.x() + at.x()), std::to_string(corner.y() + at.y())});
    };
    // It may take its window a while to be there: until then a press is nobody's.
    WaitFor("the file to be dragged", [&] {
        moveTo({30, 15});
        Tool({"xdotool", "mousedown", "1"});
        moveTo({24, 12});
        moveTo({20, 10});
        if (DragNotes().find("dragging\n") == std::string::npos) {
            std::this_thread::sleep_for(BetweenLooks);
        }
        const bool dragging = DragNotes().find("dragging\n") != std::string::npos;
        if (!dragging) {
            Release();
        }
        return dragging;
    });
}

std::string DesktopSession::DragNotes() const {
    std::ifstream in(folder_ / "drag-notes");
    return {std::istreambuf_iterator<char>(in), {}};
}

void DesktopSession::WaitForDragNote(const std::string& note) {
    WaitFor("a drag that is " + note, [&] { return DragNotes().find(note + "\n") != std::string::npos; });
}

void DesktopSession::TurnWheel(const std::string& form, const std::string& control, int notches) {
    const QRect place = OnScreen(form, control);
    MoveTo(form, control, QPoint(place.width() / 2, place.height() / 2));
    Tool({"xdotool", "click", "--repeat", std::to_string(notches), "--delay", "20", "5"});
}

void DesktopSession::AnswerBox(int button) {
    WaitForWindow("MessageBox");
    const unsigned long box = display_->Find("MessageBox")->Id;
    for (int i = 0; i < button; ++i) {
        Key("Tab");
    }
    Key("Return");
    WaitFor("the end of the message box", [&] {
        const std::optional<ShownWindow> now = display_->Find("MessageBox");
        return !now.has_value() || now->Id != box;
    });
}

void DesktopSession::GivePath(const std::string& dialog, const std::string& path) {
    WaitForWindow(dialog);
    Key("ctrl+a");
    Type(path);
    Key("Return");
    WaitForNoWindow(dialog);
}

void DesktopSession::AskToClose(const std::string& role) {
    const std::optional<ShownWindow> window = display_->Find(role);
    if (!window.has_value()) {
        throw std::runtime_error(role + " is not on the screen");
    }
    Tool({"wmctrl", "-i", "-c", std::to_string(window->Id)});
}

QImage DesktopSession::Picture(const std::string& form, const std::string& control) {
    return display_->Pixels(OnScreen(form, control));
}

void DesktopSession::WaitUntilItChanges(const std::string& form, const std::string& control, const QImage& before) {
    WaitFor("a change of " + form + " " + control, [&] { return Picture(form, control) != before; });
}

void DesktopSession::Screenshot(const std::string& file) const {
    display_->Pixels(display_->Screen()).save(QString::fromStdString(file));
}

}  // namespace zirvo::window_tests
