// What the project window saves with the book: the settings file and the book's own media.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/project_desk.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing_support::BoxText;
using testing_support::ProjectDesk;
using testing_support::Robot;

constexpr const char* kFile = "Data/TXT/CDProperty.xml";

std::string Utf16File(platform::TextView text) {
  std::string bytes = "\xFF\xFE";
  for (const char16_t unit : text) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

class ProjectWindowSettings : public testing::Test {
 protected:
  // The first press makes the folders; from then on settings are saved.
  ProjectWindowSettings() { desk.OpenWorkbench(); }

  void ExpectValues(platform::TextView a, platform::TextView pattern, platform::TextView music,
                    platform::TextView print) {
    using platform::Text;
    const Text text = u"<strings>\r\n\t<aNumber>" + Text(a) +
                      u"</aNumber>\r\n\t<bNumber>2</bNumber>\r\n\t<cNumber>2</cNumber>\r\n"
                      u"\t<Olgoo>" +
                      Text(pattern) + u"</Olgoo>\r\n\t<Music>" + Text(music) +
                      u"</Music>\r\n\t<Print>" + Text(print) + u"</Print>\r\n</strings>";
    EXPECT_EQ(desk.Read(kFile), Utf16File(text));
  }

  std::string Delivered(const std::string& name) { return desk.Read("Resources/" + name); }

  ProjectDesk desk;
};

TEST_F(ProjectWindowSettings, TheFirstPressOfAFreshProjectWritesNeitherFileNorMedia) {
  EXPECT_TRUE(desk.Has("Data/TXT"));
  EXPECT_FALSE(desk.Has(kFile));
  EXPECT_THAT(desk.Names("Data/FlashIMG"), IsEmpty());
  EXPECT_EQ(desk.LoggedTimes("Settings saved."), 1);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(ProjectWindowSettings, TheSecondPressWritesTheFileByteForByte) {
  desk.PressNext();
  EXPECT_EQ(desk.Read(kFile), Utf16File(u"<strings>\r\n"
                                        u"\t<aNumber>2</aNumber>\r\n"
                                        u"\t<bNumber>2</bNumber>\r\n"
                                        u"\t<cNumber>2</cNumber>\r\n"
                                        u"\t<Olgoo>1</Olgoo>\r\n"
                                        u"\t<Music>1</Music>\r\n"
                                        u"\t<Print>0</Print>\r\n"
                                        u"</strings>"));
  EXPECT_TRUE(desk.Read(kFile).starts_with(std::string("\xFF\xFE\x3C\0\x73\0", 6)));
}

TEST_F(ProjectWindowSettings, TheOtherSwitchesGiveTheOtherValues) {
  Robot::Click("Form1", "Olgoo(1)");
  Robot::Click("Form1", "bMus(1)");
  Robot::Click("Form1", "Pcheck");
  desk.PressNext();
  ExpectValues(u"2", u"2", u"0", u"1");
  EXPECT_EQ(desk.form1.OptionValue(0), u"0");
  EXPECT_EQ(desk.form1.OptionValue(1), u"2");
  EXPECT_EQ(desk.form1.OptionValue(2), u"1");
  EXPECT_EQ(desk.form1.OptionValue(3), u"0");
  EXPECT_EQ(desk.form1.OptionValue(-1), u"0");
}

TEST_F(ProjectWindowSettings, ACountThatIsNoNumberGoesIntoTheFileAsItStands) {
  Robot::Type("Form1", "title", "abc");
  desk.PressNext();
  ExpectValues(u"abc", u"1", u"1", u"0");
}

TEST_F(ProjectWindowSettings, AFieldIsWrittenUnescaped) {
  Robot::Type("Form1", "title", "<2> & \u06F3");
  desk.PressNext();
  ExpectValues(u"<2> & \u06F3", u"1", u"1", u"0");
}

TEST_F(ProjectWindowSettings, ALaterSaveReplacesTheFileWhole) {
  Robot::Type("Form1", "title", "a long text that is no count");
  desk.PressNext();
  Robot::Type("Form1", "title", "2");
  desk.PressNext();
  ExpectValues(u"2", u"1", u"1", u"0");
}

TEST_F(ProjectWindowSettings, TheMediaAreCopiedUnderTheirFixedNames) {
  desk.PressNext();
  EXPECT_THAT(desk.Names("Data/FlashIMG"), ElementsAre("Back.jpg", "Sound1.mp3", "Sound2.mp3"));
  EXPECT_EQ(desk.Read("Data/FlashIMG/Back.jpg"), Delivered("MyBack.jpg"));
  EXPECT_EQ(desk.Read("Data/FlashIMG/Sound1.mp3"), Delivered("MySound1.mp3"));
  EXPECT_EQ(desk.Read("Data/FlashIMG/Sound2.mp3"), Delivered("MySound2.mp3"));
}

TEST_F(ProjectWindowSettings, ALaterSaveTakesTheMediaAnew) {
  desk.PressNext();
  desk.Write("Resources/MyBack.jpg", "another picture");
  desk.Write("Resources/MySound2.mp3", "another track");
  desk.PressNext();
  EXPECT_EQ(desk.Read("Data/FlashIMG/Back.jpg"), "another picture");
  EXPECT_EQ(desk.Read("Data/FlashIMG/Sound2.mp3"), "another track");
}

TEST_F(ProjectWindowSettings, WithMusicOffTheTracksOfAnEarlierSaveStay) {
  desk.PressNext();
  const std::string before = desk.Read("Data/FlashIMG/Sound1.mp3");
  Robot::Click("Form1", "bMus(1)");
  desk.Write("Resources/MySound1.mp3", "another track");
  desk.PressNext();
  EXPECT_EQ(desk.Read("Data/FlashIMG/Sound1.mp3"), before);
  EXPECT_TRUE(desk.Has("Data/FlashIMG/Sound2.mp3"));
}

TEST_F(ProjectWindowSettings, WithMusicOffNoTrackIsCopied) {
  Robot::Click("Form1", "bMus(1)");
  desk.PressNext();
  EXPECT_THAT(desk.Names("Data/FlashIMG"), ElementsAre("Back.jpg"));
}

TEST_F(ProjectWindowSettings, AMediumThatIsNotThereIsLeftOutAndTheOthersAreCopied) {
  std::filesystem::remove(desk.HostPath("Resources/MySound1.mp3"));
  desk.PressNext();
  EXPECT_THAT(desk.Names("Data/FlashIMG"), ElementsAre("Back.jpg", "Sound2.mp3"));
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(12)));
}

