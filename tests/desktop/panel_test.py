"""The panel as it is seen: where it opens, how it looks, and that no key gets lost."""
import re
import signal
import time

import case
from case import PELLO, SCREENSHOTS
from desktop import DEADLINE, Desktop

WIDTH, HEADER = 720, 60


class PanelTest(case.LauncherCase):
    def place(self):
        """Where the panel is; how high its window is tells nothing."""
        geometry = self.desktop.geometry(self.panel)
        return {key: geometry[key] for key in ("X", "Y", "WIDTH")}

    def wait_for(self, look, wanted, what):
        """Waits until `look` finds what is wanted."""
        end = time.monotonic() + DEADLINE
        while not wanted(found := look()):
            self.assertLess(time.monotonic(), end, f"{what}: {found}")
        return found

    def colour(self, name, x, y):
        return self.desktop.colour(self.desktop.screenshot(name), x, y)

    def middle(self, margin=0):
        """A point in the header where nothing stands."""
        place = self.place()
        return place["X"] + margin + 3 * WIDTH // 4, place["Y"] + margin + HEADER // 2

    def test_a_query_is_recalled_and_the_file_of_a_row_shown(self):
        self.desktop.add_marking_program("xdg-open")
        self.start_pello()
        self.desktop.type("alpha com")
        self.desktop.key("Return")
        self.expect_mark("Alpha Comet")
        self.summon("")
        self.desktop.key("Up")
        self.wait_for_rows(1)
        self.desktop.screenshot("recalled")
        self.desktop.key("ctrl+r")
        self.expect_mark(str(self.desktop.folder / "data/applications"))

    def test_it_stays_where_it_was_dragged_to_until_it_is_put_back(self):
        pello = self.start_pello()
        before = self.place()
        x, y = before["X"] + WIDTH // 2, before["Y"] + HEADER // 2
        self.desktop.run("xdotool", "mousemove", x, y, "mousedown", "1",
                         "mousemove", x - 50, y + 40, "mousemove", x - 150, y + 90, "mouseup", "1")
        moved = before | {"X": before["X"] - 150, "Y": before["Y"] + 90}
        self.wait_for(self.place, lambda place: place == moved, "dragged")
        self.desktop.run(PELLO, "quit")
        pello.wait()
        self.start_pello()
        self.assertEqual(self.place(), moved)
        self.desktop.screenshot("dragged")
        self.desktop.run(PELLO, "settings", "reset", "panelPlacement")
        self.wait_for(self.place, lambda place: place == before, "put back")

    def test_a_kill_at_any_moment_loses_neither_settings_nor_what_was_learned(self):
        socket = self.desktop.folder / "runtime/pello.sock"

        def kill(pello):
            pello.send_signal(signal.SIGKILL)
            pello.wait()

        kill(self.desktop.start([PELLO, "--show"]))
        pello = self.desktop.start([PELLO, "--show"])
        self.wait_for(socket.exists, bool, "listening")
        kill(pello)
        pello = self.start_pello()
        self.desktop.type("beacon")
        self.desktop.key("Return")
        self.expect_mark("Alpha Beacon")
        self.wait_for(lambda: self.desktop.run(PELLO, "learned"), lambda lines: "beacon" in lines,
                      "written, which the launch does not wait for")
        kill(pello)
        pello = self.start_pello()
        self.desktop.run(PELLO, "settings", "set", "maximumResults", "5")
        kill(pello)
        pello = self.start_pello()
        self.desktop.type("al")
        kill(pello)

        self.assertIn("Alpha Beacon", self.first_found("al"))
        setting = self.desktop.run(PELLO, "settings", "get", "maximumResults")
        self.assertEqual(setting.strip(), "5")
        self.start_pello()
        self.desktop.type("al")
        self.wait_for_rows(4)  # with the two commands of its own
        self.desktop.key("Return")
        self.expect_mark("Alpha Beacon")

    def test_a_fractional_scale_makes_it_larger_and_leaves_it_centred(self):
        for scale in ("1.25", "1.5"):
            with self.subTest(scale):
                self.desktop.environment["QT_SCALE_FACTOR"] = scale
                self.open_pello()
                self.desktop.type("alpha")
                self.desktop.screenshot(f"scale-{scale}")
                place = self.place()
                self.assertEqual(place["WIDTH"], float(scale) * WIDTH)
                self.assertAlmostEqual(place["X"] + place["WIDTH"] / 2, 640, delta=1)
                self.desktop.run(PELLO, "quit")

    def test_it_opens_on_the_screen_under_the_pointer(self):
        self.use(Desktop(SCREENSHOTS, "2000x800", ["left 1200/300x800/200+0+0",
                                                   "right 800/200x800/200+1200+0"]))
        self.desktop.run("xdotool", "mousemove", "1900", "700")
        self.start_pello()
        self.assertEqual(self.place()["X"] + WIDTH // 2, 1600)
        self.desktop.screenshot("right-screen")
        self.desktop.key("Escape")
        self.wait_until_closed()
        self.desktop.run("xdotool", "mousemove", "10", "700")
        self.summon("")
        self.assertEqual(self.place()["X"] + WIDTH // 2, 600)
        self.desktop.screenshot("left-screen")

    def test_it_follows_the_desktop_from_light_to_dark_and_back(self):
        self.desktop.start_portal("none")
        self.start_pello()
        x, y = self.middle()
        light = self.colour("light", x, y)
        self.desktop.set_scheme("dark")
        dark = self.wait_for(lambda: self.colour("dark", x, y), lambda now: now != light, "dark")
        self.assertLess(int(dark[1:3], 16), 0x60)
        self.desktop.set_scheme("light")
        self.wait_for(lambda: self.colour("light-again", x, y), lambda now: now == light, "light")

    def test_its_shadow_falls_on_what_is_behind_and_no_corner_is_black(self):
        self.desktop.run("xsetroot", "-solid", "#336699")
        self.desktop.start_portal("light")
        self.desktop.start_compositor()
        self.open_pello()
        place = self.place()
        margin = (place["WIDTH"] - WIDTH) // 2
        self.assertGreater(margin, 0)
        left, top, right = place["X"], place["Y"], place["X"] + place["WIDTH"] - 1
        for scheme in ("light", "dark"):
            with self.subTest(scheme):
                self.desktop.set_scheme(scheme)
                shot = self.wait_for(lambda: self.desktop.screenshot(f"composited-{scheme}"),
                                     lambda file: self.is_dark(file, margin) == (scheme == "dark"),
                                     scheme)
                ground = self.parts(shot, 0, 0)
                for corner, x in ((left, left + margin), (right, right - margin)):
                    self.assertEqual(self.parts(shot, corner, top), ground)
                    shaded = self.parts(shot, x, top + margin)
                    for bright, dim in zip(ground, shaded):
                        self.assertTrue(bright / 3 < dim < bright, "the ground, in the shadow")

    def is_dark(self, shot, margin):
        return max(self.parts(shot, *self.middle(margin))) < 0x60

    def parts(self, shot, x, y):
        return [int(part, 16) for part in re.findall("..", self.desktop.colour(shot, x, y)[1:])]

    def test_return_runs_the_top_row_of_the_final_text_however_fast_one_types(self):
        self.start_pello()
        self.desktop.key("Escape")

        def keys(*texts):
            """Types these, removing each before the next."""
            removed = [["BackSpace"] * len(text) for text in texts[:-1]] + [[]]
            typed = [["space" if each == " " else each for each in text] for text in texts]
            return sum((up + down for up, down in zip(typed, removed)), [])

        paced = 60, ("zebra", "alpha b", "beacon", "alpha c"), "Alpha Comet"  # 1,000 keys a minute
        burst = 0, ("alpha", "comet", "alpha", "zebra", "bea"), "Alpha Beacon"
        for delay, texts, wanted in (paced, burst, (0, ("beacon", "alpha comet", "ze"), "Zebra")):
            self.summon("")
            self.desktop.run("xdotool", "key", "--delay", delay, *keys(*texts), "Return")
            self.expect_mark(wanted)


if __name__ == "__main__":
    case.run()
