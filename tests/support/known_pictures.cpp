#include "tests/support/known_pictures.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <set>
#include <stdexcept>

namespace testing_support {
namespace {

namespace fs = std::filesystem;

constexpr qsizetype kLargestFile = 61'440;
const QString kHashOfWhole = QStringLiteral("Whole");  // stands in the file of half a picture

QImage Plain(const QImage& picture) { return picture.convertToFormat(QImage::Format_ARGB32); }

QImage ReadPicture(const fs::path& file) {
  QImage picture(QString::fromStdString(file.string()));
  if (picture.isNull()) throw std::runtime_error("no picture " + file.string());
  return picture;
}

void WriteFile(const fs::path& file, const QByteArray& bytes) {
  QFile written(QString::fromStdString(file.string()));
  if (!written.open(QIODevice::WriteOnly) || written.write(bytes) != bytes.size() ||
      !written.flush()) {
    throw std::runtime_error("can't write " + file.string());
  }
}

// As small as it gets without a loss: windows seldom have more than 256 colours.
QByteArray PngOf(const QImage& picture) {
  const QImage few = picture.convertToFormat(QImage::Format_Indexed8, Qt::AvoidDither);
  const bool isExact = Plain(few) == Plain(picture);
  constexpr int kSmallest = 0;
  QBuffer png;
  png.open(QIODevice::WriteOnly);
  QImage kept = isExact ? few : picture;
  for (const QString& key : picture.textKeys()) kept.setText(key, picture.text(key));
  if (!kept.save(&png, "PNG", kSmallest)) throw std::runtime_error("a picture can't be written");
  return png.data();
}

QString HashOf(const QImage& picture) {
  const QImage plain = Plain(picture);
  QCryptographicHash hash(QCryptographicHash::Sha256);
  hash.addData(QByteArray::number(plain.width()) + 'x');
  for (int y = 0; y < plain.height(); ++y) {
    hash.addData(QByteArrayView(plain.constScanLine(y), plain.width() * qsizetype{4}));
  }
  return QString::fromLatin1(hash.result().toHex());
}

QImage HalfOf(const QImage& picture) {
  return Plain(picture).scaled((picture.width() + 1) / 2, (picture.height() + 1) / 2,
                               Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

std::set<std::string> PicturesIn(const fs::path& folder) {
  std::set<std::string> names;
  if (!fs::exists(folder)) return names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".png") names.insert(entry.path().filename().string());
  }
  return names;
}

// Red where the two differ, beyond the edge of either, too; the rest pale.
QImage MarksOf(const QImage& known, const QImage& made, int& differing) {
  const QSize size = known.size().expandedTo(made.size());
  QImage marks(size, QImage::Format_ARGB32);
  for (int y = 0; y < size.height(); ++y) {
    for (int x = 0; x < size.width(); ++x) {
      const bool isSame =
          known.valid(x, y) && made.valid(x, y) && known.pixel(x, y) == made.pixel(x, y);
      differing += isSame ? 0 : 1;
      const int pale = isSame ? 192 + qGray(made.pixel(x, y)) / 4 : 0;
      marks.setPixel(x, y, isSame ? qRgb(pale, pale, pale) : qRgb(255, 0, 0));
    }
  }
  return marks;
}

QByteArray SideBySide(const std::vector<QImage>& pictures) {
  constexpr int kGap = 8;
  QSize size(0, 0);
  for (const QImage& each : pictures) {
    size = {size.width() + each.width() + kGap, std::max(size.height(), each.height())};
  }
  QImage row(size, QImage::Format_RGB32);
  row.fill(Qt::darkGray);
  QPainter painter(&row);
  int x = 0;
  for (const QImage& each : pictures) {
    painter.drawImage(x, 0, each);
    x += each.width() + kGap;
  }
  painter.end();
  return PngOf(row);
}

// Empty where they are alike.
std::string DifferenceOf(const fs::path& knownFile, const fs::path& madeFile,
                         const fs::path& difference) {
  const QImage known = Plain(ReadPicture(knownFile));
  const QImage whole = Plain(ReadPicture(madeFile));
  const QString hash = known.text(kHashOfWhole);
  if (hash.isEmpty() ? known == whole : hash == HashOf(whole)) return {};
  const QImage made = hash.isEmpty() ? whole : HalfOf(whole);
  int differing = 0;
  const QImage marks = MarksOf(known, made, differing);
  WriteFile(difference, SideBySide({known, made, marks}));
  return madeFile.filename().string() + " differs in " + std::to_string(differing) + " pixels" +
         (hash.isEmpty() ? "" : " of half its size") + ", see " + difference.string();
}

}  // namespace

std::vector<std::string> ComparePictures(const fs::path& known, const fs::path& made,
                                         const fs::path& differences) {
  fs::remove_all(differences);
  fs::create_directories(differences);
  const std::set<std::string> knownNames = PicturesIn(known);
  const std::set<std::string> madeNames = PicturesIn(made);
  std::vector<std::string> lines;
  for (const std::string& name : knownNames) {
    if (!madeNames.contains(name)) lines.push_back(name + " is known and wasn't made");
  }
  for (const std::string& name : madeNames) {
    if (!knownNames.contains(name)) {
      fs::copy_file(made / name, differences / name);
      lines.push_back(name + " isn't known, see " + (differences / name).string());
      continue;
    }
    const std::string line = DifferenceOf(known / name, made / name, differences / name);
    if (!line.empty()) lines.push_back(line);
  }
  return lines;
}

void KeepPictures(const fs::path& made, const fs::path& known) {
  fs::create_directories(known);
  for (const std::string& name : PicturesIn(known)) fs::remove(known / name);
  for (const std::string& name : PicturesIn(made)) {
    const QImage whole = Plain(ReadPicture(made / name));
    QByteArray png = PngOf(whole);
    if (png.size() > kLargestFile) {
      QImage half = HalfOf(whole);
      half.setText(kHashOfWhole, HashOf(whole));
      png = PngOf(half);
    }
    WriteFile(known / name, png);
  }
}

}  // namespace testing_support
