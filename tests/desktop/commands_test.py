"""The real program on a real display: commands that a running launcher takes part in."""
import subprocess
import time

import case
from case import PELLO
from desktop import DEADLINE


class CommandsTest(case.LauncherCase):
    def pick(self, lines, *options):
        """Starts a choice of `lines`, and returns its process once the panel shows them."""
        process = subprocess.Popen([PELLO, "pick", *options], env=self.desktop.environment,
                                   text=True, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.addCleanup(process.kill)
        self.addCleanup(process.stdout.close)
        process.stdin.write(lines)
        process.stdin.close()
        self.panel = self.desktop.wait_for_active("Pello")
        return process

    def expect_answer(self, process, line, status):
        self.assertEqual(process.stdout.read(), line)
        self.assertEqual(process.wait(DEADLINE), status)

    def test_a_line_of_a_pipe_is_picked_in_the_panel(self):
        self.start_pello()
        self.desktop.key("Escape")
        self.wait_until_closed()
        colours = self.pick("red\ngreen\nblue\ngreen\n", "--prompt", "Colour")
        self.desktop.screenshot("pick")
        self.desktop.type("gr")
        self.desktop.key("Down", "Return")
        self.expect_answer(colours, "green\n", 0)
        self.wait_until_closed()

        many = self.pick("".join(f"commit {i} of many\n" for i in range(100_000)))
        self.desktop.type("commit 99887")
        self.desktop.key("Return")
        self.expect_answer(many, "commit 99887 of many\n", 0)

        self.wait_until_closed()
        unwanted = self.pick("one\n")
        self.desktop.key("Escape")
        self.expect_answer(unwanted, "", 1)
        self.assertEqual(self.desktop.output_of(PELLO, "history"), "")
        self.assertEqual(self.desktop.output_of(PELLO, "learned"), "")

    def test_a_choice_ends_with_whoever_asked_and_gives_way_to_others(self):
        pello = self.start_pello()
        self.desktop.key("Escape")
        self.wait_until_closed()
        gone = self.pick("one\n")
        gone.terminate()
        self.wait_until_closed()

        first = self.pick("one\n")
        second = self.pick("two\n")
        self.expect_answer(first, "", 1)
        self.desktop.run(PELLO, "show", "zebra")
        self.expect_answer(second, "", 1)
        self.desktop.key("Return")
        self.expect_mark("Zebra")

        third = self.pick("three\n")
        pello.terminate()
        self.expect_answer(third, "", 1)
        self.assertEqual(pello.wait(), 0)
        nobody = subprocess.run([PELLO, "pick"], env=self.desktop.environment, input=b"x\n",
                                check=False, timeout=DEADLINE)
        self.assertEqual(nobody.returncode, 3)

    def shape_when_empty(self):
        self.desktop.run(PELLO, "show")
        self.panel = self.desktop.wait_for_active("Pello")
        shape = self.desktop.shape(self.panel)
        self.desktop.run(PELLO, "hide")
        self.wait_until_closed()
        return shape

    def test_what_is_forgotten_is_forgotten_by_the_running_launcher_too(self):
        self.start_pello()
        self.desktop.key("Escape")
        self.wait_until_closed()
        nothing = self.shape_when_empty()
        self.summon("beacon")
        self.desktop.key("Return")
        self.expect_mark("Alpha Beacon")
        self.wait_until_closed()
        self.assertNotEqual(self.shape_when_empty(), nothing)
        item = self.desktop.run(PELLO, "learned").split("\t")[0]
        self.desktop.run(PELLO, "learned", "forget", item)
        end = time.monotonic() + DEADLINE
        while self.shape_when_empty() != nothing:
            self.assertLess(time.monotonic(), end, "the row stayed")


if __name__ == "__main__":
    case.run()
