#!/usr/bin/env python3
"""dll_face.py OBJDUMP DLL IMPORTS: the three exports of the module, and exactly the imports that IMPORTS lists."""
import re
import subprocess
import sys

EXPORTS = ["GetModuleInterfaceInstance", "GetProductVersion", "ReleaseModuleInterfaceInstance"]


def read_imports(text):
    """DLL to the names imported from it."""
    imports, current = {}, None
    for block in text.split("\n\n"):
        for line in block.splitlines():
            library = re.match(r"\tDLL Name: (\S+)", line)
            name = re.match(r"\t[0-9a-f]+\t\s*(?:\d+|<none>)\s+([A-Za-z_?]\S*)$", line)
            if library:
                current = imports[library[1]] = []
            elif name and current is not None:
                current.append(name[1])
    return imports


def read_expected(path):
    expected = {}
    for line in open(path, encoding="utf-8"):
        if line.startswith("  "):
            expected[library].append(line.strip())
        elif line.strip() and not line.startswith("#"):
            library = line.strip()
            expected[library] = []
    return expected


def main(objdump, dll, path):
    text = subprocess.run([objdump, "-p", dll], capture_output=True, text=True, check=True).stdout
    faults = []
    # With the names, so that an export by number alone is noticed too.
    count = re.search(r"Export Address Table\s+([0-9a-f]+)", text)
    exports = re.findall(r"^\t\[ *\d+\](?: \+base\[ *\d+\] +[0-9a-f]+)? ([A-Za-z_?@]\w*)$", text, re.M)
    if exports != EXPORTS or not count or int(count[1], 16) != len(EXPORTS):
        faults.append(f"exports {exports}, {count and count[1]} in all; expected {EXPORTS}")

    found, expected = read_imports(text), read_expected(path)
    for library in sorted(found.keys() | expected.keys()):
        if library not in expected:
            faults.append(f"imports {library}, which is not expected")
        elif library not in found:
            faults.append(f"does not import {library}")
        elif expected[library] and sorted(found[library]) != sorted(expected[library]):
            faults.append(f"imports {found[library]} from {library}; expected {expected[library]}")
    print("\n".join(faults) or f"{len(exports)} exports and {len(found)} imported libraries as expected")
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
