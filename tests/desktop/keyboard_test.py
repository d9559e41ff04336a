"""The real keyboard on a real display: keys that open the panel, and the Hyper key."""
import json
import signal
import time

import case
from case import PELLO

RIGHT_SUPER, RIGHT_ALT, CAPS_LOCK, LETTER_A = 134, 108, 66, 38  # key codes of the server


class KeyboardTest(case.LauncherCase):
    def start_pello(self):
        """Starts the program without its panel, and returns its process once it listens."""
        process = self.desktop.start([PELLO])
        self.wait_for_health(lambda lines: "listening for" in lines)
        return process

    def doctor(self):
        """The lines of `pello doctor`, whatever its status."""
        return self.desktop.output_of(PELLO, "doctor")

    def wait_for_health(self, is_it):
        end = time.monotonic() + 30
        while not is_it(lines := self.doctor()):
            self.assertLess(time.monotonic(), end, lines)

    def set(self, key, value):
        self.desktop.run(PELLO, "settings", "set", key, value)

    def tap(self, key, seconds=0.1):
        self.desktop.run("xdotool", "keydown", key, "sleep", seconds, "keyup", key)

    def close_panel(self):
        self.panel = self.desktop.wait_for_active("Pello")
        self.desktop.key("Escape")
        self.wait_until_closed()

    def keymap(self):
        return self.desktop.run("xkbcomp", self.desktop.environment["DISPLAY"], "-")

    def test_a_tap_of_a_lone_modifier_opens_and_closes_the_panel(self):
        self.start_pello()
        self.tap(RIGHT_SUPER)
        self.panel = self.desktop.wait_for_active("Pello")
        self.desktop.type("zebra")
        self.tap(RIGHT_SUPER, 0.2)
        self.wait_until_closed()
        self.set("activation", "rightOption")
        self.wait_for_health(lambda lines: "right Alt" in lines)
        self.tap(RIGHT_SUPER)
        self.tap(RIGHT_ALT)
        self.close_panel()

    def test_combos_are_taken_from_the_window_in_front_and_from_the_window_manager(self):
        self.start_pello()
        typed = self.desktop.watch(["xev", "-name", "Editor", "-event", "keyboard"])
        self.desktop.wait_for_active("Editor")
        self.set("activation", "keyCombo")  # Alt+Space, which openbox has a menu on
        self.set("glyphCombo", "5:1048576")
        self.wait_for_health(lambda lines: "⌥Space         taken" in lines and "⌘G" in lines)
        self.desktop.run("setxkbmap", "us")  # makes every window manager claim its keys again
        self.desktop.run("xdotool", "key", "a")
        self.wait_for_health(lambda lines: "⌥Space         taken" in lines)
        self.desktop.run("xdotool", "key", "alt+space")
        self.close_panel()
        self.desktop.wait_for_active("Editor")
        self.desktop.run("xdotool", "key", "super+g")
        self.panel = self.desktop.wait_for_active("Pello")
        self.desktop.type("fire")
        self.desktop.screenshot("glyph-combo")
        self.desktop.key("Escape", "Escape")
        self.wait_until_closed()
        self.desktop.wait_for_active("Editor")
        self.desktop.run("xdotool", "key", "z")
        heard = []
        typed.until(lambda line: heard.append(line) or "keysym 0x7a, z" in line, "the last letter")
        self.assertFalse([line for line in heard if "space" in line or "keysym 0x67" in line])

    def test_keys_that_follow_the_combo_at_once_land_in_the_panel(self):
        self.set("activation", "keyCombo")
        self.start_pello()
        self.desktop.watch(["xev", "-name", "Editor"])
        self.desktop.wait_for_active("Editor")
        self.desktop.run("xdotool", "key", "a")  # a keyboard of its own: the manager claims again
        self.wait_for_health(lambda lines: "⌥Space         taken" in lines)
        self.summon("zebra")
        self.wait_for_rows(1)
        self.desktop.key("Escape", "Escape")
        self.wait_until_closed()
        for _ in range(5):
            self.desktop.wait_for_active("Editor")
            self.desktop.run("xdotool", "key", "--delay", 2, "alt+space", *"zebra", "Return")
            self.expect_mark("Zebra")

    def test_an_open_menu_gives_way_to_the_panel(self):
        self.start_pello()
        self.desktop.watch(["xev", "-name", "Editor"])
        self.desktop.wait_for_active("Editor")
        self.desktop.run("xdotool", "key", "alt+space")  # the window's menu, which takes all keys
        self.tap(RIGHT_SUPER)
        self.panel = self.desktop.wait_for_active("Pello")
        self.desktop.type("zebra")
        self.desktop.key("Return")
        self.expect_mark("Zebra")

    def test_caps_lock_is_the_hyper_key_until_pello_quits(self):
        before = self.keymap()
        self.set("activation", "capsLock")
        self.set("capsLockIsHyper", "true")
        killed = self.start_pello()
        self.wait_for_health(lambda lines: "Caps Lock, undone" in lines)
        self.assertNotEqual(self.keymap(), before)
        self.tap(CAPS_LOCK)
        self.close_panel()

        typed = self.desktop.watch(["xev", "-name", "Editor", "-event", "keyboard"])
        self.desktop.wait_for_active("Editor")
        self.desktop.run("xdotool", "keydown", CAPS_LOCK, "key", LETTER_A, "keyup", CAPS_LOCK)
        typed.until(lambda line: "state 0x4d, keycode 38" in line, "a letter with four modifiers")

        killed.send_signal(signal.SIGKILL)
        killed.wait()
        self.assertNotEqual(self.keymap(), before)
        self.start_pello()
        self.wait_for_health(lambda lines: "Caps Lock, undone" in lines)
        newer = self.start_newer()
        self.assertNotEqual(self.keymap(), before, "the newer one needs it")
        self.desktop.run("setxkbmap", "us")
        self.wait_for_health(lambda lines: "WRONG  Hyper key" in lines)
        self.set("capsLockIsHyper", "false")
        self.set("capsLockIsHyper", "true")
        self.wait_for_health(lambda lines: "Caps Lock, undone" in lines)
        self.desktop.run(PELLO, "quit")
        newer.wait()
        self.assertEqual(self.keymap(), before)

    def start_newer(self):
        """Starts a second launcher, which replaces the first, and waits until it has."""
        newer = self.desktop.start([PELLO, "--show"])
        self.close_panel()
        self.wait_for_health(lambda lines: "Caps Lock, undone" in lines)
        return newer


if __name__ == "__main__":
    case.run()
