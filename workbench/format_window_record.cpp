// The record of what is filed and not yet built: kept after each event, offered when an earlier
// run left one, and put back at the editor's press.
#include <utility>

#include "core/numbers.h"
#include "core/selector.h"
#include "platform/failure.h"
#include "platform/files/paths.h"
#include "recovery/left_records.h"
#include "workbench/format_window.h"

namespace workbench {

using platform::Position;
using platform::Text;

namespace {

// A power cut takes what came after the last sync; a second at most, and this leaves the disk some
// time for it.
constexpr int kSyncAfter = 500;  // milliseconds

}  // namespace

// As NameNevis will read it at the next paint.
core::CollectionKey Form3::KeyInHand() {
  core::CollectionKey key{rowLetter, rowDigit};
  platform::Ignoring([&] {
    if (form1_.dataName.ListCount() > 0) key = core::ReadKey(form1_.dataName.Text());
  });
  return key;
}

// By its own name, so that it is the same by whichever path an editor comes to it. A field that is
// just being typed into names no folder, and the work stays where it was. Costs nothing while the
// field stays as it is.
const Text& Form3::BookFolder() {
  Text named = form1_.idir.Text();
  if (named == bookNamed_) return bookFolder_;
  bookNamed_ = std::move(named);
  if (const auto real = platform::RealFolder(bookNamed_)) {
    bookFolder_ = platform::DoSlash(*real);
  } else if (bookFolder_.empty()) {
    bookFolder_ = platform::DoSlash(bookNamed_);
  }
  return bookFolder_;
}

recovery::Collection Form3::CollectionInHand() {
  const core::CollectionKey key = KeyInHand();
  return {BookFolder(), key.letter + key.digit};
}

// The text that the box is designed with is nobody's work: the first edit after it tells the
// whole.
std::optional<platform::TextEdit> Form3::TakeTextEdit() {
  std::optional<platform::TextEdit> edit = matn.TakeEdit();
  if (edit) textIsUntouched_ = false;
  if (const auto replaced = std::exchange(replacedByRead_, std::nullopt)) {
    edit = platform::TextEdit{0, *replaced, matn.TextLength()};
  }
  if (edit && !std::exchange(textIsWork_, true)) {
    edit = platform::TextEdit{0, 0, matn.TextLength()};
  }
  return edit;
}

// What stands in matn now came from where it stands still; what is done to it from here on is the
// editor's.
void Form3::TextWasRead() {
  const std::optional<platform::TextEdit> edit = matn.TakeEdit();
  if (edit && !replacedByRead_) replacedByRead_ = edit->removed;
  textIsUntouched_ = true;
}

recovery::LiveWork Form3::Live() {
  const std::optional<platform::TextEdit> edit = TakeTextEdit();
  return {.filed = *this,
          .fields = {.title = bname.Text(),
                     .restFile = currentBook,
                     .chosenImage = chosenImage,
                     .galleryFolder = pictures.galleryFolder,
                     .restIsUntouched = textIsUntouched_},
          .collection = CollectionInHand(),
          .restEdit = edit,
          .rest =
              [this](Position start, Position count) {
                return textIsWork_ ? matn.EditedText(start, count) : Text();
              },
          .restLength = textIsWork_ ? matn.TextLength() : 0};
}

void Form3::KeepRecord() {
  if (!isOpen_) return;
  keeper_.Keep(Live());
  recoveryWindow_.Refresh();
  if (!keeper_.NeedsSync() || std::exchange(syncIsDue_, true)) return;
  watch_.After(kSyncAfter, [this] {
    syncIsDue_ = false;
    if (isOpen_) keeper_.Sync(Live());
  });
}

void Form3::ForgetRecord() {
  recordBegins_ = true;
  keeper_.Drop();
  recoveryWindow_.Dismiss();
}

void Form3::BeginRecord() {
  if (isOpen_ && std::exchange(recordBegins_, false)) keeper_.Start(Live());
}

void Form3::OfferRecords() {
  if (!isOpen_) return;
  bookNamed_.clear();
  report_.Catching(core::failure::kBringBack,
                   [&] { recoveryWindow_.Offer(keeper_.FindLeft(CollectionInHand()), *this); });
}

// Where this run can keep no record, the one that was brought back is the work's still; where it
// can't be removed, it goes with the build.
bool Form3::BringBack(recovery::LeftRecord& record, recovery::Work& work) {
  keeper_.SetAside(Live());
  bool brought = false;
  report_.Catching(core::failure::kBringBack, [&] {
    TakeOver(work);
    brought = true;
  });
  ShowGalleryAgain();
  const bool isKept = keeper_.KeepWhole(Live());
  if (!brought) return false;
  if (!isKept || !DropRecord(record)) keeper_.Hold(std::move(record.file));
  return true;
}

bool Form3::DropRecord(recovery::LeftRecord& record) {
  bool dropped = false;
  report_.Catching(core::failure::kDropRecord, [&] {
    record.file->Remove();
    dropped = true;
  });
  return dropped;
}

void Form3::TakeOver(recovery::Work& work) {
  static_cast<FiledWork&>(*this) = std::move(work.filed);
  currentBook = work.fields.restFile;
  chosenImage = work.fields.chosenImage;
  pictures.galleryFolder = work.fields.galleryFolder;
  bname.SetText(work.fields.title);
  bindex.Clear();
  for (std::ptrdiff_t row = 0; row < lines.Rows().Count(); ++row) bindex.AddItem(lines.Rows()(row));
  ShowMainOpen();
  matn.SetText(platform::Replace(work.rest, u"\n", platform::kCrLf));
  Mright();
  if (work.fields.restIsUntouched) TextWasRead();
}

// The browser shows the folder that it showed, if that is there still.
void Form3::ShowGalleryAgain() {
  report_.Catching(core::failure::kPickGalleryFolder, [&] {
    ShowGalleryMode(galleryMode);
    if (!galleryMode) return;
    const Text folder = pictures.galleryFolder;
    const bool isThere = !folder.empty() && FileSys().FolderExists(folder);
    SetGalFol(isThere ? folder : form1_.TheMachine().programFolder, 0);
  });
}

}  // namespace workbench
