"""A session of its own for programs: an X server, a window manager and a session bus, in a folder
that goes with it.

Everything here waits for events; a deadline only turns a hang into a failure.
"""
import contextlib
import os
import pathlib
import selectors
import shutil
import subprocess
import tempfile
import time

DEADLINE = 30  # seconds, for any one thing to happen


def make_home(folder):
    """Makes the folders of a user's own below `folder`, and gives the environment for them."""
    folders = {"HOME": "home", "XDG_CONFIG_HOME": "config", "XDG_DATA_HOME": "data",
               "XDG_DATA_DIRS": "system", "XDG_STATE_HOME": "state", "XDG_CACHE_HOME": "cache",
               "XDG_RUNTIME_DIR": "runtime"}
    for name in folders.values():
        (folder / name).mkdir(mode=0o700)
    return {"LANG": "C.UTF-8"} | {key: str(folder / name) for key, name in folders.items()}


def add_script(folder, name, text):
    """Installs a script for the user of `make_home`, run by the shell."""
    script = folder / "data/Pello/Scripts" / name
    script.parent.mkdir(parents=True, exist_ok=True)
    script.write_text("#!/bin/sh\n" + text)
    script.chmod(0o700)


class Lines:
    """Lines that arrive in a file descriptor, waited for one by one."""

    def __init__(self, descriptor, source):
        self.descriptor = descriptor
        self.source = source
        self.buffer = b""
        self.selector = selectors.DefaultSelector()
        self.selector.register(descriptor, selectors.EVENT_READ)

    def until(self, wanted, what):
        """What `wanted` gives for the first line for which it gives something true."""
        end = time.monotonic() + DEADLINE
        while True:
            while b"\n" in self.buffer:
                line, self.buffer = self.buffer.split(b"\n", 1)
                if found := wanted(line.decode(errors="replace")):
                    return found
            if not self.selector.select(end - time.monotonic()):
                raise AssertionError(f"{what}: nothing happened for {DEADLINE} s")
            chunk = os.read(self.descriptor, 65536)
            if not chunk:
                raise AssertionError(f"{what}: {self.source} ended")
            self.buffer += chunk


class PrivateSession:
    """Use it in a `with`; everything ends and goes with it. What it consists of and the environment
    of its programs is for a subclass to say, in `_begin`."""

    patience = DEADLINE  # seconds, for a process to end when it is asked to

    def __init__(self):
        self.stack = contextlib.ExitStack()
        self.environment = {}

    def __enter__(self):
        with contextlib.ExitStack() as stack:
            self.folder = pathlib.Path(tempfile.mkdtemp(prefix="pello-session-"))
            stack.callback(shutil.rmtree, self.folder, ignore_errors=True)
            self.stack = stack
            self._begin()
            self.stack = stack.pop_all()
        return self

    def __exit__(self, *_):
        self.stack.close()

    def _start_display(self, size, *options):
        reader, writer = os.pipe()
        server = ["Xvfb", "-displayfd", writer, "-screen", "0", size + "x24", "-noreset", *options]
        self.start(server, pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as pipe:
            self.environment["DISPLAY"] = ":" + pipe.readline().strip()

    def _start_manager(self, *command):
        self.root = self.watch(["xprop", "-root", "-spy"])
        self.start(command, stderr=subprocess.DEVNULL)
        # Set once the manager manages: what is mapped earlier may be overlooked.
        self.root.until(lambda line: line.startswith("_NET_CLIENT_LIST("), "the window manager")

    def _start_bus(self, configuration="--session"):
        bus = self.watch(["dbus-daemon", configuration, "--nofork", "--print-address"])
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.until(str.strip, "the session bus")

    def start(self, command, **options):
        """Starts `command` here; it is ended with the session unless it ended before."""
        process = subprocess.Popen(list(map(str, command)), env=self.environment,
                                   stdin=subprocess.DEVNULL, **options)
        self.stack.callback(self._end, process)
        return process

    def _end(self, process):
        process.terminate()
        try:
            process.wait(self.patience)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
        if process.stdout:
            process.stdout.close()

    def watch(self, command):
        """Starts `command` and returns its lines as it writes them."""
        process = self.start(["stdbuf", "-oL", *command], stdout=subprocess.PIPE,
                             stderr=subprocess.DEVNULL)
        return Lines(process.stdout.fileno(), command[0])

    def run(self, *command):
        """What `command` prints; it must succeed."""
        return subprocess.run(list(map(str, command)), env=self.environment, check=True, text=True,
                              stdout=subprocess.PIPE, timeout=DEADLINE).stdout
