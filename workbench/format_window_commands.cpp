// The marking commands: what is selected in the text goes into the title or into the entry table.
// They ask the text box for its selection only, so that a command costs what the passage costs.

#include "core/numbers.h"
#include "platform/windows/application.h"
#include "platform/windows/message_box.h"
#include "workbench/format_window.h"

namespace workbench {

using platform::Text;
using platform::TextView;

void Form3::Com_Click(std::int16_t index) {
  report_.Catching(core::failure::kMark, [&] {
    report_.LogMe(u"Format number " + platform::FromNumber(index) + u" clicked.");
    const auto command = static_cast<Mark>(index);
    RunCommand(command);
    if (command != Mark::kMainTitleEnd) EndCommand(command);
  });
}

void Form3::RunCommand(Mark command) {
  switch (command) {
    case Mark::kTitle:
    case Mark::kTitleInBrackets:
    case Mark::kTitleAfterDash:
    case Mark::kTitleAfterColon:
    case Mark::kTitleAfterSemicolon:
      return AddToTitle(command);
    case Mark::kIdentity:
      return FileIdentity();
    case Mark::kHeading:
      return StartHeading();
    case Mark::kHeadingText:
      return FinishHeading();
    case Mark::kDelete:
      return matn.SetSelText(u"");
    case Mark::kMainTitle:
      return OpenMainTitle();
    case Mark::kMainTitleEnd:
      return CloseMainTitle();
    case Mark::kBuild:
      matn.SetText(u"");
      return MakeFile();
    case Mark::kBuildGallery:
      return MakeFile();
    case Mark::kGalleryMode:
      return SwitchGalleryMode();
  }
}

void Form3::EndCommand(Mark command) {
  if (Chek.Value() && command != Mark::kDelete) matn.SetSelText(u"");
  matn.SetSelStart(0);
}

void Form3::AddToTitle(Mark command) {
  bname.SetText(TitleWith(command, bname.Text(), matn.SelText()));
}

void Form3::FileIdentity() {
  table.entryTitle.Set(entryCount, identityWord);
  InsertLine(identityWord);
  table.entryText.Set(entryCount, Trimmed(matn.SelRTF()));
  AddTextToLine(matn.SelText());
  ++entryCount;
}

// The row stays pending, and entryCount with it, until it gets its text.
void Form3::StartHeading() {
  table.entryTitle.Set(entryCount, Trimmed(matn.SelText()));
  table.entryTitle.Set(entryCount, DelCrLf(table.entryTitle(entryCount)));
  InsertLine(BeBor(table.entryTitle(entryCount), kShownTitle));
}

void Form3::FinishHeading() {
  table.entryText.Set(entryCount, Trimmed(matn.SelRTF()));
  AddTextToLine(matn.SelText());
  ++entryCount;
}

void Form3::OpenMainTitle() {
  table.entryTitle.Set(entryCount, mainMark);
  InsertLine(BeBor(mainMark, kShownTitle));
  table.entryText.Set(entryCount, Trimmed(matn.SelText()));
  lastMainText = table.entryText(entryCount);
  AddTextToLine(lastMainText);
  ++entryCount;
  ++mainOpen;
  ShowMainOpen();
}

void Form3::CloseMainTitle() {
  if (mainOpen <= 0) {
    platform::ShowNotice(u"تيتري براي بستن وجود ندارد!\u200F", platform::kApplicationTitle);
    return;
  }
  table.entryTitle.Set(entryCount, mainEndMark);
  InsertLine(BeBor(mainEndMark, kShownTitle));
  table.entryText.Set(entryCount, lastMainText);
  AddTextToLine(lastMainText);
  ++entryCount;
  --mainOpen;
  ShowMainOpen();
}

// A new line for row entryCount, selected.
void Form3::InsertLine(TextView line) {
  bindex.InsertItem(entryCount, u"");
  bindex.SetList(entryCount, line);
  lines.Insert(entryCount, Text(line));
  bindex.SetListIndex(entryCount);
}

// Fails where row entryCount has no line, before anybody counts the row.
void Form3::AddTextToLine(TextView text) {
  const Text line = LineWithText(bindex.List(entryCount), BeBor(text, kShownText));
  bindex.SetList(entryCount, line);
  lines.Rows().Set(entryCount, line);
}

void Form3::ShowMainOpen() {
  Com(static_cast<int>(Mark::kMainTitle)).SetCaption(MainTitleCaption(mainOpen));
}

void Form3::matn_KeyDown(int keyCode) {
  const auto key = KeyMeaning(keyCode);
  if (!key) return;
  if (key->needsSelection && matn.SelLength() == 0) return;
  if (key->action == MarkingKey::Action::kToggleRemoval) {
    Chek.SetValue(!Chek.Value());
  } else {
    Com_Click(static_cast<std::int16_t>(key->command));
  }
}

void Form3::bname_KeyPress(int keyCode) {
  constexpr int kCtrlA = 1;
  if (keyCode == kCtrlA) bname.SelectAll();
}

}  // namespace workbench
