#include "platform/qt/picture_decoder.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <algorithm>

#include "media/picture_plan.h"

namespace platform {
namespace {

// As much memory is kept for the next picture: new pages cost as much as the reading itself.
constexpr qint64 kKept = qint64{16} << 20;

// The toolkit's own limit is the same for all programs.
void LiftToolkitsLimit() {
  QImageReader::setAllocationLimit(static_cast<int>(media::kDecodingMemory / media::kMegabyte));
}

}  // namespace

QSize WithinMemory(QSize size, quint64 bytes) {
  return media::ToToolkit<QSize>(media::WithinMemory(media::FromToolkit(size), bytes));
}

DecodedPicture DecodePicture(QByteArray& file, const std::function<QSize(QSize whole)>& shown) {
  const media::PictureHeader header =
      media::ReadPictureHeader({file.constData(), static_cast<std::size_t>(file.size())});
  DecodedPicture decoded;
  const auto isRefused = [&](media::PictureSize size) {
    decoded.whyNot = QString::fromStdString(media::WhyNotDecoded(header, size));
    return !decoded.whyNot.isEmpty();
  };
  if (isRefused({})) return decoded;
  LiftToolkitsLimit();
  QBuffer device(&file);
  device.open(QIODevice::ReadOnly);
  const std::string_view format = media::FormatName(header.kind);
  QImageReader reader(&device, {format.data(), static_cast<qsizetype>(format.size())});
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  const bool lies = (reader.transformation() & QImageIOHandler::TransformationRotate90) != 0;
  const auto whole = media::ToToolkit<QSize>(header.size);
  decoded.whole = lies ? whole.transposed() : whole;
  const QSize upright = shown(decoded.whole).expandedTo({1, 1});
  const QSize size = lies ? upright.transposed() : upright;
  if (isRefused(media::FromToolkit(size))) return decoded;
  // A JPEG decoder that knows the size wanted leaves out most of the work.
  reader.setScaledSize(size);
  decoded.picture = reader.read();
  decoded.whyNot = reader.errorString();
  return decoded;
}

DecodedPicture DecodePicture(const QString& path, QSize size) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return {{}, file.errorString(), {}};
  const std::string whyNot = media::WhyNotRead(static_cast<std::uint64_t>(file.size()));
  if (!whyNot.empty()) return {{}, QString::fromStdString(whyNot), {}};
  static QByteArray bytes;
  bytes.resize(file.size());
  bytes.resize(std::max<qint64>(file.read(bytes.data(), bytes.size()), 0));
  DecodedPicture decoded = DecodePicture(bytes, [size](QSize) { return size; });
  if (bytes.capacity() > kKept) bytes = QByteArray();
  return decoded;
}

}  // namespace platform
