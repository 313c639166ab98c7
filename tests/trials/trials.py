#!/usr/bin/env python3
"""Tries for a while to make the programs lose a file.

Usage: trials.py BUILD-FOLDER [ROUNDS]

The programs are killed before every call that they make on files and at any other moment, asked to
end by signals, run against full disks and disks that break, and two of them are let loose on the
same files. Behind each run every file is compared, as a whole, with what it held before and what it
is to hold afterwards, and the audio of every file is looked for by its hash. Prints a table; ends
with status 1 when anything was lost or a failure was not told.
"""
import fcntl
import itertools
import os
import pathlib
import pty
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import termios
import time

import songs
import work
from work import LONG, NO_HIDDEN, SORT, Judge, Work, badly_named, environment, songs_in, tags, well_named

STOP_SIGNALS = (signal.SIGHUP, signal.SIGINT, signal.SIGQUIT, signal.SIGTERM)
TOO_LONG = 60  # seconds: whatever is not over by then hangs


def small(_):
    return 3000


def works():
    """Everything that writes to the user's files."""
    full = songs_in("music", ("full", "bare"), 6, small)
    roomy = songs_in("music", ("roomy",), 6, small)
    bad = badly_named("in", 4, 3000)
    replaced = {**bad, **well_named("out", 4, 2000)}
    album = {**songs_in("music", ("full",), 4, small),
             "album.txt": b"".join(b"%d. Song %d\r\n" % (i, i) for i in range(4))}
    bare = songs_in("music", ("bare",), 4, small)
    sort = [*SORT, "--method"]
    replace = ["--if-exists", "replace"]
    return (
        Work("tags that do not fit", full, tags(full, LONG)),
        Work("tags in place", roomy, tags(roomy, LONG, NO_HIDDEN), in_place=True),
        Work("tags removed", roomy, tags(roomy, ("--remove", "v2"))),
        Work("trailers removed", roomy, tags(roomy, ("--remove", "v1"))),
        Work("copy", bad, [*sort, "copy", "--to", "out", *sorted(bad)]),
        Work("copy, replacing", replaced, [*sort, "copy", *replace, "--to", "out", *sorted(bad)]),
        Work("move", bad, [*sort, "move", "--to", "out", *sorted(bad)]),
        Work("move, replacing", replaced, [*sort, "move", *replace, "--to", "out", *sorted(bad)]),
        Work("rename", bad, [*sort, "rename", *sorted(bad)]),
        Work("names from text", album,
             ["scan", "--no-user-settings", "album.txt", "--in-pattern", "%track. %title.mp3",
              "--out-pattern", "%title.mp3", "--apply", "--to-files",
              *sorted(name for name in album if name.endswith(".mp3"))], by_audio=True),
        Work("list", {**bare, "all.srt": b"an old list\r\n"},
             ["list", "--if-exists", "replace", "--output", "all.srt", "music"]),
        Work("batch mode", bad, ["+rename=%title - %artist.mp3", *sorted(bad)], program="pellmore"),
    )


class Row:
    """A line of the table."""

    def __init__(self, name):
        self.name = name
        self.runs = self.struck = self.files = self.left_overs = 0
        self.faults = []

    def take(self, found, moment, struck=True):
        self.runs += 1
        self.struck += struck
        self.files += found.files
        self.left_overs += found.left_overs
        self.faults += [f"{moment}: {fault}" for fault in found.faults]


