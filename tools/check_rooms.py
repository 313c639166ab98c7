#!/usr/bin/env python3
"""Checks the direction of the rooms on the includes of every source. Usage: check_rooms.py ROOT

A room may include itself and the rooms listed for it; each room lists only rooms above it in the
table, so that no arrow goes both ways. Sources whose name begins with "frm" or "qt_" are the
windows' half: they alone know Qt, and nothing but the windows' half includes them. Ends with status
1 and a line per wrong include.
"""
import pathlib
import re
import sys

CORE = ["core/text", "core/platform", "core/tags", "core/settings", "core/names"]
USES = {room: CORE[:floor] for floor, room in enumerate(CORE)}
USES["app/start"] = CORE
USES["app/list"] = CORE
USES["app/sort"] = CORE + ["app/list"]
USES["app/tags"] = CORE + ["app/list"]
USES["app/namefromtext"] = CORE + ["app/list", "app/sort", "app/tags"]
USES["app/dialogs"] = CORE + ["app/list", "app/sort", "app/tags"]
USES["app/cli"] = USES["app/namefromtext"] + ["app/start", "app/namefromtext"]
USES["app/shared"] = CORE
USES["app/window"] = USES["app/cli"] + ["app/dialogs"]

PROJECT_INCLUDE = re.compile(r'^\s*#\s*include\s+"((?:core|app)/[^"]+)"', re.M)
QT_INCLUDE = re.compile(r'^\s*#\s*include\s+[<"](Q[A-Z][^>"]*|ui_[^>"]*|Qt[^>"]*)[>"]', re.M)


def is_form(path):
    return pathlib.PurePath(path).name.startswith(("frm", "qt_"))


def room_of(path):
    return "/".join(pathlib.PurePath(path).parts[:2])


def wrong_includes(path, text):
    """The includes of a source that its room, or its half of the room, may not have."""
    room, form = room_of(path), is_form(path)
    allowed = USES[room] + [room] + (["app/shared"] if form else [])
    for include in PROJECT_INCLUDE.findall(text):
        if room_of(include) not in allowed or is_form(include) and not form:
            yield include
    if not form:
        yield from QT_INCLUDE.findall(text)


def faults(root):
    rooms = list(USES)
    for floor, room in enumerate(rooms):
        for used in set(USES[room]) - set(rooms[:floor]):
            yield f"{room} may include {used}, which is above it"
    for top in ("core", "app"):
        for source in sorted((root / top).rglob("*")):
            path = source.relative_to(root)
            if source.suffix not in (".h", ".cpp") or path.as_posix() == "app/main.cpp":
                continue  # the program itself may include everything
            if room_of(path) not in USES:
                yield f"{path} is in no room"
                continue
            for include in wrong_includes(path, source.read_text(encoding="utf-8")):
                yield f"{path} includes {include}"


def main():
    found = list(faults(pathlib.Path(sys.argv[1]).resolve()))
    print("\n".join(found) if found else "every include keeps the direction of the rooms")
    return 1 if found else 0


sys.exit(main())
