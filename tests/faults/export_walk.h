// An export of a small project with print pages, on a disk that may fail.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/faults/in_memory.h"
#include "tests/support/export_desk.h"

namespace faults {

using Tree = std::map<std::string, std::string>;

class ExportWalk {
 public:
  // What the target holds: it isn't there at all, or `Export 1` and `Export 3` are in it.
  enum class Found { kNoTarget, kOlderExports };

  explicit ExportWalk(Found found = Found::kOlderExports);

 private:
  InMemory inMemory_;  // there are hundreds of walks

 public:
  testing_support::ExportDesk desk{false};

  // The first free number's folder ("Export/Export 2"): what the next export makes.
  std::string NextRoot() const;
  // What a folder of the program folder holds; nothing where it isn't there.
  Tree TreeOf(const std::string& below) const;
  // Everything on the disk but what an export into `root` may touch: that folder and the target
  // that it makes by itself, the logs, and what saving the settings writes into the book.
  Tree Around(const std::string& root) const;
};

// A file operation of a walk on which nothing fails.
struct ExportPlace {
  std::string operation;  // with paths from the desk's folder on
  std::string lastEntry;  // of the log, which tells what the tool is doing
  Tree made;              // what the export's folder holds before the operation
};

struct ExportCourse {
  std::vector<ExportPlace> places;  // in their order
  Tree whole;                       // the finished export
};

// Made once in a process for each kind of walk.
const ExportCourse& CourseOf(ExportWalk::Found found);

// Of a book or an export: what saving the settings has put there.
bool IsOfSettings(const std::string& path);

}  // namespace faults
