#!/usr/bin/env python3
"""Compares tables of virtual operations with the expected ones.

class_tables.py microsoft EXPECTED PROBES -- COMMAND…   COMMAND is clang with -fdump-vtable-layouts; PROBES its source,
                                                 completed with an instantiation for every class
class_tables.py gnu EXPECTED DUMP                DUMP is what GCC's -fdump-lang-class wrote
class_tables.py document EXPECTED PAGE           PAGE repeats EXPECTED between two markers; --write renews it
"""
import re
import subprocess
import sys


def simple(signature):
    """Pointers and references as the project writes them: `Test* testAt(const ItemId&)`."""
    return re.sub(r"([*&])(?=\w)", r"\1 ", re.sub(r"\s+(?=[*&])", "", signature)).strip()


def read_expected(path):
    tables, current = {}, None
    for line in open(path, encoding="utf-8"):
        line = line.rstrip()
        if not line or line.startswith("#"):
            continue
        operation = re.fullmatch(r"  (\d+) (.+)", line)
        if not operation:
            name, _, base = line.partition(" : ")
            current = tables[name] = list(tables[base]) if base else []
            continue
        if int(operation[1]) != len(current) + 1:
            sys.exit(f"{path}: place {operation[1]} of {name} is out of order")
        current.append(operation[2])
    return tables


def read_microsoft(dump):
    """The table of every Probe<Class>, as clang prints it: `  2 | bool Class::operation(arguments) [pure]`."""
    tables = {}
    for block in dump.split("\n\n"):
        lines = [re.sub(r"^\s*\d+ \| ", "", line) for line in block.splitlines()]
        if not lines or not lines[0].startswith("VFTable for"):
            continue
        probe = next((re.match(r"Probe<(.+)>::~Probe\(\)", line) for line in lines if "::~Probe()" in line), None)
        if not probe:
            continue
        table = tables[probe[1]] = []
        for line in lines[2:]:
            line = re.sub(r"( \[[^]]*\])+$", "", line)
            # The class before the operation's name says only where it was overridden last.
            line = re.sub(r"[\w:]+(<[\w:]+>)?::(?=\w+\()(?!~)", "", line.replace("std::", ""))
            table.append("destructor" if "::~" in line else simple(line))
    return tables


def read_gnu(dump):
    """The tables of every class by names alone: a destructor takes two entries and stands here once."""
    tables = {}
    for block in dump.split("\n\n"):
        heading = re.match(r"Vtable for (.+)", block.strip())
        if not heading:
            continue
        name = heading[1].replace(" ", "")
        base = 0
        for entry in re.findall(r"^\d+\s+(.+)$", block, re.M):
            entry = re.sub(r"\(int \(\*\)\(\.\.\.\)\)", "", entry)
            if re.fullmatch(r"-?\d+", entry):
                base += 1
                table = tables[name if base == 1 else f"{name}/{base}"] = []
            elif not entry.startswith("(&"):
                thunk = re.match(r".*::(_ZT\w+)", entry)
                if thunk:
                    entry = subprocess.run(["c++filt", thunk[1]], capture_output=True, text=True, check=True).stdout
                    entry = entry.partition("(")[0].replace("non-virtual thunk to ", "")
                entry = re.sub(r" \[with .*", "", entry)
                operation = "destructor" if "::~" in entry else entry.rpartition("::")[2].strip()
                if operation != "destructor" or table[-1:] != ["destructor"]:
                    table.append(operation)
    return tables


def compare(expected, found):
    faults = 0
    for name, operations in expected.items():
        if name not in found:
            print(f"{name}: the compiler printed no table")
            faults += 1
            continue
        for place in range(max(len(operations), len(found[name]))):
            wanted, there = (t[place] if place < len(t) else "nothing" for t in (operations, found[name]))
            if wanted != there:
                print(f"{name}, place {place + 1}: expected {wanted}, found {there}")
                faults += 1
    print(f"{len(expected)} classes, {sum(map(len, expected.values()))} places compared, {faults} differences")
    return faults


def check_document(expected, page, write):
    marker = re.compile(r"(<!-- class tables -->\n```\n)(.*?)(\n```\n<!-- end of class tables -->)", re.S)
    text = open(page, encoding="utf-8").read()
    tables = open(expected, encoding="utf-8").read()
    tables = tables[tables.index("# ---"):].strip()
    shown = marker.search(text)
    if not shown:
        sys.exit(f"{page}: the markers of the class tables are missing")
    if write:
        with open(page, "w", encoding="utf-8") as out:
            out.write(marker.sub(lambda found: found[1] + tables + found[3], text))
        return 0
    if shown[2] != tables:
        print(f"{page} shows other tables than {expected}; renew it with: class_tables.py document … --write")
    return shown[2] != tables


def main(mode, path, *rest):
    if mode == "microsoft":
        expected = read_expected(path)
        source = open(rest[0], encoding="utf-8").read() + "".join(f"template struct Probe<{name}>;\n" for name in expected)
        clang = subprocess.run([*rest[2:], "-x", "c++", "-"], input=source, capture_output=True, text=True)
        if clang.returncode:
            sys.exit(clang.stderr)
        return compare(expected, read_microsoft(clang.stdout))
    if mode == "gnu":
        return compare(read_expected(path), read_gnu(open(rest[0], encoding="utf-8").read()))
    if mode == "document":
        return check_document(path, rest[0], "--write" in rest)
    sys.exit(__doc__)


if __name__ == "__main__":
    sys.exit(1 if main(*sys.argv[1:]) else 0)
