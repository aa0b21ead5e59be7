// What the viewer asks of the system while it shows books with hostile media: strace looks on.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>

#include "tests/media/hostile_media.h"
#include "tests/media/walk/watched.h"

namespace media_tests {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

const QString kWalk = QStringLiteral(MEDIA_WALK);
const QString kAddress = QStringLiteral("127.0.0.1:9");

class Reaching : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    if (const QString lack = Watched::LackOfStrace(); !lack.isEmpty()) {
      GTEST_SKIP() << "NOTHING WAS TESTED: " << lack.toStdString();
    }
    ASSERT_EQ(watched_.Lack().toStdString(), "");
  }

  static QString Backend() { return QLatin1String(GetParam()); }

  // The hostile medium of that name as a file.
  QString Written(const std::string& name) const {
    QString path = watched_.PathOf(QString::fromStdString(name) + QStringLiteral(".mp3"));
    for (const auto& medium : HostileMedia({watched_.Lure(), kAddress.toStdString()})) {
      QFile file(path);
      if (medium.name == name && file.open(QIODevice::WriteOnly)) {
        file.write(QByteArray::fromStdString(medium.bytes));
      }
    }
    return path;
  }

  Watched watched_;
};

// Otherwise the other tests would hold whatever the viewer does.
TEST_P(Reaching, AListPlayedByItsPathIsSeenToReachOut) {
  const auto all = watched_.Watch(
      Backend(), {kWalk, QStringLiteral("bare"), Written("hls-address"), Written("hls-path")});
  const std::string sign =
      Backend() == QLatin1String("gstreamer") ? "socket AF_INET" : "open " + watched_.Lure();
  EXPECT_THAT(watched_.Offences(all), Contains(HasSubstr(sign)));
}

TEST_P(Reaching, NoMediumOfABookReachesOut) {
  const auto all = watched_.Watch(Backend(), {kWalk, QStringLiteral("books"),
                                              QString::fromStdString(watched_.Lure()), kAddress});
  EXPECT_THAT(watched_.Offences(all), IsEmpty());
  for (const auto& medium : HostileMedia({})) {
    EXPECT_TRUE(
        watched_.Printed().contains(QStringLiteral("read ") + QString::fromStdString(medium.name)))
        << medium.name;
  }
  EXPECT_TRUE(watched_.Printed().endsWith(QStringLiteral("done")));
}

INSTANTIATE_TEST_SUITE_P(Backends, Reaching, testing::Values("gstreamer", "ffmpeg"),
                         [](const auto& each) { return std::string(each.param); });

// The plug-ins that the viewer leaves out aren't there for a list, however it came to the player.
class BehindTheSecondWall : public Reaching {};

TEST_P(BehindTheSecondWall, AListPlayedByItsPathStaysAtHome) {
  const auto all = watched_.Watch(
      Backend(), {kWalk, QStringLiteral("walled"), Written("hls-address"), Written("dash"),
                  Written("smooth"), Written("sdp"), Written("hls-path")});
  EXPECT_THAT(watched_.Offences(all), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Backends, BehindTheSecondWall, testing::Values("gstreamer"),
                         [](const auto& each) { return std::string(each.param); });

}  // namespace
}  // namespace media_tests
