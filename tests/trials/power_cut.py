#!/usr/bin/env python3
"""Cuts the power while pellmore-cli works, on real file systems.

Usage: power_cut.py PELLMORE-CLI [quick|full] [ROUNDS]

Each piece of work runs on small disks of its own, which are files behind loop devices. At many
moments, while it runs and up to 35 seconds behind its end, those files are copied as they stand.
Nothing is flushed for that: what the system still holds in memory is not in them, as it is not on a
disk whose power is cut. Before some moments another program waits for a file of its own. Each copy
is mounted again, which replays its journal, and every file on it is compared with what it held
before and what it is to hold afterwards.

Needs root. Ends with status 1 when a file is neither the one nor the other.
"""
import os
import pathlib
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time

import songs
from work import LONG, NO_HIDDEN, SORT, Judge, Work, badly_named, environment, songs_in, tags, well_named

MEGABYTE = 1 << 20
NEIGHBOUR = "neighbour"

# Seconds behind the end of the work. ext4 writes its journal every 5 seconds, the system begins to
# write contents after 5 and is through with it after 35.
MOMENTS = {
    "quick": (0, 0.5, 2, 4.5, 6, 8),
    "full": (0, 0.1, 0.5, 1, 2, 3, 4, 5, 6, 7, 8, 10, 12, 15, 18, 21, 24, 27, 30, 31, 32, 33, 34, 35),
}
# While the work runs.
MOST_DURING = {"quick": 12, "full": 60}


class FileSystem:
    """How disks of one kind are made and mounted."""

    def __init__(self, name, megabytes, make, copy_options="", forget=()):
        self.name = name
        self.megabytes = megabytes
        self.make = make
        self.copy_options = copy_options
        self.forget = forget


FILE_SYSTEMS = (
    FileSystem("ext4", 64, ("mkfs.ext4", "-q", "-F")),
    # A copy has the identity of the disk that it was made from.
    FileSystem("xfs", 320, ("mkfs.xfs", "-q", "-f"), "nouuid"),
    FileSystem("btrfs", 256, ("mkfs.btrfs", "-q", "-f"), forget=("btrfs", "device", "scan", "--forget")),
)


class Refused(Exception):
    """The machine does not make or mount such a disk."""


def call(*words):
    done = subprocess.run([str(word) for word in words], capture_output=True, text=True, check=False)
    if done.returncode != 0:
        raise Refused(f"{words[0]}: {(done.stderr or done.stdout).strip()}")
    return done.stdout.strip()


def call_patiently(*words):
    """What is busy for a moment, or used by others, is tried again for a while."""
    for _ in range(60):
        try:
            return call(*words)
        except Refused as refusal:
            failure = refusal
            time.sleep(0.25)
    raise failure


def attach(image):
    return call_patiently("losetup", "-f", "--show", image)


class Disk:
    """A file behind a loop device with a file system on it, mounted."""

    def __init__(self, system, folder, name):
        self.system = system
        self.image = folder / (name + ".img")
        self.mount_point = folder / name
        self.loop = None
        self.mounted = False

    def set_up(self):
        with open(self.image, "wb") as image:
            image.truncate(self.system.megabytes * MEGABYTE)
        call(*self.system.make, self.image)
        self.mount_point.mkdir()
        self.loop = attach(self.image)
        call("mount", "-t", self.system.name, self.loop, self.mount_point)
        self.mounted = True

    def activity(self):
        """What has been written so far, and what is being written."""
        block = pathlib.Path("/sys/block") / pathlib.Path(self.loop).name
        numbers = (block / "stat").read_text().split()
        return int(numbers[8]), numbers[4], numbers[6], numbers[11:12]

    def copy(self, to):
        """The pieces of the file that hold anything."""
        source = os.open(self.image, os.O_RDONLY)
        target = os.open(to, os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o600)
        try:
            size = os.fstat(source).st_size
            os.ftruncate(target, size)
            begin = 0
            while True:
                try:
                    begin = os.lseek(source, begin, os.SEEK_DATA)
                except OSError:
                    return  # nothing but a hole up to the end
                end = os.lseek(source, begin, os.SEEK_HOLE)
                os.lseek(target, begin, os.SEEK_SET)
                while begin < end:
                    begin += os.sendfile(target, source, begin, end - begin)
        finally:
            os.close(source)
            os.close(target)

    def take_down(self):
        if self.mounted:
            call_patiently("umount", self.mount_point)
            self.mounted = False
        if self.loop is not None:
            call("losetup", "-d", self.loop)
            self.loop = None
        self.image.unlink(missing_ok=True)


