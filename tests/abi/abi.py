#!/usr/bin/python3
"""The library's interface as its debug information tells it: names, signatures, layouts of types.

Usage: abi.py compare|prove LIBRARY STORED_DESCRIPTION
       abi.py store LIBRARY STORED_DESCRIPTION INCLUDE_FOLDER

compare fails when something of the stored interface is gone or has changed; what is new passes.
prove alters the stored description, each time in one way, and requires the comparison to see it."""

import pathlib
import re
import subprocess
import sys
import tempfile

# Only what the public headers declare is stored, and nothing that differs between machines and
# between two builds of the same interface.
STORED = ["--drop-private-types", "--exported-interfaces-only", "--no-corpus-path", "--no-show-locs", "--no-comp-dir-path",
          "--no-elf-needed", "--no-parameter-names", "--type-id-style", "hash"]


def compare(library, stored):
    # What abidiff calls harmless is not: it counts an integer in place of a double as such.
    return subprocess.run(["abidiff", "--no-added-syms", "--harmless", "--no-show-locs", stored, library],
                          capture_output=True, text=True)


def store(library, headers, stored):
    subprocess.run(["abidw", *STORED, "--headers-dir", headers, "--out-file", stored, library], check=True)
    root = str(pathlib.Path(__file__).resolve().parent.parent.parent) + "/"
    path = pathlib.Path(stored)
    path.write_text(path.read_text().replace(root, ""))


# A name for the alteration, a pattern and what takes its place: the library then looks as if it had
# lost, changed or gained something since the description was stored.
SYMBOL = r"<elf-symbol name='obocv_'[^>]*/>\n"
ALTERATIONS = [
    ("a routine is gone", r"(<elf-symbol name=')obocv_(')", r"\1obocv_old_\2", False),
    ("an argument is an integer and was a double", r"(<function-decl name='iocv_status_text'.*?\n\s*<parameter type-id=')[^']*(')", r"\g<1>DOUBLE\2", False),
    ("a field moves", r"(layout-offset-in-bits=')64('[^>]*>\s*<var-decl name='system_missing')", r"\g<1>128\2", False),
    ("a code has another number", r"(<enumerator name='DATE' value=')20(')", r"\g<1>21\2", False),
    ("a routine is new", SYMBOL, "", True),
]


def prove(library, stored):
    text = pathlib.Path(stored).read_text()
    double = re.search(r"<type-decl name='double' [^>]*id='(\w+)'", text).group(1)
    failures = 0
    for name, pattern, replacement, passes in ALTERATIONS:
        altered, count = re.subn(pattern, replacement.replace("DOUBLE", double), text, count=1, flags=re.DOTALL)
        with tempfile.NamedTemporaryFile("w", suffix=".abi") as file:
            file.write(altered)
            file.flush()
            result = compare(library, file.name)
        right = count == 1 and (result.returncode == 0) == passes
        print(f"{'ok' if right else 'WRONG'}: {name}: {'passes' if result.returncode == 0 else 'fails'}")
        failures += not right
    return failures


def main():
    action, library, stored, *headers = sys.argv[1:]
    if action == "store":
        store(library, headers[0], stored)
    elif action == "prove":
        sys.exit(int(prove(library, stored) > 0))
    else:
        result = compare(library, stored)
        print(result.stdout + result.stderr)
        sys.exit(int(result.returncode != 0))


main()
