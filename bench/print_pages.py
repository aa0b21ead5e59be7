"""The print pages of a folder of pages.

print_pages.py TEMPLATE: says "ready", and then answers each line with the seconds that it took:
  disk<TAB>FOLDER          a print page beside each page of the folder, all on the disk at the end
  memory<TAB>FOLDER<TAB>N  the print pages of N pages, which are those of the folder by turns; they
                           are in memory, and nothing is written
"""

import ctypes
import os
import sys
from time import perf_counter

LIBC = ctypes.CDLL(None, use_errno=True)
TITLE = "<pgTitle>"
TITLE_END = "</pgTitle>"


def read(path):
    with open(path, encoding="utf-16", newline="") as file:
        return file.read()


def write(path, text):
    with open(path, "wb") as file:
        file.write(b"\xff\xfe" + text.encode("utf-16-le"))


def flush_disk(folder):
    opened = os.open(folder, os.O_RDONLY)
    if LIBC.syncfs(opened) != 0:
        raise OSError(ctypes.get_errno(), "syncfs", folder)
    os.close(opened)


def print_page(template, page):
    end = page.index(TITLE_END)
    title = page[page.index(TITLE) + len(TITLE) : end]
    body = page[end + len(TITLE_END) :]
    body = body.replace("<pgMain>", '<p align="right">')
    body = body.replace("</pgMain>", "</p>")
    body = body.replace("Data/IMG", "../IMG")
    return template.replace("%Title%", title).replace("%Matn%", body)


def page_paths(folder):
    names = [name for name in os.listdir(folder) if name.lower().endswith(".htm")]
    return [os.path.join(folder, name) for name in names]


def make_pages(template_path, folder):
    template = read(template_path)
    for path in page_paths(folder):
        write(path + "l", print_page(template, read(path)))
    flush_disk(folder)


def make_in_memory(template_path, pages, count):
    template = read(template_path)
    for i in range(count):
        page = pages[i % len(pages)].decode("utf-16")
        b"\xff\xfe" + print_page(template, page).encode("utf-16-le")


def read_bytes(path):
    with open(path, "rb") as file:
        return file.read()


def work_of(line):
    kind, folder, *count = line.rstrip("\n").split("\t")
    if kind == "disk":
        return lambda: make_pages(sys.argv[1], folder)
    pages = [read_bytes(path) for path in page_paths(folder)]
    return lambda: make_in_memory(sys.argv[1], pages, int(count[0]))


def main():
    print("ready", flush=True)
    for line in sys.stdin:
        work = work_of(line)
        start = perf_counter()
        work()
        print(perf_counter() - start, flush=True)


main()
