// The window's side of a build, and the conversions of an entry's text that a build asks for.
#include <utility>

#include "core/book_places.h"
#include "core/numbers.h"
#include "platform/rtf/rtf.h"
#include "platform/windows/application.h"
#include "platform/windows/busy_pointer.h"
#include "platform/windows/message_box.h"
#include "workbench/build_pass.h"
#include "workbench/format_window.h"
#include "workbench/inline_images.h"

namespace workbench {

using platform::Text;
using platform::TextView;

namespace {

// What the pass sees of the two windows.
class WorkbenchDesk : public BuildDesk {
 public:
  WorkbenchDesk(Form3& form3, core::Form1& form1) : form3_(form3), form1_(form1) {}

  void LogMe(TextView text) override { form1_.LogMe(text); }
  void bepayam(std::int16_t number) override { form1_.bepayam(number); }
  void ShowNotice(TextView prompt) override {
    platform::ShowNotice(prompt, platform::kApplicationTitle);
  }
  bool AskYesNo(TextView prompt) override {
    return platform::AskYesNo(prompt, platform::kApplicationTitle) == platform::Answer::kYes;
  }

  Text ProjectFolder() override { return form1_.idir.Text(); }
  Text CollectionTitle() override { return form3_.bname.Text(); }
  void SetCollectionTitle(TextView title) override { form3_.bname.SetText(title); }
  Text BookLabelCaption() override { return form3_.BookLabel.Caption(); }

  Text ToTXT(const Text& richText) override { return form3_.ToTXT(richText); }
  Text ToIMG(Text body) override { return form3_.ToIMG(std::move(body)); }
  Text sndBin(TextView path) override { return form3_.sndBin(path); }
  Text PasBin(TextView path, TextView stem) override { return form3_.PasBin(path, stem); }

  void CollectionIsBuilt() override { form3_.ForgetRecord(); }
  void MakeCombo() override { form1_.MakeCombo(); }
  void NameNevis() override { form3_.NameNevis(); }
  void HideWorkbench() override { form3_.Hide(); }
  void FocusSelector() override { form1_.dataName.SetFocus(); }
  void ResetA() override { form3_.ResetA(); }

 private:
  Form3& form3_;
  core::Form1& form1_;
};

}  // namespace

void Form3::MakeFile() {
  report_.Catching(core::failure::kBuild, [&] {
    const platform::BusyPointer busy;
    const BuildOrder order{.work = *this,
                           .words = words,
                           .rowLetter = rowLetter,
                           .rowDigit = rowDigit,
                           .mainMark = mainMark,
                           .mainEndMark = mainEndMark,
                           .identityWord = identityWord};
    WorkbenchDesk desk(*this, form1_);
    core::Machine& machine = form1_.TheMachine();
    BuildPass(desk, order, FileSys(), machine.clock, machine.random).Run();
  });
  BeginRecord();
}

Text Form3::ToTXT(const Text& richText) {
  Text plain;
  report_.Catching(core::failure::kPlainText, [&] {
    // A heading that never got its text is empty, and that is no failure.
    if (!richText.empty()) plain = platform::rtf::PlainText(richText);
    // The box is the conversion's place on the window; it holds nothing between two uses.
    if (ConRT.TextLength() > 0) ConRT.SetText(u"");
  });
  return plain;
}

Text Form3::ToIMG(Text body) {
  report_.Catching(core::failure::kImageTags, [&] {
    const auto bring = [this](const Text& source, TextView name) { BringImage(source, name); };
    const bool hasImages = PutImageTags(body, table.inlineImage, bring);
    body += AddEntr(hasImages ? kTailWithImages : kTailWithoutImages);
  });
  return body;
}

void Form3::BringImage(const Text& source, TextView fileName) {
  CopyIfMissing(FileSys().Files(), source,
                core::InlineImage(DoSlash(form1_.idir.Text()), fileName));
}

Text Form3::AddEntr(std::int16_t count) {
  Text result;
  report_.Catching(core::failure::kBlankParagraphs,
                   [&] { result = workbench::AddEntr(count, words.mainTag); });
  return result;
}

Text Form3::PasBin(TextView path, TextView stem) {
  Text result;
  report_.Catching(core::failure::kBackgroundAttribute,
                   [&] { result = workbench::PasBin(path, stem); });
  return result;
}

Text Form3::sndBin(TextView path) {
  Text result;
  report_.Catching(core::failure::kAttachmentAttributes, [&] { result = workbench::sndBin(path); });
  return result;
}

}  // namespace workbench
