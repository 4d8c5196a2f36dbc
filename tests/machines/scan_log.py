"""Reads a scan log: a text in the machine's ANSI code page, where <U+0141> stands for a character that
the code page lacks, and <U+003C>U+ for what would look like one."""
import codecs
import collections
import re


def one_byte(error):
    """Bytes that are no character count as what Windows makes of them: a control character."""
    return "".join(map(chr, error.object[error.start:error.end])), error.end


codecs.register_error("one_byte", one_byte)


def decode(data, code_page):
    text = data.decode(code_page, "one_byte")
    return re.sub(r"<U\+([0-9A-F]{4,6})>", lambda match: chr(int(match.group(1), 16)), text)


class ScanLog:
    """rows      how often each (kind, path, view) is listed; the view is "64" or ""
    removed   what came of each (kind, path)
    programs  the paths of the programs that ran"""

    def __init__(self, data, code_page):
        self.rows = collections.Counter()
        self.removed = {}
        self.programs = collections.Counter()
        key_view, value_view, key = None, None, None
        for line in decode(data, code_page).split("\r\n"):
            if match := re.match(r"( *)Path:(.*)$", line):
                self.programs[match.group(2)] += 1
            elif match := re.match(r".*? (folder|file|Cookie):([A-Za-z]:\\.*)$", line):
                self.rows[match.group(1), match.group(2), ""] += 1
            elif match := re.match(r"Registry Key Type = .*?( \(64-bit\))?:$", line):
                key_view = "64" if match.group(1) else ""
            elif match := re.match(r"Registry Key Value Type = .*?( \(64-bit\))?:$", line):
                value_view = "64" if match.group(1) else ""
            elif (match := re.match(r"\[(HKEY_.*)\]$", line)) and key_view is not None:
                self.rows["key", match.group(1), key_view] += 1
                key_view = None
            elif match and value_view is not None:
                key = match.group(1)
            elif (match := re.match(r'"(.*?)"=', line)) and key:
                self.rows["value", key + "\\" + match.group(1), value_view] += 1
                key, value_view = None, None
            elif match := re.match(r"((?:Spy|Memory) [A-Za-z ]+): (.*) - (.*?)$", line):
                self.removed[match.group(1), match.group(2)] = match.group(3)
