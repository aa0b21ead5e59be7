#include "tools/kill_test/editor.h"

#include <filesystem>
#include <fstream>

#include "platform/files/paths.h"
#include "platform/text/encoding.h"
#include "workbench/clean_up.h"

namespace kill_test {

namespace fs = std::filesystem;
using platform::Text;
using testing_support::Robot;

namespace {

constexpr int kParagraphs = 60;

Text RawText() {
  Text text;
  for (int i = 0; i < kParagraphs; ++i) {
    text.append(u"سرفصل ").append(platform::FromNumber(i)).append(platform::kCrLf);
    text.append(u"متن شماره ").append(platform::FromNumber(i));
    text.append(u" از اين كتاب! و چند كلمه ديگر.").append(platform::kCrLf);
  }
  return text;
}

Text PathOf(const std::string& hostPath) { return platform::ToolPath(hostPath); }

}  // namespace

std::string InputBytes() { return platform::EncodeMachineCodePage(RawText()); }

Text CleanInput() { return platform::Replace(workbench::Rep(RawText()), platform::kCrLf, u"\n"); }

Editor::Editor(const std::string& work)
    : work_(work), desk_(true, PathOf(work + "/state/recovery")) {
  for (const char* folder : {"/Texts", "/Pictures"}) fs::create_directories(work_ + folder);
  std::ofstream(work_ + "/Texts/One.txt", std::ios::binary) << InputBytes();
  std::ofstream(work_ + "/attached.pdf") << "a file";
  for (int i = 1; i <= kPictures; ++i) {
    const std::string name = "p" + std::to_string(i) + ".jpg";
    desk_.AddPicture(name);
    fs::copy_file(desk_.HostPath("Pictures/" + name), work_ + "/Pictures/" + name,
                  fs::copy_options::skip_existing);
  }
}

Text Editor::PicturesPath() const { return PathOf(work_ + "/Pictures"); }

void Editor::Open() {
  desk_.MakeFolders("Texts");
  desk_.Start();
  desk_.form1.idir.SetText(PathOf(work_ + "/Data"));
  desk_.form1.Text1.SetText(PathOf(work_ + "/Texts"));
  desk_.PressNext();
}

// The picture that was chosen last counts where the chooser is closed.
void Editor::PutPictureIntoText() {
  desk_.form3.SetChosenImage(PicturesPath() + u"\\p1.jpg");
  desk_.robot.WhenShown("Form5", [] { Robot::CloseWindow("Form5"); });
  Robot::Select("Form6", "matn", 0, 0);
  Robot::RightClick("Form6", "matn");
  Robot::ChooseFromMenu("popM", "picM");
}

void Editor::Attach() { desk_.form6.picB.SetText(PathOf(work_ + "/attached.pdf")); }

void Editor::OpenPictures(const QString& window) {
  desk_.form3.SetGalFol(PicturesPath(), window == QLatin1String("Form3") ? 0 : 1);
}

std::string Editor::Described() {
  const auto& form3 = desk_.form3;
  const filed::EntryTable& table = form3.table;
  Shown shown{.count = static_cast<int>(form3.entryCount),
              .mainOpen = static_cast<int>(form3.mainOpen),
              .images = static_cast<int>(form3.imageCount),
              .galleryMode = form3.galleryMode,
              .title = platform::ToUtf8(form3.bname.Text()),
              .rest = platform::ToUtf8(form3.matn.EditedText())};
  for (std::ptrdiff_t row = 0; !table.entryTitle(row).empty(); ++row) {
    const Text& text = table.entryText(row);
    const Text plain = text.starts_with(u"{\\rtf") ? desk_.form3.ToTXT(text) : text;
    shown.rows.push_back({platform::ToUtf8(table.entryTitle(row)), platform::ToUtf8(plain),
                          !table.entryAttach(row).empty()});
  }
  const auto nameOf = [](const Text& path) {
    return platform::ToUtf8(platform::After(path, u"\\"));
  };
  for (int row = 0; row < 400; ++row) {
    if (table.entryGallery(row)) shown.isGallery[row] = true;
    for (std::ptrdiff_t slot = 0; !table.entryGalPath(row, slot).empty(); ++slot) {
      shown.gallery[row].push_back(nameOf(table.entryGalPath(row, slot)));
    }
  }
  for (std::ptrdiff_t slot = 0; !table.galleryPic(slot, 0).empty(); ++slot) {
    shown.chosen.push_back(nameOf(table.galleryPic(slot, 0)));
  }
  return Describe(shown);
}

}  // namespace kill_test
