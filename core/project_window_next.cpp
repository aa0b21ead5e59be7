// The Next action: from the fields of the project to the open workbench.
#include "core/book_places.h"
#include "core/numbers.h"
#include "core/project_window.h"
#include "core/selector.h"

namespace core {

using platform::Position;
using platform::Text;
using platform::TextView;

namespace {

constexpr TextView kDefaultProject = u"Data";
// Stands for the program folder itself.
constexpr TextView kCurrentFolder = u"شاخه جاري";

}  // namespace

bool Form1::CHK() {
  bool filledIn = true;
  const auto require = [&](bool holds, std::int16_t number) {
    if (holds) return;
    filledIn = false;
    bepayam(number);
  };
  const auto isFilled = [](const platform::TextBox& field) { return !field.Text().empty(); };
  require(dataName.ListCount() > 0, message::kNoCollectionWaits);
  require(isFilled(Text1), message::kInputFolderNotSet);
  require(isFilled(title), message::kFirstCountNotSet);
  require(isFilled(matn), message::kSecondCountNotSet);
  require(isFilled(shenas), message::kThirdCountNotSet);
  require(!bMus(0).Value() || isFilled(Mus1), message::kFirstMusicNotSet);
  require(!bMus(0).Value() || isFilled(Mus2), message::kSecondMusicNotSet);
  require(isFilled(index), message::kCollectionPictureNotSet);
  require(isFilled(idir), message::kProjectFolderNotSet);
  require(isFilled(Back), message::kBackgroundNotSet);
  return filledIn;
}

bool Form1::FE() {
  bool found = true;
  const Requirement require = [&](bool exists, std::int16_t number) {
    if (exists) return;
    found = false;
    bepayam(number);
  };
  Catching(failure::kFindPaths, [&] {
    RequireFolders(require);
    RequireFiles(require);
  });
  return found;
}

void Form1::RequireFolders(const Requirement& require) {
  const Position selected = dataName.ListIndex();
  MakeAbsolute(idir);  // rebuilds dataName
  dataName.SetListIndex(selected);
  require(FileSys().FolderExists(idir.Text()), message::kProjectFolderMissing);

  if (!IsAbsolute(Text1.Text()) && platform::InStr(Text1.Text(), kCurrentFolder) > 0) {
    Text1.SetText(machine_.programFolder);
  } else {
    MakeAbsolute(Text1);
  }
  require(FileSys().FolderExists(Text1.Text()), message::kInputFolderMissing);
}

void Form1::RequireFiles(const Requirement& require) {
  const auto requireFile = [&](platform::TextBox& field, std::int16_t number) {
    MakeAbsolute(field);
    require(FileSys().FileExists(field.Text()), number);
  };
  requireFile(index, message::kCollectionPictureMissing);
  if (bMus(0).Value()) requireFile(Mus1, message::kFirstMusicMissing);
  if (bMus(0).Value()) requireFile(Mus2, message::kSecondMusicMissing);
  requireFile(Back, message::kBackgroundMissing);
}

void Form1::MakeAbsolute(platform::TextBox& field) {
  const Text path = field.Text();
  if (!IsAbsolute(path)) field.SetText(Absolute(ProgramRoot(), path));
}

void Form1::MakeDirs() {
  Catching(failure::kMakeFolders, [&] {
    LogMe(u"Directories making...");
    const auto makeMissing = [&](const Text& folder) {
      if (!FileSys().FolderExists(folder)) machine_.files.MakeFolder(folder);
    };
    makeMissing(ProjectFolder(BookRoot(), txtFolder));
    makeMissing(ProjectFolder(BookRoot(), xmlFolder));
    makeMissing(PictureFolder(BookRoot()));
    makeMissing(MediaFolder(BookRoot()));
    LogMe(u"Directories made.");
  });
}

void Form1::MakeDefaultFolder(const platform::TextBox& field, TextView usual) {
  if (field.Text() != usual) return;
  const Text folder = Absolute(ProgramRoot(), usual);
  if (!FileSys().FolderExists(folder)) machine_.files.MakeFolder(folder);
}

void Form1::CopyTitleImage() {
  LogMe(u"TopName Making...");
  const CollectionKey key = ReadKey(dataName.Text());
  LogMe(u"TopName made.");
  LogMe(u"Title image copying...");
  if (FileSys().FileExists(index.Text())) {
    machine_.files.CopyFile(index.Text(), CollectionPicture(BookRoot(), key.letter, key.digit));
  }
  LogMe(u"Title image copied.");
}

void Form1::Command3_Click() {
  Catching(failure::kNext, [&] {
    SaveThings();
    const Position selected = dataName.ListIndex();
    MakeDefaultFolder(idir, kDefaultProject);
    if (!CHK()) return;
    if (!FE()) return;
    MakeDirs();
    CopyTitleImage();
    dataName.SetListIndex(selected);
    LogMe(u"Going to Do...");
    Doitin();
  });
}

void Form1::Doitin() {
  LogMe(u"It's inside Do.");
  if (ports_.workbench != nullptr) ports_.workbench->ShowWorkbench();
}

}  // namespace core
