"""The real program on a real display: what a user does from the first summons to the second."""
import json
import re
import signal

import case
from case import PELLO


class LauncherTest(case.LauncherCase):
    def test_what_ran_once_ranks_first_after_a_restart(self):
        self.assertIn("Alpha Comet", self.first_found("al"))

        pello = self.start_pello()
        self.desktop.type("beacon")
        self.wait_for_rows(1)
        self.desktop.screenshot("typed")
        self.desktop.key("Return")
        self.expect_mark("Alpha Beacon")
        self.desktop.run(PELLO, "quit")
        self.assertEqual(pello.wait(), 0)

        self.start_pello()
        self.desktop.type("al")
        self.wait_for_rows(4)  # with the two commands of its own
        self.desktop.screenshot("learned")
        self.desktop.key("Return")
        self.expect_mark("Alpha Beacon")
        self.assertIn("Alpha Beacon", self.first_found("al"))

    def test_an_application_installed_meanwhile_shows_up(self):
        self.start_pello()
        self.desktop.type("zebra")
        self.wait_for_rows(1)
        self.desktop.add_marker("Zebra Crossing")
        self.wait_for_rows(2)
        self.desktop.screenshot("installed-meanwhile")
        self.desktop.key("Down", "Return")
        self.expect_mark("Zebra Crossing")

    def test_answers_and_bangs_use_the_clipboard_and_survive_who_holds_it(self):
        self.desktop.add_marking_program("xdg-open")
        bang = {"keyword": "tr", "name": "Translate", "template": "https://t.test/{clipboard}",
                "id": "0F1E2D3C-4B5A-6978-8796-A5B4C3D2E1F0"}
        self.desktop.run(PELLO, "settings", "set", "bangs", json.dumps([bang]))
        holder = self.desktop.hold_clipboard("guten Tag")
        self.start_pello()
        self.desktop.type("tr")
        self.wait_for_rows(1)
        self.desktop.screenshot("bang")
        self.desktop.key("Return")
        self.expect_mark("https://t.test/guten%20Tag")

        holder.send_signal(signal.SIGSTOP)
        self.desktop.run(PELLO, "toggle")
        self.desktop.wait_for_active("Pello")
        self.desktop.type("tr")
        self.desktop.key("Return")
        self.expect_mark("https://t.test/")
        holder.kill()

        self.desktop.run(PELLO, "toggle")
        self.desktop.wait_for_active("Pello")
        self.desktop.type("6*7")
        self.wait_for_rows(1)
        self.desktop.key("ctrl+c")
        self.assertEqual(self.desktop.clipboard(), "42")
        self.desktop.screenshot("copied")
        self.desktop.key("BackSpace", "8", "Return")
        self.wait_until_closed()
        self.assertEqual(self.desktop.clipboard(), "48")

    def test_scripts_take_arguments_tell_what_came_of_them_and_can_be_stopped(self):
        self.desktop.start_notification_daemon()
        self.desktop.add_script("post", """# pello.keyword: po
# pello.icon: 📮
# pello.argument: required
[ "$1" = "it's \\"done\\"" ] && echo "posted $1 from $(pwd)" && exit
echo 'no network' >&2
exit 3
""")
        self.desktop.add_script("watch", "exec sleep 1000\n")
        self.start_pello()
        self.desktop.type("po it's \"done")
        self.wait_for_rows(1)
        self.desktop.type("\"")
        self.desktop.key("Return")
        home = self.desktop.folder / "home"
        self.expect_mark(f"Post: posted it's \"done\" from {home}")

        self.summon("po it")
        self.desktop.key("Return")
        self.expect_mark("Post failed: no network")
        self.summon("watch")
        self.desktop.key("Return")
        self.wait_until_closed()
        self.summon("watch")
        self.desktop.screenshot("script-running-and-failed")
        self.desktop.key("Return")
        self.desktop.wait_for_active("Stop “Watch”?")
        self.desktop.screenshot("stop-question")
        self.desktop.key("Return")
        self.expect_mark("Watch was stopped:")

    def pick_glyph(self, query, *keys):
        """Summons the panel and picks what `keys` lead to from `query`."""
        self.summon(query)
        self.desktop.key(*keys)

    def test_glyphs_are_pasted_where_the_user_was_and_the_clipboard_comes_back(self):
        self.start_pello()
        self.desktop.key("Escape")
        self.desktop.hold_clipboard("guten Tag")
        self.desktop.start_editor("Editor", "!Ctrl<Key>v")
        self.pick_glyph(":fire", "Return")
        self.expect_mark("🔥")
        self.desktop.wait_for_clipboard("guten Tag")

        long = "guten Tag! " * 200_000  # more than the display takes at once
        self.desktop.hold_clipboard(long)
        self.desktop.start_editor("XTerm", "!Ctrl Shift<Key>v")
        self.pick_glyph("emoji fire", "Return")
        self.expect_mark("🔥")
        self.desktop.wait_for_clipboard(long)

        self.desktop.run("setxkbmap", "-layout", "us", "-variant", "dvorak")
        self.desktop.start_editor("Editor", "!Ctrl<Key>v")
        self.desktop.run(PELLO, "toggle")
        self.panel = self.desktop.wait_for_active("Pello")
        self.desktop.type(":fire")
        self.desktop.run("xdotool", "key", "Return", "keydown", "Alt_L")
        self.expect_mark("🔥")
        self.desktop.run("xdotool", "keyup", "Alt_L")

    def test_a_skin_tone_that_was_chosen_is_found_by_itself(self):
        self.start_pello()
        self.desktop.key("Escape")
        self.desktop.start_editor("Editor", "!Ctrl<Key>v")
        self.pick_glyph(":thumbs u", "shift+Return", "Down", "Down")
        self.desktop.screenshot("skin-tones")
        self.desktop.key("Return")
        self.expect_mark("👍")  # the first of its two characters
        self.wait_until_closed()
        self.assertIn("👍🏽", self.desktop.run(PELLO, "glyph", "thumbs u", "--limit", "1"))

    def test_the_keyboard_comes_and_goes_back(self):
        typed = self.desktop.watch(["xev", "-name", "Editor", "-event", "keyboard"])
        editor = self.desktop.wait_for_active("Editor")
        self.start_pello()
        self.desktop.type("xy")
        self.desktop.key("Escape", "Escape")
        self.assertEqual(self.desktop.wait_for_active("Editor"), editor)
        self.desktop.key("q")
        pressed = []

        def note(line):
            if re.search(r"^Key(Press|Release) event", line):
                pressed.append(line.split()[0])
            elif key := re.search(r"keysym 0x\w+, (\w+)", line):
                pressed[-1] += " " + key[1]
            return pressed and pressed[-1] == "KeyPress q"

        typed.until(note, "a key in the former window")
        presses = [each for each in pressed if each.startswith("KeyPress")]
        self.assertEqual(presses, ["KeyPress q"], "what was typed into the panel stays there")

        self.desktop.run(PELLO, "toggle")
        self.desktop.wait_for_active("Pello")
        self.desktop.run(PELLO, "toggle")
        self.assertEqual(self.desktop.wait_for_active("Editor"), editor)

    def test_verbs_open_it_with_a_text_and_close_it(self):
        self.start_pello()
        self.desktop.run(PELLO, "hide")
        self.wait_until_closed()
        self.desktop.run(PELLO, "ping")
        self.desktop.run(PELLO, "show", "alpha", "com ")
        self.panel = self.desktop.wait_for_active("Pello")
        self.desktop.key("BackSpace", "Return")
        self.expect_mark("Alpha Comet")

    def test_a_click_elsewhere_closes_it(self):
        self.desktop.watch(["xev", "-name", "Editor", "-geometry", "200x100+0+0"])
        editor = self.desktop.wait_for_active("Editor")
        self.start_pello()
        self.desktop.run("xdotool", "mousemove", "100", "60", "click", "1")
        self.assertEqual(self.desktop.wait_for_active("Editor"), editor)
        self.wait_until_closed()

    def test_of_two_started_together_one_stays_and_answers(self):
        both = [self.desktop.start([PELLO, "--show"]) for _ in range(2)]
        ended, others = self.desktop.first_to_end(both)
        self.assertEqual(ended.wait(), 0)
        self.expect_the_one_that_answers()
        self.desktop.run(PELLO, "quit")
        self.assertEqual(others[0].wait(), 0)

    def test_one_that_hangs_is_replaced_for_good(self):
        hung = self.start_pello()
        hung.send_signal(signal.SIGSTOP)
        self.desktop.start([PELLO, "--show"])
        ended, _ = self.desktop.first_to_end([hung])
        self.assertEqual(ended.wait(), -signal.SIGKILL)
        self.expect_the_one_that_answers()

    def test_a_signal_ends_it_in_order(self):
        pello = self.start_pello()
        self.desktop.type("beacon")
        self.wait_for_rows(1)
        self.desktop.key("Return")
        self.expect_mark("Alpha Beacon")
        pello.terminate()
        self.assertEqual(pello.wait(), 0)
        self.assertIn("Alpha Beacon", self.first_found("al"))

    def test_corners_are_round_without_a_compositor(self):
        self.desktop.run("xsetroot", "-solid", "#336699")
        self.start_pello()
        place = self.desktop.geometry(self.panel)
        shot = self.desktop.screenshot("corners")
        right, bottom = place["X"] + place["WIDTH"] - 1, place["Y"] + place["HEIGHT"] - 1
        for x, y in ((place["X"], place["Y"]), (right, place["Y"]), (right, bottom)):
            self.assertEqual(self.desktop.colour(shot, x, y), "#336699")
        self.assertNotEqual(self.desktop.colour(shot, right - 40, place["Y"] + 20), "#336699")


if __name__ == "__main__":
    case.run()
