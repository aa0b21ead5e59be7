// The same book as the tool made, made again by a bare loop of system calls.
#pragma once

#include <string>
#include <vector>

namespace bench {

struct BareMedium {
  std::string source;     // path
  std::string extension;  // with its dot
};

// One step of a build: a line for the collection file, and for an entry a page and its media.
struct BareStep {
  std::string line;
  std::string stem;  // of the page's and the media's names; empty: a line alone
  std::string page;
  std::vector<BareMedium> media;
};

struct BareBook {
  std::string indexHead;
  std::string indexLine;
  std::string collectionHead;
  std::vector<BareStep> steps;
  std::string collectionEnd;
};

// Reads back what the tool built in the project folder: its first collection, of which the first
// entries have the given media. All bytes are as they stand in the files, marks left out.
BareBook ReadBook(const std::string& projectFolder,
                  const std::vector<std::vector<BareMedium>>& media);

// Asks for, makes and adds to the same files as the build does, one open, write and close each; the
// media are copied inside the kernel. All is on the disk at the end, the index before the
// collection's file is made. The project folder is there already. Failure of any call is a
// std::runtime_error.
void MakeBook(const BareBook& book, const std::string& projectFolder);

// What a book comes to on disk, by which two of them are held against each other. The project's
// settings are left out.
struct Extent {
  std::size_t files = 0;
  std::size_t bytes = 0;
  bool operator==(const Extent&) const = default;
};
Extent ExtentOf(const std::string& projectFolder);

}  // namespace bench
