#include "recovery/left_records.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "platform/failure.h"
#include "recovery/piece.h"
#include "recovery/replay.h"

namespace recovery {

namespace {

// A tool that was ended as it made the file got no further than its head.
bool IsStillborn(platform::RecordFile& file) {
  return file.Size() < kHeadLength ||
         (file.Size() == kHeadLength && HeadOf(file.Read(kHeadLength)) == Head::kReadable);
}

std::optional<LeftRecord> Look(platform::RecordFolder& folder, const platform::FoundRecord& found,
                               const Collection& wanted) {
  std::unique_ptr<platform::RecordFile> file = folder.Take(found.name);
  if (file == nullptr) return std::nullopt;
  if (IsStillborn(*file)) {
    file->Remove();
    return std::nullopt;
  }
  if (file->Size() > kLongestRecord) return std::nullopt;
  if (ReadCollection(file->Read(kBeginning)) != wanted) return std::nullopt;
  // A clock that was set back makes an age of less than nothing, which is young.
  if (found.changed < folder.Now() - kKeptFor) {
    file->Remove();
    return std::nullopt;
  }
  return LeftRecord{std::move(file), found};
}

}  // namespace

std::optional<Work> ReadLeft(LeftRecord& record) {
  const auto size = static_cast<std::size_t>(record.file->Size());
  const std::string bytes = record.file->Read(size);
  std::optional<Work> work = ReadRecord(bytes);
  if (!work || !HoldsNothing(*work)) return work;
  // What comes after damage can't be offered, but it may be all of the work.
  if (IsWhole(bytes)) record.file->Remove();
  return std::nullopt;
}

std::vector<LeftRecord> FindLeftRecords(platform::RecordFolder& folder,
                                        const Collection& collection) {
  std::vector<LeftRecord> left;
  for (const platform::FoundRecord& found : folder.List()) {
    platform::Ignoring([&] {
      if (auto record = Look(folder, found, collection)) left.push_back(std::move(*record));
    });
  }
  std::ranges::stable_sort(left, std::greater(), [](const LeftRecord& record) {
    return std::pair(record.found.changed, record.found.nanoseconds);
  });
  return left;
}

}  // namespace recovery
