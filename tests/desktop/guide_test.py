"""The set-up guide of the real program: when it opens, what it proves, and to what it gives way."""
import re
import time

import case
from case import PELLO

TITLE = "Pello Set-up Guide"
RIGHT_SUPER = 134  # key code of the server


class GuideTest(case.LauncherCase):
    is_first_start = True

    def start_pello(self):
        process = self.desktop.start([PELLO])
        self.guide = self.desktop.wait_for_active(TITLE)
        return process

    def tap(self):
        self.desktop.run("xdotool", "keydown", RIGHT_SUPER, "sleep", 0.1, "keyup", RIGHT_SUPER)

    def wait_until_gone(self):
        end = time.monotonic() + 30
        while self.guides():
            self.assertLess(time.monotonic(), end, "the guide stays")

    def guides(self):
        managed = self.desktop.run("xprop", "-root", "_NET_CLIENT_LIST")
        return [window for window in re.findall("0x[0-9a-f]+", managed)
                if f'"{TITLE}"' in self.desktop.output_of("xprop", "-id", window, "WM_NAME")]

    def wait_for_colour(self, name, window, colour):
        """Takes pictures until the colour is somewhere in the window."""
        place = self.desktop.geometry(window)
        area = "{WIDTH}x{HEIGHT}+{X}+{Y}".format(**place)
        for _ in range(50):
            shot = self.desktop.screenshot(name)
            histogram = self.desktop.run("convert", shot, "-crop", area, "-format", "%c",
                                         "histogram:info:")
            if colour in histogram:
                return
        self.fail(f"{colour} is not seen in {name}")

    def test_it_proves_the_key_and_opens_by_itself_only_once(self):
        pello = self.start_pello()
        self.desktop.screenshot("guide-welcome")
        self.desktop.key("Return")
        self.tap()
        self.wait_for_colour("guide-key-seen", self.guide, "#1A743A")
        active = self.desktop.run("xdotool", "getactivewindow")
        self.assertEqual(int(active), int(self.guide, 16), "no panel opens")
        self.desktop.key("Return")
        self.wait_for_colour("guide-checks", self.guide, "#1A743A")
        self.desktop.key("Return", "space", "Return")
        self.desktop.screenshot("guide-ready")
        self.desktop.key("Return")
        self.wait_until_gone()
        autostart = self.desktop.folder / "config/autostart"
        self.assertEqual(len(list(autostart.glob("*.desktop"))), 1, "it opens at login")

        self.desktop.run(PELLO, "quit")
        self.assertEqual(pello.wait(), 0)
        self.desktop.start([PELLO])
        self.tap_until_open()
        self.assertEqual(self.guides(), [])
        self.desktop.run(PELLO, "guide")
        self.desktop.wait_for_active(TITLE)
        self.wait_until_closed()

    def tap_until_open(self):
        self.desktop.run("sh", "-c", f"until '{PELLO}' doctor | grep -q 'listening for'; do :; done")
        self.tap()
        self.panel = self.desktop.wait_for_active("Pello")

    def test_the_panel_takes_its_place_and_the_keyboard(self):
        self.start_pello()
        self.tap()
        self.panel = self.desktop.wait_for_active("Pello")
        self.desktop.type("zebra")
        self.desktop.key("Return")
        self.expect_mark("Zebra")
        self.assertEqual(self.guides(), [])

    def test_a_launch_that_opens_the_panel_leaves_the_guide_to_the_next(self):
        shown = super().start_pello()
        self.desktop.type("zebra")
        self.desktop.key("Return")
        self.expect_mark("Zebra")
        self.assertEqual(self.guides(), [])
        self.desktop.run(PELLO, "quit")
        self.assertEqual(shown.wait(), 0)
        self.start_pello()
        self.desktop.key("Escape")
        self.wait_until_gone()


if __name__ == "__main__":
    case.run()
