#!/usr/bin/python3
"""iocv encode on whole files: threads, limits, signals, full disks, big rows; and the memory that
decode and encode take. Usage: encode_files_test.py PROGRAM EXAMPLES [unittest arguments]"""
import json
import os
import signal
import subprocess
import time

from support import Case, layout_text, main

FIELDS = {"id": "N6", "name": "A8", "x": "F7.2", "day": "SDATE10"}


def row_of(i):
    return {"id": str(i), "name": f'n,"{i % 10}\nx' if i % 7 == 0 else f"n{i % 100}",
            "x": str(i / 4), "day": f"{1990 + i % 50}-{i % 12 + 1:02}-{i % 28 + 1:02}"}


def quoted(text):
    return '"' + text.replace('"', '""') + '"' if set(text) & set(',"\n') else text


def csv_of(rows):
    return "".join(",".join(map(quoted, row)) + "\n"
                   for row in [list(rows[0]), *(row.values() for row in rows)])


class Threads(Case):
    def same_whatever(self, name, code, *options):
        """Records, rejects and rejected rows are the same for all threads and blocks."""
        seen = set()
        for threads in ["1", "2", "3", "8"]:
            for block in ["1", "100", "5000", "262144"]:
                result = self.run_tool("encode", "layout.toml", name, "-o", "out", "--threads",
                                       threads, "--block", block, "--rejects", "bad",
                                       "--rejected-records", "copy", *options)
                self.assertEqual(result[0], code, result)
                seen.add((result, *(self.get(file) if os.path.exists(self.path(file)) else None
                                    for file in ["out", "bad", "copy"])))
                for file in ["out", "bad", "copy"]:
                    if os.path.exists(self.path(file)):
                        os.unlink(self.path(file))
        self.assertEqual(len(seen), 1)
        return seen.pop()

    def setUp(self):
        super().setUp()
        self.put("layout.toml", layout_text("record = 31", FIELDS))
        self.rows = [row_of(i) for i in range(3000)]

    def spoil(self):
        for i in [0, 7, 700, 701, 2999]:
            self.rows[i]["id"] = "none"
        self.rows[701]["day"] = "never"
        return [1, 8, 701, 702, 702, 3000]

    def test_rows_without_fault(self):
        self.put("rows.csv", csv_of(self.rows))
        self.put("rows.jsonl", "\n \n".join(json.dumps(row) for row in self.rows))
        _, out, bad, copy = self.same_whatever("rows.csv", 0)
        self.assertEqual((len(out), bad, copy), (3000 * 31, None, None))
        self.assertEqual(out[31:62], b"000001n1      " + b"    .251991/02/02")
        self.assertEqual(self.same_whatever("rows.jsonl", 0)[1], out)

    def test_rejects_stand_in_the_order_of_the_rows(self):
        numbers = self.spoil()
        text = csv_of(self.rows)
        self.put("rows.csv", text)
        starts = [text.index("\n") + 1]
        for row in self.rows:
            starts.append(starts[-1] + len(",".join(map(quoted, row.values()))) + 1)
        for action, size in [("skip", 2995), ("blank", 3000)]:
            _, out, bad, copy = self.same_whatever("rows.csv", 1, "--on-error", action)
            self.assertEqual(len(out), size * 31)
            rejects = [json.loads(line) for line in bad.splitlines()]
            self.assertEqual([r["record"] for r in rejects], numbers)
            self.assertEqual([r["offset"] for r in rejects], [starts[n - 1] for n in numbers])
            self.assertEqual(copy.decode(), csv_of([self.rows[i] for i in [0, 7, 700, 701, 2999]]))
        self.put("rows.jsonl", "\n\n".join(map(json.dumps, self.rows)))
        _, _, bad, _ = self.same_whatever("rows.jsonl", 1)
        self.assertEqual([json.loads(line)["record"] for line in bad.splitlines()], numbers)

    def test_the_run_ends_at_the_same_row(self):
        self.spoil()
        self.put("rows.csv", csv_of(self.rows))
        for options, number, rejects in [(["--on-error", "stop"], 1, 1),
                                         (["--max-rejects", "2"], 701, 3),
                                         (["--max-rejects", "3"], 702, 5)]:
            result, out, bad, copy = self.same_whatever("rows.csv", 1, *options)
            self.assertIn(f"stopped at record {number}: ", result[2])
            self.assertEqual((out, copy, bad.count(b"\n")), (None, None, rejects))
        for threads in ["1", "8"]:
            for block in ["1", "100", "262144"]:
                _, output, _ = self.run_tool("encode", "layout.toml", "rows.csv", "--max-rejects",
                                             "2", "--on-error", "blank", "--threads", threads,
                                             "--block", block)
                self.assertEqual(len(output), 700 * 31)

    def test_names_alone_and_nothing_at_all(self):
        self.put("rows.csv", "id,name,x,day\n")
        self.assertEqual(self.same_whatever("rows.csv", 0)[1], b"")
        self.put("rows.jsonl", "\n\n")
        self.assertEqual(self.same_whatever("rows.jsonl", 0)[1], b"")


