// The records that earlier runs have left of a collection that was never built.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/files/record_folder.h"
#include "platform/text/text.h"
#include "recovery/work.h"

namespace recovery {

// Locked as long as this lives, so that no other tool offers it meanwhile.
struct LeftRecord {
  std::unique_ptr<platform::RecordFile> file;
  platform::FoundRecord found;
  Work work;
};

// Of that collection alone, those last changed first. What was last changed so long ago that nobody
// asks for it any more goes away; so does what has nothing in it. Failure if the folder can't be
// read; a single record that can't be read is passed over and stays.
std::vector<LeftRecord> FindLeftRecords(platform::RecordFolder& folder,
                                        const Collection& collection);

// How long a record is kept, in seconds.
inline constexpr std::int64_t kKeptFor = std::int64_t{90} * 24 * 60 * 60;
// A longer one is neither read nor removed.
inline constexpr std::uint64_t kLongestRecord = std::uint64_t{1} << 30;

}  // namespace recovery
