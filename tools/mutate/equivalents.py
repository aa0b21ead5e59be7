"""Faults that change nothing one could see, as equivalent.txt names them.

Three lines each, with a blank line between two: the file and the reason, the line as it is, the line
with the fault. `#` opens a comment.

    workbench/marking.cpp: the row was asked for its key before
    - if (row.key == 0 || row.key != keyCode) continue;
    + if (row.key == 1 || row.key != keyCode) continue;
"""


def read_equivalents(path):
    """The (file, line before, line after) of each."""
    found = {}
    place = before = None
    for number, line in enumerate(path.read_text("utf-8").splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        if line.startswith("- ") and place:
            before = " ".join(line[2:].split())
        elif line.startswith("+ ") and before is not None:
            found[(place[0], before, " ".join(line[2:].split()))] = place[1]
            place = before = None
        else:
            name, _, reason = line.partition(": ")
            if place or not reason.strip():
                raise ValueError(f"{path}:{number}: a file, its reason, then - and + are expected")
            place = (name, reason.strip())
    return found
