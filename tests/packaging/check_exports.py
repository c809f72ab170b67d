#!/usr/bin/env python3
"""Checks that a shared library shows nothing but what its headers export.

    check_exports.py NM LIBRARY HEADERS...

Prints the symbols that belong to no class, function or variable marked with an export macro in the headers below
HEADERS, and ends with 1 if there is any; with 2 if the library shows no symbol at all. The headers of a library below
count too, since who asks for the type of one of its classes holds a weak copy.
"""
import re
import subprocess
import sys
from pathlib import Path

CLASS = re.compile(r"(?:class|struct)\s+\w+_API\s+(?:\w+::)*(\w+)")
FUNCTION_OR_VARIABLE = re.compile(r"^\s*(?:\[\[\w+\]\]\s*)?\w+_API\s[^;({]*?(\w+)\s*[;({]", re.MULTILINE)
# Strong symbols and virtual tables: inline functions of the standard library and of Qt are weak.
SYMBOL = re.compile(r"^[0-9a-f]+ [TBDRV] (.+)$", re.MULTILINE)
PREFIX = re.compile(r"^((vtable|typeinfo|typeinfo name|VTT|construction vtable|guard variable) for|(non-)?virtual thunk to) ")
# Belong to no class: every object that asks for them holds a weak copy.
TYPE_OF_POINTER_OR_FUNCTION = re.compile(r"^typeinfo (name )?for .*[*)]( const&?)?$")
# The linker's own and the sanitizers'.
FOREIGN = re.compile(r"^(_init|_fini|_edata|_end|__bss_start|__odr_asan|__asan|__ubsan|__tsan|std::|Q[A-Z]|void |bool )")


def exported_names(headers):
    names = set()
    for text in headers:
        names.update(CLASS.findall(text))
        names.update(FUNCTION_OR_VARIABLE.findall(text))
    return names


def symbols(nm_output):
    for name in SYMBOL.findall(nm_output):
        if TYPE_OF_POINTER_OR_FUNCTION.match(name):
            continue
        name = PREFIX.sub("", name)
        if not FOREIGN.match(name):
            yield name


def owners(symbol):
    """The parts of a qualified name, without arguments of functions and templates."""
    bare = re.sub(r"\[abi:\w+\]", "", symbol)
    while bare != (outer := re.sub(r"<[^<>]*>", "", bare)):
        bare = outer
    return set(re.sub(r"\(.*", "", bare).split("::"))


def strays(nm_output, headers):
    exported = exported_names(headers)
    return sorted({symbol for symbol in symbols(nm_output) if not owners(symbol) & exported})


def main(nm, library, *folders):
    output = subprocess.run([nm, "--dynamic", "--demangle", "--defined-only", library], check=True, text=True,
                            capture_output=True).stdout
    if not any(symbols(output)):
        print(f"{library} shows nothing")
        return 2
    found = strays(output, [path.read_text() for folder in folders for path in Path(folder).rglob("*.h")])
    print("\n".join(found) if found else "nothing but what is exported")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
