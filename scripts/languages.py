#!/usr/bin/env python3
"""Runs the examples of other languages in the pages that are given, and compares what they print.

An example is a fenced block of "php", "python" or "js". Behind it stands what it prints, in lines that begin with the
language's mark, "//> " or "#> ". Each is run by an interpreter of its own, and may print nothing to standard error.
"""
import collections
import concurrent.futures
import os
import re
import subprocess
import sys

Language = collections.namedtuple("Language", "mark command")
LANGUAGES = {
    "php": Language("//>", ["php", "-d", "display_errors=stderr", "-d", "error_reporting=-1", "-r"]),
    "python": Language("#>", ["python3", "-c"]),
    "js": Language("//>", ["node", "-e"]),
}
Example = collections.namedtuple("Example", "place language code expected")


def examples_in(page):
    with open(page, encoding="utf-8") as file:
        text = file.read()
    for block in re.finditer(r"^```(\w+)\n(.*?)^```$", text, re.MULTILINE | re.DOTALL):
        if block[1] not in LANGUAGES:
            continue
        mark = LANGUAGES[block[1]].mark
        lines = block[2].splitlines()
        expected = [line[len(mark) + 1 :] for line in lines if line.startswith(mark)]
        code = "\n".join(line for line in lines if not line.startswith(mark))
        number = text.count("\n", 0, block.start()) + 1
        yield Example(f"{page}:{number}", block[1], code, "\n".join(expected))


def failure_of(example):
    """What went wrong, or None."""
    if not example.expected:
        return f"{example.place}: does not say what it prints"
    command = LANGUAGES[example.language].command + [example.code]
    run = subprocess.run(command, capture_output=True, encoding="utf-8", errors="backslashreplace", timeout=60)
    printed = run.stdout.removesuffix("\n") + run.stderr
    if run.returncode == 0 and printed == example.expected:
        return None
    return f"{example.place}: expected\n{example.expected}\nbut got, with status {run.returncode}\n{printed}"


def main(pages):
    os.environ.update(LC_ALL="C.UTF-8", PYTHONIOENCODING="utf-8", NO_COLOR="1")
    examples = [example for page in pages for example in examples_in(page)]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        failures = [failure for failure in pool.map(failure_of, examples) if failure]
    for failure in failures:
        print(failure)
    counts = collections.Counter(example.language for example in examples)
    print(", ".join(f"{counts[language]} of {language}" for language in LANGUAGES), f"and {len(failures)} failed")
    return bool(failures) or any(counts[language] == 0 for language in LANGUAGES)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
