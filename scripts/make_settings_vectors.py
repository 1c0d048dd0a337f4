#!/usr/bin/env python3
"""Writes settings buffers of every version, in both byte orders, for tests/host.

    scripts/make_settings_vectors.py [--check] [DIRECTORY]

DIRECTORY is tests/vectors/settings by default. With --check nothing is written; the exit status is
1 when a file differs from what would be written. For each version there are three files:
VERSION_little.bin and VERSION_big.bin, the buffers, and VERSION.items, a line for each item of the
buffer: the offset of the byte behind it and its name.
"""

import struct
import sys
from pathlib import Path

# The name of a vector and the version number that it carries.
VERSIONS = {
    "negative": -1,
    "zero": 0,
    "1": 1,
    "2": 2,
    "3": 3,
    "4": 4,
    "5": 5,
    "6": 6,
    "7": 7,
    "largest": 2147483647,
}

EVERY, FROM_3, FROM_4, FROM_5, FROM_6 = -(2**31), 3, 4, 5, 6

# First version, kind, name, value; none of the values is a default.
ITEMS = [
    (EVERY, "short", "mark", 1),
    (EVERY, "int", "version", None),
    (EVERY, "string", "procedure_name", b"CROSSTABS"),
    (EVERY, "string", "translated_procedure_name", b"Kreuztabellen \xc3\xbc"),
    (EVERY, "string", "output_language", b"de"),
    (EVERY, "string", "code_page", b"UTF-8"),
    (EVERY, "string", "locale", b"de_DE.UTF-8"),
    (EVERY, "bool", "digit_grouping", True),
    (EVERY, "bool", "leading_zero", True),
    (EVERY, "bool", "unicode", False),
    (EVERY, "bool", "pooling", True),
    (EVERY, "int", "epoch_begin_year", 1931),
    (EVERY, "char", "decimal_point", b","),
    (EVERY, "char", "separator", b"\xa0"),
    (FROM_3, "double", "small", 0.015625),
    (FROM_3, "bool", "fast_tables", False),
    (FROM_4, "string", "dataset_name", b"DataSet1"),
    (FROM_4, "string", "dataset_file_name", b"/data/a\x00b.dat"),
    (FROM_4, "string", "table_summary", b"three rows"),
    (FROM_4, "long long", "time_stamp", 0x0102030405060708),
    (EVERY, "int", "currency_count", 3),
    (EVERY, "string", "currency", b"-,$,,CR"),
    (EVERY, "string", "currency", b""),
    (EVERY, "string", "currency", b",,\x80,"),
    (EVERY, "char", "system_missing_char", b"*"),
    (EVERY, "bool", "bootstrapped", True),
    (FROM_5, "long long", "max_cells", 0x1112131415161718),
    (FROM_6, "bool", "sigless", True),
]

# What a version of the future might have put behind the last item of version 6.
FUTURE = [
    ("double", "future", 2.5),
    ("string", "future", b"more"),
]


def encoded(order, kind, value):
    if kind == "string":
        return struct.pack(order + "i", len(value)) + value
    code = {"short": "h", "int": "i", "long long": "q", "double": "d", "bool": "?", "char": "c"}
    return struct.pack(order + code[kind], value)


def items_of(version):
    last_known = 6
    rows = [(kind, name, value) for first, kind, name, value in ITEMS if version >= first]
    if version > last_known:
        rows += FUTURE
    return [(kind, name, version if name == "version" else value) for kind, name, value in rows]


def files():
    for name, version in VERSIONS.items():
        for order_name, order in (("little", "<"), ("big", ">")):
            buffer, lines = b"", ""
            for kind, item, value in items_of(version):
                buffer += encoded(order, kind, value)
                lines += f"{len(buffer)} {item}\n"
            yield f"{name}_{order_name}.bin", buffer
        yield f"{name}.items", lines.encode()


def main():
    arguments = sys.argv[1:]
    check = "--check" in arguments
    names = [a for a in arguments if a != "--check"]
    default = Path(__file__).resolve().parent.parent / "tests" / "vectors" / "settings"
    directory = Path(names[0]) if names else default
    stale = 0
    for name, content in files():
        path = directory / name
        if not check:
            path.write_bytes(content)
        elif not path.is_file() or path.read_bytes() != content:
            print(f"{path} differs from what {Path(__file__).name} writes")
            stale = 1
    return stale


if __name__ == "__main__":
    sys.exit(main())
