#!/usr/bin/env python3
"""Plants faults in the code, one at a time, and tells which of them no test sees.

    tools/mutate.sh PATH... [COUNT] [--seed N] [--tests LEVEL] [--no-texts]
    tools/mutate.sh PATH... --list

PATH is a source or a folder of sources, COUNT how many faults are tried (20). They are drawn by the
seed, and the same seed draws the same ones from the same code. Each is planted in a copy of the tree
(build/mutate) and built; what can't be built is stillborn and not counted. Then the tests run,
the likeliest first: those named after the file (name), those that include its header (header), the
sample session with its pictures (pictures), those of its room (room), those in the same folders of tests
(folder), all of them (all); --tests says where to stop. A program that the fault isn't in doesn't run. A
fault is seen when one fails, crashes or doesn't end.

The status is 0 if all were seen, 1 if some were not, 2 if the command can't be understood.
Faults that change nothing one could see are named in tools/mutate/equivalent.txt.
"""

import argparse
import fcntl
import hashlib
import os
import signal
import sys
import time
from pathlib import Path

from copied_tree import LEFT_OUT, BuildFailed, CopiedTree
from equivalents import read_equivalents
from faults import faults_of
from test_runs import TestRuns
from tests_of import LEVELS, all_tests, levels_of

ROOT = Path(__file__).resolve().parent.parent.parent
WORK = ROOT / "build" / "mutate"
NAMED_EQUIVALENT = Path(__file__).resolve().parent / "equivalent.txt"


class Planted:
    """A fault in a file: where it lies, its lines before and after."""

    def __init__(self, path, text, fault):
        self.path, self.kind = path, fault.kind
        self.line = text.count("\n", 0, fault.start) + 1
        self.text = text[:fault.start] + fault.new + text[fault.end:]
        first = text.rfind("\n", 0, fault.start) + 1
        last = text.find("\n", fault.end)
        last = len(text) if last < 0 else last
        self.before = " ".join(text[first:last].split())
        self.after = " ".join((text[first:fault.start] + fault.new + text[fault.end:last]).split())
        self.mark = f"{path}:{fault.start}:{fault.end}:{fault.new}:{fault.kind}"
        self.seen_by = None

    def place(self):
        return f"{self.path}:{self.line} ({self.kind})"

    def is_in(self, equivalents):
        return (self.path, self.before, self.after) in equivalents


def sources_at(paths):
    """The sources below the paths, as paths in the tree."""
    found = set()
    for name in paths:
        path = Path(name).resolve()
        if not path.exists() or ROOT not in [path, *path.parents]:
            sys.exit(f"mutate: there is no {name} in this tree")
        below = [path] if path.is_file() else path.rglob("*")
        found |= {each.relative_to(ROOT) for each in below if each.suffix in (".cpp", ".h")}
    return sorted(str(each) for each in found if not LEFT_OUT & set(each.parts))


def all_faults(paths, with_texts):
    found = []
    for path in paths:
        text = (ROOT / path).read_text("utf-8")
        found += [Planted(path, text, fault) for fault in faults_of(text, with_texts)]
    return found


def shuffled(faults, seed):
    """By the seed alone, whichever Python this is."""
    return sorted(faults, key=lambda each: hashlib.sha256(f"{seed}:{each.mark}".encode()).digest())