class Ground:
    """A folder of its own for every run, and what the runs need."""

    def __init__(self, build, folder):
        self.folder = folder
        self.programs = work.program_folder(build, folder / "bin")
        self.faults = os.path.realpath(f"{build}/tests/libplm_faults.so")
        self.count = itertools.count()
        self.judges = [self.judge(each) for each in works()]

    def judge(self, each):
        number = next(self.count)
        return Judge(each, self.programs / each.program, self.folder / f"reference-{number}",
                     self.folder / "home")

    def fresh(self, judge):
        """The files of the work as they are before it."""
        folder = self.folder / f"run-{next(self.count)}"
        songs.write_tree(folder, judge.before)
        return folder

    def plan(self, folder, lines):
        """The words of tests/faults/failing_calls.h."""
        words = {"under": f"{folder}/", "log": f"{folder}.log", **lines}
        text = "\n".join(f"{key}={value}" for key, value in words.items())
        return {"LD_PRELOAD": self.faults, "PLM_FAULTS": text,
                "ASAN_OPTIONS": "verify_asan_link_order=0"}

    def start(self, judge, folder, more=None, **options):
        call = [self.programs / judge.work.program, *judge.work.arguments]
        return subprocess.Popen(call, cwd=folder, env=environment(self.folder / "home", more),
                                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                stderr=subprocess.PIPE, **options)

    def run(self, judge, folder, more=None):
        """Runs the work to its end; its status, and what it said."""
        program = self.start(judge, folder, more)
        return end_of(program)

    def is_struck(self, folder):
        log = pathlib.Path(f"{folder}.log")
        struck = log.exists()
        log.unlink(missing_ok=True)
        return struck

    @staticmethod
    def clear(folder):
        shutil.rmtree(folder)


def end_of(program):
    try:
        errors = program.communicate(timeout=TOO_LONG)[1].decode(errors="replace")
    except subprocess.TimeoutExpired:
        program.kill()
        program.wait()
        raise SystemExit("a program does not come to its end") from None
    return program.returncode, errors


def look(ground, judge, folder, row, moment, struck=True):
    row.take(judge.look(folder), f"{judge.work.name}, {moment}", struck)
    ground.clear(folder)


def strike_every_call(ground, judge, row, lines, check):
    """One run for each call of the work: it is the one that is struck."""
    for at in itertools.count(1):
        folder = ground.fresh(judge)
        status, errors = ground.run(judge, folder, ground.plan(folder, {**lines, "at": at}))
        if not ground.is_struck(folder):
            ground.clear(folder)
            return
        moment = f"call {at}"
        check(judge, folder, (status, errors), moment)
        look(ground, judge, folder, row, moment)


def killed_before_every_call(ground, row, _):
    for judge in ground.judges:
        strike_every_call(ground, judge, row, {"what": "kill"}, lambda *_: None)


def killed_and_started_again(ground, row, _):
    """The work goes on where it was ended: no audio is lost by doing it twice either. (But for saves
    in place: each but the first takes ten bytes from the audio, on purpose; see the README.)"""
    def start_again(judge, folder, _, moment):
        status, errors = ground.run(judge, folder)
        if status < 0:
            row.faults.append(f"{judge.work.name}, {moment}: {status}, {errors}")

    for judge in ground.judges:
        if judge.work.in_place:
            continue
        strike_every_call(ground, judge.by_audio(), row, {"what": "kill"}, start_again)


def killed_at_any_moment(ground, row, chance):
    for judge in ground.judges:
        folder = ground.fresh(judge)
        began = time.monotonic()
        ground.run(judge, folder)
        lasts = time.monotonic() - began
        ground.clear(folder)
        for _ in range(12):
            folder = ground.fresh(judge)
            program = ground.start(judge, folder)
            after = chance.uniform(0, 1.1 * lasts)
            time.sleep(after)
            program.kill()
            status, _ = end_of(program)
            look(ground, judge, folder, row, f"{1000 * after:.1f} ms", status == -signal.SIGKILL)


def told_or_done(row):
    """Every file that is as it was is named on the error stream, where the run came to its end."""
    def check(judge, folder, result, moment):
        status, errors = result
        row.faults += [f"{judge.work.name}, {moment}: ended by signal {-status}"] * (status < 0)
        if judge.work.program != "pellmore-cli":
            return  # batch mode passes over in silence what it cannot rename; its status tells
        row.faults += [f"{judge.work.name}, {moment}: status 0 and {name} not done"
                       for name in judge.not_done(folder) if status == 0 and is_song(name)]
        row.faults += [f"{judge.work.name}, {moment}: {status}, {name} is not named"
                       for name in judge.not_done(folder)
                       if status != 0 and is_song(name) and pathlib.Path(name).name not in errors]
    return check


def is_song(name):
    return name.endswith(".mp3")


