"""The keys and values of registry.tsv, and what Wine's registry files say of them."""
import os
import re

HERE = os.path.dirname(os.path.abspath(__file__))
# What the program and Wine's services change anyhow.
OWN_KEYS = re.compile(
    r"user (Software\\Scourwell|Console)(\\|$)|system System\\(CurrentControlSet|ControlSet001)\\(Control\\Class|Enum\\(DISPLAY|PCI))\\",
    re.IGNORECASE)
# What goes at the next start.
PENDING = '"PendingFileRenameOperations"=str(7):"'


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


def goes_at_next_start(keys):
    """Paths; they alternate with places, which are empty when the path shall be deleted."""
    for key, values in keys.items():
        for value in values:
            if value.startswith(PENDING):
                yield from (path.replace("\\??\\", "", 1) for path in plain(value[len(PENDING):-1]).split("\0")[0:-1:2])


def plain(text):
    """Without the escapes of Wine's files."""
    def one(match):
        return match.group(1) or ("\0" if match.group(2) else chr(int(match.group(3), 16)))
    text = re.sub(r'\\(?:([\\"\[\]])|(0)|x([0-9a-f]{1,4}))', one, text)
    return text.encode("utf-16-le", "surrogatepass").decode("utf-16-le", "replace")


def differences(before, now):
    """Pairs of key and what is wrong with it."""
    for key in sorted(before.keys() | now.keys()):
        if OWN_KEYS.match(key):
            continue
        was, has = before.get(key), now.get(key)
        if was is None or has is None:
            yield key, "the key is %s" % ("gone" if has is None else "there")
            continue
        for value in sorted(set(was) ^ set(has)):
            if not value.startswith(PENDING):
                yield key, "%s is %s" % (value, "gone" if value in was else "there")
