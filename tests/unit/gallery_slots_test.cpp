#include "gallery/slots.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using gallery::kNoSlot;
using gallery::kRemoved;
using gallery::Slots;
using platform::Column;
using platform::Text;

class GallerySlots : public testing::Test {
 protected:
  GallerySlots() {
    for (const char16_t* name : {u"a", u"b", u"c"}) Add(slots, name, Text(u"title ") + name);
  }
  std::vector<Text> Paths() const {
    std::vector<Text> all;
    for (std::ptrdiff_t slot = 0; slot < paths.Count(); ++slot) all.push_back(paths(slot));
    return all;
  }

  Column<Text> paths;
  Column<Text> titles;
  Slots slots{paths, titles};
};

using Texts = std::vector<Text>;

TEST_F(GallerySlots, ArePackedFromTheFirstOn) {
  EXPECT_EQ(Paths(), (Texts{u"a", u"b", u"c"}));
  EXPECT_EQ(titles(1), u"title b");
}

TEST_F(GallerySlots, APictureTakenOutLeavesATombstoneWithoutATitle) {
  EXPECT_TRUE(Remove(slots, u"b"));
  EXPECT_EQ(Paths(), (Texts{u"a", u"Removed", u"c"}));
  EXPECT_EQ(titles(1), u"");
}

TEST_F(GallerySlots, TheNextPictureTakesTheTombstonesPlace) {
  EXPECT_TRUE(Remove(slots, u"a"));
  EXPECT_TRUE(Remove(slots, u"b"));
  Add(slots, u"d", u"title d");
  EXPECT_EQ(Paths(), (Texts{u"d", u"Removed", u"c"}));
  EXPECT_EQ(titles(0), u"title d");
}

TEST_F(GallerySlots, AreNeverFull) {
  for (int i = 0; i < 10'000; ++i) paths.Set(3 + i, u"x");
  Add(slots, u"last", u"");
  EXPECT_EQ(Find(slots, u"last"), 10'003);
}

TEST_F(GallerySlots, FindingPassesOverTombstonesAndEndsAtAFreeSlot) {
  EXPECT_TRUE(Remove(slots, u"a"));
  EXPECT_EQ(Find(slots, u"c"), 2);
  paths.Set(1, u"");
  EXPECT_EQ(Find(slots, u"c"), kNoSlot);
  EXPECT_EQ(Find(slots, u""), kNoSlot);
}

TEST_F(GallerySlots, RemovingPassesOverFreeSlots) {
  paths.Set(1, u"");
  EXPECT_TRUE(Remove(slots, u"c"));
  EXPECT_EQ(paths(2), kRemoved);
}

TEST_F(GallerySlots, RemovingWhatIsNotThereChangesNothing) {
  EXPECT_FALSE(Remove(slots, u"d"));
  EXPECT_FALSE(Remove(slots, u""));
  EXPECT_EQ(Paths(), (Texts{u"a", u"b", u"c"}));
}

TEST_F(GallerySlots, RemovingTakesOneOfTwoAlike) {
  Add(slots, u"a", u"again");
  EXPECT_TRUE(Remove(slots, u"a"));
  EXPECT_EQ(Paths(), (Texts{u"Removed", u"b", u"c", u"a"}));
}

TEST_F(GallerySlots, TheWordOfATombstoneIsComparedLetterByLetter) {
  paths.Set(1, u"removed");
  Add(slots, u"d", u"");
  EXPECT_EQ(Paths(), (Texts{u"a", u"removed", u"c", u"d"}));
}

TEST_F(GallerySlots, ManyAtOnceFillTombstonesFirstAndMayStandTwice) {
  EXPECT_TRUE(Remove(slots, u"b"));
  AddAll(slots, {u"a", u"d", u"e"});
  EXPECT_EQ(Paths(), (Texts{u"a", u"a", u"c", u"d", u"e"}));
  EXPECT_EQ(titles(1), u"");
}

// An empty path leaves its slot free, so the next picture takes it.
TEST_F(GallerySlots, AnEmptyPathAmongManyTakesNoSlot) {
  AddAll(slots, {u"", u"d"});
  EXPECT_EQ(Paths(), (Texts{u"a", u"b", u"c", u"d"}));
}

TEST_F(GallerySlots, ClearingForgetsTombstonesToo) {
  EXPECT_TRUE(Remove(slots, u"a"));
  Clear(slots);
  EXPECT_EQ(paths(0), u"");
  EXPECT_EQ(titles(1), u"");
  Add(slots, u"z", u"");
  EXPECT_EQ(Paths(), (Texts{u"z"}));
}

}  // namespace
