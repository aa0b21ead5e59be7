#include <QFile>
#include <QImageReader>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/qt/conversions.h"
#include "platform/qt/peers.h"
#include "platform/qt/trampoline.h"

namespace platform {
namespace {

constexpr const char* kTagProperty = "tag";

// A picture drawn over the whole control, clickable.
class ImageWidget : public QWidget {
 public:
  using QWidget::QWidget;

  void SetPicture(QImage picture) {
    picture_ = std::move(picture);
    update();
  }
  bool HasPicture() const { return !picture_.isNull(); }

  std::function<void()> onClick;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!picture_.isNull()) painter.drawImage(rect(), picture_);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }

  void mouseReleaseEvent(QMouseEvent* event) override {
    const std::function<void()> click = onClick;
    const bool inside = rect().contains(event->position().toPoint());
    if (event->button() == Qt::LeftButton && inside && click) click();
  }

 private:
  QImage picture_;
};

ImageWidget& ImageOf(const Control& control) {
  return static_cast<ImageWidget&>(*control.ThePeer().widget);
}

}  // namespace

std::unique_ptr<Control::Peer> MakeImageBox(const ControlRow&, QWidget* parent, ImageBox* control) {
  auto peer = std::make_unique<Control::Peer>();
  auto* image = new ImageWidget(parent);
  peer->widget = image;
  if (control != nullptr) image->onClick = peer->Gate(control->onClick);
  return peer;
}

void ImageBox::LoadPicture(TextView path) {
  ImageWidget& image = ImageOf(*this);
  QImageReader reader(QFile::decodeName(QByteArray::fromStdString(HostPath(path))));
  reader.setDecideFormatFromContent(true);
  // A JPEG decoder that knows the size wanted leaves out most of the work.
  if (reader.size().isValid()) reader.setScaledSize(image.size() * image.devicePixelRatioF());
  QImage picture = reader.read();
  if (picture.isNull()) {
    throw Failure(u"Can't load the picture " + Text(path) + u": " + ToText(reader.errorString()));
  }
  image.SetPicture(std::move(picture));
}

void ImageBox::ClearPicture() { ImageOf(*this).SetPicture({}); }
bool ImageBox::HasPicture() const { return ImageOf(*this).HasPicture(); }

Text ImageBox::Tag() const { return ToText(ImageOf(*this).property(kTagProperty).toString()); }
void ImageBox::SetTag(TextView tag) { ImageOf(*this).setProperty(kTagProperty, ToQString(tag)); }

}  // namespace platform