def disk_broken_from_every_call_on(ground, row, _):
    for judge in ground.judges:
        strike_every_call(ground, judge, row, {"what": "gone"}, lambda *_: None)


def disk_full_from_every_call_on(ground, row, _):
    for judge in ground.judges:
        strike_every_call(ground, judge, row, {"what": "full"}, lambda *_: None)


def tags_of_a_disk_that_breaks(ground, row, _):
    """A write error that stays (EIO, quota): every file of the batch is told."""
    judge = next(each for each in ground.judges if each.work.name == "tags that do not fit")
    for code in (5, 122):  # EIO, EDQUOT
        strike_every_call(ground, judge, row, {"what": "full", "code": code}, told_or_done(row))


def ended_by_signals(ground, row, chance):
    """Asked to end before any call: the file at hand is done, and no temporary file stays."""
    def check(judge, folder, result, moment):
        if result[0] < 0:
            row.faults.append(f"{judge.work.name}, {moment}: ended by signal {-result[0]} at once")
        row.faults += [f"{judge.work.name}, {moment}: {name} was left behind"
                       for name in songs.read_tree(folder) if songs.is_left_over(name)]

    for judge in ground.judges:
        first = chance.randrange(4)
        for at in itertools.count(1):
            folder = ground.fresh(judge)
            number = int(STOP_SIGNALS[(first + at) % 4])
            plan = ground.plan(folder, {"what": "signal", "code": number, "at": at})
            result = ground.run(judge, folder, plan)
            if not ground.is_struck(folder):
                ground.clear(folder)
                break
            check(judge, folder, result, f"signal {number} before call {at}")
            look(ground, judge, folder, row, f"signal {number} before call {at}")


def terminal_closed(ground, row, chance):
    """The terminal that the program runs at is closed in the middle of it."""
    for judge in ground.judges:
        for _ in range(6):
            folder = ground.fresh(judge)
            terminal, inside = pty.openpty()

            def take_terminal(inside=inside):
                os.setsid()
                fcntl.ioctl(inside, termios.TIOCSCTTY, 0)

            call = [ground.programs / judge.work.program, *judge.work.arguments]
            program = subprocess.Popen(call, cwd=folder, env=environment(ground.folder / "home"),
                                       stdin=inside, stdout=inside, stderr=inside,
                                       preexec_fn=take_terminal)
            os.close(inside)
            time.sleep(chance.uniform(0.005, 0.03))
            os.close(terminal)
            program.wait(TOO_LONG)
            look(ground, judge, folder, row, "terminal closed")


class Window:
    """The real window, without a screen, with a list of songs."""

    def __init__(self, ground, songs_listed, more=None):
        self.ground = ground
        self.home = ground.folder / f"window-{next(ground.count)}"
        self.home.mkdir()
        self.settings = self.home / "config/PLM/PLM.ini"
        self.settings.parent.mkdir(parents=True)
        self.settings.write_bytes(b"[Settings]\nMove=1\nmine=kept\n")
        self.program = subprocess.Popen(
            [ground.programs / "pellmore", "+list", *songs_listed],
            env=environment(self.home, more(self.home) if more else None),
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)

    def wait_until_it_takes_signals(self):
        status = pathlib.Path(f"/proc/{self.program.pid}/status")
        while self.program.poll() is None:
            caught = [line for line in status.read_text().splitlines() if line.startswith("SigCgt")]
            if caught and int(caught[0].split()[1], 16) >> (signal.SIGTERM - 1) & 1:
                return
            time.sleep(0.002)

    def settings_are_whole(self, old):
        text = self.settings.read_bytes()
        return b"mine=kept" in text and (text == old or b"OutPattern=" in text and text.endswith(b"\n"))


def window_ended_by_signals(ground, row, chance):
    judge = ground.judges[0]
    for number in STOP_SIGNALS * 3:
        folder = ground.fresh(judge)
        window = Window(ground, [folder / "music"])
        window.wait_until_it_takes_signals()
        time.sleep(chance.uniform(0, 0.3))
        window.program.send_signal(number)
        status, errors = end_of(window.program)
        moment = f"the window, signal {int(number)}"
        if status != 0:
            row.faults.append(f"{moment}: status {status}, {errors}")
        if b"OutPattern=" not in window.settings.read_bytes():
            row.faults.append(f"{moment}: the settings were not kept")
        look(ground, judge, folder, row, moment)


