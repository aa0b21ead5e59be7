// What the window makes of an entry's text for a page: plain text, image tags, the page's tail, and
// the attributes of its media.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/format_desk.h"

namespace {

using platform::Text;
using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::FormatDesk;
using testing_support::Robot;
using testing_support::Utf8;

constexpr const char* kBlank = "<pgMain>&nbsp;</pgMain>\r\n";

std::string Tail(int paragraphs) {
  std::string tail = "\r\n";
  for (int i = 0; i < paragraphs; ++i) tail += kBlank;
  return tail;
}

class FormatWindowPages : public testing::Test {
 protected:
  // A picture's source file; its path as the tool writes it.
  Text Picture(const std::string& below, std::string_view bytes) {
    desk.MakeFolders(std::filesystem::path(below).parent_path().string());
    desk.Write(below, bytes);
    return desk.Path(platform::Replace(platform::FromUtf8(below), u"/", u"\\"));
  }
  void SetImage(std::ptrdiff_t number, Text path) {
    desk.form3.table.inlineImage.Set(number, std::move(path));
  }
  // Files a heading with all paragraphs after it as its text, and builds.
  void BuildPage(platform::TextView paragraphs) {
    desk.OpenOn(Text(u"Head\r\n").append(paragraphs));
    FileWhole();
    Build();
  }
  void FileWhole() {
    FormatDesk::Mark(Qt::Key_F2, "Head");
    // The line break after the heading stays in front of the rest.
    Robot::Select("Form3", "matn", 1, static_cast<int>(desk.form3.matn.TextLength()) - 1);
    Robot::PressKey("Form3", "matn", Qt::Key_F3);
  }
  static void Build() { Robot::PressKey("Form3", "matn", Qt::Key_F12); }
  std::string Body(const std::string& title = "Head") {
    const std::string start = "<pgTitle>" + title + "</pgTitle>\r\n\r\n" + kBlank;
    const std::string page = desk.Page(title);
    EXPECT_TRUE(page.starts_with(start)) << page;
    return page.substr(start.size());
  }

