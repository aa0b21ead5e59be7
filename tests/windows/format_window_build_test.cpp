// A build started in the format window: the files of one collection, and what becomes of the
// windows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <filesystem>

#include "platform/text/encoding.h"
#include "tests/support/format_desk.h"
#include "tests/support/known_texts.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing_support::AsShown;
using testing_support::BoxText;
using testing_support::FormatDesk;
using testing_support::Robot;

constexpr const char* kIndexHead =
    "<strings>\r\n\t<aTitle0>Designed by: Kelvar Media (www.kelvar.example)</aTitle0>\r\n";
constexpr const char* kTreeHead = "<?xml version=\"1.0\"?>\r\n<Tree>\r\n";

std::string Node(const std::string& label, int depth = 1) {
  return std::string(static_cast<std::size_t>(depth), '\t') + "<node label=\"" + label +
         "\" src=\"DATA/TXT/S.htm\" mediaStatus=\"000\" pic=\"0\" />\r\n";
}
std::string IndexLine(const std::string& key, const std::string& title) {
  return "\t<" + key + " vol=\"txt\">" + title + "</" + key + ">\r\n";
}
std::string SevenBlanks() {
  std::string blanks;
  for (int i = 0; i < 7; ++i) blanks += "<pgMain>&nbsp;</pgMain>\r\n";
  return blanks;
}

class FormatWindowBuild : public testing::Test {
 protected:
  static void Build() { Robot::PressKey("Form3", "matn", Qt::Key_F12); }
  std::string Index() const { return desk.Book("_xml/Index.xml"); }
  void WriteUtf16(const std::string& below, platform::TextView text) const {
    desk.Write(below, std::string(platform::kUtf16Mark) + platform::EncodeUtf16(text));
  }
  // The first collection once more in hand, with its file in its place.
  void ReopenTheFirst() {
    namespace fs = std::filesystem;
    const std::string file = desk.HostPath("Data/_xml/aTitle1.xml");
    fs::rename(file, file + "-");
    desk.form1.MakeCombo();
    desk.PressNext();
    fs::rename(file + "-", file);
    FormatDesk::OpenBook("One.txt");
    FormatDesk::Repaint();
  }
  void FileTitle(const QString& title) { Robot::Type("Form3", "bname", title); }

  FormatDesk desk;
};

TEST_F(FormatWindowBuild, WritesTheCollectionThatTheEditorMarked) {
  desk.OpenOn(u"The title\r\nIdentity\r\nMain\r\nHead A\r\nText one\r\nText two\r\nHead B\r\nText");
  FormatDesk::Mark(Qt::Key_F5, "The title");
  FormatDesk::Mark(Qt::Key_F6, "Identity");
  FormatDesk::Mark(Qt::Key_F1, "Main");
  desk.FileHeading("Head A", "Text one\nText two");
  Robot::PressKey("Form3", "matn", Qt::Key_F4);
  desk.FileHeading("Head B", "Text");
  Build();
  EXPECT_EQ(Index(), kIndexHead + IndexLine("aTitle1", "The title"));
  EXPECT_EQ(desk.Collection("aTitle1"), kTreeHead + Node("شناسنامه") +
                                            "\t<node label=\"Main\">\r\n" + Node("Head A", 2) +
                                            "\t</node>\r\n" + Node("Head B") + "</Tree>\r\n");
  EXPECT_EQ(desk.Page("Head A"),
            "<pgTitle>Head A</pgTitle>\r\n\r\n<pgMain>&nbsp;</pgMain>\r\n"
            "<pgMain>Text one</pgMain>\r\n<pgMain>Text two</pgMain>\r\n" +
                SevenBlanks());
  EXPECT_EQ(desk.Page("شناسنامه"),
            "<pgTitle>شناسنامه</pgTitle>\r\n<pgMain></pgMain>\r\n<pgMain></pgMain>\r\n"
            "<pgMain>Identity</pgMain>\r\n" +
                SevenBlanks());
  EXPECT_THAT(desk.BookNames("TXT", ".htm"), testing::SizeIs(3));
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowBuild, TheNodesNameTheirPages) {
  desk.OpenOn(u"Head Text");
  desk.FileHeading("Head", "Text");
  Build();
  const auto pages = desk.BookNames("TXT", ".htm");
  ASSERT_EQ(pages.size(), 1U);
  EXPECT_THAT(pages[0], testing::MatchesRegex("[0-9A-Y]+\\.htm"));
  EXPECT_EQ(pages[0].size(), 14U + 4U);
  EXPECT_THAT(desk.Book("_xml/aTitle1.xml"), HasSubstr("src=\"DATA/TXT/" + pages[0] + "\""));
}

