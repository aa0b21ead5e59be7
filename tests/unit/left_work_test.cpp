#include "workbench/left_work.h"

#include <gtest/gtest.h>

#include <functional>

#include "gallery/slots.h"

namespace workbench {
namespace {

using platform::Text;
using platform::ToUtf8;

recovery::Work WorkOf(const std::function<void(recovery::Work&)>& fill) {
  recovery::Work work;
  work.collection = {u"C:\\book\\", u"b3"};
  fill(work);
  return work;
}

std::string CountOf(const std::function<void(recovery::Work&)>& fill) {
  recovery::Work work = WorkOf(fill);
  return ToUtf8(DescribeLeft(work).count);
}

// So many rows of which the last has no text where `pending` says so.
void FileRows(recovery::Work& work, std::ptrdiff_t rows, bool pending) {
  for (std::ptrdiff_t row = 0; row < rows; ++row) work.filed.table.entryTitle.Set(row, u"title");
  work.filed.entryCount = pending ? rows - 1 : rows;
}

void AddPictures(recovery::Work& work, int pictures) {
  for (int i = 0; i < pictures; ++i) {
    gallery::Add(work.filed.table.galleryPic.Slots(), platform::FromNumber(i), {});
  }
}

TEST(LeftWork, CountsTitlesAndPictures) {
  EXPECT_EQ(CountOf([](auto& work) { FileRows(work, 5, false); }), "5");
  EXPECT_EQ(CountOf([](auto& work) { FileRows(work, 5, true); }), "5 (آخري هنوز متن ندارد)");
  EXPECT_EQ(CountOf([](auto& work) { FileRows(work, 1, true); }), "1 (هنوز متن ندارد)");
  EXPECT_EQ(CountOf([](auto& work) { AddPictures(work, 12); }), "هيچ، و 12 تصوير گالري");
  EXPECT_EQ(CountOf([](auto& work) {
              FileRows(work, 2, false);
              AddPictures(work, 3);
              EXPECT_TRUE(gallery::Remove(work.filed.table.galleryPic.Slots(), u"1"));
            }),
            "2 و 2 تصوير گالري");
}

// What there is besides, as long as nothing is filed.
TEST(LeftWork, NamesWhatIsThereWithoutATitle) {
  EXPECT_EQ(CountOf([](auto&) {}), "هيچ");
  EXPECT_EQ(CountOf([](auto& work) { work.filed.entryCount = -1; }), "هيچ");
  EXPECT_EQ(CountOf([](auto& work) { work.rest = u"a text"; }), "هيچ، و متني كه ويرايش شده");
  EXPECT_EQ(CountOf([](auto& work) {
              work.rest = u"a text";
              work.fields.restIsUntouched = true;
            }),
            "هيچ");
}

TEST(LeftWork, SaysWhoseItIsWithoutALooseColon) {
  recovery::Work work = WorkOf([](auto&) {});
  EXPECT_EQ(ToUtf8(DescribeLeft(work).whose), "عنوان مجموعه سوم در رديف دوم");
  work.fields.title = u"a title that is too long to be shown";
  EXPECT_EQ(ToUtf8(DescribeLeft(work).whose),
            "عنوان مجموعه سوم در رديف دوم: a title that is too ...");
  work.collection.key = u"?";
  work.fields.title.clear();
  EXPECT_EQ(ToUtf8(DescribeLeft(work).whose), "?") << "no list gives such a key";
}

TEST(LeftWork, ShowsTheFirstAndTheLastTitle) {
  recovery::Work work = WorkOf([](auto&) {});
  EXPECT_EQ(DescribeLeft(work).first, u"ندارد");
  EXPECT_EQ(DescribeLeft(work).last, u"ندارد");
  work.filed.table.entryTitle.Set(0, u"first");
  work.filed.table.entryTitle.Set(2, u"pending");
  work.filed.entryCount = 2;
  EXPECT_EQ(DescribeLeft(work).first, u"first");
  EXPECT_EQ(DescribeLeft(work).last, u"pending");
  work.filed.table.entryTitle.Set(2, u"");
  EXPECT_EQ(DescribeLeft(work).last, u"(بي عنوان)") << "the second row has none";
}

}  // namespace
}  // namespace workbench
