"""The keys and values of registry.tsv, and what Wine's registry files say of them."""
import os
import re

HERE = os.path.dirname(os.path.abspath(__file__))
# What the program and Wine's services change anyhow.
OWN_KEYS = re.compile(
    r"user Software\\Scourwell(\\|$)|system System\\(CurrentControlSet|ControlSet001)\\(Control\\Class|Enum\\(DISPLAY|PCI))\\",
    re.IGNORECASE)
# What goes at the next start stands there after a removal, and not any more once it is restored.
PENDING = '"PendingFileRenameOperations"='


class Spy:
    def __init__(self, what, views, path):
        self.what, self.twice, self.path = what, views == "two", path

    def places(self, wide):
        """Where Wine's files have it: key, and name of the value or none. `wide`: on 64-bit Windows."""
        root, _, rest = self.path.partition("\\")
        file = "user" if root == "HKEY_CURRENT_USER" else "system"
        if root == "HKEY_CLASSES_ROOT":
            rest = "Software\\Classes\\" + rest
        found = [rest]
        if wide and self.twice:
            found.append(re.sub(r"^(Software\\Classes|Software)\\", r"\1\\Wow6432Node\\", rest))
        for place in found:
            key, _, name = place.rpartition("\\")
            yield ("%s %s" % (file, place), None) if self.what == "key" else ("%s %s" % (file, key), name)


def spies():
    with open(os.path.join(HERE, "registry.tsv"), encoding="utf-8") as table:
        return [Spy(*line.rstrip("\n").split("\t")) for line in table if not line.startswith("#")]


def without_spies(keys, wide):
    """Keys and their values, less what a removal takes."""
    places = [(key.upper(), name) for spy in spies() for key, name in spy.places(wide)]
    gone = tuple(key for key, name in places if name is None)
    left = {}
    for key, values in keys.items():
        if (key.upper() + "\\").startswith(tuple(each + "\\" for each in gone)):
            continue
        names = tuple('"%s"=' % name for at, name in places if name is not None and at == key.upper())
        left[key] = [value for value in values if not value.startswith(names)]
    return left


def differences(before, now, pending):
    """Pairs of key and what is wrong with it."""
    for key in sorted(before.keys() | now.keys()):
        if OWN_KEYS.match(key):
            continue
        was, has = before.get(key), now.get(key)
        if was is None or has is None:
            yield key, "the key is %s" % ("gone" if has is None else "there")
            continue
        for value in sorted(set(was) ^ set(has)):
            if not (pending and value.startswith(PENDING)):
                yield key, "%s is %s" % (value, "gone" if value in was else "there")
