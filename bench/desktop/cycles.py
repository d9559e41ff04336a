#!/usr/bin/env python3
"""cycles.py BUILD [COUNT]: opens the panel, has it search and closes it, again and again (10,000
times unless told), and prints how much memory of its own (anonymous PSS) the launcher holds.

The exit status is 1 when it holds a megabyte more at the end than after the first twentieth, by
when all it keeps has been made."""
import os
import pathlib
import re
import socket
import subprocess
import sys
import time

from bench import applications
from session import Session

WARM_SHARE, GROWTH_KB = 20, 1024
QUERIES = ("editor", "c", "12*3", ":fire", "mail 5", "5 km")


class Launcher:
    """The running launcher and its panel, watched through the window manager."""

    def __init__(self, session, program):
        self.path = session.environment["XDG_RUNTIME_DIR"] + "/pello.sock"
        self.properties = session.start(["stdbuf", "-oL", "xprop", "-root", "-spy"],
                                        stdout=subprocess.PIPE, text=True).stdout
        self.process = session.start([program])
        while not os.path.exists(self.path):
            time.sleep(0.01)
        self.told("ping")

    def told(self, line):
        with socket.socket(socket.AF_UNIX) as connection:
            connection.connect(self.path)
            connection.sendall(line.encode() + b"\n")
            return connection.recv(100)

    def wait_for_window(self, is_wanted):
        """Waits until the window manager manages a window, or none."""
        for line in self.properties:
            windows = re.match(r"_NET_CLIENT_LIST\(WINDOW\): window id #(.*)", line)
            if windows and bool(windows[1].strip()) == is_wanted:
                return

    def open_and_close(self, query):
        self.told("show " + query)
        self.wait_for_window(True)
        self.told("hide")
        self.wait_for_window(False)

    def memory(self):
        """Anonymous PSS, in kB."""
        rollup = pathlib.Path(f"/proc/{self.process.pid}/smaps_rollup").read_text()
        line = next(line for line in rollup.splitlines() if line.startswith("Pss_Anon:"))
        return int(line.split()[1])


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 10_000
    looked_at = {0, count // WARM_SHARE, count // 2, count}
    held = {}
    with Session([applications(build, 200)]) as session:
        launcher = Launcher(session, str(build / "src/app/pello"))
        for cycle in range(count + 1):
            if cycle in looked_at:
                held[cycle] = launcher.memory()
                print(f"{cycle:6} cycles  {held[cycle]:6} kB", flush=True)
            launcher.open_and_close(QUERIES[cycle % len(QUERIES)])
    growth = held[count] - held[count // WARM_SHARE]
    is_flat = growth < GROWTH_KB
    print(f"{growth:+} kB since cycle {count // WARM_SHARE}: {'flat' if is_flat else 'GROWS'}")
    return 0 if is_flat else 1


if __name__ == "__main__":
    sys.exit(main())
