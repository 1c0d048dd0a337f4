#!/usr/bin/python3
"""COBOL and iocv read each other's packed, zoned and binary numbers.
Usage: cobol_test.py PROGRAM COBC [unittest arguments]

COBOL stores numbers and shows them in digits, and iocv decode reads the records. iocv write makes
records, and COBOL shows in digits what it reads there. The two are compared as decimals."""
import csv
import decimal
import functools
import io
import json
import os
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
from cobol_records import (BIG_ENDIAN, BINARY, COMP6, PACKED, SEPARATE, SHOWN_DIGITS,
                           UNSIGNED_BINARY, UNSIGNED_PACKED, UNSIGNED_ZONED, ZONED, Column,
                           Programs, columns_of, joined, some_numbers)

if len(sys.argv) < 3 or not os.access(sys.argv[2], os.X_OK):
    sys.exit("cobol_test.py: no COBOL compiler (cobc): nothing is compared")
PROGRAM, COBC = (os.path.abspath(path) for path in sys.argv[1:3])
SEED = int(os.environ.get("IOCV_TEST_SEED", "20260701"), 0)

# Doubles tell all numbers of so many digits apart; of longer ones the last digits may change.
MOST_EXACT_DIGITS = 15
LONG_NUMBERS_LIE_WITHIN = 7 * decimal.Decimal(2) ** -53  # at most 7 roundings on the way

# The options under which COBOL's signs are those of iocv.
ZONES = "-fsign=EBCDIC"
F_IS_NUMERIC = "-fhostsign"
NO_ZONE = bytes.maketrans(b"{ABCDEFGHI}", b"01234567890")

COLUMNS = [column for usage in (PACKED, UNSIGNED_PACKED, COMP6, ZONED, UNSIGNED_ZONED, BINARY,
                                UNSIGNED_BINARY)
           for column in columns_of(usage)]


def setUpModule():
    tempfile.tempdir = unittest.enterModuleContext(tempfile.TemporaryDirectory())
    print(f"IOCV_TEST_SEED={SEED}")


def numbers_of(columns, most_digits=SHOWN_DIGITS):
    return {column: some_numbers(column, most_digits, SEED) for column in columns}


def layout_text(columns):
    text, at = f"record = {sum(column.width for column in columns)}\n", 1
    for column in columns:
        text += f'[[field]]\nname = "{column.name}"\nat = {at}\nformat = "{column.format}"\n'
        at += column.width
    return text


def iocv_decode(columns, fields):
    """The text of the number in each field, and the rejects."""
    folder = tempfile.mkdtemp()
    layout, data, rejects = (os.path.join(folder, name) for name in ("layout", "data", "rejects"))
    with open(layout, "w", encoding="ascii") as file:
        file.write(layout_text(columns))
    with open(data, "wb") as file:
        file.write(joined(columns, fields))
    result = subprocess.run([PROGRAM, "decode", layout, data, "--rejects", rejects],
                            capture_output=True, text=True, check=False)
    if result.returncode not in (0, 1):
        raise RuntimeError(result.stderr)
    rows = list(csv.reader(io.StringIO(result.stdout)))[1:]
    texts = {column: list(texts) for column, texts in zip(columns, zip(*rows))}
    if result.returncode == 0:
        return texts, []
    with open(rejects, encoding="utf-8") as file:
        return texts, [json.loads(line) for line in file]


def iocv_write(columns, numbers):
    """The fields that hold the numbers."""
    return {column: [field for field, status in written(column, (f"{n:f}" for n in numbers[column]))
                     if status == 0]
            for column in columns}


def written(column, texts):
    """The field and the status of each number."""
    result = subprocess.run([PROGRAM, "write", "--json", column.format, *texts],
                            capture_output=True, check=False)
    return [(bytes.fromhex(row["hex"]), row["status"]) for row in json.loads(result.stdout)]


@functools.cache
def all_programs():
    return Programs(COBC, COLUMNS, ZONES, F_IS_NUMERIC)


@functools.cache
def all_written():
    """Numbers that doubles hold, and the fields that iocv makes of them."""
    numbers = numbers_of(COLUMNS, MOST_EXACT_DIGITS)
    return numbers, iocv_write(COLUMNS, numbers)


