#!/usr/bin/python3
"""The iocv program from outside: output bytes, exit codes, rejects, every complaint.
Usage: program_test.py PROGRAM EXAMPLES [unittest arguments]"""
import json
import os
import re
import shlex
import signal
import subprocess

from support import EXAMPLES, PROGRAM, ROOT, Case, main, run


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
        for command in ["write", "read", "formats", "decode", "encode", "check", "verify", "inspect",
                        "dump"]:
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
        self.assertEqual((result.returncode, result.stderr), (-signal.SIGPIPE, b""))


if __name__ == "__main__":
    main()
