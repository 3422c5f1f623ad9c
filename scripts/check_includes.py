#!/usr/bin/env python3
"""Fails where an include points upward: a folder may include what stands below it, and itself."""

import pathlib
import re
import sys

SRC = pathlib.Path(__file__).resolve().parent.parent / "src"
FLOORS = {
    "base": [],
    "platform": ["base"],
    "shared": ["base", "platform"],
    "lookup": ["base", "platform", "shared"],
    "controller": ["base", "platform", "shared"],
    "control": ["base", "platform", "shared", "lookup"],
    "keyscout.h": ["base", "platform", "shared", "control", "controller"],
    "server": ["base", "platform", "shared", "control", "controller"],
    "apps": ["base", "platform", "shared", "lookup", "control", "controller", "server"],
}
CORE = ["base", "shared", "lookup", "controller", "control"]
COMMANDS = ["check", "lookup", "pack", "play", "try"]  # siblings that know nothing of each other
# Headers of one system or of the compiler alone; the standard library's have neither slash nor dot.
SYSTEM = re.compile(r"[./]")


def room(parts, parent):
    """The sub-folder of `parent` that a file or an include lies in; None where there is none."""
    depth = len(parent)
    return parts[depth] if list(parts[:depth]) == parent and len(parts) > depth + 1 else None


def is_wrong(source, included, is_quoted):
    floor = source[0]
    if not is_quoted:
        return (floor in CORE or source[:-1] == ("platform",)) and bool(SYSTEM.search(included))
    target = pathlib.PurePosixPath(included).parts
    if target[0] not in FLOORS:
        return floor not in ("server", "apps")  # generated, or relative to the server's own folder
    if target[0] not in [floor, *FLOORS[floor]]:
        return True
    implementation = room(target, ["platform"])
    if implementation and (floor in CORE or (floor == "platform" and not room(source, ["platform"]))):
        return True
    ours, theirs = room(source, ["apps", "cli"]), room(target, ["apps", "cli"])
    return ours != theirs and theirs in COMMANDS and ours is not None and ours not in ("posix", "win32")


def main():
    include = re.compile(r'^#include ([<"])(.+)[>"]')
    wrong = 0
    for path in sorted(SRC.rglob("*.*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        source = path.relative_to(SRC).parts
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            found = include.match(line)
            if found and is_wrong(source, found[2], found[1] == '"'):
                print(f"src/{'/'.join(source)}:{number}: {found[2]} is not below this folder")
                wrong += 1
    sys.exit(1 if wrong else 0)


main()
