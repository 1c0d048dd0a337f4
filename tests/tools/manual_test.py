#!/usr/bin/python3
"""The manual pages and the shells' completions know every command, option and key, and no others.
Usage: manual_test.py PROGRAM EXAMPLES [unittest arguments]"""
import os
import re
import shutil
import subprocess
import unittest

from support import ROOT, Case, main

COMMANDS = ["write", "read", "formats", "decode", "encode", "check", "verify", "inspect", "dump"]
BASH = os.path.join(ROOT, "tools/completion/iocv.bash")
ZSH = os.path.join(ROOT, "tools/completion/_iocv")


def text_of(*path):
    with open(os.path.join(ROOT, *path), encoding="utf-8") as file:
        return file.read()


class Manual(Case):
    def options(self, command):
        text = self.runs(command, "--help").decode()
        found = re.findall(r"^  (-\w,)?(--[\w-]+)", text, re.M)
        return {long for _, long in found} | {short[:2] for short, _ in found if short}

    def complete(self, *words):
        script = f'source "{BASH}"; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _iocv; ' \
                 'printf "%s\\n" "${COMPREPLY[@]}"'
        result = subprocess.run(["bash", "-c", script, "-", "iocv", *words], capture_output=True,
                                cwd=self.folder, check=True)
        self.assertEqual(result.stderr, b"")
        return set(result.stdout.decode().split())

    def test_all_commands_are_known(self):
        listed = re.findall(r"^  (\w+)  ", self.runs("--help").decode(), re.M)
        self.assertEqual(listed, COMMANDS)
        self.assertEqual(self.complete(""), {*COMMANDS, "--help", "--version"})
        section = text_of("docs/man/iocv.1").partition(".SH COMMANDS")[2].partition(".SH")[0]
        self.assertEqual(re.findall(r"^\.TP\n\.B (\w+)$", section, re.M), COMMANDS)

    def test_all_commands_are_told_of(self):
        for page in ["README.md", "CHANGELOG.md", "docs/tool.md"]:
            for command in COMMANDS:
                self.assertRegex(text_of(page), rf"(\./run |iocv |`){command}\b", (page, command))

    def test_all_options_are_known(self):
        everything = set()
        for command in COMMANDS:
            options = self.options(command) - {"-h"}
            self.assertGreater(len(options), 0)
            everything |= options
            self.assertEqual(self.complete(command, "-"), options, command)
        page = text_of("docs/man/iocv.1").replace("\\-", "-")
        self.assertEqual(set(re.findall(r"--[\w-]+|-o\b", page)), everything | {"--version"})
        zsh = set(re.findall(r"(--[\w-]+|-o\b)", text_of("tools/completion/_iocv")))
        self.assertEqual(zsh, everything | {"--version"})

    def test_values_are_completed(self):
        self.put("ledger.toml", "")
        for words, replies in [
            (["decode", "--to", ""], {"csv", "jsonl", "sqlite"}),
            (["decode", "--to", "s"], {"sqlite"}),
            (["encode", "--from", ""], {"csv", "jsonl"}),
            (["encode", "--on-error", "s"], {"stop", "skip"}),
            (["decode", "led"], {"ledger.toml"}),
            (["decode", "--threads", ""], set()),
            (["de"], {"decode"}),
        ]:
            self.assertEqual(self.complete(*words), replies)

    def test_all_keys_of_a_layout_are_known(self):
        source = text_of("tools/layout.cpp")
        keys = {key for key in re.findall(r'^    \{"(\w+)", &LayoutReader', source, re.M)} - {"field"}
        self.assertGreater(len(keys), 15)
        page = text_of("docs/man/iocv-layout.5")
        shown = set()
        for line in re.findall(r"^\.TP\n\.BR? (.*)$", page, re.M):
            shown |= set(re.findall(r"\w+", line))
        self.assertEqual(shown, keys)

    @unittest.skipUnless(shutil.which("groff"), "needs groff")
    def test_pages_are_well_formed(self):
        for page, words in [("iocv.1", ["IOCV(1)", "--rejected-records FILE", "EXIT STATUS"]),
                            ("iocv-layout.5", ["IOCV-LAYOUT(5)", "short_lines", "[[field]]"])]:
            result = subprocess.run(["groff", "-man", "-ww", "-Tascii", "-P-cbou",
                                     os.path.join(ROOT, "docs/man", page)], capture_output=True,
                                    check=True)
            self.assertEqual(result.stderr, b"")
            for word in words:
                self.assertIn(word, result.stdout.decode())

    @unittest.skipUnless(shutil.which("zsh"), "needs zsh")
    def test_the_completion_of_zsh_is_well_formed(self):
        subprocess.run(["zsh", "-n", ZSH], check=True)


if __name__ == "__main__":
    main()
