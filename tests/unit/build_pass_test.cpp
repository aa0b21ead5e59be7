#include "workbench/build_pass.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/failure.h"
#include "tests/support/known_texts.h"
#include "tests/unit/build_pass_desk.h"
#include "workbench/stems.h"

namespace workbench {
namespace {

using platform::Failure;
using platform::Random;
using platform::Text;
using platform::TextView;
using testing::ElementsAre;
using testing_support::FaultyFileSystem;
using testing_support::FixedClock;

TEST_F(BuildPassTest, EmptyTableMakesHeadAndEndLines) {
  Build();
  EXPECT_EQ(Collection(), kTreeHead + "</Tree>\r\n");
  EXPECT_EQ(Index(), kIndexHead + "\t<aTitle1 vol=\"txt\">Title</aTitle1>\r\n");
  EXPECT_THAT(desk_.events, ElementsAre("log Making Title...", "MakeCombo", "NameNevis", "hide",
                                        "message 4", "focus", "ResetA", "log Title is made."));
}

TEST_F(BuildPassTest, OrdinaryPage) {
  AddEntry(u"T", u"one\r\ntwo");
  Build();
  EXPECT_EQ(Collection(), kTreeHead +
                              "\t<node label=\"T\" src=\"DATA/TXT/S1.htm\" mediaStatus=\"000\" "
                              "pic=\"0\" />\r\n</Tree>\r\n");
  EXPECT_EQ(Page(u"S1"), "<pgTitle>T</pgTitle>\r\n\r\n" + kBlank +
                             "<pgMain>one</pgMain>\r\n<pgMain>two</pgMain>\r\n" + Times(7, kBlank));
}

TEST_F(BuildPassTest, PageWithAnImageEndsInFiftyBlankParagraphsAndHasItsPictureInTheBook) {
  table_.inlineImage.Set(0, Source(u"in text.gif", "GIF"));
  AddEntry(u"T", u"one\r\n {0}\r\ntwo");
  Build();
  Collection();
  EXPECT_EQ(Page(u"S1"), "<pgTitle>T</pgTitle>\r\n\r\n" + kBlank +
                             "<pgMain>one</pgMain>\r\n<IMG src=\"Data/IMG/in text.gif\">\r\n"
                             "<pgMain>two</pgMain>\r\n" +
                             Times(50, kBlank));
  EXPECT_EQ(folder_.Read(u"IMG\\in text.gif"), "GIF");
}

TEST_F(BuildPassTest, MarkInTheTitleIsNoImage) {
  AddEntry(u"<pgMain> {0}</pgMain>", u"one");
  Build();
  Collection();
  EXPECT_TRUE(Page(u"S1").starts_with("<pgTitle><pgMain> {0}</pgMain></pgTitle>\r\n"));
}

TEST_F(BuildPassTest, FailureInTheImagesWritesThePageWithoutItsTailAndGoesOn) {
  AddEntry(u"T", u" {abc}");
  Build();
  Collection();
  EXPECT_EQ(Page(u"S1"), "<pgTitle>T</pgTitle>\r\n\r\n" + kBlank + "<pgMain> {abc}</pgMain>");
  EXPECT_THAT(desk_.events, testing::Contains("failure 68"));
  EXPECT_THAT(desk_.events, testing::Contains("message 4"));
}

TEST_F(BuildPassTest, HeadingOfTheIdentityWordMakesAnIdentityPage) {
  AddEntry(identityWord_, u"one");
  Build();
  Collection();
  EXPECT_EQ(Page(u"S1"),
            "<pgTitle>شناسنامه</pgTitle>\r\n<pgMain></pgMain>\r\n"
            "<pgMain></pgMain>\r\n<pgMain>one</pgMain>\r\n" +
                Times(7, kBlank));
}

TEST_F(BuildPassTest, MainTitlesIndentWhatTheyHold) {
  AddEntry(mainMark_, u"Main\r\ntitle ");
  AddEntry(u"T", u"text");
  AddEntry(mainEndMark_, u"Main");
  AddEntry(u"U", u"text");
  Build();
  EXPECT_EQ(Collection(),
            kTreeHead +
                "\t<node label=\"Main title\">\r\n"
                "\t\t<node label=\"T\" src=\"DATA/TXT/S1.htm\" mediaStatus=\"000\" pic=\"0\" />\r\n"
                "\t</node>\r\n"
                "\t<node label=\"U\" src=\"DATA/TXT/S2.htm\" mediaStatus=\"000\" pic=\"0\" />\r\n"
                "</Tree>\r\n");
}

TEST_F(BuildPassTest, MainTitlesStillOpenAtTheEndStayUnclosed) {
  AddEntry(mainMark_, u"A");
  AddEntry(mainMark_, u"B");
  Build();
  EXPECT_EQ(Collection(),
            kTreeHead + "\t<node label=\"A\">\r\n\t\t<node label=\"B\">\r\n</Tree>\r\n");
}

TEST_F(BuildPassTest, DepthBelowZeroFails) {
  AddEntry(mainEndMark_, u"");
  AddEntry(mainEndMark_, u"");
  EXPECT_THROW(Build(), Failure);
  EXPECT_EQ(Collection(), kTreeHead + "</node>\r\n");
}

TEST_F(BuildPassTest, RowWithAnEmptyTitleEndsTheWalk) {
  AddEntry(u"T", u"text");
  AddEntry(u"", u"lost");
  AddEntry(u"U", u"lost too");
  Build();
  EXPECT_EQ(Names(u"TXT").size(), 1U);
  EXPECT_THAT(desk_.events, testing::Contains("message 4"));
}

TEST_F(BuildPassTest, FullNodeAndItsMedia) {
  AddEntry(u"T", u"text");
  table_.entryAttach.Set(0, Source(u"a.EXE", "program"));
  table_.entrySound.Set(0, Source(u"s.mp3", "sound"));
  table_.entryFilm.Set(0, Source(u"f.avi", "film"));
  table_.entryBack.Set(0, Source(u"b.jpg", "back"));
  Build();
  EXPECT_EQ(Collection(), kTreeHead +
                              "\t<node label=\"T\" src=\"DATA/TXT/S1.htm\" mediaStatus=\"111\" "
                              "snd=\"1\" pas=\".EXE\" bgBackground=\"Data/TXT/S1.jpg\" "
                              "pic=\"0\" />\r\n</Tree>\r\n");
  EXPECT_THAT(Names(u"TXT"), ElementsAre(u"S1.EXE", u"S1.avi", u"S1.htm", u"S1.jpg", u"S1.mp3"));
  EXPECT_EQ(folder_.Read(u"TXT\\" + Stem(u"S1") + u".mp3"), "sound");
}

TEST_F(BuildPassTest, TwoMediaOfOneExtensionTheLaterReplacesTheEarlier) {
  AddEntry(u"T", u"text");
  table_.entryAttach.Set(0, Source(u"a.jpg", "attachment"));
  table_.entryBack.Set(0, Source(u"b.jpg", "back"));
  Build();
  Collection();
  EXPECT_EQ(folder_.Read(u"TXT\\" + Stem(u"S1") + u".jpg"), "back");
}

TEST_F(BuildPassTest, MediumWithThePagesExtensionReplacesThePage) {
  AddEntry(u"T", u"text");
  table_.entryAttach.Set(0, Source(u"a.htm", "attachment"));
  Build();
  Collection();
  EXPECT_EQ(folder_.Read(u"TXT\\" + Stem(u"S1") + u".htm"), "attachment");
}

TEST_F(BuildPassTest, MissingMediumEndsThePassAfterTheNode) {
  AddEntry(u"T", u"text");
  AddEntry(u"U", u"text");
  table_.entrySound.Set(0, folder_.Path(u"source\\gone.mp3"));
  EXPECT_THROW(Build(), Failure);
  EXPECT_EQ(Collection(), kTreeHead +
                              "\t<node label=\"T\" src=\"DATA/TXT/S1.htm\" mediaStatus=\"010\" "
                              "pic=\"0\" />\r\n");
  EXPECT_EQ(Index(), kIndexHead + "\t<aTitle1 vol=\"txt\">Title</aTitle1>\r\n");
  EXPECT_THAT(desk_.events, ElementsAre("log Making Title..."));
}

TEST_F(BuildPassTest, MediumWithoutADotEndsThePassOnceItsNodeIsWritten) {
  AddEntry(u"T", u"text");
  // Bare names: a dot in the folder's name would do.
  table_.entryAttach.Set(0, u"readme");
  table_.entryBack.Set(0, u"picture");
  EXPECT_THROW(Build(), Failure);
  EXPECT_THAT(desk_.events, ElementsAre("log Making Title...", "failure 85", "failure 84"));
  EXPECT_EQ(Collection(), kTreeHead +
                              "\t<node label=\"T\" src=\"DATA/TXT/S1.htm\" mediaStatus=\"100\" "
                              "pic=\"0\" />\r\n");
}

TEST_F(BuildPassTest, LabelIsOneLineAndThePagesTitleIsRaw) {
  AddEntry(u"\r\nT  \"q\" ", u"text");
  Build();
  EXPECT_THAT(Collection(), testing::HasSubstr("label=\"T \"q\"\" src"));
  EXPECT_THAT(Page(u"S1"), testing::StartsWith("<pgTitle>\r\nT  \"q\" </pgTitle>\r\n"));
}

TEST_F(BuildPassTest, EmptyTitleIsMadeFromTheBookLabel) {
  desk_.title = u"";
  Build();
  EXPECT_EQ(desk_.title, u"مجموعه اول در رديف اول");
  EXPECT_EQ(Index(), kIndexHead + "\t<aTitle1 vol=\"txt\">مجموعه اول در رديف اول</aTitle1>\r\n");
}

TEST_F(BuildPassTest, PictureGallery) {
  work_.galleryMode = true;
  table_.galleryPic.Set(0, 0, Source(u"p.jpg", "p"));
  table_.galleryPic.Set(0, 1, u"Picture \r\np");
  table_.galleryPic.Set(1, 0, u"Removed");
  table_.galleryPic.Set(2, 0, Source(u"q.bmp", "q"));
  Build();
  EXPECT_EQ(Collection(), kGalleryHead +
                              "\t<img dtl=\"Picture \r\np\">Data/IMG/S1.jpg</img>\r\n"
                              "\t<img dtl=\"\">Data/IMG/S2.jpg</img>\r\n</gallery>\r\n");
  EXPECT_EQ(Index(), kIndexHead + "\t<aTitle1 vol=\"pic1\">Title</aTitle1>\r\n");
  EXPECT_EQ(folder_.Read(u"IMG\\" + Stem(u"S1") + u".jpg"), "p");
  EXPECT_EQ(folder_.Read(u"IMG\\" + Stem(u"S2") + u".jpg"), "q");
}

TEST_F(BuildPassTest, MarkerRowInGalleryModeWritesANodeAndLeavesItsPictureOut) {
  work_.galleryMode = true;
  AddEntry(mainMark_, u"M");
  table_.galleryPic.Set(0, 0, Source(u"p.jpg", "p"));
  table_.galleryPic.Set(1, 0, Source(u"q.jpg", "q"));
  Build();
  EXPECT_EQ(Collection(), kGalleryHead +
                              "\t<node label=\"M\">\r\n"
                              "\t\t<img dtl=\"\">Data/IMG/S1.jpg</img>\r\n</gallery>\r\n");
  EXPECT_EQ(Names(u"IMG").size(), 1U);
}

TEST_F(BuildPassTest, GalleryEntry) {
  AddEntry(mainMark_, u"M");
  AddEntry(u"G", u"text that isn't built");
  table_.entryGallery.Set(1, true);
  table_.entryGalPath.Set(1, 0, Source(u"p.jpg", "p"));
  table_.entryGalTitle.Set(1, 0, u"one");
  table_.entryGalPath.Set(1, 1, Source(u"q.jpg", "q"));
  table_.entryAttach.Set(1, u"a.pdf");
  table_.entryBack.Set(1, u"back.png");
  Build();
  // The background is named after the last picture, and nothing is copied for it.
  EXPECT_EQ(Collection(), kTreeHead +
                              "\t<node label=\"M\">\r\n"
                              "\t\t<node label=\"G\" src=\"DATA/_xml/S1.xml\" mediaStatus=\"100\" "
                              "snd=\"0\" pas=\".pdf\" bgBackground=\"Data/TXT/S2.png\" "
                              "pic=\"1\" />\r\n</Tree>\r\n");
  EXPECT_EQ(Book(u"_xml\\" + Stem(u"S1") + u".xml"),
            kGalleryHead +
                "\t\t<img dtl=\"one\">Data/IMG/S3.jpg</img>\r\n"
                "\t\t<img dtl=\"\">Data/IMG/S2.jpg</img>\r\n</gallery>\r\n");
  EXPECT_EQ(folder_.Read(u"IMG\\" + Stem(u"S2") + u".jpg"), "q");
  EXPECT_TRUE(Names(u"TXT").empty());
}

TEST_F(BuildPassTest, GalleryEntryWhoseFirstPictureIsRemovedLosesTheLaterOnes) {
  AddEntry(u"G", u"");
  table_.entryGallery.Set(0, true);
  table_.entryGalPath.Set(0, 0, u"Removed");
  table_.entryGalPath.Set(0, 1, Source(u"q.jpg", "q"));
  table_.entryBack.Set(0, u"b.png");
  Build();
  EXPECT_EQ(Collection(), kTreeHead +
                              "\t<node label=\"G\" src=\"DATA/_xml/S1.xml\" mediaStatus=\"000\" "
                              "bgBackground=\"Data/TXT/S1.png\" pic=\"1\" />\r\n</Tree>\r\n");
  EXPECT_EQ(Book(u"_xml\\" + Stem(u"S1") + u".xml"), kGalleryHead + "</gallery>\r\n");
  EXPECT_TRUE(Names(u"IMG").empty());
}

TEST_F(BuildPassTest, NameThatIsTakenIsDrawnAnew) {
  FixedClock sameClock;
  Random sameRandom;
  const Text taken = NewN(sameClock, sameRandom);
  folder_.Write(u"TXT\\" + taken + u".htm", "of another collection");
  AddEntry(u"T", u"text");
  Build();
  EXPECT_EQ(folder_.Read(u"TXT\\" + taken + u".htm"), "of another collection");
  EXPECT_EQ(Names(u"TXT").size(), 2U);
}

// What a text entry asks of the disk, one line an operation, with the paths inside the book.
TEST_F(BuildPassTest, AsksTheDiskForTheseOperationsInThisOrder) {
  AddEntry(u"T", u"text");
  table_.entryAttach.Set(0, Source(u"a.pdf", "a"));
  table_.entryBack.Set(0, Source(u"b.jpg", "b"));
  faulty_.FailAt(FaultyFileSystem::kNever);
  Build();
  std::string operations;
  for (const std::string& name : faulty_.Names()) {
    operations += platform::ToUtf8(
                      platform::Replace(Renamed(platform::FromUtf8(name)), Root() + u"\\", u"")) +
                  "\n";
  }
  const auto writing = [](const std::string& path) {
    return "Open " + path + "\nWrite " + path + "\nClose " + path + "\n";
  };
  EXPECT_EQ(
      operations,
      "FolderExists _xml\nFileExists _xml\\Index.xml\n" + Times(2, writing("_xml\\Index.xml")) +
          "Flush _xml\\Index.xml\nFileExists _xml\\aTitle1.xml\n" + writing("_xml\\aTitle1.xml") +
          "Flush _xml\\aTitle1.xml\nFileExists TXT\\S1.htm\n" + Times(2, writing("TXT\\S1.htm")) +
          writing("_xml\\aTitle1.xml") + "CopyFile TXT\\S1.pdf\nCopyFile TXT\\S1.jpg\n" +
          writing("_xml\\aTitle1.xml") + "Flush \n");
}

TEST_F(BuildPassTest, AnyFailureEndsThePassWithoutTheStepsInTheWindow) {
  AddEntry(u"T", u"text");
  AddEntry(u"G", u"");
  table_.entryBack.Set(0, Source(u"b.jpg", "b"));
  table_.entryGallery.Set(1, true);
  table_.entryGalPath.Set(1, 0, Source(u"p.jpg", "p"));
  Build();
  const std::size_t operations = faulty_.Operations();
  ASSERT_GT(operations, 30U);
  for (std::size_t k = 1; k <= operations; ++k) {
    std::filesystem::remove(folder_.HostPath("_xml/aTitle1.xml"));
    std::filesystem::remove(folder_.HostPath("_xml/Index.xml"));
    desk_.events.clear();
    faulty_.FailAt(k);
    EXPECT_THROW(Build(), Failure) << k;
    EXPECT_THAT(desk_.events, ElementsAre("log Making Title...")) << k;
  }
}

}  // namespace
}  // namespace workbench
