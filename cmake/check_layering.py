#!/usr/bin/env python3
"""Checks the direction of the #include lines in src/ and apps/.

    check_layering.py [ROOT]

Prints one line a wrong include and ends with 1 if there is any, with 2 if ROOT has no sources.
"""
import os
import re
import sys
from pathlib import Path

INCLUDE = re.compile(r'\s*#\s*include\s*[<"]([^>"]+)[>"]')
SOURCES = {".h", ".hpp", ".inl", ".cpp", ".cc"}

# Which layers the layers may include, themselves aside. Nothing includes tests and benchmarks, which are not read.
LAYERS = {
    "apps": {"datamodels", "host"},
    "datamodels": {"host"},
    "host": set(),
}

# The same for the services of the host.
SERVICES = {
    "base": set(),
    "signals": {"base"},
    "variant": {"base", "signals"},
    "undo": {"base", "signals", "variant"},
    "reflection": {"base", "signals", "variant", "undo"},
    "bridge": {"base", "signals", "variant", "undo", "reflection"},
    "asset": {"base", "signals", "variant", "undo", "reflection"},
    "registry": {"base", "signals"},
    "jobs": {"base", "signals"},
    "resources": {"base", "signals"},
    "formats": {"base"},
    "engine": {"base", "signals", "jobs", "resources", "formats"},
    "images": {"base", "signals", "registry", "jobs", "resources", "formats", "engine"},
}

# Parts of the library that work without reflected objects, also by way of what they include.
WITHOUT_REFLECTION = re.compile(
    r"src/datamodels/(proxy/|graph/|helpers/(?!qt_miltiselection_composer)|simple_tree_|composite_model)")
REFLECTION = re.compile(r"src/host/(reflection|bridge)/")

# A proxy knows its source as an item model, whatever model it is; interfaces of such are none.
PROXY = re.compile(r"src/datamodels/proxy/")
OTHER_MODEL = re.compile(r"src/datamodels/(?!proxy/|i_).*_model(_item)?\.h$")


def sources(root):
    for top in ("src", "apps"):
        for path in sorted((root / top).rglob("*")):
            if path.suffix in SOURCES:
                yield path.relative_to(root).as_posix()


def resolve(root, source, text):
    """The path from the root of what an include means, or None for a header from outside the project."""
    beside = os.path.normpath(os.path.join(os.path.dirname(source), text))
    if (root / beside).is_file():
        return beside
    first = text.split("/")[0]
    if first in ("datamodels", "host"):
        return "src/" + text
    if first in ("apps", "tests", "benchmarks"):
        return text
    return "tests/" + text if (root / "tests" / text).is_file() else None


def includes(root, source):
    """The includes of a file that stay inside the project, with the number of their line."""
    path = root / source
    if not path.is_file():
        return
    for number, line in enumerate(path.read_text(errors="replace").splitlines(), 1):
        match = INCLUDE.match(line)
        target = resolve(root, source, match.group(1)) if match else None
        if target:
            yield number, target


def layer_of(path):
    parts = path.split("/")
    return parts[1] if parts[0] == "src" else parts[0]


def service_of(path):
    parts = path.split("/")
    return parts[2] if layer_of(path) == "host" and len(parts) > 3 else None


def fault(source, target):
    """What is wrong with one include by itself, or None."""
    layer, other = layer_of(source), layer_of(target)
    if layer != other and other not in LAYERS.get(layer, set()):
        return f"{layer} may not include {other}"
    service, other = service_of(source), service_of(target)
    if service and other and service != other:
        if service not in SERVICES:
            return f"host/{service} has no place among the services"
        if other not in SERVICES[service]:
            return f"host/{service} may not include host/{other}"
    if PROXY.match(source) and OTHER_MODEL.match(target):
        return "proxy may not know another model"
    return None


def way_to_reflection(root, source):
    """The first include of a file that leads to reflection: its line, and the files on the way."""
    seen = {source}
    ways = [(number, [target]) for number, target in includes(root, source)]
    while ways:
        number, way = ways.pop(0)
        if REFLECTION.match(way[-1]):
            return number, way
        if way[-1] in seen:
            continue
        seen.add(way[-1])
        ways += [(number, way + [target]) for _, target in includes(root, way[-1])]
    return None


def violations(root):
    for source in sources(root):
        for number, target in includes(root, source):
            wrong = fault(source, target)
            if wrong:
                yield f"{source}:{number}: {wrong} ({target})"
        if WITHOUT_REFLECTION.match(source):
            found = way_to_reflection(root, source)
            if found:
                yield f"{source}:{found[0]}: this part knows nothing of reflection ({' -> '.join(found[1])})"


def main(arguments):
    root = Path(arguments[0] if arguments else Path(__file__).resolve().parent.parent)
    if not any(sources(root)):
        print(f"no sources below {root}", file=sys.stderr)
        return 2
    found = list(violations(root))
    print("\n".join(found) if found else "every include points the right way")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
