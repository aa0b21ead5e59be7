#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/qt/conversions.h"
#include "platform/qt/peers.h"
#include "platform/qt/picture_decoder.h"
#include "platform/qt/trampoline.h"

namespace platform {
namespace {

constexpr const char* kTagProperty = "tag";

// A picture drawn over the whole control, clickable. One that takes the focus is pressed by the
// keys too.
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
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }

  void keyPressEvent(QKeyEvent* event) override {
    const std::function<void()> click = onClick;
    const int key = event->key();
    const bool presses = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!presses || event->isAutoRepeat() || !click) return QWidget::keyPressEvent(event);
    click();
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

std::unique_ptr<Control::Peer> MakeImageBox(const ControlRow& row, QWidget* parent,
                                            ImageBox* control) {
  auto peer = std::make_unique<Control::Peer>();
  auto* image = new ImageWidget(parent);
  peer->widget = image;
  // The mouse leaves the focus where it is.
  if (row.tabStop) image->setFocusPolicy(Qt::TabFocus);
  if (control != nullptr) image->onClick = peer->Gate(control->onClick);
  return peer;
}

void ImageBox::LoadPicture(TextView path) {
  ImageWidget& image = ImageOf(*this);
  const QString file = QFile::decodeName(QByteArray::fromStdString(HostPath(path)));
  DecodedPicture decoded = DecodePicture(file, image.size() * image.devicePixelRatioF());
  if (decoded.picture.isNull()) {
    throw Failure(u"Can't load the picture " + Text(path) + u": " + ToText(decoded.whyNot));
  }
  image.SetPicture(std::move(decoded.picture));
}

void ImageBox::ClearPicture() { ImageOf(*this).SetPicture({}); }
bool ImageBox::HasPicture() const { return ImageOf(*this).HasPicture(); }

Text ImageBox::Tag() const { return ToText(ImageOf(*this).property(kTagProperty).toString()); }
void ImageBox::SetTag(TextView tag) { ImageOf(*this).setProperty(kTagProperty, ToQString(tag)); }

}  // namespace platform
