// What a reader hears of a book, and sees of its film: on a sound server of the test's own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/media/walk/watched.h"

namespace media_tests {
namespace {

class Hearing : public testing::TestWithParam<const char*> {};

TEST_P(Hearing, MusicSoundAndFilmTakeTurns) {
  Watched watched;
  ASSERT_EQ(watched.Lack().toStdString(), "");
  const QStringList heard = watched.Run(QLatin1String(GetParam()),
                                        {QStringLiteral(MEDIA_WALK), QStringLiteral("concert")});
  const QStringList expected = {
      QStringLiteral("music is heard: yes"),
      QStringLiteral("music stops: yes"),
      QStringLiteral("music goes on: yes"),
      QStringLiteral("a sound hushes the music: yes"),
      QStringLiteral("music is back after the sound: yes"),
      QStringLiteral("a film hushes the music: yes"),
      QStringLiteral("its frames change: yes"),
      QStringLiteral("its bar goes on: yes"),
      QStringLiteral("the space bar pauses it: yes"),
      QStringLiteral("and lets it go on: yes"),
      QStringLiteral("one film at a time: yes"),
      QStringLiteral("music is back after the film: yes"),
      QStringLiteral("nothing sounds after the book: yes"),
      QStringLiteral("done"),
  };
  EXPECT_EQ(heard.join(u'\n').toStdString(), expected.join(u'\n').toStdString());
}

INSTANTIATE_TEST_SUITE_P(Backends, Hearing, testing::Values("gstreamer", "ffmpeg"),
                         [](const auto& each) { return std::string(each.param); });

}  // namespace
}  // namespace media_tests
