#!/usr/bin/python3
"""The iocv program from outside: output bytes, exit codes, rejects, every complaint.
Usage: program_test.py PROGRAM EXAMPLES [unittest arguments]"""
import csv
import datetime
import io
import json
import os
import re
import shlex
import subprocess
import sys
import tempfile
import unittest

PROGRAM = os.path.abspath(sys.argv[1])
EXAMPLES = os.path.abspath(sys.argv[2])
ROOT = os.path.dirname(EXAMPLES)
SCRIPTS = os.path.join(ROOT, "scripts")


def run(*arguments, stdin=b"", env=None, cwd=None):
    """Exit code, output and complaints of one run."""
    result = subprocess.run([PROGRAM, *arguments], input=stdin, capture_output=True, cwd=cwd,
                            env={**os.environ, **(env or {})}, check=False)
    return result.returncode, result.stdout, result.stderr.decode()


class Case(unittest.TestCase):
    maxDiff = None

    def says(self, arguments, output, code=0, **more):
        """The run prints exactly that and complains about nothing."""
        self.assertEqual(run(*arguments, **more), (code, output.encode(), ""), arguments)

    def refuses(self, arguments, complaint, code=2, **more):
        """The run prints nothing and complains so."""
        self.assertEqual(run(*arguments, **more), (code, b"", f"iocv: {complaint}\n"), arguments)