class Run:
    """The faults of one run, and what became of them."""

    def __init__(self, options, candidates):
        self.options, self.candidates = options, candidates
        self.tests = all_tests(ROOT)
        self.tree = CopiedTree(ROOT, WORK / "tree", options.jobs)
        self.runs = TestRuns(self.tree.build_folder, WORK / "tmp", options.jobs)
        self.stillborn, self.alive, self.seen = 0, [], []

    def levels(self, fault):
        far = LEVELS.index(self.options.tests)
        levels = levels_of(ROOT, self.tests, fault.path)
        # The likeliest tests run however far they are.
        return levels[:1] + [each for each in levels[1:] if LEVELS.index(each[0]) <= far]

    def everything(self):
        self.tree.renew()
        self.tree.configure()
        drawn = iter(self.candidates)
        while len(self.alive) < self.options.count:
            fault = next(drawn, None)
            if fault is None:
                break
            self.first_level(fault)
        waiting = [fault for fault in self.alive if not fault.seen_by]
        for level in LEVELS[:LEVELS.index(self.options.tests) + 1]:
            waiting = [fault for fault in waiting if not self.further_level(fault, level)]
        if self.options.tests == "all":
            waiting = self.by_ctest(waiting)
        return waiting

    def prepare(self, tests):
        """Builds and measures programs on the tree as it is."""
        new = [test for test in tests if test.target not in self.runs.seconds]
        if not new:
            return
        if not self.tree.builds([test.target for test in new]):
            raise BuildFailed(str(self.tree.log))
        for target, words in self.runs.measure(new).items():
            say(f"{target} is left out, since it fails without a fault: {words}")

    def first_level(self, fault):
        """Counts the fault if it can be built."""
        tests = self.levels(fault)[0][1]
        self.prepare(tests)
        with_fault = self.try_on(fault, tests)
        if with_fault is None:
            self.stillborn += 1
        else:
            self.alive.append(fault)

    def bury(self, fault):
        """Some program with more of the tree in it can't be built after all."""
        self.alive.remove(fault)
        self.stillborn += 1

    def further_level(self, fault, level):
        """Whether the fault is done with: seen, or stillborn."""
        for name, tests in self.levels(fault)[1:]:
            if name == level:
                self.prepare(tests)
                seen = self.try_on(fault, tests)
                if seen is None:
                    self.bury(fault)
                return seen is not False
        return False

    def try_on(self, fault, tests):
        """Whether a test sees the fault; None if it can't be built."""
        started = time.monotonic()
        before = self.runs.made(tests)
        try:
            self.tree.plant(fault.path, fault.text)
            if not self.tree.builds([test.target for test in tests]):
                return None
            made = self.runs.made(tests)
            failure = self.runs.first_failure(
                [test for test in tests
                 if test.reads_sources or made[test.target] != before[test.target]])
        finally:
            self.tree.restore(fault.path)
        if failure:
            self.note(fault, ": ".join(failure), started)
        return bool(failure)

    def by_ctest(self, waiting):
        """What no program by itself has seen: the sample session, the fuzz seeds and the like."""
        if not waiting:
            return []
        if not self.tree.builds([]):
            raise BuildFailed(str(self.tree.log))
        if not self.runs.run_rest():
            say("The tests that only ctest starts are left out, since one fails without a fault.")
            return waiting
        return [fault for fault in waiting if not self.ctest_sees(fault)]

    def ctest_sees(self, fault):
        started = time.monotonic()
        try:
            self.tree.plant(fault.path, fault.text)
            built = self.tree.builds([])
            seen = built and not self.runs.run_rest()
        finally:
            self.tree.restore(fault.path)
        if seen:
            self.note(fault, "ctest", started)
        elif not built:
            self.bury(fault)
        return seen or not built

    def note(self, fault, seen_by, started):
        fault.seen_by = seen_by
        self.seen.append(fault)
        say(f"seen  {fault.place()} by {seen_by} ({time.monotonic() - started:.0f} s)")


def say(words):
    print(words, flush=True)


def report(run, survivors, equivalents, options):
    counted = len(run.alive)
    share = f" ({100 * len(run.seen) / counted:.0f} %)" if counted else ""
    for fault in survivors:
        say(f"\n{fault.place()} is seen by no test\n- {fault.before}\n+ {fault.after}")
    say(f"\n{len(run.seen)} of {counted} faults seen{share}; {run.stillborn} stillborn, "
        f"{equivalents} known as equivalent; seed {options.seed}")
    say(f"Again: tools/mutate.sh {' '.join(options.named)} {options.count} --seed {options.seed} "
        f"--tests {options.tests}{' --no-texts' if options.no_texts else ''}")


def options_of(arguments):
    parser = argparse.ArgumentParser(prog="tools/mutate.sh", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("named", nargs="+", metavar="PATH... [COUNT]")
    parser.add_argument("--seed", type=int, default=int.from_bytes(os.urandom(2), "big"))
    parser.add_argument("--tests", choices=LEVELS, default="all")
    parser.add_argument("--no-texts", action="store_true", help="leaves all texts as they are")
    parser.add_argument("--list", action="store_true", help="names every fault and plants none")
    parser.add_argument("--jobs", type=int, default=2, help="compilers or tests at once (2)")
    options = parser.parse_args(arguments)
    options.count = int(options.named.pop()) if options.named[-1].isdigit() else 20
    if not options.named:
        parser.error("which file or folder?")
    return options


def main():
    signal.signal(signal.SIGPIPE, signal.SIG_DFL)
    options = options_of(sys.argv[1:])
    equivalents = read_equivalents(NAMED_EQUIVALENT)
    faults = shuffled(all_faults(sources_at(options.named), not options.no_texts), options.seed)
    fit = [fault for fault in faults if not fault.is_in(equivalents)]
    if options.list:
        for fault in fit:
            say(f"{fault.place()}\n- {fault.before}\n+ {fault.after}")
        return 0
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    os.nice(10)
    WORK.mkdir(parents=True, exist_ok=True)
    with open(WORK / ".turn", "w", encoding="utf-8") as turn:
        fcntl.flock(turn, fcntl.LOCK_EX)
        run = Run(options, fit)
        try:
            survivors = run.everything()
        except BuildFailed as failure:
            sys.exit(f"mutate: the tree can't be built without a fault, either; see {failure}")
        except KeyboardInterrupt:
            sys.exit("mutate: ended; faults were planted in build/mutate only")
    report(run, survivors, len(faults) - len(fit), options)
    return 1 if survivors else 0


if __name__ == "__main__":
    sys.exit(main())