  FormatDesk desk;
};

// To plain text.

TEST_F(FormatWindowPages, RichTextLosesItsFormAndThePictureIsABlank) {
  desk.Open();
  EXPECT_EQ(desk.form3.ToTXT(u"{\\rtf1{\\b one}\\par two}"), u"one\r\ntwo");
  EXPECT_EQ(desk.form3.ToTXT(desk.form3.imageMark), u" ");
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowPages, TheConversionLeavesItsBoxEmpty) {
  desk.Open();
  EXPECT_EQ(FormatDesk::Shown("ConRT"), "RichTextBox1");
  desk.form3.ToTXT(u"{\\rtf1 one}");
  EXPECT_EQ(FormatDesk::Shown("ConRT"), "");
}

TEST_F(FormatWindowPages, Failure67WhatIsNoRichTextGivesAnEmptyText) {
  desk.Open();
  EXPECT_EQ(desk.form3.ToTXT(u"plain words"), u"");
  EXPECT_EQ(desk.LoggedFailures(67), 1);
  EXPECT_THAT(desk.LogLines().back(), testing::HasSubstr("number is 67 ("));
}

TEST_F(FormatWindowPages, Failure67DoesNotEndTheBuild) {
  desk.OpenOn(u"Head Text");
  desk.FileHeading("Head", "Text");
  desk.robot.TakeBoxes();
  desk.form3.table.entryText.Set(0, u"plain words");
  Build();
  EXPECT_EQ(desk.LoggedFailures(67), 1);
  EXPECT_EQ(desk.LoggedFailures(57), 0);
  EXPECT_EQ(Body(), "<pgMain></pgMain>" + Tail(7));
  EXPECT_EQ(desk.robot.TakeBoxes().size(), 1U);
}

TEST_F(FormatWindowPages, AnEmptyTextIsOneEmptyParagraphAndNoFailure) {
  desk.OpenOn(u"Head Text");
  FormatDesk::Mark(Qt::Key_F2, "Head");
  Build();
  EXPECT_EQ(Body(), "<pgMain></pgMain>" + Tail(7));
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowPages, ATextThatEndsInALineBreakHasALastEmptyParagraph) {
  desk.OpenOn(u"Head\r\none\r\ntwo\r\nrest");
  FormatDesk::Mark(Qt::Key_F2, "Head");
  FormatDesk::Mark(Qt::Key_F3, "one\ntwo\n");
  Build();
  EXPECT_EQ(Body(), "<pgMain>one</pgMain>\r\n<pgMain>two</pgMain>\r\n<pgMain></pgMain>" + Tail(7));
}

// Image marks.

TEST_F(FormatWindowPages, WithoutAMarkAPageHasSevenBlankParagraphsAndWithOneFifty) {
  desk.Open();
  EXPECT_EQ(Utf8(desk.form3.ToIMG(u"<pgMain>a</pgMain>")), "<pgMain>a</pgMain>" + Tail(7));
  EXPECT_EQ(Utf8(desk.form3.ToIMG(u"<pgMain> {0}</pgMain>")), "<IMG src=\"Data/IMG/\">" + Tail(50));
}

TEST_F(FormatWindowPages, AMarkBecomesATagAndItsPictureIsCopied) {
  desk.OpenOn(u"Head\r\none\r\n   {0}\r\ntwo");
  FileWhole();
  SetImage(0, Picture("pictures/one.jpg", "picture one"));
  Build();
  EXPECT_EQ(Body(),
            "<pgMain>one</pgMain>\r\n"
            "<IMG src=\"Data/IMG/one.jpg\">\r\n<pgMain>two</pgMain>" +
                Tail(50));
  EXPECT_EQ(desk.Read("Data/IMG/one.jpg"), "picture one");
}

TEST_F(FormatWindowPages, TwoEntriesWithOneSourceShareOneFile) {
  desk.OpenOn(u"   {0}\r\n   {1}\r\nHead Next");
  SetImage(0, Picture("pictures/one.jpg", "picture one"));
  SetImage(1, desk.form3.table.inlineImage(0));
  desk.FileHeading("Head", " {0}");
  desk.FileHeading("Next", " {1}");
  Build();
  EXPECT_EQ(Body("Head"), "<IMG src=\"Data/IMG/one.jpg\">" + Tail(50));
  EXPECT_EQ(Body("Next"), "<IMG src=\"Data/IMG/one.jpg\">" + Tail(50));
  EXPECT_THAT(desk.BookNames("IMG", "one.jpg"), ElementsAre("one.jpg"));
}

TEST_F(FormatWindowPages, OfTwoSourcesOfOneNameOnlyTheFirstIsCopied) {
  desk.OpenOn(u"   {0}\r\n   {1}\r\nHead Next");
  SetImage(0, Picture("pictures/one.jpg", "first"));
  SetImage(1, Picture("others/one.jpg", "second"));
  desk.FileHeading("Head", " {0}");
  desk.FileHeading("Next", " {1}");
  Build();
  EXPECT_EQ(desk.Read("Data/IMG/one.jpg"), "first");
  EXPECT_EQ(Body("Next"), "<IMG src=\"Data/IMG/one.jpg\">" + Tail(50));
}

TEST_F(FormatWindowPages, APictureThatHasGoneLeavesItsTag) {
  desk.OpenOn(u"   {0}\r\nHead");
  SetImage(0, desk.Path(u"pictures\\gone.jpg"));
  desk.FileHeading("Head", " {0}");
  Build();
  EXPECT_EQ(Body(), "<IMG src=\"Data/IMG/gone.jpg\">" + Tail(50));
  EXPECT_THAT(desk.BookNames("IMG", "gone.jpg"), IsEmpty());
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowPages, ATargetOfAnEarlierBuildStaysAsItIs) {
  desk.OpenOn(u"   {0}\r\nHead");
  desk.Write("Data/IMG/one.jpg", "earlier");
  SetImage(0, Picture("pictures/one.jpg", "new"));
  desk.FileHeading("Head", " {0}");
  Build();
  EXPECT_EQ(desk.Read("Data/IMG/one.jpg"), "earlier");
}

TEST_F(FormatWindowPages, AMarkTypedByHandIsAMark) {
  BuildPage(u"one\r\n   {12}\r\ntwo");
  EXPECT_EQ(Body(),
            "<pgMain>one</pgMain>\r\n<IMG src=\"Data/IMG/\">\r\n"
            "<pgMain>two</pgMain>" +
                Tail(50));
}

TEST_F(FormatWindowPages, Failure68AMarkWithoutANumberCostsThePageItsTailOnly) {
  BuildPage(u"one\r\n   {abc}\r\ntwo");
  EXPECT_EQ(desk.LoggedFailures(68), 1);
  EXPECT_EQ(desk.LoggedFailures(57), 0);
  EXPECT_EQ(Body(),
            "<pgMain>one</pgMain>\r\n<pgMain> {abc}</pgMain>\r\n"
            "<pgMain>two</pgMain>");
  EXPECT_TRUE(desk.Collection("aTitle1").ends_with("</Tree>\r\n"));
}

TEST_F(FormatWindowPages, Failure68AMarkWithTextAfterItInItsParagraph) {
  BuildPage(u"   {0} more\r\ntwo");
  EXPECT_EQ(desk.LoggedFailures(68), 1);
  EXPECT_EQ(Body(), "<pgMain> {0} more</pgMain>\r\n<pgMain>two</pgMain>");
}

TEST_F(FormatWindowPages, Failure68ANumberThatNoImageCanHave) {
  desk.Open();
  EXPECT_EQ(desk.form3.ToIMG(u"<pgMain> {99999}</pgMain>"), u"<pgMain> {99999}</pgMain>");
  EXPECT_EQ(desk.form3.ToIMG(u"<pgMain> {-1}</pgMain>"), u"<pgMain> {-1}</pgMain>");
  EXPECT_EQ(desk.form3.ToIMG(u"<pgMain> {}</pgMain>"), u"<pgMain> {}</pgMain>");
  EXPECT_EQ(desk.LoggedFailures(68), 3);
}

TEST_F(FormatWindowPages, Failure68ThePictureCannotBeCopied) {
  desk.OpenOn(u"   {0}\r\n   {1}\r\nHead Next");
  SetImage(0, Picture("pictures/one.jpg", "first"));
  SetImage(1, Picture("pictures/two.jpg", "second"));
  desk.FileHeading("Head", " {0}");
  desk.FileHeading("Next", " {1}");
  desk.files.FailWhere("CopyFile", "one.jpg");
  Build();
  EXPECT_EQ(desk.LoggedFailures(68), 1);
  EXPECT_EQ(Body("Head"), "<pgMain> {0}</pgMain>");
  EXPECT_EQ(Body("Next"), "<IMG src=\"Data/IMG/two.jpg\">" + Tail(50));
}

TEST_F(FormatWindowPages, OneMarkTwiceBecomesTwoTags) {
  BuildPage(u"   {3}\r\none\r\n   {3}");
  EXPECT_EQ(Body(),
            "<IMG src=\"Data/IMG/\">\r\n<pgMain>one</pgMain>\r\n"
            "<IMG src=\"Data/IMG/\">" +
                Tail(50));
}

// The small text builders.

TEST_F(FormatWindowPages, BlankParagraphsStandAfterALineBreak) {
  desk.Open();
  EXPECT_EQ(Utf8(desk.form3.AddEntr(0)), "\r\n");
  EXPECT_EQ(Utf8(desk.form3.AddEntr(-2)), "\r\n");
  EXPECT_EQ(Utf8(desk.form3.AddEntr(1)), Tail(1));
  EXPECT_EQ(Utf8(desk.form3.AddEntr(7)), Tail(7));
}

TEST_F(FormatWindowPages, ProgramsAreToldFromOtherAttachmentsInAnyLetterCase) {
  desk.Open();
  EXPECT_EQ(desk.form3.sndBin(u"C:\\a.exe"), u" snd=\"1\" pas=\".exe\"");
  EXPECT_EQ(desk.form3.sndBin(u"C:\\a.EXE"), u" snd=\"1\" pas=\".EXE\"");
  EXPECT_EQ(desk.form3.sndBin(u"C:\\a.Exe"), u" snd=\"1\" pas=\".Exe\"");
  EXPECT_EQ(desk.form3.sndBin(u"C:\\a.tar.gz"), u" snd=\"0\" pas=\".gz\"");
  EXPECT_EQ(desk.form3.sndBin(u""), u"");
  EXPECT_EQ(desk.form3.PasBin(u"C:\\a.JPG", u"STEM"), u" bgBackground=\"Data/TXT/STEM.JPG\"");
  EXPECT_EQ(desk.form3.PasBin(u"", u"STEM"), u"");
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowPages, Failures84And85APathWithoutADotGivesAnEmptyText) {
  desk.Open();
  EXPECT_EQ(desk.form3.PasBin(u"C:\\back", u"STEM"), u"");
  EXPECT_EQ(desk.LoggedFailures(84), 1);
  EXPECT_EQ(desk.form3.sndBin(u"C:\\attached"), u"");
  EXPECT_EQ(desk.LoggedFailures(85), 1);
  EXPECT_THAT(desk.robot.TakeBoxes(), testing::SizeIs(1));  // the folder holds no texts
}

}  // namespace
