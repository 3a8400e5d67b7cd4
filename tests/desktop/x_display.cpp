// The display through its own library, see x_display.h. Its macros stay in this file.
#include "desktop/x_display.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace zirvo::window_tests {

struct XDisplay::Handle {
    ::Display* Connection = nullptr;
    Window Probe = None;
    int TimesAsked = 0;
    bool Managed = false;

    Atom Named(const char* name) const { return XInternAtom(Connection, name, False); }
    Window Root() const { return DefaultRootWindow(Connection); }

    std::string Text(Window window, const char* property) const {
        const std::vector<unsigned char> bytes = Bytes(window, property);
        return {bytes.begin(), bytes.end()};
    }
    std::vector<Window> List(Window window, const char* property) const {
        const std::vector<unsigned char> bytes = Bytes(window, property);
        std::vector<Window> windows(bytes.size() / sizeof(Window));
        std::memcpy(windows.data(), bytes.data(), windows.size() * sizeof(Window));
        return windows;
    }

private:
    /// As the library hands it out: entries of 32 bits take a long each.
    std::vector<unsigned char> Bytes(Window window, const char* property) const {
        Atom type = None;
        int format = 0;
        unsigned long count = 0;
        unsigned long left = 0;
        unsigned char* data = nullptr;
        constexpr long most = 4096;
        if (XGetWindowProperty(Connection, window, Named(property), 0, most, False, AnyPropertyType, &type, &format,
                               &count, &left, &data) != Success ||
            data == nullptr) {
            return {};
        }
        const std::size_t unit = format == 32 ? sizeof(long) : static_cast<std::size_t>(format / 8);
        std::vector<unsigned char> bytes(data, data + count * unit);
        XFree(data);
        return bytes;
    }
};

XDisplay::XDisplay(const std::string& name) : handle_(new Handle) {
    // Windows go while they are asked about; that is no reason to end.
    XSetErrorHandler([](::Display*, XErrorEvent*) { return 0; });
    handle_->Connection = XOpenDisplay(name.c_str());
    if (handle_->Connection == nullptr) {
        delete handle_;
        throw std::runtime_error("cannot open the display " + name);
    }
}

XDisplay::~XDisplay() {
    XCloseDisplay(handle_->Connection);
    delete handle_;
}

bool XDisplay::HasWindowManager() {
    constexpr int timesForOneWindow = 20;
    const std::vector<Window> managed = handle_->List(handle_->Root(), "_NET_CLIENT_LIST");
    if (handle_->Managed) {
        return managed.empty();  // the probe is gone from everywhere
    }
    if (handle_->Probe != None && std::find(managed.begin(), managed.end(), handle_->Probe) != managed.end()) {
        handle_->Managed = true;
        XDestroyWindow(handle_->Connection, handle_->Probe);
    } else if (handle_->TimesAsked++ % timesForOneWindow == 0) {
        if (handle_->Probe != None) {
            XDestroyWindow(handle_->Connection, handle_->Probe);
        }
        handle_->Probe = XCreateSimpleWindow(handle_->Connection, handle_->Root(), 0, 0, 10, 10, 0, 0, 0);
        XMapWindow(handle_->Connection, handle_->Probe);
    }
    XFlush(handle_->Connection);
    return false;
}

std::vector<ShownWindow> XDisplay::Windows() const {
    std::vector<ShownWindow> shown;
    for (const Window window : handle_->List(handle_->Root(), "_NET_CLIENT_LIST")) {
        XWindowAttributes state{};
        int x = 0;
        int y = 0;
        Window child = None;
        if (XGetWindowAttributes(handle_->Connection, window, &state) == 0 || state.map_state != IsViewable ||
            XTranslateCoordinates(handle_->Connection, window, handle_->Root(), 0, 0, &x, &y, &child) == 0) {
            continue;
        }
        shown.push_back({.Id = window,
                         .Role = handle_->Text(window, "WM_WINDOW_ROLE"),
                         .Title = handle_->Text(window, "_NET_WM_NAME"),
                         .Client = QRect(x, y, state.width, state.height)});
    }
    return shown;
}

std::optional<ShownWindow> XDisplay::Find(const std::string& role) const {
    for (const ShownWindow& window : Windows()) {
        if (window.Role == role) {
            return window;
        }
    }
    return std::nullopt;
}

bool XDisplay::IsActive(const std::string& role) const {
    const std::vector<Window> active = handle_->List(handle_->Root(), "_NET_ACTIVE_WINDOW");
    const std::optional<ShownWindow> window = Find(role);
    Window focused = None;
    int revert = 0;
    XGetInputFocus(handle_->Connection, &focused, &revert);
    return window.has_value() && !active.empty() && active.front() == window->Id && focused == window->Id;
}

QRect XDisplay::Screen() const {
    const int screen = DefaultScreen(handle_->Connection);
    return {0, 0, DisplayWidth(handle_->Connection, screen), DisplayHeight(handle_->Connection, screen)};
}

QImage XDisplay::Pixels(const QRect& area) const {
    const QRect inside = area.intersected(Screen());
    XImage* image =
        XGetImage(handle_->Connection, handle_->Root(), inside.x(), inside.y(), static_cast<unsigned>(inside.width()),
                  static_cast<unsigned>(inside.height()), AllPlanes, ZPixmap);
    if (image == nullptr || image->bits_per_pixel != 32) {
        throw std::runtime_error("cannot read the pixels of the display");
    }
    const QImage view(reinterpret_cast<const uchar*>(image->data), image->width, image->height, image->bytes_per_line,
                      QImage::Format_RGB32);
    QImage copy = view.copy();
    XDestroyImage(image);
    return copy;
}

}  // namespace zirvo::window_tests
