#include "editor/paragraph_window.h"

#include "core/book_places.h"
#include "core/numbers.h"
#include "platform/failure.h"
#include "platform/windows/clipboard.h"
#include "support/window_catalogue.h"

namespace editor {

using platform::Text;
using platform::TextView;

namespace {

// Of the folder's path over the gallery, in characters.
constexpr platform::Position kLongestPath = 90;

constexpr int kRightButton = 2;

}  // namespace

Form6::Form6(workbench::Form3& form3)
    : Window(support::Form6Definition()), form3_(form3), form1_(form3.TheForm1()), report_(form1_) {
  WireButtons();
  WireMenu();
  WireBrowser();
}

void Form6::WireButtons() {
  btn.ForEach([this](platform::Button& button) {
    const auto index = static_cast<std::int16_t>(button.Index());
    button.onClick = [this, index] { btn_Click(index); };
  });
  WireMedia();
  Image1.onClick = [this] { Image1_Click(); };
}

void Form6::WireMenu() {
  matn.onMouseUp = [this](int button) { matn_MouseUp(button); };
  picM.onClick = [this] { picM_Click(); };
  copyM.onClick = [this] { copyM_Click(); };
  cutM.onClick = [this] { cutM_Click(); };
  pasteM.onClick = [this] { pasteM_Click(); };
  delM.onClick = [this] { delM_Click(); };
}

void Form6::WireBrowser() {
  IMC.ForEach([this](platform::CheckBox& tick) {
    const int row = tick.Index();
    tick.onMouseUp = [this, row] { form3_.IMCmous(row); };
  });
  VSC.onChange = [this] { form3_.VSCchange(); };
  Command3.onClick = [this] { Command3_Click(); };
}

void Form6::Form_Load() {
  report_.Catching(core::failure::kLoadParagraphWindow, [&] {
    fileSys = std::make_unique<platform::FileSystemObject>(form1_.TheMachine().files);
    form3_.ShowEdit();
    if (!FileSys().FileExists(core::ImageMarkFile(form1_.ProgramRoot()))) picM.SetEnabled(false);
  });
}

void Form6::Form_Unload() { fileSys.reset(); }

platform::FileSystemObject& Form6::FileSys() {
  if (fileSys == nullptr) throw platform::Failure(u"Object variable not set: fileSys");
  return *fileSys;
}

void Form6::btn_Click(std::int16_t index) {
  report_.Catching(core::failure::kPressButton, [&] { Press(index); });
}

void Form6::Press(std::int16_t index) {
  switch (index) {
    case 0:
      form3_.Ohazf();
      return Unload();
    case 4:
      if (CHK()) form3_.DoEdit();
      return;
    case 5:
      return SwitchGallery();
    default:
      return EmptyPath(index);
  }
}

bool Form6::CHK() {
  bool found = true;
  const workbench::ParagraphFields fields = Fields();
  for (const core::MediumRow& each : core::kMedia) {
    if (each.missing == 0) continue;
    const Text file = fields.Path(each.medium);
    if (file.empty() || FileSys().FileExists(file)) continue;
    found = false;
    report_.bepayam(each.missing);
  }
  return found;
}

void Form6::SwitchGallery() {
  const bool on = !Frame4.Visible();
  btn(5).SetCaption(on ? TextView(u"حذف گالري") : TextView(u"تبديل به گالري"));
  Frame4.SetVisible(on);
  if (on) {
    form3_.SetGalFol(form1_.TheMachine().programFolder, 1);
  } else {
    form3_.RemGalAll(1);
  }
}

void Form6::matn_MouseUp(int button) {
  if (button != kRightButton) return;
  report_.Catching(core::failure::kOpenMenu, [&] {
    const bool selected = matn.SelLength() > 0;
    for (platform::MenuItem* item : {&copyM, &cutM, &delM}) item->SetEnabled(selected);
    pasteM.SetEnabled(platform::ClipboardHasText());
    popM.Show();
  });
}

void Form6::picM_Click() { form3_.DoIMG(); }

void Form6::copyM_Click() {
  report_.Catching(core::failure::kCopy, [&] { platform::SetClipboardText(matn.SelText()); });
}

void Form6::cutM_Click() {
  report_.Catching(core::failure::kCut, [&] {
    platform::SetClipboardText(matn.SelText());
    matn.SetSelText(u"");
  });
}

void Form6::delM_Click() {
  report_.Catching(core::failure::kDelete, [&] { matn.SetSelText(u""); });
}

void Form6::pasteM_Click() {
  report_.Catching(core::failure::kPaste, [&] {
    if (platform::ClipboardHasText()) matn.SetSelText(platform::ClipboardText());
  });
}

gallery::Browser Form6::Browser() { return {IMF, IMG, IMJ, IMC, IMN, VSC, ShPath, kLongestPath}; }

}  // namespace editor
