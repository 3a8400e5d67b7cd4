"""A display of its own (Xvfb, openbox) for a program that is driven by keys (xdotool), and its pixels."""
import ctypes
import os
import shutil
import subprocess
import time

LONGEST_WAIT = 60
BETWEEN_LOOKS = 0.02
LOOKS_ALIKE = 8
ALL_PLANES, Z_PIXMAP = ctypes.c_ulong(-1).value, 2


class Image(ctypes.Structure):
    """The beginning of an XImage."""
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int), ("format", ctypes.c_int),
                ("data", ctypes.c_void_p), ("byte_order", ctypes.c_int), ("unit", ctypes.c_int), ("order", ctypes.c_int),
                ("pad", ctypes.c_int), ("depth", ctypes.c_int), ("bytes_per_line", ctypes.c_int)]


class Display:
    WIDTH, HEIGHT = 1024, 768

    def __init__(self):
        for tool in ("Xvfb", "openbox", "wmctrl", "xdotool"):
            if shutil.which(tool) is None:
                raise RuntimeError(f"{tool} is not installed: scripts/setup")
        reads, writes = os.pipe()
        self.started = [subprocess.Popen(["Xvfb", "-displayfd", str(writes), "-screen", "0", f"{self.WIDTH}x{self.HEIGHT}x24",
                                          "-nolisten", "tcp"], pass_fds=[writes], stderr=subprocess.DEVNULL)]
        os.close(writes)
        with os.fdopen(reads) as number:
            self.environment = {**os.environ, "DISPLAY": ":" + number.readline().strip()}
        self.start(["openbox"])
        self.x = ctypes.CDLL("libX11.so.6")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.x.XGetImage.restype = ctypes.POINTER(Image)
        self.x.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, *[ctypes.c_int] * 2, *[ctypes.c_uint] * 2,
                                     ctypes.c_ulong, ctypes.c_int]
        self.x.XDefaultRootWindow.argtypes = self.x.XCloseDisplay.argtypes = [ctypes.c_void_p]
        self.x.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x.XDestroyImage.argtypes = [ctypes.POINTER(Image)]
        self.connection = self.x.XOpenDisplay(self.environment["DISPLAY"].encode())
        self.wait_for("the window manager", self.has_window_manager)
        self.window = None  # that had the keys at the last wait_for_window

    def close(self):
        self.x.XCloseDisplay(self.connection)
        for process in reversed(self.started):
            process.terminate()
            process.wait()

    def start(self, command, **options):
        self.started.append(subprocess.Popen(command, env=self.environment, **options))
        return self.started[-1]

    def tool(self, *arguments):
        done = subprocess.run(["xdotool", *arguments], env=self.environment, capture_output=True, text=True)
        return done.stdout.strip() if done.returncode == 0 else None

    def has_window_manager(self):
        return subprocess.run(["wmctrl", "-m"], env=self.environment, capture_output=True).returncode == 0

    def wait_for(self, what, condition):
        end = time.monotonic() + LONGEST_WAIT
        while not condition():
            if time.monotonic() > end:
                raise TimeoutError(f"waited too long for {what}; the screen then: {self.failure_picture()}")
            time.sleep(BETWEEN_LOOKS)

    def pixels(self):
        root = self.x.XDefaultRootWindow(self.connection)
        image = self.x.XGetImage(self.connection, root, 0, 0, self.WIDTH, self.HEIGHT, ALL_PLANES, Z_PIXMAP)
        size = image.contents.bytes_per_line * image.contents.height
        data = ctypes.string_at(image.contents.data, size)
        self.x.XDestroyImage(image)
        return data

    def is_empty(self):
        data = self.pixels()
        return data == data[:4] * (len(data) // 4)

    def save(self, file):
        """The screen as a picture that anything can read."""
        data = self.pixels()
        rgb = bytearray(3 * self.WIDTH * self.HEIGHT)
        rgb[0::3], rgb[1::3], rgb[2::3] = data[2::4], data[1::4], data[0::4]
        with open(file, "wb") as out:
            out.write(b"P6 %d %d 255\n" % (self.WIDTH, self.HEIGHT) + rgb)

    def failure_picture(self):
        file = os.path.abspath("wine-failure.ppm")
        self.save(file)
        return file

    def active(self):
        return self.tool("getactivewindow")

    def title(self):
        """Of the window that has the keys."""
        return self.tool("getactivewindow", "getwindowname")

    def wait_for_window(self, what):
        """Until another window than before has the keys, and the screen looks the same for a while."""
        def another():
            window = self.active()
            return window is not None and window != self.window and self.tool("getwindowfocus") == window
        self.wait_for(what, another)
        self.window = self.active()
        self.wait_until_still(what)

    def activate(self, window, what):
        """A click on its frame, as it were, and until it has the keys."""
        self.tool("windowactivate", window)
        self.wait_for(what, lambda: self.active() == window == self.tool("getwindowfocus"))
        self.window = window
        self.wait_until_still(what)

    def wait_until_still(self, what):
        seen = {"pixels": None, "alike": 0}

        def still():
            now = self.pixels()
            seen["alike"] = seen["alike"] + 1 if now == seen["pixels"] else 0
            seen["pixels"] = now
            return seen["alike"] >= LOOKS_ALIKE
        self.wait_for("the contents of " + what, still)

    def wait_until_other(self, what, before):
        self.wait_for(what + " to look different", lambda: self.pixels() != before)
        self.wait_until_still(what)

    def key(self, *keys):
        for key in keys:
            self.tool("key", "--delay", "5", key)

    def type(self, text):
        self.tool("type", "--delay", "5", text)
