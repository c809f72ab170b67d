"""Lists tiles that lack one of their three images."""
import pathlib
import sys

CLASSES = ("_AM.png", "_GBMT.png", "_MAO.png")


def incomplete(folder):
    for colour in sorted(folder.glob("*_AM.png")):
        base = colour.name[: -len(CLASSES[0])]
        missing = [c for c in CLASSES[1:] if not (folder / (base + c)).exists()]
        if missing:
            yield base, missing


if __name__ == "__main__":
    found = list(incomplete(pathlib.Path(sys.argv[1])))
    for name, missing in found:
        print(name, "lacks", ", ".join(missing))
    sys.exit(1 if found else 0)
