// Builds that fail: they end at once and silently, what was written stays, and so does the window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/format_desk.h"

namespace {

using platform::Text;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::FormatDesk;
using testing_support::Robot;

constexpr const char* kTreeHead = "<?xml version=\"1.0\"?>\r\n<Tree>\r\n";

std::string Node(const std::string& label, const std::string& media) {
  return "\t<node label=\"" + label + "\" src=\"DATA/TXT/S.htm\" mediaStatus=\"" + media +
         " pic=\"0\" />\r\n";
}

class FormatWindowFailedBuild : public testing::Test {
 protected:
  FormatWindowFailedBuild() {
    desk.OpenOn(u"Head Text Next Other Last One");
    Robot::Type("Form3", "bname", "Title");
  }
  void FileTwo() {
    desk.FileHeading("Head", "Text");
    desk.FileHeading("Next", "Other");
  }
  static void Build() { Robot::PressKey("Form3", "matn", Qt::Key_F12); }
  workbench::EntryTable& Table() { return desk.form3.table; }
  void ExpectFailedBuild(std::ptrdiff_t rows) {
    EXPECT_EQ(desk.LoggedFailures(57), 1);
    EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
    EXPECT_TRUE(desk.form3.IsVisible());
    EXPECT_EQ(desk.form3.entryCount, rows);
    EXPECT_THAT(FormatDesk::Lines("bindex"), SizeIs(rows));
    EXPECT_EQ(desk.LoggedTimes("Title is made."), 0);
    EXPECT_FALSE(desk.form1.lastErrorText.empty());
  }
  void ExpectIndexHasItsLine() {
    EXPECT_TRUE(
        desk.Book("_xml/Index.xml").ends_with("\t<aTitle1 vol=\"txt\">Title</aTitle1>\r\n"));
  }

