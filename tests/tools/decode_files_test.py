#!/usr/bin/python3
"""iocv decode on whole files: forms of output, threads, limits, signals, full disks, big files.
Usage: decode_files_test.py PROGRAM EXAMPLES [unittest arguments]"""
import csv
import io
import json
import os
import pty
import signal
import sqlite3
import subprocess
import time

from support import EXAMPLES, PROGRAM, Case, layout_text, main

FIELDS = {"id": "F6", "name": "A5", "x": "F7.2", "day": "SDATE10"}


def line_of(i):
    return b"%6d%-5s%7.2f%04d/%02d/%02d" % (i, b"n%d" % (i % 1000), i / 4, 1990 + i % 50,
                                            i % 12 + 1, i % 28 + 1)


class Forms(Case):
    def setUp(self):
        super().setUp()
        self.put("layout.toml", layout_text("record = 29", {
            "s": "A5", "x": "F8.2", "day": "DATE11", "big": ("P5", "")}))
        rows = [(b"a,\"b ", b"   12.50", b"01-JAN-2000", b"\x00\x00\x00\x12\x3d"),
                ("\u00e9\u4e2d".encode(), b"        ", b"           ", b"\x00\x00\x00\x00\x0c"),
                (b"a\n\tb ", b"   -1e-9", b"31-DEC-1999", b"\x99\x99\x99\x99\x9f")]
        self.put("data", b"".join(b"".join(row) for row in rows))
        self.expected = [['a,"b', 12.5, "2000-01-01", -123.0], ["\u00e9\u4e2d", None, None, 0.0],
                         ["a\n\tb", -1e-9, "1999-12-31", 999999999.0]]

    def test_json_lines(self):
        for arguments in [["--to", "jsonl"], ["-o", "out.jsonl"], ["-o", "out.ndjson"]]:
            output = self.runs("decode", "layout.toml", "data", *arguments)
            if "-o" in arguments:
                output = self.get(arguments[1])
            rows = [json.loads(line) for line in output.decode().split("\n")[:-1]]
            self.assertEqual([list(row.values()) for row in rows], self.expected)
            self.assertEqual({tuple(row) for row in rows}, {("s", "x", "day", "big")})
        self.assertTrue(output.startswith(
            b'{"s": "a,\\"b", "x": 12.5, "day": "2000-01-01", "big": -123}\n'))

    def test_csv(self):
        for arguments in [[], ["--to", "csv"], ["-o", "out.jsonl", "--to", "csv"]]:
            output = self.runs("decode", "layout.toml", "data", *arguments) or self.get("out.jsonl")
            rows = list(csv.reader(io.StringIO(output.decode(), newline="")))
            self.assertEqual(rows[0], ["s", "x", "day", "big"])
            self.assertEqual([[row[0], float(row[1]) if row[1] else None, row[2] or None,
                               float(row[3])] for row in rows[1:]], self.expected)

    def test_sqlite(self):
        for name in ["out.sqlite", "out.sqlite3", "out.db"]:
            self.assertEqual(self.runs("decode", "layout.toml", "data", "-o", name), b"")
            with sqlite3.connect(self.path(name)) as base:
                rows = base.execute("SELECT * FROM records ORDER BY rowid").fetchall()
                self.assertEqual([list(row) for row in rows], self.expected)
                types = base.execute("SELECT name, type FROM pragma_table_info('records')")
                self.assertEqual(types.fetchall(), [("s", "TEXT"), ("x", "REAL"), ("day", "TEXT"),
                                                    ("big", "REAL")])
                self.assertEqual(base.execute("PRAGMA integrity_check").fetchall(), [("ok",)])
            base.close()

    def test_infinities_and_not_a_number(self):
        self.put("layout.toml", layout_text("record = 8", {"x": "RB8"}))
        self.put("data", b"\0\0\0\0\0\0\xf0\x7f\0\0\0\0\0\0\xf0\xff" + b"\1\0\0\0\0\0\xf8\x7f")
        values = self.runs("decode", "layout.toml", "data").split()[1:]
        lines = self.runs("decode", "layout.toml", "data", "--to", "jsonl").splitlines()
        self.assertEqual([json.loads(line)["x"] or "" for line in lines],
                         [value.decode().strip('"') for value in values])
        self.assertEqual(values[:2], [b"inf", b"-inf"])
        self.runs("decode", "layout.toml", "data", "-o", "out.db")
        with sqlite3.connect(self.path("out.db")) as base:
            self.assertEqual([x for x, in base.execute("SELECT x FROM records LIMIT 2")],
                             [float("inf"), float("-inf")])
        base.close()

    def test_what_cannot_be_a_database(self):
        for arguments, complaint in [
            (["--to", "sqlite"], "a database needs a file: -o OUT"),
            (["-o", "/dev/null", "--to", "sqlite"],
             "a database must be a file of its own, '/dev/null' is none"),
            (["--to", "xml"], "the form 'xml' is none of csv, jsonl and sqlite"),
        ]:
            self.assertEqual(self.run_tool("decode", "layout.toml", "data", *arguments),
                             (2, b"", f"iocv: {complaint}\n"))
        self.put("two.toml", layout_text("record = 2", {"a": "A1", "A": "A1"}))
        code, _, complaints = self.run_tool("decode", "two.toml", "data", "-o", "x.db")
        self.assertEqual((code, complaints),
                         (2, "iocv: the layout makes no table: duplicate column name: A\n"))
        self.assertEqual(self.names(), ["data", "layout.toml", "two.toml"])


