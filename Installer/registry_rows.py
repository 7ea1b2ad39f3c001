"""What a COM server registers, as its registry-rows program prints it."""

from typing import NamedTuple


class Row(NamedTuple):
    """One text value below Software\\Classes; an empty name is the key's default value."""

    key: str
    name: str
    text: str

    def below(self, root):
        return self.key.startswith(root + "\\")


def read_rows(path):
    with open(path, encoding="utf-8", newline="\n") as lines:
        return [Row(*line.rstrip("\r\n").split("\t")) for line in lines]
