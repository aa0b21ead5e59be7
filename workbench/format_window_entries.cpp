// The bridge between the entry list and the paragraph window: a row goes out to be edited, comes
// back, or is deleted.

#include "core/numbers.h"
#include "platform/failure.h"
#include "workbench/format_window.h"

namespace workbench {

using platform::Text;
using platform::TextView;

ParagraphWindow& Form3::Paragraph() {
  if (paragraph_ == nullptr) throw platform::Failure(u"Object variable not set: Form6");
  return *paragraph_;
}

void Form3::bindex_MouseUp() {
  report_.Catching(core::failure::kOpenRow, [&] {
    report_.LogMe(u"Opening an Onvan...");
    editIndex = platform::ToInt16(static_cast<double>(bindex.ListIndex()));
    if (editIndex == -1 || table.entryTitle(editIndex) == mainEndMark) return;
    Paragraph().TheWindow().ShowModal(this);
  });
}

void Form3::ShowEdit() {
  report_.Catching(core::failure::kShowRow, [&] {
    if (editIndex < 0) return report_.bepayam(core::message::kNoRowToEdit);
    if (table.entryGallery(editIndex)) Paragraph().ToggleGallery();
    const ParagraphFields fields = Paragraph().Fields();
    fields.Image1.ClearPicture();
    const Text& title = table.entryTitle(editIndex);
    fields.bname.SetText(title);
    if (title == identityWord || title == mainMark) fields.bname.SetLocked(true);
    ShowEntryText(fields.matn);
    for (const core::MediumRow& each : core::kMedia) {
      fields.SetPath(each.medium, table.Media(each.medium)(editIndex));
    }
    const Text& background = table.entryBack(editIndex);
    if (!background.empty() && FileSys().FileExists(background)) {
      fields.Image1.LoadPicture(background);
    }
  });
}

// The rows of a main title.
bool Form3::IsTextPlain() const {
  const Text& title = table.entryTitle(editIndex);
  return title == mainMark || title == mainEndMark;
}

// Main titles' texts are plain, and a heading that never got its text has none; what a text is, it
// shows itself, for any title can be given to any row. All rich texts are written by our own boxes,
// which put the direction on every paragraph: turning it here is turning it in the box, without
// another round through a large text.
void Form3::ShowEntryText(platform::RichTextBox& box) {
  const Text& text = table.entryText(editIndex);
  if (text.starts_with(u"{\\rtf")) {
    box.SetTextRTF(platform::Replace(text, u"\\ltrpar", u"\\rtlpar"));
  } else {
    box.SetText(text);
  }
  AlignRight(box);
}

void Form3::DoEdit() {
  report_.Catching(core::failure::kKeepRow, [&] {
    report_.LogMe(u"Editing an Onvan...");
    const ParagraphFields fields = Paragraph().Fields();
    table.entryGallery.Set(editIndex, fields.Frame4.Visible());
    table.entryTitle.Set(editIndex, fields.bname.Text());
    table.entryText.Set(editIndex, IsTextPlain() ? fields.matn.Text() : fields.matn.TextRTF());
    for (const core::MediumRow& each : core::kMedia) {
      table.Media(each.medium).Set(editIndex, fields.Path(each.medium));
    }
    ShowLineOfRow();
    fields.bname.SetLocked(false);
    Paragraph().TheWindow().Unload();
  });
}

void Form3::ShowLineOfRow() {
  const Text& text = table.entryText(editIndex);
  const Text title = BeBor(table.entryTitle(editIndex), kShownTitle);
  const Text plain = BeBor(IsTextPlain() ? text : ToTXT(text), kShownText);
  const Text line = LineWithMarks(LineWithText(title, plain), table.Attached(editIndex));
  bindex.SetList(editIndex, line);
  lines.Rows().Set(editIndex, line);
}

void Form3::Ohazf() {
  report_.Catching(core::failure::kDeleteRow, [&] {
    report_.LogMe(u"Removing an Onvan...");
    bindex.RemoveItem(editIndex);
    lines.Remove(editIndex);
    table.CloseGap(editIndex);
    --entryCount;
    ShowEdit();
  });
}

}  // namespace workbench
