#include "recovery/keeper.h"

#include <algorithm>
#include <utility>

#include "platform/failure.h"
#include "recovery/piece.h"

namespace recovery {

using platform::Text;
using platform::TextView;

namespace {

// A short record isn't worth writing anew.
constexpr std::uint64_t kAlwaysRoom = std::uint64_t{256} * 1024;

// Where that part has come on top of what it was written with, or has gone of it, it is. So its
// file never outgrows twice what it holds, and a text that is filed passage by passage, each of
// which is told twice, takes little more than the text; each byte that comes or goes costs the
// writing of so many.
constexpr std::uint64_t kPart = 8;

// So long a power cut may take, and no longer.
constexpr std::chrono::milliseconds kLate = std::chrono::seconds(1);

// For whoever looks into the folder; the record itself says whose it is.
Text NameBeginning(const Collection& collection) {
  const auto isPlain = [](char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'0' && unit <= u'9');
  };
  const bool plain = !collection.key.empty() && std::ranges::all_of(collection.key, isPlain);
  return plain ? collection.key : Text(u"work");
}

}  // namespace

Keeper::Keeper(platform::RecordFolder* folder, std::function<void(TextView)> log)
    : folder_(folder), log_(std::move(log)), isOff_(folder == nullptr) {}

void Keeper::Try(const std::function<void()>& act) {
  platform::CatchingFailure(act, [this](const Text& reason) { Off(reason); });
}

// What the file tells so far stays as it is, and is synced still.
void Keeper::Off(const Text& reason) {
  if (std::exchange(isOff_, true)) return;
  if (file_ != nullptr && !isWhole_) {
    platform::Ignoring([&] { file_->Remove(); });
    file_.reset();
    unsyncedSince_.reset();
  }
  log_(u"Recovery is off: " + reason);
}

std::vector<LeftRecord> Keeper::FindLeft(const Collection& collection) {
  std::vector<LeftRecord> left;
  if (folder_ != nullptr) Try([&] { left = FindLeftRecords(*folder_, collection); });
  return left;
}

void Keeper::Start(LiveWork work) {
  file_.reset();
  unsyncedSince_.reset();
  isStarted_ = true;
  Settle(work);
}

// What there is counts as told.
void Keeper::Settle(LiveWork& work) {
  work.restEdit.reset();
  TellChanges(work, recorded_, [](std::string_view) {});
}

// Where the work has become another collection's, the record follows with the next Sync.
void Keeper::Keep(LiveWork work) {
  Try([&] {
    if (isOff_ || !isStarted_) return Settle(work);
    const bool begins = file_ == nullptr;
    const bool moved = !begins && collection_ != work.collection;
    if (moved) work.collection = collection_;
    bool changed = moved || (begins && std::exchange(work.restEdit, std::nullopt));
    TellChanges(work, recorded_, [&](std::string_view piece) {
      changed = true;
      if (!begins) file_->Append(piece);
    });
    if (!changed || (begins && HoldsNothing(work))) return;
    if (begins) WriteWhole(work);
    CheckLength();
    SyncIfLate();
  });
}

// Before it is so long that nobody would read it.
void Keeper::CheckLength() const {
  if (file_->Size() > kLongestRecord / 2) {
    throw platform::Failure(u"There is too much for a record");
  }
}

void Keeper::SyncIfLate() {
  const std::chrono::milliseconds now = folder_->Uptime();
  if (!unsyncedSince_) unsyncedSince_ = now;
  if (now - *unsyncedSince_ < kLate) return;
  file_->Sync();
  unsyncedSince_.reset();
}

// Where it fails the file goes on as it was, and what changes is told against what that tells.
void Keeper::WriteWhole(LiveWork& work) {
  Recorded recorded;
  if (file_ != nullptr) {
    file_->Replace([&](const RecordSink& sink) { TellWhole(work, recorded, sink); });
  } else {
    isWhole_ = false;
    file_ = folder_->Make(NameBeginning(work.collection));
    TellWhole(work, recorded, [this](std::string_view bytes) { file_->Append(bytes); });
  }
  recorded_ = std::move(recorded);
  isWhole_ = true;
  collection_ = work.collection;
  wholeBytes_ = file_->Size();
  wholeCharacters_ = CharactersOf(work);
}

// How many bytes it holds by now only writing it tells; how many characters, a look at each row.
bool Keeper::HasOutgrown(LiveWork& work) const {
  const std::uint64_t size = file_->Size();
  if (size < kAlwaysRoom) return false;
  return size > wholeBytes_ + std::max(wholeBytes_ / kPart, kAlwaysRoom) ||
         CharactersOf(work) < wholeCharacters_ - wholeCharacters_ / kPart;
}

// What stands there unsynced.
void Keeper::SyncBehind() {
  Try([&] {
    if (file_ != nullptr && std::exchange(unsyncedSince_, std::nullopt)) file_->Sync();
  });
}

void Keeper::Sync(LiveWork work) {
  Keep(work);
  SyncBehind();
  Try([&] {
    if (isOff_ || file_ == nullptr) return;
    if (collection_ != work.collection) return WriteWhole(work);
    if (!HasOutgrown(work)) return;
    // What stands there already is as good, should the disk have no room for both.
    wholeBytes_ = file_->Size();
    wholeCharacters_ = CharactersOf(work);
    platform::Ignoring([&] { WriteWhole(work); });
  });
}

void Keeper::Drop() {
  isStarted_ = false;
  unsyncedSince_.reset();
  for (auto* const record : {&file_, &held_}) {
    const std::unique_ptr<platform::RecordFile> built = std::move(*record);
    if (built != nullptr) Try([&] { built->Remove(); });
  }
}

void Keeper::Close() {
  SyncBehind();
  isStarted_ = false;
  file_.reset();
  held_.reset();
}

void Keeper::SetAside(const LiveWork& work) {
  Sync(work);
  if (file_ != nullptr && !HoldsNothing(work)) file_.reset();
}

bool Keeper::KeepWhole(LiveWork work) {
  bool kept = false;
  Try([&] {
    if (isOff_ || !isStarted_) return;
    WriteWhole(work);
    file_->Sync();
    unsyncedSince_.reset();
    kept = true;
  });
  return kept;
}

}  // namespace recovery
