// A folder of records, tools that keep them there, and what a later tool finds.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "recovery/keeper.h"
#include "tests/support/faulty_records.h"
#include "tests/support/recovery_work.h"
#include "tests/support/temporary_folder.h"

namespace faults {

namespace fs = std::filesystem;
using recovery::Keeper;
using testing_support::RandomEditor;

inline constexpr std::int64_t kDay = std::int64_t{24} * 60 * 60;

class RecoveryFaults : public testing::Test {
 protected:
  struct Left {
    recovery::LeftRecord record;
    recovery::Work work;
  };
  // What a later tool finds and can read.
  std::vector<Left> Find() { return Find(*host_); }
  static std::vector<Left> Find(platform::RecordFolder& records) {
    std::vector<Left> found;
    for (auto& record : recovery::FindLeftRecords(records, {u"C:\\book\\", u"a1"})) {
      std::optional<recovery::Work> work = recovery::ReadLeft(record);
      if (work) found.push_back({std::move(record), std::move(*work)});
    }
    return found;
  }
  std::function<void(platform::TextView)> Log() {
    return [this](platform::TextView line) { log_.push_back(platform::ToUtf8(line)); };
  }
  std::vector<fs::path> Files() const {
    std::vector<fs::path> files;
    if (!fs::exists(HostPath())) return files;
    for (const auto& entry : fs::directory_iterator(HostPath())) files.push_back(entry.path());
    return files;
  }
  fs::path HostPath() const { return folder_.HostPath("recovery"); }

  // A tool that files a while and is closed.
  void LeaveOne(unsigned seed = 1) {
    RandomEditor editor(seed);
    Keeper keeper(host_.get(), Log());
    keeper.Start(editor.Live());
    editor.Work().fields.title = u"title";
    for (int step = 0; step < 5; ++step) {
      editor.Step();
      keeper.Keep(editor.Live());
    }
  }

  testing_support::TemporaryFolder folder_;
  std::unique_ptr<platform::RecordFolder> host_ =
      platform::HostRecordFolder(folder_.Path(u"recovery"));
  std::vector<std::string> log_;
};

}  // namespace faults
