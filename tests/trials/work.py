"""Pieces of work for the trials, and what may be found of their files at any moment."""
import collections
import copy
import shutil
import subprocess

import songs


# Nobody's settings, and none of the machine's language.
def environment(home, more=None):
    names = {"HOME": home, "XDG_CONFIG_HOME": f"{home}/config", "XDG_DATA_HOME": f"{home}/data",
             "XDG_RUNTIME_DIR": f"{home}/run", "LC_ALL": "C.UTF-8", "PATH": "/usr/bin:/bin",
             "QT_QPA_PLATFORM": "offscreen"}
    return {**{name: str(value) for name, value in names.items()}, **(more or {})}


class Work:
    """What stands in a folder before, and the call of a program there."""

    def __init__(self, name, tree, arguments, **more):
        self.name = name
        self.tree = tree
        self.arguments = arguments
        self.program = more.get("program", "pellmore-cli")
        self.disks = more.get("disks", ())  # folders that are disks of their own
        # The tags are written into a file that keeps its length.
        self.in_place = more.get("in_place", False)
        # There they may be half written, elsewhere they are written in several steps: a file counts
        # as whole when its audio is.
        self.by_audio = self.in_place or more.get("by_audio", False)


def tags(tree, changes, more=()):
    return ["tags", "--no-user-settings", *more, *changes, *sorted(tree)]


LONG = ("--set", "title=New title", "--set", "comment=" + 300 * "c")
NO_HIDDEN = ("--setting", "bRemHiddenID3=True")
SORT = ("sort", "--no-user-settings", "--yes", "--in-pattern", "%artist - %title.mp3",
        "--out-pattern", "%artist - %title.mp3", "--setting", "bID3=False")


def songs_in(folder, kinds, count, size):
    return {f"{folder}/{i:03}.mp3": songs.song(kinds[i % len(kinds)], i, size(i))
            for i in range(count)}


def badly_named(folder, count, size):
    return {f"{folder}/artist_{i:03}_-_song.mp3": songs.song("full", i, size) for i in range(count)}


def well_named(folder, count, size):
    return {f"{folder}/Artist {i:03} - Song.mp3": songs.song("full", 1000 + i, size)
            for i in range(count)}


Found = collections.namedtuple("Found", "faults left_overs files")


class Judge:
    """Does the work once where nothing fails, and then knows what may stand there at any moment."""

    def __init__(self, work, program, folder, home):
        self.work = work
        self.before = work.tree
        self.folder = folder
        folder.mkdir(parents=True)
        for disk in work.disks:
            (folder / disk).mkdir()
        songs.write_tree(folder, work.tree)
        done = subprocess.run([program, *work.arguments], cwd=folder, env=environment(home),
                              stdin=subprocess.DEVNULL, capture_output=True, check=False)
        if done.returncode != 0:
            raise SystemExit(f"{work.name}: {done.stderr.decode()}")
        self.after = songs.read_tree(folder)
        if self.after == self.before:
            raise SystemExit(f"{work.name}: nothing was done")
        self.target = self.find_targets()

    def by_audio(self):
        """The same work, of which only the audio of the files counts."""
        lenient = copy.copy(self)
        lenient.work = copy.copy(self.work)
        lenient.work.by_audio = True
        return lenient

    def find_targets(self):
        """Where each file is when the work is done: under its name, or where its audio is."""
        by_audio = {songs.audio_of(contents): name for name, contents in self.after.items()}
        return {name: name if name in self.after else by_audio.get(songs.audio_of(contents))
                for name, contents in self.before.items()}

    def at_home(self, folder, found):
        """As if it had been found in the judge's own folder: a list names files by their folder."""
        here = str(self.folder).encode()
        return {name: contents.replace(str(folder).encode(), here) if name.endswith(".srt") else contents
                for name, contents in found.items()}

    def is_whole(self, name, contents):
        """Whether these are the old or the new contents of that file."""
        if contents is None:
            return False
        old = self.before[name]
        if contents in (old, self.after.get(self.target[name])):
            return True
        audio = songs.audio_of(old)
        return self.work.by_audio and audio != b"" and songs.audio_of(contents) == audio

    def stands(self, name, found):
        places = {name, self.target[name]} - {None}
        return any(self.is_whole(name, found.get(place)) for place in places)

    def belongs(self, name, contents):
        """Whether something that was not there before may be there now."""
        if contents == self.after.get(name):
            return True
        return any(self.target[old] == name and self.is_whole(old, contents) for old in self.before)

    def look(self, folder, found=None):
        """Compares what stands in the folder, or `found`, with what may stand there."""
        found = self.at_home(folder, songs.read_tree(folder) if found is None else found)
        faults = [f"{name}: {describe(found.get(name))}, held {len(self.before[name])} bytes"
                  for name in self.before if not self.stands(name, found)]
        left_overs = 0
        for name, contents in found.items():
            if songs.is_left_over(name):
                left_overs += 1
            elif name not in self.before and not self.belongs(name, contents):
                faults.append(f"{name}: {describe(contents)}, is no file of the work")
        return Found(faults, left_overs, len(self.before))

    def not_done(self, folder):
        """Names of the files that are as they were."""
        found = songs.read_tree(folder)
        return [name for name, old in self.before.items()
                if found.get(name) == old and self.after.get(name) != old]


def describe(contents):
    if contents is None:
        return "gone"
    if contents.strip(b"\0") == b"":
        return f"{len(contents)} bytes of nothing"
    return f"{len(contents)} other bytes"


def program_folder(build, folder):
    """The window keeps lists in its own folder when it can: it gets one of its own."""
    folder.mkdir(parents=True)
    for name in ("pellmore", "pellmore-cli"):
        shutil.copy2(f"{build}/{name}", folder / name)
    return folder
