#!/usr/bin/python3
"""iocv check, verify, inspect and dump: what they print about files and layouts.
Usage: looks_test.py PROGRAM EXAMPLES [unittest arguments]"""
import csv
import datetime
import io
import re
import subprocess

from support import EXAMPLES, PROGRAM, Case, layout_text, main


def cells(output, columns):
    """The rows of a table whose columns are two blanks and more apart, by their first cell."""
    rows = [re.split(r"  +", line.strip()) for line in output.decode().splitlines()]
    return {row[0]: row for row in rows if len(row) == columns}


class Check(Case):
    def test_against_the_decoded_csv(self):
        for name, data in [("ledger", "ledger.dat"), ("stations", "stations.txt")]:
            files = [f"{EXAMPLES}/{name}.toml", f"{EXAMPLES}/{data}"]
            rows = list(csv.DictReader(io.StringIO(self.runs("decode", *files).decode())))
            for options in [[], ["--threads", "3", "--block", "100"]]:
                table = cells(self.runs("check", *files, *options), 8)
                self.assertEqual(len(table), len({*rows[0], "name"}))
                for column in rows[0]:
                    values = [row[column] for row in rows if row[column]]
                    number = re.fullmatch(r"-?[\d.]+", values[0]) and column not in ("id", "wmo_id")
                    values.sort(key=float if number else str)
                    _, _, read, missing, failed, first_bad, smallest, largest = table[column]
                    self.assertEqual((int(read), int(missing)),
                                     (len(values), len(rows) - len(values)), column)
                    self.assertEqual((failed, first_bad), ("-", "-"))
                    self.assertEqual((smallest.strip('"'), largest.strip('"')),
                                     (values[0], values[-1]), column)

    def test_failures_and_the_remainder(self):
        self.put("layout.toml", layout_text("record = 7", {"x": "F4", "p": "P1", "s": "A2"}))
        good, bad, kept = b"  12\x1fok", b"oops\x1f  ", b"  -3\x12z\xff"
        self.put("data", good * 5 + bad + good + bad * 2 + kept + b"rest")
        for options in [[], ["--threads", "2", "--block", "7"]]:
            code, output, complaints = self.run_tool("check", "layout.toml", "data", *options)
            self.assertEqual((code, complaints), (1, ""))
            self.assertEqual(
                output.decode().splitlines(),
                ["74 bytes: 10 records of 7 bytes and a remainder of 4 bytes",
                 "name  format  read  missing  failed    first bad  smallest  largest",
                 "x     F4         7        0  3 x 1102          6        -3       12",
                 "p     P1        10        0  1 x 1106         10         1       12",
                 's     A2' +
                 '         7        3  1 x 1158         10      "ok"     "z!"',
                 "1102: a character is not allowed at its place in a number",
                 "1106: a digit stands where the sign of a packed number belongs; the value was "
                 "kept",
                 "1158: a zero byte or invalid character was replaced by an exclamation mark"])

    def test_lines_that_are_too_short(self):
        self.put("layout.toml", layout_text("lines = true", {"a": "A2", "b": "F2"}))
        self.put("data", "ab12\nab\n\nab 3")
        code, output, _ = self.run_tool("check", "layout.toml", "data")
        self.assertEqual(code, 1)
        self.assertEqual(output.decode().splitlines()[0], "13 bytes: 4 lines")
        self.assertEqual(cells(output, 8)["b"], ["b", "F2", "2", "0", "2 short", "2", "3", "12"])
        self.assertIn("\nshort: the line ends before the field\n", output.decode())

    def test_long_strings_are_cut_and_empty_files_have_no_values(self):
        self.put("layout.toml", layout_text("record = 40", {"a": "A40"}))
        self.put("data", "x" * 40)
        self.assertIn(f'"{"x" * 24}"...', self.runs("check", "layout.toml", "data").decode())
        output = self.runs("check", "layout.toml", "-")
        self.assertEqual(output.decode().splitlines()[0], "0 bytes: 0 records of 40 bytes")


