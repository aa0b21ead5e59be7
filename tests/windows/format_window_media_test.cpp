// A build's media: what is attached to entries, and the pictures of galleries. The columns that the
// paragraph window and the picture browser fill are filled by the test.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/format_desk.h"

namespace {

using platform::Text;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::FormatDesk;
using testing_support::Robot;

constexpr const char* kGalleryHead = "<?xml version=\"1.0\"?>\r\n<gallery>\r\n";
constexpr const char* kTreeHead = "<?xml version=\"1.0\"?>\r\n<Tree>\r\n";

class FormatWindowMedia : public testing::Test {
 protected:
  void OpenOnHeading() {
    desk.OpenOn(u"Head Text Next Other");
    desk.FileHeading("Head", "Text");
  }
  Text Medium(const std::string& name, std::string_view bytes) {
    desk.MakeFolders("media");
    desk.Write("media/" + name, bytes);
    return desk.Path(u"media\\" + platform::FromUtf8(name));
  }
  static void Build() { Robot::PressKey("Form3", "matn", Qt::Key_F12); }
  workbench::EntryTable& Table() { return desk.form3.table; }
  // The one file of the page folder that ends so.
  std::string PageMedium(const std::string& end) {
    const auto names = desk.BookNames("TXT", end);
    EXPECT_THAT(names, SizeIs(1)) << end;
    return names.empty() ? "" : desk.Read("Data/TXT/" + names[0]);
  }
  void MakeGalleryEntry(std::initializer_list<Text> paths) {
    Table().entryGallery.Set(0, true);
    std::ptrdiff_t slot = 0;
    for (const Text& path : paths) {
      Table().entryGalTitle.Set(0, slot, u"Picture " + platform::FromNumber(slot));
      Table().entryGalPath.Set(0, slot++, path);
    }
  }
  // The pictures of the book that were copied under random names.
  std::vector<std::string> Pictures() {
    std::vector<std::string> pictures;
    for (const std::string& name : desk.BookNames("IMG", ".jpg")) {
      if (name.size() == 14 + 4) pictures.push_back(desk.Read("Data/IMG/" + name));
    }
    std::ranges::sort(pictures);
    return pictures;
  }
  // The one gallery file of the book, random names as "S".
  std::string GalleryFile() {
    for (const std::string& name : desk.BookNames("_xml", ".xml")) {
      if (name.size() == 14 + 4) return desk.Unnamed("_xml/" + name);
    }
    return "";
  }

