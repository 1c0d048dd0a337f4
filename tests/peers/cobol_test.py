#!/usr/bin/python3
"""COBOL and iocv read each other's packed, zoned and binary numbers.
Usage: cobol_test.py PROGRAM COBC [unittest arguments]

encode.cob stores numbers and tells in digits what it stored; iocv decode reads its records. iocv
write makes records; decode.cob tells in digits what it finds in them. All is compared as decimals.
"""
import csv
import dataclasses
import decimal
import io
import json
import os
import random
import subprocess
import sys
import tempfile
import unittest

if len(sys.argv) < 3 or not os.access(sys.argv[2], os.X_OK):
    sys.exit("cobol_test.py: no COBOL compiler (cobc): COBOL and iocv are not compared")
PROGRAM, COBC = (os.path.abspath(path) for path in sys.argv[1:3])
SOURCES = os.path.dirname(os.path.abspath(__file__))
SEED = int(os.environ.get("IOCV_TEST_SEED", "20260701"), 0)
ROWS = 120

# Doubles hold every number of so many digits; longer ones lose what is beyond 53 bits.
MOST_EXACT_DIGITS = 15
LONG_NUMBERS_LIE_WITHIN = 7 * decimal.Decimal(2) ** -53  # at most 7 roundings on the way

SHOWN_DIGITS = 20  # of 2^64 - 1, the longest number


def packed_bytes(digits):
    return digits // 2 + 1  # a half-byte is the sign's


def unsigned_packed_bytes(digits):
    return (digits + 1) // 2


def zoned_bytes(digits):
    return digits


def binary_bytes(digits):
    return {2: 1, 4: 2, 9: 4, 18: 8}[digits]


@dataclasses.dataclass(frozen=True)
class Usage:
    """A way to store numbers: what COBOL calls it, and what iocv does."""
    name: str
    signed: bool
    clause: str
    format: str
    width: object  # bytes of so many digits


PACKED = Usage("packed", True, "comp-3", "P", packed_bytes)
PACKED_WITHOUT_S = Usage("packed-u", False, "comp-3", "P", packed_bytes)
UNSIGNED_PACKED = Usage("comp6", False, "comp-6", "PK", unsigned_packed_bytes)
ZONED = Usage("zoned", True, "display", "Z", zoned_bytes)
DIGITS = Usage("digits", False, "display", "Z", zoned_bytes)
BINARY = Usage("binary", True, "comp-5", "IB", binary_bytes)
UNSIGNED_BINARY = Usage("binary-u", False, "comp-5", "PIB", binary_bytes)
BIG_ENDIAN = Usage("big-endian", True, "comp", "IB", binary_bytes)


@dataclasses.dataclass(frozen=True)
class Column:
    usage: Usage
    digits: int
    decimals: int

    @property
    def name(self):
        return f"{self.usage.name}-{self.digits}-{self.decimals}"

    @property
    def width(self):
        return self.usage.width(self.digits)

    @property
    def format(self):
        decimals = f".{self.decimals}" if self.decimals else ""
        return f"{self.usage.format}{self.width}{decimals}"

    @property
    def stored_item(self):
        sign = "s" if self.usage.signed else ""
        return f"{picture(sign, self.digits, self.decimals)} usage {self.usage.clause}"

    @property
    def shown_item(self):
        return f"{picture('s', SHOWN_DIGITS, self.decimals)} sign leading separate"

    @property
    def limits(self):
        """The least and the largest number, in units of its last place."""
        if self.usage.clause != "comp-5":  # the others stop where the picture does
            largest = 10 ** self.digits - 1
            return (-largest if self.usage.signed else 0), largest
        bits = 8 * self.width
        return (-2 ** (bits - 1), 2 ** (bits - 1) - 1) if self.usage.signed else (0, 2 ** bits - 1)


def picture(sign, digits, decimals):
    whole = f"9({digits - decimals})" if digits > decimals else ""
    return f"pic {sign}{whole}" + (f"v9({decimals})" if decimals else "")