class Write(Case):
    def test_fields_stand_between_bars(self):
        self.says(["write", "F8.2", "12", "-5", ".4"], "|   12.00|\n|   -5.00|\n|     .40|\n")
        self.says(["write", "f5", "+3", "1e3"], "|    3|\n| 1000|\n")
        self.says(["write", "F8.2", ".", "missing", "inf", "-inf", "nan"],
                  "|     .  |\n|     .  |\n|       .|\n|       .|\n|       .|\n")
        self.says(["write", "F3", "12345"], "|***|\n")
        self.says(["write", "DOLLAR10.2", "-1234.5"], "|-$1,234.50|\n")
        self.says(["write", "E10.3", "5"], "|5.000E+000|\n")

    def test_binary_fields_are_hexadecimal(self):
        self.says(["write", "IB4", "12", "-1"], "0C 00 00 00\nFF FF FF FF\n")
        self.says(["write", "PIB2", "258"], "02 01\n")
        self.says(["write", "P3", "123", "-123"], "00 12 3F\n00 12 3D\n")
        self.says(["write", "PK2", "1234"], "12 34\n")
        self.says(["write", "RB8", "1"], "00 00 00 00 00 00 F0 3F\n")
        self.says(["write", "PIBHEX4", "258"], "|0102|\n")
        self.says(["write", "RBHEX16", "1"], "|3FF0000000000000|\n")

    def test_strings_are_written_as_they_stand(self):
        self.says(["write", "A5", "abc", "abcdefg", " x", ".", ""],
                  "|abc  |\n|abcde|\n| x   |\n|.    |\n|     |\n")
        self.says(["write", "A6", "write", "[a,b]", "--", "--json", "-5"],
                  "|write |\n|[a,b] |\n|--json|\n|-5    |\n")
        self.says(["write", "A3", "\u00e9a"], "|\u00e9a|\n")
        self.says(["write", "AHEX6", "ab"], "|616220|\n")
        self.says(["write", "A40", "x" * 50], f"|{'x' * 40}|\n")

    def test_dates_and_times_may_be_iso(self):
        self.says(["write", "DATE11", "2000-01-01", "13166064000", "1582-10-15"],
                  "|01-JAN-2000|\n|01-JAN-2000|\n|15-OCT-1582|\n")
        self.says(["write", "SDATE10", "2000-02-29"], "|2000/02/29|\n")
        self.says(["write", "DATETIME23.2", "2000-01-01T12:30:15.5", "2000-01-01 12:30"],
                  "|01-JAN-2000 12:30:15.50|\n|01-JAN-2000 12:30:00.00|\n")
        self.says(["write", "TIME8", "12:30:15", "-1:00", "45015"],
                  "|12:30:15|\n|-1:00:00|\n|12:30:15|\n")
        self.says(["write", "DTIME12", "P1DT12H30M15S"], "|  1 12:30:15|\n")
        self.says(["write", "WKDAY9", "2000-01-01"], "|SATURDAY |\n")
        self.says(["write", "MONTH9", "2000-02-01"], "|FEBRUARY |\n")

    def test_failures_have_number_and_sentence(self):
        self.says(["write", "DATE11", "0", "2000-01-01"],
                  "|          .|  status 1140: the value lies before 15 October 1582 or is negative\n"
                  "|01-JAN-2000|\n", 1)
        self.says(["write", "IB1", "1000"],
                  "00  status 1125: the value does not fit the IB or PIB width\n", 1)
        self.says(["write", "T5", "1"],
                  "|     |  status 1105: no converter exists for this format type\n", 1)

    def test_settings(self):
        self.says(["write", "F6.2", "0.5"], "|   .50|\n")
        self.says(["write", "--leading-zero", "F6.2", "0.5"], "|  0.50|\n")
        self.says(["write", "--decimal", ",", "F6.2", "1.5"], "|  1,50|\n")
        self.says(["write", "F6.2", "--missing", "#", "."], "|   #  |\n")
        self.says(["write", "DATE9", "2000-01-01"], "|*********|\n")
        self.says(["write", "--century=1950", "DATE9", "2000-01-01"], "|01-JAN-00|\n")
        self.says(["write", "--cca", "-,$,,CR", "CCA12.2", "-1234.5"], "|-$1,234.50CR|\n")
        self.says(["write", "--cce", "-..EUR.", "CCE12.2", "-1234.5"], "|-1.234,50EUR|\n")
        self.says(["write", "--code-page", "windows-1252", "AHEX4", "a"], "|6120|\n")

    def test_currencies(self):
        for form, value, field in [
            ("CCA12.2", "-1234.5", "-$1,234.50CR"),
            ("CCA11.2", "-1234.5", "-$1234.50CR"),  # groups go first, then decimals,
            ("CCA10.2", "-1234.5", "-$1234.5CR"),
            ("CCA8.2", "-1234.5", "-$1235CR"),
            ("CCA7.2", "-1234.5", "-1235CR"),       # then the prefix
            ("CCA6.2", "-1234.5", "******"),
            ("CCA10.2", "1234.5", "$1234.50  "),
            ("CCA10.2", ".", "     .    "),
            ("CCB10.2", "-1234.5", "  1,234.50"),   # the other four are empty
        ]:
            for options in [["--cca", "-,$,,CR"], ["--cca=-,$,,CR"], ["--cca", "-,$,,CR,more,"]]:
                self.says(["write", *options, form, value], f"|{field}|\n")
                self.says(["write", form, value, *options], f"|{field}|\n")
        for pattern, value, field in [
            ("", "-1234.5", "      1,234.50"),
            ("-.'.EUR..", "1234.5", "  .EUR1.234,50"),
            ('(,,",,)', "-1234.5", "   (1,234.50,)"),
            ("-." + "p" * 300 + "..", "1234.5", "      1.234,50"),
            ("-,,\u20ac,", "-1234.5", "  -1,234.50\u20ac"),  # three bytes
            ("a,b,c,d,e", "-5", "      ab5.00cd"),
        ]:
            self.says(["write", "--ccd", pattern, "CCD14.2", value], f"|{field}|\n")
        options = [f"--cc{name}={name}{separator}{separator}{separator}"
                   for name, separator in zip("abcde", ",.,.,")]
        for name, field in zip("abcde", ["a1,000.5", "b1.000,5", "c1,000.5", "d1.000,5",
                                         "e1,000.5"]):
            self.says(["write", *options, f"CC{name}8.1", "-1000.5"], f"|{field}|\n")

    def test_marks_of_formats_and_marks_of_settings(self):
        for form, value, usual, comma, zero in [
            ("F7.2", "-0.5", "   -.50", "   -,50", "  -0.50"),
            ("F4.2", "-0.5", "-.50", "-,50", "-.50"),
            ("E10.3", "0.5", "5.000E-001", "5,000E-001", "5.000E-001"),
            ("PCT6.1", "0.5", "   .5%", "   ,5%", "  0.5%"),
            ("N5.2", "0.5", "00.50", "00,50", "00.50"),
            ("Z5.2", "0.5", "00050", "00050", "00050"),
            # These have marks of their own and no zero there.
            ("COMMA9.2", "1234.5", " 1,234.50", " 1,234.50", " 1,234.50"),
            ("COMMA7.2", "1234.5", "1234.50", "1234.50", "1234.50"),
            ("COMMA7.2", "0.5", "    .50", "    .50", "    .50"),
            ("DOLLAR7.2", "0.5", "   $.50", "   $.50", "   $.50"),
            ("DOT9.2", "1234.5", " 1.234,50", " 1.234,50", " 1.234,50"),
            ("DOT7.2", "1234.5", "1234,50", "1234,50", "1234,50"),
            ("CCA7.2", "0.5", "   #.50", "   #.50", "   #.50"),
        ]:
            for options, field in [([], usual), (["--decimal", "."], usual),
                                   (["--decimal", ","], comma), (["--leading-zero"], zero)]:
                self.says(["write", "--cca", "-,#,,", *options, form, value], f"|{field}|\n")
        self.says(["write", "--decimal", ",", "--leading-zero", "F6.2", "-.5"], "| -0,50|\n")

    def test_the_environment_has_no_say(self):
        for name in ["de_DE.UTF-8", "fr_FR.UTF-8", "C", "nowhere"]:
            env = {"LC_ALL": name}
            self.says(["write", "F6.2", "1.5"], "|  1.50|\n", env=env)
            self.says(["read", "F6.2", "1.5"], "1.5\n", env=env)
            self.says(["write", "A3", "\u00e9a"], "|\u00e9a|\n", env=env)

    def test_json(self):
        code, output, _ = run("write", "--json", "F8.2", "12", ".", "inf")
        self.assertEqual(code, 0)
        self.assertEqual(json.loads(output), [
            {"format": "F8.2", "value": 12, "iso": None, "field": "   12.00",
             "hex": "20202031322E3030", "status": 0, "message": "success"},
            {"format": "F8.2", "value": None, "iso": None, "field": "     .  ",
             "hex": "20202020202E2020", "status": 0, "message": "success"},
            {"format": "F8.2", "value": "inf", "iso": None, "field": "       .",
             "hex": "202020202020202E", "status": 0, "message": "success"}])
        code, output, _ = run("write", "IB1", "1000", "--json")
        self.assertEqual(code, 1)
        self.assertEqual(json.loads(output), [
            {"format": "IB1", "value": 1000, "iso": None, "field": None, "hex": "00",
             "status": 1125, "message": "the value does not fit the IB or PIB width"}])
        _, output, _ = run("write", "DATE11", "2000-01-01", "--json")
        self.assertEqual(json.loads(output)[0]["iso"], "2000-01-01")
        _, output, _ = run("write", "A5", "a\"b", "--json")
        self.assertEqual(json.loads(output)[0]["value"], 'a"b')

    def test_complaints(self):
        for arguments, complaint in [
            (["G8", "1"], 'unknown format name in "G8"'),
            (["F41", "1"], 'width out of range in "F41": 1 to 40'),
            (["F8.2", "abc"], "'abc' is not a number"),
            (["F8.2", "1,5"], "'1,5' is not a number"),
            (["F8.2", ""], "'' is not a number"),
            (["F8.2", "5", "1e400"], "'1e400' lies beyond the range of a double"),
            (["DATE11", "2000-13-01"],
             "'2000-13-01' is neither a number nor an ISO 8601 date or time"),
        ]:
            self.refuses(["write", *arguments], complaint)


