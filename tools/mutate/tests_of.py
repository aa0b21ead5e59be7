"""Which test programs are likely to see a fault in a file, the likeliest first."""

import re
from pathlib import Path

INCLUDE = re.compile(r'^#include "([^"]+)"', re.MULTILINE)

# How far from the file a test may be.
LEVELS = ("name", "header", "pictures", "room", "folder", "all")
WITH_WINDOWS = {"windows", "viewer"}


class Test:
    """A program of a file `tests/FOLDER/NAME_test.cpp`, as tests/CMakeLists.txt makes it."""

    def __init__(self, path):
        self.folder, self.name = path.parent.name, path.stem
        self.target = f"{self.folder}_{self.name}"
        self.includes = set(INCLUDE.findall(path.read_text("utf-8")))
        self.reads_sources = self.folder == "house"

    def program(self, build_folder):
        return build_folder / "tests" / self.target

    def command(self, build_folder):
        return [self.program(build_folder), "--gtest_brief=1", "--gtest_fail_fast"]


class SampleSession:
    """The session whose pictures of all windows are compared; only ctest knows how to start it."""

    folder, name, target = "tools", "sample_session", "sample_session"
    reads_sources = False

    def program(self, build_folder):
        return build_folder / "tools" / "sample_session" / self.target

    def command(self, build_folder):
        return ["ctest", "--test-dir", build_folder, "--no-tests=error", "-R", f"^{self.name}$"]


SAMPLE_SESSION = SampleSession()


def all_tests(root):
    """Every program that one can start by itself; accessibility needs a desktop around it."""
    paths = sorted((root / "tests").glob("*/*_test.cpp"))
    return [Test(path) for path in paths if path.parent.name != "accessibility"]


def is_named_after(test_name, stem, path):
    """A single word is part of many a name: it begins the test's, or comes after the room there."""
    if "_" in stem:
        return f"_{stem}_" in f"_{test_name}_"
    return test_name.startswith((f"{stem}_", f"{Path(path).parts[0]}_{stem}_"))


def tests_by_name(tests, path):
    """Those named after the file, or else after what its name starts with: a window's class may lie
    in several files. A single word of several says nothing."""
    words = Path(path).stem.split("_")
    found = [test for test in tests if is_named_after(test.name, "_".join(words), path)]
    while not found and len(words) > 2:
        words.pop()
        found = [test for test in tests if is_named_after(test.name, "_".join(words), path)]
    return found


def tests_of_room(root, tests, path):
    """Those that include a header of the file's folder, or are named after one of its files."""
    room = Path(path).parent
    stems = {each.stem for each in (root / room).glob("*.cpp")}
    return [test for test in tests
            if any(str(Path(each).parent) == str(room) for each in test.includes) or
            any(is_named_after(test.name, stem, path) for stem in stems)]


def levels_of(root, tests, path):
    """For each level the programs that it adds; a level without any is left out."""
    header = str(Path(path).with_suffix(".h"))
    groups = {
        "name": tests_by_name(tests, path),
        "header": [test for test in tests if header in test.includes],
        "room": tests_of_room(root, tests, path),
    }
    likely = [test for group in groups.values() for test in group]
    if any(test.folder in WITH_WINDOWS for test in likely):
        groups["pictures"] = [SAMPLE_SESSION]
    folders = next(({test.folder for test in group} for group in groups.values() if group), set())
    groups["folder"] = [test for test in tests if test.folder in folders]
    groups["all"] = tests
    taken, levels = set(), []
    for level in LEVELS:
        new = [test for test in groups.get(level, []) if test.target not in taken]
        taken |= {test.target for test in new}
        if new:
            levels.append((level, new))
    return levels
