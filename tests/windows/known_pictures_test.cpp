// What is told of pictures that aren't as they are known.
#include "tests/support/known_pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing_support::TemporaryFolder;

class KnownPictures : public testing::Test {
 protected:
  static QImage Flat(QSize size = {40, 30}) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::lightGray);
    return picture;
  }
  // Of as many colours as pixels, so that its file is large.
  static QImage Rough() {
    QImage picture(400, 301, QImage::Format_RGB32);
    unsigned value = 1;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        value = value * 1664525U + 1013904223U;
        picture.setPixel(x, y, 0xff000000U | (value >> 8U));
      }
    }
    return picture;
  }
  void Make(const std::string& name, const QImage& picture) const {
    folder_.MakeFolder(u"made");
    ASSERT_TRUE(picture.save(QString::fromStdString((made_ / name).string())));
  }
  std::vector<std::string> Compare() const {
    return testing_support::ComparePictures(known_, made_, differences_);
  }
  void Keep() const { testing_support::KeepPictures(made_, known_); }
  QImage Difference(const std::string& name) const {
    return QImage(QString::fromStdString((differences_ / name).string()));
  }

  TemporaryFolder folder_;
  const fs::path made_ = folder_.HostPath("made");
  const fs::path known_ = folder_.HostPath("known");
  const fs::path differences_ = folder_.HostPath("logs/differences");
};

TEST_F(KnownPictures, ThoseThatWereKeptAreAlike) {
  Make("flat.png", Flat());
  Make("rough.png", Rough());
  Keep();
  EXPECT_THAT(Compare(), IsEmpty());
}

TEST_F(KnownPictures, OneOtherPixelIsToldAndShownInRed) {
  Make("flat.png", Flat());
  Keep();
  QImage changed = Flat();
  changed.setPixelColor(7, 9, QColor(0xc0, 0xc0, 0xc1));
  Make("flat.png", changed);
  EXPECT_THAT(Compare(), ElementsAre("flat.png differs in 1 pixels, see " +
                                     (differences_ / "flat.png").string()));
  const QImage shown = Difference("flat.png");
  const int third = shown.width() / 3;
  EXPECT_EQ(shown.pixelColor(2 * third + 7, 9), QColor(Qt::red));
  EXPECT_NE(shown.pixelColor(2 * third + 8, 9), QColor(Qt::red));
}

TEST_F(KnownPictures, OneOtherPixelOfALargeOneIsToldThoughHalfOfItIsKept) {
  Make("rough.png", Rough());
  Keep();
  EXPECT_EQ(QImage(QString::fromStdString((known_ / "rough.png").string())).size(),
            QSize(200, 151));
  QImage changed = Rough();
  changed.setPixel(399, 300, changed.pixel(399, 300) ^ 1U);
  Make("rough.png", changed);
  EXPECT_THAT(Compare(), ElementsAre(AllOf(HasSubstr("rough.png"), HasSubstr("of half its size"))));
  EXPECT_FALSE(Difference("rough.png").isNull());
}

TEST_F(KnownPictures, AnotherSizeIsTold) {
  Make("flat.png", Flat());
  Keep();
  Make("flat.png", Flat({40, 31}));
  EXPECT_THAT(Compare(), ElementsAre(HasSubstr("flat.png differs in 40 pixels")));
}

TEST_F(KnownPictures, OneTooManyAndOneTooFewAreTold) {
  Make("first.png", Flat());
  Keep();
  fs::remove(made_ / "first.png");
  Make("second.png", Flat());
  EXPECT_THAT(Compare(), ElementsAre("first.png is known and wasn't made",
                                     HasSubstr("second.png isn't known")));
  EXPECT_FALSE(Difference("second.png").isNull());
}

TEST_F(KnownPictures, DifferencesOfAnEarlierTimeAreGone) {
  Make("flat.png", Flat());
  Compare();
  Keep();
  Compare();
  EXPECT_TRUE(fs::is_empty(differences_));
}

TEST_F(KnownPictures, WhatIsKnownNoMoreIsGone) {
  Make("first.png", Flat());
  Keep();
  fs::remove(made_ / "first.png");
  Make("second.png", Flat());
  Keep();
  EXPECT_FALSE(fs::exists(known_ / "first.png"));
  EXPECT_THAT(Compare(), IsEmpty());
}

}  // namespace