class Read(Case):
    def test_values_are_shortest_decimals(self):
        for arguments, output in [
            (["F8.2", "12.50", "1250", " 1e5", "", "-0.1", "-.1"],
             "12.5\n12.5\n100000\n.\n-0.1\n-0.1\n"),
            (["F8", "100000", "99999999"], "100000\n99999999\n"),
            (["COMMA9", "1,234.5"], "1234.5\n"),
            (["CCA8.1", "15"], "1.5\n"),
            (["Z5", "1234J"], "-12341\n"),
            (["F8", "-5"], "-5\n"),
            (["DATE11", "1-JAN-2000"], "13166064000\n"),
            (["TIME8", "12:30:15"], "45015\n"),
        ]:
            self.says(["read", *arguments], output)

    def test_binary_fields_are_hexadecimal(self):
        self.says(["read", "IB4", "0C000000", "ff ff ff ff"], "12\n-1\n")
        self.says(["read", "P3", "00123c", "00 12 3D"], "123\n-123\n")
        self.says(["read", "P3", "001234"],
                  "1234  status 1106: a digit stands where the sign of a packed number belongs; the "
                  "value was kept\n", 1)
        self.says(["read", "RB8", "000000000000F07F", "000000000000F0FF", "000000000000F87F"],
                  "inf\n-inf\n.\n")
        self.says(["read", "RBHEX16", "3FF0000000000000"], "1\n")

    def test_strings_lose_the_blanks_at_their_end(self):
        self.says(["read", "A5", "ab", " a b ", "", "--", "-a"], "ab\n a b\n\n-a\n")
        self.says(["read", "AHEX6", "616220"], "ab\n")
        self.says(["read", "A3", b"a\xff".decode("utf-8", "surrogateescape")],
                  "a!  status 1158: a zero byte or invalid character was replaced by an exclamation "
                  "mark\n", 1)

    def test_iso(self):
        for arguments, output in [
            (["DATE11", "1-JAN-2000", ""], "2000-01-01\n.\n"),
            (["WKYR10", "1 WK 2000"], "2000-01-01\n"),
            (["DATETIME23", "1-JAN-2000 12:30:15.5"], "2000-01-01T12:30:15.5\n"),
            (["86:20", "20000101T1230"], "2000-01-01T12:30:00\n"),
            (["TIME12.2", "100:30:15.25"], "100:30:15.25\n"),
            (["85:8", "02:05"], "00:02:05\n"),
            (["DTIME12", "1 12:30:15"], "P1DT12H30M15S\n"),
            (["MONTH3", "FEB"], "2\n"),
            (["F8", "5"], "5\n"),
            (["TIME22", "9999999999999999:00:00"], "3.6e+19\n"),
        ]:
            self.says(["read", "--iso", *arguments], output)

    def test_failures_have_number_and_sentence(self):
        self.says(["read", "DATE11", "31-FOO-2000", "1-JAN-2000"],
                  ".  status 1137: the text is not a date in the order day, month, year\n"
                  "13166064000\n", 1)
        self.says(["read", "40:8", "5"],
                  ".  status 1105: no converter exists for this format type\n", 1)

    def test_settings(self):
        self.says(["read", "--decimal", ",", "F6.2", "1,5"], "1.5\n")
        self.says(["read", "--leading-zero", "F6.2", "0.5", ".5"], "0.5\n0.5\n")
        # Currencies are for writing: the five read as F.
        self.says(["read", "--cca", "-,$,,CR", "CCA10.2", "--", "-1234.5", "1.5", "-$1,234.5"],
                  "-1234.5\n1.5\n"
                  ".  status 1102: a character is not allowed at its place in a number\n", 1)
        self.says(["read", "--century", "1950", "--iso", "DATE9", "01-JAN-49"], "2049-01-01\n")
        self.says(["read", "--iso", "DATE9", "01-JAN-49"], "1949-01-01\n")

    def test_json(self):
        code, output, _ = run("read", "--json", "DATE11", "1-JAN-2000", "x")
        self.assertEqual(code, 1)
        self.assertEqual(json.loads(output), [
            {"format": "DATE11", "value": 13166064000, "iso": "2000-01-01", "field": "1-JAN-2000 ",
             "hex": "312D4A414E2D3230303020", "status": 0, "message": "success"},
            {"format": "DATE11", "value": None, "iso": None, "field": "x          ",
             "hex": "7820202020202020202020", "status": 1137,
             "message": "the text is not a date in the order day, month, year"}])

    def test_complaints(self):
        for arguments, complaint in [
            (["F3", "1234"], "'1234' has 4 bytes, F3 takes 3"),
            (["A1", "ab"], "'ab' has 2 bytes, A1 takes 1"),
            (["IB4", "0C"], "'0C' has 1 byte, IB4 takes 4"),
            (["IB2", "000000"], "'000000' has 3 bytes, IB2 takes 2"),
            (["IB1", "0x"], "'0x' is not a run of hexadecimal digits"),
            (["IB1", "0 C"], "'0 C' is not a run of hexadecimal digits"),
            (["IB1", "0C0"], "'0C0' ends in half a byte"),
            (["", "1"], "a format is missing"),
        ]:
            self.refuses(["read", *arguments], complaint)


