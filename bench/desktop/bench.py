#!/usr/bin/env python3
"""bench.py BUILD: Pello beside its peers, measured from outside, in one table.

BUILD is the build folder. The environment variable QUICK makes it a minute instead of ten, and
leaves most peers out; LAUNCHERS names those to measure. The exit status is 1 when a goal is missed.
"""
import datetime
import json
import os
import pathlib
import subprocess
import sys

import make_applications
from session import Session, outweigh_the_machine
from table import Figures, print_table
from targets import targets

TRIALS = {"trials": 10, "keyTrials": 24, "idleSeconds": 30}
QUICK_TRIALS = {"trials": 5, "keyTrials": 10, "idleSeconds": 10}
QUICK_LAUNCHERS = ("pello", "rofi")


def applications(build, count):
    folder = build / f"bench/desktop/apps{count}"
    if not (folder / "complete").exists():
        make_applications.make(count, folder)
        (folder / "complete").touch()
    return folder


def measure(build, target, data):
    """All figures of one launcher, in a session of its own."""
    with Session([data]) as session:
        if "setup" in target:
            target["setup"](session)
        told = json.dumps({key: value for key, value in target.items() if key != "setup"})
        done = subprocess.run([build / "bench/pello_measure"], env=session.environment, input=told,
                              text=True, stdout=subprocess.PIPE)
        if done.returncode != 0:
            sys.exit(f"bench: measuring {target['start']!r} failed")
        return json.loads(done.stdout)


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    is_quick = bool(os.environ.get("QUICK"))
    pello = os.environ.get("PELLO", build / "src/app/pello")
    known = targets(pello, build / "bench/pello_null_target")
    names = os.environ.get("LAUNCHERS", ",".join(QUICK_LAUNCHERS if is_quick else known)).split(",")
    outweigh_the_machine()
    measured = {}
    for count in (200,) if is_quick else (200, 2000):
        data = applications(build, count)
        found = measured[data.name] = {}
        for name in names:
            print(f"{name}, {count} applications, load {os.getloadavg()[0]:.1f}", file=sys.stderr)
            trials = QUICK_TRIALS if is_quick else TRIALS
            found[name] = measure(build, trials | known[name], data)
    when = datetime.datetime.now().strftime("%Y-%m-%d-%H%M%S")
    (build / f"bench/desktop/{when}.json").write_text(json.dumps(measured))
    missed = print_table(Figures(measured), names)
    print(f"\n{missed} goals missed" if missed else "\nAll goals met")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
