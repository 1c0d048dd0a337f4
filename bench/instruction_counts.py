"""Instructions a call of every row of instructions.cpp, counted by callgrind."""
import glob
import os
import re
import subprocess
import tempfile
import tomllib

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(HERE)
STORED = os.path.join(HERE, "instructions.txt")
CALLS = 1000  # kCalls of instructions.cpp
ENTRY_POINTS = ("obocv_", "obicv_", "IocvConvert*", "iocv::column::write*", "iocv::column::read*")


def build(target):
    """Builds a program of the bench preset and answers its path."""
    for command in (["cmake", "--preset", "bench"],
                    ["cmake", "--build", "--preset", "bench", "--target", target]):
        done = subprocess.run(command, cwd=ROOT, text=True, check=False, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT)
        if done.returncode != 0:
            raise SystemExit(done.stdout)
    return os.path.join(ROOT, "build/bench/bench", target)


def counted():
    """The instructions a call by row, in the program's order."""
    program = build("iocv_instructions")
    with tempfile.TemporaryDirectory() as folder:
        out = os.path.join(folder, "row")
        subprocess.run(["valgrind", "--tool=callgrind", f"--callgrind-out-file={out}",
                        *(f"--toggle-collect={name}" for name in ENTRY_POINTS), program],
                       check=True, capture_output=True)
        rows = {}
        for part in glob.glob(glob.escape(out) + ".*"):  # one file a row, numbered from 1
            with open(part, encoding="ascii") as file:
                head = file.read(2000)
            if trigger := re.search(r"Trigger: Client Request: (.*)", head):
                total = int(re.search(r"^summary: (\d+)", head, re.MULTILINE)[1])
                rows[int(part.rpartition(".")[2])] = trigger[1], round(total / CALLS)
    if not rows:
        raise SystemExit("count: callgrind counted nothing")
    return dict(rows[number] for number in sorted(rows))


def goals():
    with open(os.path.join(HERE, "goals.toml"), "rb") as file:
        return tomllib.load(file)


def goal_of(row, wanted):
    """The instructions that a row of the dispatcher is claimed to take at most, if it is one."""
    action, name = row.split("/")
    return wanted.get(action, {}).get(name, {}).get("instructions")


def stored():
    """The most instructions that each row may take."""
    with open(STORED, encoding="ascii") as file:
        return {row: int(most) for row, most in
                (line.split() for line in file if not line.startswith("#"))}


def store(rows):
    width = max(map(len, rows)) + 1
    with open(STORED, "w", encoding="ascii") as file:
        file.write("# The most instructions a call of each row may take: those counted and 2 %.\n"
                   "# bench/count --check compares, bench/count --store writes.\n")
        for row, instructions in rows.items():
            file.write(f"{row:{width}}{instructions + 1 + instructions // 50}\n")