class Formats(Case):
    def test_table(self):
        code, output, _ = run("formats")
        lines = output.decode().splitlines()
        self.assertEqual(code, 0)
        self.assertEqual(len(lines), 46)
        self.assertEqual(lines[0].split(), ["code", "name", "kind", "reads", "writes"])
        self.assertEqual(lines[1], "1     A         string     yes    yes")
        self.assertEqual(lines[26], "26    WKDAY     date part  yes    yes")
        self.assertEqual(lines[40], "40    UNUSED40  numeric    no     yes")

    def test_json(self):
        rows = json.loads(run("formats", "--json")[1])
        self.assertEqual([row["code"] for row in rows], list(range(1, 46)))
        self.assertEqual(rows[4], {"code": 5, "name": "F", "kind": "numeric", "reads": True,
                                   "writes": True})
        self.assertEqual(rows[12], {"code": 13, "name": "T", "kind": "none", "reads": False,
                                    "writes": False})

    def test_every_type_converts_as_the_table_says(self):
        for row in json.loads(run("formats", "--json")[1]):
            name = f"{row['code']}:8"
            read = json.loads(run("read", "--json", name, "20" * 8 if row["code"] in
                                  (6, 8, 9, 10, 11) else "")[1])[0]
            written = json.loads(run("write", "--json", name, "1")[1])[0]
            self.assertEqual(read["status"] != 1105, row["reads"], row)
            self.assertEqual(written["status"] != 1105, row["writes"], row)


class Documentation(Case):
    def test_examples_print_what_the_text_shows(self):
        with open(os.path.join(ROOT, "docs", "tool.md"), encoding="utf-8") as file:
            blocks = re.findall(r"```console\n(.*?)```", file.read(), re.S)
        runs = [run_ for block in blocks for run_ in re.split(r"^\$ iocv ", block, flags=re.M)[1:]]
        self.assertGreater(len(runs), 7)
        for example in runs:
            command, _, output = example.partition("\n")
            _, printed, complaints = run(*shlex.split(command), cwd=ROOT)
            self.assertEqual((printed.decode(), complaints), (output, ""), command)

    def test_helps_show_what_the_commands_print(self):
        for command in ["write", "read"]:
            examples = re.findall(r"^  (iocv .*?)   +(\S.*)$", run(command, "--help")[1].decode(),
                                  re.M)
            self.assertGreater(len(examples), 2)
            for example, output in examples:
                _, printed, _ = run(*shlex.split(example)[1:])
                self.assertEqual(printed.decode(), output + "\n", example)


class Usage(Case):
    def test_help_and_version(self):
        code, output, complaints = run("--help")
        self.assertEqual((code, complaints), (0, ""))
        for command in [b"write", b"read", b"formats", b"decode", b"--version", b"Exit codes"]:
            self.assertIn(command, output)
        for command in ["write", "read", "formats", "decode"]:
            code, output, complaints = run(command, "--help")
            self.assertEqual((code, complaints), (0, ""))
            self.assertIn(f"Usage: iocv {command}".encode(), output)
            self.assertTrue(output.endswith(b"\n"))
        code, output, complaints = run("--version")
        self.assertEqual((code, complaints), (0, ""))
        self.assertRegex(output, rb"^iocv \d+\.\d+\.\d+\n$")

    def test_complaints(self):
        for arguments, complaint, tells in [
            ([], "A subcommand is required", ""),
            (["write"], "FORMAT is required", "write "),
            (["write", "F8"], "VALUE is required", "write "),
            (["decode", "x"], "DATA is required", "decode "),
            (["write", "F8", "1", "--jsn"], "The following argument was not expected: --jsn",
             "write "),
            (["write", "F8", "1", "--century", "x"],
             "--century: the century must begin with a year from 1 to 9999", "write "),
            (["write", "F8", "1", "--century", "-5"],
             "--century: the century must begin with a year from 1 to 9999", "write "),
            (["write", "F8", "1", "--decimal", ";"],
             '--decimal: the decimal character must be "." or ","', "write "),
            (["read", "F8", "1", "--missing", "ab"],
             "--missing: the system-missing character must be one printable ASCII character",
             "read "),
            (["decode", "x", "y", "--code-page", "moon"],
             '--code-page: unknown code page "moon", or not a superset of ASCII', "decode "),
            (["write", "F8", "1", "--cca"],
             "--cca: 1 required PATTERN missing", "write "),
        ]:
            code, output, complaints = run(*arguments)
            self.assertEqual((code, output), (2, b""), arguments)
            self.assertEqual(complaints, f"iocv: {complaint}\n'iocv {tells}--help' tells more\n")

    def test_output_that_cannot_be_written(self):
        with open("/dev/full", "wb") as full:
            for arguments in [["formats"], ["write", "F8", "1"], ["--help"],
                              ["decode", f"{EXAMPLES}/stations.toml", f"{EXAMPLES}/stations.txt"]]:
                result = subprocess.run([PROGRAM, *arguments], stdout=full, stderr=subprocess.PIPE,
                                        check=False)
                self.assertEqual(
                    (result.returncode, result.stderr),
                    (3, b"iocv: cannot write 'standard output': No space left on device\n"))

    def test_a_reader_that_went_away(self):
        read_end, write_end = os.pipe()
        os.close(read_end)
        with os.fdopen(write_end, "wb") as pipe:
            result = subprocess.run([PROGRAM, "formats"], stdout=pipe, stderr=subprocess.PIPE,
                                    check=False)
        self.assertEqual((result.returncode, result.stderr),
                         (3, b"iocv: cannot write 'standard output': Broken pipe\n"))


FIELDS = {"name": "A4", "x": "F4.1", "day": "SDATE10"}


def layout_text(head, fields):
    """A layout of fields that follow each other: name -> format, or (format, further keys)."""
    text, at = head + "\n", 1
    for name, field in fields.items():
        form, more = (field, "") if isinstance(field, str) else field
        width = int("".join(c for c in form.split(":")[-1].split(".")[0] if c.isdigit()))
        text += f'[[field]]\nname = "{name}"\nat = {at}\nformat = "{form}"\n{more}\n'
        at += width
    return text


