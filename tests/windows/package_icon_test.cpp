// The icons that the packages bring for the desktop, against the one that the windows draw.
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QPainter>
#include <cstdlib>

#include "platform/qt/artwork.h"

namespace {

QString IconFile(int side, const char* name) {
  return QStringLiteral(ZORVAND_SOURCE_DIR "/packaging/icons/%1x%1/%2.png")
      .arg(QString::number(side), QString::fromLatin1(name));
}

QImage WindowIcon(int side) {
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  platform::DrawArtwork(painter, platform::Artwork::kWindowIcon, image.rect(),
                        platform::Ground::kLight);
  return image;
}

// On a scale of 255, over all four channels.
double MeanDifference(const QImage& left, const QImage& right) {
  const QImage a = left.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  const QImage b = right.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  if (a.size() != b.size()) return 255;
  const qsizetype bytes = qsizetype{4} * a.width();
  double sum = 0;
  for (int y = 0; y < a.height(); ++y) {
    const uchar* const leftLine = a.constScanLine(y);
    const uchar* const rightLine = b.constScanLine(y);
    for (qsizetype i = 0; i < bytes; ++i) sum += std::abs(leftLine[i] - rightLine[i]);
  }
  return sum / static_cast<double>(bytes * a.height());
}

class PackageIcon : public ::testing::TestWithParam<int> {};

TEST_P(PackageIcon, HasItsSide) {
  for (const char* name : {"zorvand", "zorvand-viewer"}) {
    const QImage icon(IconFile(GetParam(), name));
    EXPECT_EQ(icon.size(), QSize(GetParam(), GetParam())) << name;
    EXPECT_TRUE(icon.hasAlphaChannel()) << name;
    EXPECT_EQ(qAlpha(icon.pixel(0, 0)), 0) << name << " has no round corner";
  }
}

// Two renderers smooth edges in two ways, which counts for more the smaller the icon.
TEST_P(PackageIcon, IsTheWindowsIcon) {
  const double most = GetParam() < 48 ? 5 : 0.5;
  EXPECT_LT(MeanDifference(QImage(IconFile(GetParam(), "zorvand")), WindowIcon(GetParam())), most);
  EXPECT_GT(MeanDifference(QImage(IconFile(GetParam(), "zorvand-viewer")), WindowIcon(GetParam())),
            4 * most);
}

INSTANTIATE_TEST_SUITE_P(Sides, PackageIcon,
                         ::testing::Values(16, 22, 24, 32, 48, 64, 128, 256, 512));

}  // namespace
