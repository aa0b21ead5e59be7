#include <QAccessibleWidget>
#include <QFile>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "platform/failure.h"
#include "platform/files/paths.h"
#include "platform/qt/conversions.h"
#include "platform/qt/peers.h"
#include "platform/qt/picture_decoder.h"

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

  void Click() const {
    const std::function<void()> click = onClick;
    if (click) click();
  }

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
    const int key = event->key();
    const bool presses = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!presses || event->isAutoRepeat() || !onClick) return QWidget::keyPressEvent(event);
    Click();
  }

  void mouseReleaseEvent(QMouseEvent* event) override {
    const bool inside = rect().contains(event->position().toPoint());
    if (event->button() == Qt::LeftButton && inside) Click();
  }

 private:
  QImage picture_;
};

// A picture that takes the focus is a button to a screen reader, any other a picture.
class AccessibleImage : public QAccessibleWidget {
 public:
  explicit AccessibleImage(ImageWidget& image)
      : QAccessibleWidget(&image, IsButton(image) ? QAccessible::Button : QAccessible::Graphic),
        image_(image) {}

  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (IsButton(image_)) names.prepend(pressAction());
    return names;
  }

  void doAction(const QString& name) override {
    if (name == pressAction()) return image_.Click();
    QAccessibleWidget::doAction(name);
  }

 private:
  static bool IsButton(const ImageWidget& image) { return image.focusPolicy() != Qt::NoFocus; }

  ImageWidget& image_;
};

QAccessibleInterface* MakeAccessibleImage(const QString& /*kind*/, QObject* object) {
  auto* image = dynamic_cast<ImageWidget*>(object);
  return image == nullptr ? nullptr : new AccessibleImage(*image);
}

ImageWidget& ImageOf(const Control& control) {
  return static_cast<ImageWidget&>(*control.ThePeer().widget);
}

}  // namespace

std::unique_ptr<Control::Peer> MakeImageBox(const ControlRow& row, QWidget* parent,
                                            ImageBox* control) {
  auto peer = std::make_unique<Control::Peer>();
  // Once; the toolkit leaves out what it has.
  QAccessible::installFactory(MakeAccessibleImage);
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
