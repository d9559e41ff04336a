"""A private desktop for tests: a session with a home of its own."""
import contextlib
import os
import pathlib
import plistlib
import re
import selectors
import signal
import subprocess
import time

from private_session import DEADLINE, Lines, PrivateSession, add_script, make_home

PORTAL = "/org/freedesktop/portal/desktop"


class Desktop(PrivateSession):
    """One screen with openbox on it."""

    def __init__(self, screenshots, size="1280x800", monitors=()):
        """`monitors` share the screen: "left 640/160x800/200+0+0", as xrandr takes them."""
        super().__init__()
        self.screenshots = pathlib.Path(screenshots)
        self.size = size
        self.monitors = monitors

    def _begin(self):
        self.environment = self._environment()
        self._start_display(self.size)
        for monitor, output in zip(self.monitors, ["screen", *["none"] * len(self.monitors)]):
            self.run("xrandr", "--setmonitor", *monitor.split(), output)
        self._start_manager("env", "XDG_DATA_DIRS=/usr/share", "openbox")
        self._start_bus()

    def _environment(self):
        home = make_home(self.folder)
        for name in ("programs", "data/applications"):
            (self.folder / name).mkdir()
        path = f"{self.folder / 'programs'}:{os.environ['PATH']}"
        return {"PATH": path, "QT_QPA_PLATFORM": "xcb"} | home

    @staticmethod
    def first_to_end(processes):
        """Waits until one of the processes ends, and returns that one and the others."""
        with selectors.DefaultSelector() as selector, contextlib.ExitStack() as stack:
            for process in processes:
                descriptor = os.pidfd_open(process.pid)
                stack.callback(os.close, descriptor)
                selector.register(descriptor, selectors.EVENT_READ, process)
            ended = [key.data for key, _ in selector.select(DEADLINE)]
        if not ended:
            raise AssertionError(f"none of {len(processes)} processes ended for {DEADLINE} s")
        return ended[0], [process for process in processes if process is not ended[0]]

    def output_of(self, *command):
        """What `command` prints, whether or not it succeeds."""
        return subprocess.run(list(map(str, command)), env=self.environment, text=True,
                              stdout=subprocess.PIPE, timeout=DEADLINE).stdout

    def wait_for_active(self, title):
        """Waits until a window of this title has the keyboard, and returns its id."""

        def active(line):
            window = re.search(r"^_NET_ACTIVE_WINDOW.*(0x[0-9a-f]+)", line)
            return window[1] if window and int(window[1], 16) else None

        def is_it(line):
            # The line may be an old one, and its window's id taken again since, even by a window
            # that is not shown yet.
            window = active(line)
            if window and window == active(self.run("xprop", "-root", "_NET_ACTIVE_WINDOW")):
                with contextlib.suppress(subprocess.CalledProcessError):  # it may have gone
                    found = self.run("xprop", "-id", window, "WM_NAME", "WM_STATE")
                    if f'"{title}"' in found and "Normal" in found:
                        return window
            return None

        return self.root.until(is_it, f"the window {title}")

    def key(self, *names):
        self.run("xdotool", "key", "--clearmodifiers", *names)

    def type(self, text):
        self.run("xdotool", "type", "--delay", "1", text)

    def screenshot(self, name):
        """Takes a picture of the screen once it stands still."""
        self.screenshots.mkdir(parents=True, exist_ok=True)
        file = self.screenshots / f"{name}.png"
        before = None
        while (now := self._screen()) != before:
            before = now
        self.run("convert", self.folder / "screen.ppm", file)
        return file

    def _screen(self):
        self.run("import", "-window", "root", self.folder / "screen.ppm")
        return (self.folder / "screen.ppm").read_bytes()

    def colour(self, screenshot, x, y):
        """The colour of one pixel, as #RRGGBB."""
        pixel = f"%[hex:u.p{{{x},{y}}}]"
        return "#" + self.run("convert", screenshot, "-format", pixel, "info:").strip()[:6]

    def start_compositor(self):
        """Starts picom, which goes into the background once it works."""
        number = self.folder / "picom.pid"
        self.run("picom", "-b", "--backend", "xrender", "--config", "/dev/null",
                 "--write-pid-path", number)
        self.stack.callback(os.kill, int(number.read_text()), signal.SIGTERM)

    def start_portal(self, scheme):
        """Starts a service that tells whether the desktop is dark: "dark", "light" or "none"."""
        name = "org.freedesktop.portal.Desktop"
        self.start(["/usr/bin/python3", "-m", "dbusmock", "--session", name, PORTAL,
                    "org.freedesktop.portal.Settings"], stdout=subprocess.DEVNULL)
        self.run("gdbus", "wait", "--session", name, "--timeout", DEADLINE)
        self.set_scheme(scheme)

    def set_scheme(self, scheme):
        """Makes the desktop dark or light, and has the portal tell so."""
        number = {"none": 0, "dark": 1, "light": 2}[scheme]
        settings = "org.freedesktop.portal.Settings"
        self._ask_mock("AddMethod", settings, "Read", "ss", "v",
                       f"ret = dbus.UInt32({number}, variant_level=1)")
        self._ask_mock("EmitSignal", settings, "SettingChanged", "ssv",
                       "[<'org.freedesktop.appearance'>, <'color-scheme'>, "
                       f"<<uint32 {number}>>]")

    def _ask_mock(self, method, *arguments):
        self.run("gdbus", "call", "--session", "--dest", "org.freedesktop.portal.Desktop",
                 "--object-path", PORTAL, "--method", f"org.freedesktop.DBus.Mock.{method}",
                 *arguments)

    def geometry(self, window):
        shell = self.run("xdotool", "getwindowgeometry", "--shell", window)
        values = dict(line.split("=") for line in shell.split())
        return {key: int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT")}

    def shape(self, window):
        """What is shown of a window, as WIDTHxHEIGHT+X+Y."""
        lines = self.run("xwininfo", "-id", window, "-shape").splitlines()
        return next(line for line in lines if "Window shape extents" in line).split()[-1]

    def wait_for_shape(self, window, extents):
        """Waits until this is what is shown; nothing tells of it, so it is asked for."""
        end = time.monotonic() + DEADLINE
        while (shape := self.shape(window)) != extents:
            if time.monotonic() > end:
                raise AssertionError(f"{shape} instead of {extents} for {DEADLINE} s")
            time.sleep(0.02)

    def write_defaults(self, values):
        """Makes these all that the program has kept of this user. Before it starts."""
        file = self.folder / "config/pello/is.tolva.pello.plist"
        file.parent.mkdir()
        file.write_bytes(plistlib.dumps(values))

    def watch_marks(self):
        """The lines that applications of `add_marker` leave when they run."""
        pipe = self.folder / "marks"
        os.mkfifo(pipe)
        descriptor = os.open(pipe, os.O_RDWR)  # for writing too, so that it never ends
        self.stack.callback(os.close, descriptor)
        return Lines(descriptor, "the pipe of the marks")

    def add_marking_program(self, name):
        """Installs a program that leaves its argument as a mark when it runs."""
        script = self.folder / "programs" / name
        script.write_text(f'#!/bin/sh\necho "$1" >"{self.folder}/marks"\n')
        script.chmod(0o700)

    def add_script(self, name, text):
        """Installs a script for this user, run by the shell."""
        add_script(self.folder, name, text)

    def start_notification_daemon(self):
        """Shows notifications, and leaves each one's texts as a mark."""
        note = self.folder / "programs/leave-notification"
        note.write_text(f'#!/bin/sh\necho "$2: $3" >"{self.folder}/marks"\n')
        note.chmod(0o700)
        rules = self.folder / "dunstrc"
        rules.write_text(f'[every-one]\nsummary = "*"\nscript = {note}\n')
        self.start(["dunst", "-conf", rules], stderr=subprocess.DEVNULL)
        self.run("gdbus", "wait", "--session", "org.freedesktop.Notifications", "--timeout",
                 DEADLINE)

    def add_marker(self, name):
        """Installs an application that leaves its name as a mark when it runs."""
        self.add_marking_program("leave-mark")
        self.add_application(name, Exec=f'leave-mark "{name}"')

    def hold_clipboard(self, text):
        """Starts a program that has copied `text`, and returns it once it has."""
        file = self.folder / "copied"
        file.write_text(text)
        holder = self.start(["xclip", "-quiet", "-selection", "clipboard", file],
                            stderr=subprocess.PIPE)
        self.stack.callback(holder.stderr.close)
        Lines(holder.stderr.fileno(), "xclip").until(lambda line: "Waiting" in line, "the copy")
        return holder

    def wait_for_clipboard(self, text):
        """Waits until `text` can be pasted."""
        end = time.monotonic() + DEADLINE
        while (found := self.clipboard()) != text:
            if time.monotonic() > end:
                raise AssertionError(f"{found!r} stayed on the clipboard")

    def start_editor(self, window_class, paste):
        """Opens a window that pastes at the keys `paste`, as Xt spells them, and leaves the first
        glyph of four bytes that it gets as a mark."""
        translation = f"*VT100.translations: #override {paste}: insert-selection(CLIPBOARD)"
        program = f"stty -icanon -echo; {{ head -c 4; echo; }} >'{self.folder}/marks'"
        self.start(["xterm", "-u8", "-class", window_class, "-name", window_class.lower(),
                    "-title", window_class, "-xrm", translation, "-e", "sh", "-c", program],
                   stderr=subprocess.DEVNULL)
        return self.wait_for_active(window_class)

    def clipboard(self):
        return self.run("xclip", "-o", "-selection", "clipboard")

    def add_application(self, name, **keys):
        """Installs an application for this user."""
        entry = {"Type": "Application", "Name": name} | keys
        lines = "".join(f"{key}={value}\n" for key, value in entry.items())
        applications = self.folder / "data/applications"
        temporary = self.folder / "new.desktop"
        temporary.write_text("[Desktop Entry]\n" + lines)
        temporary.rename(applications / (name.replace(" ", "-").lower() + ".desktop"))

