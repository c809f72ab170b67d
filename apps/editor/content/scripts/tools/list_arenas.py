"""Prints every arena with its size and the number of crews."""
import pathlib
import sys
import xml.etree.ElementTree as tree

for path in sorted(pathlib.Path(sys.argv[1]).glob("[a-z]*.xml")):
    arena = tree.parse(path).getroot()
    size = arena.find("size").attrib
    crews = arena.find("crews").attrib
    print(f"{path.stem:20} {size['width']:>4} x {size['height']:<4} {crews['count']} crews")
