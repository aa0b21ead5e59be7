#include "platform/text/caption.h"

#include <gtest/gtest.h>

namespace {

using platform::ShownCaption;
using platform::Text;
using platform::ToUtf8;

std::string Shown(platform::TextView caption) { return ToUtf8(ShownCaption(caption)); }

TEST(Caption, MarkBetweenLettersIsAHalfSpace) {
  EXPECT_EQ(Shown(u"رديف\u200Fها"), "رديف\u200Cها");
  EXPECT_EQ(Shown(u"مي\u200Fشود و نمي\u200Fشود"), "مي\u200Cشود و نمي\u200Cشود");
}

TEST(Caption, MarkAfterPunctuationStays) {
  EXPECT_EQ(Shown(u"رديف اول:\u200F"), "رديف اول:\u200F");
  EXPECT_EQ(Shown(u"(يك)\u200F دو"), "(يك)\u200F دو");
  EXPECT_EQ(Shown(u"شد!\u200Fو"), "شد!\u200Fو");
}

TEST(Caption, MarkAtTheEdgesStays) {
  EXPECT_EQ(Shown(u"\u200Fسلام"), "\u200Fسلام");
  EXPECT_EQ(Shown(u"سلام\u200F"), "سلام\u200F");
  EXPECT_EQ(Shown(u"\u200F"), "\u200F");
  EXPECT_EQ(Shown(u""), "");
}

TEST(Caption, NoCharacterComesOrGoes) {
  const Text caption = u"فايل\u200Fهاي «متن»:\u200F 10 & 20";
  EXPECT_EQ(ShownCaption(caption).size(), caption.size());
  EXPECT_EQ(Shown(u"10\u200F20"), "10\u200F20");
}

}  // namespace
