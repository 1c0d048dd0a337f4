#!/usr/bin/python3
"""Compares what a library exports with the list beside this script, both ways, and checks that it
imports nothing but its runtime and the platform layer.

Usage: exports.py LIBRARY PLATFORM_LIBRARY EXPORTS_FILE"""

import re
import subprocess
import sys

# Symbol versions of the C and C++ runtimes; a symbol without a version comes from elsewhere.
RUNTIME = re.compile(r"@(GLIBC|GLIBCXX|CXXABI|GCC)_")
WEAK_HOOKS = {"__cxa_finalize", "__gmon_start__", "_ITM_deregisterTMCloneTable", "_ITM_registerTMCloneTable"}


def symbols(library, *flags):
    lines = subprocess.run(["nm", "-D", *flags, library], check=True, capture_output=True, text=True)
    for line in lines.stdout.splitlines():
        kind, name = re.match(r"[0-9a-f ]{17}(\w) (.*)", line).groups()
        if kind != "A":  # the name of the symbol version itself
            yield name


SPELLINGS = {"[abi:cxx11]": "", "std::__cxx11::": "std::",
             "std::basic_string_view<char, std::char_traits<char> >": "std::string_view",
             "std::basic_string<char, std::char_traits<char>, std::allocator<char> >": "std::string",
             "std::vector<std::string, std::allocator<std::string > >": "std::vector<std::string>",
             "std::vector<std::string, std::allocator<std::string> >": "std::vector<std::string>"}


def exported(library):
    for name in symbols(library, "--defined-only", "-C"):
        name = name.split("@")[0]
        for long, short in SPELLINGS.items():
            name = name.replace(long, short)
        yield name


def main():
    library, platform, listed_in = sys.argv[1:]
    listed = {line.rstrip("\n") for line in open(listed_in, encoding="ascii")}
    found = set(exported(library))
    provided = {name.split("@")[0] for name in symbols(platform, "--defined-only")}
    foreign = {name for name in symbols(library, "--undefined-only")
               if not RUNTIME.search(name) and name.split("@")[0] not in provided | WEAK_HOOKS}
    complaints = [f"missing: {name}" for name in sorted(listed - found)]
    complaints += [f"not in the list: {name}" for name in sorted(found - listed)]
    complaints += [f"imported from elsewhere: {name}" for name in sorted(foreign)]
    print("\n".join(complaints) or f"{len(found)} exported names as listed")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
