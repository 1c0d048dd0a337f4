#!/usr/bin/python3
"""Compiles and runs the README's snippets. What a snippet prints must be what its comments say:
each comment beside an output statement is one line of its output.

Usage: readme.py README INCLUDE_DIR LIBRARY_DIR WORK_DIR FLAGS..."""

import os
import re
import subprocess
import sys

COMPILERS = {"cpp": (["c++", "-std=c++20"], "cpp"), "c": (["cc", "-std=c11"], "c"),
             "fortran": (["gfortran"], "f90")}
OUTPUT = re.compile(r"(?:cout|printf|print ).*?(?://|/\*|!) (.*?)(?: \*/)?$")


def main():
    readme, include, library, work, *flags = sys.argv[1:]
    os.makedirs(work, exist_ok=True)
    snippets = re.findall(r"^```(\w+)\n(.*?)^```", open(readme, encoding="utf-8").read(), re.M | re.S)
    languages = [language for language, _ in snippets]
    if sorted(languages) != ["c", "cpp", "fortran"]:
        sys.exit(f"expected one snippet each for C++, C and Fortran, found {languages}")
    for language, code in snippets:
        command, ending = COMPILERS[language]
        source = os.path.join(work, f"readme.{ending}")
        with open(source, "w", encoding="utf-8") as file:
            file.write(code)
        binary = os.path.join(work, f"readme_{language}")
        subprocess.run([*command, *flags, "-I", include, source, "-o", binary, "-L", library,
                        "-liocv", f"-Wl,-rpath,{library}"], check=True)
        output = subprocess.run([binary], check=True, capture_output=True, text=True).stdout.splitlines()
        promised = [match[1] for line in code.splitlines() if (match := OUTPUT.search(line))]
        if not promised or output != promised:
            sys.exit(f"{language}: printed {output}, the README says {promised}")
        print(f"{language}: {output}")


main()