TEST_F(FormatWindowBuild, HidesTheWindowSaysSoAndGivesTheFocusToTheSelector) {
  desk.OpenOn(u"Head Text");
  desk.FileHeading("Head", "Text");
  bool hiddenUnderTheMessage = false;
  int entriesUnderTheMessage = 0;
  desk.robot.onBox = [&](QWidget&) {
    hiddenUnderTheMessage = !desk.form3.IsVisible();
    entriesUnderTheMessage = static_cast<int>(desk.form3.entryCount);
  };
  Build();
  const auto boxes = desk.robot.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].text.toStdString(), BoxText(4));
  EXPECT_EQ(boxes[0].title.toStdString(), "Zorvand");
  EXPECT_TRUE(hiddenUnderTheMessage);
  EXPECT_EQ(entriesUnderTheMessage, 1);
  EXPECT_FALSE(desk.form3.IsVisible());
  EXPECT_TRUE(desk.form3.IsLoaded());
  ASSERT_NE(QApplication::focusWidget(), nullptr);
  EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), "dataName");
}

TEST_F(FormatWindowBuild, LogsItsStepsInOrder) {
  desk.OpenOn(u"Head Text");
  desk.FileHeading("Head", "Text");
  Build();
  const auto lines = desk.LogLines();
  ASSERT_GE(lines.size(), 6U);
  EXPECT_THAT(std::vector(lines.end() - 6, lines.end()),
              ElementsAre("Format number 11 clicked.", "Making Title...", "Making combo...",
                          "Combo made by 2, 2, 2.", "Payam number 4 displayed.", "Title is made."));
}

TEST_F(FormatWindowBuild, EmptiesTheTableForTheNextCollection) {
  desk.OpenOn(u"Title Main Head Text rest");
  FormatDesk::Mark(Qt::Key_F5, "Title");
  FormatDesk::Mark(Qt::Key_F1, "Main");
  desk.FileHeading("Head", "Text");
  Build();
  EXPECT_EQ(FormatDesk::Shown("matn"), "");
  EXPECT_EQ(FormatDesk::Shown("bname"), "");
  EXPECT_EQ(FormatDesk::Shown("Com(9)"), "تيتر اصلي (0)\u200F");
  EXPECT_EQ(desk.form3.entryCount, 0);
  EXPECT_EQ(desk.form3.mainOpen, 0);
  desk.PressNext();
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_THAT(FormatDesk::Lines("bindex"), IsEmpty());
  EXPECT_EQ(FormatDesk::Shown("BookLabel"), "عنوان مجموعه دوم در رديف اول:");
  EXPECT_EQ(desk.LoggedTimes("Format started."), 1);
}

TEST_F(FormatWindowBuild, TheBookGrowsByALineACollection) {
  desk.OpenOn(u"Head Text");
  desk.FileHeading("Head", "Text");
  FileTitle("First");
  Build();
  desk.PressNext();
  FileTitle("Second");
  Build();
  EXPECT_EQ(Index(), kIndexHead + IndexLine("aTitle1", "First") + IndexLine("aTitle2", "Second"));
  EXPECT_TRUE(desk.Has("Data/_xml/aTitle2.xml"));
}

TEST_F(FormatWindowBuild, TheLastCollectionLeavesTheCaptionThatAllAreBuilt) {
  desk.OpenOn(u"Head Text");
  for (const char* field : {"matn", "shenas"}) Robot::Type("Form1", field, "0");
  Robot::Type("Form1", "title", "1");
  Robot::Find("Form1", "ExBox").setFocus();
  Robot::Settle();
  Build();
  EXPECT_EQ(FormatDesk::Shown("BookLabel"), "پايان مجموعه\u200Cها!");
  EXPECT_EQ(desk.form1.dataName.ListCount(), 0);
}

TEST_F(FormatWindowBuild, TheGalleryCommandLeavesTheText) {
  desk.OpenOn(u"Head Text rest");
  desk.FileHeading("Head", "Text");
  desk.form3.Com_Click(13);
  EXPECT_EQ(FormatDesk::Shown("matn"), "  rest");
  EXPECT_TRUE(desk.Has("Data/_xml/aTitle1.xml"));
}

TEST_F(FormatWindowBuild, AnEmptyTableMakesACollectionOfItsHeadAndEndLines) {
  desk.OpenOn(u"Head Text");
  Build();
  EXPECT_EQ(desk.Collection("aTitle1"), std::string(kTreeHead) + "</Tree>\r\n");
  EXPECT_EQ(desk.robot.TakeBoxes().size(), 1U);
}

