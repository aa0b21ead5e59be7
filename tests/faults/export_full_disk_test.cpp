// An export onto a disk that fills up: nothing half is left, the older exports and the book stay as
// they are, and with room again the next export is whole.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/faults/export_walk.h"
#include "tests/support/full_disk.h"

namespace {

using faults::ExportWalk;
using faults::Tree;
using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::BoxText;
using testing_support::FullDisk;
using testing_support::PageBytes;

constexpr const char* kRoot = "Export/Export 2";
constexpr const char* kNextRoot = "Export/Export 4";

class ExportOnFullDisk : public testing::Test {
 protected:
  std::vector<std::string> ExportOn(std::size_t largest) {
    const FullDisk full(largest);
    return walk.desk.Export();
  }
  // With all that stands around the export looked at.
  void ExpectFailureOn(std::size_t largest) {
    const Tree around = walk.Around(kRoot);
    EXPECT_THAT(ExportOn(largest), ElementsAre(BoxText(28)));
    EXPECT_EQ(walk.Around(kRoot), around);
    EXPECT_THAT(walk.desk.launcher.opened, IsEmpty());
  }
  void ExpectTheNextIsWhole() {
    EXPECT_THAT(walk.desk.Export(), ElementsAre(BoxText(29)));
    EXPECT_TRUE(walk.desk.Has(std::string(kNextRoot) + "/main.exe"));
  }
  bool IsExported(const std::string& below) {
    return walk.desk.Has(std::string(kRoot) + "/" + below);
  }

  ExportWalk walk;
};

TEST_F(ExportOnFullDisk, LeavesNoHalfPicture) {
  const std::string picture(100'000, 'p');
  walk.desk.Write("Data/IMG/zoo.jpg", picture);
  ExpectFailureOn(50'000);
  EXPECT_EQ(walk.desk.Names(std::string(kRoot) + "/Data/IMG"),
            std::vector<std::string>{"picture.jpg"});
  EXPECT_TRUE(IsExported("Data/TXT/B.htm"));
  EXPECT_FALSE(IsExported("main.exe"));
  ExpectTheNextIsWhole();
  EXPECT_EQ(walk.desk.Read(std::string(kNextRoot) + "/Data/IMG/zoo.jpg"), picture);
}

TEST_F(ExportOnFullDisk, LeavesNoHalfViewer) {
  walk.desk.Write("Resources/main.exe", std::string(100'000, 'v'));
  ExpectFailureOn(50'000);
  EXPECT_FALSE(IsExported("main.exe"));
  EXPECT_TRUE(IsExported("Data/IMG/picture.jpg"));
  EXPECT_FALSE(IsExported("Data/TXT/A.html"));
  ExpectTheNextIsWhole();
}

TEST_F(ExportOnFullDisk, LeavesNoHalfPrintPage) {
  walk.desk.Write("Resources/Default.html",
                  PageBytes(platform::Text(30'000, u' ') + u"%Title%%Matn%"));
  ExpectFailureOn(50'000);
  EXPECT_THAT(walk.desk.Names(std::string(kRoot) + "/Data/TXT"),
              ElementsAre("A.htm", "B.htm", "CDProperty.xml"));
  EXPECT_TRUE(IsExported("main.exe"));
  ExpectTheNextIsWhole();
  EXPECT_TRUE(walk.desk.Has(std::string(kNextRoot) + "/Data/TXT/B.html"));
}

// Saving the settings tells nothing of it, so the export goes on with what is there.
TEST_F(ExportOnFullDisk, WithoutRoomForTheBackgroundExportsWithoutIt) {
  walk.desk.Write("Resources/MyBack.jpg", std::string(100'000, 'b'));
  const Tree around = walk.Around(kRoot);
  EXPECT_THAT(ExportOn(50'000), ElementsAre(BoxText(29)));
  EXPECT_EQ(walk.Around(kRoot), around);
  EXPECT_FALSE(walk.desk.Has("Data/FlashIMG/Back.jpg"));
  EXPECT_THAT(walk.desk.Names(std::string(kRoot) + "/Data/FlashIMG"),
              ElementsAre("Sound1.mp3", "Sound2.mp3"));
  ExpectTheNextIsWhole();
  EXPECT_TRUE(walk.desk.Has(std::string(kNextRoot) + "/Data/FlashIMG/Back.jpg"));
}

}  // namespace
