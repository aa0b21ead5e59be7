// What a machine without some of the player's plug-ins is told to install.
#include "viewer/missing_packages.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace viewer_tests {
namespace {

using media::MediaKind;
using viewer::MissingPackages;

class MissingPackagesOfAMachine : public testing::Test {
 protected:
  MissingPackagesOfAMachine() { qunsetenv("QT_MEDIA_BACKEND"); }
  ~MissingPackagesOfAMachine() override {
    qunsetenv("QT_MEDIA_BACKEND");
    qunsetenv("GST_PLUGIN_SYSTEM_PATH_1_0");
  }
  void Install(const QString& plugIn) {
    QFile file(folder_.filePath(plugIn));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  }
  void InstallAllBut(const QString& left) {
    for (const QString& each : {u"libgstplayback.so"_s, u"libgstpulseaudio.so"_s,
                                u"libgstlibav.so"_s, u"libgstmpegtsdemux.so"_s}) {
      if (each != left) Install(each);
    }
  }
  QStringList Missing(MediaKind kind) { return MissingPackages(kind, {folder_.path()}); }

  QTemporaryDir folder_;
};

TEST_F(MissingPackagesOfAMachine, WhereAllIsThereNothingIsMissing) {
  InstallAllBut({});
  for (const MediaKind kind : {MediaKind::kMp3, MediaKind::kMp4, MediaKind::kMpeg}) {
    EXPECT_EQ(Missing(kind), QStringList());
  }
}

TEST_F(MissingPackagesOfAMachine, ABareOneNeedsAllThatTheKindNeeds) {
  EXPECT_EQ(Missing(MediaKind::kMp3),
            (QStringList{u"gstreamer1.0-plugins-base"_s, u"gstreamer1.0-plugins-good"_s}));
  EXPECT_EQ(Missing(MediaKind::kMpeg),
            (QStringList{u"gstreamer1.0-plugins-base"_s, u"gstreamer1.0-plugins-good"_s,
                         u"gstreamer1.0-libav"_s, u"gstreamer1.0-plugins-bad"_s}));
}

TEST_F(MissingPackagesOfAMachine, FilmsNeedTheCodecsAndASoundDoesNot) {
  InstallAllBut(u"libgstlibav.so"_s);
  for (const MediaKind kind : {MediaKind::kMp4, MediaKind::kAvi, MediaKind::kFlv,
                               MediaKind::kMatroska, MediaKind::kMpeg, MediaKind::kAac}) {
    EXPECT_EQ(Missing(kind), QStringList{u"gstreamer1.0-libav"_s});
  }
  for (const MediaKind kind :
       {MediaKind::kMp3, MediaKind::kWave, MediaKind::kOgg, MediaKind::kFlac}) {
    EXPECT_EQ(Missing(kind), QStringList());
  }
}

TEST_F(MissingPackagesOfAMachine, AnotherPlayerNeedsNoneOfThem) {
  qputenv("QT_MEDIA_BACKEND", "ffmpeg");
  EXPECT_EQ(Missing(MediaKind::kMpeg), QStringList());
}

TEST_F(MissingPackagesOfAMachine, TheReaderIsToldOnALineOfItsOwn) {
  InstallAllBut(u"libgstlibav.so"_s);
  qputenv("GST_PLUGIN_SYSTEM_PATH_1_0", folder_.path().toUtf8());
  EXPECT_EQ(
      viewer::WithMissingPackages(u"نشد."_s, MediaKind::kMp4),
      u"نشد.\nبرای آن در این رایانه باید این‌ها نصب شود:\n"
      "\u2066gstreamer1.0-libav\u2069"_s);
  EXPECT_EQ(viewer::WithMissingPackages(u"نشد."_s, MediaKind::kMp3), u"نشد."_s);
}

}  // namespace
}  // namespace viewer_tests
