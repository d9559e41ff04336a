"""The figures of all launchers in one table, and the goals of goals.json."""
import json
import math
import pathlib
import statistics

SUBJECT = "pello"
ROWS = [  # what is measured, by whom it is found in the figures, and how many decimals say enough
    ("cold start to complete panel, ms", "cold.complete_ms", 0),
    ("hot key to window, ms", "warm.mapped_ms", 1),
    ("hot key to complete panel, ms", "warm.complete_ms", 1),
    ("  its processor time, ms", "warm.cpu_ms", 1),
    ("key to complete rows, ms", "key.complete_ms", 1),
    ("  its processor time, ms", "key.cpu_ms", 1),
    ("Escape to hidden, ms", "warm.hide_ms", 1),
    ("start's processor time, ms", "daemon_start.cpu_ms", 0),
    ("memory, PSS, MB", "mem_idle_after_use.pss_mb", 1),
    ("memory, anonymous, MB", "mem_idle_after_use.pss_anon_mb", 1),
    ("hidden: wake-ups a second", "idle_hidden.wakeups_per_s", 2),
    ("hidden: CPU ms a second", "idle_hidden.cpu_ms_per_s", 2),
]
OTHER_WAYS = {"pello-tap": "  by a tap of one key, ms", "pello-cmd": "  by a command, ms"}
LABEL, CELL = 36, 21


class Figures:
    """All single figures: `all[set of applications][launcher][phase][metric]`."""

    def __init__(self, measured):
        self.all = measured

    def values(self, applications, launcher, metric):
        phase, name = metric.split(".")
        found = self.all[applications].get(launcher, {}).get(phase, {}).get(name, [])
        return found if isinstance(found, list) else [found]

    def value(self, applications, launcher, metric, statistic="median"):
        values = sorted(self.values(applications, launcher, metric))
        if not values:
            return math.nan
        if statistic == "p90":
            return values[math.ceil(0.9 * len(values)) - 1]
        return statistics.median(values)


def cell(figures, applications, launcher, metric, decimals):
    """Median, 90th percentile where there is one, and how many times the subject's."""
    values = figures.values(applications, launcher, metric)
    if not values:
        return "–"
    median = figures.value(applications, launcher, metric)
    text = f"{median:.{decimals}f}"
    if len(values) > 1:
        text += f" {figures.value(applications, launcher, metric, 'p90'):.{decimals}f}"
    own = figures.value(applications, SUBJECT, metric)
    if launcher != SUBJECT and own > 0:
        text += f"  ×{median / own:.1f}"
    return text


def verdict(figures, applications, goal):
    """The goal in words, and whether it was missed; nothing where it does not apply."""
    if applications not in goal.get("apps", [applications]):
        return None
    statistic = goal.get("stat", "median")
    own = figures.value(applications, SUBJECT, goal["metric"], statistic)
    name = "" if statistic == "median" else statistic + " "
    if "max" in goal:
        limit, source = goal["max"], f"{goal['max']}"
    else:
        peer = figures.value(applications, goal["peer"], goal.get("peer_metric", goal["metric"]),
                             statistic)
        limit = goal["ratio"] * peer
        share = "" if goal["ratio"] == 1 else f"{goal['ratio']}×"
        source = f"{share}{goal['peer']}" + ("" if math.isnan(limit) else f" {limit:.1f}")
    if math.isnan(own) or math.isnan(limit):
        return f"{name}≤ {source}: not measured", False
    return f"{name}≤ {source} {'met' if own <= limit else 'MISSED'}", own > limit


def print_table(figures, launchers):
    """Prints the table and returns how many goals were missed."""
    goals = json.loads((pathlib.Path(__file__).parent / "goals.json").read_text())
    shown = [name for name in launchers if name not in OTHER_WAYS]
    missed = 0
    print("Median, 90th percentile, and how many times Pello's.")
    for applications in figures.all:
        print(f"\n{applications.removeprefix('apps') + ' applications':{LABEL}}"
              + "".join(f"{name:{CELL}}" for name in shown) + "goals")
        for label, metric, decimals in ROWS:
            cells = [cell(figures, applications, name, metric, decimals) for name in shown]
            found = [verdict(figures, applications, goal) for goal in goals
                     if goal["metric"] == metric]
            found = [each for each in found if each]
            missed += sum(is_missed for _, is_missed in found)
            print(f"{label:{LABEL}}" + "".join(f"{text:{CELL}}" for text in cells)
                  + ", ".join(text for text, _ in found))
            if metric == "warm.complete_ms":
                print_other_ways(figures, applications, launchers)
    return missed


def print_other_ways(figures, applications, launchers):
    for name, label in OTHER_WAYS.items():
        if name in launchers:
            text = cell(figures, applications, name, "warm.complete_ms", 1)
            print(f"{label:{LABEL}}{text.split('  ')[0]}")
