#!/usr/bin/env python3
"""Runs clang-tidy on the sources under the given folders, several at a time.

A source that was clean is not looked at again while it, the headers of ours that it includes, its
compile command and the settings are the same; what is known is kept in BUILD/tidy.

    tidy.py BUILD [--extra-arg ARG]... -- FOLDER...
"""

import argparse
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

TIDY = "clang-tidy-14"
ROOT = pathlib.Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'^#include "(.+)"', re.MULTILINE)


def with_headers(source):
    """The source and every header of ours that it includes, however far away."""
    found, waiting = set(), [source]
    while waiting:
        path = waiting.pop()
        if path in found:
            continue
        found.add(path)
        for name in INCLUDE.findall(path.read_text(encoding="utf-8")):
            places = (folder / name for folder in (path.parent, ROOT / "src", ROOT / "src/server"))
            waiting += [place for place in places if place.is_file()][:1]
    return sorted(found)


def state_of(entry, arguments):
    digest = hashlib.sha256(repr((TIDY, entry.get("command"), arguments)).encode())
    for path in [ROOT / ".clang-tidy", *with_headers(pathlib.Path(entry["file"]))]:
        digest.update(hashlib.sha256(path.read_bytes()).digest())
    return digest.hexdigest()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--extra-arg", action="append", default=[])
    parser.add_argument("folders", nargs="+")
    options = parser.parse_args()
    arguments = [f"--extra-arg={argument}" for argument in options.extra_arg]
    clean = options.build / "tidy"
    clean.mkdir(exist_ok=True)
    wanted = tuple(f"{ROOT / folder}/" for folder in options.folders)
    entries = json.loads((options.build / "compile_commands.json").read_text())
    entries = {entry["file"]: entry for entry in entries
               if entry["file"].startswith(wanted) and entry["file"].endswith(".cpp")}
    if not entries:
        sys.exit(f"tidy: {options.build} builds nothing of {' '.join(options.folders)}")

    def run(entry):
        stamp = clean / state_of(entry, arguments)
        if stamp.exists():
            return True
        result = subprocess.run([TIDY, "--quiet", "-p", options.build, *arguments, entry["file"]],
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        if result.returncode == 0:
            stamp.touch()
            return True
        print(result.stdout or result.stderr, flush=True)
        return False

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(run, entries.values()))
    if not all(results):
        sys.exit(f"tidy: {results.count(False)} of {len(results)} sources have findings")
    print(f"tidy: {len(results)} sources are clean")


main()