class Threads(Case):
    def same_whatever(self, layout, data, code):
        """Output, rejects and rejected records are the same for all threads and blocks."""
        self.put("layout.toml", layout)
        self.put("data", data)
        for form in ["csv", "jsonl", "sqlite"]:
            seen = set()
            for threads in ["1", "2", "3", "8"]:
                for block in ["1", "100", "1000", "262144", "9999999"]:
                    if form == "sqlite" and block == "1":
                        continue
                    result = self.run_tool("decode", "layout.toml", "data", "-o", "out." + form,
                                           "--threads", threads, "--block", block, "--rejects",
                                           "bad", "--rejected-records", "copy")
                    self.assertEqual(result[0], code, result)
                    seen.add((result, *(self.get(name) if os.path.exists(self.path(name)) else None
                                        for name in ["out." + form, "bad", "copy"])))
            self.assertEqual(len(seen), 1, form)
        return seen.pop()

    def test_records(self):
        rows = [bytearray(line_of(i)) for i in range(3000)]
        clean = layout_text("record = 28", FIELDS)
        self.same_whatever(clean, b"".join(rows), 0)
        for i in [0, 1, 700, 701, 2999]:
            rows[i][0:1] = b"?"
        rows[701][20:22] = b"??"
        data = b"".join(rows) + b"rest"
        _, out, bad, copy = self.same_whatever(clean, data, 1)
        rejects = [json.loads(line) for line in bad.splitlines()]
        self.assertEqual([(r["record"], r["offset"], r["field"]) for r in rejects],
                         [(1, 0, "id"), (2, 28, "id"), (701, 19600, "id"), (702, 19628, "id"),
                          (702, 19628 + 18, "day"), (3000, 2999 * 28, "id"),
                          (3001, 84000, None)])
        for reject in rejects:
            raw = bytes.fromhex(reject["raw_hex"])
            self.assertEqual(data[reject["offset"]:][:len(raw)], raw)
        self.assertEqual(copy, b"".join(rows[i] for i in [0, 1, 700, 701, 2999]) + b"rest")

    def test_lines(self):
        rows = [line_of(i) + b" " * (i % 7) for i in range(3000)]
        rows[5] = b""
        rows[800] = b"?" * 28
        rows[801] = b"12"
        rows[900] = b"?" * 28 + b"x" * 5000
        data = b"\r\n".join(rows) + b"\n"
        layout = layout_text("lines = true\ncrlf = true", FIELDS)
        _, _, bad, copy = self.same_whatever(layout, data, 1)
        starts, at = [], 0
        for row in rows:
            starts.append(at)
            at += len(row) + 2
        rejects = [json.loads(line) for line in bad.splitlines()]
        self.assertEqual({r["record"] for r in rejects}, {6, 801, 802, 901})
        at_field = {"id": 0, "name": 6, "x": 11, "day": 18}
        for reject in rejects:
            self.assertEqual(reject["offset"],
                             starts[reject["record"] - 1] + at_field[reject["field"]])
        self.assertEqual(copy, b"".join(rows[i] + b"\r\n" for i in [5, 800, 801, 900]))

    def test_rejected_records_can_be_mended_and_fed_again(self):
        long_line = b"?" * 28 + b"y" * 2_500_000
        self.put("layout.toml", layout_text("lines = true", FIELDS))
        for end in [b"", b"\n"]:
            self.put("data", line_of(1) + b"\n" + long_line + b"\n" + line_of(2) + b"\n" +
                     long_line + end)
            code, _, _ = self.run_tool("decode", "layout.toml", "data", "-o", "out",
                                       "--rejected-records", "copy", "--block", "1000")
            self.assertEqual(code, 1)
            self.assertEqual(self.get("copy"), long_line + b"\n" + long_line + end)
        self.put("data", self.get("copy").replace(b"?" * 28, line_of(7)))
        self.runs("decode", "layout.toml", "data", "-o", "out", "--rejected-records", "copy")
        self.assertEqual(self.get("out").count(b"\n"), 3)
        self.assertFalse(os.path.exists(self.path("copy")))

    def test_examples(self):
        for name, data in [("ledger", "ledger.dat"), ("stations", "stations.txt")]:
            outputs = {self.runs("decode", f"{EXAMPLES}/{name}.toml", f"{EXAMPLES}/{data}",
                                 "--threads", threads, "--block", block, "--to", form)
                       for threads in ["1", "8"] for block in ["50", "5000"]
                       for form in ["csv", "jsonl"]}
            self.assertEqual(len(outputs), 2)


