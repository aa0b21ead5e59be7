#include "workbench/build_pass.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "core/book_places.h"
#include "platform/failure.h"
#include "platform/files/paths.h"
#include "platform/text/encoding.h"
#include "tests/support/faulty_file_system.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/known_texts.h"
#include "tests/support/temporary_folder.h"
#include "workbench/inline_images.h"
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
using testing_support::TemporaryFolder;

// The window, as far as the pass can see it. Rich text is plain text here.
class Desk : public BuildDesk {
 public:
  Desk(Text root, const EntryTable& entries, platform::FileSystem& files)
      : projectFolder(std::move(root)), table_(entries), files_(files) {}

  void LogMe(TextView text) override { Note("log " + platform::ToUtf8(text)); }
  void bepayam(std::int16_t number) override { Note("message " + std::to_string(number)); }
  void ShowNotice(TextView prompt) override { Note("notice " + platform::ToUtf8(prompt)); }
  bool AskYesNo(TextView prompt) override {
    question = prompt;
    return answer;
  }

  Text ProjectFolder() override { return projectFolder; }
  Text CollectionTitle() override { return title; }
  void SetCollectionTitle(TextView text) override { title = text; }
  Text BookLabelCaption() override { return u"عنوان مجموعه اول در رديف اول:"; }

  Text ToTXT(const Text& richText) override { return richText; }
  Text ToIMG(Text body) override {
    Caught(68, [&] {
      const bool images =
          workbench::PutImageTags(body, table_.inlineImage, [&](const Text& source, TextView name) {
            CopyIfMissing(files_, source,
                          core::InlineImage(platform::DoSlash(projectFolder), name));
          });
      body += AddEntr(images ? kTailWithImages : kTailWithoutImages, u"pgMain");
    });
    return body;
  }
  Text sndBin(TextView path) override {
    Text result;
    Caught(85, [&] { result = workbench::sndBin(path); });
    return result;
  }
  Text PasBin(TextView path, TextView stem) override {
    Text result;
    Caught(84, [&] { result = workbench::PasBin(path, stem); });
    return result;
  }

  void MakeCombo() override { Note("MakeCombo"); }
  void NameNevis() override { Note("NameNevis"); }
  void HideWorkbench() override { Note("hide"); }
  void FocusSelector() override { Note("focus"); }
  void ResetA() override { Note("ResetA"); }

  Text projectFolder;
  Text title = u"Title";
  bool answer = true;
  Text question;
  std::vector<std::string> events;

 private:
  void Note(std::string event) { events.push_back(std::move(event)); }
  void Caught(int number, const std::function<void()>& body) {
    platform::CatchingFailure(body,
                              [&](const Text&) { Note("failure " + std::to_string(number)); });
  }

  const EntryTable& table_;
  platform::FileSystem& files_;
};

