#include "core/book_places.h"

#include <gtest/gtest.h>

#include "core/vocabulary.h"

namespace {

using platform::TextView;

constexpr TextView kRoot = u"C:\\Book\\";
constexpr TextView kProgram = u"C:\\Zorvand\\";

TEST(BookPlaces, FoldersOfTheProject) {
  EXPECT_EQ(core::ProjectFolder(kRoot, core::kTxtFolder), u"C:\\Book\\TXT");
  EXPECT_EQ(core::ProjectFolder(kRoot, core::kXmlFolder), u"C:\\Book\\_xml");
  EXPECT_EQ(core::PictureFolder(kRoot), u"C:\\Book\\IMG");
  EXPECT_EQ(core::MediaFolder(kRoot), u"C:\\Book\\FlashIMG");
}

TEST(BookPlaces, SettingsAndTheirMedia) {
  EXPECT_EQ(core::SettingsFile(kRoot, core::kTxtFolder), u"C:\\Book\\TXT\\CDProperty.xml");
  EXPECT_EQ(core::BackgroundFile(kRoot), u"C:\\Book\\FlashIMG\\Back.jpg");
  EXPECT_EQ(core::FirstSoundFile(kRoot), u"C:\\Book\\FlashIMG\\Sound1.mp3");
  EXPECT_EQ(core::SecondSoundFile(kRoot), u"C:\\Book\\FlashIMG\\Sound2.mp3");
}

TEST(BookPlaces, FilesOfACollection) {
  EXPECT_EQ(core::CollectionName(u"a", u"1"), u"aTitle1");
  EXPECT_EQ(core::CollectionFileName(u"c", u"10"), u"cTitle10.xml");
  EXPECT_EQ(core::CollectionFile(kRoot, core::kXmlFolder, u"a", u"1"),
            u"C:\\Book\\_xml\\aTitle1.xml");
  EXPECT_EQ(core::IndexFile(kRoot, core::kXmlFolder, u"Index.xml"), u"C:\\Book\\_xml\\Index.xml");
}

TEST(BookPlaces, ThePictureOfTheKeyB2) {
  EXPECT_EQ(core::CollectionPicture(kRoot, u"b", u"2"), u"C:\\Book\\IMG\\bTitle2.jpg");
}

TEST(BookPlaces, ThePictureOfAnEmptyKey) {
  EXPECT_EQ(core::CollectionPicture(kRoot, u"", u""), u"C:\\Book\\IMG\\Title.jpg");
}

TEST(BookPlaces, WithAnEmptyRootTitleFilesAreLookedForBelowTheCurrentFolder) {
  EXPECT_EQ(core::CollectionFile(u"", core::kXmlFolder, u"a", u"1"), u"_xml\\aTitle1.xml");
}

TEST(BookPlaces, FilesOfAnEntry) {
  EXPECT_EQ(core::PageFile(kRoot, core::kTxtFolder, u"S", u"htm"), u"C:\\Book\\TXT\\S.htm");
  EXPECT_EQ(core::EntryMedium(kRoot, core::kTxtFolder, u"S", u".PDF"), u"C:\\Book\\TXT\\S.PDF");
  EXPECT_EQ(core::EntryGalleryFile(kRoot, u"S"), u"C:\\Book\\_xml\\S.xml");
  EXPECT_EQ(core::GalleryPicture(kRoot, u"S"), u"C:\\Book\\IMG\\S.jpg");
  EXPECT_EQ(core::InlineImage(kRoot, u"map.gif"), u"C:\\Book\\IMG\\map.gif");
}

TEST(BookPlaces, AnAbsolutePathHasAColonAsItsSecondCharacter) {
  EXPECT_TRUE(core::IsAbsolute(u"C:\\Book"));
  EXPECT_TRUE(core::IsAbsolute(u"C:"));
  EXPECT_FALSE(core::IsAbsolute(u"Data"));
  EXPECT_FALSE(core::IsAbsolute(u""));
  EXPECT_FALSE(core::IsAbsolute(u":"));
}

TEST(BookPlaces, ANetworkPathIsTakenAsRelative) {
  EXPECT_EQ(core::Absolute(kProgram, u"\\\\server\\share"), u"C:\\Zorvand\\\\\\server\\share");
}

TEST(BookPlaces, ARelativePathStandsUnderTheProgramFolder) {
  EXPECT_EQ(core::Absolute(kProgram, u"Data"), u"C:\\Zorvand\\Data");
  EXPECT_EQ(core::Absolute(kProgram, u""), kProgram);
  EXPECT_EQ(core::Absolute(kProgram, u"D:\\x"), u"D:\\x");
}

TEST(BookPlaces, FilesBesideTheProgram) {
  EXPECT_EQ(core::LogFile(kProgram), u"C:\\Zorvand\\ZVL.txt");
  EXPECT_EQ(core::DefaultSettingsFile(kProgram), u"C:\\Zorvand\\Resources\\CDProperty.xml");
  EXPECT_EQ(core::ImageMarkFile(kProgram), u"C:\\Zorvand\\Resources\\img.bin");
  EXPECT_EQ(core::HelpFile(kProgram), u"C:\\Zorvand\\Resources\\Help.rtf");
  EXPECT_EQ(core::ExportScriptFile(kProgram), u"C:\\Zorvand\\Resources\\Export.inf");
  EXPECT_EQ(core::PrintTemplateFile(kProgram), u"C:\\Zorvand\\Resources\\Default.html");
  EXPECT_EQ(core::ResourceFile(kProgram, u"a\\b.swf"), u"C:\\Zorvand\\Resources\\a\\b.swf");
}

}  // namespace