  FormatDesk desk;
};

TEST_F(FormatWindowMedia, AllFilesOfAnEntryShareOneStem) {
  OpenOnHeading();
  Table().entryAttach.Set(0, Medium("notes.PDF", "attached"));
  Table().entrySound.Set(0, Medium("song.mp3", "sound"));
  Table().entryFilm.Set(0, Medium("film.flv", "film"));
  Table().entryBack.Set(0, Medium("back.jpg", "background"));
  Build();
  EXPECT_EQ(desk.Collection("aTitle1"),
            std::string(kTreeHead) +
                "\t<node label=\"Head\" src=\"DATA/TXT/S.htm\" mediaStatus=\"111\" snd=\"0\" "
                "pas=\".PDF\" bgBackground=\"Data/TXT/S.jpg\" pic=\"0\" />\r\n</Tree>\r\n");
  const std::string stem = desk.BookNames("TXT", ".htm").at(0).substr(0, 14);
  EXPECT_EQ(desk.Read("Data/TXT/" + stem + ".PDF"), "attached");
  EXPECT_EQ(desk.Read("Data/TXT/" + stem + ".mp3"), "sound");
  EXPECT_EQ(desk.Read("Data/TXT/" + stem + ".flv"), "film");
  EXPECT_EQ(desk.Read("Data/TXT/" + stem + ".jpg"), "background");
  EXPECT_THAT(desk.Book("_xml/aTitle1.xml"), HasSubstr("Data/TXT/" + stem + ".jpg"));
}

TEST_F(FormatWindowMedia, EachMediumIsToldByItsDigit) {
  desk.OpenOn(u"a b c d e f");
  desk.FileHeading("a", "b");
  desk.FileHeading("c", "d");
  desk.FileHeading("e", "f");
  Table().entryAttach.Set(0, Medium("run.EXE", "program"));
  Table().entrySound.Set(1, Medium("song.mp3", "sound"));
  Table().entryFilm.Set(2, Medium("film.flv", "film"));
  Build();
  const std::string collection = desk.Collection("aTitle1");
  EXPECT_THAT(collection, HasSubstr("mediaStatus=\"100\" snd=\"1\" pas=\".EXE\" pic=\"0\" />"));
  EXPECT_THAT(collection, HasSubstr("mediaStatus=\"010\" pic=\"0\" />"));
  EXPECT_THAT(collection, HasSubstr("mediaStatus=\"001\" pic=\"0\" />"));
}

TEST_F(FormatWindowMedia, OfAnExtensionInTwoPartsTheLastCounts) {
  OpenOnHeading();
  Table().entryAttach.Set(0, Medium("a.tar.gz", "archive"));
  Build();
  EXPECT_THAT(desk.Collection("aTitle1"), HasSubstr("pas=\".gz\""));
  EXPECT_EQ(PageMedium(".gz"), "archive");
}

TEST_F(FormatWindowMedia, OfTwoMediaWithOneExtensionTheLaterStays) {
  OpenOnHeading();
  Table().entryAttach.Set(0, Medium("first.mp3", "attached"));
  Table().entrySound.Set(0, Medium("second.mp3", "sound"));
  Build();
  EXPECT_EQ(PageMedium(".mp3"), "sound");
}

TEST_F(FormatWindowMedia, AMediumWithThePagesExtensionTakesThePagesPlace) {
  OpenOnHeading();
  Table().entryAttach.Set(0, Medium("page.htm", "a page of its own"));
  Build();
  EXPECT_EQ(PageMedium(".htm"), "a page of its own");
}

// Gallery entries.

TEST_F(FormatWindowMedia, AGalleryEntryHasItsOwnFileOfPictures) {
  desk.OpenOn(u"Main Head Text");
  FormatDesk::Mark(Qt::Key_F1, "Main");
  desk.FileHeading("Head", "Text");
  Table().entryGallery.Set(1, true);
  Table().entryGalPath.Set(1, 0, Medium("one.png", "picture one"));
  Table().entryGalTitle.Set(1, 0, u"First\r\nline");
  Table().entryGalPath.Set(1, 1, Medium("two.jpg", "picture two"));
  Build();
  EXPECT_EQ(GalleryFile(), std::string(kGalleryHead) +
                               "\t\t<img dtl=\"First\r\nline\">Data/IMG/S.jpg</img>\r\n"
                               "\t\t<img dtl=\"\">Data/IMG/S.jpg</img>\r\n</gallery>\r\n");
  EXPECT_THAT(Pictures(), ElementsAre("picture one", "picture two"));
  EXPECT_THAT(desk.Collection("aTitle1"),
              HasSubstr("\t\t<node label=\"Head\" src=\"DATA/_xml/S.xml\" mediaStatus=\"000\" "
                        "pic=\"1\" />\r\n"));
  EXPECT_THAT(desk.BookNames("TXT", ".htm"), IsEmpty());
}

TEST_F(FormatWindowMedia, TheMediaOfAGalleryEntryAreReportedAndNotCopied) {
  OpenOnHeading();
  MakeGalleryEntry({Medium("one.jpg", "picture")});
  Table().entryAttach.Set(0, desk.Path(u"media\\gone.pdf"));
  Table().entryBack.Set(0, desk.Path(u"media\\gone.gif"));
  Build();
  EXPECT_THAT(desk.Collection("aTitle1"),
              HasSubstr("mediaStatus=\"100\" snd=\"0\" pas=\".pdf\" "
                        "bgBackground=\"Data/TXT/S.gif\" pic=\"1\" />"));
  EXPECT_THAT(desk.BookNames("TXT", ".pdf"), IsEmpty());
  EXPECT_EQ(desk.AllLoggedFailures(), 0);
}

TEST_F(FormatWindowMedia, AGalleryEntryWhoseFirstPictureIsRemovedLosesAllOfThem) {
  OpenOnHeading();
  MakeGalleryEntry({u"Removed", Medium("two.jpg", "picture two")});
  Build();
  EXPECT_EQ(GalleryFile(), std::string(kGalleryHead) + "</gallery>\r\n");
  EXPECT_THAT(Pictures(), IsEmpty());
}

// Collections of pictures.

TEST_F(FormatWindowMedia, AGalleryCollectionSkipsRemovedPictures) {
  desk.OpenOn(u"Head Text");
  Robot::Type("Form3", "bname", "Gallery");
  desk.form3.galleryMode = true;
  Table().galleryPic.Set(0, 0, Medium("one.jpg", "picture one"));
  Table().galleryPic.Set(0, 1, u"First");
  Table().galleryPic.Set(1, 0, u"Removed");
  Table().galleryPic.Set(2, 0, Medium("three.jpg", "picture three"));
  Table().galleryPic.Set(2, 1, u"Third \"&");
  Build();
  EXPECT_EQ(desk.Collection("aTitle1"), std::string(kGalleryHead) +
                                            "\t<img dtl=\"First\">Data/IMG/S.jpg</img>\r\n"
                                            "\t<img dtl=\"Third \"&\">Data/IMG/S.jpg</img>\r\n"
                                            "</gallery>\r\n");
  EXPECT_THAT(Pictures(), ElementsAre("picture one", "picture three"));
  EXPECT_THAT(desk.Book("_xml/Index.xml"),
              HasSubstr("\t<aTitle1 vol=\"pic1\">Gallery</aTitle1>\r\n"));
  EXPECT_TRUE(desk.form3.galleryMode);
}

TEST_F(FormatWindowMedia, AMarkerRowInAGalleryWritesItsNodeAndLosesThePicture) {
  desk.OpenOn(u"Main Head Text");
  FormatDesk::Mark(Qt::Key_F1, "Main");
  desk.form3.galleryMode = true;
  Table().galleryPic.Set(0, 0, Medium("one.jpg", "picture one"));
  Table().galleryPic.Set(1, 0, Medium("two.jpg", "picture two"));
  Build();
  EXPECT_EQ(desk.Collection("aTitle1"), std::string(kGalleryHead) +
                                            "\t<node label=\"Main\">\r\n"
                                            "\t\t<img dtl=\"\">Data/IMG/S.jpg</img>\r\n"
                                            "</gallery>\r\n");
  EXPECT_THAT(Pictures(), ElementsAre("picture two"));
}

TEST_F(FormatWindowMedia, AGalleryEndsWithItsPicturesWhateverIsFiled) {
  OpenOnHeading();
  desk.form3.galleryMode = true;
  Build();
  EXPECT_EQ(desk.Collection("aTitle1"), std::string(kGalleryHead) + "</gallery>\r\n");
}

TEST_F(FormatWindowMedia, TheCommandOfTheBrowserBuildsAGallery) {
  desk.OpenOn(u"Head Text");
  desk.form3.galleryMode = true;
  Table().galleryPic.Set(0, 0, Medium("one.jpg", "picture one"));
  desk.form3.Frame4.SetVisible(true);
  Robot::Settle();
  Robot::Click("Form3", "Com(13)");
  EXPECT_THAT(Pictures(), ElementsAre("picture one"));
  EXPECT_EQ(desk.form3.matn.Text(), u"Head Text");
}

}  // namespace
