#include "core/project_window.h"

#include <initializer_list>

#include "core/book_places.h"
#include "core/joined.h"
#include "core/log.h"
#include "core/numbers.h"
#include "core/selector.h"
#include "core/version.h"
#include "core/vocabulary.h"
#include "platform/failure.h"
#include "platform/files/paths.h"
#include "platform/windows/application.h"
#include "support/window_catalogue.h"

namespace core {

using platform::Position;
using platform::Text;
using platform::TextView;

namespace {

Text StartNote() {
  return Joined({platform::kApplicationTitle, u" v", platform::FromNumber(kVersionMajor), u".",
                 platform::FromNumber(kVersionMinor), u".", platform::FromNumber(kVersionRevision),
                 u" started."});
}

}  // namespace

Form1::Form1(Machine& machine)
    : Window(support::Form1Definition()),
      Reporter(machine),
      machine_(machine),
      folderChooser_([this] { upd(); }),
      fileChooser_([this] { upd(); }) {
  WireFields();
  WireButtons();
}

void Form1::WireFields() {
  for (platform::TextBox* field :
       {&Back, &Mus1, &Mus2, &Text1, &title, &shenas, &matn, &ExBox, &index, &idir}) {
    field->onGotFocus = [field] { field->SelectAll(); };
  }
  for (platform::TextBox* count : {&title, &matn, &shenas}) {
    count->onLostFocus = [this] { MakeCombo(); };
  }
  idir.onChange = [this] { idir_Change(); };
  bMus.ForEach([this](platform::OptionButton& option) {
    option.onClick = [this] { bMus_Click(); };
    option.onKeyUp = [this] { bMus_KeyUp(); };
  });
}

void Form1::WireButtons() {
  Command1.onClick = [this] { Command1_Click(); };
  Command2.onClick = [this] { Command2_Click(); };
  Command3.onClick = [this] { Command3_Click(); };
  Command4.onClick = [this] { Command4_Click(); };
  Command5.onClick = [this] { Command5_Click(); };
  Command6.onClick = [this] { Command6_Click(); };
  Command7.onClick = [this] { Command7_Click(); };
  Command8.onClick = [this] { Command8_Click(); };
  Command9.onClick = [this] { Command9_Click(); };
  Command10.onClick = [this] { Command10_Click(); };
  Timer1.onTimer = [this] { Timer1_Timer(); };
}

void Form1::Form_Load() {
  Catching(failure::kLoadProjectWindow, [&] {
    fileSys = std::make_unique<platform::FileSystemObject>(machine_.files);
    LogThrough(fileSys.get());
    LogMe(Joined({u"Closing last log.\r\n\r\n", kLogRule, u"\r\n"}));
    LogMe(StartNote());
    InitVocabulary();
    txtFolder = kTxtFolder;
    xmlFolder = kXmlFolder;
    bMus(0).SetValue(true);
    Olgoo(0).SetValue(true);
    MakeCombo();
  });
}

void Form1::Form_Unload() {
  Hide();
  LogMe(u"Zorvand ended.");
  LogThrough(nullptr);
  fileSys.reset();
  platform::EndProcess(0);
}

platform::FileSystemObject& Form1::FileSys() {
  if (fileSys == nullptr) throw platform::Failure(u"Object variable not set: fileSys");
  return *fileSys;
}

Text Form1::DoSlash(TextView path) {
  Text slashed(path);
  Catching(failure::kSlashPath, [&] { slashed = platform::DoSlash(path); });
  return slashed;
}

Text Form1::ProgramRoot() { return DoSlash(machine_.programFolder); }

Text Form1::BookRoot() { return DoSlash(idir.Text()); }

Text Form1::LoadVocabulary() {
  Text record(kVocabularyRecord);
  vocabulary = WithTodaysWords(record);
  return record;
}

void Form1::InitVocabulary() { vocabulary = LoadVocabulary(); }

void Form1::RefreshVocabulary() { vocabulary = LoadVocabulary(); }

void Form1::MakeCombo() {
  Catching(failure::kListCollections, [&] {
    LogMe(u"Making combo...");
    dataName.Clear();
    ListRow(0, title.Text());
    ListRow(1, matn.Text());
    ListRow(2, shenas.Text());
    if (dataName.ListCount() > 0) dataName.SetListIndex(0);
    LogMe(
        Joined({u"Combo made by ", title.Text(), u", ", matn.Text(), u", ", shenas.Text(), u"."}));
  });
}

void Form1::ListRow(std::size_t row, TextView count) {
  const CollectionRow& collections = kCollectionRows[row];
  const auto isBuilt = [&](TextView digit) {
    return FileSys().FileExists(CollectionFile(BookRoot(), xmlFolder, collections.letter, digit));
  };
  ListWaiting(collections, count, isBuilt, [&](TextView entry) { dataName.AddItem(entry); });
}

void Form1::Command4_Click() {
  Catching(failure::kHelp, [&] {
    if (ports_.help != nullptr) ports_.help->ShowHelp(*this);
  });
}

void Form1::Command10_Click() {
  if (ports_.exporting != nullptr) ports_.exporting->Export();
}

void Form1::Timer1_Timer() {
  Catching(failure::kRestoreWindows, [&] {
    if (State() == platform::WindowState::kMinimised) return;
    if (ports_.workbench != nullptr) ports_.workbench->RestoreWorkbench();
    Timer1.SetTimerEnabled(false);
    if (ports_.workbench != nullptr) ports_.workbench->StartWorkbenchTimer();
  });
}

void Form1::bMus_Click() {
  Catching(failure::kMusicSwitch, [&] {
    const bool music = bMus(0).Value();
    for (platform::Control* control : std::initializer_list<platform::Control*>{
             &Mus1, &Mus2, &Command6, &Command7, &Label1, &Label10}) {
      control->SetEnabled(music);
    }
  });
}

void Form1::bMus_KeyUp() { bMus_Click(); }

void Form1::idir_Change() {
  ReadSett();
  MakeCombo();
}

}  // namespace core