class Verify(Case):
    FIELDS = {"n": "N3", "d": "DATE11", "s": "A4"}

    def verify(self, data, *options, head="record = 18"):
        self.put("layout.toml", layout_text(head, self.FIELDS))
        self.put("data", data)
        results = {self.run_tool("verify", "layout.toml", "data", *options, *more)
                   for more in [[], ["--threads", "1"], ["--threads", "3", "--block", "20"]]}
        self.assertEqual(len(results), 1)
        code, output, complaints = results.pop()
        self.assertEqual(complaints, "")
        return code, output.decode()

    def test_canonical_records_come_back(self):
        self.assertEqual(self.verify(b"01201-JAN-2000ab  " * 100),
                         (0, "100 records, all come back\n"))
        self.assertEqual(self.verify(b"01201-JAN-2000ab  \n" * 3 + b"01201-JAN-2000ab  ",
                                     head="lines = true"), (0, "4 records, all come back\n"))
        self.assertEqual(self.verify(b""), (0, "0 records, all come back\n"))

    def test_the_first_difference_is_told(self):
        good = b"01201-JAN-2000ab  "
        for bad, told in [
            (b"01201-jan-2000ab  ",
             '57: "d" is 30 31 2D 6A 61 6E 2D 32 30 30 30, and comes back as '
             "30 31 2D 4A 41 4E 2D 32 30 30 30"),
            (b"xyz01-JAN-2000ab  ",
             '54: it does not decode, {"record": 4, "offset": 54, "field": "n", "format": "N3", '
             '"raw_hex": "78797A", "status": 1102, "message": "a character is not allowed at its '
             'place in a number"}'),
        ]:
            code, output = self.verify(good * 3 + bad + good + bad)
            dead = 2 if b"xyz" in bad else 0
            self.assertEqual((code, output), (1, f"record 4, offset {told}\n2 of 6 records do not "
                                              f"come back, {dead} of them do not decode\n"))

    def test_bytes_of_no_field(self):
        data = b"01201-JAN-2000ab  .." * 2
        self.assertEqual(self.verify(data, head="record = 20"),
                         (1, "record 1, offset 18: byte 19 of no field is 2E, and comes back as 20\n"
                          "2 of 2 records do not come back, 0 of them do not decode\n"))
        self.assertEqual(self.verify(data, "--fields-only", head="record = 20"),
                         (0, "2 records, all come back\n"))
        self.assertEqual(self.verify(b"01201-JAN-2000ab  and more\n", head="lines = true")[1]
                         .splitlines()[0],
                         "record 1, offset 18: byte 19 of no field is 61, and comes back as nothing")

    def test_what_encode_makes_comes_back(self):
        rows = "n,d,s\n" + "".join(
            f"{i % 1000},{datetime.date(1900, 1, 1) + datetime.timedelta(i)},\u00e9{i % 100}\n"
            for i in range(2000))
        self.put("layout.toml", layout_text("record = 18", self.FIELDS))
        self.runs("encode", "layout.toml", "-", "-o", "data", stdin=rows.encode())
        self.assertEqual(self.runs("verify", "layout.toml", "data"), b"2000 records, all come back\n")


class Inspect(Case):
    def test_gaps_and_overlaps(self):
        self.put("layout.toml", "record = 30\n" + "".join(
            f"[[field]]\nname = '{name}'\nat = {at}\nformat = '{form}'\n"
            for name, at, form in [("late", 20, "DATE9"), ("all", 2, "A10"), ("in", 4, "F3.1"),
                                   ("over", 11, "P2"), ("day", 14, "WKDAY3")]))
        self.assertEqual(self.runs("inspect", "layout.toml").decode(), """\
records of 30 bytes
from  to  width  format  as      name
  20  28      9  DATE9   iso     late
   2  11     10  A10     text    all
   4   6      3  F3.1    number  in
  11  12      2  P2      number  over
  14  16      3  WKDAY3  text    day
gap: byte 1
overlap: bytes 4 to 6 of "all" and "in"
overlap: byte 11 of "all" and "over"
gap: byte 13
gap: bytes 17 to 19
gap: bytes 29 to 30
""")

    def test_lines(self):
        self.put("layout.toml", layout_text("lines = true\ncrlf = true", {"\u00e9": "A3"}))
        self.assertEqual(self.runs("inspect", "layout.toml").decode(),
                         "lines that end in CR LF, fields to byte 3\n"
                         "from  to  width  format  as    name\n"
                         "   1   3      3  A3      text  \u00e9\n")


