// What hangs on an entry beside its text: how a file, a sound, a film and a background are picked.
#include "core/numbers.h"
#include "editor/paragraph_window.h"

namespace editor {

using platform::TextView;

namespace {

constexpr TextView kClickChanges = u"براي تغيير پس\u200Fزمينه كليك كنيد!\u200F";
constexpr TextView kClickRemoves = u"براي حذف پس\u200Fزمينه كليك كنيد!\u200F";

}  // namespace

void Form6::Command1_Click() {
  form1_.Catching(core::failure::kPickSound, [&] { form1_.RequestFile(u"C6d1", u"*.mp3", this); });
}

void Form6::Command2_Click() {
  form1_.Catching(core::failure::kPickFilm, [&] { form1_.RequestFile(u"C6d2", u"*.flv", this); });
}

void Form6::Command5_Click() {
  form1_.Catching(core::failure::kPickAttachment,
                  [&] { form1_.RequestFile(u"C6d5", u"*.*", this); });
}

void Form6::Command3_Click() { form3_.ComClick(); }

void Form6::Image1_Click() {
  form1_.Catching(core::failure::kClickBackground, [&] {
    if (Image1.Tag().empty()) {
      form1_.RequestFile(u"Pasz", core::kPicturePattern, this);
      return;
    }
    Image1.SetTag(u"");
    Image1.ClearPicture();
    Image1.SetToolTip(kClickChanges);
  });
}

void Form6::SetBackground(TextView path) {
  Image1.SetTag(path);
  TgDo();
}

void Form6::TgDo() {
  form1_.Catching(core::failure::kShowBackground, [&] {
    const platform::Text path = Image1.Tag();
    if (path.empty() || !FileSys().FileExists(path)) return;
    Image1.LoadPicture(path);
    Image1.SetToolTip(kClickRemoves);
  });
}

}  // namespace editor
