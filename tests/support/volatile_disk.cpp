#include "tests/support/volatile_disk.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <utility>

namespace testing_support {
namespace {

using Kind = DiskEvent::Kind;

constexpr std::size_t kSector = 512;  // bytes that are written or not, never in part

bool Coin(std::mt19937& dice) { return (dice() & 1U) != 0; }

void WriteInto(std::string& bytes, std::size_t at, const std::string& written) {
  bytes.resize(std::max(bytes.size(), at + written.size()));
  bytes.replace(at, written.size(), written);
}

}  // namespace

DiskTree TreeOf(const std::string& hostFolder) {
  DiskTree tree;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(hostFolder)) {
    std::ifstream file(entry.path(), std::ios::binary);
    tree[entry.path().lexically_relative(hostFolder).string()] =
        entry.is_directory()
            ? "/"
            : std::string{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  return tree;
}

VolatileDisk::VolatileDisk(const DiskTree& before) {
  for (const auto& [path, bytes] : before) {
    before_[path] = MakeFile(bytes == "/");
    if (bytes != "/") files_.back().bytes = bytes;
  }
  now_ = before_;
}

void VolatileDisk::Take(const DiskEvent& event) {
  const auto file = [&]() -> File& {
    const auto found = now_.find(event.path);
    if (found == now_.end()) throw std::runtime_error("not on the disk: " + event.path);
    return files_[static_cast<std::size_t>(found->second)];
  };
  switch (event.kind) {
    case Kind::kMake:
      return Add({{event.path, MakeFile(false)}});
    case Kind::kMakeFolder:
      return Add({{event.path, MakeFile(true)}});
    case Kind::kTakeAway:
      return Add({{event.path, kNone}});
    case Kind::kRename:
      return Add({{event.target, now_.at(event.path)}, {event.path, kNone}});
    case Kind::kWrite:
      return file().changes.push_back({event.at, event.bytes});
    case Kind::kCut:
      return file().changes.push_back({event.at, {}, true});
    case Kind::kFlushFile:
      return Flush(file());
    case Kind::kFlushFolder:
      return FlushNames(&event.path);
    case Kind::kFlushDisk:
      std::ranges::for_each(files_, Flush);
      return FlushNames(nullptr);
    case Kind::kLoseFile:
      return Lose(file());
    case Kind::kLoseDisk:
      std::ranges::for_each(files_, Lose);
      return;
    case Kind::kTold:
      return;
  }
}

DiskTree VolatileDisk::Seen() const {
  DiskTree tree;
  for (const auto& [path, number] : now_) {
    const File& file = files_[static_cast<std::size_t>(number)];
    tree[path] = file.isFolder ? "/" : Seen(file);
  }
  return tree;
}

DiskTree VolatileDisk::AfterCut(const WriteBack& writeBack) const {
  Dice seeded(writeBack.seed.value_or(0));
  Dice* const dice = writeBack.seed ? &seeded : nullptr;
  const Names names = NamesAfterCut(dice);
  DiskTree tree;
  for (const auto& [path, number] : names) {
    const File& file = files_[static_cast<std::size_t>(number)];
    if (!AreFoldersThere(names, path)) continue;
    tree[path] = file.isFolder ? "/" : BytesAfterCut(file, dice);
  }
  return tree;
}

void VolatileDisk::Add(std::vector<Name> names) {
  changes_.push_back({std::move(names)});
  Apply(now_, changes_.back());
}

int VolatileDisk::MakeFile(bool isFolder) {
  files_.push_back({{}, isFolder});
  return static_cast<int>(files_.size()) - 1;
}

void VolatileDisk::Flush(File& file) {
  for (Change& change : file.changes) change.isFlushed = !change.isLost;
}

void VolatileDisk::Lose(File& file) {
  for (Change& change : file.changes) change.isLost = !change.isFlushed;
}

void VolatileDisk::FlushNames(const std::string* folder) {
  for (NameChange& change : changes_) {
    if (folder == nullptr || FolderOf(change.names.front().path) == *folder) {
      change.isFlushed = true;
    }
  }
}

std::string VolatileDisk::FolderOf(const std::string& path) {
  const std::size_t end = path.rfind('/');
  return end == std::string::npos ? "" : path.substr(0, end);
}

void VolatileDisk::Apply(Names& names, const NameChange& change) {
  for (const Name& name : change.names) {
    if (name.file == kNone) {
      names.erase(name.path);
    } else {
      names[name.path] = name.file;
    }
  }
}

VolatileDisk::Names VolatileDisk::NamesAfterCut(Dice* dice) const {
  Names names = before_;
  std::set<std::string> lost;
  for (const NameChange& change : changes_) {
    const bool mayCome = std::ranges::none_of(
        change.names, [&](const Name& name) { return lost.contains(name.path); });
    if (change.isFlushed || (mayCome && dice != nullptr && Coin(*dice))) {
      Apply(names, change);
    } else {
      for (const Name& name : change.names) lost.insert(name.path);
    }
  }
  return names;
}

std::string VolatileDisk::Seen(const File& file) {
  std::string bytes = file.bytes;
  for (const Change& change : file.changes) {
    if (change.isCut) {
      bytes.resize(change.at);
    } else {
      WriteInto(bytes, change.at, change.bytes);
    }
  }
  return bytes;
}

std::string VolatileDisk::BytesAfterCut(const File& file, Dice* dice) {
  std::string bytes = file.bytes;
  for (const Change& change : file.changes) {
    if (!change.isFlushed && (change.isLost || dice == nullptr || !Coin(*dice))) continue;
    if (change.isCut) {
      bytes.resize(change.at);
    } else if (change.isFlushed) {
      WriteInto(bytes, change.at, change.bytes);
    } else {
      WriteSectors(bytes, change, *dice);
    }
  }
  return bytes;
}

// The length came, up to some sector's end at least.
void VolatileDisk::WriteSectors(std::string& bytes, const Change& change, Dice& dice) {
  for (std::size_t at = change.at; at < change.at + change.bytes.size();) {
    const std::size_t end = std::min((at / kSector + 1) * kSector, change.at + change.bytes.size());
    bytes.resize(std::max(bytes.size(), end));
    if (Coin(dice)) bytes.replace(at, end - at, change.bytes, at - change.at, end - at);
    at = end;
    if (dice() % 4 == 0) return;
  }
}

bool VolatileDisk::AreFoldersThere(const Names& names, std::string path) {
  for (path = FolderOf(path); !path.empty(); path = FolderOf(path)) {
    if (!names.contains(path)) return false;
  }
  return true;
}

}  // namespace testing_support
