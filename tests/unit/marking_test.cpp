#include "workbench/marking.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/text/text.h"
#include "tests/unit/only_media.h"

namespace {

using core::Medium;
using core::Only;
using workbench::CollectionLabel;
using workbench::KeyMeaning;
using workbench::LineWithMarks;
using workbench::LineWithText;
using workbench::MainTitleCaption;
using workbench::Mark;
using workbench::MarkingKey;
using workbench::TitleWith;
using workbench::Trimmed;
using workbench::WordCountFits;

void ExpectCommand(int keyCode, Mark command, bool needsSelection) {
  const auto key = KeyMeaning(keyCode);
  ASSERT_TRUE(key.has_value()) << keyCode;
  EXPECT_EQ(key->action, MarkingKey::Action::kCommand) << keyCode;
  EXPECT_EQ(key->command, command) << keyCode;
  EXPECT_EQ(key->needsSelection, needsSelection) << keyCode;
}

TEST(MarkingKeys, F1ToF6AndF11FileTheSelection) {
  ExpectCommand(112, Mark::kMainTitle, true);
  ExpectCommand(113, Mark::kHeading, true);
  ExpectCommand(114, Mark::kHeadingText, true);
  ExpectCommand(116, Mark::kTitle, true);
  ExpectCommand(117, Mark::kIdentity, true);
  ExpectCommand(122, Mark::kDelete, true);
}

TEST(MarkingKeys, F4AndF12NeedNoSelection) {
  ExpectCommand(115, Mark::kMainTitleEnd, false);
  ExpectCommand(123, Mark::kBuild, false);
}

TEST(MarkingKeys, F7TogglesTheRemovalAndNeedsNoSelection) {
  const auto key = KeyMeaning(118);
  ASSERT_TRUE(key.has_value());
  EXPECT_EQ(key->action, MarkingKey::Action::kToggleRemoval);
  EXPECT_FALSE(key->needsSelection);
}

TEST(MarkingKeys, F8ToF10AndOtherKeysMeanNothing) {
  for (const int code : {0, 1, 13, 65, 111, 119, 120, 121, 124, -112}) {
    EXPECT_FALSE(KeyMeaning(code).has_value()) << code;
  }
}

TEST(MarkingTitle, FirstPassageStandsAlone) {
  EXPECT_EQ(TitleWith(Mark::kTitle, u"", u"كتاب"), u"كتاب");
}

TEST(MarkingTitle, NextPassageFollowsABlank) {
  EXPECT_EQ(TitleWith(Mark::kTitle, u"كتاب", u"اول "), u"كتاب اول ");
}

TEST(MarkingTitle, EmptySelectionOnATitleStillAddsTheBlank) {
  EXPECT_EQ(TitleWith(Mark::kTitle, u"كتاب", u""), u"كتاب ");
}

TEST(MarkingTitle, SeparatorsStandBeforeTheSelection) {
  EXPECT_EQ(TitleWith(Mark::kTitleInBrackets, u"A", u"B"), u"A (B)");
  EXPECT_EQ(TitleWith(Mark::kTitleAfterDash, u"A", u"B"), u"A - B");
  EXPECT_EQ(TitleWith(Mark::kTitleAfterColon, u"A", u"B"), u"A: B");
  EXPECT_EQ(TitleWith(Mark::kTitleAfterSemicolon, u"A", u"B"), u"A؛ B");
}

TEST(MarkingTitle, SeparatorStandsFirstOnAnEmptyTitle) {
  EXPECT_EQ(TitleWith(Mark::kTitleInBrackets, u"", u"B"), u" (B)");
  EXPECT_EQ(TitleWith(Mark::kTitleAfterDash, u"", u"B"), u" - B");
  EXPECT_EQ(TitleWith(Mark::kTitleAfterColon, u"", u"B"), u": B");
  EXPECT_EQ(TitleWith(Mark::kTitleAfterSemicolon, u"", u"B"), u"؛ B");
}

TEST(MarkingTitle, LineBreaksOfTheSelectionStay) {
  EXPECT_EQ(TitleWith(Mark::kTitle, u"A", u"B\r\nC"), u"A B\r\nC");
}

TEST(MarkingTitle, OtherCommandsLeaveIt) {
  for (const Mark other :
       {Mark::kIdentity, Mark::kHeading, Mark::kHeadingText, Mark::kDelete, Mark::kMainTitle,
        Mark::kMainTitleEnd, Mark::kBuild, Mark::kGalleryMode, Mark::kBuildGallery}) {
    EXPECT_EQ(TitleWith(other, u"A", u"B"), u"A");
  }
}

TEST(MarkingLine, TitleArrowText) {
  EXPECT_EQ(LineWithText(u"شناسنامه", u"متن"), u"شناسنامه   =>   متن");
  EXPECT_EQ(LineWithText(u"", u""), u"   =>   ");
}

TEST(MarkingLine, SecondTextGoesAfterTheFirst) {
  EXPECT_EQ(LineWithText(u"A   =>   B", u"C"), u"A   =>   B   =>   C");
}

TEST(MarkingLine, MarksStandInFrontTheLastOneFirst) {
  EXPECT_EQ(LineWithMarks(u"A", {}), u"A");
  EXPECT_EQ(LineWithMarks(u"A", Only({Medium::kAttachment})), u"§ A");
  EXPECT_EQ(LineWithMarks(u"A", Only({Medium::kSound, Medium::kFilm})), u"# ~ A");
  EXPECT_EQ(LineWithMarks(u"A   =>   B", Only({Medium::kAttachment, Medium::kSound, Medium::kFilm,
                                               Medium::kBackground})),
            u"^ # ~ § A   =>   B");
}

TEST(MarkingCaption, ShowsTheOpenTitlesAndEndsWithTheMark) {
  EXPECT_EQ(MainTitleCaption(0), u"تيتر اصلي (0)\u200F");
  EXPECT_EQ(MainTitleCaption(12), u"تيتر اصلي (12)\u200F");
}

TEST(MarkingLabel, NamesTheCollectionByItsOrdinals) {
  EXPECT_EQ(CollectionLabel(u"a", u"1"), u"عنوان مجموعه اول در رديف اول:");
  EXPECT_EQ(CollectionLabel(u"b", u"4"), u"عنوان مجموعه چهارم در رديف دوم:");
  EXPECT_EQ(CollectionLabel(u"c", u"10"), u"عنوان مجموعه دهم در رديف سوم:");
}

TEST(MarkingLabel, NumberAboveTheOrdinalsIsAFailure) {
  EXPECT_THROW(CollectionLabel(u"a", u"11"), platform::Failure);
  EXPECT_THROW(CollectionLabel(u"a", u"0"), platform::Failure);
}

TEST(MarkingLabel, EmptyKeyIsAFailure) {
  EXPECT_THROW(CollectionLabel(u"", u""), platform::Failure);
}

TEST(MarkingTrim, BlanksAtBothEndsAndNothingElse) {
  EXPECT_EQ(Trimmed(u"  a b  "), u"a b");
  EXPECT_EQ(Trimmed(u"\r\n a \r\n"), u"\r\n a \r\n");
  EXPECT_EQ(Trimmed(u" \u00A0 "), u"\u00A0");
  EXPECT_EQ(Trimmed(u"   "), u"");
  EXPECT_EQ(Trimmed(u""), u"");
}

TEST(MarkingWordCount, BoundsThemselvesAreAllowed) {
  EXPECT_TRUE(WordCountFits(u"10"));
  EXPECT_TRUE(WordCountFits(u"22"));
  EXPECT_TRUE(WordCountFits(u"30"));
  EXPECT_FALSE(WordCountFits(u"9"));
  EXPECT_FALSE(WordCountFits(u"31"));
  EXPECT_FALSE(WordCountFits(u"-22"));
}

TEST(MarkingWordCount, OnlyTheWholeNumberPartCounts) {
  EXPECT_TRUE(WordCountFits(u"30.9"));
  EXPECT_FALSE(WordCountFits(u"9.99"));
  EXPECT_FALSE(WordCountFits(u"31.0"));
}

TEST(MarkingWordCount, WhatIsNoNumberIsAFailure) {
  EXPECT_THROW(static_cast<void>(WordCountFits(u"abc")), platform::Failure);
  EXPECT_THROW(static_cast<void>(WordCountFits(u"")), platform::Failure);
}

}  // namespace
