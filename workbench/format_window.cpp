#include "workbench/format_window.h"

#include <utility>

#include "core/book_places.h"
#include "core/numbers.h"
#include "core/selector.h"
#include "platform/failure.h"
#include "support/window_catalogue.h"

namespace workbench {

using platform::Text;
using platform::TextView;

Form3::Form3(core::Form1& form1)
    : Window(support::Form3Definition()),
      form1_(form1),
      report_(form1),
      keeper_(form1.TheMachine().records, [this](TextView line) { report_.LogMe(line); }),
      recoveryWindow_(
          {.isTableEmpty = [this] { return filed::IsEmpty(*this); },
           .collectionInHand = [this] { return CollectionInHand(); },
           .bring = [this](recovery::LeftRecord& record,
                           recovery::Work& work) { return BringBack(record, work); },
           .drop = [this](recovery::LeftRecord& record) { return DropRecord(record); }}),
      watch_([this] { KeepRecord(); }) {
  WireHandlers();
}

void Form3::WireHandlers() {
  Com.ForEach([this](platform::Button& command) {
    const auto index = static_cast<std::int16_t>(command.Index());
    command.onClick = [this, index] { Com_Click(index); };
  });
  matn.onKeyDown = [this](int keyCode, int) { matn_KeyDown(keyCode); };
  books.onClick = [this] { books_Click(); };
  bname.onKeyPress = [this](int keyCode) { bname_KeyPress(keyCode); };
  chnd.onGotFocus = [this] { chnd_GotFocus(); };
  chnd.onLostFocus = [this] { chnd_LostFocus(); };
  HazC.ForEach([this](platform::Button& rebuild) {
    const auto index = static_cast<std::int16_t>(rebuild.Index());
    rebuild.onClick = [this, index] { HazC_Click(index); };
  });
  bindex.onMouseUp = [this] { bindex_MouseUp(); };
  IMC.ForEach([this](platform::CheckBox& tick) {
    const int row = tick.Index();
    tick.onMouseUp = [this, row] { IMC_MouseUp(row); };
  });
  VSC.onChange = [this] { VSC_Change(); };
  SelAll.onClick = [this] { SelAll_Click(); };
  Command1.onClick = [this] { Command1_Click(); };
  Timer1.onTimer = [this] { Timer1_Timer(); };
}

void Form3::Form_Load() {
  report_.Catching(core::failure::kLoadWorkbench, [&] {
    report_.LogMe(u"Format started.");
    words = SplitVocabulary(form1_.vocabulary);
    NameNevis();
    ResetA();
    galleryMode = false;
    entryCount = 0;
    mainOpen = 0;
    imageCount = 0;
    ForgetFormerRun();
    Chek.SetValue(true);
    designGeometry = TakeGeometry(
        Definition().rows, Width(), Height(),
        [this](TextView name, int index, Measure each) { return ReadMeasure(name, index, each); });
    fileSys = std::make_unique<platform::FileSystemObject>(form1_.TheMachine().files);
    Mright();
    FileList();
    mainMark = u">>> تيتر اصلي";
    mainEndMark = u">>> پايان تيتر";
    identityWord = u"شناسنامه";
    ReadImageMark();
    if (Frame4.Visible()) Com_Click(static_cast<std::int16_t>(Mark::kGalleryMode));
  });
  static_cast<void>(matn.TakeEdit());  // opening the window is no edit of the editor's
  textIsWork_ = false;
  replacedByRead_.reset();
  isOpen_ = true;
  recordBegins_ = true;
  BeginRecord();
}

// What ResetA leaves alone would otherwise outlive the window.
void Form3::ForgetFormerRun() {
  for (Text* member : {&lastMainText, &imageMark, &chosenImage, &currentBook}) {
    member->clear();
  }
  editIndex = 0;
  wordLimit = 0;
  pictures = {};
}

void Form3::Form_Unload() {
  if (isOpen_) keeper_.Sync(Live());
  isOpen_ = false;
  keeper_.Close();
  recoveryWindow_.Dismiss();
  report_.LogMe(u"Format ended.");
  fileSys.reset();
}

// A blinking caret paints twice a second. A selection that can't be read would fill the log with
// that, so it is not read again until it is another one.
void Form3::Form_Paint() {
  const Text selected = form1_.dataName.Text();
  if (!selectionWasRead_ && selected == unreadSelection_) return;
  NameNevis();
  if (!selectionWasRead_) unreadSelection_ = selected;
}

void Form3::Timer1_Timer() {
  if (State() != platform::WindowState::kMinimised) return;
  form1_.SetState(platform::WindowState::kMinimised);
  Timer1.SetTimerEnabled(false);
  form1_.Timer1.SetTimerEnabled(true);
}

void Form3::NameNevis() {
  selectionWasRead_ = false;
  report_.Catching(core::failure::kNameCollection, [&] {
    Text caption(kAllCollectionsBuilt);
    if (form1_.dataName.ListCount() > 0) {
      core::CollectionKey key = core::ReadKey(form1_.dataName.Text());
      rowLetter = std::move(key.letter);
      rowDigit = std::move(key.digit);
      caption = CollectionLabel(rowLetter, rowDigit);
    }
    // A write during a paint asks for the next paint.
    if (BookLabel.Caption() != caption) BookLabel.SetCaption(caption);
    selectionWasRead_ = true;
  });
}

void Form3::ResetA() {
  report_.Catching(core::failure::kReset, [&] {
    Com(static_cast<int>(Mark::kMainTitle)).SetCaption(MainTitleCaption(0));
    entryCount = 0;
    imageCount = 0;
    mainOpen = 0;
    bname.SetText(u"");
    table.Clear();
    IndexEmpty();
  });
}

void Form3::IndexEmpty() {
  report_.Catching(core::failure::kEmptyList, [&] {
    bindex.Clear();
    lines.Clear();
  });
}

std::int16_t Form3::FileList() {
  std::int16_t count = 0;
  report_.Catching(core::failure::kListTexts, [&] {
    report_.LogMe(u"Geting files in the directory...");
    books.Clear();
    for (const Text& name : FileSys().FileNames(form1_.Text1.Text())) {
      if (!platform::EqualsIgnoringCase(platform::After(name, u"."), u"TXT")) continue;
      books.AddItem(name);
      count = platform::ToInt16(count + 1.0);
    }
    if (count == 0) report_.bepayam(core::message::kNoInputTexts);
  });
  return count;
}

platform::FileSystemObject& Form3::FileSys() {
  if (fileSys == nullptr) throw platform::Failure(u"Object variable not set: fileSys");
  return *fileSys;
}

Text Form3::ReadWhole(TextView path) {
  platform::TextStream stream = FileSys().OpenTextFile(path, platform::IoMode::kForReading);
  Text text = stream.ReadAll();
  stream.Close();
  return text;
}

void Form3::ReadImageMark() {
  const Text path = core::ImageMarkFile(DoSlash(form1_.TheMachine().programFolder));
  if (FileSys().FileExists(path)) imageMark = ReadWhole(path);
}

void Form3::ShowWorkbench() {
  const bool opens = !IsVisible();
  Show();
  if (opens) OfferRecords();
}

void Form3::RestoreWorkbench() {
  if (IsLoaded()) SetState(platform::WindowState::kNormal);
}

void Form3::StartWorkbenchTimer() {
  if (IsLoaded()) Timer1.SetTimerEnabled(true);
}

void Form3::SetChosenImage(TextView path) { chosenImage = path; }

}  // namespace workbench
