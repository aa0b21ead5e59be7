// An index that ends at any byte, or has NULs anywhere.
#include "workbench/torn_index.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/text/encoding.h"
#include "workbench/book_formats.h"

namespace workbench {
namespace {

using platform::Text;
using platform::TextView;

constexpr TextView kName = u"aTitle1";
const Text kHead = IndexHead(u"<aTitle0>Designed by: Somebody</aTitle0>");
const Text kNinth = u"\t<cTitle9 vol=\"pic1\">Ninth</cTitle9>\r\n";
const Text kByHand = u"\tby hand <note>\r\n";
const Text kOwn = IndexLine(OpenTag(kName, false), u"Title", CloseTag(kName));

std::string Bytes(const Text& text) {
  return std::string(platform::kUtf16Mark) + platform::EncodeUtf16(text);
}

// What stands in the file when the next line is added.
Text Left(const std::string& bytes) {
  return MendedIndex(bytes, kHead, kName).value_or(platform::DecodeUnicode(bytes));
}

bool Has(const Text& index, const Text& line) { return index.find(line) != Text::npos; }

// Each collection's open tag stands at a line's beginning, and its line is closed.
void ExpectLines(TextView index) {
  for (const TextView row : {u"<aTitle", u"<cTitle"}) {
    for (std::size_t at = index.find(row); at != TextView::npos; at = index.find(row, at + 1)) {
      ASSERT_GT(at, 1U);
      EXPECT_EQ(index.substr(at - 2, 2), u"\n\t");
      const TextView line = index.substr(at, index.find(platform::kCrLf, at) - at);
      const TextView name = line.substr(1, line.find_first_of(u" >") - 1);
      EXPECT_TRUE(line.ends_with(CloseTag(name))) << platform::ToUtf8(line);
    }
  }
}

TEST(TornIndex, OneThatIsWholeIsLetBe) {
  for (const Text& lines : {Text(), kNinth, kNinth + kByHand, kByHand + kOwn}) {
    EXPECT_EQ(MendedIndex(Bytes(kHead + lines), kHead, kName), std::nullopt);
  }
  EXPECT_EQ(MendedIndex(Bytes(u"<strings>\r\n"), kHead, kName), std::nullopt) << "without credit";
  EXPECT_EQ(MendedIndex("<strings>", kHead, kName), std::nullopt) << "in another encoding";
}

// But for a line that has lost its line end alone: it could have been written so by hand.
TEST(TornIndex, ThatEndsAtAnyByteTakesTheNextLineAndKeepsThoseBefore) {
  const Text kLines = kNinth + kOwn;
  const std::string whole = Bytes(kHead + kLines);
  const std::size_t title = Bytes(kHead + kNinth.substr(0, kNinth.find(u"</"))).size();
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    SCOPED_TRACE(length);
    const Text left = Left(whole.substr(0, length));
    const bool isClosed = left.ends_with(u'>');
    if (length == Bytes(u"<strings>\r\n").size() || isClosed) continue;
    EXPECT_TRUE(left.starts_with(kHead));
    EXPECT_EQ(Has(left, kNinth), length >= title);
    ExpectLines(left + kOwn);
    EXPECT_TRUE(left.ends_with(platform::kCrLf));
  }
}

TEST(TornIndex, WithNulsAnywhereTakesTheNextLineAndKeepsAllOthers) {
  const Text whole = kHead + kNinth + kByHand + kOwn;
  for (std::size_t begin = 0; begin < whole.size(); ++begin) {
    for (std::size_t end = begin + 1; end <= whole.size(); ++end) {
      SCOPED_TRACE(std::to_string(begin) + " to " + std::to_string(end));
      Text torn = whole;
      std::fill_n(torn.begin() + static_cast<std::ptrdiff_t>(begin), end - begin, u'\0');
      const Text left = Left(Bytes(torn));
      EXPECT_EQ(left.find(u'\0'), Text::npos);
      EXPECT_TRUE(left.starts_with(kHead)) << platform::ToUtf8(left);
      for (const Text& line : {kNinth, kByHand, kOwn}) {
        const std::size_t at = whole.find(line);
        // Where the line end before it is gone, too, it can't be seen where it begins.
        const bool isWhole = end + 1 < at || begin >= at + line.size();
        EXPECT_TRUE(!isWhole || Has(left, line)) << platform::ToUtf8(line);
      }
    }
  }
}

TEST(TornIndex, KeepsATitleOfAnotherCollectionAndNoneOfItsOwn) {
  EXPECT_EQ(Left(Bytes(kHead + u"\t<cTitle9 vol=\"pic1\">Nin")),
            kHead + u"\t<cTitle9 vol=\"pic1\">Nin</cTitle9>\r\n");
  EXPECT_EQ(Left(Bytes(kHead + u"\t<cTitle9 vol=\"pic1\">Ninth</cTitle")), kHead + kNinth);
  EXPECT_EQ(Left(Bytes(kHead + u"\t<aTitle1 vol=\"pic1\">Ti")), kHead);
  EXPECT_EQ(Left(Bytes(kHead + u"\t<aTitle10 vol=\"pic1\">Ti")),
            kHead + u"\t<aTitle10 vol=\"pic1\">Ti</aTitle10>\r\n");
}

}  // namespace
}  // namespace workbench