bool IsOfStem(char16_t c) { return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Y'); }

class BuildPassTest : public testing::Test {
 protected:
  BuildPassTest()
      : faulty_(platform::HostFileSystem()), files_(faulty_), desk_(Root(), table_, faulty_) {
    for (const TextView folder : {u"TXT", u"_xml", u"IMG", u"source"}) folder_.MakeFolder(folder);
  }

  Text Root() const { return folder_.Path(); }
  Text Source(TextView name, std::string_view bytes) {
    folder_.Write(Text(u"source\\").append(name), bytes);
    return folder_.Path(Text(u"source\\").append(name));
  }
  void AddEntry(TextView title, TextView text) {
    table_.entryTitle.Set(rows_, Text(title));
    table_.entryText.Set(rows_, Text(text));
    ++rows_;
  }

  void Build() {
    const BuildOrder order{.work = work_,
                           .words = words_,
                           .rowLetter = letter_,
                           .rowDigit = digit_,
                           .mainMark = mainMark_,
                           .mainEndMark = mainEndMark_,
                           .identityWord = identityWord_};
    BuildPass(desk_, order, files_, clock_, random_).Run();
  }

  // A file of the book without its mark; each random name as "S" and a number, in the order in
  // which the test sees them.
  std::string Book(TextView name) {
    const std::string bytes = folder_.Read(name);
    EXPECT_TRUE(bytes.starts_with(platform::kUtf16Mark));
    return platform::ToUtf8(Renamed(
        platform::DecodeUtf16(std::string_view(bytes).substr(platform::kUtf16Mark.size()))));
  }
  // The real name behind "S1".
  Text Stem(TextView shown) const {
    for (const auto& [stem, name] : stems_) {
      if (name == shown) return stem;
    }
    return {};
  }
  std::string Page(TextView shown) { return Book(u"TXT\\" + Stem(shown) + u".htm"); }
  std::string Index() { return Book(u"_xml\\Index.xml"); }
  std::string Collection() { return Book(u"_xml\\aTitle1.xml"); }
  std::vector<Text> Names(TextView folder) {
    std::vector<Text> names = platform::HostFileSystem().FileNames(folder_.Path(folder));
    for (Text& name : names) name = Renamed(name);
    std::sort(names.begin(), names.end());
    return names;
  }

  Text Renamed(const Text& text) {
    Text renamed;
    for (std::size_t at = 0; at < text.size();) {
      std::size_t end = at;
      while (end < text.size() && IsOfStem(text[end])) ++end;
      if (end - at == 14) {
        const Text next = u"S" + platform::FromNumber(static_cast<int>(stems_.size()) + 1);
        renamed += stems_.emplace(text.substr(at, 14), next).first->second;
        at = end;
      } else {
        end = std::max(end, at + 1);
        renamed += text.substr(at, end - at);
        at = end;
      }
    }
    return renamed;
  }

  TemporaryFolder folder_;
  FaultyFileSystem faulty_;
  platform::FileSystemObject files_;
  FiledWork work_;
  EntryTable& table_ = work_.table;
  Desk desk_;
  FixedClock clock_;
  Random random_;
  Vocabulary words_{
      u"TXT", u"_xml", u"Index.xml", u"pgTitle", u"pgMain", u"pgMain", u"<aTitle0>credit</aTitle0>",
      u"htm"};
  Text letter_ = u"a";
  Text digit_ = u"1";
  Text mainMark_ = u">>> تيتر اصلي";
  Text mainEndMark_ = u">>> پايان تيتر";
  Text identityWord_ = u"شناسنامه";
  std::ptrdiff_t rows_ = 0;
  std::map<Text, Text> stems_;
};

const std::string kTreeHead = "<?xml version=\"1.0\"?>\r\n<Tree>\r\n";
const std::string kGalleryHead = "<?xml version=\"1.0\"?>\r\n<gallery>\r\n";
const std::string kIndexHead = "<strings>\r\n\t<aTitle0>credit</aTitle0>\r\n";
const std::string kBlank = "<pgMain>&nbsp;</pgMain>\r\n";

std::string Times(int count, const std::string& text) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

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

TEST_F(BuildPassTest, CollectionTitleBecomesOneLine) {
  desk_.title = u" A\r\nB   C ";
  Build();
  EXPECT_EQ(Index(), kIndexHead + "\t<aTitle1 vol=\"txt\">A B  C</aTitle1>\r\n");
  EXPECT_EQ(desk_.title, u" A\r\nB   C ");
}

TEST_F(BuildPassTest, SecondCollectionAddsItsLine) {
  Build();
  digit_ = u"10";
  work_.galleryMode = true;
  Build();
  EXPECT_EQ(Index(), kIndexHead +
                         "\t<aTitle1 vol=\"txt\">Title</aTitle1>\r\n"
                         "\t<aTitle10 vol=\"pic1\">Title</aTitle10>\r\n");
  EXPECT_EQ(Book(u"_xml\\aTitle10.xml"), kGalleryHead + "</gallery>\r\n");
}

TEST_F(BuildPassTest, RebuildLeavesOneEmptyLineWhereTheOldLineStood) {
  Build();
  desk_.title = u"New";
  AddEntry(u"T", u"text");
  Build();
  const Text& known = testing_support::KnownText("question");
  EXPECT_EQ(desk_.question, platform::Replace(known, u"cTitle1.xml", u"aTitle1.xml"));
  EXPECT_EQ(Index(), kIndexHead + "\r\n\t<aTitle1 vol=\"txt\">New</aTitle1>\r\n");
  EXPECT_THAT(Collection(), testing::HasSubstr("label=\"T\""));
}

TEST_F(BuildPassTest, NoLeavesASecondLineAndEverythingElseAsItIs) {
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

TEST_F(BuildPassTest, OneNoAndOneYesLeaveTwoLines) {
  Build();
  desk_.answer = false;
  Build();
  desk_.answer = true;
  Build();
  const std::string line = "\t<aTitle1 vol=\"txt\">Title</aTitle1>\r\n";
  EXPECT_EQ(Index(), kIndexHead + "\r\n" + line + line);
}

TEST_F(BuildPassTest, YesWithoutAnOlderLineCutsTheNewOne) {
  folder_.Write(u"_xml\\aTitle1.xml", "of another book");
  Build();
  EXPECT_EQ(Index(), kIndexHead + "\r\n");
  EXPECT_EQ(Collection(), kTreeHead + "</Tree>\r\n");
}

TEST_F(BuildPassTest, NeitherFolderIsANotice) {
  desk_.projectFolder = folder_.Path(u"nowhere");
  Build();
  EXPECT_THAT(desk_.events,
              ElementsAre("log Making Title...",
                          "notice " + platform::ToUtf8(testing_support::KnownText("notice", 1))));
}

TEST_F(BuildPassTest, OneOfTheFoldersIsEnoughToGoOn) {
  folder_.MakeFolder(u"other\\_xml");
  desk_.projectFolder = folder_.Path(u"other\\");
  Build();
  EXPECT_TRUE(folder_.Has(u"other\\_xml\\aTitle1.xml"));
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

TEST_F(BuildPassTest, ProjectFolderIsReadAnewAtEachUse) {
  class Moving : public Desk {
   public:
    using Desk::Desk;
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
TEST_F(BuildPassTest, ProjectFolderThatIsEmptiedMeanwhileIsNoFailure) {
  class Emptied : public Desk {
   public:
    using Desk::Desk;
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

// What a text entry asks of the disk, one line an operation, with the paths inside the book.
TEST_F(BuildPassTest, FileOperationsAreThoseToldAndInThatOrder) {
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
