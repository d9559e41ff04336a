"""Each shell loads its completion and is asked what could follow."""
import os
import pathlib
import pty
import re
import selectors
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

PELLO, COMPLETIONS = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
DEADLINE = 30  # seconds; only turns a hang into a failure

ASK_BASH = """
source "$1"
COMP_WORDS=("${@:2}")
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_pello "${COMP_WORDS[0]}" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD-1]}"
printf '%s\\n' "${COMPREPLY[@]}"
"""


class Zsh:
    """An interactive zsh, which completes only for somebody who types."""

    def __init__(self, environment):
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            os.execvpe("zsh", ["zsh", "-f", "-i"], environment)
        self.output = b""
        self.type("stty rows 60 cols 200; unsetopt beep; autoload -Uz compinit; "
                  f"fpath=({COMPLETIONS} $fpath); compinit -u -D; PS1='ready''> '\n")
        self.wait(rb"ready> ")

    def type(self, keys):
        os.write(self.terminal, keys.encode())

    def wait(self, pattern):
        """Waits until what was printed since the last time matches."""
        end = time.monotonic() + DEADLINE
        with selectors.DefaultSelector() as selector:
            selector.register(self.terminal, selectors.EVENT_READ)
            while not (found := re.search(pattern, self.output)):
                if not selector.select(end - time.monotonic()):
                    raise AssertionError(f"{pattern} is not in {self.output}")
                self.output += os.read(self.terminal, 65536)
        self.output = b""
        return found

    def completed(self, line):
        """What a Tab makes of `line`: marked by a word that is typed behind it."""
        self.type(line + "\t#end")
        found = self.wait(rb"(pello[^\r\n]*)#end").group(1).decode()
        self.type("\x15")
        return " ".join(re.sub(r"[^ -~]", "", found).split())

    def end(self):
        self.type("\x04")
        os.close(self.terminal)
        os.waitpid(self.process, 0)


class CompletionsTest(unittest.TestCase):
    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="pello-completions-"))
        self.addCleanup(shutil.rmtree, self.home, ignore_errors=True)
        script = self.home / "data/Pello/Scripts/back up.sh"
        script.parent.mkdir(parents=True)
        script.write_text("#!/bin/sh\n")
        script.chmod(0o700)
        self.environment = {"PATH": f"{PELLO.parent}:{os.environ['PATH']}", "LANG": "C.UTF-8",
                            "TERM": "dumb", "HOME": str(self.home),
                            "XDG_RUNTIME_DIR": str(self.home)}
        for name in ("CONFIG", "DATA", "STATE", "CACHE"):
            self.environment[f"XDG_{name}_HOME"] = str(self.home / name.lower())

    def run_here(self, *command):
        return subprocess.run(command, env=self.environment, cwd=self.home, check=True, text=True,
                              stdout=subprocess.PIPE, timeout=DEADLINE).stdout

    def verbs(self):
        """The verbs that the program itself lists."""
        listed = self.run_here(PELLO, "--help").split("Subcommands:\n")[1]
        return set(re.findall(r"^  (\w+)", listed, re.MULTILINE))

    def check(self, candidates):
        """Asks `candidates` for what the shells have in common."""
        self.assertLessEqual(self.verbs(), candidates(""))
        self.assertEqual(candidates("tog"), {"toggle"})
        self.assertEqual(candidates("settings", "get", "maximum"), {"maximumResults"})
        self.assertEqual(candidates("settings", "set", "usesGlass", "f"), {"false"})
        self.assertLessEqual({"appearance", "export", "reset"}, candidates("settings", ""))
        self.assertEqual(candidates("learned", "fo"), {"forget"})
        self.assertEqual(candidates("scripts", "run", ""), {"Back Up"})
        self.assertLessEqual({"--json", "--limit", "--explain"}, candidates("query", "--"))
        self.assertIn("settings.json", candidates("settings", "import", "sett"))

    def test_bash(self):
        (self.home / "settings.json").touch()

        def candidates(*words):
            listed = self.run_here("bash", "--norc", "-c", ASK_BASH, "bash",
                                   COMPLETIONS / "pello.bash", "pello", *words)
            return set(listed.splitlines())

        self.check(candidates)

    def test_fish(self):
        (self.home / "settings.json").touch()

        def candidates(*words):
            line = " ".join(["pello", *words])
            asked = f"source {COMPLETIONS / 'pello.fish'}; complete -C '{line}'"
            listed = self.run_here("fish", "--no-config", "-c", asked)
            return {row.split("\t")[0] for row in listed.splitlines()}

        self.check(candidates)

    def test_zsh(self):
        (self.home / "settings.json").touch()
        os.chdir(self.home)
        zsh = Zsh(self.environment)
        self.addCleanup(zsh.end)
        for line, rest in (("pello tog", "gle"),
                           ("pello settings get maximum", "Results"),
                           ("pello settings set usesGlass f", "alse"),
                           ("pello settings appe", "arance"),
                           ("pello learned fo", "rget"),
                           ("pello scripts run B", r"ack\ Up"),
                           ("pello query --ex", "plain"),
                           ("pello logs --f", "ollow"),
                           ("pello settings import sett", "ings.json")):
            self.assertEqual(zsh.completed(line), line + rest)
        described = (COMPLETIONS / "_pello").read_text()
        for verb in self.verbs():
            self.assertIn(f"'{verb}:", described)


unittest.main(argv=sys.argv[:1], verbosity=2)
