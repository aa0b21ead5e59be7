#include "core/settings.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/failure.h"
#include "platform/files/file_system_object.h"
#include "platform/text/encoding.h"
#include "tests/unit/memory_file_system.h"

namespace {

using core::OptionText;
using core::SettingsText;
using core::SettingsValues;
using core::TaggedText;
using platform::Text;

SettingsValues Defaults() {
  return {.aNumber = u"2",
          .bNumber = u"2",
          .cNumber = u"2",
          .pattern = u"1",
          .music = u"1",
          .print = u"0"};
}

TEST(Settings, TheDefaultsOfTheWindowYieldThisFile) {
  EXPECT_EQ(SettingsText(Defaults()),
            u"<strings>\r\n"
            u"\t<aNumber>2</aNumber>\r\n"
            u"\t<bNumber>2</bNumber>\r\n"
            u"\t<cNumber>2</cNumber>\r\n"
            u"\t<Olgoo>1</Olgoo>\r\n"
            u"\t<Music>1</Music>\r\n"
            u"\t<Print>0</Print>\r\n"
            u"</strings>");
}

TEST(Settings, TheFileBeginsWithItsMarkAndTheFirstTag) {
  testing_support::MemoryFileSystem files;
  platform::FileSystemObject fileSys(files);
  platform::TextStream file = fileSys.OpenTextFile(u"s", platform::IoMode::kForWriting, true,
                                                   platform::TextFormat::kUnicode);
  file.Write(SettingsText(Defaults()));
  file.Close();
  EXPECT_EQ(files.content[u"s"].substr(0, 6), std::string("\xFF\xFE<\0s\0", 6));
}

TEST(Settings, ACountThatIsNoNumberGoesIntoTheFileAsItStands) {
  SettingsValues values = Defaults();
  values.aNumber = u"abc";
  EXPECT_NE(SettingsText(values).find(u"<aNumber>abc</aNumber>"), Text::npos);
}

TEST(Settings, AValueIsNotEscaped) {
  SettingsValues values = Defaults();
  values.cNumber = u"<&\"";
  EXPECT_NE(SettingsText(values).find(u"<cNumber><&\"</cNumber>"), Text::npos);
}

TEST(OptionValue, MusicIsOneOrZero) {
  EXPECT_EQ(OptionText(0, {.music = true}), u"1");
  EXPECT_EQ(OptionText(0, {.firstPattern = true, .print = true}), u"0");
}

TEST(OptionValue, PatternIsOneOrTwo) {
  EXPECT_EQ(OptionText(1, {.firstPattern = true}), u"1");
  EXPECT_EQ(OptionText(1, {.music = true, .print = true}), u"2");
}

TEST(OptionValue, PrintingIsOneOrZero) {
  EXPECT_EQ(OptionText(2, {.print = true}), u"1");
  EXPECT_EQ(OptionText(2, {.music = true, .firstPattern = true}), u"0");
}

TEST(OptionValue, AnyOtherOptionIsZero) {
  const core::Switches allOn{.music = true, .firstPattern = true, .print = true};
  EXPECT_EQ(OptionText(3, allOn), u"0");
  EXPECT_EQ(OptionText(-1, allOn), u"0");
}

TEST(Wsre, TakesWhatStandsBetweenTheTags) {
  EXPECT_EQ(TaggedText(u"x<pgTitle>Title</pgTitle>y", u"pgTitle"), u"Title");
}

TEST(Wsre, ATagThatOccursTwiceEndsAtTheFirstCloseTag) {
  EXPECT_EQ(TaggedText(u"<t>1</t><t>2</t>", u"t"), u"1");
}

TEST(Wsre, AnEmptyElementIsEmptyAndNoFailure) { EXPECT_EQ(TaggedText(u"<t></t>", u"t"), u""); }

TEST(Wsre, WithoutAnOpenTagTheResultIsEmptyAndNoFailure) {
  EXPECT_EQ(TaggedText(u"1</t>", u"t"), u"");
  EXPECT_EQ(TaggedText(u"", u"t"), u"");
}

TEST(Wsre, LetterCaseCounts) { EXPECT_EQ(TaggedText(u"<T>1</T>", u"t"), u""); }

TEST(Wsre, AMissingCloseTagFails) { EXPECT_THROW(TaggedText(u"<t>1", u"t"), platform::Failure); }

TEST(Wsre, ACloseTagBeforeTheOpenTagFails) {
  EXPECT_THROW(TaggedText(u"</t><t>1</t>", u"t"), platform::Failure);
}

}  // namespace
