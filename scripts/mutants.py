#!/usr/bin/env python3
"""Tells how many faults the tests see: puts them into a copy of the sources, one at a time, and runs the tests concerned.

usage: mutants.py [WORD…]     only the mutants whose line in mutants.txt has all the words

The faults are in mutants.txt beside this file. One is caught when a static assertion or a test fails, or a test hangs;
one that doesn't compile or no longer fits the sources is an error in the table.
"""
import os
import resource
import shutil
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
TABLE = ROOT / "scripts" / "mutants.txt"
TREE = ROOT / "build" / "mutants" / "tree"
BUILD = ROOT / "build" / "mutants" / "build"

LEAST_SHARE = 0.9
SECONDS_OF_A_TEST = 60
MEMORY_OF_A_TEST = 6 << 30

FOLDERS = ["codecs", "markup", "bytes", "analysis"]
KERNELS = ["memory_kernel_tests"] + [f"{folder}_kernel_tests" for folder in FOLDERS]
METHODS = ["methods_tests"] + [f"{folder}_method_tests" for folder in FOLDERS]
FAILURES = ["failures_memory_tests", "failures_services_tests"]
TESTS = {  # by folder, the quickest to tell first
    "host": ["host_bridge_tests", "host_utf_tests", "host_exceptions_tests"] + METHODS + FAILURES,
    "memory": KERNELS + METHODS + FAILURES,
    "plugin": ["plugin_tests"] + FAILURES,
    "wide": ["wide_kernel_tests"] + KERNELS + METHODS,
}


class Mutant:
    """A line of the table: `original => mutated`, with the file it is in and, of one that is known to survive, why."""

    def __init__(self, file, line):
        line, _, self.reason = (part.strip() for part in line.partition("  # "))
        self.file = file
        self.original, _, self.mutated = (part.strip() for part in line.partition(" => "))
        self.name = f"{file}: {self.original} => {self.mutated}"

    def tests(self):
        folder = self.file.split("/")[0]
        if folder not in FOLDERS:
            return TESTS[folder]
        methods = ["methods_tests", f"{folder}_method_tests", "host_bridge_tests"] + FAILURES
        return methods if self.file.endswith("_methods.cpp") else [f"{folder}_kernel_tests"] + methods


def table():
    mutants, file = [], None
    for line in TABLE.read_text().splitlines():
        if not line.strip() or line.startswith("#"):
            continue
        if line.startswith(" "):
            mutants.append(Mutant(file, line))
        else:
            file = line.strip()
    return mutants


def copy_sources():
    """Only what differs, so that the build of the copy stays as fresh as it can."""
    names = subprocess.run(["git", "ls-files"], cwd=ROOT, check=True, capture_output=True, text=True).stdout.split("\n")
    for name in filter(None, names):
        source, target = ROOT / name, TREE / name
        if not source.is_file() or (target.is_file() and target.read_bytes() == source.read_bytes()):
            continue
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(source, target)


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_OF_A_TEST, MEMORY_OF_A_TEST))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def build(*targets):
    return subprocess.run(["ninja", "-C", BUILD, *targets], capture_output=True, text=True)


def program(name):
    found = next((BUILD / "tests").glob(f"*/{name}"), None)
    return found or sys.exit(f"mutants: there is no test program {name}")


def fails(test):
    try:
        command = [program(test), "--abort-after=1"]
        return subprocess.run(command, timeout=SECONDS_OF_A_TEST, preexec_fn=limit_memory, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, cwd=BUILD).returncode != 0
    except subprocess.TimeoutExpired:
        return True


def verdict(mutant):
    """`caught by …`, `survived` or what is wrong with the table."""
    file = TREE / mutant.file
    text = file.read_text() if file.is_file() else ""
    if text.count(mutant.original) != 1:
        return f"stands {text.count(mutant.original)} times in the file"
    file.write_text(text.replace(mutant.original, mutant.mutated))
    try:
        for test in mutant.tests():
            built = build(test)
            if "static assertion failed" in built.stdout:
                return "caught by a static assertion"
            if built.returncode != 0:
                return "doesn't compile"
            if fails(test):
                return f"caught by {test}"
        return "survived"
    finally:
        file.write_text(text)


def prepare(mutants):
    copy_sources()
    configured = ["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release", "-DCMAKE_CXX_FLAGS=-w"]
    subprocess.run(configured, check=True, stdout=subprocess.DEVNULL)
    tests = sorted({test for mutant in mutants for test in mutant.tests()})
    built = build(*tests)
    if built.returncode != 0:
        sys.exit(built.stdout)
    broken = [test for test in tests if fails(test)]
    if broken:
        sys.exit(f"mutants: these fail without a mutant: {' '.join(broken)}")


def main():
    mutants = [m for m in table() if all(word in m.name for word in sys.argv[1:])]
    start = time.monotonic()
    print(f"{len(mutants)} mutants in {len({m.file for m in mutants})} files; building the tests", flush=True)
    prepare(mutants)
    counts = {"caught": 0, "survived": 0}
    wrong, surprising = [], []
    for number, mutant in enumerate(mutants, 1):
        began = time.monotonic()
        found = verdict(mutant)
        kind = found.split()[0]
        if kind not in counts:
            wrong.append(f"{mutant.name}: {found}")
        else:
            counts[kind] += 1
        if kind == "survived" and not mutant.reason:
            surprising.append(mutant.name)
        if kind == "caught" and mutant.reason:
            wrong.append(f"{mutant.name}: caught, though the table says that it cannot be")
        why = f": {mutant.reason}" if kind == "survived" and mutant.reason else ""
        print(f"[{number}/{len(mutants)}] {mutant.name}: {found}{why} ({time.monotonic() - began:.0f} s)", flush=True)
    seconds = time.monotonic() - start
    total = sum(counts.values())
    share = counts["caught"] / total if total else 0
    print(f"{counts['caught']} of {total} mutants caught, {share:.1%}, in {seconds:.0f} s")
    for name in surprising:
        print(f"survived without a reason: {name}")
    for line in wrong:
        print(f"table: {line}")
    return 1 if share < LEAST_SHARE or surprising or wrong else 0


if __name__ == "__main__":
    os.nice(19)
    sys.exit(main())
