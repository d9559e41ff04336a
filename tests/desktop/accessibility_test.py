"""The real program as assistive technology sees it: by roles, names and events only."""
import json
import pathlib
import subprocess
import time

import case
from case import PELLO
from desktop import Lines

SETTINGS, GUIDE = "Pello Settings", "Pello Set-up Guide"


class Assistant:
    """A screen reader's half of the desktop: the accessibility bus, and somebody who listens."""

    def __init__(self, desktop):
        self.desktop = desktop
        desktop.environment["XDG_DATA_DIRS"] = "/usr/share"  # of the services that are started
        launcher = desktop.start(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"],
                                 stderr=subprocess.DEVNULL)
        desktop.run("gdbus", "wait", "--session", "org.a11y.Bus", "--timeout", "30")
        desktop.run("gdbus", "call", "--session", "-d", "org.a11y.Bus", "-o", "/org/a11y/bus", "-m",
                    "org.freedesktop.DBus.Properties.Set", "org.a11y.Status", "IsEnabled",
                    "<true>")
        desktop.environment["XDG_DATA_DIRS"] = str(desktop.folder / "system")
        script = pathlib.Path(__file__).with_name("assistant.py")
        self.process = subprocess.Popen(["/usr/bin/python3", "-B", script], text=True,
                                        env=desktop.environment, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        desktop.stack.callback(self._end)
        self.lines = Lines(self.process.stdout.fileno(), "the assistant")
        self.heard = []
        self._answer()
        assert launcher.poll() is None

    def _end(self):
        self.process.stdin.close()
        self.process.terminate()
        self.process.wait()
        self.process.stdout.close()

    def _answer(self):
        def is_answer(line):
            if line.startswith("heard "):
                self.heard.append(json.loads(line[6:]))
                return None
            return json.loads(line)

        answer = self.lines.until(is_answer, "the assistant answers")
        if "error" in answer:
            raise AssertionError(answer["error"])
        return answer["answer"]

    def __getattr__(self, verb):
        def ask(*arguments):
            self.process.stdin.write(json.dumps([verb, *arguments]) + "\n")
            self.process.stdin.flush()
            return self._answer()

        return ask

    def hear(self, event, role, is_it=lambda _: True, **what):
        """Waits until something of this role is heard to be like that, and returns it."""
        def fits(one):
            return (one["event"].startswith(event) and one["role"] == role and is_it(one)
                    and all(one[key] == value for key, value in what.items()))

        def note(line):
            if line.startswith("heard "):
                self.heard.append(json.loads(line[6:]))
                return fits(self.heard[-1])
            return None

        if not any(map(fits, self.heard)):
            try:
                self.lines.until(note, f"{role} {what} is heard")
            except AssertionError as error:
                raise AssertionError(f"{error}\nheard: {self.heard}") from None
        found = next(one for one in self.heard if fits(one))
        self.heard.clear()
        return found


class AccessibilityTest(case.LauncherCase):
    def setUp(self):
        super().setUp()
        self.assistant = Assistant(self.desktop)

    def test_the_panel_tells_the_selected_row_and_how_many_there_are(self):
        self.desktop.add_script("post", "echo 'no network' >&2\nexit 3\n")
        self.start_pello()
        self.assistant.hear("object:state-changed:focused", "text", name="Search")
        self.desktop.type("alpha")
        self.expect_row("Alpha Comet", "1 of 3")
        self.desktop.key("Down")
        row = self.expect_row("Alpha Beacon", "2 of 3")
        self.assertIn("selected", row["states"])

        parts = self.assistant.tree("Pello")
        self.assertEqual([part["role"] for part in parts if not part["name"]], [])
        rows = [part["name"] for part in parts if part["role"] == "list item"]
        self.assertEqual([row.split(",")[0] for row in rows[:2]], ["Alpha Comet", "Alpha Beacon"])
        self.assertEqual(next(part["name"] for part in parts if part["role"] == "list"), "Results")
        self.desktop.key("Return")
        self.expect_mark("Alpha Beacon")

        self.summon("6*7")
        self.expect_row("42", "1 of 2")
        self.desktop.key("ctrl+c")
        self.assistant.hear("object:state-changed:focused", "list item",
                            lambda row: row["name"].endswith("✓ Copied"))
        self.desktop.key("Escape", "Escape")
        self.wait_until_closed()

        self.summon("post")
        self.desktop.key("Return")
        self.assistant.hear("object:property-change:accessible-name", "list", name="1 failure")
        self.summon("zebra")
        self.desktop.key("Down", "Down")
        self.expect_row("Post failed: no network", "")
        self.assistant.press("Pello", "list item", "Post failed: no network")
        self.desktop.wait_for_active("Post failed")
        self.desktop.screenshot("failure-opened-by-name")

    def expect_row(self, name, description):
        """A row that begins with that name is told to have the focus; it is returned."""
        return self.assistant.hear("object:state-changed:focused", "list item",
                                   lambda row: row["name"].startswith(name),
                                   description=description)

    def test_the_settings_are_changed_by_role_and_name(self):
        self.desktop.start([PELLO])
        self.desktop.run("sh", "-c", f"until '{PELLO}' settings 2>/dev/null; do :; done")
        self.desktop.wait_for_active(SETTINGS)
        nameless = []
        for page in ("General", "Appearance", "Sources", "Bangs", "Aliases"):
            self.desktop.run(PELLO, "settings", page.lower())
            for part in self.assistant.tree(SETTINGS):
                if part["role"] in ("check box", "push button", "spin button", "combo box", "text",
                                    "table", "list", "toggle button") and not part["name"]:
                    nameless.append((page, part))
        self.assertEqual(nameless, [])

        self.switch("sources", "Scripts")
        self.wait_for_setting("includesScripts", lambda value: value is False)
        self.switch("general", "Open at login")
        self.wait_for_setting("launchAtLogin", lambda value: value is True)
        self.desktop.run(PELLO, "settings", "appearance")
        self.assistant.set_number(SETTINGS, "spin button", "Results", 7)
        self.wait_for_setting("maximumResults", lambda value: value == 7)

        self.desktop.run(PELLO, "settings", "general")
        self.assistant.press(SETTINGS, "push button", "Set-up guide")
        self.desktop.wait_for_active(GUIDE)
        self.assistant.hear("object:state-changed:focused", "panel", name="Welcome to Pello")
        self.desktop.key("Return", "Return")
        self.assistant.hear("object:state-changed:focused", "panel", name="What Pello needs")
        self.assistant.press(GUIDE, "push button", "Back")
        self.assistant.hear("object:state-changed:focused", "combo box")
        self.desktop.key("Escape")

        self.add(page="bangs", values=("wiki", "Wiki", "https://w.test/{query}"))
        self.add(page="aliases", values=("router", "192.168.1.1"))
        self.wait_for_setting("bangs", lambda bangs: bangs[-1]["name"] == "Wiki")
        self.wait_for_setting("urlAliases", lambda aliases: aliases[-1]["url"] == "192.168.1.1")

    def add(self, page, values):
        """Adds a row on that page, its values typed cell by cell. What is wrong is told at once,
        and no longer once it is mended."""
        self.desktop.run(PELLO, "settings", page)
        self.assistant.heard.clear()
        self.assistant.press(SETTINGS, "push button", "Add a row")
        self.expect_told(page, lambda words: "is blank" in words)
        self.assistant.hear("object:state-changed:focused", "text")
        for value in values[:-1]:
            self.desktop.type(value)
            self.desktop.key("Tab")
        self.desktop.type(values[-1])
        self.desktop.key("Return")
        self.expect_told(page, lambda words: "is blank" not in words)

    def expect_told(self, page, is_it):
        """What stands beside the table of that page changes to that."""
        self.assistant.hear("object:property-change:accessible-description", "table",
                            lambda table: is_it(table["description"]), name=f"Your {page}")

    def switch(self, page, name):
        """Presses the switch of that name, which thereby changes."""
        self.desktop.run(PELLO, "settings", page)
        before = self.assistant.describe(SETTINGS, "check box", name)["states"]
        self.assistant.press(SETTINGS, "check box", name)
        after = self.assistant.describe(SETTINGS, "check box", name)["states"]
        self.assertEqual(set(before) ^ set(after), {"checked"})

    def wait_for_setting(self, key, is_it):
        """Waits until the setting, as others read it, is that."""
        end = time.monotonic() + 30
        while not is_it(value := json.loads(self.desktop.run(PELLO, "settings", "get", key))):
            self.assertLess(time.monotonic(), end, f"{key} stays {value}")


if __name__ == "__main__":
    case.run()
