#include "platform/windows/mask.h"

#include <gtest/gtest.h>

namespace {

using platform::FitsMasks;
using platform::Text;

TEST(Mask, StarIsAnyRunOfCharacters) {
  EXPECT_TRUE(FitsMasks(u"a.jpg", u"*.jpg"));
  EXPECT_TRUE(FitsMasks(u".jpg", u"*.jpg"));
  EXPECT_TRUE(FitsMasks(u"a.b.jpg", u"*.jpg"));
  EXPECT_FALSE(FitsMasks(u"a.jpeg", u"*.jpg"));
  EXPECT_FALSE(FitsMasks(u"a.jpg.txt", u"*.jpg"));
  EXPECT_FALSE(FitsMasks(u"ajpg", u"*.jpg"));
  EXPECT_TRUE(FitsMasks(u"abcabd", u"*abd"));
  EXPECT_TRUE(FitsMasks(u"page10.htm", u"p*1*.h*m"));
}

TEST(Mask, QuestionMarkIsOneCharacter) {
  EXPECT_TRUE(FitsMasks(u"a1.mp3", u"a?.mp3"));
  EXPECT_FALSE(FitsMasks(u"a.mp3", u"a?.mp3"));
  EXPECT_FALSE(FitsMasks(u"a12.mp3", u"a?.mp3"));
  EXPECT_TRUE(FitsMasks(u"*", u"?"));
}

TEST(Mask, SemicolonSeparatesMasks) {
  const Text masks = u"*.gif;*.jpg;*.bmp";
  for (const Text name : {u"a.gif", u"b.jpg", u"c.bmp"}) EXPECT_TRUE(FitsMasks(name, masks));
  EXPECT_FALSE(FitsMasks(u"d.png", masks));
  EXPECT_FALSE(FitsMasks(u"a.gif;b.jpg;c.bm", masks));
  EXPECT_TRUE(FitsMasks(u"b.jpg", u"*.gif ; *.jpg"));
}

TEST(Mask, LetterCaseDoesNotCount) {
  EXPECT_TRUE(FitsMasks(u"A.JPG", u"*.jpg"));
  EXPECT_TRUE(FitsMasks(u"a.jpg", u"*.JPG"));
}

TEST(Mask, StarDotStarFitsEveryName) {
  for (const Text name : {u"a.b", u"readme", u".hidden", u"كتاب"}) {
    EXPECT_TRUE(FitsMasks(name, u"*.*"));
  }
}

TEST(Mask, NoMaskFitsNothing) {
  EXPECT_FALSE(FitsMasks(u"a", u""));
  EXPECT_FALSE(FitsMasks(u"a", u";"));
}

TEST(Mask, PersianNames) {
  EXPECT_TRUE(FitsMasks(u"متن يك.htm", u"متن*.htm"));
  EXPECT_FALSE(FitsMasks(u"متن يك.htm", u"شعر*.htm"));
}

// A matcher that went back over all stars would need 2^30 steps.
TEST(Mask, ManyStarsStayQuick) {
  Text mask;
  for (int i = 0; i < 30; ++i) mask += u"a*";
  EXPECT_FALSE(FitsMasks(Text(2000, u'a'), mask + u"b"));
  EXPECT_TRUE(FitsMasks(Text(2000, u'a'), mask));
}

}  // namespace
