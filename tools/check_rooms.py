#!/usr/bin/env python3
"""Checks the direction of the rooms on the includes of every source, and that ARCHITECTURE.md names
the rooms and files that there are. Usage: check_rooms.py ROOT

A room may include itself and the rooms listed for it; each room lists only rooms above it in the
table, so that no arrow goes both ways. Sources whose name begins with "frm" or "qt_" are the
windows' half: they alone know Qt, and nothing but the windows' half includes them. Ends with status
1 and a line per fault.
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
# A row of the table of the rooms, and any path of the project.
ROOM_ROW = re.compile(r"^\| `((?:core|app)/\w+)` \|", re.M)
NAMED_PATH = re.compile(r"`((?:core|app|tools|tests|bench|fuzz)/[\w./]*)`")


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


def rooms_of_the_tree(root):
    for top in ("core", "app"):
        for folder in sorted((root / top).iterdir()):
            if folder.is_dir() and any(s.suffix in (".h", ".cpp") for s in folder.rglob("*")):
                yield folder.relative_to(root).as_posix()


def faults_of_the_document(root):
    text = (root / "ARCHITECTURE.md").read_text(encoding="utf-8")
    named, rooms = ROOM_ROW.findall(text), list(rooms_of_the_tree(root))
    for room in named + rooms:
        if named.count(room) != 1:
            yield f"ARCHITECTURE.md: {room} has {named.count(room)} rows in the table of the rooms"
        if room not in rooms:
            yield f"ARCHITECTURE.md: there is no room {room}"
    if named != list(USES):
        yield "ARCHITECTURE.md: the rooms do not stand in the order of tools/check_rooms.py"
    for path in NAMED_PATH.findall(text):
        if not (root / path).exists():
            yield f"ARCHITECTURE.md: there is no {path}"


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    found = [*faults(root), *faults_of_the_document(root)]
    print("\n".join(dict.fromkeys(found)) if found else "every include keeps the rooms' direction")
    return 1 if found else 0


sys.exit(main())