class Dump(Case):
    def setUp(self):
        super().setUp()
        self.put("layout.toml", layout_text("record = 9", {"x": "F4", "p": "P2", "s": "A3"}))
        self.put("data", b"   1\x00\x1fabc" + b"oops\x12\x3d\"\x01 " + b"    ")

    def test_bytes_and_values(self):
        self.assertEqual(self.runs("dump", "layout.toml", "data").decode(), """\
record 1 at offset 0, 9 bytes
name  format  at  value  text    hex
x     F4       1  1      |   1|  20 20 20 31
p     P2       5  1      |..|    00 1F
s     A3       7  "abc"  |abc|   61 62 63
""")
        code, output, _ = self.run_tool("dump", "layout.toml", "-", "--record", "2",
                                        stdin=self.get("data"))
        self.assertEqual((code, output.decode()), (1, """\
record 2 at offset 9, 9 bytes
name  format  at  value       text    hex
x     F4       1  missing     |oops|  6F 6F 70 73
p     P2       5  -123        |.=|    12 3D
s     A3       7  "\\"\\u0001"  |". |   22 01 20
{"record": 2, "offset": 9, "field": "x", "format": "F4", "raw_hex": "6F6F7073", "status": 1102, \
"message": "a character is not allowed at its place in a number"}
"""))

    def test_the_rest_of_a_file(self):
        code, output, _ = self.run_tool("dump", "layout.toml", "data", "--record", "3")
        self.assertEqual(code, 1)
        self.assertIn("record 3 at offset 18, 4 bytes\n", output.decode())
        self.assertIn("the last record has 4 bytes instead of 9", output.decode())
        for number in ["4", "100000"]:
            self.assertEqual(self.run_tool("dump", "layout.toml", "data", "--record", number),
                             (2, b"", f"iocv: the file has no record {number}\n"))

    def test_lines(self):
        self.put("lines.toml", layout_text("lines = true", {"a": "A2"}))
        self.put("lines", "".join(f"{i % 100:02}\n" for i in range(200_000)))
        output = self.runs("dump", "lines.toml", "lines", "--record", "150078").decode()
        self.assertTrue(output.startswith("record 150078 at offset 450231, 2 bytes\n"))
        self.assertIn('"77"', output)

    def test_records_beyond_four_billion(self):
        number = (1 << 32) + 5
        with open(self.path("big"), "wb") as file:
            file.truncate(number + 100)
            file.seek(number - 1)
            file.write(b"7")
        self.put("one.toml", layout_text("record = 1", {"n": "N1"}))
        output = self.runs("dump", "one.toml", "big", "--record", str(number)).decode()
        self.assertTrue(output.startswith(f"record {number} at offset {number - 1}, 1 byte\n"))
        self.assertIn(" 7 ", output)
        code, output, _ = self.run_tool("dump", "one.toml", "big", "--record", str(number + 1))
        self.assertEqual(code, 1)
        self.assertIn(f'"record": {number + 1}, "offset": {number}, ', output.decode())


class Quiet(Case):
    def test_a_closed_pipe(self):
        self.put("layout.toml", layout_text("record = 1", {"a": "A1"}))
        process = subprocess.run(["bash", "-c", 'set -o pipefail; "$@" | true', "-", PROGRAM, "check",
                                  "layout.toml", "layout.toml"], cwd=self.folder,
                                 capture_output=True, check=False)
        self.assertEqual(process.stderr, b"")


if __name__ == "__main__":
    main()
