#include "viewer/picture_decoder.h"

#include <QBuffer>
#include <QDebug>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QThreadPool>
#include <algorithm>
#include <array>

#include "media/turns.h"

namespace viewer {
namespace {

// Of the process, whichever window asks.
media::Turns::Turn Turn(std::uint64_t bytes) {
  static media::Turns turns(media::kDecodingMemory);
  return turns.Take(bytes);
}

// Of one format and no other; nothing in the bytes can lead to another file.
class Reader {
 public:
  Reader(QByteArray& bytes, media::PictureKind kind) : device_(&bytes) {
    [[maybe_unused]] static const bool kIsLifted =
        [] {  // the toolkit's own limit is the same for all programs
          QImageReader::setAllocationLimit(
              static_cast<int>(media::kDecodingMemory / media::kMegabyte));
          return true;
        }();
    device_.open(QIODevice::ReadOnly);
    reader_.setDevice(&device_);
    const std::string_view name = media::FormatName(kind);
    reader_.setFormat({name.data(), static_cast<qsizetype>(name.size())});
    reader_.setAutoDetectImageFormat(false);
    reader_.setAutoTransform(true);
  }
  bool LiesOnItsSide() const {
    return (reader_.transformation() & QImageIOHandler::TransformationRotate90) != 0;
  }
  QImage Read(QSize size) {
    reader_.setScaledSize(size);
    return reader_.read();
  }

 private:
  QBuffer device_;
  QImageReader reader_;
};

// What is to be done with a file, found before it takes memory.
struct Plan {
  media::PictureKind kind = media::PictureKind::kUnknown;
  QSize whole;       // upright
  QSize shown;       // the same
  QSize decoded;     // as the file has it, not turned upright
  double finer = 1;  // pixels decoded to one that is shown
  media::PictureNeed need;
  std::string whyNot;
};

Plan PlanFor(QByteArray bytes, QSize box, Fit fit, quint64 most) {
  const media::PictureHeader header =
      media::ReadPictureHeader({bytes.constData(), static_cast<std::size_t>(bytes.size())});
  Plan plan;
  plan.kind = header.kind;
  plan.whyNot = media::WhyNotDecoded(header, {});
  if (!plan.whyNot.empty()) return plan;
  const bool lies = Reader(bytes, header.kind).LiesOnItsSide();
  const auto whole = media::ToToolkit<QSize>(header.size);
  plan.whole = lies ? whole.transposed() : whole;
  plan.shown = SizeInBox(plan.whole, box, fit);
  const media::PictureSize decoded = media::WithinMemory(media::FromToolkit(plan.shown), most);
  plan.finer = static_cast<double>(decoded.width) / plan.shown.width();
  const auto upright = media::ToToolkit<QSize>(decoded);
  plan.decoded = lies ? upright.transposed() : upright;
  plan.need = media::NeedOf(header, media::FromToolkit(plan.decoded));
  plan.whyNot = media::WhyNotDecoded(header, media::FromToolkit(plan.decoded));
  return plan;
}

Plan PlanFor(QFile& file, QSize box, Fit fit, quint64 most) {
  Plan plan;
  if (!file.open(QIODevice::ReadOnly)) {
    plan.whyNot = file.errorString().toStdString();
    return plan;
  }
  plan.whyNot = media::WhyNotRead(static_cast<std::uint64_t>(file.size()));
  if (!plan.whyNot.empty()) return plan;
  const auto turn = Turn(static_cast<std::uint64_t>(file.size()));
  return PlanFor(file.read(file.size()), box, fit, most);
}

bool IsFile(const QString& path) { return !path.isEmpty() && QFileInfo(path).isFile(); }

void TellWhyNot(const QString& path, const std::string& whyNot) {
  qWarning() << "no picture that can be shown:" << path << whyNot.c_str();
}

}  // namespace

QSize SizeInBox(QSize whole, QSize wanted, Fit fit) {
  const QSize box = wanted.expandedTo({1, 1});
  if (fit == Fit::kCovering) {
    const QSize covering = whole.scaled(box, Qt::KeepAspectRatioByExpanding);
    // A long strip would grow without end in the direction that isn't shown.
    const bool strip = covering.width() > 4 * box.width() || covering.height() > 4 * box.height();
    return (strip ? whole.scaled(box * 2, Qt::KeepAspectRatio) : covering).expandedTo({1, 1});
  }
  if (whole.width() <= box.width() && whole.height() <= box.height()) return whole;
  return whole.scaled(box, Qt::KeepAspectRatio).expandedTo({1, 1});
}

QSize SizeOfPicture(const QString& path, QSize box) {
  // Nearly each tells its size early; some begin with a lot of notes. So little is read at once
  // that it needs no turn among those that decode.
  constexpr std::array<qint64, 2> kBeginnings = {65'536, 8'388'608};  // bytes
  if (!IsFile(path)) return {};
  Plan plan;
  QFile file(path);
  for (const qint64 beginning : kBeginnings) {
    if (!file.open(QIODevice::ReadOnly)) break;
    const bool isWhole = file.size() <= beginning;
    plan = PlanFor(file.read(beginning), box, Fit::kInside, kLargestInWindow);
    file.close();
    // What the rest takes is seen before it is decoded.
    if (!isWhole && !plan.shown.isEmpty()) return plan.shown;
    if (isWhole && plan.whyNot.empty()) return plan.shown;
    if (isWhole) break;
  }
  TellWhyNot(path, plan.whyNot);
  return {};
}

DecodedPicture DecodePicture(const QString& path, QSize box, Fit fit, quint64 most) {
  if (!IsFile(path)) return {};
  QFile file(path);
  const Plan plan = PlanFor(file, box, fit, most);
  if (!plan.whyNot.empty()) {
    TellWhyNot(path, plan.whyNot);
    return {};
  }
  // While it waits for its turn, nothing is held of it.
  const auto turn = Turn(plan.need.bytes);
  file.seek(0);
  QByteArray bytes = file.read(file.size());
  QImage image = Reader(bytes, plan.kind).Read(plan.decoded);
  if (image.isNull()) {
    qWarning() << "damaged picture:" << path;
    return {};
  }
  // The window's thread takes it as it is.
  image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                          : QImage::Format_RGB32);
  image.setDevicePixelRatio(plan.finer);
  return {image, plan.whole};
}

DecodedPicture DecodeBeside(const QString& path, QSize box, Fit fit, quint64 most) {
  DecodedPicture picture;
  QEventLoop loop;
  QThreadPool pool;
  pool.start([&] {
    picture = DecodePicture(path, box, fit, most);
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
  });
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  pool.waitForDone();
  return picture;
}

}  // namespace viewer