def columns_of(usage, all_digits, all_decimals=range(5)):
    return [Column(usage, digits, decimals) for digits in all_digits for decimals in all_decimals
            if decimals <= digits]


COLUMNS = [column
           for usages, digits in [((PACKED, PACKED_WITHOUT_S, UNSIGNED_PACKED, ZONED, DIGITS),
                                   range(1, 19)),
                                  ((BINARY, UNSIGNED_BINARY), (2, 4, 9, 18))]
           for usage in usages for column in columns_of(usage, digits)]


def some_numbers(column, most_digits):
    """ROWS numbers of a column: the ends of its range, both zeros, edges, then random ones of
    every length. All are decimals, because those have a negative zero."""
    source = random.Random(f"{SEED} {column.name}")
    least, largest = column.limits

    def fits(number):
        return least <= number <= largest and abs(number) < 10 ** most_digits

    def random_number():
        number = source.randrange(10 ** source.randint(1, min(column.digits, most_digits)))
        return -number if column.usage.signed and source.random() < 0.5 else number

    powers = [10 ** n for n in range(20)] + [2 ** n for n in range(65)]
    edges = [n for power in powers for n in (power - 1, power, -power, 1 - power) if fits(n)]
    source.shuffle(edges)
    ends = [n for n in (largest, largest - 1, least, least + 1, 0) if fits(n)]
    numbers = [decimal.Decimal(n) for n in dict.fromkeys(ends + edges[:ROWS // 2])]
    if column.usage.signed:
        numbers.append(decimal.Decimal("-0"))
    while len(numbers) < ROWS:
        numbers.append(decimal.Decimal(random_number()))
    return [number.scaleb(-column.decimals) for number in numbers]


def table_of_numbers(columns, most_digits):
    return {column: some_numbers(column, most_digits) for column in columns}


def cut(columns, records, width_of):
    """The fields of each column in a file of records that follow each other."""
    length = sum(map(width_of, columns))
    fields, at = {}, 0
    for column in columns:
        width = width_of(column)
        fields[column] = [records[start + at:start + at + width]
                          for start in range(0, len(records), length)]
        at += width
    return fields


def joined(columns, fields):
    return b"".join(b"".join(record) for record in zip(*(fields[column] for column in columns)))


class Cobol:
    """The COBOL programs, compiled for some columns, in a folder of their own."""

    def __init__(self, columns, sign="EBCDIC"):
        self.columns = columns
        self.folder = tempfile.TemporaryDirectory()
        self.put("stored.cpy", items((c.name, c.stored_item) for c in columns))
        self.put("shown.cpy", items((c.name, c.shown_item) for c in columns))
        self.put("class-tests.cpy", "".join(
            f"if {c.name} of stored is not numeric display \"{c.name}\" end-if\n" for c in columns))
        for program in ("encode", "decode"):
            source = os.path.join(SOURCES, program + ".cob")
            self.run(COBC, "-x", "-free", "-Wall", "-Werror", f"-fsign={sign}", "-o", program, source)

    def encode(self, numbers):
        """Stores a table of numbers; answers the fields, and the numbers as COBOL shows them."""
        self.put("asked", joined(self.columns, {column: [shown_form(column, number)
                                                         for number in numbers[column]]
                                                for column in self.columns}))
        self.run("./encode")
        return cut(self.columns, self.get("stored"), lambda c: c.width), self.shown()

    def decode(self, fields):
        """The numbers in the fields, and the names of columns with fields that are not NUMERIC."""
        self.put("stored", joined(self.columns, fields))
        not_numeric = self.run("./decode").split()
        return self.shown(), sorted(set(not_numeric))

    def shown(self):
        fields = cut(self.columns, self.get("shown"), lambda _: 1 + SHOWN_DIGITS)
        return {column: [decimal.Decimal(text.decode()).scaleb(-column.decimals)
                         for text in fields[column]] for column in self.columns}

    def put(self, name, content):
        with open(os.path.join(self.folder.name, name), "wb") as file:
            file.write(content.encode() if isinstance(content, str) else content)

    def get(self, name):
        with open(os.path.join(self.folder.name, name), "rb") as file:
            return file.read()

    def run(self, *command):
        result = subprocess.run(command, cwd=self.folder.name, capture_output=True, text=True,
                                check=False)
        if result.returncode != 0 or result.stderr:
            raise RuntimeError(f"{command}: {result.stdout}{result.stderr}")
        return result.stdout


def items(pairs):
    return "".join(f"    05 {name} {item}.\n" for name, item in pairs)


def shown_form(column, number):
    """A number as in shown.cpy: a sign, and digits without a point."""
    sign = "-" if number.is_signed() else "+"
    return f"{sign}{int(abs(number.scaleb(column.decimals))):0{SHOWN_DIGITS}d}".encode()


def iocv_decode(columns, fields):
    """What iocv decode reads: the text of each number, and the rejects."""
    with tempfile.TemporaryDirectory() as folder:
        path = lambda name: os.path.join(folder, name)
        layout, at = f"record = {sum(column.width for column in columns)}\n", 1
        for column in columns:
            layout += f'[[field]]\nname = "{column.name}"\nat = {at}\nformat = "{column.format}"\n'
            at += column.width
        with open(path("layout.toml"), "w", encoding="ascii") as file:
            file.write(layout)
        with open(path("data"), "wb") as file:
            file.write(joined(columns, fields))
        result = subprocess.run([PROGRAM, "decode", path("layout.toml"), path("data"), "--rejects",
                                 path("rejects")], capture_output=True, text=True, check=False)
        if result.returncode not in (0, 1):
            raise RuntimeError(result.stderr)
        rejects = []
        if result.returncode == 1:
            with open(path("rejects"), encoding="utf-8") as file:
                rejects = [json.loads(line) for line in file]
    rows = list(csv.reader(io.StringIO(result.stdout)))[1:]
    return {column: list(texts) for column, texts in zip(columns, zip(*rows))}, rejects


def iocv_write(columns, numbers):
    """The fields that iocv write makes."""
    fields = {}
    for column in columns:
        result = subprocess.run([PROGRAM, "write", "--json", column.format,
                                 *(f"{number:f}" for number in numbers[column])],
                                capture_output=True, text=True, check=True)
        fields[column] = [bytes.fromhex(row["hex"]) for row in json.loads(result.stdout)]
    return fields


def agree(number, text):
    """Whether a decimal that iocv shows is the number: exactly, as far as doubles go."""
    found = decimal.Decimal(text or "NaN")
    if len(number.as_tuple().digits) <= MOST_EXACT_DIGITS:
        return found == number
    return abs(found - number) <= abs(number) * LONG_NUMBERS_LIE_WITHIN


class Peers(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        print(f"IOCV_TEST_SEED={SEED}")
        cls.cobol = Cobol(COLUMNS)

    def expect_no_differences(self, expected, found, same):
        """Compares two tables of numbers."""
        differences = [(column.name, column.format, str(number), str(other))
                       for column in COLUMNS
                       for number, other in zip(expected[column], found[column], strict=True)
                       if not same(number, other)]
        self.assertEqual(differences[:10], [], f"{len(differences)} differences")

    def test_iocv_reads_what_cobol_stores(self):
        numbers = table_of_numbers(COLUMNS, most_digits=SHOWN_DIGITS)
        fields, shown = self.cobol.encode(numbers)
        self.expect_no_differences(numbers, shown, lambda asked, stored: asked == stored)
        texts, rejects = iocv_decode(COLUMNS, fields)
        self.assertEqual(rejects, [])
        self.expect_no_differences(shown, texts, agree)

    def test_cobol_reads_what_iocv_writes(self):
        numbers = table_of_numbers(COLUMNS, MOST_EXACT_DIGITS)
        shown, not_numeric = self.cobol.decode(iocv_write(COLUMNS, numbers))
        self.expect_no_differences(numbers, shown, lambda written, read: written == read)
        self.assertEqual(not_numeric, [])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
