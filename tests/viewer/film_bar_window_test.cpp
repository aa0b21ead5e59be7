// The bar below a film, without a film.
#include "viewer/film_bar.h"

#include <gtest/gtest.h>

#include <QTest>

#include "tests/viewer/window_bench.h"

using namespace Qt::StringLiterals;

namespace viewer_tests {
namespace {

class Bar : public testing::Test {
 protected:
  Bar() {
    bar_.onSeek = [this](qint64 place) { asked_ << u"seek %1"_s.arg(place); };
    bar_.onVolume = [this](int percent) { asked_ << u"volume %1"_s.arg(percent); };
    bar_.onPause = [this] { asked_ << u"pause"_s; };
    bar_.onWholeScreen = [this] { asked_ << u"whole"_s; };
    bar_.resize(800, 50);
    bar_.show();
  }
  QSlider& Slider(const QString& name) { return *bar_.findChild<QSlider*>(name); }
  QString Time() { return bar_.findChild<QLabel*>(u"filmTime"_s)->text(); }

  viewer::FilmBar bar_{nullptr};
  QStringList asked_;
};

TEST_F(Bar, TellsTheTimeAsTheFilmRuns) {
  bar_.ShowLength(185'000);
  bar_.ShowPlace(61'500);
  EXPECT_EQ(Time(), u"۱:۰۱ / ۳:۰۵"_s);
  EXPECT_EQ(Slider(u"filmPlace"_s).value(), 61'500);
  EXPECT_TRUE(asked_.isEmpty()) << "what the film tells is no wish";
}

TEST_F(Bar, AFilmOfUnknownLengthIsFollowedAsFarAsItHasGone) {
  bar_.ShowLength(0);
  bar_.ShowPlace(4'000);
  EXPECT_EQ(Time(), u"۰:۰۴"_s);
  EXPECT_EQ(Slider(u"filmPlace"_s).value(), 4'000);
  bar_.SeekBy(-3'000);
  EXPECT_EQ(asked_, QStringList{u"seek 1000"_s});
}

TEST_F(Bar, HoursAreTold) {
  EXPECT_EQ(viewer::PersianTime(3'609'000), u"۱:۰۰:۰۹"_s);
  EXPECT_EQ(viewer::PersianTime(-5), u"۰:۰۰"_s);
}

TEST_F(Bar, TheSliderSeeksToTheRightAsTheFilmRuns) {
  bar_.ShowLength(100'000);
  QTest::keyClick(&Slider(u"filmPlace"_s), Qt::Key_Right);
  EXPECT_EQ(asked_, QStringList{u"seek 5000"_s});
  EXPECT_EQ(Time(), u"۰:۰۵ / ۱:۴۰"_s);
}

TEST_F(Bar, StepsEndWhereTheFilmDoes) {
  bar_.ShowLength(8'000);
  bar_.SeekBy(5'000);
  bar_.SeekBy(5'000);
  bar_.SeekBy(-50'000);
  EXPECT_EQ(asked_, (QStringList{u"seek 5000"_s, u"seek 8000"_s, u"seek 0"_s}));
}

TEST_F(Bar, ASliderThatIsHeldStaysInTheHand) {
  bar_.ShowLength(100'000);
  Slider(u"filmPlace"_s).setSliderDown(true);
  bar_.ShowPlace(50'000);
  EXPECT_EQ(Slider(u"filmPlace"_s).value(), 0);
}

TEST_F(Bar, SoundIsSilencedAndComesBackAsLoudAsItWas) {
  bar_.SetVolumeBy(-40);
  bar_.SwitchSound();
  bar_.SwitchSound();
  EXPECT_EQ(asked_, (QStringList{u"volume 60"_s, u"volume 0"_s, u"volume 60"_s}));
  bar_.SetVolumeBy(500);
  EXPECT_EQ(asked_.last(), u"volume 100"_s);
}

TEST_F(Bar, ButtonsSayWhatTheyDo) {
  Click(bar_, u"filmPause"_s);
  Click(bar_, u"filmWholeScreen"_s);
  EXPECT_EQ(asked_, (QStringList{u"pause"_s, u"whole"_s}));
  EXPECT_EQ(Find(bar_, u"filmPause"_s).accessibleName(), u"مکث"_s);
  bar_.ShowPlaying(false);
  EXPECT_EQ(Find(bar_, u"filmPause"_s).accessibleName(), u"پخش"_s);
}

}  // namespace
}  // namespace viewer_tests
