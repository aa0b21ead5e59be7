// The records' folder with a clock that stands where the session's does, so that what is shown of a
// record is the same in every session.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "platform/files/record_folder.h"
#include "platform/text/text.h"

namespace sample {

class StandingRecords : public platform::RecordFolder {
 public:
  explicit StandingRecords(std::unique_ptr<platform::RecordFolder> real) : real_(std::move(real)) {}

  std::vector<platform::FoundRecord> List() override {
    std::vector<platform::FoundRecord> found = real_->List();
    for (platform::FoundRecord& record : found) record.changed = kNow;
    return found;
  }
  std::unique_ptr<platform::RecordFile> Take(platform::TextView name) override {
    return real_->Take(name);
  }
  std::unique_ptr<platform::RecordFile> Make(platform::TextView beginning) override {
    return real_->Make(beginning);
  }
  std::int64_t Now() override { return kNow; }
  std::chrono::milliseconds Uptime() override { return real_->Uptime(); }

 private:
  static constexpr std::int64_t kNow = 1'041'480'306;  // 01/02/2003 04:05:06 UTC

  std::unique_ptr<platform::RecordFolder> real_;
};

}  // namespace sample
