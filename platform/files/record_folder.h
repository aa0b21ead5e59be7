// The folder in which running tools keep a record each of work that is nowhere else. A record is
// locked by the tool that writes it, so that no other reads or removes it; what a tool that is gone
// left is anybody's. Whatever fails throws Failure.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/text.h"

namespace platform {

// One record, ours as long as the object lives.
class RecordFile {
 public:
  RecordFile() = default;
  RecordFile(const RecordFile&) = delete;
  RecordFile& operator=(const RecordFile&) = delete;
  virtual ~RecordFile() = default;

  virtual std::uint64_t Size() = 0;
  // From its beginning, `most` bytes at most.
  virtual std::string Read(std::size_t most) = 0;
  // At the end. A failure leaves nothing of it behind.
  virtual void Append(std::string_view bytes) = 0;
  // In place of all comes what `write` gives to the sink: on the disk before it takes the place,
  // which a failure, `write`'s own too, leaves as it was.
  using Sink = std::function<void(std::string_view bytes)>;
  virtual void Replace(const std::function<void(const Sink&)>& write) = 0;
  // Returns once all that was written is on the disk.
  virtual void Sync() = 0;
  // Its name becomes that, with the ending of all records; one that is there already is a failure.
  virtual void Rename(TextView beginning) = 0;
  virtual void Remove() = 0;
};

struct FoundRecord {
  Text name;  // with the ending of all records, "." and a word
  // By the clock of that time: seconds since 1970, and what of a second came on top.
  std::int64_t changed = 0;
  std::int64_t nanoseconds = 0;
};

class RecordFolder {
 public:
  RecordFolder() = default;
  RecordFolder(const RecordFolder&) = delete;
  RecordFolder& operator=(const RecordFolder&) = delete;
  virtual ~RecordFolder() = default;

  // None if there is no such folder.
  virtual std::vector<FoundRecord> List() = 0;
  // nullptr for one that a running tool has, and for one that is gone.
  [[nodiscard]] virtual std::unique_ptr<RecordFile> Take(TextView name) = 0;
  // A new one, empty; its name begins so. Makes the folder, for its user alone, if need be.
  [[nodiscard]] virtual std::unique_ptr<RecordFile> Make(TextView beginning) = 0;
  // Seconds since 1970.
  virtual std::int64_t Now() = 0;
  // Since some moment, by a clock that nobody sets.
  virtual std::chrono::milliseconds Uptime() = 0;
};

// The folder at that path of the host.
std::unique_ptr<RecordFolder> HostRecordFolder(Text path);

}  // namespace platform
