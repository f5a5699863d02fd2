#!/usr/bin/env python3
"""Turns the benchmarks' JSON into a table, with the ratios and limits that are a goal.

Usage: table.py <bench.json>. Exits with 1 when a goal is missed or a benchmark failed.
"""

import json
import sys

# Title, the two runs, what to compare, and the greatest ratio that is fine.
RATIOS = [
    ("Load 10 MB, against the plain widget", "LoadIntoEditSurface/10", "LoadIntoPlainTextEdit/10", "real_time", 1.3),
    ("A letter in 10 MB, against 1 MB", "PressLetter/10", "PressLetter/1", "median_ms", 1.3),
    ("Enter in 10 MB, against 1 MB", "PressEnter/10", "PressEnter/1", "median_ms", 1.3),
    ("Colour 10 MB, against QScintilla", "ColorPage/10", "LexPageInScintilla/10", "real_time", 0.2),
    ("The same after an edit", "ColorEditedPage/10", "LexPageInScintilla/10", "real_time", 0.2),
    ("The caret's place in 10 MB, against 20 KB", "PlaceOfCaret/10000", "PlaceOfCaret/20", "median_ms", 1.2),
    ("A key typed in 10 MB, against 1 MB", "TypeInText/10", "TypeInText/1", "median_ms", 1.3),
    ("A key typed in a tag in 10 MB, against 1 MB", "TypeInTag/10", "TypeInTag/1", "median_ms", 1.3),
    ("A key typed in 10 MB, against one that isn't kept", "TypeInText/10", "TypeInTextUnkept/10", "median_ms", 1.1),
    ("A key typed in 10 MB, against QScintilla", "TypeInText/10", "TypeInTextInScintilla/10", "median_ms", 1),
    ("A key typed in a tag, against QScintilla", "TypeInTag/10", "TypeInTagInScintilla/10", "median_ms", 1),
    ("RTF of 5 MB to markup, against unrtf", "ImportRtf/5", "ImportRtfByUnrtf/5", "real_time", 0.2),
    ("Text of an RTF of 10 MB to markup, against 1 MB", "ConvertRich/10", "ConvertRich/1", "real_time", 12),
    ("100,000 cells into the Table Builder, against the toolkit's grid", "ReadIntoTable/100", "ReadIntoTableWidget/100",
     "real_time", 1.5),
    ("Read the XHTML type, against an XML parser", "ReadXhtmlDtd", "ParseXhtmlDtdByLibxml2", "real_time", 1),
]

# Title, the run, its figure, the unit, and the greatest value that is fine.
LIMITS = [
    ("A key typed in 10 MB", "TypeInText/10", "median_ms", "ms", 2),
    ("A key typed in a tag in 10 MB", "TypeInTag/10", "median_ms", "ms", 2),
    ("1 MB of markup pasted", "PasteMarkup", "real_time", "ms", 300),
    ("1 MB of text replaced as a whole", "ReplaceWholeText", "real_time", "ms", 300),
    ("A snapshot after typing in 1 MB", "SnapshotAfterTyping/1", "real_time", "ms", 1),
    ("A snapshot after typing in 10 MB", "SnapshotAfterTyping/10", "real_time", "ms", 1),
    ("One step back in 10 MB", "UndoOneLine/10", "real_time", "ms", 20),
    ("Full stacks of undo and redo in 10 MB", "FullHistory/10", "percent_of_heap", "% of the text", 5),
    ("Memory for the markup of an RTF of 5 MB", "ImportRtf/5", "times_of_file", "times the file", 12),
    ("100,000 cells into the Table Builder", "ReadIntoTable/100", "real_time", "ms", 1000),
    ("OK with 100,000 cells", "PressTableOk/100", "real_time", "ms", 500),
    ("A row or column of 200 by 17 more or fewer", "AddAndTakeLines", "p95_ms", "ms", 20),
    ("The reference tree with every type", "FillReferenceTree", "real_time", "ms", 150),
]


def short_name(name):
    return "/".join(part for part in name.split("/") if not part.startswith(("iterations:", "manual_time")))


def row(columns, widths):
    cells = [columns[0].ljust(widths[0])] + [cell.rjust(width) for cell, width in zip(columns[1:], widths[1:])]
    return "  ".join(cells).rstrip()


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        runs = {short_name(run["name"]): run for run in json.load(file)["benchmarks"]}
    rows = [["Benchmark", "mean", "median", "95 %"]]
    for name, run in runs.items():
        if run.get("error_occurred"):
            sys.exit(f"{name}: {run['error_message']}")
        unit = run["time_unit"]
        counters = [f"{run[key]:.3f} ms" if key in run else "" for key in ("median_ms", "p95_ms")]
        rows.append([name, f"{run['real_time']:.3f} {unit}", *counters])
        parts = [key for key in run if key.startswith("part_")]
        rows += [[f"  of it {key[5:-3]}", f"{run[key]:.3f} ms", "", ""] for key in parts]
    widths = [max(len(line[column]) for line in rows) for column in range(4)]
    print("\n".join(row(line, widths) for line in rows))
    missed = 0
    print()
    wanted = {name for _, left, right, _, _ in RATIOS for name in (left, right)} | {name for _, name, *_ in LIMITS}
    if missing := sorted(wanted - runs.keys()):
        sys.exit("There is no run of " + ", ".join(missing))
    for title, left, right, key, goal in RATIOS:
        ratio = runs[left][key] / runs[right][key]
        fine = ratio <= goal
        missed += not fine
        print(f"{title}: {ratio:.2f} (goal {goal}){'' if fine else '  MISSED'}")
    for title, name, key, unit, goal in LIMITS:
        value = runs[name][key]
        fine = value <= goal
        missed += not fine
        print(f"{title}: {value:.3f} {unit} (goal {goal}){'' if fine else '  MISSED'}")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
