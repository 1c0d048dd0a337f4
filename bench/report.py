"""The figures of a run of the benchmarks, and the tables that RESULTS.md shows of them."""
import collections
import json
import re
import statistics

# The row that other widths of a type are held against; F has two.
TYPE_ROWS = {"F": None, "COMMA": "COMMA12.2", "E": "E12.3", "Z": "Z8.2", "P": "P8.2", "IB": "IB4",
             "PIB": "PIB8", "DATE": "DATE11", "ADATE": "ADATE10", "EDATE": "EDATE10",
             "SDATE": "SDATE10", "TIME": "TIME8", "DATETIME": "DATETIME20"}
DISPATCHER = {"write": "obocv_", "read": "obicv_"}
DOOR = {"write": "IocvConvertOutput", "read": "IocvConvertInput"}
FLOOR = ("empty call", "memcpy")
VERB = {"write": "Writing", "read": "Reading"}


class Figures:
    """Nanoseconds a field by benchmark, the least and the median of the repetitions."""

    def __init__(self, *documents):
        times = collections.defaultdict(list)
        for document in documents:
            for entry in document["benchmarks"]:
                if entry["run_type"] == "iteration":
                    name = re.sub(r"/(min_time:[^/]*|real_time)", "", entry["run_name"])
                    times[name].append(1e9 / entry["items_per_second"])
        self.least = {name: min(values) for name, values in times.items()}
        self.median = {name: statistics.median(values) for name, values in times.items()}
        self.context = documents[0]["context"]

    @classmethod
    def read(cls, *paths):
        documents = []
        for path in paths:
            with open(path, encoding="utf-8") as file:
                documents.append(json.load(file))
        return cls(*documents)

    def __getitem__(self, name):
        return self.least[name]

    def below(self, prefix):
        """What stands behind the prefix in the names that begin with it, in alphabetical order."""
        prefix += "/"
        return sorted(name.removeprefix(prefix) for name in self.least if name.startswith(prefix))

    def subjects(self, action, row):
        return self.below(f"{action}/{row}/cold")

    def peers(self, action, row):
        """Packaged peers, the fastest first; without what a program puts together by hand."""
        ours = (DISPATCHER[action], DOOR[action], "column", *FLOOR)
        peers = [subject for subject in self.subjects(action, row)
                 if subject not in ours and not subject.startswith("by hand")]
        return sorted(peers, key=lambda peer: self[f"{action}/{row}/cold/{peer}"])

    def shown(self, name):
        return f"{digits(self[name])} ({digits(self.median[name])})"


def digits(number):
    return f"{number:.1f}" if number < 99.95 else f"{number:.0f}"


def table(head, rows):
    lines = [head, ["---"] * len(head), *rows]
    return "\n".join("| " + " | ".join(line) + " |" for line in lines) + "\n"


def times_table(figures, action, rows):
    head = [VERB[action], DISPATCHER[action], "16 over and over", DOOR[action], "column",
            "memcpy", "fastest peer", "", "16 over and over"]

    def line(row):
        cold, hot = f"{action}/{row}/cold", f"{action}/{row}/hot"
        peer = figures.peers(action, row)[0]
        return [row, figures.shown(f"{cold}/{DISPATCHER[action]}"),
                digits(figures[f"{hot}/{DISPATCHER[action]}"]),
                figures.shown(f"{cold}/{DOOR[action]}"), figures.shown(f"{cold}/column"),
                digits(figures[f"{cold}/memcpy"]), peer, figures.shown(f"{cold}/{peer}"),
                digits(figures[f"{hot}/{peer}"])]

    return table(head, map(line, rows))


def peers_table(figures, action, rows):
    def cell(row, subject):
        cold, hot = (figures[f"{action}/{row}/{heat}/{subject}"] for heat in ("cold", "hot"))
        return f"{subject} {digits(cold)} / {digits(hot)}"

    def line(row):
        by_hand = [subject for subject in figures.subjects(action, row)
                   if subject.startswith("by hand")]
        return [row, ", ".join(cell(row, peer) for peer in figures.peers(action, row)),
                ", ".join(cell(row, subject).removeprefix("by hand: ") for subject in by_hand)]

    return table([VERB[action], "packaged, cold / hot", "by hand, cold / hot"], map(line, rows))


def instructions_table(instructions, goals, action):
    prefixes = (action, f"convert_{action}", f"column_{action}")
    rows = [name.partition("/")[2] for name in instructions if name.startswith(action + "/")]

    def line(row):
        goal = goals[action].get(row, {}).get("instructions", "")
        return [row, *(str(instructions.get(f"{prefix}/{row}", "")) for prefix in prefixes),
                str(goal)]

    head = [VERB[action], DISPATCHER[action], DOOR[action], "column, a field", "goal"]
    return table(head, map(line, rows))


def width_row(name):
    """The row that a format of another width is held against."""
    kind, width = re.match(r"([A-Z]+)(\d+)", name).groups()
    if kind == "F":
        return "F8.2" if int(width) <= 8 else "F12.4"
    return TYPE_ROWS[kind]


def width_ratios(figures, action):
    """By type: (ratio, format) of every width and number of decimals, the slowest first."""
    ratios = collections.defaultdict(list)
    prefix = f"{action}_widths"
    for name in figures.below(prefix):
        row = name.partition("/")[0]
        ratio = figures[f"{prefix}/{name}"] / figures[f"{prefix}/{width_row(row)}/cold"]
        ratios[re.match("[A-Z]+", row)[0]].append((ratio, row))
    return {kind: sorted(ratios[kind], reverse=True) for kind in TYPE_ROWS if kind in ratios}


def widths_table(figures, limit):
    ratios = {action: width_ratios(figures, action) for action in ("write", "read")}

    def cells(found):
        above = sum(ratio > limit for ratio, _ in found)
        return [f"{found[0][1]}: {found[0][0]:.2f}", str(above)]

    head = ["type", "formats", "slowest written", f"above {limit}", "slowest read",
            f"above {limit}"]
    return table(head, ([kind, str(len(found)), *cells(found), *cells(ratios["read"][kind])]
                        for kind, found in ratios["write"].items()))


def odd_ratios(figures, action, row):
    """(ratio, kind) of what no fast path answers against the plain path, the worst first."""
    prefix = f"odd_{action}/{row}"
    kinds = dict.fromkeys(name.partition("/")[0] for name in figures.below(prefix))
    return sorted(((figures[f"{prefix}/{kind}/dispatcher"] / figures[f"{prefix}/{kind}/plain"],
                    kind) for kind in kinds), reverse=True)


def odd_table(figures, action, rows):
    rows = [row for row in rows if odd_ratios(figures, action, row)]
    kinds = [kind for _, kind in odd_ratios(figures, action, rows[0])]

    def line(row):
        ratios = {kind: ratio for ratio, kind in odd_ratios(figures, action, row)}
        return [row, *(f"{ratios[kind]:.2f}" for kind in sorted(kinds))]

    return table([VERB[action], *sorted(kinds)], map(line, rows))


def threads_table(figures):
    rows = [(action, name.removesuffix("/1")) for action in ("write", "read")
            for name in figures.below(f"{action}_threads") if name.endswith("/1")]

    def line(action, row):
        one, two = (figures[f"{action}_threads/{row}/{threads}"] for threads in (1, 2))
        return [f"{VERB[action].lower()} {row}", digits(one), digits(two), f"{one / two:.2f}"]

    return table(["column", "one thread", "two", "times"], (line(*row) for row in rows))
