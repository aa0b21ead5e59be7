// The record of this run: written after each event, ours until the work is built or the window is
// closed. A disk that says no ends the record and nothing else.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/files/record_folder.h"
#include "platform/text/text.h"
#include "recovery/changes.h"
#include "recovery/left_records.h"
#include "recovery/work.h"

namespace recovery {

class Keeper {
 public:
  // `folder` may be nullptr: then nothing is kept, and nobody hears of it. `log` gets one line a
  // run at most.
  Keeper(platform::RecordFolder* folder, std::function<void(platform::TextView)> log);

  Keeper(const Keeper&) = delete;
  Keeper& operator=(const Keeper&) = delete;
  ~Keeper() { Close(); }

  // What earlier runs have left of a collection; see FindLeftRecords.
  std::vector<LeftRecord> FindLeft(const Collection& collection);

  // What there is now is where the next record begins; only a change after it makes one, and
  // only as long as there is something to be brought back.
  void Start(LiveWork work);
  // What has changed since the last call goes to the end of the record. What stands there unsynced
  // for a second is synced then, too: where a handler has held up the call of Sync, only the time
  // of that one handler comes to the second that a power cut can take.
  void Keep(LiveWork work);
  // Whether something isn't on the disk itself yet.
  bool NeedsSync() const { return unsyncedSince_.has_value(); }
  // Puts it there, and makes the record short again where it has outgrown what it tells.
  void Sync(LiveWork work);

  // The work is built: its record goes, and none is made until Start.
  void Drop();
  // The record stays for another opening. None is made until Start.
  void Close();
  // What this run has recorded so far is left for another opening, as something else is about to
  // take the place of the work; the next record of the run is another.
  void SetAside(const LiveWork& work);
  // All of the work goes into a record of this run at once, onto the disk. False where that failed.
  [[nodiscard]] bool KeepWhole(LiveWork work);
  // An earlier run's record of this work, where this run has none: it goes or stays in its place.
  void Hold(std::unique_ptr<platform::RecordFile> record) { held_ = std::move(record); }

 private:
  void Try(const std::function<void()>& act);
  void Settle(LiveWork& work);
  void WriteWhole(LiveWork& work);
  void SyncIfLate();
  void SyncBehind();
  void CheckLength() const;
  bool HasOutgrown(LiveWork& work) const;
  void Off(const platform::Text& reason);

  platform::RecordFolder* folder_;
  std::function<void(platform::TextView)> log_;
  std::unique_ptr<platform::RecordFile> file_;
  std::unique_ptr<platform::RecordFile> held_;
  Recorded recorded_;
  Collection collection_;              // that the file begins with
  std::uint64_t wholeBytes_ = 0;       // of the record when it was written whole
  std::uint64_t wholeCharacters_ = 0;  // of the work at that time
  bool isWhole_ = false;               // all of the work was written to the file once
  bool isStarted_ = false;
  bool isOff_ = false;
  std::optional<std::chrono::milliseconds> unsyncedSince_;  // if something is
};

}  // namespace recovery
