// A disk with a cache that forgets: what may stand on it when the power goes, by a recording.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "tests/support/disk_recorder.h"

namespace testing_support {

// Files with their bytes, folders as "/".
using DiskTree = std::map<std::string, std::string>;

DiskTree TreeOf(const std::string& hostFolder);

// What reached the disk of that which nobody had flushed: nothing at all, or whatever the seed
// says. Names come and go in any order, but for one name in its own; a file's length and each of
// its sectors by themselves, so that zeros stand where the length came and a sector didn't.
struct WriteBack {
  std::optional<unsigned> seed = {};
};

// Takes events one after the other; everything that stood at first is on the disk.
class VolatileDisk {
 public:
  explicit VolatileDisk(const DiskTree& before);

  void Take(const DiskEvent& event);
  // As the tool sees it.
  DiskTree Seen() const;
  DiskTree AfterCut(const WriteBack& writeBack) const;

 private:
  struct Name {
    std::string path;
    int file;  // kNone: taken away
  };
  // One that can't be done by half.
  struct NameChange {
    std::vector<Name> names;
    bool isFlushed = false;
  };
  struct Change {
    std::size_t at;
    std::string bytes;
    bool isCut = false;
    bool isFlushed = false;
    bool isLost = false;
  };
  struct File {
    std::string bytes;  // at first
    bool isFolder = false;
    std::vector<Change> changes = {};
  };
  using Names = std::map<std::string, int>;
  using Dice = std::mt19937;
  static constexpr int kNone = -1;

  void Add(std::vector<Name> names);
  int MakeFile(bool isFolder);
  static void Flush(File& file);
  static void Lose(File& file);
  void FlushNames(const std::string* folder);

  static std::string FolderOf(const std::string& path);
  static void Apply(Names& names, const NameChange& change);
  Names NamesAfterCut(Dice* dice) const;
  static std::string BytesAfterCut(const File& file, Dice* dice);
  static std::string Seen(const File& file);
  static void WriteSectors(std::string& bytes, const Change& change, Dice& dice);
  static bool AreFoldersThere(const Names& names, std::string path);

  std::vector<File> files_;
  Names before_;
  Names now_;
  std::vector<NameChange> changes_;
};

}  // namespace testing_support
