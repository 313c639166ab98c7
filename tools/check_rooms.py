#!/usr/bin/env python3
"""Checks the direction of the rooms on the includes of every source. Usage: check_rooms.py ROOT

A room may include itself and the rooms listed for it. Sources whose name begins with "frm" or "qt_"
are the windows' half; all others know no Qt. Ends with status 1 and a line per wrong include.
"""
import pathlib
import re
import sys

CORE = ["core/text", "core/platform", "core/tags", "core/names"]
MAY = {room: CORE[:i + 1] for i, room in enumerate(CORE)}
for room in ("app/main", "app/namefromtext", "app/dialogs", "app/cli"):
    MAY[room] = CORE + [room]
# The command line shows what the widget-free halves do.
MAY["app/cli"] = CORE + ["app/cli", "app/main", "app/namefromtext"]
LOGIC = {"app/main", "app/namefromtext", "app/dialogs", "app/cli"}
FORMS = {
    "app/shared": CORE + ["app/shared"],
    "app/main": CORE + ["app/main", "app/shared", "app/dialogs", "app/namefromtext"],
    "app/namefromtext": CORE + ["app/namefromtext", "app/shared"],
    "app/dialogs": CORE + ["app/dialogs", "app/shared"],
}
PROJECT_INCLUDE = re.compile(r'^\s*#\s*include\s+"((?:core|app)/[^"]+)"', re.M)
QT_INCLUDE = re.compile(r'^\s*#\s*include\s+[<"](Q[A-Z][^>"]*|ui_[^>"]*|Qt[^>"]*)[>"]', re.M)


def is_form(path):
    return path.name.startswith(("frm", "qt_"))


def faults(root):
    for top in ("core", "app"):
        for path in sorted((root / top).rglob("*")):
            if path.suffix not in (".h", ".cpp"):
                continue
            room = "/".join(path.relative_to(root).parts[:2])
            if room not in MAY and room not in FORMS:
                continue  # app/main.cpp may include everything
            form = room not in LOGIC and room not in CORE or is_form(path)
            allowed = FORMS[room] if form else MAY[room]
            text = path.read_text(encoding="utf-8")
            for include in PROJECT_INCLUDE.findall(text):
                target = "/".join(include.split("/")[:2])
                widget = target == room and not form and is_form(pathlib.PurePath(include))
                if target not in allowed or widget:
                    yield f"{path.relative_to(root)} includes {include}"
            if not form:
                for include in QT_INCLUDE.findall(text):
                    yield f"{path.relative_to(root)} includes {include}"


def main():
    found = list(faults(pathlib.Path(sys.argv[1]).resolve()))
    print("\n".join(found) if found else "every include keeps the direction of the rooms")
    return 1 if found else 0


sys.exit(main())