def window_killed_while_it_keeps_its_settings(ground, row, _):
    judge = ground.judges[0]
    old = b"[Settings]\nMove=1\nmine=kept\n"
    for at in itertools.count(1):
        folder = ground.fresh(judge)
        window = Window(ground, [folder / "music"],
                        lambda home, at=at: ground.plan(home / "config", {
                            "what": "kill", "at": at, "log": f"{home}.log"}))
        window.wait_until_it_takes_signals()
        if window.program.poll() is None:
            window.program.send_signal(signal.SIGTERM)
        status, _ = end_of(window.program)
        if not window.settings_are_whole(old):
            row.faults.append(f"the settings, call {at}: {window.settings.read_bytes()[:60]}")
        look(ground, judge, folder, row, f"the window, call {at}", status == -signal.SIGKILL)
        if status != -signal.SIGKILL:
            return


def results_of(ground, tree, calls):
    """Everything that runs over the same files one after the other, in any order, can make of
    them: for each file the contents that may stand there."""
    allowed = {name: {contents} for name, contents in tree.items()}
    for count in range(1, len(calls) + 1):
        for order in itertools.permutations(calls, count):
            folder = ground.folder / f"order-{next(ground.count)}"
            songs.write_tree(folder, tree)
            for arguments in order:
                subprocess.run([ground.programs / "pellmore-cli", *arguments], cwd=folder,
                               env=environment(ground.folder / "home"), check=True,
                               stdin=subprocess.DEVNULL, capture_output=True)
            for name, contents in songs.read_tree(folder).items():
                allowed[name].add(contents)
            ground.clear(folder)
    return allowed


def two_at_once(ground, row, chance):
    tree = songs_in("music", songs.KINDS, 30, lambda i: 20000)
    set_a = ("--set", "title=A", "--set", "comment=" + 250 * "a")
    set_b = ("--set", "artist=B", "--set", "comment=" + 400 * "b")
    for changes in ((set_a, set_b), (set_a, ("--remove", "v2")), (set_b, ("--remove", "v1")),
                    (set_a, ("--fix",))):
        calls = [tags(tree, each) for each in changes]
        allowed = results_of(ground, tree, calls)
        for _ in range(10):
            folder = ground.folder / f"run-{next(ground.count)}"
            songs.write_tree(folder, tree)
            programs = []
            for arguments in calls:
                shuffled = [each for each in arguments if each not in tree]
                names = chance.sample(sorted(tree), len(tree))
                programs.append(subprocess.Popen(
                    [ground.programs / "pellmore-cli", *shuffled, *names], cwd=folder,
                    env=environment(ground.folder / "home"), stdin=subprocess.DEVNULL,
                    stdout=subprocess.DEVNULL, stderr=subprocess.PIPE))
            for program in programs:
                end_of(program)
            pair = " and ".join(" ".join(each)[:20] for each in changes)
            row.take(found_by_two(songs.read_tree(folder), tree, allowed), pair)
            ground.clear(folder)


def found_by_two(found, tree, allowed):
    faults, left_overs = [], 0
    for name, old in tree.items():
        now = found.get(name)
        if now is None or songs.audio_of(now) != songs.audio_of(old):
            faults.append(f"{name}: {work.describe(now)}, its audio is lost")
        elif now not in allowed[name]:
            faults.append(f"{name}: {work.describe(now)}, nothing that the two can make of it")
    for name in found:
        left_overs += songs.is_left_over(name)
    return work.Found(faults, left_overs, len(tree))


def mounted_disk(kind, folder, megabytes):
    """Mounts a small disk; False where that may not be done."""
    folder.mkdir()
    if kind == "tmpfs":
        command = ["mount", "-t", "tmpfs", "-o", f"size={megabytes}m", "tmpfs", folder]
    else:
        image = folder.with_suffix(".img")
        with open(image, "wb") as file:
            file.truncate(megabytes << 20)
        if subprocess.run(["mkfs.ext4", "-q", "-F", image], capture_output=True,
                          check=False).returncode != 0:
            return False
        command = ["mount", "-o", "loop", image, folder]
    return subprocess.run(command, capture_output=True, check=False).returncode == 0


