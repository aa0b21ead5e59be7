"""A copy of the tree in which faults are planted, with a build folder of its own."""

import os
import shutil
import signal
import subprocess
from pathlib import Path

LEFT_OUT = {"build", ".git", "__pycache__"}


def end(process):
    """Ends a program that leads a session, and all that it has started."""
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    process.wait()


def run_to_its_end(command, **options):
    """The status; what the command starts doesn't outlive it, nor Ctrl+C."""
    process = subprocess.Popen(command, stdin=subprocess.DEVNULL, start_new_session=True, **options)
    try:
        return process.wait()
    finally:
        end(process)


class BuildFailed(Exception):
    """The tree without a fault can't be built; what the compiler said is in the log."""


def files_below(root):
    for folder, folders, files in os.walk(root):
        folders[:] = [each for each in folders if each not in LEFT_OUT]
        for name in files:
            yield (Path(folder) / name).relative_to(root)


def holds(path, content):
    return path.is_file() and not path.is_symlink() and path.read_bytes() == content


class CopiedTree:
    """The copy of `root` at `place`; a file is written only where it differs, so a build is short."""

    def __init__(self, root, place, jobs):
        self.root, self.place, self.jobs = root, place, jobs
        self.build_folder = place / "build" / "default"
        self.log = place / "build" / "build.log"

    def renew(self):
        wanted = set(files_below(self.root))
        if self.place.exists():
            for old in set(files_below(self.place)) - wanted:
                (self.place / old).unlink()
        for path in sorted(wanted):
            content = (self.root / path).read_bytes()
            if not holds(self.place / path, content):
                (self.place / path).parent.mkdir(parents=True, exist_ok=True)
                (self.place / path).write_bytes(content)
                shutil.copymode(self.root / path, self.place / path)
        self.build_folder.mkdir(parents=True, exist_ok=True)

    def configure(self):
        # The release's warnings and checks, but compiled and linked in a hurry.
        linker = "-fuse-ld=lld" if shutil.which("ld.lld") else ""
        self._run(["cmake", "-S", self.place, "-B", self.build_folder, "-G", "Ninja",
                   "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0",
                   f"-DCMAKE_EXE_LINKER_FLAGS={linker}"])

    def builds(self, targets):
        """Whether the targets can be built from what lies there now."""
        command = ["cmake", "--build", self.build_folder, "--parallel", str(self.jobs)]
        if targets:
            command += ["--target", *targets]
        return self._run(command, must=False)

    def plant(self, path, text):
        (self.place / path).write_text(text, "utf-8")

    def restore(self, path):
        content = (self.root / path).read_bytes()
        if not holds(self.place / path, content):
            (self.place / path).write_bytes(content)

    def _run(self, command, must=True):
        # No CCACHE_BASEDIR: some tests find the tree by __FILE__, which it makes relative.
        environment = dict(os.environ, CCACHE_NOHASHDIR="1")
        if shutil.which("ccache"):
            environment.setdefault("CMAKE_CXX_COMPILER_LAUNCHER", "ccache")
        with open(self.log, "wb") as log:
            status = run_to_its_end(command, env=environment, stdout=log, stderr=subprocess.STDOUT)
        if must and status != 0:
            raise BuildFailed(str(self.log))
        return status == 0
