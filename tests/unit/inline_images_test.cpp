#include "workbench/inline_images.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <vector>

#include "platform/failure.h"
#include "tests/support/temporary_folder.h"

namespace workbench {
namespace {

using platform::Column;
using platform::Failure;
using platform::Text;
using platform::TextView;
using testing_support::TemporaryFolder;

// The steps one after the other: the whole text is searched and rewritten anew for each mark.
bool StepByStep(Text& text, const Column<Text>& inlineImage, const BringImage& bring) {
  const TextView opens = u"<pgMain> {";
  const TextView closes = u"}</pgMain>";
  bool replaced = false;
  while (platform::InStr(text, opens) != 0) {
    const auto a = platform::InStr(text, opens);
    const auto b = platform::InStr(text, closes, a);
    const Text mark(platform::Mid(text, a, b - a + 10));
    const auto k = platform::ToInt16(
        platform::Mid(mark, 11, static_cast<platform::Position>(mark.size()) - 20));
    const Text source = inlineImage(k);
    const Text name(platform::After(source, u"\\"));
    bring(source, name);
    text = platform::Replace(text, mark, u"<IMG src=\"Data/IMG/" + name + u"\">");
    replaced = true;
  }
  return replaced;
}

Column<Text> Pictures() {
  Column<Text> pictures;
  pictures.Set(0, u"C:\\p\\zero.jpg");
  pictures.Set(1, u"C:\\p\\one.gif");
  pictures.Set(2, u"C:\\p\\fails.bmp");
  pictures.Set(3, u"C:\\p\\<pgMain> {.jpg");
  return pictures;
}

// What one run came to, the pictures that were asked for included.
struct Outcome {
  Text text;
  std::vector<Text> brought;
  bool replaced = false;
  bool failed = false;
  bool operator==(const Outcome&) const = default;
};

template <typename Rule>
Outcome After(Rule rule, Text text) {
  Outcome outcome;
  const BringImage bring = [&](const Text& source, TextView name) {
    outcome.brought.push_back(source + u"|" + Text(name));
    if (name == u"fails.bmp") throw Failure(u"no such picture");
  };
  const Column<Text> pictures = Pictures();
  platform::CatchingFailure([&] { outcome.replaced = rule(text, pictures, bring); },
                            [&](const Text&) { outcome.failed = true; });
  outcome.text = text;
  return outcome;
}

TEST(PutImageTags, IsTheStepsOneAfterTheOther) {
  constexpr std::array<TextView, 24> kPieces = {u"<pgMain> {0}</pgMain>",
                                                u"<pgMain> {1}</pgMain>",
                                                u"<pgMain> {01}</pgMain>",
                                                u"<pgMain> {0}</pgMain>",
                                                u"<pgMain> { 1 }</pgMain>",
                                                u"<pgMain> {1.5}</pgMain>",
                                                u"<pgMain> {77}</pgMain>",
                                                u"<pgMain> {2}</pgMain>",
                                                u"<pgMain> {3}</pgMain>",
                                                u"<pgMain> {-1}</pgMain>",
                                                u"<pgMain> {x}</pgMain>",
                                                u"<pgMain> {0}x</pgMain>",
                                                u"<pgMain> {",
                                                u"}</pgMain>",
                                                u"<pgMain> {0",
                                                u"0}</pgMain>",
                                                u"<pgMain>text</pgMain>",
                                                u"\r\n",
                                                u"<",
                                                u"}",
                                                u" {0}",
                                                u"x",
                                                u"<pgMain> {40000}</pgMain>",
                                                u"0"};
  std::mt19937 random(1);
  // The pieces that fail stand after those that don't, so that many texts get far.
  for (int round = 0; round < 60000; ++round) {
    std::uniform_int_distribution<std::size_t> which(0, round % 3 == 0 ? 6 : kPieces.size() - 1);
    Text text;
    for (int i = 0; i < round % 12; ++i) text += kPieces[which(random)];
    ASSERT_EQ(After(PutImageTags, text), After(StepByStep, text)) << platform::ToUtf8(text);
  }
}

TEST(PutImageTags, TextWithoutAMarkStays) {
  const Outcome outcome = After(PutImageTags, u"<pgMain>text</pgMain>");
  EXPECT_EQ(outcome.text, u"<pgMain>text</pgMain>");
  EXPECT_FALSE(outcome.replaced);
  EXPECT_FALSE(outcome.failed);
}

TEST(PutImageTags, TagTakesThePlaceOfTheWholeParagraph) {
  const Outcome outcome = After(PutImageTags, u"<pgMain>a</pgMain>\r\n<pgMain> {0}</pgMain>\r\nb");
  EXPECT_EQ(outcome.text, u"<pgMain>a</pgMain>\r\n<IMG src=\"Data/IMG/zero.jpg\">\r\nb");
  EXPECT_TRUE(outcome.replaced);
}

TEST(PutImageTags, OneMarkTwiceBecomesTwoTagsInOneReplacement) {
  const Outcome outcome = After(PutImageTags, u"<pgMain> {1}</pgMain>-<pgMain> {1}</pgMain>");
  EXPECT_EQ(outcome.text, u"<IMG src=\"Data/IMG/one.gif\">-<IMG src=\"Data/IMG/one.gif\">");
  EXPECT_EQ(outcome.brought.size(), 1U);
}

TEST(PutImageTags, MarkTypedByHandIsTreatedAsAMark) {
  EXPECT_EQ(After(PutImageTags, u"<pgMain> {12}</pgMain>").text, u"<IMG src=\"Data/IMG/\">");
}

TEST(PutImageTags, MarkWithoutANumberFailsAndWhatWasRewrittenStays) {
  const Outcome outcome =
      After(PutImageTags, u"<pgMain> {0}</pgMain><pgMain> {abc}</pgMain><pgMain> {1}</pgMain>");
  EXPECT_TRUE(outcome.failed);
  EXPECT_EQ(outcome.text,
            u"<IMG src=\"Data/IMG/zero.jpg\"><pgMain> {abc}</pgMain><pgMain> {1}</pgMain>");
}

TEST(PutImageTags, KnownMarkAfterOneThatFailsIsReplacedToo) {
  const Outcome outcome =
      After(PutImageTags, u"<pgMain> {0}</pgMain><pgMain> {}</pgMain><pgMain> {0}</pgMain>");
  EXPECT_TRUE(outcome.failed);
  EXPECT_EQ(outcome.text,
            u"<IMG src=\"Data/IMG/zero.jpg\"><pgMain> {}</pgMain><IMG src=\"Data/IMG/zero.jpg\">");
}

TEST(PutImageTags, TextAfterTheBraceRunsOnToALaterMarkAndFails) {
  const Text text = u"<pgMain> {0} more</pgMain>\r\n<pgMain> {1}</pgMain>";
  const Outcome outcome = After(PutImageTags, text);
  EXPECT_TRUE(outcome.failed);
  EXPECT_EQ(outcome.text, text);
  EXPECT_TRUE(outcome.brought.empty());
}

TEST(PutImageTags, MarkThatIsNeverClosedFails) {
  EXPECT_TRUE(After(PutImageTags, u"<pgMain> {0").failed);
  EXPECT_TRUE(After(PutImageTags, u"}</pgMain><pgMain> {0").failed);
}

TEST(PutImageTags, PictureThatCantBeBroughtEndsIt) {
  const Outcome outcome =
      After(PutImageTags, u"<pgMain> {1}</pgMain><pgMain> {2}</pgMain><pgMain> {0}</pgMain>");
  EXPECT_TRUE(outcome.failed);
  EXPECT_EQ(outcome.text,
            u"<IMG src=\"Data/IMG/one.gif\"><pgMain> {2}</pgMain><pgMain> {0}</pgMain>");
}

// Each would take minutes if the text were searched anew for every mark.
TEST(PutImageTags, ManyMarksAreOnePass) {
  Text distinct;
  Text openOnly = u"<pgMain> {0}</pgMain>";
  for (int i = 0; i < 30000; ++i) {
    distinct += u"<pgMain> {" + platform::FromNumber(i) + u"}</pgMain>\r\n" + Text(100, u'x');
    openOnly += u"<pgMain> {" + Text(100, u'x');
  }
  const Column<Text> none;
  int brought = 0;
  EXPECT_TRUE(PutImageTags(distinct, none, [&](const Text&, TextView) { ++brought; }));
  EXPECT_EQ(brought, 30000);
  EXPECT_EQ(distinct.find(u"<pgMain> {"), Text::npos);
  EXPECT_THROW(static_cast<void>(PutImageTags(openOnly, none, [](const Text&, TextView) {})),
               Failure);
  EXPECT_TRUE(openOnly.starts_with(u"<IMG src=\"Data/IMG/\"><pgMain> {xx"));
  openOnly += u"}</pgMain>";
  EXPECT_THROW(static_cast<void>(PutImageTags(openOnly, none, [](const Text&, TextView) {})),
               Failure);
}

TEST(EndOfParagraphBefore, ACaretInTheFirstParagraphHasNone) {
  for (const platform::Position caret : {0, 1, 5}) {
    EXPECT_EQ(EndOfParagraphBefore(u"alpha\r\nbeta", caret), std::nullopt) << caret;
  }
  EXPECT_EQ(EndOfParagraphBefore(u"", 0), std::nullopt);
  EXPECT_EQ(EndOfParagraphBefore(u"one line", 8), std::nullopt);
}

TEST(EndOfParagraphBefore, CountsAParagraphsEndAsOne) {
  const Text text = u"alpha\r\nbeta\r\n\r\ngamma";
  for (const platform::Position caret : {6, 8, 10}) EXPECT_EQ(EndOfParagraphBefore(text, caret), 5);
  EXPECT_EQ(EndOfParagraphBefore(text, 11), 10);
  for (const platform::Position caret : {12, 14, 17}) {
    EXPECT_EQ(EndOfParagraphBefore(text, caret), 11);
  }
}

TEST(EndOfParagraphBefore, AFirstParagraphMayBeEmpty) {
  EXPECT_EQ(EndOfParagraphBefore(u"\r\nx", 0), std::nullopt);
  EXPECT_EQ(EndOfParagraphBefore(u"\r\nx", 1), 0);
}

TEST(EndOfParagraphBefore, ALoneReturnOrLineFeedEndsNoParagraph) {
  EXPECT_EQ(EndOfParagraphBefore(u"a\rb\nc", 5), std::nullopt);
}

class CopyIfMissingTest : public testing::Test {
 protected:
  void Copy(TextView source, TextView target) {
    CopyIfMissing(platform::HostFileSystem(), folder_.Path(source), folder_.Path(target));
  }
  TemporaryFolder folder_;
};

TEST_F(CopyIfMissingTest, CopiesOnce) {
  folder_.Write(u"a.jpg", "first");
  Copy(u"a.jpg", u"copy.jpg");
  EXPECT_EQ(folder_.Read(u"copy.jpg"), "first");
}

TEST_F(CopyIfMissingTest, TargetLeftByAnEarlierBuildStays) {
  folder_.Write(u"a.jpg", "new");
  folder_.Write(u"copy.jpg", "old");
  Copy(u"a.jpg", u"copy.jpg");
  EXPECT_EQ(folder_.Read(u"copy.jpg"), "old");
}

TEST_F(CopyIfMissingTest, TwoPicturesOfOneNameFromDifferentFoldersOnlyTheFirstIsCopied) {
  folder_.MakeFolder(u"x");
  folder_.MakeFolder(u"y");
  folder_.Write(u"x\\a.jpg", "of x");
  folder_.Write(u"y\\a.jpg", "of y");
  Copy(u"x\\a.jpg", u"a.jpg");
  Copy(u"y\\a.jpg", u"a.jpg");
  EXPECT_EQ(folder_.Read(u"a.jpg"), "of x");
}

TEST_F(CopyIfMissingTest, PictureThatHasGoneIsNoFailure) {
  Copy(u"gone.jpg", u"copy.jpg");
  EXPECT_FALSE(folder_.Has(u"copy.jpg"));
}

}  // namespace
}  // namespace workbench
