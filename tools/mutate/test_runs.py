"""Runs test programs until one fails."""

import os
import re
import resource
import shutil
import subprocess
import threading
import time

from copied_tree import end, run_to_its_end

LONGEST_BASELINE = 300
MOST_MEMORY = 6 << 30
LARGEST_FILE = 4 << 30
SCREENS = ("DISPLAY", "WAYLAND_DISPLAY", "XDG_STATE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME")


def bounded():
    """A fault may allocate or write without an end."""
    resource.setrlimit(resource.RLIMIT_DATA, (MOST_MEMORY, MOST_MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (LARGEST_FILE, LARGEST_FILE))


class TestRuns:
    """Runs programs of the build folder, `jobs` at once, with a home and a folder of their own."""

    def __init__(self, build_folder, scratch, jobs):
        self.build_folder, self.scratch, self.jobs = build_folder, scratch, jobs
        self.seconds = {}  # of each program on the tree without a fault
        self.lock, self.running, self.stopped = threading.Lock(), set(), False

    def measure(self, tests):
        """Runs programs that weren't measured yet; returns those that fail without a fault."""
        new = [test for test in tests if test.target not in self.seconds]
        failed = self._run(new, lambda test: LONGEST_BASELINE, stop_at_first=False)
        for target in failed:
            self.seconds[target] = None
        return failed

    def made(self, tests):
        """When each program was linked last."""
        programs = {test.target: test.program(self.build_folder) for test in tests}
        return {target: program.stat().st_mtime_ns if program.exists() else None
                for target, program in programs.items()}

    def first_failure(self, tests):
        """What failed first, as (program, what it says); None if all of them pass."""
        fit = [test for test in tests if self.seconds.get(test.target) is not None]
        fit.sort(key=lambda test: self.seconds[test.target])
        failed = self._run(fit, lambda test: 10 + 5 * self.seconds[test.target], stop_at_first=True)
        return next(iter(failed.items()), None)

    def run_rest(self):
        """All that only ctest can start, on the tree as it is; whether it passes."""
        folders = "unit|windows|viewer|book|faults|house|browser"
        command = ["ctest", "--test-dir", str(self.build_folder), "--stop-on-failure", "-j",
                   str(self.jobs), "-E", rf"^({folders})\."]
        with open(self.build_folder / "rest.log", "wb") as log:
            return run_to_its_end(command, env=self._environment(), stdout=log,
                                  stderr=subprocess.STDOUT) == 0

    def _environment(self):
        shutil.rmtree(self.scratch, ignore_errors=True)
        (self.scratch / "home").mkdir(parents=True)
        environment = {name: value for name, value in os.environ.items() if name not in SCREENS}
        environment.update(HOME=str(self.scratch / "home"), TMPDIR=str(self.scratch),
                           QT_QPA_PLATFORM="offscreen")
        return environment

    def _run(self, tests, longest, stop_at_first):
        environment, waiting, failed = self._environment(), list(tests), {}
        self.stopped = False

        def work():
            while True:
                with self.lock:
                    if not waiting or self.stopped:
                        return
                    test = waiting.pop(0)
                words = self._run_one(test, longest(test), environment)
                with self.lock:
                    if words is not None and not self.stopped:
                        failed[test.target] = words
                        self.stopped = stop_at_first
                if self.stopped:
                    self._end_all()

        workers = [threading.Thread(target=work, daemon=True) for _ in range(self.jobs)]
        try:
            for worker in workers:
                worker.start()
            for worker in workers:
                worker.join()
        finally:
            self.stopped = True
            self._end_all()
        return failed

    def _run_one(self, test, longest, environment):
        """What a failed program says; None if it passes."""
        started = time.monotonic()
        with self.lock:
            if self.stopped:
                return None
            process = subprocess.Popen(
                test.command(self.build_folder), env=environment,
                cwd=test.program(self.build_folder).parent, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                stderr=subprocess.STDOUT, start_new_session=True, preexec_fn=bounded)
            self.running.add(process)
        try:
            said = process.communicate(timeout=longest)[0].decode("utf-8", "replace")
            words = None if process.returncode == 0 else why(process.returncode, said)
        except subprocess.TimeoutExpired:
            words = "takes too long"
        finally:
            end(process)
            with self.lock:
                self.running.discard(process)
        self.seconds.setdefault(test.target, time.monotonic() - started)
        return words

    def _end_all(self):
        with self.lock:
            for process in self.running:
                end(process)


def why(status, said):
    failed = re.search(r"\[  FAILED  \] ([\w./]+)", said)
    if failed:
        return failed.group(1)
    return f"ends by signal {-status}" if status < 0 else f"ends with status {status}"
