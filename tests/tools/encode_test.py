#!/usr/bin/python3
"""iocv encode: fields from CSV and JSON Lines, what is refused and why, and decode's way back.
Usage: encode_test.py PROGRAM EXAMPLES [unittest arguments]"""
import csv
import datetime
import io
import json
import os
import random

from support import EXAMPLES, Case, layout_text, main


class Encode(Case):
    def encode(self, head, fields, rows, *options):
        """Exit code and records of a run over the text of a CSV."""
        self.put("layout.toml", layout_text(head, fields))
        self.put("data", rows)
        code, output, self.complaints = self.run_tool("encode", "layout.toml", "data", *options)
        return code, output

    def encodes(self, form, value, field, more=""):
        head = "code_page = 'windows-1252'\ncentury = 1950\nrecord = %d" % len(field)
        row = io.StringIO()
        csv.writer(row, lineterminator="\n").writerow([value])
        self.assertEqual(self.encode(head, {"v": (form, more)}, "v\n" + row.getvalue()),
                         (0, field), (form, value))

    def test_values_as_decode_shows_them(self):
        for form, more, value, field in [
            ("F8.2", "", "12.5", b"   12.50"),
            ("F8.2", "", "-0.125", b"    -.13"),
            ("F8.2", "", "1e3", b" 1000.00"),
            ("F8.2", "", "", b"        "),
            ("DATE11", "", "", b" " * 11),
            ("TIME8", "", "", b" " * 8),
            ("N4", "", "", b"    "),
            ("RB8", "", "", b"\xff\xff\xff\xff\xff\xff\xef\xff"),
            ("F8.2", "as = 'text'", "1250", b"   12.50"),
            ("COMMA9.2", "", "1234.5", b" 1,234.50"),
            ("DOLLAR10.2", "", "1234.5", b" $1,234.50"),
            ("E10.3", "", "5", b"5.000E+000"),
            ("Z4", "", "-123", b"012L"),
            ("N4", "", "12", b"0012"),
            ("P3", "", "-123", b"\x00\x12\x3d"),
            ("IB2", "", "-2", b"\xfe\xff"),
            ("PIB2", "", "258", b"\x02\x01"),
            ("RB8", "", "inf", b"\0\0\0\0\0\0\xf0\x7f"),
            ("DATE11", "", "2000-01-01", b"01-JAN-2000"),
            ("DATE9", "", "2049-12-31", b"31-DEC-49"),
            ("DATE11", "as = 'number'", "13166064000", b"01-JAN-2000"),
            ("DATETIME22.1", "", "2000-01-01T12:30:15.5", b"01-JAN-2000 12:30:15.5"),
            ("TIME8", "", "12:30:15", b"12:30:15"),
            ("DTIME12", "", "1 12:30:15", b"  1 12:30:15"),
            ("WKDAY9", "", "SATURDAY", b"SATURDAY "),
            ("MONTH3", "", "FEB", b"FEB"),
            ("A4", "", "a\u00e9", b"a\xe9  "),
            ("A4", "", "", b"    "),
            ("A2", "", "ab    ", b"ab"),
            ("A8", "", 'q",\nx', b'q",\nx   '),
            ("AHEX6", "", "ab", b"616220"),
        ]:
            self.encodes(form, value, field, more)

    def test_what_does_not_fit_is_refused(self):
        for form, more, value, message in [
            ("A3", "", "abcd", "the text has 4 bytes, the field holds 3"),
            ("AHEX6", "", "abcd", "the text has 4 bytes, the field holds 3"),
            ("A3", "", "\u4e2d", "a character has no place in the code page"),
            ("F3", "", "12345", "the value does not fit F3"),
            ("F3.1", "", "abc", "the text is not a number"),
            ("F8", "", "1e400", "'1e400' lies beyond the range of a double"),
            ("F8", "", "inf", "F8 holds neither infinities nor not-a-number"),
            ("RB8", "", "nan", "RB8 holds no not-a-number"),
            ("F8.2", "", "12345678", "the value leaves F8.2 no room for its decimal character"),
            ("F4.1", "as = 'text'", "12345", "the text has 5 bytes, the field holds 4"),
            ("N4", "", "-1", "a negative value cannot be written as N"),
            ("N2", "", "123", "the value does not fit N2"),
            ("IB1", "", "1000", "the value does not fit the IB or PIB width"),
            ("PIB2", "", "", "PIB2 has no missing value"),
            ("DATE11", "", "2000-13-01", "the text is neither a date, a time nor a number"),
            ("DATE9", "", "2000-01-01", "the value does not fit DATE9"),
            ("DATE11", "", "2000-01-01T12:00:00", "DATE11 would lose a part of the value"),
            ("MOYR8", "", "2000-01-15", "MOYR8 would lose a part of the value"),
            ("TIME5", "", "12:30:15", "TIME5 would lose a part of the value"),
            ("DATE11", "", "1500-01-01",
             "the value lies before 15 October 1582 or is negative"),
            ("WKDAY9", "", "FUNDAY", None),
        ]:
            fields = {"v": (form, more)}
            head = f"code_page = 'windows-1252'\nrecord = {form.split('.')[0].lstrip(ALPHA)}"
            code, output = self.encode(head, fields, f'v\n"{value}"\n')
            self.assertEqual((code, output), (1, b""), (form, value))
            reject, = self.rejects()
            self.assertEqual((reject["record"], reject["offset"], reject["field"],
                              reject["format"], reject["raw_hex"]),
                             (1, 2, "v", form, value.encode().hex().upper()))
            if message:
                self.assertEqual(reject["message"], message, (form, value))

    def test_on_error(self):
        fields = {"a": "A2", "n": "N2", "p": "P1"}
        rows = "a,n,p\nok,12,1\nlong,5,2\nok,x,3\nok,7,\n"
        self.put("layout.toml", layout_text("record = 5", fields))
        for action, output, rejected in [
            ("skip", b"ok12\x1f", 3), ("blank", b"ok12\x1f" b"  05\x2f" b"ok  \x3f" b"ok07 ", 3),
        ]:
            self.assertEqual(self.encode("record = 5", fields, rows, "--on-error", action),
                             (1, output))
            self.assertEqual(self.complaints,
                             "iocv: 3 rejects in 4 records, see 'data.rejects.jsonl'\n")
            self.assertEqual([(r["record"], r["field"]) for r in self.rejects()],
                             [(2, "a"), (3, "n"), (4, "p")][:rejected])
        code, _ = self.encode("record = 5", fields, rows, "--on-error", "stop", "-o", "out")
        self.assertEqual((code, self.complaints),
                         (1, "iocv: stopped at record 2: it has rejects, see "
                          "'out.rejects.jsonl'\n"))
        self.assertFalse(os.path.exists(self.path("out")))
        self.encode("record = 5", fields, rows, "--max-rejects", "1")
        self.assertEqual(self.complaints, "iocv: stopped at record 3: more than 1 rejected "
                         "records, see 'data.rejects.jsonl'\n")
        self.assertEqual(self.encode("record = 5", fields, rows, "--on-error", "moan")[0], 2)

    def test_rejected_rows_can_be_mended_and_fed_again(self):
        rows = 'n,a\n1,"x\ny"\nbad,"p\nq"\n3,zz\n"44",w\n'
        code, output = self.encode("record = 4", {"a": "A3", "n": "N1"}, rows,
                                   "--rejected-records", "copy")
        self.assertEqual((code, output), (1, b"x\ny1zz 3"))
        self.assertEqual(self.get("copy"), b'n,a\nbad,"p\nq"\n"44",w\n')
        mended = self.get("copy").replace(b"bad", b"2").replace(b"44", b"4")
        self.assertEqual(self.encode("record = 4", {"a": "A3", "n": "N1"}, mended),
                         (0, b"p\nq2w  4"))

    def test_a_negative_zero_keeps_its_sign(self):
        self.put("layout.toml", layout_text("record = 8", {"v": "RB8"}))
        self.put("rows.jsonl", '{"v": -0.0}\n')
        code, output, _ = self.run_tool("encode", "layout.toml", "rows.jsonl")
        self.assertEqual((code, output), (0, b"\0\0\0\0\0\0\0\x80"))

    def test_json_lines(self):
        self.put("layout.toml", layout_text("record = 17", {"a": "A2", "x": "F4.1", "d": "DATE11"}))
        rows = [{"a": "ab", "x": 1.5, "d": "2000-01-01"}, {"d": None, "x": "2"},
                {"a": 5}, {"b": 1}, {"x": True}, [1]]
        self.put("rows.jsonl", "\n".join(map(json.dumps, rows)) + '\n\n{"x": 1e999}\n{\n')
        code, output, _ = self.run_tool("encode", "layout.toml", "rows.jsonl")
        self.assertEqual((code, output),
                         (1, b"ab 1.501-JAN-2000" b"   2.0           "))
        self.assertEqual([(r["record"], r["field"], r["message"])
                          for r in self.rejects("rows.jsonl.rejects.jsonl")],
                         [(3, "a", "a number stands where a text belongs"),
                          (4, None, 'the key "b" is no field of the layout'),
                          (5, None, 'the value of "x" is neither a number, a string nor null'),
                          (6, None, "the line is no JSON object"),
                          (7, None, "a number lies beyond the range of a double"),
                          (8, None, "the line is no JSON from byte 3 on")])

    def test_rows_that_are_none(self):
        for row, message in [
            ('1', "the row has 1 values, the line of names 2"),
            ('1,2,3', "the row has 3 values, the line of names 2"),
            ('"a"b,1', "more stands behind a closing quote"),
            ('a"b",1', "a quote stands inside a value without quotes"),
            ('"a,1', "a quote is not closed"),
        ]:
            code, output = self.encode("record = 2", {"a": "A1", "b": "A1"}, f"a,b\nx,y\n{row}\n")
            self.assertEqual((code, output), (1, b"xy"))
            reject, = self.rejects()
            self.assertEqual((reject["record"], reject["offset"], reject["field"],
                              reject["message"]), (2, 8, None, message))
            self.assertEqual(bytes.fromhex(reject["raw_hex"]).decode(), f"{row}\n")

    def test_names(self):
        fields = {"a": "A1", "b": "A1"}
        self.assertEqual(self.encode("record = 2", fields, "\ufeffb,a\r\n1,2\r\n3,4"),
                         (0, b"2143"))
        for names, complaint in [
            ("a", 'the CSV has no column "b"'), ("a,b,c", 'the column "c" is no field of the layout'),
            ("a,b,a", 'two columns have the name "a"'), ("", 'the CSV has no column "a"'),
        ]:
            self.assertEqual(self.encode("record = 2", fields, names + "\n1,2\n"), (2, b""))
            self.assertEqual(self.complaints, f"iocv: {complaint}\n")

    def test_bytes_of_no_field_are_blank_and_lines_end(self):
        self.put("layout.toml", "lines = true\ncrlf = true\n[[field]]\nname = 'a'\nat = 3\n"
                 "format = 'A2'\n")
        self.put("data", 'a\nxy\n""\n"p\nq"\n')
        code, output, _ = self.run_tool("encode", "layout.toml", "data")
        self.assertEqual((code, output), (1, b"  xy\r\n    \r\n"))
        self.assertEqual(self.rejects()[0]["message"],
                         "the text has 3 bytes, the field holds 2")
        code, output = self.encode("lines = true", {"p": "PIB2"}, "p\n11\n10\n")
        self.assertEqual((code, output), (1, b"\x0b\x00\n"))
        self.assertEqual(self.rejects()[0]["message"],
                         "a line feed in the field would end the line")

    def test_fields_that_overlap_must_agree(self):
        self.put("layout.toml", "record = 4\n[[field]]\nname = 'all'\nat = 1\nformat = 'A4'\n"
                 "[[field]]\nname = 'n'\nat = 3\nformat = 'N2'\n")
        self.put("data", "all,n\nab12,12\nab12,13\n")
        code, output, _ = self.run_tool("encode", "layout.toml", "data")
        self.assertEqual((code, output), (1, b"ab12"))
        self.assertEqual(self.rejects()[0]["message"],
                         "a field that shares bytes with it has other ones")


