"""What goals.toml claims, against the figures of a run."""
import dataclasses
import re

import report

KINDS = ("times peer", "cold : hot", "IocvConvert : dispatcher", "column, ns", "instructions",
         "odd : plain")
WIDEST = 16  # of the claim about any width
VERDICTS = ("reached", "between goal and mark", "missed")


@dataclasses.dataclass(frozen=True)
class Claim:
    subject: str  # "Writing F8.2"
    kind: str
    goal: float
    found: float
    at_least: bool = False
    mark: float | None = None  # below the goal, where the claim still holds
    detail: str = ""

    def reaches(self, limit):
        """To two decimals, as it is shown."""
        found = round(self.found, 2)
        return found >= limit if self.at_least else found <= limit

    @property
    def verdict(self):
        if self.reaches(self.goal):
            return "reached"
        holds = self.mark is not None and self.reaches(self.mark)
        return "between goal and mark" if holds else "missed"

    @property
    def bound(self):
        mark = "" if self.mark is None else f", mark {self.mark:g}"
        return f"{'at least' if self.at_least else 'at most'} {self.goal:g}{mark}"

    @property
    def shown(self):
        return f"{self.found:.0f}" if self.kind == "instructions" else f"{self.found:.2f}"

    def __str__(self):
        detail = f" ({self.detail})" if self.detail else ""
        return f"{self.subject}: {self.kind}{detail} {self.shown}, {self.bound}: {self.verdict}"


def coldness_limit(everywhere, action, row):
    ragged = everywhere["ragged"]
    is_ragged = action in ragged and row in ragged["rows"]
    return ragged[action] if is_ragged else everywhere["cold"][action]


def row_claims(figures, instructions, goals, action, row):
    """Those of one row, in the order of KINDS."""
    wanted, everywhere = goals[action][row], goals["all"]
    subject = f"{report.VERB[action]} {row}"
    cold, hot = f"{action}/{row}/cold", f"{action}/{row}/hot"
    dispatcher = report.DISPATCHER[action]
    ours = figures[f"{cold}/{dispatcher}"]
    peer = figures.peers(action, row)[0]
    goal, mark = wanted["times"]
    times, coldness, door, column, counted, odd = KINDS
    yield Claim(subject, times, goal, figures[f"{cold}/{peer}"] / ours, True, mark, peer)
    yield Claim(subject, coldness, coldness_limit(everywhere, action, row),
                ours / figures[f"{hot}/{dispatcher}"])
    yield Claim(subject, door, everywhere["convert"],
                figures[f"{cold}/{report.DOOR[action]}"] / ours)
    if "column" in wanted:
        yield Claim(subject, column, wanted["column"], figures[f"{cold}/column"])
    yield Claim(subject, counted, wanted["instructions"], instructions[f"{action}/{row}"])
    for ratio, kind in report.odd_ratios(figures, action, row)[:1]:
        yield Claim(subject, odd, everywhere["odd"], ratio, detail=kind)


def width_claims(figures, goals, action):
    """The slowest format of each type against its row."""
    for kind, found in report.width_ratios(figures, action).items():
        found = [(ratio, name) for ratio, name in found
                 if int(re.search(r"\d+", name)[0]) <= WIDEST]
        if len(found) > 1:
            ratio, name = found[0]
            yield Claim(f"{report.VERB[action]} any {kind}", f"against {report.width_row(name)}",
                        goals["all"]["widths"], ratio, detail=name)


def thread_claims(figures, goals, action):
    for name in figures.below(f"{action}_threads"):
        row, _, threads = name.partition("/")
        if threads == "1":
            one, two = (figures[f"{action}_threads/{row}/{count}"] for count in (1, 2))
            yield Claim(f"{report.VERB[action]} a column of {row}", "two threads : one",
                        goals["all"]["threads"], one / two, at_least=True)


def all_claims(figures, instructions, goals):
    for action in ("write", "read"):
        for row in goals[action]:
            yield from row_claims(figures, instructions, goals, action, row)
        yield from width_claims(figures, goals, action)
        yield from thread_claims(figures, goals, action)


def cell(claim):
    """What was found and what is claimed; a miss is bold."""
    if claim is None:
        return ""
    found = claim.shown
    if claim.verdict == "missed":
        found = f"**{found}**"
    bound = f"{claim.goal:g}" if claim.mark is None else f"{claim.goal:g}, {claim.mark:g}"
    return f"{found} ({bound})"


def rows_table(claims, verb):
    """The claims about rows, a line each; in brackets the goal, and the mark where there is one."""
    by_subject = {}
    for claim in claims:
        if claim.kind in KINDS and claim.subject.startswith(verb):
            by_subject.setdefault(claim.subject, {})[claim.kind] = claim
    return report.table([verb, *KINDS],
                        ([subject.removeprefix(verb + " "), *(cell(of.get(kind)) for kind in KINDS)]
                         for subject, of in by_subject.items()))


def others_table(claims):
    """The other claims, a line each."""
    return report.table(["claim", "", "found (goal)"],
                        ([claim.subject, f"{claim.detail} {claim.kind}".strip(), cell(claim)]
                         for claim in claims if claim.kind not in KINDS))


def summary(claims):
    counts = [f"{sum(claim.verdict == verdict for claim in claims)} {verdict}"
              for verdict in VERDICTS]
    return f"Of {len(claims)} claims: {', '.join(counts)}.\n"