  FormatDesk desk;
};

TEST_F(FormatWindowFailedBuild, Failure57ASourceThatIsMissingEndsThePassAtItsRow) {
  FileTwo();
  Table().entrySound.Set(1, desk.Path(u"gone.mp3"));
  Build();
  ExpectFailedBuild(2);
  ExpectIndexHasItsLine();
  // No end line; both pages are there, the second one's node too.
  EXPECT_EQ(desk.Collection("aTitle1"), kTreeHead + Node("Head", "000\"") + Node("Next", "010\""));
  EXPECT_THAT(desk.BookNames("TXT", ".htm"), SizeIs(2));
  EXPECT_THAT(desk.BookNames("TXT", ".mp3"), IsEmpty());
}

TEST_F(FormatWindowFailedBuild, MediaCopiedBeforeTheFailureStay) {
  FileTwo();
  desk.Write("song.mp3", "sound");
  Table().entrySound.Set(0, desk.Path(u"song.mp3"));
  Table().entryFilm.Set(0, desk.Path(u"gone.flv"));
  Build();
  ExpectFailedBuild(2);
  EXPECT_THAT(desk.BookNames("TXT", ".mp3"), SizeIs(1));
  EXPECT_THAT(desk.BookNames("TXT", ".htm"), SizeIs(1));
}

TEST_F(FormatWindowFailedBuild, ASecondStartRunsIntoTheQuestion) {
  FileTwo();
  Table().entrySound.Set(1, desk.Path(u"gone.mp3"));
  Build();
  ExpectFailedBuild(2);
  Table().entrySound.Set(1, u"");
  desk.robot.AnswerYes();
  Build();
  const auto boxes = desk.robot.TakeBoxes();
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_THAT(boxes[0].text.toStdString(), HasSubstr("aTitle1.xml"));
  EXPECT_EQ(desk.Collection("aTitle1"),
            kTreeHead + Node("Head", "000\"") + Node("Next", "000\"") + "</Tree>\r\n");
  ExpectIndexHasItsLine();
  EXPECT_FALSE(desk.form3.IsVisible());
}

TEST_F(FormatWindowFailedBuild, Failures85And57AnAttachmentWithoutADot) {
  FileTwo();
  desk.Write("attached", "no extension");
  Table().entryAttach.Set(0, desk.Path(u"attached"));
  // A dot in a folder's name would be taken for the extension's.
  ASSERT_EQ(desk.Path().find(u'.'), Text::npos);
  Build();
  ExpectFailedBuild(2);
  EXPECT_EQ(desk.LoggedFailures(85), 1);
  EXPECT_EQ(desk.Collection("aTitle1"), kTreeHead + Node("Head", "100\""));
  EXPECT_THAT(desk.BookNames("TXT", ".htm"), SizeIs(1));
}

TEST_F(FormatWindowFailedBuild, Failures84And57ABackgroundWithoutADot) {
  FileTwo();
  desk.Write("back", "no extension");
  Table().entryBack.Set(1, desk.Path(u"back"));
  Build();
  ExpectFailedBuild(2);
  EXPECT_EQ(desk.LoggedFailures(84), 1);
  EXPECT_EQ(desk.Collection("aTitle1"), kTreeHead + Node("Head", "000\"") + Node("Next", "000\""));
}

TEST_F(FormatWindowFailedBuild, AMediumWhoseFolderHasTheDotTakesTheFoldersEnd) {
  desk.FileHeading("Head", "Text");
  desk.MakeFolders("a.b");
  desk.Write("a.b/sound", "no extension");
  Table().entrySound.Set(0, desk.Path(u"a.b\\sound"));
  Build();
  // After the last dot stands a folder that the book doesn't have.
  ExpectFailedBuild(1);
}

// The depth starts at 1, so the first end without its beginning stands at the edge.
TEST_F(FormatWindowFailedBuild, Failure57ACloseRowWithoutItsOpenRow) {
  desk.FileHeading("Head", "Text");
  FormatDesk::Mark(Qt::Key_F1, "Next");
  Robot::PressKey("Form3", "matn", Qt::Key_F4);
  FormatDesk::Mark(Qt::Key_F1, "Last");
  Robot::PressKey("Form3", "matn", Qt::Key_F4);
  // The two rows that open are turned into ordinary ones.
  for (const std::ptrdiff_t row : {1, 3}) {
    Table().entryTitle.Set(row, u"Row");
    Table().entryText.Set(row, u"");
  }
  Build();
  ExpectFailedBuild(5);
  EXPECT_EQ(desk.Collection("aTitle1"), kTreeHead + Node("Head", "000\"") + Node("Row", "000\"") +
                                            "</node>\r\n" + Node("Row", "000\"").substr(1));
  ExpectIndexHasItsLine();
}

TEST_F(FormatWindowFailedBuild, OneCloseRowTooManyStandsAtTheEdge) {
  FormatDesk::Mark(Qt::Key_F1, "Next");
  Robot::PressKey("Form3", "matn", Qt::Key_F4);
  Table().entryTitle.Set(0, u"Row");
  Table().entryText.Set(0, u"");
  Build();
  EXPECT_EQ(desk.LoggedFailures(57), 0);
  EXPECT_EQ(desk.Collection("aTitle1"),
            kTreeHead + Node("Row", "000\"") + "</node>\r\n</Tree>\r\n");
}

TEST_F(FormatWindowFailedBuild, Failure57OnlyTheFolderOfPagesIsThere) {
  FileTwo();
  std::filesystem::remove_all(desk.HostPath("Data/_xml"));
  Build();
  ExpectFailedBuild(2);
  EXPECT_THAT(desk.BookNames("TXT", ".htm"), IsEmpty());
}

TEST_F(FormatWindowFailedBuild, Failure57TheFolderOfPagesIsMissing) {
  FileTwo();
  std::filesystem::remove_all(desk.HostPath("Data/TXT"));
  Build();
  ExpectFailedBuild(2);
  ExpectIndexHasItsLine();
  EXPECT_EQ(desk.Collection("aTitle1"), kTreeHead);
}

TEST_F(FormatWindowFailedBuild, Failure57TheDiskRefusesTheIndex) {
  FileTwo();
  desk.files.FailWhere("Write", "Index.xml");
  Build();
  ExpectFailedBuild(2);
  EXPECT_FALSE(desk.Has("Data/_xml/aTitle1.xml"));
}

TEST_F(FormatWindowFailedBuild, Failure57TheDiskRefusesAPage) {
  FileTwo();
  desk.files.FailWhere("Write", ".htm");
  Build();
  ExpectFailedBuild(2);
  EXPECT_EQ(desk.Collection("aTitle1"), kTreeHead);
  // Not even the page's mark could be written, so there is no page.
  EXPECT_THAT(desk.BookNames("TXT", ".htm"), IsEmpty());
}

TEST_F(FormatWindowFailedBuild, Failure57TheOldCollectionCannotBeDeleted) {
  FileTwo();
  desk.Write("Data/_xml/aTitle1.xml", "former");
  desk.files.FailWhere("DeleteFile", "aTitle1.xml");
  desk.robot.AnswerYes();
  Build();
  EXPECT_EQ(desk.robot.TakeBoxes().size(), 1U);
  ExpectFailedBuild(2);
  EXPECT_EQ(desk.Read("Data/_xml/aTitle1.xml"), "former");
}

TEST_F(FormatWindowFailedBuild, Failure57AGalleryPictureIsMissing) {
  desk.form3.galleryMode = true;
  Table().galleryPic.Set(0, 0, desk.Path(u"gone.jpg"));
  Table().galleryPic.Set(0, 1, u"Gone");
  Build();
  ExpectFailedBuild(0);
  // The picture's line comes before its copy.
  EXPECT_EQ(desk.Collection("aTitle1"),
            "<?xml version=\"1.0\"?>\r\n<gallery>\r\n\t<img dtl=\"Gone\">Data/IMG/S.jpg</img>\r\n");
}

TEST_F(FormatWindowFailedBuild, Failure57AGalleryEntryHasAMissingPicture) {
  FileTwo();
  Table().entryGallery.Set(1, true);
  Table().entryGalPath.Set(1, 0, desk.Path(u"gone.jpg"));
  Build();
  ExpectFailedBuild(2);
  EXPECT_EQ(desk.Collection("aTitle1"), kTreeHead + Node("Head", "000\""));
}

TEST_F(FormatWindowFailedBuild, TheClosingStepOfTheCommandStillRuns) {
  FileTwo();
  Table().entrySound.Set(1, desk.Path(u"gone.mp3"));
  Robot::Select("Form3", "matn", "Last");
  desk.form3.Com_Click(13);
  ExpectFailedBuild(2);
  EXPECT_EQ(FormatDesk::Shown("matn"), "     One");
  EXPECT_EQ(desk.LoggedFailures(59), 0);
}

TEST_F(FormatWindowFailedBuild, AfterAFailureTheEditorCanGoOnMarking) {
  FileTwo();
  Table().entrySound.Set(1, desk.Path(u"gone.mp3"));
  Build();
  ExpectFailedBuild(2);
  FormatDesk::OpenBook("One.txt");
  desk.FileHeading("Last", "One");
  EXPECT_THAT(FormatDesk::Lines("bindex"),
              ElementsAre("Head   =>   Text", "Next   =>   Other", "Last   =>   One"));
}

}  // namespace