class Limits(Case):
    def decode(self, bad_rows, limit, *more, rows=3000):
        data = [line_of(i) for i in range(rows)]
        for i in bad_rows:
            data[i] = b"?" + data[i][1:]
        self.put("layout.toml", layout_text("record = 28", FIELDS))
        self.put("data", b"".join(data))
        return self.run_tool("decode", "layout.toml", "data", "--max-rejects", limit, *more)

    def test_a_number_of_records(self):
        self.assertEqual(self.decode([3, 5], "2")[0], 1)
        for threads, block in [("1", "1"), ("1", "99999"), ("3", "100"), ("8", "1000")]:
            code, output, complaints = self.decode([3, 5, 2000, 2500], "2", "--threads", threads,
                                                   "--block", block)
            self.assertEqual((code, complaints),
                             (1, "iocv: stopped at record 2001: more than 2 rejected records, see "
                              "'data.rejects.jsonl'\n"))
            self.assertEqual(output.count(b"\n"), 2001)
            self.assertEqual([r["record"] for r in self.rejects()], [4, 6, 2001])

    def test_a_percentage(self):
        self.assertEqual(self.decode(range(30), "1%")[0], 1)
        self.assertNotIn("stopped", self.decode(range(30), "1%")[2])
        self.assertEqual(self.decode(range(0, 1500, 50), "1%")[2],
                         "iocv: stopped at record 1001: more than 1% rejected records, see "
                         "'data.rejects.jsonl'\n")
        self.assertEqual(self.decode(range(6), "5%", rows=100)[2],
                         "iocv: stopped at record 100: more than 5% rejected records, see "
                         "'data.rejects.jsonl'\n")
        self.assertNotIn("stopped", self.decode(range(5), "5%", rows=100)[2])

    def test_a_stopped_run_leaves_its_rejects_only(self):
        code, output, _ = self.decode([3], "0", "-o", "out.csv", "--rejected-records", "copy")
        self.assertEqual((code, output), (1, b""))
        self.assertEqual(self.names(), ["data", "layout.toml", "out.csv.rejects.jsonl"])

    def test_complaints(self):
        for limit in ["", "x", "-1", "5%%", "101%", "1.5"]:
            if limit:
                self.assertEqual(self.decode([], limit)[::2],
                                 (2, f"iocv: '{limit}' is neither a number of records nor a "
                                  "percentage of them\n"))


