"""Songs for the trials: small files with tags, whose audio can be told apart wherever it turns up."""
import hashlib
import random

AUDIO_BEGIN = b"\xff\xfb\x90\x64<audio "
AUDIO_END = b" audio>"
TAG_HEADER = 10


def frame(name, text):
    """An ID3v2.3 frame with a text in Latin-1."""
    content = b"\0" + text
    return name + len(content).to_bytes(4, "big") + b"\0\0" + content


def tag(frames, padding):
    """A whole ID3v2.3 tag; its size is written in four times seven bits."""
    body = frames + bytes(padding)
    size = bytes(len(body) >> shift & 0x7F for shift in (21, 14, 7, 0))
    return b"ID3\3\0\0" + size + body


def trailer(title):
    """An ID3v1 tag."""
    return b"TAG" + title[:30].ljust(30, b"\0") + bytes(94) + b"\xff"


def audio(seed, size):
    """Noise of its own for every seed, between two marks."""
    # No byte of it can begin a mark.
    noise = random.Random(seed).randbytes(size).replace(b"\xff", b"\x7f").replace(b"<", b"=")
    return AUDIO_BEGIN + noise.replace(b">", b"=") + AUDIO_END


# How a tag stands in the file, which decides how a save of it goes.
KINDS = ("full", "bare", "roomy")


def song(kind, seed, size):
    """`full` has no room for a larger tag, `bare` has no tag at all, `roomy` has room."""
    sound = audio(seed, size)
    title = b"Old title %d" % seed
    if kind == "bare":
        return sound
    padding = 2000 if kind == "roomy" else 0
    return tag(frame(b"TIT2", title) + frame(b"TPE1", b"Artist"), padding) + sound + trailer(title)


def audio_of(contents):
    """The audio in the contents of a file; empty when it is not there whole."""
    begin = contents.find(AUDIO_BEGIN)
    end = contents.find(AUDIO_END, begin)
    return b"" if begin < 0 or end < 0 else contents[begin:end + len(AUDIO_END)]


def digest(contents):
    return hashlib.sha256(contents).hexdigest()


def read_tree(folder):
    """Every file below a folder: its path from there, and its contents."""
    tree = {}
    for path in sorted(folder.rglob("*")):
        if path.is_file() and not path.is_symlink():
            tree[str(path.relative_to(folder))] = path.read_bytes()
    return tree


def write_tree(folder, tree):
    for name, contents in tree.items():
        path = folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(contents)


def is_left_over(name):
    """A temporary file of the program."""
    last = name.rsplit("/", 1)[-1]
    return (len(last) == 24 and last.startswith("plm-") and last.endswith(".tmp")
            and all(c in "0123456789abcdef" for c in last[4:-4]))
