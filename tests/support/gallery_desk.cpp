#include "tests/support/gallery_desk.h"

#include <QBuffer>
#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>

#include "support/window_catalogue.h"

namespace testing_support {
namespace {

constexpr std::size_t kStem = 14;  // letters of a random name

QString Cell(const char* control, int row) {
  return QStringLiteral("%1(%2)").arg(QLatin1String(control)).arg(row);
}

std::string JpegOf(const QImage& image) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "JPG");
  return bytes.toStdString();
}

// A segment of a JPEG (ITU-T T.81, B.1.1.4), from its marker on.
std::size_t SegmentAt(const std::string& jpeg, char marker) {
  return jpeg.find(std::string("\xFF") + marker);
}

}  // namespace

void GalleryDesk::AddPicture(const std::string& name, const std::string& place, int width,
                             int height) const {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(qRgb(static_cast<int>(name.size()) * 9 % 256, 120, 60));
  MakeFolders(place);
  Write(place + "/" + name, JpegOf(image));
}

// The head of a small grey picture, with another size written into it, and then for each block of 8
// by 8 the six bits that say "as grey as the last one" in the standard's own tables; four blocks
// make three bytes.
std::string GalleryDesk::HugeJpeg() {
  constexpr int kSide = 20'000;
  QImage image(8, 8, QImage::Format_Grayscale8);
  image.fill(Qt::gray);
  std::string jpeg = JpegOf(image);
  const std::size_t frame = SegmentAt(jpeg, '\xC0');
  for (const std::size_t at : {frame + 5, frame + 7}) {
    jpeg[at] = static_cast<char>(kSide / 256);
    jpeg[at + 1] = static_cast<char>(kSide % 256);
  }
  const std::size_t scan = SegmentAt(jpeg, '\xDA');
  jpeg.resize(scan + 2 + static_cast<std::size_t>(jpeg[scan + 3]));
  constexpr int kBlocks = (kSide / 8) * (kSide / 8);
  for (int i = 0; i < kBlocks / 4; ++i) jpeg += "\x28\xA2\x8A";
  return jpeg + "\xFF\xD9";
}

void GalleryDesk::AddHugePicture(const std::string& name, const std::string& place) const {
  MakeFolders(place);
  Write(place + "/" + name, HugeJpeg());
}

void GalleryDesk::AddPictures(int count) const {
  MakeFolders("Pictures");
  for (int i = 1; i <= count; ++i) AddPicture("p" + std::to_string(i) + ".jpg");
}

void GalleryDesk::OpenFolder(const QString& window, const QString& place) {
  robot.WhenShown("Form2", [place] {
    Robot::DoubleClickLine("Form2", "Dir1", place);
    Robot::Click("Form2", "btn(0)");
  });
  Robot::Click(window, window == QLatin1String("Form3") ? "Command1" : "Command3");
}

void GalleryDesk::Tick(const QString& window, int row, const QString& title) {
  if (!title.isEmpty()) Robot::Type(window, Cell("IMN", row), title);
  Robot::Click(window, Cell("IMC", row));
}

std::vector<std::string> GalleryDesk::Names(const QString& window) {
  std::vector<std::string> names;
  for (int row = 0; row < support::kPictureCells; ++row) {
    if (Robot::Find(window, Cell("IMF", row)).isHidden()) continue;
    names.push_back(Robot::FindAs<QLabel>(window, Cell("IMJ", row)).text().toStdString());
  }
  return names;
}

std::vector<int> GalleryDesk::Ticked(const QString& window) {
  std::vector<int> rows;
  for (int row = 0; row < support::kPictureCells; ++row) {
    if (Robot::FindAs<QCheckBox>(window, Cell("IMC", row)).isChecked()) rows.push_back(row);
  }
  return rows;
}

std::string GalleryDesk::TitleOf(const QString& window, int row) {
  return Robot::FindAs<QLineEdit>(window, Cell("IMN", row)).text().toStdString();
}

bool GalleryDesk::TitleIsOpen(const QString& window, int row) {
  return Robot::Find(window, Cell("IMN", row)).isEnabled();
}

std::vector<std::string> GalleryDesk::BuiltGalleries() const {
  std::vector<std::string> galleries;
  for (const std::string& name : BookNames("_xml", ".xml")) {
    if (name.size() == kStem + 4) galleries.push_back(Unnamed("_xml/" + name));
  }
  return galleries;
}

platform::Text GalleryDesk::Picture(platform::TextView name, platform::TextView place) const {
  return (Path(place) + u"\\").append(name);
}

}  // namespace testing_support