class Endings(Case):
    def wait_for_temporary(self, process):
        for _ in range(500):
            if any(name.endswith(".tmp") for name in self.names()) or process.poll() is not None:
                return
            time.sleep(0.01)

    def test_a_signal_removes_the_temporary_files(self):
        self.put("layout.toml", layout_text("record = 28", FIELDS))
        for form in ["csv", "jsonl", "sqlite"]:
            for number in [signal.SIGINT, signal.SIGTERM]:
                process = self.start("decode", "layout.toml", "-", "-o", f"out.{form}",
                                     "--block", "28", "--threads", "2", stdin=subprocess.PIPE)
                process.stdin.write((b"?" + line_of(1)[1:]) * 50)
                process.stdin.flush()
                self.wait_for_temporary(process)
                time.sleep(0.05)
                self.assertTrue(any(name.endswith(".tmp") for name in self.names()))
                process.send_signal(number)
                process.stdin.close()
                self.assertEqual(process.wait(), -number)
                self.assertEqual(self.names(), ["layout.toml"])

    def test_a_closed_pipe_ends_quietly(self):
        self.put("layout.toml", layout_text("record = 28", FIELDS))
        self.put("data", (b"?" + line_of(1)[1:]) * 100_000)
        for threads in ["1", "4"]:
            process = self.start("decode", "layout.toml", "data", "--threads", threads,
                                 stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            process.stdout.read(10)
            process.stdout.close()
            self.assertEqual(process.stderr.read(), b"")
            process.stderr.close()
            self.assertEqual(process.wait(), -signal.SIGPIPE)
            self.assertEqual(self.names(), ["data", "layout.toml"])

    def test_a_full_disk(self):
        self.put("layout.toml", layout_text("record = 28", FIELDS))
        self.put("data", (b"?" + line_of(1)[1:]) * 1000)
        for arguments in [["-o", "/dev/full"], ["-o", "/dev/full", "--to", "jsonl"],
                          ["-o", "out", "--rejects", "/dev/full"],
                          ["-o", "out", "--rejected-records", "/dev/full"]]:
            self.assertEqual(self.run_tool("decode", "layout.toml", "data", *arguments)[::2],
                             (3, "iocv: cannot write '/dev/full': No space left on device\n"))
            self.assertEqual(self.names(), ["data", "layout.toml"])
        # A database that may not grow.
        result = subprocess.run(["bash", "-c", 'trap "" XFSZ; ulimit -f 16; exec "$@"', "-", PROGRAM,
                                 "decode", "layout.toml", "data", "-o", "out.db"],
                                cwd=self.folder, capture_output=True, check=False)
        self.assertEqual(result.returncode, 3)
        self.assertRegex(result.stderr, rb"^iocv: cannot write 'out[^']*': .*\n$")
        self.assertEqual(self.names(), ["data", "layout.toml"])

    def test_a_file_that_shrinks_is_told(self):
        self.put("layout.toml", layout_text("record = 28", FIELDS))
        self.put("data", line_of(1) * 200_000)
        process = self.start("decode", "layout.toml", "data", "--threads", "1",
                             stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        process.stdout.read(10)  # the rest waits for a reader
        os.truncate(self.path("data"), 2_800_000)
        _, complaints = process.communicate()
        self.assertEqual(process.returncode, 3)
        self.assertEqual(complaints, b"iocv: cannot read 'data': it ended after 2800000 of its "
                         b"5600000 bytes\n")


class Progress(Case):
    def setUp(self):
        super().setUp()
        self.put("layout.toml", layout_text("record = 28", FIELDS))
        self.put("data", line_of(1) * 3000)

    LINE = rb"[\d,]+ records?, [\d.]+ MB/s, (\d+:\d\d left, )?0 rejects"

    def test_lines_where_no_terminal_is(self):
        arguments = ["decode", "layout.toml", "-o", "out", "--block", "28000"]
        _, _, lines = self.run_tool(*arguments, "data", "--progress", "0")
        self.assertRegex(lines.encode(), rb"^(iocv: " + self.LINE + rb"\n){3}$")
        self.assertIn("iocv: 3,000 records, ", lines)
        self.assertIn(" 00:00 left, ", lines.splitlines()[2])
        _, _, lines = self.run_tool(*arguments, "-", "--progress", "0", stdin=self.get("data"))
        self.assertEqual(self.run_tool(*arguments, "data", "--progress", "0", "--quiet"),
                         (0, b"", ""))

    def test_one_line_on_a_terminal(self):
        ours, theirs = pty.openpty()
        process = self.start("decode", "layout.toml", "-", "-o", "out", "--block", "28",
                             "--threads", "1", stdin=subprocess.PIPE, stderr=theirs)
        os.close(theirs)
        process.stdin.write(line_of(1) * 10)
        process.stdin.flush()
        time.sleep(0.3)
        process.stdin.write(line_of(1) * 10)
        process.stdin.close()
        self.assertEqual(process.wait(), 0)
        shown = os.read(ours, 65536)
        os.close(ours)
        self.assertRegex(shown, rb"^(\riocv: " + self.LINE + rb"\x1b\[K)+\r\x1b\[K$")

    def test_quiet_runs_do_not_tell_of_rejects(self):
        self.put("data", b"?" * 28)
        self.assertEqual(self.run_tool("decode", "layout.toml", "data", "-o", "out", "--quiet"),
                         (1, b"", ""))


class Big(Case):
    def sparse(self, size, pieces):
        with open(self.path("data"), "wb") as file:
            file.truncate(size)
            for offset, piece in pieces.items():
                file.seek(offset)
                file.write(piece)

    def test_beyond_four_gigabytes(self):
        record = 1 << 19
        count = 8200  # 4.0 GiB and a little
        self.put("layout.toml", f"record = {record}\n[[field]]\nname = 'x'\nat = {record - 3}\n"
                 "format = 'N4'\n")
        last = count * record - 4
        good = {(i + 1) * record - 4: b"%04d" % i for i in range(count)}
        good[last] = b"oops"
        self.sparse(count * record, good)
        code, _, _ = self.run_tool("decode", "layout.toml", "data", "-o", "out")
        self.assertEqual(code, 1)
        self.assertEqual(self.get("out"), b"x\n" + b"".join(b"%d\n" % i for i in range(count - 1)) +
                         b'""\n')
        self.assertEqual([(r["record"], r["offset"], r["raw_hex"]) for r in self.rejects(
            "out.rejects.jsonl")], [(count, last, b"oops".hex().upper())])

    def test_wide_fields_and_many_fields(self):
        wide = "w" * 32767
        self.put("layout.toml", layout_text("record = 32768", {"a": "A1", "b": "A32767"}))
        self.put("data", ("1" + wide) * 20)
        self.assertEqual(self.runs("decode", "layout.toml", "data"),
                         b"a,b\n" + f"1,{wide}\n".encode() * 20)
        names = [f"f{i}" for i in range(10_000)]
        self.put("layout.toml", layout_text("record = 30000", {name: "N3" for name in names}))
        self.put("data", b"".join(b"%03d" % (i % 1000) for i in range(10_000)) * 5)
        row = ",".join(str(i % 1000) for i in range(10_000))
        for threads in ["1", "3"]:
            self.assertEqual(self.runs("decode", "layout.toml", "data", "--threads", threads),
                             (",".join(names) + "\n" + (row + "\n") * 5).encode())
        self.assertEqual(self.run_tool("decode", "layout.toml", "data", "-o", "x.db")[2],
                         "iocv: a table of the database has at most 2000 columns, the layout "
                         "10000\n")


if __name__ == "__main__":
    main()