def fill(folder, free):
    """Leaves so many bytes free."""
    with open(folder / "filling", "wb") as file:
        try:
            while True:
                file.write(bytes(1 << 16))
                file.flush()
        except OSError:
            pass
        try:
            os.ftruncate(file.fileno(), max(0, os.fstat(file.fileno()).st_size - free))
        except OSError:
            pass
    os.sync()


def full_disks(kind):
    def run(ground, row, chance):
        disk = ground.folder / f"full-{kind}-{next(ground.count)}"
        tree = songs_in("music", ("full", "bare"), 6, lambda i: 200000)
        judge = ground.judge(Work(f"tags on {kind}", tree, tags(tree, LONG)))
        check = told_or_done(row)
        if not mounted_disk(kind, disk, 8):
            row.name = f"full {kind} (not mountable here)"
            return
        try:
            sizes = [0, 4096, 65536, 196608, 210000, 300000, 500000, 1000000, 2000000]
            for free in sizes + [chance.randrange(0, 1500000) for _ in range(15)]:
                folder = disk / "run"
                songs.write_tree(folder, judge.before)
                fill(disk, free)
                result = ground.run(judge, folder)
                check(judge, folder, result, f"{free} bytes free")
                found = judge.look(folder)
                if found.left_overs:
                    row.faults.append(f"{free} bytes free: a temporary file was left behind")
                row.take(found, f"{kind}, {free} bytes free", bool(result[0]))
                ground.clear(folder)
                (disk / "filling").unlink()
        finally:
            subprocess.run(["umount", disk], check=True)
    return run


TRIALS = (
    ("killed before every call", killed_before_every_call),
    ("killed and started again", killed_and_started_again),
    ("killed at any moment", killed_at_any_moment),
    ("signals before every call", ended_by_signals),
    ("terminal closed", terminal_closed),
    ("signals to the window", window_ended_by_signals),
    ("window killed at its settings", window_killed_while_it_keeps_its_settings),
    ("disk gone from every call on", disk_broken_from_every_call_on),
    ("disk full from every call on", disk_full_from_every_call_on),
    ("write errors that stay", tags_of_a_disk_that_breaks),
    ("full tmpfs", full_disks("tmpfs")),
    ("full ext4", full_disks("ext4")),
    ("two runs at once", two_at_once),
)


def print_table(rows, seconds):
    print(f"{'':32}{'runs':>7}{'struck':>8}{'files':>8}{'lost':>6}{'left over':>11}")
    for row in rows:
        print(f"{row.name:32}{row.runs:>7}{row.struck:>8}{row.files:>8}{len(row.faults):>6}"
              f"{row.left_overs:>11}")
        for fault in row.faults[:4]:
            print(f"    {fault}")
        if len(row.faults) > 4:
            print(f"    and {len(row.faults) - 4} more")
    kills = sum(row.struck for row in rows if "killed" in row.name)
    print(f"{kills} kills, {sum(row.runs for row in rows)} runs, "
          f"{sum(row.files for row in rows)} files compared in {seconds:.0f} s: "
          + ("LOST" if any(row.faults for row in rows) else "nothing was lost"))


def main():
    build = os.path.abspath(sys.argv[1])
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 1
    wanted = sys.argv[3:]
    memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    chance = random.Random()
    began = time.monotonic()
    rows = []
    with tempfile.TemporaryDirectory(prefix="plm-trials-", dir=memory) as folder:
        ground = Ground(build, pathlib.Path(folder))
        for name, trial in TRIALS:
            if wanted and name not in wanted:
                continue
            row = Row(name)
            rows.append(row)
            for _ in range(rounds):
                trial(ground, row, chance)
            print(f"{name}: done", file=sys.stderr)
    print_table(rows, time.monotonic() - began)
    return 1 if any(row.faults for row in rows) else 0


if __name__ == "__main__":
    sys.exit(main())
