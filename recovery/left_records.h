// The records that earlier runs have left of a collection that was never built.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/files/record_folder.h"
#include "platform/text/text.h"
#include "recovery/work.h"

namespace recovery {

// Locked as long as this lives, so that no other tool offers it meanwhile.
struct LeftRecord {
  std::unique_ptr<platform::RecordFile> file;
  platform::FoundRecord found;
};

// What it tells. Nothing for one that can't be read, which stays, and for one with nothing in it,
// which goes. Failure where the disk says no.
std::optional<Work> ReadLeft(LeftRecord& record);

// Of that collection alone, those last changed first; looks at no more of them than whose they are.
// What nobody has asked for on so many days goes away. Failure if the folder can't be read; a
// single record that can't be read is passed over and stays.
std::vector<LeftRecord> FindLeftRecords(platform::RecordFolder& folder,
                                        const Collection& collection);

// How long a record is kept after its last change, in days. Its name says how many of them have
// gone by and on which day it was looked at last, and one look counts no more than kDaysAtOnce: the
// clock may be wrong, and then it takes no more than these.
inline constexpr std::int64_t kKeptFor = 90;
inline constexpr std::int64_t kDaysAtOnce = 30;
// A longer one is neither read nor removed.
inline constexpr std::uint64_t kLongestRecord = std::uint64_t{512} * 1024 * 1024;

}  // namespace recovery
