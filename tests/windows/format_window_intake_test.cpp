// An input text comes into the format window: cleaned, to the right, and whatever its file holds.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTextBlock>
#include <QTextEdit>
#include <filesystem>
#include <string>

#include "tests/support/format_desk.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::FormatDesk;
using testing_support::Robot;
using testing_support::Utf8;

class FormatWindowIntake : public testing::Test {
 protected:
  // With a text on the screen, so that it can be seen what becomes of it.
  void OpenOnFormerText() { desk.OpenOn(u"former text"); }
  void ExpectFormerText() {
    EXPECT_EQ(FormatDesk::Shown("matn"), "former text");
    EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
    EXPECT_FALSE(desk.form1.lastErrorText.empty());
  }

  FormatDesk desk;
};

TEST_F(FormatWindowIntake, AClickShowsTheTextWithTheCaretAtItsStart) {
  desk.OpenOn(u"سلام\r\nدنيا");
  EXPECT_EQ(FormatDesk::Shown("matn"), "سلام\nدنيا");
  EXPECT_EQ(desk.form3.matn.Text(), u"سلام\r\nدنيا");
  EXPECT_EQ(FormatDesk::Caret(), 0);
  EXPECT_EQ(FormatDesk::Selected(), "");
  EXPECT_EQ(desk.form3.currentBook, u"One.txt");
  EXPECT_EQ(desk.LogLines().back(), "Opening a text file...");
}

TEST_F(FormatWindowIntake, EveryParagraphStandsAtTheRight) {
  desk.OpenOn(u"one\r\n\r\nسه");
  const QTextDocument& text = *Robot::FindAs<QTextEdit>("Form3", "matn").document();
  for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
    const Qt::Alignment alignment = block.blockFormat().alignment();
    EXPECT_TRUE(alignment & Qt::AlignRight) << block.blockNumber();
    EXPECT_TRUE(alignment & Qt::AlignAbsolute) << block.blockNumber();
  }
}

TEST_F(FormatWindowIntake, TwoBlanksAroundALineBreakLeaveOneInFrontOfIt) {
  desk.OpenOn(u"A  \r\n  B");
  EXPECT_EQ(desk.form3.matn.Text(), u"A \r\nB");
}

TEST_F(FormatWindowIntake, ThreeBlanksAtALinesStartLeaveOne) {
  desk.OpenOn(u"A\r\n   B");
  EXPECT_EQ(desk.form3.matn.Text(), u"A\r\n B");
}

TEST_F(FormatWindowIntake, AMarkFollowsTheDotAndNoneTheQuestionMark) {
  desk.OpenOn(u"يك. دو؟ سه! چهار: 3.14 10:30");
  EXPECT_EQ(Utf8(desk.form3.matn.Text()),
            "يك.\u200F دو؟ سه!\u200F چهار:\u200F 3.\u200F14 10:\u200F30");
}

TEST_F(FormatWindowIntake, TheMarkersBecomeBlanksAndLineBreaks) {
  desk.OpenOn(u"a&nbsp;b<ircMAIN>c</ircMAIN> d");
  EXPECT_EQ(desk.form3.matn.Text(), u"a b c\r\nd");
}

TEST_F(FormatWindowIntake, AMarkerInAnotherLetterCaseStays) {
  desk.OpenOn(u"a<IRCmain>b&NBSP;c");
  EXPECT_EQ(desk.form3.matn.Text(), u"a<IRCmain>b&NBSP;c");
}

// 0xEC of the code page is the ye without dots.
TEST_F(FormatWindowIntake, ASingleDotlessYeGetsItsDots) {
  desk.AddBytes("One.txt", "\xEC");
  desk.Open();
  FormatDesk::OpenBook("One.txt");
  EXPECT_EQ(desk.form3.matn.Text(), u"\u064A");
}

TEST_F(FormatWindowIntake, AnotherTextTakesThePlaceWithoutAQuestionAndTheEntriesStay) {
  desk.AddText("Two.txt", u"gamma delta");
  desk.OpenOn(u"alpha beta rest");
  desk.FileHeading("alpha", "beta");
  FormatDesk::OpenBook("Two.txt");
  EXPECT_EQ(FormatDesk::Shown("matn"), "gamma delta");
  desk.FileHeading("gamma", "delta");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("alpha   =>   beta", "gamma   =>   delta"));
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(FormatWindowIntake, TheSameTextCanBeOpenedAgain) {
  desk.OpenOn(u"alpha beta");
  FormatDesk::Mark(Qt::Key_F11, "alpha ");
  EXPECT_EQ(FormatDesk::Shown("matn"), "beta");
  FormatDesk::OpenBook("One.txt");
  EXPECT_EQ(FormatDesk::Shown("matn"), "alpha beta");
}

// What a file can hold.

TEST_F(FormatWindowIntake, Failure55AnEmptyFile) {
  desk.AddBytes("Empty.txt", "");
  OpenOnFormerText();
  FormatDesk::OpenBook("Empty.txt");
  ExpectFormerText();
  EXPECT_EQ(desk.LoggedFailures(55), 1);
  EXPECT_EQ(desk.form3.currentBook, u"Empty.txt");
}