class Endings(Case):
    def setUp(self):
        super().setUp()
        self.put("layout.toml", layout_text("record = 31", FIELDS))

    def test_a_signal_removes_the_temporary_files(self):
        for number in [signal.SIGINT, signal.SIGTERM]:
            process = self.start("encode", "layout.toml", "-", "-o", "out", "--block", "30",
                                 "--threads", "2", stdin=subprocess.PIPE)
            # The reader fills its buffer before it hands rows on.
            process.stdin.write(csv_of([row_of(i) for i in range(5000)]).encode())
            process.stdin.flush()
            for _ in range(500):
                if any(name.endswith(".tmp") for name in self.names()):
                    break
                time.sleep(0.01)
            self.assertTrue(any(name.endswith(".tmp") for name in self.names()))
            process.send_signal(number)
            process.stdin.close()
            self.assertEqual(process.wait(), -number)
            self.assertEqual(self.names(), ["layout.toml"])

    def test_a_closed_pipe_ends_quietly(self):
        self.put("rows.csv", csv_of([row_of(i) for i in range(20_000)]))
        for threads in ["1", "4"]:
            process = self.start("encode", "layout.toml", "rows.csv", "--threads", threads,
                                 stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            process.stdout.read(10)
            process.stdout.close()
            self.assertEqual(process.stderr.read(), b"")
            process.stderr.close()
            self.assertEqual(process.wait(), -signal.SIGPIPE)
            self.assertEqual(self.names(), ["layout.toml", "rows.csv"])

    def test_a_full_disk(self):
        self.put("rows.csv", csv_of([{**row_of(i), "day": "never"} if i % 2 else row_of(i)
                                     for i in range(1000)]))
        for arguments in [["-o", "/dev/full"], ["-o", "out", "--rejects", "/dev/full"],
                          ["-o", "out", "--rejected-records", "/dev/full"]]:
            self.assertEqual(self.run_tool("encode", "layout.toml", "rows.csv", *arguments)[::2],
                             (3, "iocv: cannot write '/dev/full': No space left on device\n"))
            self.assertEqual(self.names(), ["layout.toml", "rows.csv"])

    def test_a_file_that_shrinks_is_told(self):
        self.put("rows.csv", csv_of([row_of(i) for i in range(100_000)]))
        size = os.path.getsize(self.path("rows.csv"))
        process = self.start("encode", "layout.toml", "rows.csv", "--threads", "1",
                             stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        process.stdout.read(10)  # the rest waits for a reader
        os.truncate(self.path("rows.csv"), size // 2)
        _, complaints = process.communicate()
        self.assertEqual(process.returncode, 3)
        self.assertEqual(complaints.decode(), "iocv: cannot read 'rows.csv': it ended after "
                         f"{size // 2} of its {size} bytes\n")


class Big(Case):
    def test_wide_fields_and_many_fields(self):
        wide = "w" * 32767
        self.put("layout.toml", layout_text("record = 32768", {"a": "A1", "b": "A32767"}))
        self.put("rows.csv", "a,b\n" + f"1,{wide}\n" * 20 + f"1,{wide}x\n")
        code, output, _ = self.run_tool("encode", "layout.toml", "rows.csv")
        self.assertEqual((code, output), (1, ("1" + wide).encode() * 20))
        self.assertEqual(self.rejects("rows.csv.rejects.jsonl")[0]["message"],
                         "the text has 32768 bytes, the field holds 32767")
        names = [f"f{i}" for i in range(10_000)]
        self.put("layout.toml", layout_text("record = 30000", {name: "N3" for name in names}))
        row = ",".join(str(i % 1000) for i in range(10_000))
        self.put("rows.csv", ",".join(names) + "\n" + (row + "\n") * 5)
        record = b"".join(b"%03d" % (i % 1000) for i in range(10_000))
        for threads in ["1", "3"]:
            self.assertEqual(self.runs("encode", "layout.toml", "rows.csv", "--threads", threads),
                             record * 5)
        self.put("data", record * 5)
        self.assertEqual(self.runs("verify", "layout.toml", "data"), b"5 records, all come back\n")
        self.assertEqual(self.runs("check", "layout.toml", "data").splitlines()[0],
                         b"150000 bytes: 5 records of 30000 bytes")


class Memory(Case):
    def most_memory(self, *arguments):
        """The largest size of a run's memory, in MB."""
        process = self.start(*arguments, stdout=subprocess.DEVNULL)
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        self.assertEqual(process.returncode, 0, arguments)
        return usage.ru_maxrss / 1024

    def test_does_not_grow_with_the_file(self):
        self.put("layout.toml", layout_text("record = 31", FIELDS))
        piece = [row_of(i) for i in range(1000)]
        self.put("few.csv", csv_of(piece * 50))
        self.put("many.csv", csv_of(piece * 700))
        for command, options, name in [
            ("encode", ["-o", "{}.dat"], "{}.csv"),
            ("decode", ["-o", "/dev/null"], "{}.dat"),
            ("decode", ["-o", "/dev/null", "--to", "jsonl"], "{}.dat"),
            ("check", [], "{}.dat"),
            ("verify", [], "{}.dat"),
        ]:
            used = [self.most_memory(command, "layout.toml", name.format(size), "--threads", "2",
                                     "--quiet", *(option.format(size) for option in options))
                    for size in ["few", "many"]]
            # The files differ by 20 MB and more.
            self.assertLess(used[1] - used[0], 8, (command, options))


if __name__ == "__main__":
    main()