TEST_F(FormatWindowBuild, TheIndexOfABookWithOneCollectionHasThreeLinesAndNoEndTag) {
  desk.OpenOn(u"Head Text");
  FileTitle("Only");
  Build();
  const std::string index = Index();
  EXPECT_EQ(std::ranges::count(index, '\n'), 3);
  EXPECT_EQ(index.find("</strings>"), std::string::npos);
}

TEST_F(FormatWindowBuild, AnEmptyTitleIsMadeOfTheCaption) {
  desk.OpenOn(u"Head Text");
  std::string title;
  desk.robot.onBox = [&](QWidget&) { title = FormatDesk::Shown("bname"); };
  Build();
  EXPECT_EQ(title, "مجموعه اول در رديف اول");
  EXPECT_EQ(Index(), kIndexHead + IndexLine("aTitle1", "مجموعه اول در رديف اول"));
}

TEST_F(FormatWindowBuild, TitlesBecomeOneLineInLabelsAndStayRawInPages) {
  desk.OpenOn(u"Head\r\nmore\r\nText");
  FormatDesk::Mark(Qt::Key_F5, "Head\nmore");
  FormatDesk::OpenBook("One.txt");
  desk.FileHeading("Head\nmore", "Text");
  Build();
  EXPECT_EQ(Index(), kIndexHead + IndexLine("aTitle1", "Head more"));
  EXPECT_EQ(desk.Collection("aTitle1"), kTreeHead + Node("Head more") + "</Tree>\r\n");
  EXPECT_TRUE(desk.Page("Head\r\nmore").ends_with("<pgMain>Text</pgMain>\r\n" + SevenBlanks()));
}

TEST_F(FormatWindowBuild, ADoubleQuoteEndsTheLabelEarlyAndTheFileIsWritten) {
  desk.OpenOn(u"He\"a<d & Text");
  desk.FileHeading("He\"a<d &", "Text");
  Build();
  EXPECT_EQ(desk.Collection("aTitle1"), kTreeHead + Node("He\"a<d &") + "</Tree>\r\n");
}

// Rows.

TEST_F(FormatWindowBuild, ARowWithoutATitleEndsTheWalkWithoutAWarning) {
  desk.OpenOn(u"one two three four five six");
  FormatDesk::Command(2, "one");
  FormatDesk::Command(2, "two");
  FormatDesk::Command(3, "three");
  FormatDesk::Command(3, "four");
  FormatDesk::Command(1, "five");
  Build();
  EXPECT_EQ(desk.Collection("aTitle1"), kTreeHead + Node("two") + "</Tree>\r\n");
  EXPECT_THAT(desk.BookNames("TXT", ".htm"), testing::SizeIs(1));
  EXPECT_EQ(desk.robot.TakeBoxes().size(), 1U);
  EXPECT_EQ(desk.form3.table.entryTitle(2), u"");
}

TEST_F(FormatWindowBuild, MainTitlesStillOpenAreLeftWithoutTheirEnd) {
  desk.OpenOn(u"Main Sub Head Text");
  FormatDesk::Mark(Qt::Key_F1, "Main");
  FormatDesk::Mark(Qt::Key_F1, "Sub");
  desk.FileHeading("Head", "Text");
  Build();
  EXPECT_EQ(desk.Collection("aTitle1"),
            std::string(kTreeHead) + "\t<node label=\"Main\">\r\n\t\t<node label=\"Sub\">\r\n" +
                Node("Head", 3) + "</Tree>\r\n");
  EXPECT_EQ(desk.robot.TakeBoxes().size(), 1U);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowBuild, AHeadingWithTheIdentityWordMakesAnIdentityPage) {
  desk.OpenOn(u"شناسنامه Text");
  desk.FileHeading("شناسنامه", "Text");
  Build();
  EXPECT_TRUE(
      desk.Page("شناسنامه").starts_with("<pgTitle>شناسنامه</pgTitle>\r\n<pgMain></pgMain>\r\n"));
}

TEST_F(FormatWindowBuild, AHeadingWithTheWordsOfAMainTitleIsOne) {
  desk.OpenOn(u">>> تيتر اصلي Text");
  FormatDesk::Mark(Qt::Key_F2, ">>> تيتر اصلي");
  FormatDesk::Mark(Qt::Key_F3, "Text");
  Build();
  EXPECT_THAT(desk.BookNames("TXT", ".htm"), IsEmpty());
  EXPECT_TRUE(desk.Collection("aTitle1").starts_with(std::string(kTreeHead) + "\t<node label=\""));
}

// The question.

