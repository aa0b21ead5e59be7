// The build: from the entry table or the gallery table to one collection of the book on disk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "filed/filed_work.h"
#include "platform/clock.h"
#include "platform/files/file_system_object.h"
#include "platform/random.h"
#include "platform/text/text.h"
#include "workbench/book_formats.h"

namespace workbench {

using filed::EntryTable;
using filed::FiledWork;

// What the pass asks of the window that it is started from.
class BuildDesk {
 public:
  BuildDesk() = default;
  BuildDesk(const BuildDesk&) = delete;
  BuildDesk& operator=(const BuildDesk&) = delete;
  virtual ~BuildDesk() = default;

  virtual void LogMe(platform::TextView text) = 0;
  virtual void bepayam(std::int16_t number) = 0;
  virtual void ShowNotice(platform::TextView prompt) = 0;
  [[nodiscard]] virtual bool AskYesNo(platform::TextView prompt) = 0;  // true for Yes

  // The text of idir, which can change between two uses.
  virtual platform::Text ProjectFolder() = 0;
  // The text of bname, and the caption of BookLabel.
  virtual platform::Text CollectionTitle() = 0;
  virtual void SetCollectionTitle(platform::TextView title) = 0;
  virtual platform::Text BookLabelCaption() = 0;

  // These catch what fails inside them and give back what they have.
  virtual platform::Text ToTXT(const platform::Text& richText) = 0;
  virtual platform::Text ToIMG(platform::Text body) = 0;  // the page's tail included
  virtual platform::Text sndBin(platform::TextView path) = 0;
  virtual platform::Text PasBin(platform::TextView path, platform::TextView stem) = 0;

  // The end of a pass, in the order of the calls. All that was built is on the disk.
  virtual void CollectionIsBuilt() {}
  virtual void MakeCombo() = 0;
  virtual void NameNevis() = 0;
  virtual void HideWorkbench() = 0;
  virtual void FocusSelector() = 0;
  virtual void ResetA() = 0;
};

// What is to be built, and the names that it is built with. Refers to the window's own members.
struct BuildOrder {
  const FiledWork& work;
  const Vocabulary& words;
  const platform::Text& rowLetter;
  const platform::Text& rowDigit;
  const platform::Text& mainMark;
  const platform::Text& mainEndMark;
  const platform::Text& identityWord;
};

// One run makes one collection. Whatever fails leaves the files as they are at that moment and
// reaches the caller (the window's failure number is 57). No file is open between two writes.
class BuildPass {
 public:
  BuildPass(BuildDesk& desk, const BuildOrder& order, platform::FileSystemObject& files,
            platform::Clock& clock, platform::Random& random);
  BuildPass(const BuildPass&) = delete;
  BuildPass& operator=(const BuildPass&) = delete;
  // A build that has failed gives up what it made under names of its own: the next one draws
  // others.
  ~BuildPass();

  // MakeFile.
  void Run();

 private:
  [[nodiscard]] bool FoldersExist();
  void AddToIndex();
  void MendIndex();
  std::string ReadIndex();
  void NameCollection();
  // False if the collection stands already and is to stay.
  [[nodiscard]] bool MakeRoom();
  void TakeOldLineOut();
  void MakeCollection();

  void WalkRows();
  bool RowEndsWalk(std::ptrdiff_t row) const;
  void BuildRow(std::ptrdiff_t row);
  void BuildMainTitle(std::ptrdiff_t row);
  void BuildMainEnd();
  void BuildGalleryPicture(std::ptrdiff_t slot);
  void BuildTextEntry(std::ptrdiff_t row);
  void BuildGalleryEntry(std::ptrdiff_t row);
  platform::Text PageText(std::ptrdiff_t row);
  void AddNode(std::ptrdiff_t row, platform::TextView file, bool gallery);
  void CopyMedium(const platform::Text& source);
  void FinishInWindow();

  // Draws stems until no file stands at the path that `place` makes of one; gives that path back.
  template <typename Place>
  platform::Text DrawStem(Place place);

  void WriteAnew(platform::TextView path, platform::TextView text);
  void AddToFile(platform::TextView path, platform::TextView text);
  void AddToCollection(platform::TextView text);

  platform::Text Root();
  platform::Text IndexPath();
  platform::Text CollectionPath();

  BuildDesk& desk_;
  const BuildOrder& order_;
  platform::FileSystemObject& files_;
  platform::Clock& clock_;
  platform::Random& random_;
  platform::Text openTag_;
  platform::Text closeTag_;
  std::set<platform::Text> roots_;     // each that was read
  platform::Text stem_;                // drawn last
  std::vector<platform::Text> drawn_;  // what was made under such names
  Depth depth_ = 1;
  bool indexWasTorn_ = false;
};

}  // namespace workbench