TEST_F(ProjectWindowSettings, WithTheBooksOwnPictureAsBackgroundThePictureIsGone) {
  desk.PressNext();
  desk.FillWithPath("Back", u"Data\\FlashIMG\\Back.jpg");
  desk.PressNext();
  EXPECT_FALSE(desk.Has("Data/FlashIMG/Back.jpg"));
  EXPECT_TRUE(desk.Has("Resources/MyBack.jpg"));
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(14)));
  EXPECT_EQ(desk.LoggedTimes("Settings saved."), 3);
}

TEST_F(ProjectWindowSettings, WithTheBooksOwnTracksAsMusicTheTracksAreGone) {
  desk.PressNext();
  desk.FillWithPath("Mus1", u"Data\\FlashIMG\\Sound1.mp3");
  desk.FillWithPath("Mus2", u"Data\\FlashIMG\\Sound2.mp3");
  desk.PressNext();
  EXPECT_THAT(desk.Names("Data/FlashIMG"), ElementsAre("Back.jpg"));
  EXPECT_THAT(desk.BoxTexts(), ElementsAre(BoxText(12), BoxText(13)));
}

TEST_F(ProjectWindowSettings, AFailedDeletionIsFollowedByAnAttemptToCopy) {
  desk.PressNext();
  desk.Write("Resources/MyBack.jpg", "another picture");
  desk.files.FailWhere("DeleteFile", "Back.jpg");
  desk.PressNext();
  EXPECT_TRUE(desk.files.HasFailed());
  EXPECT_EQ(desk.Read("Data/FlashIMG/Back.jpg"), "another picture");
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(ProjectWindowSettings, AFailedCopyKeepsNothingOfTheOtherMediaBack) {
  desk.files.FailWhere("CopyFile", "Back.jpg");
  desk.PressNext();
  EXPECT_THAT(desk.Names("Data/FlashIMG"), ElementsAre("Sound1.mp3", "Sound2.mp3"));
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

TEST_F(ProjectWindowSettings, WhateverFailsNothingShowsAndTheSettingsCountAsSaved) {
  desk.PressNext();
  desk.files.FailAt(0);
  desk.form1.SaveThings();
  const std::size_t operations = desk.files.Operations();
  for (std::size_t k = 1; k <= operations; ++k) {
    desk.files.FailAt(k);
    EXPECT_NO_THROW(desk.form1.SaveThings());
    EXPECT_TRUE(desk.files.HasFailed()) << k;
    EXPECT_TRUE(desk.Log().ends_with("Settings saved.\r\n") ||
                desk.SecondLog().ends_with("Settings saved.\r\n"))
        << k;
    ExpectValues(u"2", u"1", u"1", u"0");  // the old file or the new one, never half of it
  }
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
  EXPECT_EQ(desk.form1.lastErrorText, u"");
}

TEST(ProjectWindowFirstSave, RelativePathsAreResolvedAgainstTheCurrentFolder) {
  ProjectDesk desk;
  for (const char* folder : {"Data/TXT/kept", "Data/FlashIMG/kept"}) desk.WriteCurrent(folder, "");
  desk.WriteCurrent("Resources/MyBack.jpg", "the current folder's picture");
  desk.WriteCurrent("Resources/MySound1.mp3", "the current folder's track");
  desk.OpenWorkbench();
  const auto read = [&](platform::TextView name) {
    return desk.folder.Read(platform::Text(u"current\\Data\\").append(name));
  };
  EXPECT_TRUE(read(u"TXT\\CDProperty.xml").starts_with("\xFF\xFE"));
  EXPECT_EQ(read(u"FlashIMG\\Back.jpg"), "the current folder's picture");
  EXPECT_EQ(read(u"FlashIMG\\Sound1.mp3"), "the current folder's track");
  EXPECT_FALSE(desk.folder.Has(u"current\\Data\\FlashIMG\\Sound2.mp3"));
  EXPECT_FALSE(desk.Has(kFile));
  desk.PressNext();
  EXPECT_EQ(desk.Read("Data/FlashIMG/Back.jpg"), desk.Read("Resources/MyBack.jpg"));
}

// The tag reader, which belongs to the window for its failure number.

TEST_F(ProjectWindowSettings, ATagThatOccursTwiceIsReadUpToTheFirstCloseTag) {
  EXPECT_EQ(desk.form1.Wsre(u"x<t>one</t><t>two</t>", u"t"), u"one");
}

TEST_F(ProjectWindowSettings, AnEmptyElementIsEmptyAndLogsNothing) {
  desk.NewLines();
  EXPECT_EQ(desk.form1.Wsre(u"<t></t>", u"t"), u"");
  EXPECT_EQ(desk.form1.Wsre(u"no tag", u"t"), u"");
  EXPECT_THAT(desk.NewLines(), IsEmpty());
}

TEST_F(ProjectWindowSettings, Failure41ACloseTagThatIsMissingOrStandsFirst) {
  EXPECT_EQ(desk.form1.Wsre(u"<t>one", u"t"), u"");
  EXPECT_EQ(desk.LoggedFailures(41), 1);
  EXPECT_EQ(desk.form1.Wsre(u"</t><t>one", u"t"), u"");
  EXPECT_EQ(desk.LoggedFailures(41), 2);
  EXPECT_THAT(desk.robot.TakeBoxes(), IsEmpty());
}

}  // namespace