TEST_F(FormatWindowBuild, AsksBeforeItReplacesACollection) {
  desk.OpenOn(u"Head Text");
  WriteUtf16("Data/_xml/aTitle1.xml", u"former");
  Build();
  const auto boxes = desk.robot.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  const platform::Text& question = testing_support::KnownText("question");
  EXPECT_EQ(boxes[0].text.toStdString(),
            AsShown(platform::Replace(question, u"cTitle1.xml", u"aTitle1.xml")));
  EXPECT_EQ(boxes[0].buttons,
            static_cast<int>(QMessageBox::Yes) | static_cast<int>(QMessageBox::No));
  EXPECT_EQ(boxes[0].title.toStdString(), "Zorvand");
}

TEST_F(FormatWindowBuild, NoLeavesTheWindowTheEntriesAndASecondLine) {
  desk.OpenOn(u"Head Text");
  FileTitle("First");
  Build();
  ReopenTheFirst();
  desk.FileHeading("Head", "Text");
  FileTitle("Second");
  desk.robot.TakeBoxes();
  const std::string before = desk.Book("_xml/aTitle1.xml");
  desk.robot.AnswerNo();
  Build();
  EXPECT_EQ(Index(), kIndexHead + IndexLine("aTitle1", "First") + IndexLine("aTitle1", "Second"));
  EXPECT_EQ(desk.Book("_xml/aTitle1.xml"), before);
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("Head   =>   Text"));
  EXPECT_EQ(desk.form3.entryCount, 1);
  EXPECT_EQ(FormatDesk::Shown("bname"), "Second");
  EXPECT_EQ(desk.robot.TakeBoxes().size(), 1U);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);

  // A later Yes takes only the first match out.
  desk.robot.AnswerYes();
  Build();
  EXPECT_EQ(Index(), std::string(kIndexHead) + "\r\n" + IndexLine("aTitle1", "Second") +
                         IndexLine("aTitle1", "Second"));
}

TEST_F(FormatWindowBuild, YesTakesTheOldLineOutAndLeavesItsLineBreak) {
  desk.OpenOn(u"Head Text");
  FileTitle("First");
  Build();
  ReopenTheFirst();
  desk.FileHeading("Head", "Text");
  FileTitle("Second");
  desk.robot.TakeBoxes();
  desk.robot.AnswerYes();
  Build();
  EXPECT_EQ(Index(), std::string(kIndexHead) + "\r\n" + IndexLine("aTitle1", "Second"));
  EXPECT_EQ(desk.Collection("aTitle1"), kTreeHead + Node("Head") + "</Tree>\r\n");
  EXPECT_EQ(desk.robot.TakeBoxes().size(), 2U);
  EXPECT_FALSE(desk.form3.IsVisible());
}

TEST_F(FormatWindowBuild, YesWithoutAnOlderLineCutsTheNewOne) {
  desk.OpenOn(u"Head Text");
  WriteUtf16("Data/_xml/aTitle1.xml", u"former");
  desk.robot.AnswerYes();
  Build();
  EXPECT_EQ(Index(), std::string(kIndexHead) + "\r\n");
}

TEST_F(FormatWindowBuild, TheOldLineOfAGalleryIsFoundAndTheTenthCollectionsIsNot) {
  desk.OpenOn(u"Head Text");
  WriteUtf16("Data/_xml/aTitle1.xml", u"former");
  WriteUtf16("Data/_xml/Index.xml",
             u"<strings>\r\n\t<aTitle10 vol=\"txt\">Ten</aTitle10>\r\n"
             u"\t<aTitle1 vol=\"pic1\">Old</aTitle1>\r\n");
  FileTitle("New");
  desk.robot.AnswerYes();
  Build();
  EXPECT_EQ(Index(),
            "<strings>\r\n" + IndexLine("aTitle10", "Ten") + "\r\n" + IndexLine("aTitle1", "New"));
}

// The notice.

TEST_F(FormatWindowBuild, WithoutBothFoldersThereIsANoticeAndNothingElse) {
  desk.OpenOn(u"Head Text");
  desk.FileHeading("Head", "Text");
  std::filesystem::remove_all(desk.HostPath("Data/TXT"));
  std::filesystem::remove_all(desk.HostPath("Data/_xml"));
  Build();
  const auto boxes = desk.robot.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].text.toStdString(), AsShown(testing_support::KnownText("notice", 1)));
  EXPECT_TRUE(desk.form3.IsVisible());
  EXPECT_EQ(desk.form3.entryCount, 1);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
  EXPECT_FALSE(desk.Has("Data/_xml"));
}

TEST_F(FormatWindowBuild, TheXmlFolderAloneIsEnoughForACollectionWithoutPages) {
  desk.OpenOn(u"Head Text");
  std::filesystem::remove_all(desk.HostPath("Data/TXT"));
  Build();
  EXPECT_EQ(desk.Collection("aTitle1"), std::string(kTreeHead) + "</Tree>\r\n");
  EXPECT_EQ(desk.LoggedFailures(57), 0);
}

}  // namespace
