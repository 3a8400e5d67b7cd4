// What a test sees of a display: the windows that are on it by their roles, and their pixels.
#pragma once
#include <QImage>
#include <QRect>
#include <optional>
#include <string>
#include <vector>

namespace zirvo::window_tests {

struct ShownWindow {
    unsigned long Id = 0;
    std::string Role;   ///< "Form3", "MessageBox", "FileDialog", "FolderDialog", "Help"
    std::string Title;  ///< UTF-8
    QRect Client;       ///< pixels on the screen, without the frame
};

class XDisplay {
public:
    /// @param name  ":99"
    explicit XDisplay(const std::string& name);
    ~XDisplay();
    XDisplay(const XDisplay&) = delete;
    XDisplay& operator=(const XDisplay&) = delete;

    /// Whether windows are managed. A window manager that is only just starting loses the first ones: a small window of
    /// our own is put before it, again and again, until it has taken it. To be asked until it says so.
    bool HasWindowManager();
    /// Windows of programs that are on the screen.
    std::vector<ShownWindow> Windows() const;
    std::optional<ShownWindow> Find(const std::string& role) const;
    /// Whether the window of that role has the keys.
    bool IsActive(const std::string& role) const;
    QImage Pixels(const QRect& area) const;
    QRect Screen() const;

private:
    struct Handle;
    Handle* handle_;
};

}  // namespace zirvo::window_tests