TEST_F(FormatWindowIntake, AFileOfOneByte) {
  desk.AddBytes("Byte.txt", "x");
  OpenOnFormerText();
  FormatDesk::OpenBook("Byte.txt");
  EXPECT_EQ(FormatDesk::Shown("matn"), "x");
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowIntake, AFileOfOneLineEnd) {
  desk.AddBytes("End.txt", "\r\n");
  OpenOnFormerText();
  FormatDesk::OpenBook("End.txt");
  EXPECT_EQ(desk.form3.matn.Text(), u"\r\n");
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowIntake, AFileOfNulsTakesThePlaceAndTheWindowGoesOn) {
  desk.AddBytes("Nuls.txt", std::string(300, '\0'));
  OpenOnFormerText();
  FormatDesk::OpenBook("Nuls.txt");
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
  EXPECT_EQ(desk.form3.matn.TextLength(), 300);
  Robot::Select("Form3", "matn", 0, 10);
  Robot::PressKey("Form3", "matn", Qt::Key_F11);
  EXPECT_EQ(desk.form3.matn.TextLength(), 290);
  FormatDesk::OpenBook("One.txt");
  EXPECT_EQ(FormatDesk::Shown("matn"), "former text");
}

TEST_F(FormatWindowIntake, EveryByteOfTheCodePageIsACharacter) {
  std::string bytes;
  for (int byte = 0x20; byte < 0x100; ++byte) bytes += static_cast<char>(byte);
  desk.AddBytes("Bytes.txt", bytes);
  OpenOnFormerText();
  FormatDesk::OpenBook("Bytes.txt");
  // "!", "." and ":" have their marks after them.
  EXPECT_EQ(desk.form3.matn.TextLength(), 0x100 - 0x20 + 3);
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowIntake, ALargeFileWithoutALineEndIsOneParagraph) {
  constexpr std::size_t kBytes = 200 * 1024;
  std::string bytes;
  while (bytes.size() < kBytes) bytes += "word ";
  bytes.resize(kBytes, 'w');
  desk.AddBytes("Large.txt", bytes);
  OpenOnFormerText();
  FormatDesk::OpenBook("Large.txt");
  EXPECT_EQ(desk.form3.matn.TextLength(), static_cast<platform::Position>(kBytes));
  EXPECT_TRUE(FormatDesk::Shown("matn") == bytes);
  FormatDesk::Mark(Qt::Key_F2, "word word");
  EXPECT_THAT(FormatDesk::Lines("bindex"), ElementsAre("word word"));
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowIntake, LineEndsOfOtherSystemsAreLeftToTheBox) {
  desk.AddBytes("Feeds.txt", "a\nb");
  OpenOnFormerText();
  FormatDesk::OpenBook("Feeds.txt");
  EXPECT_TRUE(FormatDesk::Shown("matn").starts_with("a"));
  EXPECT_TRUE(FormatDesk::Shown("matn").ends_with("b"));
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

// Failures.

TEST_F(FormatWindowIntake, Failure55TheFileHasVanished) {
  desk.AddText("Two.txt", u"gamma");
  OpenOnFormerText();
  std::filesystem::remove(desk.HostPath("Texts/Two.txt"));
  FormatDesk::OpenBook("Two.txt");
  ExpectFormerText();
  EXPECT_EQ(desk.LoggedFailures(55), 1);
}

TEST_F(FormatWindowIntake, Failure55AnyStepOfTheReadingFails) {
  desk.AddText("Two.txt", u"gamma");
  OpenOnFormerText();
  int failures = 0;
  for (const char* step : {"Open", "ReadAll", "Close"}) {
    desk.files.FailWhere(step, "Two.txt");
    FormatDesk::OpenBook("Two.txt");
    ExpectFormerText();
    EXPECT_EQ(desk.LoggedFailures(55), ++failures) << step;
    EXPECT_EQ(Utf8(desk.form1.lastErrorText).find("Made to fail"), 0U) << step;
  }
  FormatDesk::OpenBook("Two.txt");
  EXPECT_EQ(FormatDesk::Shown("matn"), "gamma");
}

TEST_F(FormatWindowIntake, Failure55TheInputFolderWasEmptiedOut) {
  OpenOnFormerText();
  Robot::Type("Form1", "Text1", "");
  FormatDesk::OpenBook("One.txt");
  ExpectFormerText();
  EXPECT_EQ(desk.LoggedFailures(55), 1);
}

// The small operations.

TEST_F(FormatWindowIntake, ATextIsCutForTheListAfterAWord) {
  EXPECT_EQ(desk.form3.BeBor(u"abc def ghi", 5), u"abc def ...");
  EXPECT_EQ(desk.form3.BeBor(u"abcdefghij", 5), u"abcde...");
  EXPECT_EQ(desk.form3.BeBor(u"abcde", 5), u"abcde");
  EXPECT_EQ(desk.form3.BeBor(u"", 20), u"");
}

TEST_F(FormatWindowIntake, ABlankExactlyAtTheLimitIsKept) {
  EXPECT_EQ(desk.form3.BeBor(u"abcd efgh", 5), u"abcd ...");
}

TEST_F(FormatWindowIntake, Failure65ALimitBelowOne) {
  desk.Open();
  EXPECT_EQ(desk.form3.BeBor(u"abc", 0), u"");
  EXPECT_EQ(desk.LoggedFailures(65), 1);
  EXPECT_EQ(desk.form3.BeBor(u"abc", -3), u"");
  EXPECT_EQ(desk.LoggedFailures(65), 2);
}

TEST_F(FormatWindowIntake, ATitleKeepsTheLineBreakThatItBeginsWith) {
  EXPECT_EQ(desk.form3.DelCrLf(u"\r\nTitle"), u"\r\nTitle");
  EXPECT_EQ(desk.form3.DelCrLf(u"\nTitle"), u"\nTitle");
}

TEST_F(FormatWindowIntake, TheWindowsOwnSlashGoesAfterASingleCharacter) {
  EXPECT_EQ(desk.form3.DoSlash(u"C"), u"C\\");
  EXPECT_EQ(desk.form3.DoSlash(u"C:\\x"), u"C:\\x\\");
  EXPECT_EQ(desk.form3.DoSlash(u"C:\\"), u"C:\\");
  EXPECT_THROW(desk.form3.DoSlash(u""), platform::Failure);
}

}  // namespace
