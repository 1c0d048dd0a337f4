#!/usr/bin/python3
"""Checks that includes go one way through the tree: a file may include its own layer and those before.

Usage: includes.py SOURCE_DIR"""

import pathlib
import re
import sys

LAYERS = ["include/iocv", "platform", "backend/iocv/frame", "backend/iocv/numeric", "backend/iocv/datetime",
          "backend/iocv/host", "backend/iocv/column", "tools"]
# Dispatch lives in the frame: the doors and their lists of readers and writers, which know every family.
DISPATCH = {f"backend/iocv/frame/{name}" for name in (
    "reader_rows.h", "writer_rows.h", "reader_steps.h", "writer_steps.h", "obicv.cpp", "obocv.cpp", "convert_output.cpp")}
# Powers of ten and decimal exponents are arithmetic that the binary formats need, too.
ARITHMETIC = {"numeric/powers.h"}
INCLUDE = re.compile(r'^#include "([^"]+)"', re.M)


def layer(path):
    return next((rank for rank, folder in enumerate(LAYERS) if str(path).startswith(folder + "/")), None)


def main():
    root = pathlib.Path(sys.argv[1])
    checked, complaints = 0, []
    for folder in LAYERS:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix not in {".h", ".cpp"}:
                continue
            name = path.relative_to(root)
            checked += 1
            for include in INCLUDE.findall(path.read_text(encoding="utf-8")):
                target = next((base / include for base in (path.parent, root / "backend/iocv", root)
                               if (base / include).exists()), None)
                rank = layer(target.relative_to(root)) if target else None
                if rank is None or rank <= layer(name) or str(name) in DISPATCH or include in ARITHMETIC:
                    continue
                complaints.append(f"{name} includes {include}, which lies further up")
    print("\n".join(complaints) or f"{checked} files include one way")
    return 1 if complaints or checked == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
