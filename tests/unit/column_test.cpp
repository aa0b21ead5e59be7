#include "platform/column.h"

#include <gtest/gtest.h>

#include <utility>

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

Column<int> Counting(int rows) {
  Column<int> column;
  for (int row = 0; row < rows; ++row) column.Set(row, row);
  column.Settle();
  return column;
}

std::pair<int, int> Touched(const Column<int>& column) {
  return {static_cast<int>(column.Touched().first), static_cast<int>(column.Touched().end)};
}

TEST(Column, KnowsWhichRowsWereWritten) {
  Column<int> column = Counting(9);
  EXPECT_TRUE(column.Touched().IsEmpty());
  column.Set(6, 1);
  EXPECT_EQ(Touched(column), std::pair(6, 7));
  column.At(4) = 1;
  EXPECT_EQ(Touched(column), std::pair(4, 7));
  column.Settle();
  EXPECT_TRUE(column.Touched().IsEmpty());
  EXPECT_FALSE(column.WasCleared());
  column.Set(3, 1);
  column.Clear();
  EXPECT_TRUE(column.WasCleared());
  EXPECT_TRUE(column.Touched().IsEmpty());
}

TEST(Column, AnInsertedRowCountsAndThoseAfterItMove) {
  Column<int> column = Counting(4);
  column.Set(2, 20);
  column.Insert(1, 7);
  EXPECT_EQ(column(1), 7);
  EXPECT_EQ(column(3), 20);
  EXPECT_EQ(Touched(column), std::pair(1, 4));
  column.Settle();
  column.Insert(9, 9);
  EXPECT_EQ(column(9), 9);
  EXPECT_EQ(Touched(column), std::pair(5, 10)) << "rows that came because of it";
}

TEST(Column, ARemovedRowTakesItsMarkAlong) {
  Column<int> column = Counting(5);
  column.Set(2, 20);
  column.Remove(2);
  EXPECT_EQ(column(2), 3);
  EXPECT_TRUE(column.Touched().IsEmpty());
  column.Set(3, 40);
  column.Remove(0);
  EXPECT_EQ(column(2), 40);
  EXPECT_EQ(Touched(column), std::pair(2, 3));
}

TEST(Column, RowsMoveUpAndTheLastKeepsItsOwn) {
  Column<int> column = Counting(5);
  column.Set(3, 30);
  column.MoveUp(1, 4);
  EXPECT_EQ(column(1), 2);
  EXPECT_EQ(column(2), 30);
  EXPECT_EQ(column(3), 4);
  EXPECT_EQ(column(4), 4);
  EXPECT_LE(column.Touched().first, 2);
  EXPECT_GE(column.Touched().end, 3);
}

TEST(Column, RowsMoveUpFromPastTheEnd) {
  Column<int> column = Counting(2);
  column.MoveUp(0, 5);
  EXPECT_EQ(column(0), 1);
  EXPECT_EQ(column(1), 0);
}

}  // namespace
