#!/usr/bin/env python3
"""Checks that every text of our own can be translated, and is. Usage: check_texts.py ROOT LUPDATE

Three things are looked at: the texts that are marked in the sources stand in the translations as
they are; each has its translation there; and a literal in a source that reads like a text for the
user is either marked or one of the fixed texts, which tools/fixed_texts.txt lists. The command line
of its own (app/cli) speaks English, as its options and records do. Ends with status 1 and a line
per fault.
"""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

MARKS = {"tr", "translate", "PLM_TRANSLATE", "PLM_TRANSLATE_TEXT"}
TOKEN = re.compile(
    r'//[^\n]*|/\*.*?\*/'
    r'|(?P<prefix>u8|u|U|L)?"(?P<text>(?:[^"\\\n]|\\.)*)"'
    r"|'(?:[^'\\\n]|\\.)+'"
    r'|(?P<directive>^[ \t]*\#[ \t]*(?:include|error|pragma)[^\n]*)'
    r'|(?P<name>[A-Za-z_]\w*)|(?P<sign>[(){}\[\],;])',
    re.S | re.M)
SENTENCE = re.compile(r"[A-Za-z]{2,}[,.:]? +[\"(%]?[A-Za-z0-9]")
WORD = re.compile(r"[A-Z][a-z]{2,}[ .:!]*")


def literals(source):
    """Each literal of a C++ source (adjacent ones joined), its prefix, and whether it is marked."""
    calls, last, joined = [], "", None
    for token in TOKEN.finditer(source):
        if token["text"] is not None:
            marked = any(call in MARKS for call in calls)
            text = token["text"]
            joined = (joined[0] + text, *joined[1:]) if joined else (text, token["prefix"], marked)
            continue
        if token["name"] is None and token["sign"] is None:
            continue  # a comment does not part what stands around it
        if joined:
            yield joined
            joined = None
        if token["sign"] == "(":
            calls.append(last)
        elif token["sign"] == ")" and calls:
            calls.pop()
        last = token["name"] or ""
    if joined:
        yield joined


def reads_like_a_text(text, prefix):
    plain = re.sub(r"\\[rn]", " ", text)
    return bool(SENTENCE.search(plain) or (prefix == "u" and WORD.fullmatch(plain)))


def fixed_texts(root):
    """The fixed texts of each source; None for a source that has no others."""
    fixed, path = {}, ""
    for line in (root / "tools/fixed_texts.txt").read_text(encoding="utf-8").splitlines():
        if line.startswith("    "):
            fixed[path] = (fixed[path] or set()) | {line.strip()[1:-1]}
        elif line and not line.startswith("#"):
            path = line
            fixed[path] = None
    return fixed


def texts(root):
    for top in ("core", "app"):
        for path in sorted((root / top).rglob("*")):
            name = path.relative_to(root).as_posix()
            if path.suffix not in (".h", ".cpp") or name.startswith("app/cli/"):
                continue
            for text, prefix, marked in literals(path.read_text(encoding="utf-8")):
                if not marked and reads_like_a_text(text, prefix):
                    yield name, text


def unmarked(root):
    fixed, used = fixed_texts(root), {}
    for name, text in texts(root):
        used.setdefault(name, set()).add(text)
        if name not in fixed or fixed[name] is not None and text not in fixed[name]:
            yield f'{name}: "{text}" is neither marked nor a fixed text'
    for name, listed in fixed.items():
        for text in sorted((listed or set()) - used.get(name, set())):
            yield f'tools/fixed_texts.txt: "{text}" is not in {name}'
        if name not in used:
            yield f"tools/fixed_texts.txt: {name} holds no text"


def messages(file):
    found = {}
    for context in ElementTree.parse(file).getroot().iter("context"):
        for message in context.iter("message"):
            key = (context.findtext("name"), message.findtext("source"))
            found[key] = message.find("translation").get("type")
    return found


def untranslated(root, lupdate):
    for kept in sorted((root / "app/shared/translations").glob("pellmore_*.ts")):
        with tempfile.TemporaryDirectory() as folder:
            fresh = pathlib.Path(folder) / kept.name
            shutil.copy(kept, fresh)
            subprocess.run([root / "tools/translations.sh", fresh], check=True,
                           env={"LUPDATE": lupdate, "PATH": "/usr/bin:/bin"},
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            now, before = messages(fresh), messages(kept)
        for context, text in sorted(now.keys() - before.keys()):
            yield f'{kept.name}: "{text}" ({context}) is not translated: run tools/translations.sh'
        for context, text in sorted(before.keys() - now.keys()):
            yield f'{kept.name}: "{text}" ({context}) is in no source: run tools/translations.sh'
        for (context, text), kind in before.items():
            if kind is not None:
                yield f'{kept.name}: "{text}" ({context}) is {kind}'


def main():
    root, lupdate = pathlib.Path(sys.argv[1]).resolve(), sys.argv[2]
    found = [*unmarked(root), *untranslated(root, lupdate)]
    print("\n".join(found) if found else "every text of our own is marked and translated")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
