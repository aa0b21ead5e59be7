#include "platform/column.h"

#include <gtest/gtest.h>

#include "platform/text/text.h"

namespace {

using platform::Column;
using platform::Failure;
using platform::Text;

TEST(Column, ReadsAnEmptyValuePastItsEnd) {
  const Column<Text> column;
  EXPECT_EQ(column(0), u"");
  EXPECT_EQ(column(1000000), u"");
  EXPECT_EQ(column.Count(), 0);
}

TEST(Column, GrowsWhenWritten) {
  Column<Text> column;
  column.Set(3, u"three");
  EXPECT_EQ(column.Count(), 4);
  EXPECT_EQ(column(2), u"");
  EXPECT_EQ(column(3), u"three");
}

TEST(Column, NegativeRowIsAFailure) {
  Column<Text> column;
  EXPECT_THROW(column(-1), Failure);
  EXPECT_THROW(column.At(-1), Failure);
  EXPECT_THROW(column.Set(-1, u"x"), Failure);
  EXPECT_EQ(column.Count(), 0);
}

TEST(Column, HoldsSwitches) {
  Column<bool> column;
  EXPECT_FALSE(column(5));
  column.At(5) = true;
  EXPECT_TRUE(column(5));
  EXPECT_FALSE(column(4));
}

TEST(Column, ARowCanBeWrittenFromAnotherOneWhileTheTableGrows) {
  Column<Text> column;
  column.Set(0, u"a text that is too long for the small buffer of a string");
  column.At(100000) = column(0);
  EXPECT_EQ(column(100000), column(0));
  const Text& first = column(0);
  column.Set(300000, u"x");
  EXPECT_EQ(&first, &column(0));
}

TEST(Column, OfColumnsIsATable) {
  Column<Column<Text>> table;
  table.At(2).Set(1, u"cell");
  EXPECT_EQ(table(2)(1), u"cell");
  EXPECT_EQ(table(9)(9), u"");
}

TEST(Column, ClearForgetsAllRows) {
  Column<int> column;
  column.Set(7, 7);
  column.Clear();
  EXPECT_EQ(column.Count(), 0);
  EXPECT_EQ(column(7), 0);
}

}  // namespace