class Decode(Case):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def path(self, name):
        return os.path.join(self.folder.name, name)

    def put(self, name, content):
        with open(self.path(name), "wb") as file:
            file.write(content if isinstance(content, bytes) else content.encode())
        return self.path(name)

    def get(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def rejects(self, name="data.rejects.jsonl"):
        return [json.loads(line) for line in self.get(name).decode().splitlines()]

    def decode(self, head, fields, data, *options):
        """Exit code and CSV of a run over the data, whose complaints it leaves in self."""
        self.put("layout.toml", layout_text(head, fields))
        self.put("data", data)
        code, output, self.complaints = run("decode", "layout.toml", "data", *options,
                                            cwd=self.folder.name)
        return code, output.decode()

    def decodes(self, head, fields, data, output, *options):
        self.assertEqual(self.decode(head, fields, data, *options), (0, output))
        self.assertEqual(self.complaints, "")
        self.assertFalse(os.path.exists(self.path("data.rejects.jsonl")))

    def test_stations(self):
        code, output, complaints = run("decode", f"{EXAMPLES}/stations.toml",
                                       f"{EXAMPLES}/stations.txt", cwd=self.folder.name)
        self.assertEqual((code, complaints), (0, ""))
        rows = list(csv.reader(io.StringIO(output.decode(), newline="")))
        with open(f"{EXAMPLES}/stations.txt", encoding="ascii") as file:
            lines = file.read().splitlines()
        self.assertEqual(rows[0], ["id", "latitude", "longitude", "elevation", "state", "name",
                                   "gsn_flag", "hcn_crn_flag", "wmo_id"])
        self.assertEqual(len(rows), 301)
        for line, row in zip(lines, rows[1:]):
            texts = [line[0:11], line[38:40], line[41:71], line[72:75], line[76:79], line[80:85]]
            self.assertEqual([row[0], *row[4:]], [text.rstrip() for text in texts])
            numbers = [line[12:20], line[21:30], line[31:37]]
            self.assertEqual([float(text) for text in row[1:4]], [float(n) for n in numbers])
            self.assertEqual(row[1:4], [f"{float(n):g}" if float(n) == int(float(n)) else
                                        repr(float(n)) for n in numbers])

    def test_ledger(self):
        code, output, complaints = run("decode", f"{EXAMPLES}/ledger.toml",
                                       f"{EXAMPLES}/ledger.dat", cwd=self.folder.name)
        self.assertEqual((code, complaints), (0, ""))
        rows = list(csv.DictReader(io.StringIO(output.decode(), newline="")))
        with open(f"{EXAMPLES}/ledger.dat", "rb") as file:
            data = file.read()
        self.assertEqual(len(rows) * 80, len(data))
        for i, row in enumerate(rows):
            record = data[80 * i:80 * i + 80]
            text = record[:59].decode()
            self.assertEqual(row["account"], text[0:8])
            self.assertEqual(row["holder"], text[8:28].rstrip())
            opened = datetime.datetime.strptime(text[28:39], "%d-%b-%Y").date()
            self.assertEqual(row["opened"], str(opened))
            self.assertEqual(row["last_seen"], text[39:47])
            balance = text[47:59].replace(",", "").strip()
            self.assertEqual(row["balance"], f"{float(balance):.10g}" if balance else "")
            packed = record[59:64].hex()
            credit = int(packed[:9]) * (-1 if packed[9] == "d" else 1)
            self.assertEqual(row["credit"], f"{credit / 100:.10g}")
            zone = record[69:70].decode()
            points = int(record[64:69].decode() + str("{ABCDEFGHI}JKLMNOPQR".index(zone) % 10))
            self.assertEqual(int(row["points"]), -points if zone in "}JKLMNOPQR" else points)
            reviewed = record[70:78].decode().strip()
            if reviewed:
                month, day, year = (int(part) for part in reviewed.split("/"))
                year += 1900 if year >= 50 else 2000
                reviewed = f"{year}-{month:02}-{day:02}"
            self.assertEqual(row["reviewed"], reviewed)
            self.assertEqual(int(row["visits"]), int.from_bytes(record[78:80], "little"))

    def test_the_examples_are_what_their_scripts_make(self):
        for script, name in [("make_stations", "stations.txt"), ("make_ledger", "ledger.dat")]:
            made = subprocess.run([os.path.join(SCRIPTS, script)], capture_output=True, check=True)
            with open(f"{EXAMPLES}/{name}", "rb") as file:
                self.assertEqual(made.stdout, file.read(), name)

    def test_records_and_lines(self):
        expected = "name,x,day\nab,1.5,2000-01-31\n cd,,\n"
        first, second = b"ab   1.52000/01/31", b" cd ".ljust(18)
        self.decodes("record = 18", FIELDS, first + second, expected)
        self.decodes("record = 20", FIELDS, first + b"\r\n" + second + b"\r\n", expected)
        self.decodes("lines = true", FIELDS, first + b"\n" + second + b"\n", expected)
        self.decodes("lines = true", FIELDS, first + b"\n" + second, expected)
        self.decodes("lines = true", FIELDS, first + b" and more\n" + second, expected)
        self.decodes("lines = true\ncrlf = true", FIELDS, first + b"\r\n" + second + b"\r\n",
                     expected)
        self.decodes("record = 18", FIELDS, b"", "name,x,day\n")
        self.decodes("lines = true", FIELDS, b"", "name,x,day\n")

    def test_a_carriage_return_is_data_unless_the_layout_says_otherwise(self):
        self.decodes("lines = true", {"a": "A3"}, b"ab\r\n", 'a\n"ab\r"\n')
        self.decodes("lines = true\ncrlf = true", {"a": "A2"}, b"ab\r\ncd\n", "a\nab\ncd\n")

    def test_strings_are_quoted_where_csv_needs_it(self):
        self.put("layout.toml", "record = 6\n[[field]]\nname = 'a,b'\nat = 1\nformat = 'A3'\n"
                                "[[field]]\nname = 'c\"d'\nat = 4\nformat = 'A3'\n")
        self.put("data", b'x,y"q"' + b"  z   " + b"a\nb\r  ")
        code, output, _ = run("decode", "layout.toml", "data", cwd=self.folder.name)
        self.assertEqual(code, 0)
        self.assertEqual(output, b'"a,b","c""d"\n"x,y","""q"""\n  z,\n"a\nb","\r"\n')
        self.assertEqual(list(csv.reader(io.StringIO(output.decode(), newline=""))),
                         [["a,b", 'c"d'], ["x,y", '"q"'], ["  z", ""], ["a\nb", "\r"]])

    def test_an_empty_row_of_one_column_is_not_an_empty_line(self):
        self.decodes("record = 3", {"a": "A3"}, b"   abc", 'a\n""\nabc\n')

    def test_each_kind_of_field_has_its_own_look(self):
        for form, more, field, shown in [
            ("F8.2", "", b"    1250", "12.5"),
            ("F8.2", "as = 'text'", b"    1250", "1250"),
            ("F8.2", "as = 'text'", b"        ", ""),
            ("F8", "", b"  100000", "100000"),
            ("DATE11", "", b" 1-JAN-2000", "2000-01-01"),
            ("DATE11", "as = 'number'", b" 1-JAN-2000", "13166064000"),
            ("DATE11", "as = 'text'", b" 1-JAN-2000", "1-JAN-2000"),
            ("DATE11", "", b"           ", ""),
            ("MOYR8", "", b"JAN 2000", "2000-01-01"),
            ("JDATE7", "", b"2000060", "2000-02-29"),
            ("DATETIME20", "", b"01-JAN-2000 12:30:15", "2000-01-01T12:30:15"),
            ("DATETIME22.1", "", b"01-JAN-2000 12:30:15.5", "2000-01-01T12:30:15.5"),
            ("TIME8", "", b"12:30:15", "12:30:15"),
            ("TIME10.2", "", b"1:02:03.25", "01:02:03.25"),
            ("TIME8", "as = 'number'", b"12:30:15", "45015"),
            ("DTIME12", "", b"  1 12:30:15", "1 12:30:15"),
            ("DTIME12", "as = 'iso'", b"  1 12:30:15", "P1DT12H30M15S"),
            ("DTIME12", "as = 'number'", b"  1 12:30:15", "131415"),
            ("WKDAY9", "", b"SATURDAY ", "SATURDAY"),
            ("WKDAY9", "as = 'number'", b"SATURDAY ", "7"),
            ("MONTH3", "", b"FEB", "FEB"),
            ("85:8", "", b"   02:05", "00:02:05"),
            ("86:13", "", b"20000101T1230", "2000-01-01T12:30:00"),
            ("P3", "", b"\x00\x12\x3d", "-123"),
            ("RB8", "", b"\x00\x00\x00\x00\x00\x00\xf0\x7f", "inf"),
            ("RB8", "", b"\xff\xff\xff\xff\xff\xff\xef\xff", ""),
            ("A8", "", b" a b    ", " a b"),
            ("AHEX8", "", b"61622020", "ab"),
            ("CCA8.1", "", b"      15", "1.5"),
        ]:
            self.decodes(f"record = {len(field)}", {"v": (form, more)}, field,
                         "v\n%s\n" % (shown or '""'))

    def test_settings_of_the_layout_and_of_the_command_line(self):
        for head, fields, data, shown in [
            ("century = 1950", {"v": "ADATE8"}, b"01/31/49", "2049-01-31"),
            ("decimal = ','", {"v": "F4"}, b" 1,5", "1.5"),
            ("decimal = '.'", {"v": "F4"}, b" 1.5", "1.5"),
            ("code_page = 'windows-1252'", {"v": "A3"}, b"a\xe9 ", "a\u00e9"),
            ("", {"v": "A3"}, "a\u00e9".encode(), "a\u00e9"),
            ("leading_zero = true\nmissing = '#'\ncca = '-,$,,CR'\nccb = ''\nccc = ''\nccd = ''\n"
             "cce = ''", {"v": "F4"}, b" 1.5", "1.5"),
        ]:
            self.decodes(f"{head}\nrecord = {len(data)}", fields, data, f"v\n{shown}\n")
        # Each key and each option of the writers' settings is taken, and reading stays the same.
        for head in ["", "leading_zero = true", "leading_zero = false", "cca = '-,$,,CR'",
                     "cce = \"'.\"", "ccb = ''"]:
            for options in [[], ["--leading-zero"], ["--cca", "(,,,)"], ["--cce="]]:
                self.decodes(f"record = 14\n{head}", {"v": "F6.2", "w": "CCA8.2"},
                             b"  0.50-1234.5 ", "v,w\n0.5,-1234.5\n", *options)
        for field, form in [(b" 12,5", "F5"), (b" 12,5%", "PCT6"), (b"1,25E1", "E6")]:
            text = f"record = {len(field)}"
            self.decodes(f"{text}\ndecimal = ','", {"v": form}, field, "v\n12.5\n")
            self.decodes(text, {"v": form}, field, "v\n12.5\n", "--decimal", ",")
            self.decodes(f"{text}\ndecimal = ','", {"v": form}, field.replace(b",", b"."),
                         "v\n12.5\n", "--decimal", ".")
        self.decodes("century = 1950\nrecord = 8", {"v": "ADATE8"}, b"01/31/49", "v\n1949-01-31\n",
                     "--century", "1900")
        self.decodes("record = 8", {"v": "ADATE8"}, b"01/31/49", "v\n2049-01-31\n",
                     "--century", "1950")
        self.decodes("record = 4\ndecimal = '.'", {"v": "F4"}, b" 1,5", "v\n1.5\n", "--decimal", ",")

    def test_a_failed_field_is_empty_and_listed(self):
        code, output = self.decode("record = 18", FIELDS, b"ab   1.52000/01/31"
                                                          b"cd   x.y2000/13/31"
                                                          b"ef   2.52000/02/01")
        self.assertEqual(code, 1)
        self.assertEqual(output, "name,x,day\nab,1.5,2000-01-31\ncd,,\nef,2.5,2000-02-01\n")
        self.assertEqual(self.rejects(), [
            {"record": 2, "offset": 22, "field": "x", "format": "F4.1", "raw_hex": "20782E79",
             "status": 1102, "message": "a character is not allowed at its place in a number"},
            {"record": 2, "offset": 26, "field": "day", "format": "SDATE10",
             "raw_hex": b"2000/13/31".hex().upper(), "status": 1152,
             "message": "the text is not a date in the order year, month, day"}])
        self.assertEqual(self.complaints,
                         "iocv: 2 rejects in 3 records, see 'data.rejects.jsonl'\n")
        for line in self.get("data.rejects.jsonl").decode().splitlines():
            self.assertEqual(list(json.loads(line)), ["record", "offset", "field", "format",
                                                      "raw_hex", "status", "message"])

    def test_a_value_kept_with_a_warning_is_shown_and_listed(self):
        code, output = self.decode("record = 5", {"p": "P2", "a": "A3"}, b"\x12\x34a\xffb")
        self.assertEqual((code, output), (1, "p,a\n1234,a!b\n"))
        self.assertEqual([(r["field"], r["status"], r["raw_hex"]) for r in self.rejects()],
                         [("p", 1106, "1234"), ("a", 1158, "61FF62")])

    def test_bytes_that_are_no_characters_become_the_replacement_character(self):
        code, output = self.decode("record = 3\ncode_page = 'windows-1252'", {"a": "A3"}, b"a\x81b")
        self.assertEqual((code, output), (1, "a\na\ufffdb\n"))
        self.assertEqual(self.rejects(), [
            {"record": 1, "offset": 0, "field": "a", "format": "A3", "raw_hex": "618162",
             "status": None, "message": "a byte is no character of the code page; it became U+FFFD"}])
        code, output = self.decode("record = 4", {"a": "AHEX4"}, b"61FF")
        self.assertEqual((code, output), (1, "a\na\ufffd\n"))

    def test_a_last_record_that_is_too_short(self):
        code, output = self.decode("record = 4", {"a": "A2", "b": "F2"}, b"ab12cd3")
        self.assertEqual((code, output), (1, "a,b\nab,12\n"))
        self.assertEqual(self.rejects(), [
            {"record": 2, "offset": 4, "field": None, "format": None, "raw_hex": "636433",
             "status": None, "message": "the last record has 3 bytes instead of 4"}])
        self.assertEqual(self.complaints,
                         "iocv: 1 reject in 2 records, see 'data.rejects.jsonl'\n")

    def test_a_line_that_is_too_short(self):
        fields = {"a": "A2", "b": "F2", "c": "A2"}
        data = b"ab12cd\nab1\nab\n\n"
        message = "the line has {} bytes, the field ends at byte {}"
        code, output = self.decode("lines = true", fields, data)
        self.assertEqual((code, output), (1, "a,b,c\nab,12,cd\nab,,\nab,,\n,,\n"))
        found = [(r["record"], r["offset"], r["field"], r["raw_hex"], r["status"], r["message"])
                 for r in self.rejects()]
        self.assertEqual(found, [
            (2, 9, "b", "31", None, message.format(3, 4)),
            (2, 11, "c", "", None, message.format(3, 6)),
            (3, 13, "b", "", None, message.format(2, 4)),
            (3, 15, "c", "", None, message.format(2, 6)),
            (4, 14, "a", "", None, message.format(0, 2)),
            (4, 16, "b", "", None, message.format(0, 4)),
            (4, 18, "c", "", None, message.format(0, 6))])
        code, output = self.decode("lines = true\nshort_lines = 'blank'", fields, data)
        self.assertEqual((code, output), (1, "a,b,c\nab,12,cd\nab,,\nab,,\n,,\n"))
        self.assertEqual([(r["record"], r["field"]) for r in self.rejects()], [(2, "b")])
        self.decodes("lines = true\nshort_lines = 'pad'", fields, data,
                     "a,b,c\nab,12,cd\nab,1,\nab,,\n,,\n")

    def test_bytes_that_are_no_text_are_never_padded(self):
        for short_lines in ["blank", "pad"]:
            code, output = self.decode(f"lines = true\nshort_lines = '{short_lines}'",
                                       {"a": "A1", "b": "IB2"}, b"a\nb\x01\nc\x01\x00\n")
            self.assertEqual((code, output), (1, "a,b\na,\nb,\nc,1\n"))
            self.assertEqual([(r["record"], r["raw_hex"]) for r in self.rejects()],
                             [(1, ""), (2, "01")])

    def test_a_padded_field_that_fails_is_listed_with_its_own_bytes(self):
        code, _ = self.decode("lines = true\nshort_lines = 'pad'", {"b": "F4"}, b"1x\n")
        self.assertEqual(code, 1)
        self.assertEqual([(r["offset"], r["raw_hex"], r["status"]) for r in self.rejects()],
                         [(0, "3178", 1102)])

    def test_a_value_without_an_iso_form(self):
        field = b"9999999999999999:00:00"
        code, output = self.decode("record = 22", {"a": "TIME22"}, field)
        self.assertEqual((code, output), (1, 'a\n""\n'))
        self.assertEqual([(r["status"], r["message"]) for r in self.rejects()],
                         [(None, "the value is too large for its ISO 8601 form")])

    def test_the_rejects_file_has_a_place(self):
        bad = b"xxxx"
        self.decode("record = 4", {"v": "F4"}, bad, "-o", "out.csv")
        self.assertEqual(sorted(os.listdir(self.folder.name)),
                         ["data", "layout.toml", "out.csv", "out.csv.rejects.jsonl"])
        self.assertEqual(self.get("out.csv"), b'v\n""\n')
        self.decode("record = 4", {"v": "F4"}, bad, "--rejects", "bad.jsonl")
        self.assertEqual(len(self.rejects("bad.jsonl")), 1)
        code, output, _ = run("decode", "layout.toml", "-", stdin=bad, cwd=self.folder.name)
        self.assertEqual((code, output), (1, b'v\n""\n'))
        self.assertEqual(len(self.rejects("stdin.rejects.jsonl")), 1)

    def test_a_stale_rejects_file_goes_away(self):
        for options, name in [([], "data.rejects.jsonl"), (["-o", "out"], "out.rejects.jsonl"),
                              (["--rejects", "bad"], "bad")]:
            self.put(name, "old")
            self.assertEqual(self.decode("record = 4", {"v": "F4"}, b"  12", *options)[0], 0)
            self.assertFalse(os.path.exists(self.path(name)))
        self.assertEqual(self.decode("record = 4", {"v": "F4"}, b"  12", "--rejects",
                                     "/dev/null")[0], 0)
        self.assertTrue(os.path.exists("/dev/null"))

    def test_output_appears_whole_or_not_at_all(self):
        self.put("out.csv", "old")
        os.chmod(self.path("out.csv"), 0o640)
        os.symlink("out.csv", self.path("link"))
        self.decode("record = 4", {"v": "F4"}, b"  12", "-o", "link")
        self.assertEqual(self.get("out.csv"), b"v\n12\n")
        self.assertTrue(os.path.islink(self.path("link")))
        self.assertEqual(os.stat(self.path("out.csv")).st_mode & 0o777, 0o640)
        self.assertEqual(sorted(os.listdir(self.folder.name)),
                         ["data", "layout.toml", "link", "out.csv"])
        # A data file that cannot be read leaves everything as it was.
        code, _, complaints = run("decode", "layout.toml", ".", "-o", "out.csv",
                                  cwd=self.folder.name)
        self.assertEqual((code, complaints), (3, "iocv: cannot read '.': Is a directory\n"))
        self.assertEqual(self.get("out.csv"), b"v\n12\n")
        self.assertEqual(sorted(os.listdir(self.folder.name)),
                         ["data", "layout.toml", "link", "out.csv"])
        # Devices are written where they are.
        self.assertEqual(self.decode("record = 4", {"v": "F4"}, b"  12", "-o", "/dev/null"), (0, ""))
        self.assertTrue(os.path.exists("/dev/null"))

    def test_data_of_many_blocks(self):
        count = 300_000
        data = b"".join(b"%08d\n" % i for i in range(count))
        expected = "v\n" + "".join(f"{i}\n" for i in range(count))
        self.decodes("lines = true", {"v": "F8"}, data, expected)
        self.decodes("record = 9", {"v": "F8"}, data, expected)
        code, output = self.decode("lines = true", {"v": "F8"}, data.replace(b"00000007", b"x"))
        self.assertEqual(code, 1)
        self.assertEqual(self.rejects()[0]["record"], 8)

    def test_a_line_longer_than_any_block(self):
        self.decodes("lines = true", {"v": "A3"}, b"abc" + b"x" * 3_000_000 + b"\ndef\n",
                     "v\nabc\ndef\n")

    def test_file_trouble(self):
        layout = self.put("layout.toml", layout_text("record = 4", {"v": "F4"}))
        data = self.put("data", "  12")
        for arguments, complaint in [
            (["nowhere.toml", data], "cannot open 'nowhere.toml': No such file or directory"),
            ([layout, "nowhere"], "cannot open 'nowhere': No such file or directory"),
            ([layout, "."], "cannot read '.': Is a directory"),
            ([".", data], "cannot read '.': Is a directory"),
            ([layout, data, "-o", "no/where"], "cannot create 'no/where': No such file or directory"),
            ([layout, data, "-o", "."], "cannot open '.': Is a directory"),
            ([layout, data, "-o", "/dev/full"], "cannot write '/dev/full': No space left on device"),
        ]:
            self.refuses(["decode", *arguments], complaint, 3, cwd=self.folder.name)
        bad = self.put("bad", "xxxx")
        code, _, complaints = run("decode", layout, bad, "--rejects", "no/where")
        self.assertEqual((code, complaints),
                         (3, "iocv: cannot create 'no/where': No such file or directory\n"))

    def test_no_file_is_written_over_another(self):
        layout = self.put("layout.toml", layout_text("record = 4", {"v": "F4"}))
        self.put("data", "  12")
        os.symlink("data", self.path("link"))
        for arguments, complaint in [
            (["-o", "data"], "the output 'data' would be written over 'data'"),
            (["-o", "link"], "the output 'link' would be written over 'data'"),
            (["-o", "./layout.toml"],
             "the output './layout.toml' would be written over 'layout.toml'"),
            (["--rejects", "data"], "the rejects file 'data' would be written over 'data'"),
            (["--rejects", "layout.toml"],
             "the rejects file 'layout.toml' would be written over 'layout.toml'"),
            (["--rejects", "-"], "the rejects file cannot be standard output"),
            (["-o", "new", "--rejects", "./new"],
             "the rejects file './new' would be written over 'new'"),
        ]:
            self.refuses(["decode", "layout.toml", "data", *arguments], complaint,
                         cwd=self.folder.name)
        self.assertEqual(self.get("data"), b"  12")
        self.assertTrue(os.path.exists(layout))

    def test_layout_errors(self):
        self.put("layout.toml", "record = 80\nwidht = 3\n[[field]]\nname = 'a'\nat = 79\n"
                                "format = 'F8.2'\n")
        self.put("data", "")
        self.refuses(["decode", "layout.toml", "data"],
                     "layout.toml:2:1: unknown key \"widht\" in the layout\n"
                     "layout.toml:5:6: field \"a\" ends at byte 86, beyond the record of 80 bytes",
                     cwd=self.folder.name)
        self.put("layout.toml", "record = \n")
        code, _, complaints = run("decode", "layout.toml", "data", cwd=self.folder.name)
        self.assertEqual(code, 2)
        self.assertRegex(complaints, r"^iocv: layout\.toml:1:\d+: .*\n$")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
