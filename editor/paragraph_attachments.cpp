// What hangs on an entry beside its text: how a file, a sound, a film and a background are picked.
#include <array>

#include "core/numbers.h"
#include "editor/paragraph_window.h"

namespace editor {

using platform::TextView;

namespace {

constexpr TextView kClickChanges = u"براي تغيير پس\u200Fزمينه كليك كنيد!\u200F";
constexpr TextView kClickRemoves = u"براي حذف پس\u200Fزمينه كليك كنيد!\u200F";

}  // namespace

// The controls of each medium that has a path to be seen.
struct Form6::MediumControls {
  core::Medium medium;
  platform::TextBox Form6::*path;
  void (Form6::*pick)();
  platform::Button Form6::*chooser;
  std::int16_t emptying;  // the index in btn

  static constexpr auto Table() {
    return std::to_array<MediumControls>({
        {core::Medium::kAttachment, &Form6::picB, &Form6::Command5_Click, &Form6::Command5, 1},
        {core::Medium::kSound, &Form6::soutB, &Form6::Command1_Click, &Form6::Command1, 2},
        {core::Medium::kFilm, &Form6::filmB, &Form6::Command2_Click, &Form6::Command2, 3},
    });
  }
};

void Form6::WireMedia() {
  for (const MediumControls& each : MediumControls::Table()) {
    platform::TextBox& path = this->*each.path;
    path.onGotFocus = [&path] { path.SelectAll(); };
    (this->*each.chooser).onClick = [this, pick = each.pick] { (this->*pick)(); };
  }
}

workbench::ParagraphFields Form6::Fields() {
  workbench::ParagraphFields fields{bname, matn, {}, Image1, Frame4};
  for (const MediumControls& each : MediumControls::Table()) {
    fields.paths[each.medium] = &(this->*each.path);
  }
  return fields;
}

void Form6::EmptyPath(std::int16_t button) {
  for (const MediumControls& each : MediumControls::Table()) {
    if (each.emptying == button) (this->*each.path).SetText(u"");
  }
}

void Form6::Pick(core::Medium medium) {
  const core::MediumRow& row = core::RowOf(medium);
  report_.Catching(row.pickFailure, [&] { form1_.RequestFile(row.chooserKey, row.pattern, this); });
}

void Form6::Command1_Click() { Pick(core::Medium::kSound); }
void Form6::Command2_Click() { Pick(core::Medium::kFilm); }
void Form6::Command5_Click() { Pick(core::Medium::kAttachment); }

void Form6::Command3_Click() { form3_.ComClick(); }

void Form6::Image1_Click() {
  report_.Catching(core::failure::kClickBackground, [&] {
    if (Image1.Tag().empty()) return Pick(core::Medium::kBackground);
    Image1.SetTag(u"");
    Image1.ClearPicture();
    Image1.SetToolTip(kClickChanges);
  });
}

void Form6::SetMedium(core::Medium medium, TextView path) {
  Fields().SetPath(medium, path);
  if (medium == core::Medium::kBackground) TgDo();
}

void Form6::TgDo() {
  report_.Catching(core::failure::kShowBackground, [&] {
    const platform::Text path = Image1.Tag();
    if (path.empty() || !FileSys().FileExists(path)) return;
    Image1.LoadPicture(path);
    Image1.SetToolTip(kClickRemoves);
  });
}

}  // namespace editor