def agree(number, text):
    """Whether a text of iocv is the number: exactly, as far as doubles go."""
    found = decimal.Decimal(text or "NaN")
    if len(number.as_tuple().digits) <= MOST_EXACT_DIGITS:
        return found == number
    return abs(found - number) <= abs(number) * LONG_NUMBERS_LIE_WITHIN


def with_signs_of_iocv(column, field, number):
    """COBOL's field with the sign of iocv: F or no zone unless the number is below 0."""
    if number < 0 or column.usage not in (PACKED, ZONED):
        return field
    last = bytes([field[-1] | 0x0F]) if column.usage == PACKED else field[-1:].translate(NO_ZONE)
    return field[:-1] + last


class Peers(unittest.TestCase):
    def expect_same(self, expected, found, same=lambda one, other: one == other):
        """Compares two tables."""
        differences = [(column.name, column.format, str(one), str(other))
                       for column in expected
                       for one, other in zip(expected[column], found[column], strict=True)
                       if not same(one, other)]
        self.assertEqual(differences[:10], [], f"{len(differences)} differences")

    def expect_read(self, columns, programs):
        """iocv reads what COBOL stores. Answers COBOL's numbers and iocv's texts."""
        numbers = numbers_of(columns)
        fields, shown = programs.encode(numbers)
        self.expect_same(numbers, shown)
        texts, rejects = iocv_decode(columns, fields)
        self.assertEqual(rejects, [])
        self.expect_same(shown, texts, agree)
        return shown, texts

    def test_iocv_reads_what_cobol_stores(self):
        shown, texts = self.expect_read(COLUMNS, all_programs())
        # COBOL can store a negative zero where there is a sign, and it reads as one.
        for column in COLUMNS:
            zeros = {text for number, text in zip(shown[column], texts[column])
                     if number == 0 and number.is_signed()}
            self.assertEqual(zeros, {"-0"} if column.usage in (PACKED, ZONED) else set())

    def test_cobol_reads_what_iocv_writes(self):
        numbers, written_fields = all_written()
        shown, numeric = all_programs().decode(written_fields)
        self.expect_same(numbers, shown)
        self.assertTrue(all(all(numeric[column]) for column in COLUMNS))

    def test_both_store_the_same_bytes_but_for_positive_signs(self):
        numbers, written_fields = all_written()
        fields, _ = all_programs().encode(numbers)
        expected = {column: [with_signs_of_iocv(column, field, number)
                             for field, number in zip(fields[column], numbers[column])]
                    for column in COLUMNS}
        self.expect_same(expected, written_fields)

    def test_the_signs_of_cobol(self):
        numbers = [decimal.Decimal(text) for text in ("12", "-12", "0", "-0")]
        expected = {Column(usage, 2, 0): fields for usage, fields in [
            (PACKED, [b"\x01\x2c", b"\x01\x2d", b"\x00\x0c", b"\x00\x0d"]),
            (UNSIGNED_PACKED, [b"\x01\x2f", b"\x01\x2f", b"\x00\x0f", b"\x00\x0f"]),
            (COMP6, [b"\x12", b"\x12", b"\x00", b"\x00"]),
            (ZONED, [b"1B", b"1K", b"0{", b"0}"]),
            (UNSIGNED_ZONED, [b"12", b"12", b"00", b"00"]),
        ]}
        programs = Programs(COBC, list(expected), ZONES)
        fields, _ = programs.encode({column: numbers for column in expected})
        self.assertEqual(fields, expected)

    def test_a_sign_in_front_is_f(self):
        columns = columns_of(SEPARATE)
        self.expect_read(columns, Programs(COBC, columns))

    def test_big_endian_binary_is_ib_from_behind(self):
        columns = columns_of(BIG_ENDIAN)
        fields, shown = Programs(COBC, columns).encode(numbers_of(columns))
        texts, rejects = iocv_decode(columns, {column: [field[::-1] for field in fields[column]]
                                               for column in columns})
        self.assertEqual(rejects, [])
        self.expect_same(shown, texts, agree)

    def test_native_byte_order_makes_it_ib(self):
        columns = columns_of(BIG_ENDIAN)
        self.expect_read(columns, Programs(COBC, columns, "-fbinary-byteorder=native"))

    def test_fields_that_the_two_see_differently(self):
        digit_for_sign, no_zone = [1106], [1109]
        for column, rows in [
            # bytes, COBOL's number, whether NUMERIC, iocv's text, statuses of its rejects
            (Column(PACKED, 3, 1), [
                ("12 3A", "12.3", False, "12.3", []),
                ("12 3B", "12.3", False, "-12.3", []),
                ("12 3C", "12.3", True, "12.3", []),
                ("12 3D", "-12.3", True, "-12.3", []),
                ("12 3E", "12.3", False, "12.3", []),
                ("12 3F", "12.3", True, "12.3", []),
                ("12 34", "12.3", False, "123.4", digit_for_sign),
                ("00 00", "0.0", False, "0", digit_for_sign),     # LOW-VALUES
                ("20 20", "20.2", False, "202", digit_for_sign),  # SPACES
            ]),
            (Column(UNSIGNED_PACKED, 3, 0), [
                ("12 3F", "123", True, "123", []),
                ("12 3C", "123", False, "123", []),
                ("12 3D", "123", False, "-123", []),
            ]),
            # A digit in the half-byte that the picture leaves over.
            (Column(PACKED, 4, 0), [
                ("01 23 4C", "1234", True, "1234", []),
                ("91 23 4C", "1234", True, "91234", []),
            ]),
            (Column(COMP6, 3, 0), [
                ("01 23", "123", True, "123", []),
                ("91 23", "123", True, "9123", []),
            ]),
            (Column(ZONED, 3, 1), [
                ("31 32 33", "12.3", True, "12.3", []),
                ("31 32 43", "12.3", True, "12.3", []),    # C
                ("31 32 4C", "-12.3", True, "-12.3", []),  # L
                ("31 32 7B", "12.0", True, "12", []),      # {
                ("31 32 7D", "-12.0", True, "-12", []),    # }
                ("31 32 73", "12.3", False, "", no_zone),  # s: -3 by the other convention
                ("20 20 33", "0.3", False, "0.3", []),
                ("20 20 20", "0.0", False, "", []),        # SPACES
            ]),
        ]:
            fields = {column: [bytes.fromhex(row[0]) for row in rows]}
            shown, numeric = Programs(COBC, [column], ZONES, F_IS_NUMERIC).decode(fields)
            texts, rejects = iocv_decode([column], fields)
            statuses = [[reject["status"] for reject in rejects if reject["record"] == record]
                        for record in range(1, len(rows) + 1)]
            found = list(zip([row[0] for row in rows], map(str, shown[column]), numeric[column],
                             texts[column], statuses))
            self.assertEqual(found, rows)

    def test_only_host_signs_make_an_f_numeric(self):
        column = Column(PACKED, 3, 0)
        fields = iocv_write([column], {column: [123, -123, 0]})
        self.assertEqual(fields[column], [b"\x12\x3f", b"\x12\x3d", b"\x00\x0f"])
        for options, numeric in [((), [False, True, False]), ((F_IS_NUMERIC,), [True, True, True])]:
            shown, found = Programs(COBC, [column], *options).decode(fields)
            self.assertEqual(shown[column], [123, -123, 0])
            self.assertEqual(found[column], numeric)

    def test_missing_values_are_zero_to_cobol(self):
        columns = [Column(usage, 4, 1) for usage in (PACKED, COMP6, BINARY, UNSIGNED_BINARY)]
        rows = {column: written(column, ["missing"]) for column in columns}
        self.assertEqual([rows[column][0][1] for column in columns], [1124, 1124, 1121, 1121])
        shown, _ = Programs(COBC, columns).decode({c: [rows[c][0][0]] for c in columns})
        self.assertEqual([shown[column] for column in columns], [[0]] * 4)

    def test_zones_of_the_other_convention(self):
        column = Column(ZONED, 3, 0)
        programs = Programs(COBC, [column], "-fsign=ASCII")
        fields, shown = programs.encode(
            {column: [decimal.Decimal(number) for number in (123, -123, 120, -120)]})
        self.assertEqual(fields[column], [b"123", b"12s", b"120", b"12p"])
        self.assertEqual(shown[column], [123, -123, 120, -120])
        texts, rejects = iocv_decode([column], fields)
        self.assertEqual(texts[column], ["123", "", "120", ""])
        self.assertEqual([reject["status"] for reject in rejects], [1109, 1109])
        # COBOL takes the zones of iocv for a digit 0, and only NUMERIC tells.
        shown, numeric = programs.decode({column: [b"123", b"12L"]})
        self.assertEqual((shown[column], numeric[column]), ([123, 120], [True, False]))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
