"""What the tests of the real program have in common."""
import sys
import time
import unittest

from desktop import DEADLINE, Desktop

PELLO, SCREENSHOTS = sys.argv[1:3]


class LauncherCase(unittest.TestCase):
    """A desktop of its own for each test, with a few applications that leave marks."""

    is_first_start = False  # of the program, which the set-up guide opens at

    def setUp(self):
        self.use(Desktop(SCREENSHOTS))

    def use(self, desktop):
        self.desktop = desktop
        self.desktop.__enter__()
        self.addCleanup(self.desktop.__exit__)
        self.addCleanup(self.desktop.screenshot, self.id().split(".")[-1])
        if not self.is_first_start:
            self.desktop.write_defaults({"hasSeenGuide": True})
        self.marks = self.desktop.watch_marks()
        for name in ("Alpha Beacon", "Alpha Comet", "Zebra"):
            self.desktop.add_marker(name)

    def open_pello(self):
        """Starts the program with its panel open, and returns its process."""
        process = self.desktop.start([PELLO, "--show"])
        self.panel = self.desktop.wait_for_active("Pello")
        return process

    def start_pello(self):
        """The same, and waits until it knows the applications: rows that come after the last key
        stand below the others."""
        process = self.open_pello()
        self.desktop.type("zebra")
        self.wait_for_rows(1)
        self.desktop.key("Escape")
        return process

    def summon(self, query):
        self.desktop.run(PELLO, "toggle")
        self.panel = self.desktop.wait_for_active("Pello")
        self.desktop.type(query)

    def expect_the_one_that_answers(self):
        """A panel is open, and its process is the one that verbs reach."""
        self.panel = self.desktop.wait_for_active("Pello")
        self.desktop.run(PELLO, "toggle")
        self.wait_until_closed()

    def wait_for_rows(self, count):
        """Waits until the panel is as high as `count` rows and the web search make it."""
        header, row, padding = 60, 50, 14
        height = header + (count + 1) * row + padding
        self.desktop.wait_for_shape(self.panel, f"720x{height}+0+0")

    def wait_until_closed(self):
        """Asks for it: what happens just before somebody listens would not be told."""
        end = time.monotonic() + DEADLINE
        while "Normal" in self.desktop.run("xprop", "-id", self.panel, "WM_STATE"):
            if time.monotonic() > end:
                raise AssertionError(f"the panel stayed for {DEADLINE} s")
            time.sleep(0.02)

    def expect_mark(self, name):
        self.assertEqual(self.marks.until(str.strip, "the launched application"), name)

    def first_found(self, text):
        return self.desktop.run(PELLO, "query", text, "--limit", "1").split("\n")[0]


def run():
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
