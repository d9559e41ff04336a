"""The real program in a real terminal: what is seen, what runs, and what is left behind."""
import os
import pathlib
import selectors
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

from private_session import DEADLINE, Lines, add_script, make_home

PELLO = sys.argv[1]


class Terminal:
    """A terminal of its own, with a home of its own. Everything here waits for what the terminal
    shows or for what programs leave."""

    def __init__(self, case):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="pello-terminal-"))
        case.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.environment = make_home(self.folder)
        self.environment |= {"PATH": os.environ["PATH"], "SHELL": "/bin/sh"}
        self.marks = self._pipe(case, "marks")
        self.output = self._pipe(case, "output")
        self.case = case

    def _pipe(self, case, name):
        os.mkfifo(self.folder / name)
        descriptor = os.open(self.folder / name, os.O_RDWR)  # for writing too: it never ends
        case.addCleanup(os.close, descriptor)
        return Lines(descriptor, name)

    def tmux(self, *arguments):
        command = ["tmux", "-S", str(self.folder / "socket"), "-f", "/dev/null", *arguments]
        return subprocess.run(command, env=self.environment, check=True, text=True,
                              stdout=subprocess.PIPE, timeout=DEADLINE).stdout

    def add_application(self, name):
        leave_mark = f"""sh -c "echo '{name}' >{self.folder}/marks\""""
        entry = self.folder / "data/applications" / f"{name}.desktop"
        entry.parent.mkdir(exist_ok=True)
        entry.write_text(f"[Desktop Entry]\nType=Application\nName={name}\nExec={leave_mark}\n")

    def start(self):
        """Starts the program below a line of a shell's, and notes the terminal's modes before and
        after."""
        run = self.folder / "run"
        os.mkfifo(self.folder / "gate")
        run.write_text(f"""cd '{self.folder}'
read line <gate
echo 'what was there before'
stty -g >before
sh -c 'echo $$ >pid; exec "{PELLO}" terminal'
stty -g >after
echo ended >marks
exec cat
""")
        self.tmux("new-session", "-d", "-x", "60", "-y", "12", f"exec sh '{run}'")
        self.case.addCleanup(self.tmux, "kill-server")
        self.tmux("pipe-pane", f"exec cat >'{self.folder}/output'")
        (self.folder / "gate").write_text("\n")
        return self.wait_for("Type to search")

    def keys(self, *keys):
        self.tmux("send-keys", *keys)

    def screen(self):
        return self.tmux("capture-pane", "-p")

    def wait_for(self, *texts):
        """Waits until all of these are seen, and returns the whole screen."""
        end = time.monotonic() + DEADLINE
        while not all(text in (seen := self.screen()) for text in texts):
            with selectors.DefaultSelector() as selector:
                selector.register(self.output.descriptor, selectors.EVENT_READ)
                if not selector.select(end - time.monotonic()):
                    raise AssertionError(f"{texts} are not on the screen:\n{seen}")
            os.read(self.output.descriptor, 65536)
        return seen

    def signal(self, number):
        os.kill(int((self.folder / "pid").read_text()), number)

    def mark(self):
        return self.marks.until(str.strip, "a mark")


class TerminalTest(unittest.TestCase):
    def setUp(self):
        self.terminal = Terminal(self)
        for name in ("Alpha Beacon", "Alpha Comet", "日本語エディタ"):
            self.terminal.add_application(name)

    def expect_as_before(self):
        self.assertEqual(self.terminal.mark(), "ended")
        folder = self.terminal.folder
        self.assertEqual((folder / "before").read_text(), (folder / "after").read_text())
        self.assertEqual(self.terminal.tmux("display", "-p", "#{alternate_on}").strip(), "0")
        self.assertIn("what was there before", self.terminal.screen())

    def test_rows_are_found_selected_and_run_until_escape_ends(self):
        self.terminal.start()
        self.terminal.keys("alpha")
        self.terminal.wait_for("Alpha Beacon", "Alpha Comet", "Search for “alpha”")
        self.terminal.keys("Down", "Enter")
        self.assertEqual(self.terminal.mark(), "Alpha Beacon")
        self.terminal.wait_for("Type to search", "Running Alpha Beacon")
        self.terminal.keys("alpha", "Enter")  # what ran ranks first
        self.assertEqual(self.terminal.mark(), "Alpha Beacon")
        self.terminal.keys("M-Up")
        self.terminal.wait_for("›  alpha")
        self.terminal.keys("Escape")
        self.terminal.wait_for("Type to search")
        self.terminal.keys("Escape")
        self.expect_as_before()

    def test_a_resized_window_is_laid_out_anew_and_stays_aligned(self):
        self.terminal.start()
        self.terminal.keys("日本")
        rows = self.terminal.wait_for("›  日本語エディタ", "↩").split("\n")
        self.assertEqual(len(rows[1]), 60)
        self.terminal.tmux("resize-window", "-x", "30", "-y", "6")
        rows = self.terminal.wait_for("    日本語エディタ", "↩").split("\n")
        row = next(line for line in rows if "↩" in line)
        wide = sum(character > "\u2fff" for character in row)
        self.assertEqual(row.index("↩") + wide, 28)
        self.assertNotIn("───", "".join(rows))  # a small window has no line to spare

    def test_what_happens_meanwhile_is_seen_without_a_key(self):
        add_script(self.terminal.folder, "post", f"""# pello.name: Post
# pello.confirm: true
read line <'{self.terminal.folder}/go'
echo 'no network' >&2
exit 3
""")
        os.mkfifo(self.terminal.folder / "go")
        self.terminal.start()
        self.terminal.keys("post")
        self.terminal.wait_for("Post")
        self.terminal.keys("Enter")
        self.terminal.wait_for("n: Cancel")
        self.terminal.keys("y")
        self.terminal.wait_for("Type to search")
        (self.terminal.folder / "go").write_text("\n")
        self.terminal.wait_for("Post failed", "no network")
        self.terminal.add_application("Zebra")
        self.terminal.keys("zebra")
        self.terminal.wait_for("    Zebra")

    def test_the_terminal_is_given_back_whatever_ends_the_program(self):
        for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT, signal.SIGSEGV):
            with self.subTest(number.name):
                terminal = self.terminal = Terminal(self)
                terminal.start()
                terminal.keys("alp")
                terminal.wait_for("›  alp")
                terminal.signal(number)
                self.expect_as_before()


unittest.main(argv=sys.argv[:1], verbosity=2)
