# SPDX-License-Identifier: MIT
"""Registry files of Windows machines that do not run, made from nested dicts.

A key is a dict of its subkeys; its entry VALUES is a list of (name, type, data), where data of the
types 1, 2 and 7 may be text, of 4 a number, and is bytes otherwise.
hive() makes a file of the NT family, creg() one of Windows 95, 98 and Me. read_hive() makes such dicts of a
file of the NT family, with data as bytes.
"""
import struct

VALUES = "@values"
NOTHING = 0xFFFFFFFF
SOME_TIME = 0x01C5000000000000
# One entry: everybody may do everything.
OPEN_TO_ALL = bytes.fromhex(
    "0100048000000000000000000000000014000000"
    "02001c000100000000021400" "3f000f00010100000000000100000000")


def subkeys_of(key):
    return [(name, below) for name, below in key.items() if name != VALUES]


def padded(number, step):
    return -number % step + number


class Hive:
    """Cells in bins of a page or more; a cell is known by its place behind the first page."""
    PAGE = 0x1000
    BIN_HEAD = 32
    NAMES_IN_LIST = 500

    def __init__(self):
        self.image = bytearray()
        self.bin_end = 0
        self.keys = 0

    def cell(self, size):
        """Room for so many bytes; returns its place."""
        whole = padded(size + 4, 8)
        left = self.bin_end - len(self.image)
        if left < whole + 8:
            self.close_bin()
            length = padded(whole + self.BIN_HEAD + 8, self.PAGE)
            start = len(self.image)
            self.image += struct.pack("<4sIIQQI", b"hbin", start, length, 0, SOME_TIME, 0)
            self.bin_end = start + length
        place = len(self.image)
        self.image += struct.pack("<i", -whole).ljust(whole, b"\0")
        return place

    def close_bin(self):
        free = self.bin_end - len(self.image)
        if free:
            self.image += struct.pack("<i", free).ljust(free, b"\0")

    def fill(self, place, content):
        self.image[place + 4:place + 4 + len(content)] = content
        return place

    def put(self, content):
        return self.fill(self.cell(len(content)), content)

    @staticmethod
    def name_of(text):
        try:
            return text.encode("latin-1"), 1
        except UnicodeEncodeError:
            return text.encode("utf-16-le", "surrogatepass"), 0

    @staticmethod
    def data_of(kind, data):
        if isinstance(data, bytes):
            return data
        if kind in (1, 2, 7):
            return (data + "\0").encode("utf-16-le")
        return struct.pack("<I", data)

    def put_value(self, name, kind, data):
        raw, narrow = self.name_of(name)
        data = self.data_of(kind, data)
        if len(data) <= 4:
            place, size = struct.unpack("<I", data.ljust(4, b"\0"))[0], len(data) | 1 << 31
        else:
            place, size = self.put(data), len(data)
        return self.put(struct.pack("<2sHIIIHH", b"vk", len(raw), size, place, kind, narrow, 0) + raw)

    def put_names(self, children):
        """The list of subkeys: one, or a list of lists."""
        lists = []
        for first in range(0, len(children), self.NAMES_IN_LIST):
            part = children[first:first + self.NAMES_IN_LIST]
            pairs = b"".join(struct.pack("<II", *pair) for pair in part)
            lists.append(self.put(struct.pack("<2sH", b"lh", len(part)) + pairs))
        if len(lists) < 2:
            return lists[0] if lists else NOTHING
        return self.put(struct.pack(f"<2sH{len(lists)}I", b"ri", len(lists), *lists))

    @staticmethod
    def hash_of(name):
        result = 0
        for letter in name.upper():
            result = (result * 37 + ord(letter)) & NOTHING
        return result

    def put_key(self, name, key, parent, security, flags=0):
        raw, narrow = self.name_of(name)
        place = self.cell(76 + len(raw))
        self.keys += 1
        if security is None:
            security = self.security = self.cell(20 + len(OPEN_TO_ALL))
        values = [self.put_value(*value) for value in key.get(VALUES, [])]
        listed = self.put(struct.pack(f"<{len(values)}I", *values)) if values else NOTHING
        below = sorted(subkeys_of(key), key=lambda entry: entry[0].upper())
        children = [(self.put_key(each, sub, place, security), self.hash_of(each))
                    for each, sub in below]
        names = self.put_names(children)
        longest = 2 * max((len(each) for each, _ in below), default=0)
        self.fill(place, struct.pack(
            "<2sHQ15IHH", b"nk", flags | (0x20 if narrow else 0), SOME_TIME, 0, parent,
            len(children), 0, names, NOTHING, len(values), listed, security, NOTHING,
            longest, 0, 0, 0, 0, len(raw), 0) + raw)
        return place

    def finished(self, tree, root_name):
        root = self.put_key(root_name, tree, 0, None, flags=0x0C)
        self.fill(self.security, struct.pack("<2sHIIII", b"sk", 0, self.security, self.security,
                                             self.keys, len(OPEN_TO_ALL)) + OPEN_TO_ALL)
        self.close_bin()
        head = bytearray(self.PAGE)
        struct.pack_into("<4sIIQ7I", head, 0, b"regf", 1, 1, SOME_TIME, 1, 3, 0, 1, root,
                         len(self.image), 1)
        total = 0
        for (word,) in struct.iter_unpack("<I", head[:508]):
            total ^= word
        struct.pack_into("<I", head, 508, {0: 1, NOTHING: NOTHING - 1}.get(total, total))
        return bytes(head) + bytes(self.image)


