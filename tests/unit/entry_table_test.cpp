#include "filed/entry_table.h"

#include <gtest/gtest.h>

namespace filed {
namespace {

using platform::Failure;
using platform::Text;

TEST(EntryTable, ReadsEmptyPastItsEnd) {
  const EntryTable table;
  EXPECT_EQ(table.entryTitle(100), u"");
  EXPECT_FALSE(table.entryGallery(100));
  EXPECT_EQ(table.entryGalPath(7, 9), u"");
  EXPECT_EQ(table.galleryPic(300, 1), u"");
}

TEST(EntryTable, KeepsWhatIsWritten) {
  EntryTable table;
  table.entryGallery.Set(3, true);
  table.entryGalPath.Set(3, 2, u"C:\\p.jpg");
  table.entryGalTitle.Row(3).Set(2, u"title");
  table.galleryPic.Set(5, 0, u"C:\\q.jpg");
  table.galleryPic.Slots().titles.Set(5, u"q");
  EXPECT_TRUE(table.entryGallery(3));
  EXPECT_FALSE(table.entryGallery(2));
  EXPECT_EQ(table.entryGalPath(3, 2), u"C:\\p.jpg");
  EXPECT_EQ(table.entryGalPath(2, 2), u"");
  EXPECT_EQ(table.entryGalTitle(3, 2), u"title");
  EXPECT_EQ(table.galleryPic.Slots().paths(5), u"C:\\q.jpg");
  EXPECT_EQ(table.galleryPic(5, 1), u"q");
}

TEST(EntryTable, NegativeRowsAndUnknownColumnsFail) {
  EntryTable table;
  EXPECT_THROW(table.entryTitle(-1), Failure);
  EXPECT_THROW(table.entryGallery.Set(-1, true), Failure);
  EXPECT_THROW(table.entryGalPath(0, -1), Failure);
  EXPECT_THROW(table.galleryPic(0, 2), Failure);
  EXPECT_THROW(table.galleryPic.Set(0, 2, u""), Failure);
}

TEST(EntryTable, ClearEmptiesEveryColumn) {
  EntryTable table;
  for (auto* column : {&table.entryTitle, &table.entryText, &table.entryAttach, &table.entrySound,
                       &table.entryFilm, &table.entryBack, &table.inlineImage}) {
    column->Set(0, u"x");
  }
  table.entryGallery.Set(0, true);
  table.entryGalPath.Set(0, 0, u"x");
  table.entryGalTitle.Set(0, 0, u"x");
  table.galleryPic.Set(0, 0, u"x");
  table.galleryPic.Set(0, 1, u"x");
  table.Clear();
  for (auto* column : {&table.entryTitle, &table.entryText, &table.entryAttach, &table.entrySound,
                       &table.entryFilm, &table.entryBack, &table.inlineImage}) {
    EXPECT_EQ((*column)(0), u"");
  }
  EXPECT_FALSE(table.entryGallery(0));
  EXPECT_EQ(table.entryGalPath(0, 0), u"");
  EXPECT_EQ(table.entryGalTitle(0, 0), u"");
  EXPECT_EQ(table.galleryPic(0, 0), u"");
  EXPECT_EQ(table.galleryPic(0, 1), u"");
}

EntryTable ThreeRows() {
  EntryTable table;
  for (int row = 0; row < 3; ++row) {
    const Text number = platform::FromNumber(row);
    table.entryTitle.Set(row, u"title" + number);
    table.entryText.Set(row, u"text" + number);
    table.entryAttach.Set(row, u"attach" + number);
    table.entrySound.Set(row, u"sound" + number);
    table.entryFilm.Set(row, u"film" + number);
    table.entryBack.Set(row, u"back" + number);
    table.entryGallery.Set(row, row == 1);
  }
  table.entryGalPath.Set(1, 0, u"path1");
  return table;
}

TEST(CloseGap, FiveColumnsMoveUpAndTheOthersStay) {
  EntryTable table = ThreeRows();
  table.CloseGap(0);
  EXPECT_EQ(table.entryTitle(0), u"title1");
  EXPECT_EQ(table.entryText(0), u"text1");
  EXPECT_EQ(table.entryAttach(0), u"attach1");
  EXPECT_EQ(table.entrySound(0), u"sound1");
  EXPECT_EQ(table.entryFilm(0), u"film1");
  EXPECT_EQ(table.entryTitle(1), u"title2");
  EXPECT_EQ(table.entryTitle(2), u"");
  EXPECT_EQ(table.entryText(2), u"");
  EXPECT_EQ(table.entryBack(0), u"back0");
  EXPECT_FALSE(table.entryGallery(0));
  EXPECT_TRUE(table.entryGallery(1));
  EXPECT_EQ(table.entryGalPath(1, 0), u"path1");
}

TEST(CloseGap, LastRowIsLeftEmpty) {
  EntryTable table = ThreeRows();
  table.CloseGap(2);
  EXPECT_EQ(table.entryTitle(1), u"title1");
  EXPECT_EQ(table.entryTitle(2), u"");
}

TEST(CloseGap, RowWithoutATitleEndsItAndKeepsItsText) {
  EntryTable table = ThreeRows();
  table.entryTitle.Set(1, u"");
  table.CloseGap(0);
  EXPECT_EQ(table.entryTitle(0), u"");
  EXPECT_EQ(table.entryText(0), u"text1");
  EXPECT_EQ(table.entryText(1), u"text1");
  EXPECT_EQ(table.entryTitle(2), u"title2");
}

TEST(CloseGap, RowThatIsNotThereChangesNothing) {
  EntryTable table = ThreeRows();
  table.CloseGap(3);
  EXPECT_EQ(table.entryTitle(2), u"title2");
  EXPECT_EQ(table.entryText(2), u"text2");
}

}  // namespace
}  // namespace filed
