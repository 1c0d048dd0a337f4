"""What goals.toml claims, against the figures of a run."""
import dataclasses

import report


@dataclasses.dataclass(frozen=True)
class Claim:
    text: str
    goal: float
    mark: float  # at which the claim still holds; the goal itself where there is no other
    found: float
    at_least: bool

    def reaches(self, limit):
        return self.found >= limit if self.at_least else self.found <= limit

    @property
    def verdict(self):
        if self.reaches(self.goal):
            return "reached"
        return "within the mark" if self.reaches(self.mark) else "**missed**"


def at_most(text, goal, found):
    return Claim(text, goal, goal, found, at_least=False)


def at_least(text, goal, found, mark=None):
    return Claim(text, goal, goal if mark is None else mark, found, at_least=True)


def row_claims(figures, instructions, goals, action, row):
    """Those of one row."""
    wanted, everywhere = goals[action][row], goals["all"]
    verb = f"{report.VERB[action]} {row}"
    cold, hot = f"{action}/{row}/cold", f"{action}/{row}/hot"
    dispatcher = report.DISPATCHER[action]
    ours = figures[f"{cold}/{dispatcher}"]
    peer = figures.peers(action, row)[0]
    goal, mark = wanted["times"]
    yield at_least(f"{verb}: times {peer}", goal, figures[f"{cold}/{peer}"] / ours, mark)
    ragged = everywhere["ragged"]
    limit = everywhere["cold"][action]
    if action in ragged and row in ragged["rows"]:
        limit = ragged[action]
    yield at_most(f"{verb}: cold against hot", limit, ours / figures[f"{hot}/{dispatcher}"])
    yield at_most(f"{verb}: {report.DOOR[action]} against {dispatcher}", everywhere["convert"],
                  figures[f"{cold}/{report.DOOR[action]}"] / ours)
    if "column" in wanted:
        yield at_most(f"{verb}: nanoseconds a field by column", wanted["column"],
                      figures[f"{cold}/column"])
    yield at_most(f"{verb}: instructions", wanted["instructions"],
                  instructions[f"{action}/{row}"])
    for ratio, kind in report.odd_ratios(figures, action, row)[:1]:
        yield at_most(f"{verb}: {kind}, against the plain path", everywhere["odd"], ratio)


def all_claims(figures, instructions, goals):
    for action in ("write", "read"):
        for row in goals[action]:
            yield from row_claims(figures, instructions, goals, action, row)
        for kind, found in report.width_ratios(figures, action).items():
            ratio, name = found[0]
            if len(found) > 1:
                yield at_most(f"{report.VERB[action]} any {kind}: {name} against "
                              f"{report.width_row(name)}", goals["all"]["widths"], ratio)
        for name in figures.below(f"{action}_threads"):
            if name.endswith("/1"):
                one = figures[f"{action}_threads/{name}"]
                two = figures[f"{action}_threads/{name[:-1]}2"]
                yield at_least(f"{report.VERB[action]} {name[:-2]}: two threads against one",
                               goals["all"]["threads"], one / two)


def claims_table(claims):
    def line(claim):
        mark = f"{claim.mark:g}" if claim.mark != claim.goal else ""
        bound = "at least" if claim.at_least else "at most"
        return [claim.text, f"{bound} {claim.goal:g}", mark, f"{claim.found:.3g}", claim.verdict]

    return report.table(["claim", "goal", "mark", "found", ""], map(line, claims))
