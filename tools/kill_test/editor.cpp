#include "tools/kill_test/editor.h"

#include <QKeyEvent>
#include <QTest>
#include <QTextEdit>
#include <filesystem>
#include <fstream>
#include <map>

#include "platform/files/paths.h"
#include "platform/text/encoding.h"
#include "workbench/clean_up.h"

namespace kill_test {

namespace fs = std::filesystem;
using platform::Text;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
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

const std::map<Deed, int> kKeys = {
    {Deed::kTitle, Qt::Key_F5},   {Deed::kIdentity, Qt::Key_F6},
    {Deed::kHeading, Qt::Key_F2}, {Deed::kHeadingText, Qt::Key_F3},
    {Deed::kDelete, Qt::Key_F11}, {Deed::kMainTitleEnd, Qt::Key_F4},
};
const std::map<Deed, QString> kButtons = {
    {Deed::kTitleInBrackets, QStringLiteral("Com(5)")},
    {Deed::kMainTitle, QStringLiteral("Com(9)")},
    {Deed::kGalleryMode, QStringLiteral("Com(12)")},
    {Deed::kRebuild, QStringLiteral("HazC(12)")},
};

Text PathOf(const std::string& hostPath) { return platform::ToolPath(hostPath); }

}  // namespace

Text Editor::InputText() {
  return platform::Replace(workbench::Rep(RawText()), platform::kCrLf, u"\n");
}

Editor::Editor(const std::string& work)
    : work_(work), desk_(true, PathOf(work + "/state/recovery")) {
  for (const char* folder : {"/Texts", "/Pictures", "/Data/TXT", "/Data/_xml", "/Data/IMG",
                             "/Data/FlashIMG", "/state"}) {
    fs::create_directories(work_ + folder);
  }
  std::ofstream(work_ + "/Texts/One.txt", std::ios::binary)
      << platform::EncodeMachineCodePage(RawText());
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

bool Editor::BringBack() {
  const QWidget* window = Robot::FindWindow("Recovery");
  if (window == nullptr || !window->isVisible()) return false;
  Robot::Click("Recovery", "recoverBring");
  return true;
}

void Editor::InRow(int row, const std::function<void()>& act) {
  desk_.InEntry(row, [act] {
    act();
    if (Robot::FindWindow("Form6") != nullptr && Robot::FindWindow("Form6")->isVisible()) {
      Robot::Click("Form6", "btn(4)");
    }
  });
}

// The picture that was chosen last counts where the chooser is closed.
void Editor::PutPictureIntoText(int row) {
  desk_.form3.SetChosenImage(PicturesPath() + u"\\p1.jpg");
  InRow(row, [this] {
    desk_.robot.WhenShown("Form5", [] { Robot::CloseWindow("Form5"); });
    Robot::Select("Form6", "matn", 0, 0);
    Robot::RightClick("Form6", "matn");
    Robot::ChooseFromMenu("popM", "picM");
  });
}

void Editor::TickEntryPicture(int row, int picture) {
  InRow(row, [this, picture] {
    if (!Robot::Find("Form6", "Frame4").isVisible()) Robot::Click("Form6", "btn(5)");
    desk_.form3.SetGalFol(PicturesPath(), 1);
    GalleryDesk::Tick("Form6", picture);
  });
}

void Editor::TickPicture(int picture) {
  desk_.form3.SetGalFol(PicturesPath(), 0);
  GalleryDesk::Tick("Form3", picture);
}

void Editor::Do(const Operation& operation) {
  if (const auto key = kKeys.find(operation.deed); key != kKeys.end()) {
    Robot::Select("Form3", "matn", 0, operation.length);
    return Robot::PressKey("Form3", "matn", key->second);
  }
  if (const auto button = kButtons.find(operation.deed); button != kButtons.end()) {
    Robot::Select("Form3", "matn", 0, operation.length);
    return Robot::Click("Form3", button->second);
  }
  switch (operation.deed) {
    case Deed::kOpenText:
      return FormatDesk::OpenBook("One.txt");
    case Deed::kTypeTitle:
      return Robot::Type("Form3", "bname", QString::fromStdString(operation.word));
    case Deed::kTypeText:
      Robot::Select("Form3", "matn", operation.from, 0);
      QTest::keyClicks(&Robot::Find("Form3", "matn"), QString::fromStdString(operation.word));
      return Robot::Settle();
    case Deed::kGalleryPicture:
      return TickPicture(operation.length);
    default:
      return DoInRow(operation);
  }
}

void Editor::DoInRow(const Operation& operation) {
  switch (operation.deed) {
    case Deed::kEditTitle:
      return InRow(operation.row,
                   [&] { Robot::Type("Form6", "bname", QString::fromStdString(operation.word)); });
    case Deed::kAttach:
      return InRow(operation.row,
                   [this] { desk_.form6.picB.SetText(PathOf(work_ + "/attached.pdf")); });
    case Deed::kDeleteRow:
      return InRow(operation.row, [] { Robot::Click("Form6", "btn(0)"); });
    case Deed::kPictureInText:
      return PutPictureIntoText(operation.row);
    default:
      return TickEntryPicture(operation.row, operation.length);
  }
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

std::string Editor::ListAndCaption() {
  std::string all = FormatDesk::Shown("Com(9)") + "\n" + FormatDesk::Shown("Com(12)");
  for (const std::string& line : FormatDesk::Lines("bindex")) all += "\n" + line;
  return all;
}

bool Editor::Build() {
  desk_.robot.AnswerYes();
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  return !Robot::FindWindow("Form3")->isVisible();
}

}  // namespace kill_test
