"""A chart of ours against the fastest packaged peer of each row, as SVG."""
import math
import xml.sax.saxutils

import report

LEFT, RIGHT, TOP, LINE, PANEL_GAP = 120, 700, 64, 24, 56
LEAST, MOST = 1, 1000  # nanoseconds
OURS, PEER, LINK, GRID, INK = "#0b6e4f", "#c1440e", "#b8b8b8", "#e4e4e4", "#222222"


def across(nanoseconds):
    share = math.log(nanoseconds / LEAST) / math.log(MOST / LEAST)
    return LEFT + (RIGHT - LEFT) * min(max(share, 0), 1)


def text(x, y, words, anchor="start", size=13, color=INK, weight="normal"):
    return (f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" font-size="{size}" '
            f'font-weight="{weight}" fill="{color}">{xml.sax.saxutils.escape(words)}</text>')


def line(x1, y1, x2, y2, color, width=1.0):
    return (f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" '
            f'stroke="{color}" stroke-width="{width}"/>')


def dot(x, y):
    return f'<circle cx="{x:.1f}" cy="{y:.1f}" r="5" fill="{OURS}"/>'


def ring(x, y):
    return (f'<circle cx="{x:.1f}" cy="{y:.1f}" r="4.5" fill="white" stroke="{PEER}" '
            'stroke-width="2"/>')


def grid(top, bottom):
    for decade in (1, 10, 100, 1000):
        for step in range(1, 10):
            if LEAST <= decade * step <= MOST:
                x = across(decade * step)
                yield line(x, top, x, bottom, GRID, 1.6 if step == 1 else 0.6)
        yield text(across(decade), bottom + 16, f"{decade} ns", "middle", 12)


def row_marks(figures, action, row, y):
    cold = f"{action}/{row}/cold"
    peer = figures.peers(action, row)[0]
    ours, theirs = figures[f"{cold}/{report.DISPATCHER[action]}"], figures[f"{cold}/{peer}"]
    yield text(LEFT - 12, y + 4, row, "end")
    yield line(across(ours), y, across(theirs), y, LINK, 2)
    yield dot(across(ours), y)
    yield ring(across(theirs), y)
    yield text(RIGHT + 14, y + 4, f"{theirs / ours:.1f} times {peer}")


def panel(figures, action, rows, top):
    """The panel's marks and where it ends."""
    bottom = top + LINE * len(rows)
    marks = [text(LEFT, top - 12, f"{report.VERB[action]} one field", weight="bold"),
             *grid(top, bottom)]
    for i, row in enumerate(rows):
        marks += row_marks(figures, action, row, top + LINE * (i + 0.5))
    return marks, bottom


def legend():
    return [dot(LEFT + 330, 22), text(LEFT + 342, 26, "iocv"),
            ring(LEFT + 400, 22), text(LEFT + 412, 26, "the fastest packaged peer")]


def svg(figures, rows):
    """rows: the names of the rows by action."""
    marks, top = legend(), TOP
    for action, names in rows.items():
        found, bottom = panel(figures, action, names, top)
        marks += found
        top = bottom + PANEL_GAP
    width, height = RIGHT + 240, top - PANEL_GAP + 32
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" '
        f'width="{width}" height="{height}" font-family="sans-serif">',
        "<title>Nanoseconds a field, over a million unpredictable records</title>",
        f'<rect width="{width}" height="{height}" fill="white"/>', *marks, "</svg>", ""])
