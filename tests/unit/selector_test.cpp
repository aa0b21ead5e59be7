#include "core/selector.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "platform/failure.h"

namespace {

using core::CollectionCount;
using core::kCollectionRows;
using core::ReadKey;
using core::SelectorEntry;
using platform::Text;
using platform::TextView;
using testing::ElementsAre;
using testing::IsEmpty;

struct Listing {
  std::vector<Text> entries;
  bool failed = false;
};

// What the list gets for row b with the given collections built.
Listing List(TextView count, const std::set<Text>& built = {}) {
  Listing listing;
  platform::CatchingFailure(
      [&] {
        core::ListWaiting(
            kCollectionRows[1], count, [&](TextView digit) { return built.contains(Text(digit)); },
            [&](TextView entry) { listing.entries.emplace_back(entry); });
      },
      [&](const Text&) { listing.failed = true; });
  return listing;
}

TEST(Selector, TheFirstEntryOfANewProject) {
  EXPECT_EQ(SelectorEntry(kCollectionRows[0], 0), u"رديف اول -> مجموعه اول  (a1)");
}

TEST(Selector, TheFourthEntryOfTheSecondRow) {
  EXPECT_EQ(SelectorEntry(kCollectionRows[1], 3), u"رديف دوم -> مجموعه چهارم  (b4)");
}

TEST(Selector, TheTenthEntryOfTheThirdRow) {
  EXPECT_EQ(SelectorEntry(kCollectionRows[2], 9), u"رديف سوم -> مجموعه دهم  (c10)");
}

TEST(Selector, ARowListsItsCollectionsInOrder) {
  EXPECT_THAT(List(u"2").entries,
              ElementsAre(u"رديف دوم -> مجموعه اول  (b1)", u"رديف دوم -> مجموعه دوم  (b2)"));
}

TEST(Selector, ABuiltCollectionDropsOutAndTheNextKeepsItsOrdinal) {
  EXPECT_THAT(List(u"2", {u"1"}).entries, ElementsAre(u"رديف دوم -> مجموعه دوم  (b2)"));
}

TEST(Selector, WithAllCollectionsBuiltTheRowIsEmpty) {
  EXPECT_THAT(List(u"2", {u"1", u"2"}).entries, IsEmpty());
}

TEST(Selector, ZeroAndNegativeCountsAddNothingAndDoNotFail) {
  for (const TextView count : {u"0", u"-1", u"-0.5", u"-1e300"}) {
    const Listing listing = List(count);
    EXPECT_THAT(listing.entries, IsEmpty()) << platform::ToUtf8(count);
    EXPECT_FALSE(listing.failed) << platform::ToUtf8(count);
  }
}

TEST(Selector, ACountIsCutDownToTheWholeNumberNotAboveIt) {
  EXPECT_EQ(CollectionCount(u"2.9"), 2);
  EXPECT_EQ(CollectionCount(u"-0.5"), 0);
  EXPECT_EQ(CollectionCount(u" 3 "), 3);
}

TEST(Selector, ACountThatIsNoNumberFailsAndAddsNothing) {
  for (const TextView count : {u"", u"abc", u"2x"}) {
    const Listing listing = List(count);
    EXPECT_TRUE(listing.failed) << platform::ToUtf8(count);
    EXPECT_THAT(listing.entries, IsEmpty()) << platform::ToUtf8(count);
  }
}

TEST(Selector, ACountOf10ListsTheTenth) {
  const Listing listing = List(u"10");
  EXPECT_FALSE(listing.failed);
  ASSERT_EQ(listing.entries.size(), 10U);
  EXPECT_EQ(listing.entries.back(), u"رديف دوم -> مجموعه دهم  (b10)");
}

TEST(Selector, ACountOf11KeepsTheFirstTenAndFails) {
  const Listing listing = List(u"11");
  EXPECT_TRUE(listing.failed);
  EXPECT_EQ(listing.entries.size(), 10U);
}

TEST(Selector, ACountAbove10DoesNoHarmWhereTheCollectionsFrom11OnAreBuilt) {
  const Listing listing = List(u"12", {u"11", u"12"});
  EXPECT_FALSE(listing.failed);
  EXPECT_EQ(listing.entries.size(), 10U);
}

TEST(Selector, AHugeCountFailsAtTheEleventhLikeAnyOther) {
  const Listing listing = List(u"1e300");
  EXPECT_TRUE(listing.failed);
  EXPECT_EQ(listing.entries.size(), 10U);
}

TEST(Selector, TheKeyOfEveryEntryCanBeReadBack) {
  for (const core::CollectionRow& row : kCollectionRows) {
    for (platform::Position i = 0; i < 10; ++i) {
      const core::CollectionKey key = ReadKey(SelectorEntry(row, i));
      EXPECT_EQ(key.letter, row.letter);
      EXPECT_EQ(key.digit, platform::FromNumber(i + 1));
    }
  }
}

TEST(Selector, TheKeyStandsBetweenTheFirstBrackets) {
  EXPECT_EQ(ReadKey(u"x (a12) (b3)").letter, u"a");
  EXPECT_EQ(ReadKey(u"x (a12) (b3)").digit, u"12");
}

TEST(Selector, WithNoEntrySelectedTheKeyIsEmpty) {
  for (const TextView entry : {u"", u"a1", u"(a1", u"a1)", u")a1(", u"()"}) {
    EXPECT_EQ(ReadKey(entry).letter, u"") << platform::ToUtf8(entry);
    EXPECT_EQ(ReadKey(entry).digit, u"") << platform::ToUtf8(entry);
  }
}

TEST(Selector, AnOrdinalOutsideTheTenFails) {
  EXPECT_EQ(core::Ordinal(0), u"اول");
  EXPECT_EQ(core::Ordinal(9), u"دهم");
  EXPECT_THROW(core::Ordinal(10), platform::Failure);
  EXPECT_THROW(core::Ordinal(-1), platform::Failure);
}

}  // namespace
