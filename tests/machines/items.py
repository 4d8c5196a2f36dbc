"""What is planted on the machines: reads items.tsv.

A line is: group, machine, what, path; tabs between them.
  machine  all, or the machines that have it, with commas between
  what     spy    a file that definitions name        home   a folder that they name
           in     a file right in a home              deep   what else lies below one
           near   a neighbour, which must stay        lost   one that no call of Windows reaches
           "=" behind it: the file has the same content as all others that are marked so
  path     below C:\\planted unless it begins with "C:/"; folders end in "/"
           {202E}     the character of that number
           {x:FF}     a byte that is no character
           {a*200}    that many times the same
           {to:330}   folders, until the path of the item has that many characters
"""
import os
import re

BASE = "C:/planted/"
REMOVED = ("spy", "lost", "home", "in", "deep")


class Item:
    def __init__(self, group, what, disk, is_folder):
        self.group = group
        self.common = what.endswith("=")
        self.what = what.rstrip("=")
        self.disk = disk                # bytes, from drive C: on
        self.is_folder = is_folder
        # As Windows sees it: what is no character is shown as one that says so.
        self.path = "C:\\" + disk.decode("utf-8", "replace").replace("/", "\\")

    def content(self):
        what = b"of several" if self.common else self.disk
        return b"This is the harmless stand-in " + what + b" of a Scourwell test.\r\n"

    def fits(self, code_page):
        """Whether Windows 95 to Me could name it."""
        try:
            exact = self.path.encode(code_page).decode(code_page) == self.path
        except UnicodeError:
            return False
        plain = all(part == part.rstrip(". ") and not is_device(part) for part in self.path.split("\\"))
        return exact and plain and len(self.path) < 248


def is_device(name):
    return re.fullmatch(r"(con|prn|aux|nul|(com|lpt)[1-9])(\..*)?", name, re.IGNORECASE) is not None


def units(text):
    """Characters as Windows counts them."""
    return len(text.encode("utf-16-le")) // 2


def to_bytes(text):
    """The text with its {...} carried out, except {to:}."""
    def one(match):
        number, byte, repeated, count = match.groups()
        if byte:
            return bytes([int(byte, 16)])
        return repeated.encode() * int(count) if repeated else chr(int(number, 16)).encode()
    result, at = b"", 0
    for match in re.finditer(r"\{(?:([0-9A-F]{4,5})|x:([0-9A-F]{2})|(.)\*(\d+))\}", text):
        result += text[at:match.start()].encode() + one(match)
        at = match.end()
    return result + text[at:].encode()


def lengthen(path):
    """Puts in folders of 100 characters, and a shorter one, for {to:N}."""
    match = re.search(r"\{to:(\d+)\}", path)
    if not match:
        return path
    rest = path[:match.start()] + path[match.end():]
    missing = int(match.group(1)) - units(to_bytes(rest).decode())
    names = []
    while missing > 0:
        # What is left over must be a name and its separator.
        length = missing if missing <= 100 else min(100, missing - 2)
        names.append(("far%d" % len(names)).ljust(length, "_")[:length])
        missing -= length + 1
    return path[:match.start()] + "/".join(names) + path[match.end():]


def read(file_name, machine, groups=()):
    """The items of a machine; with groups, theirs, or with "-GROUP" all but theirs; the canary always."""
    unwanted = {group[1:] for group in groups if group.startswith("-")}
    wanted = {group for group in groups if not group.startswith("-")}
    found = []
    with open(file_name, encoding="utf-8") as table:
        for number, line in enumerate(table, 1):
            line = line.rstrip("\n")
            if not line or line.startswith("#"):
                continue
            group, machines, what, path = line.split("\t")
            if what.rstrip("=") not in REMOVED + ("near",):
                raise ValueError("%s:%d: what is \"%s\"?" % (file_name, number, what))
            if machines != "all" and machine not in machines.split(","):
                continue
            if group != "canary" and (group in unwanted or wanted and group not in wanted):
                continue
            full = lengthen(path if path.startswith("C:/") else BASE + path)
            disk = to_bytes(full[len("C:/"):])
            found.append(Item(group, what, disk.rstrip(b"/"), full.endswith("/")))
    return found


def spelling(path):
    """What two spellings of one path have in common: ASCII letters in another case are the same."""
    return re.sub("[a-z]", lambda letter: letter.group().upper(), path)

