#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Plants the errors of planted.tsv, one at a time, and asks whether the fuzz target finds each.

    scripts/fuzz --planted [TARGET...]

Each error is built in a copy of the tree (build/planted/). The target then runs on the inputs that
the repository has, which says whether every test run would notice, and from nothing, which says
whether fuzzing finds the error by itself. An input counts only if the same target without the error
passes it. Prints how long each search took and how the error showed. Fails when one is not found
from nothing within RUNS executions.
"""
import argparse
import csv
import os
import pathlib
import re
import shutil
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
COPY = ROOT / "build/planted"
BUILD = COPY / "build/fuzz"
FOUND, FINDING = COPY / "build/found", COPY / "build/finding"
RUNS = 100_000
SECONDS = 600  # for a busy machine
SEED = 1  # so that the next run searches the same way
REPORT = re.compile(r"does not hold: .*|(?:AddressSanitizer|libFuzzer): (?!CHECK)[\w-]+|"
                    r"runtime error: .*|Assertion .* failed|terminate called .*")


def rows(targets):
    with open(HERE / "planted.tsv", encoding="utf-8", newline="") as table:
        found = list(csv.DictReader(table, delimiter="\t", quoting=csv.QUOTE_NONE))
    unknown = set(targets) - {row["target"] for row in found}
    if unknown:
        sys.exit(f"planted.tsv has no row for {', '.join(sorted(unknown))}")
    return [row for row in found if not targets or row["target"] in targets]


def copy_tree():
    """Brings the copy up to date, files with the times that they have, so that little is built."""
    COPY.mkdir(parents=True, exist_ok=True)
    for path in COPY.iterdir():
        if path.is_dir() and path.name != "build":
            shutil.rmtree(path)
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            cwd=ROOT, check=True, capture_output=True, text=True).stdout
    for name in listed.split("\0"):
        if (ROOT / name).is_file():
            (COPY / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(ROOT / name, COPY / name)


def run(*command):
    done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True,
                          stderr=subprocess.STDOUT, check=False, cwd=COPY)
    if done.returncode != 0:
        sys.exit(f"{done.stdout}\n{' '.join(map(str, command))} failed")


def build(target):
    run("cmake", "--build", BUILD, "--target", target)
    return BUILD / "tests/fuzz" / target


def report(program, *arguments):
    """How the target reports an error; empty if there is none. What ends it is put into FOUND."""
    shutil.rmtree(FOUND, ignore_errors=True)
    FOUND.mkdir()
    done = subprocess.run([program, f"-artifact_prefix={FOUND}/", *arguments], errors="replace",
                          stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.PIPE, check=False)
    if done.returncode == 0:
        return ""
    shown = REPORT.search(done.stderr)
    return shown.group() if shown else f"status {done.returncode}"


def search(program, sound):
    """Runs the target from nothing. Returns whether it finds the error, and how that shows."""
    limits = os.environ["FUZZ_LIMITS"].split()  # of scripts/fuzz
    how = report(program, f"-seed={SEED}", f"-runs={RUNS}", f"-max_total_time={SECONDS}", *limits)
    inputs = list(FOUND.glob("crash-*"))
    if not inputs:
        return False, how
    inputs[0].replace(FINDING)
    without = report(sound, FINDING)
    return not without, f"{how}; without the error too: {without}" if without else how


def try_row(row, sound):
    path = COPY / row["path"]
    text = path.read_text(encoding="utf-8")
    if text.count(row["was"]) != 1:
        sys.exit(f"{row['path']} does not hold, once: {row['was']}")
    try:
        path.write_text(text.replace(row["was"], row["now"]), encoding="utf-8")
        program = build(row["target"])
        replayed = report(program, "-runs=0", ROOT / "tests/fuzz/corpus" / row["target"])
        start = time.monotonic()
        found, how = search(program, sound)
        seconds = time.monotonic() - start
    finally:
        path.write_text(text, encoding="utf-8")
    searched = f"{seconds:.1f} s" if found else "NOT FOUND"
    print(f"{row['target']:<22} {'found' if replayed else '-':<7} {searched:>10}  {row['error']}\n"
          f"{'':<42} {how}", flush=True)
    return found


def main():
    parser = argparse.ArgumentParser(prog="scripts/fuzz --planted",
                                     description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("target", nargs="*")
    chosen = rows(parser.parse_args().target)
    copy_tree()
    run("cmake", "--preset", "fuzz")
    print(f"{'target':<22} {'corpus':<7} {'searching':>10}  error, and how it shows", flush=True)
    missed = 0
    for target in dict.fromkeys(row["target"] for row in chosen):
        sound = shutil.copy(build(target), COPY / "build/sound")
        for row in chosen:
            if row["target"] == target:
                missed += not try_row(row, sound)
    print(f"{len(chosen) - missed} of {len(chosen)} found")
    sys.exit(missed > 0)


if __name__ == "__main__":
    main()
