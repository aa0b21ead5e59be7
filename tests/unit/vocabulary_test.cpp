#include "core/vocabulary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using platform::Text;

TEST(Vocabulary, TheRecordHasEightFields) {
  EXPECT_THAT(platform::Split(core::kVocabularyRecord, u"|"),
              testing::ElementsAre(
                  u"TXT", u"_xml", u"Index.xml", u"pgTitle", u"pgMain", u"pgMain",
                  u"<aTitle0>Designed by: Kelvar Media (www.kelvar.example)</aTitle0>", u"htm"));
}

TEST(Vocabulary, TheFoldersOfTheRecordAreThoseOfTheProjectWindow) {
  EXPECT_EQ(platform::Split(core::kVocabularyRecord, u"|")[0], core::kTxtFolder);
  EXPECT_EQ(platform::Split(core::kVocabularyRecord, u"|")[1], core::kXmlFolder);
}

TEST(Vocabulary, TheAdaptedCopyEqualsTheRecord) {
  EXPECT_EQ(core::WithTodaysWords(core::kVocabularyRecord), core::kVocabularyRecord);
}

TEST(Vocabulary, OlderWordsAreReplacedWhereverTheyStand) {
  EXPECT_EQ(core::WithTodaysWords(u"BookTXT|BookTitle.xml|aBook0 BookTXT"),
            u"TXT|Index.xml|aTitle0 TXT");
}

TEST(Vocabulary, LetterCaseCountsInOlderWords) {
  EXPECT_EQ(core::WithTodaysWords(u"booktxt|BOOKTITLE|Abook0"), u"booktxt|BOOKTITLE|Abook0");
}

}  // namespace