def works():
    moved = badly_named("a/in", 100, 60000)
    sources = badly_named("b/in", 100, 30000)
    sort = [*SORT, "--method"]
    lists = {**songs_in("a", ("bare",), 50, lambda i: 500), "a/all.srt": b"an old list\r\n" * 2000}
    size = lambda i: 20000 + 997 * (i % 50)
    full = songs_in("a", ("full", "bare"), 400, size)
    roomy = songs_in("a", ("roomy",), 100, size)
    return (
        Work("tags", full, tags(full, LONG), disks=("a",)),
        Work("tags in place", roomy, tags(roomy, LONG, NO_HIDDEN), disks=("a",), in_place=True),
        Work("move", moved, [*sort, "move", "--to", "b/out", *sorted(moved)], disks=("a", "b")),
        Work("replace", {**sources, **well_named("a/out", 100, 25000)},
             [*sort, "copy", "--if-exists", "replace", "--to", "a/out", *sorted(sources)],
             disks=("a", "b")),
        Work("list", lists,
             ["list", "--if-exists", "replace", "--output", "a/all.srt", "a/000.mp3", "a/001.mp3"],
             disks=("a",)),
    )


class Trial:
    """One piece of work on disks of one kind, the power cut at many moments."""

    looking = threading.Lock()  # copies have one identity and are mounted one after the other

    def __init__(self, system, judge, folder, copies):
        self.system = system
        self.judge = judge
        self.folder = folder
        self.copies = copies
        self.disks = [Disk(system, folder, name) for name in judge.work.disks]
        self.cuts = []  # (moment in words, paths of the copies)
        self.random = random.Random()
        self.unsteady = 0

    def set_up(self):
        self.folder.mkdir()
        self.copies.mkdir()
        for disk in self.disks:
            disk.set_up()
        songs.write_tree(self.folder, self.judge.before)
        os.sync()

    def take_down(self):
        for disk in self.disks:
            disk.take_down()

    def try_cut(self, moment):
        """Copies all disks. True when nothing was written to any of them meanwhile."""
        before = [disk.activity() for disk in self.disks]
        if any(activity[0] for activity in before):
            return False
        paths = [self.copies / f"{len(self.cuts):04}-{disk.image.name}" for disk in self.disks]
        for disk, path in zip(self.disks, paths):
            disk.copy(path)
        if before != [disk.activity() for disk in self.disks]:
            return False
        self.cuts.append((moment, paths))
        return True

    def flush_a_neighbour(self):
        """Another program waits for a file of its own. Names that were taken meanwhile go to the
        disk with it, contents mostly do not: what was renamed too early is seen behind this."""
        for disk in self.disks:
            neighbour = os.open(disk.mount_point / NEIGHBOUR, os.O_WRONLY | os.O_CREAT, 0o600)
            os.pwrite(neighbour, self.random.randbytes(4096), 0)
            os.fsync(neighbour)
            os.close(neighbour)

    def cut(self, moment, program=None):
        """The power is cut now. Mostly the program is held for as long as that takes."""
        if (len(self.cuts) % 3) == 2:
            self.flush_a_neighbour()
            moment += ", behind a neighbour's flush"
        if program is not None and self.random.random() < 0.25 and self.try_cut(moment):
            return
        if program is not None:
            program.send_signal(signal.SIGSTOP)
        for _ in range(500):
            if self.try_cut(moment):
                break
            time.sleep(0.002)
        else:
            self.unsteady += 1
        if program is not None:
            program.send_signal(signal.SIGCONT)

    def run(self, executable, mode):
        program = subprocess.Popen([executable, *self.judge.work.arguments], cwd=self.folder,
                                   env=environment(self.copies), stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        try:
            began = time.monotonic()
            while program.poll() is None and len(self.cuts) < MOST_DURING[mode]:
                self.cut(f"{1000 * (time.monotonic() - began):.0f} ms after the start", program)
                # Ever longer, so that they are spread over work of any length.
                time.sleep(self.random.uniform(0, 0.001 + len(self.cuts) / 2000))
            errors = program.communicate()[1].decode()
        finally:
            program.kill()  # only where something went wrong it is still there
            program.wait()
        if program.returncode != 0:
            raise SystemExit(f"{self.judge.work.name} on {self.system.name}: {errors}")
        ended = time.monotonic()
        for moment in MOMENTS[mode]:
            time.sleep(max(0.0, ended + moment - time.monotonic()))
            self.cut(f"{moment} s after the end")

    def look_at(self, paths):
        """What stands on the copies."""
        place = self.folder / "copy"
        mounted, loops = [], []
        try:
            for disk, path in zip(self.disks, paths):
                point = place / disk.mount_point.name
                point.mkdir(parents=True, exist_ok=True)
                loops.append(attach(path))
                options = ["-o", self.system.copy_options] if self.system.copy_options else []
                call("mount", "-t", self.system.name, *options, loops[-1], point)
                mounted.append(point)
            found = songs.read_tree(place)
            for disk in self.disks:
                found.pop(f"{disk.mount_point.name}/{NEIGHBOUR}", None)
            return self.judge.look(self.folder, found)
        finally:
            for point in mounted:
                call_patiently("umount", point)
            for loop in loops:
                if self.system.forget:
                    subprocess.run([*self.system.forget, loop], check=False, capture_output=True)
                call("losetup", "-d", loop)

    def look(self):
        """Faults in words, temporary files left behind, files looked at."""
        faults, left_overs, files = [], 0, 0
        for moment, paths in self.cuts:
            with Trial.looking:
                found = self.look_at(paths)
            for path in paths:
                path.unlink()
            faults += [f"{moment}: {fault}" for fault in found.faults]
            left_overs += found.left_overs
            files += found.files
        return faults, left_overs, files


def run_trial(trial, executable, mode, results):
    try:
        trial.set_up()
        trial.run(executable, mode)
        trial.take_down()
        results[trial] = trial.look()
    except BaseException as problem:  # told by whoever waits for the thread
        results[trial] = problem
    finally:
        trial.take_down()


def try_system(system, judges, folder, options):
    """Runs all work on disks of this kind at once. Returns the number of faults."""
    executable, mode = options
    trials = [Trial(system, judge, folder["fast"] / f"{system.name}-{i}",
                    folder["large"] / f"{system.name}-{i}") for i, judge in enumerate(judges)]
    results = {}
    threads = [threading.Thread(target=run_trial, args=(trial, executable, mode, results))
               for trial in trials]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    faulty = 0
    for trial in trials:
        result = results[trial]
        if isinstance(result, BaseException):
            raise result
        faults, left_overs, files = result
        faulty += len(faults)
        print(f"{system.name:6} {trial.judge.work.name:14} {len(trial.cuts):5} cuts {files:7} files "
              f"{len(faults):6} not whole {left_overs:5} left over"
              + (f"  ({trial.unsteady} moments without a pause in the writing)" if trial.unsteady else ""))
        for fault in faults[:5]:
            print(f"    {fault}")
        if len(faults) > 5:
            print(f"    and {len(faults) - 5} more")
    return faulty


def can_be_tried(system, folder):
    disk = Disk(system, folder, "probe-" + system.name)
    try:
        disk.set_up()
        return True
    except (Refused, OSError) as refusal:
        print(f"{system.name}: {refusal}", file=sys.stderr)
        return False
    finally:
        disk.take_down()


def main():
    executable = os.path.abspath(sys.argv[1])
    mode = sys.argv[2] if len(sys.argv) > 2 else "full"
    rounds = int(sys.argv[3]) if len(sys.argv) > 3 else 1
    memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    fast = pathlib.Path(tempfile.mkdtemp(prefix="plm-powercut-", dir=memory))
    large = pathlib.Path(tempfile.mkdtemp(prefix="plm-powercut-"))
    tried, refused, faulty = [], [], 0
    try:
        judges = [Judge(work, executable, fast / f"reference-{i}", fast / "home")
                  for i, work in enumerate(works())]
        for system in FILE_SYSTEMS:
            if not can_be_tried(system, fast):
                refused.append(system.name)
                continue
            for number in range(rounds):
                place = {"fast": fast / f"round-{number}", "large": large / f"round-{number}"}
                for folder in place.values():
                    folder.mkdir(exist_ok=True)
                faulty += try_system(system, judges, place, (executable, mode))
            tried.append(system.name)
    finally:
        shutil.rmtree(fast, ignore_errors=True)
        shutil.rmtree(large, ignore_errors=True)
    result = "Nothing was tried" if not tried else "Lost" if faulty else "Nothing lost"
    print(f"{result}. Tried: {', '.join(tried) or 'none'}. "
          f"Could not be mounted here: {', '.join(refused) or 'none'}.")
    return 1 if faulty or not tried else 0


if __name__ == "__main__":
    sys.exit(main())
