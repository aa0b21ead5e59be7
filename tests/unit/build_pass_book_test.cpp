// What one build after another makes of a book: its index, and where the book lies.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/known_texts.h"
#include "tests/unit/build_pass_desk.h"

namespace workbench {
namespace {

using platform::Text;
using testing::ElementsAre;

class BuildPassBook : public BuildPassTest {};

TEST_F(BuildPassBook, CollectionTitleBecomesOneLine) {
  desk_.title = u" A\r\nB   C ";
  Build();
  EXPECT_EQ(Index(), kIndexHead + "\t<aTitle1 vol=\"txt\">A B  C</aTitle1>\r\n");
  EXPECT_EQ(desk_.title, u" A\r\nB   C ");
}

TEST_F(BuildPassBook, SecondCollectionAddsItsLine) {
  Build();
  digit_ = u"10";
  work_.galleryMode = true;
  Build();
  EXPECT_EQ(Index(), kIndexHead +
                         "\t<aTitle1 vol=\"txt\">Title</aTitle1>\r\n"
                         "\t<aTitle10 vol=\"pic1\">Title</aTitle10>\r\n");
  EXPECT_EQ(Book(u"_xml\\aTitle10.xml"), kGalleryHead + "</gallery>\r\n");
}

TEST_F(BuildPassBook, RebuildLeavesOneEmptyLineWhereTheOldLineStood) {
  Build();
  desk_.title = u"New";
  AddEntry(u"T", u"text");
  Build();
  const Text& known = testing_support::KnownText("question");
  EXPECT_EQ(desk_.question, platform::Replace(known, u"cTitle1.xml", u"aTitle1.xml"));
  EXPECT_EQ(Index(), kIndexHead + "\r\n\t<aTitle1 vol=\"txt\">New</aTitle1>\r\n");
  EXPECT_THAT(Collection(), testing::HasSubstr("label=\"T\""));
}

TEST_F(BuildPassBook, NoLeavesASecondLineAndEverythingElseAsItIs) {
  Build();
  desk_.events.clear();
  desk_.answer = false;
  AddEntry(u"T", u"text");
  Build();
  const std::string line = "\t<aTitle1 vol=\"txt\">Title</aTitle1>\r\n";
  EXPECT_EQ(Index(), kIndexHead + line + line);
  EXPECT_EQ(Collection(), kTreeHead + "</Tree>\r\n");
  EXPECT_THAT(desk_.events, ElementsAre("log Making Title..."));
}

TEST_F(BuildPassBook, OneNoAndOneYesLeaveTwoLines) {
  Build();
  desk_.answer = false;
  Build();
  desk_.answer = true;
  Build();
  const std::string line = "\t<aTitle1 vol=\"txt\">Title</aTitle1>\r\n";
  EXPECT_EQ(Index(), kIndexHead + "\r\n" + line + line);
}

TEST_F(BuildPassBook, YesWithoutAnOlderLineCutsTheNewOne) {
  folder_.Write(u"_xml\\aTitle1.xml", "of another book");
  Build();
  EXPECT_EQ(Index(), kIndexHead + "\r\n");
  EXPECT_EQ(Collection(), kTreeHead + "</Tree>\r\n");
}

TEST_F(BuildPassBook, NeitherFolderIsANotice) {
  desk_.projectFolder = folder_.Path(u"nowhere");
  Build();
  EXPECT_THAT(desk_.events,
              ElementsAre("log Making Title...",
                          "notice " + platform::ToUtf8(testing_support::KnownText("notice", 1))));
}

TEST_F(BuildPassBook, OneOfTheFoldersIsEnoughToGoOn) {
  folder_.MakeFolder(u"other\\_xml");
  desk_.projectFolder = folder_.Path(u"other\\");
  Build();
  EXPECT_TRUE(folder_.Has(u"other\\_xml\\aTitle1.xml"));
}

TEST_F(BuildPassBook, ProjectFolderIsReadAnewAtEachUse) {
  class Moving : public BuildPassDesk {
   public:
    using BuildPassDesk::BuildPassDesk;
    Text moveTo;
    Text CollectionTitle() override {
      projectFolder = moveTo;
      return u"Title";
    }
  };
  folder_.MakeFolder(u"moved\\_xml");
  folder_.Write(u"moved\\_xml\\Index.xml", platform::kUtf16Mark);
  Moving desk(Root(), table_, faulty_);
  desk.moveTo = folder_.Path(u"moved");
  const BuildOrder order{work_, words_, letter_, digit_, mainMark_, mainEndMark_, identityWord_};
  BuildPass(desk, order, files_, clock_, random_).Run();
  EXPECT_TRUE(folder_.Has(u"moved\\_xml\\aTitle1.xml"));
  EXPECT_FALSE(folder_.Has(u"_xml\\aTitle1.xml"));
}

// Emptied, too: then its paths start at the current folder.
TEST_F(BuildPassBook, ProjectFolderThatIsEmptiedMeanwhileIsNoFailure) {
  class Emptied : public BuildPassDesk {
   public:
    using BuildPassDesk::BuildPassDesk;
    Text emptyAt;
    Text ToTXT(const Text& richText) override {
      if (richText == emptyAt) projectFolder = u"";
      return richText;
    }
  };
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.HostPath());
  AddEntry(u"T", u"text");
  AddEntry(u"U", u"the second");
  Emptied desk(Root(), table_, faulty_);
  desk.emptyAt = u"the second";
  const BuildOrder order{work_, words_, letter_, digit_, mainMark_, mainEndMark_, identityWord_};
  BuildPass(desk, order, files_, clock_, random_).Run();
  std::filesystem::current_path(before);
  EXPECT_THAT(desk.events, testing::Contains("message 4"));
  EXPECT_THAT(faulty_.Names(), testing::Contains("Flush " + platform::ToUtf8(Root()) + "\\"));
  EXPECT_THAT(faulty_.Names(), testing::Contains("Flush "));
}

}  // namespace
}  // namespace workbench