def hive(tree, root_name="ROOT"):
    return Hive().finished(tree, root_name)


class HiveReader:
    """Follows cells from the root; trusts the file."""

    def __init__(self, image):
        self.image = image

    def at(self, form, place, offset=0):
        return struct.unpack_from("<" + form, self.image, Hive.PAGE + place + 4 + offset)

    def bytes_at(self, place, offset, size):
        start = Hive.PAGE + place + 4 + offset
        return self.image[start:start + size]

    def name(self, place, offset, size, narrow):
        raw = self.bytes_at(place, offset, size)
        return raw.decode("latin-1") if narrow else raw.decode("utf-16-le", "surrogatepass")

    def listed(self, place):
        """The places of the subkeys of a list, which may be one of lists."""
        sign, count = self.at("2sH", place)
        if sign in (b"lf", b"lh"):
            return self.at(f"{2 * count}I", place, 4)[::2]
        places = self.at(f"{count}I", place, 4)
        return places if sign == b"li" else [key for each in places for key in self.listed(each)]

    def value(self, place):
        length, size, data, kind, narrow = self.at("HIIIH", place, 2)
        raw = struct.pack("<I", data)[:size & 7] if size >> 31 else self.bytes_at(data, 0, size)
        return self.name(place, 20, length, narrow & 1), kind, bytes(raw)

    def key(self, place):
        count, _, names, _, values, listed = self.at("6I", place, 20)
        tree = {VALUES: [self.value(each) for each in self.at(f"{values}I", listed)]} if values else {}
        for below in self.listed(names) if count else ():
            (flags,), (length,) = self.at("H", below, 2), self.at("H", below, 72)
            tree[self.name(below, 76, length, flags & 0x20)] = self.key(below)
        return tree


def read_hive(path):
    with open(path, "rb") as file:
        image = file.read()
    return HiveReader(image).key(struct.unpack_from("<I", image, 36)[0])


KEY_RECORD = struct.Struct("<6IHH")
MOST_IN_BLOCK = 200
BLOCK_LIMIT = 0xE000


def creg(tree, code_page="cp1252"):
    keys = []                       # name, values, parent, first child, next sibling

    def add(name, key, parent):
        number = len(keys)
        keys.append([name.encode(code_page), key.get(VALUES, []), parent, None, None])
        before = None
        for each, below in subkeys_of(key):
            child = add(each, below, number)
            keys[number if before is None else before][3 if before is None else 4] = child
            before = child
        return number

    add("", tree, None)

    def value(name, kind, data):
        data = data.encode(code_page) if kind == 1 else struct.pack("<I", data) if kind == 4 else data
        raw = name.encode(code_page)
        return struct.pack("<IIHH", kind, 0, len(raw), len(data)) + raw + data

    blocks, places = [[]], {}
    for number, (name, values, *_) in enumerate(keys[1:], 1):
        body = name + b"".join(value(*each) for each in values)
        size = 20 + len(body)
        if len(blocks[-1]) == MOST_IN_BLOCK or sum(map(len, blocks[-1])) + size > BLOCK_LIMIT:
            blocks.append([])
        block, entry = len(blocks) - 1, len(blocks[-1])
        places[number] = entry, block
        blocks[-1].append(struct.pack("<IHHIHHI", size, entry, block, size, len(name),
                                      len(values), 0) + body)

    data = b""
    for number, entries in enumerate(blocks):
        used = b"".join(entries)
        whole = padded(32 + len(used) + 20, 0x1000)
        free = whole - 32 - len(used)
        data += struct.pack("<4sIIHHIHHII", b"RGDB", whole, free, 8, number, len(used) + 32,
                            len(entries), len(entries), 0, 0) + used
        data += struct.pack("<IHHI", free, 0xFFFF, 0xFFFF, 0).ljust(free, b"\0")

    def place_of(number):
        return NOTHING if number is None else 32 + KEY_RECORD.size * number

    records = b""
    for number, (name, _, parent, child, sibling) in enumerate(keys):
        total = sum(byte for byte in name.upper() if byte < 0x80) if number else NOTHING
        entry, block = places.get(number, (0xFFFF, 0xFFFF))
        records += KEY_RECORD.pack(0, total, NOTHING, place_of(parent), place_of(child),
                                   place_of(sibling), entry, block)
    whole = padded(32 + len(records), 0x1000)
    index = (struct.pack("<4s7I", b"RGKN", whole, 32, len(records), 0, 0, 0, 0) + records)
    head = struct.pack("<4sHHIIHHHHII", b"CREG", 0, 1, 32 + whole, 0, len(blocks), 0, 0, 1, 0, 0)
    return head + index.ljust(whole, b"\0") + data
