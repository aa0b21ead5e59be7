#include "gallery/folder_pictures.h"

#include <gtest/gtest.h>

namespace {

using gallery::IsGalleryPicture;
using gallery::ShownPath;
using platform::Text;

TEST(GalleryFolder, OnlyTheExtensionDecidesInWhateverLetters) {
  for (const char16_t* name : {u"Photo.JPG", u"photo.jpg", u"a.b.Jpg", u".jpg", u"تصوير (1).jpg"}) {
    EXPECT_TRUE(IsGalleryPicture(name)) << platform::ToUtf8(name);
  }
  for (const char16_t* name : {u"photo.jpeg", u"photo.jpg.bak", u"photo.jpg.", u"photojpg", u""}) {
    EXPECT_FALSE(IsGalleryPicture(name)) << platform::ToUtf8(name);
  }
}

TEST(GalleryFolder, ANameWithoutADotIsItsOwnExtension) {
  EXPECT_TRUE(IsGalleryPicture(u"jpg"));
  EXPECT_TRUE(IsGalleryPicture(u"JPG"));
}

TEST(GalleryPath, OfTheGreatestLengthIsShownWhole) {
  const Text path = u"C:\\" + Text(117, u'a');
  EXPECT_EQ(ShownPath(path, 120), path);
}

TEST(GalleryPath, OfOneMoreLosesThreeCharactersForThreePoints) {
  const Text path = u"C:\\" + Text(3, u'x') + Text(115, u'a');
  EXPECT_EQ(ShownPath(path, 120), u"C:\\..." + Text(115, u'a'));
  EXPECT_EQ(ShownPath(path, 90), u"C:\\..." + Text(85, u'a'));
}

}  // namespace
