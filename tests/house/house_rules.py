#!/usr/bin/env python3
"""Keeps the rules of the house that no compiler checks: who may include whom, and where the system begins."""
import pathlib
import re
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent.parent

# A folder may include only from itself and from the folders named here.
STORE = "app/store"
MAY_USE = {
    "ink": set(),
    "pictures": {"ink"},
    "platform": {"ink"},
    STORE: {"ink", "platform"},
    "alarms": {"ink", "platform", STORE, "res"},
    "options": {"ink", "platform", STORE, "res"},
    "search": {"platform", STORE, "res"},
    "editor": {"ink", "pictures", "platform", STORE, "alarms", "options", "res"},
    "export": {"ink", "pictures", "platform", "res"},
    "manager": {"ink", "platform", STORE, "alarms", "options", "editor", "search", "res"},
    "app": {"ink", "platform", STORE, "alarms", "editor", "manager"},
}

# The Windows port and the programs that come with it.
WINDOWS = ("platform/windows/", "platform/keeper/", "platform/mail/", "platform/output/Windows", "export/windows/")
LINUX = ("platform/qt/", "platform/output/Linux", "export/linux/")
PORTS = {"windows": WINDOWS, "keeper": WINDOWS, "mail": WINDOWS, "host": ("platform/host/",), "qt": LINUX}

# All but what would go past the contract. Names with a dot or a slash are the system's.
STANDARD_HEADERS = re.compile(r"^(?!filesystem|iostream|thread)[a-z_]+$")


def floor_of(name):
    return STORE if name.startswith(STORE + "/") else name.split("/")[0]


def problems_of(path):
    name = path.relative_to(TOP).as_posix()
    folder = floor_of(name)
    allowed = MAY_USE[folder] | {folder}
    in_system_port = name.startswith(WINDOWS + LINUX)
    for number, line in enumerate(path.read_text(encoding="utf-8").split("\n"), 1):
        own = re.match(r'\s*#\s*include\s*"([^"]+)"', line)
        if own and floor_of(own.group(1)) not in allowed:
            yield f"{name}:{number}: {folder} may not use {own.group(1)}"
        system = re.match(r"\s*#\s*include\s*<([^>]+)>", line)
        if system and not in_system_port and not STANDARD_HEADERS.match(system.group(1)):
            yield f"{name}:{number}: <{system.group(1)}> belongs into a port to a system"
        if re.search(r"\bassert\(", line):
            yield f"{name}:{number}: ink::Require holds in releases, assert does not"
        if "_WIN32" in line and folder != "platform":
            yield f"{name}:{number}: the port is chosen by the build, not by the preprocessor"
        port = re.match(r'\s*#\s*include\s*"platform/(windows|keeper|mail|host|qt)/', line)
        if port and not name.startswith(PORTS[port.group(1)]):
            yield f"{name}:{number}: the contract is platform/*.h; a port's own headers stay in it"


def main():
    problems = []
    count = 0
    for folder in MAY_USE.keys() - {STORE}:
        for path in sorted((TOP / folder).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                count += 1
                problems += problems_of(path)
    for problem in problems:
        print(problem)
    print(f"{count} files read, {len(problems)} problems")
    return 1 if problems or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