WORDS = {"WKDAY": ["SUNDAY", "MONDAY", "SATURDAY"], "MONTH": ["JANUARY", "FEBRUARY", "SEPTEMBER"]}
BYTES = ("P3", "P5", "PK", "IB", "PIB", "RBHEX")  # without a missing value in their field
ALPHA = "ABCDEFGHIJKLMNOPQRSTUVWXYZ"


class RoundTrip(Case):
    def test_the_ledger(self):
        for form in ["csv", "jsonl"]:
            self.runs("decode", f"{EXAMPLES}/ledger.toml", f"{EXAMPLES}/ledger.dat", "-o",
                      f"out.{form}")
            self.runs("encode", f"{EXAMPLES}/ledger.toml", f"out.{form}", "-o", "again.dat")
            self.runs("decode", f"{EXAMPLES}/ledger.toml", "again.dat", "-o", f"again.{form}")
            self.assertEqual(self.get(f"again.{form}"), self.get(f"out.{form}"))

    def value(self, source, form):
        """A value of the format as CSV shows it, of digits that its field holds."""
        kind = form.rstrip("0123456789.")
        width = int(form[len(kind):].split(".")[0])
        decimals = int(form.split(".")[1]) if "." in form else 0
        if kind == "A":
            letters = 'ab ,"\n\u00e9\u4e2d;x'
            text = "".join(source.choice(letters) for _ in range(source.randrange(width + 1)))
            while len(text.encode()) > width:
                text = text[:-1]
            return text.rstrip(" ")
        if kind in ("DATE", "ADATE", "SDATE", "EDATE", "JDATE"):
            return f"{source.randrange(1600, 9999)}-{source.randrange(1, 13):02}-" \
                   f"{source.randrange(1, 29):02}"
        if kind == "TIME":
            return f"{source.randrange(99):02}:{source.randrange(60):02}:{source.randrange(60):02}"
        if kind == "DATETIME":
            return self.value(source, "DATE11") + "T" + f"{source.randrange(24):02}:00:07"
        if kind in WORDS:
            return source.choice(WORDS[kind])
        if kind == "AHEX":
            return "".join(source.choice("ab ,x") for _ in range(width // 2)).rstrip(" ")
        if kind in ("MOYR", "QYR"):
            month = source.randrange(1, 13) if kind == "MOYR" else source.choice([1, 4, 7, 10])
            return f"{source.randrange(1600, 9999)}-{month:02}-01"
        if kind == "WKYR":
            return str(datetime.date(source.randrange(1600, 9999), 1, 1) +
                       datetime.timedelta(7 * source.randrange(52)))
        if kind == "DTIME":
            return f"{source.randrange(1, 999)} {source.randrange(24):02}:30:15"
        digits = {"IB": 2 * width, "PIB": 2 * width, "P": 2 * width - 1, "PK": 2 * width,
                  "COMMA": width * 3 // 4 - 2, "DOT": width * 3 // 4 - 2, "RB": 15, "RBHEX": 15,
                  "DOLLAR": width * 3 // 4 - 3, "PCT": width - 3, "PIBHEX": width,
                  "E": 4}.get(kind, width - 2)
        units = source.randrange(10 ** max(min(digits, 15), 1))
        if kind not in ("N", "PIB", "PK", "PIBHEX") and source.random() < .4:
            units = -units
        if kind == "E":
            return str(units)
        sign, units = "-" if units < 0 else "", str(abs(units)).rjust(decimals + 1, "0")
        whole, rest = units[:len(units) - decimals], units[len(units) - decimals:].rstrip("0")
        return sign + whole + ("." + rest if rest else "")

    def test_generated_layouts(self):
        seed = int(os.environ.get("IOCV_TEST_SEED", random.randrange(1 << 32)))
        source = random.Random(seed)
        kinds = ["A1", "A7", "A40", "F8.2", "F12.4", "F5", "COMMA12.2", "DOLLAR14.2", "Z8.2", "Z5",
                 "N6", "P5.2", "P3", "PK3", "IB4", "PIB2", "RB8", "DATE11", "ADATE10", "SDATE10",
                 "EDATE10", "JDATE7", "TIME8", "DATETIME20", "E12.4", "F13.6", "DOT12.2", "PCT9.1",
                 "PIBHEX4", "RBHEX16", "AHEX6", "MOYR8", "QYR8", "WKYR10", "WKDAY9", "MONTH9",
                 "DTIME13"]
        for _ in range(30):
            forms = {f"f{i}": source.choice(kinds) for i in range(source.randrange(1, 12))}
            width = sum(int(f.lstrip(ALPHA).split(".")[0]) for f in forms.values())
            rows = [{name: "" if source.random() < .1 and not form.startswith(BYTES)
                     else self.value(source, form) for name, form in forms.items()}
                    for _ in range(40)]
            self.put("layout.toml", layout_text(f"record = {width}", forms))
            with open(self.path("in.csv"), "w", newline="", encoding="utf-8") as file:
                writer = csv.DictWriter(file, list(forms), lineterminator="\n")
                writer.writeheader()
                writer.writerows(rows)
            code, _, complaints = self.run_tool("encode", "layout.toml", "in.csv", "-o", "first")
            self.assertEqual((code, complaints), (0, ""), (seed, forms))
            for form in ["csv", "jsonl"]:
                self.runs("decode", "layout.toml", "first", "-o", f"out.{form}")
                self.runs("encode", "layout.toml", f"out.{form}", "-o", "again")
                self.assertEqual(self.get("again"), self.get("first"), (seed, form, forms))
            with open(self.path("out.csv"), newline="", encoding="utf-8") as file:
                shown = list(csv.DictReader(file))
            for row, back in zip(rows, shown):
                for name, form in forms.items():
                    same = row[name] == back[name] or (
                        not form.startswith("A") and float(row[name]) == float(back[name]))
                    self.assertTrue(same, (seed, name, form, row[name], back[name]))


if __name__ == "__main__":
    main()
