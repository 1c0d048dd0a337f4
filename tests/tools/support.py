"""Runs of the iocv program in a folder of their own, for the tests of its commands.
A test's arguments: PROGRAM EXAMPLES [unittest arguments]"""
import json
import os
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


def width_of(form):
    return int("".join(c for c in form.split(":")[-1].split(".")[0] if c.isdigit()))


def layout_text(head, fields):
    """A layout of fields that follow each other: name -> format, or (format, further keys)."""
    text, at = head + "\n", 1
    for name, field in fields.items():
        form, more = (field, "") if isinstance(field, str) else field
        text += f"[[field]]\nname = {json.dumps(name)}\nat = {at}\nformat = '{form}'\n{more}\n"
        at += width_of(form)
    return text


class Case(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def path(self, name):
        return os.path.join(self.folder, name)

    def put(self, name, content):
        with open(self.path(name), "wb") as file:
            file.write(content if isinstance(content, bytes) else content.encode())
        return self.path(name)

    def get(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def names(self):
        return sorted(os.listdir(self.folder))

    def rejects(self, name="data.rejects.jsonl"):
        return [json.loads(line) for line in self.get(name).decode().splitlines()]

    def run_tool(self, *arguments, stdin=b""):
        """One run in the folder."""
        return run(*arguments, stdin=stdin, cwd=self.folder)

    def says(self, arguments, output, code=0, **more):
        """The run prints exactly that and complains about nothing."""
        self.assertEqual(run(*arguments, **more), (code, output.encode(), ""), arguments)

    def refuses(self, arguments, complaint, code=2, **more):
        """The run prints nothing and complains so."""
        self.assertEqual(run(*arguments, **more), (code, b"", f"iocv: {complaint}\n"), arguments)

    def runs(self, *arguments, stdin=b""):
        """The output of a run that is clean and complains about nothing."""
        code, output, complaints = self.run_tool(*arguments, stdin=stdin)
        self.assertEqual((code, complaints), (0, ""), arguments)
        return output

    def start(self, *arguments, **more):
        return subprocess.Popen([PROGRAM, *arguments], cwd=self.folder, **more)


def main():
    unittest.main(module="__main__", argv=[sys.argv[0], *sys.argv[3:]])
