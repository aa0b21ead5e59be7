#include "recovery/left_records.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "platform/failure.h"
#include "recovery/piece.h"
#include "recovery/replay.h"

namespace recovery {

using platform::Text;
using platform::TextView;

namespace {

constexpr std::int64_t kSecondsADay = std::int64_t{24} * 60 * 60;

// "a1-77-1~20414~35": left by the run whose record was a1-77-1, looked at last on that day since
// 1970, when 35 days had gone by.
constexpr TextView kMark = u"~";

struct Age {
  Text run;
  std::int64_t day = 0;
  std::int64_t days = 0;
};

// Failure for what is no number of days.
std::int64_t DaysIn(TextView text) {
  constexpr double kMost = 1e9;
  const double days = platform::ToNumber(text);
  if (days < 0 || days > kMost) throw platform::Failure(u"Overflow");
  return static_cast<std::int64_t>(days);
}

Age AgeOf(const platform::FoundRecord& found) {
  const Text name = found.name.substr(0, found.name.rfind(u'.'));
  const std::vector<Text> parts = platform::Split(name, kMark);
  Age age{.run = parts.front(), .day = found.changed / kSecondsADay};
  if (parts.size() != 3) return age;
  platform::Ignoring([&] {
    age.day = DaysIn(parts[1]);
    age.days = DaysIn(parts[2]);
  });
  return age;
}

// How many days it has lain there by now. Where its name can't say so it grows no older.
std::int64_t CountDays(platform::RecordFile& file, const platform::FoundRecord& found,
                       std::int64_t today) {
  Age age = AgeOf(found);
  if (age.day == today) return age.days;
  age.days += std::clamp(today - age.day, std::int64_t{0}, kDaysAtOnce);
  const Text name = age.run + Text(kMark) + platform::FromNumber(today) + Text(kMark) +
                    platform::FromNumber(age.days);
  platform::Ignoring([&] { file.Rename(name); });
  return age.days;
}

std::optional<LeftRecord> Look(platform::RecordFolder& folder, const platform::FoundRecord& found,
                               const Collection& wanted) {
  std::unique_ptr<platform::RecordFile> file = folder.Take(found.name);
  if (file == nullptr) return std::nullopt;
  if (file->Size() > kLongestRecord) return std::nullopt;
  const std::string beginning = file->Read(kBeginning);
  if (file->Size() <= kBeginning && IsStillborn(beginning)) {
    file->Remove();
    return std::nullopt;
  }
  if (ReadCollection(beginning) != wanted) return std::nullopt;
  if (CountDays(*file, found, folder.Now() / kSecondsADay) > kKeptFor) {
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
