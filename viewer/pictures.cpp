#include "viewer/pictures.h"

#include <QDebug>
#include <QFileInfo>
#include <QImageReader>
#include <algorithm>

namespace viewer {
namespace {

// JPEG is made smaller while it is decoded; of all else the whole picture must fit.
constexpr qint64 kLargestJpeg = 400'000'000;
constexpr qint64 kLargestOther = 60'000'000;
constexpr int kCacheKilobytes = 128 * 1024;

bool IsKnown(const QByteArray& format) {
  static const QByteArrayList kFormats = {"jpeg", "jpg", "png", "gif", "bmp", "webp"};
  return kFormats.contains(format);
}

QSize SizeShown(QSize whole, QSize box, Fit fit) {
  if (fit == Fit::kCovering) {
    const QSize covering = whole.scaled(box, Qt::KeepAspectRatioByExpanding);
    // A long strip would grow without end in the direction that isn't shown.
    const bool strip = covering.width() > 4 * box.width() || covering.height() > 4 * box.height();
    return strip ? whole.scaled(box * 2, Qt::KeepAspectRatio) : covering;
  }
  if (whole.width() <= box.width() && whole.height() <= box.height()) return whole;
  return whole.scaled(box, Qt::KeepAspectRatio);
}

}  // namespace

QImage DecodePicture(const QString& path, QSize box, Fit fit) {
  if (path.isEmpty() || !QFileInfo(path).isFile()) return {};
  QImageReader reader(path);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QByteArray format = reader.format();
  QSize whole = reader.size();
  const qint64 pixels = qint64(whole.width()) * whole.height();
  const qint64 largest = format == "jpeg" ? kLargestJpeg : kLargestOther;
  if (!IsKnown(format) || whole.isEmpty() || pixels > largest) {
    qWarning() << "no picture that can be shown:" << path << format << whole;
    return {};
  }
  const bool turned = (reader.transformation() & QImageIOHandler::TransformationRotate90) != 0;
  if (turned) whole.transpose();
  QSize shown = SizeShown(whole, box.expandedTo({1, 1}), fit).expandedTo({1, 1});
  if (turned) shown.transpose();
  reader.setScaledSize(shown);
  QImage image = reader.read();
  if (image.isNull()) qWarning() << "damaged picture:" << path << reader.errorString();
  return image;
}

Pictures::Pictures() : ready_(kCacheKilobytes) { pool_.setMaxThreadCount(2); }

Pictures::~Pictures() {
  pool_.clear();
  pool_.waitForDone();
}

void Pictures::Start() {
  started_ = true;
  for (const Wish& wish : early_) Decode(wish);
  early_.clear();
}

QPixmap Pictures::Get(const QString& path, QSize box, Fit fit, QWidget* waiting) {
  if (path.isEmpty() || broken_.contains(path)) return {};
  const QString key = QStringLiteral("%1x%2:%3:%4")
                          .arg(box.width())
                          .arg(box.height())
                          .arg(static_cast<int>(fit))
                          .arg(path);
  if (const QPixmap* const ready = ready_.object(key)) return *ready;
  if (pending_.contains(key)) return {};
  pending_.insert(key);
  const Wish wish{key, path, box, fit, waiting->devicePixelRatioF(), waiting};
  started_ ? Decode(wish) : early_.push_back(wish);
  return {};
}

void Pictures::Decode(const Wish& wish) {
  const auto work = [this, wish] {
    const QImage image = DecodePicture(wish.path, wish.box * wish.ratio, wish.fit);
    QMetaObject::invokeMethod(
        this, [this, wish, image] { Take(wish, image); }, Qt::QueuedConnection);
  };
  // What was asked last is what the reader looks at.
  pool_.start(work, started_ ? ++asked_ : 0);
}

void Pictures::Take(const Wish& wish, const QImage& image) {
  pending_.remove(wish.key);
  if (image.isNull()) {
    broken_.insert(wish.path);
  } else {
    auto pixmap = std::make_unique<QPixmap>(QPixmap::fromImage(image));
    pixmap->setDevicePixelRatio(wish.ratio);
    const qsizetype kilobytes = std::max<qsizetype>(1, image.sizeInBytes() / 1024);
    ready_.insert(wish.key, pixmap.release(), kilobytes);
  }
  if (wish.waiting) wish.waiting->update();
}

}  // namespace viewer
