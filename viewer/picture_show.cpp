#include "viewer/picture_show.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "viewer/texts.h"

namespace viewer {
namespace {

constexpr int kTitleBand = 84;

// Whatever the book's own look: pictures stand out in the dark.
const Look& Room() { return LookOf(1, Light::kNight); }

}  // namespace

PictureShow::PictureShow(const book::Folder& book, const Look& /*look*/,
                         std::vector<book::Picture> gallery, int first, QWidget* parent)
    : QWidget(parent, Qt::Window),
      gallery_(std::move(gallery)),
      current_(first),
      pictures_(book, kLargestOnScreen),
      next_(QStringLiteral("nextPicture"), texts::Next(), Room(), FlatButton::Place::kBar, this),
      previous_(QStringLiteral("previousPicture"), texts::Previous(), Room(),
                FlatButton::Place::kBar, this),
      close_(QStringLiteral("closePicture"), texts::Close(), Room(), FlatButton::Place::kBar,
             this) {
  setObjectName(QStringLiteral("pictureShow"));
  setAttribute(Qt::WA_DeleteOnClose);
  setFocusPolicy(Qt::StrongFocus);
  for (FlatButton* button : {&next_, &previous_, &close_}) button->setFocusPolicy(Qt::NoFocus);
  QObject::connect(&next_, &QAbstractButton::clicked, this, [this] { Step(1); });
  QObject::connect(&previous_, &QAbstractButton::clicked, this, [this] { Step(-1); });
  QObject::connect(&close_, &QAbstractButton::clicked, this, [this] { close(); });
  pictures_.Start();
  GoTo(first);
}

void PictureShow::Step(int step) { GoTo(current_ + step); }

void PictureShow::GoTo(int number) {
  current_ = std::clamp(number, 0, static_cast<int>(gallery_.size()) - 1);
  const QString title = AsCaption(gallery_[static_cast<std::size_t>(current_)].title);
  setWindowTitle(title);
  setAccessibleName(title);
  previous_.setEnabled(current_ > 0);
  next_.setEnabled(current_ + 1 < static_cast<int>(gallery_.size()));
  update();
}

void PictureShow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), kDarkRoom);
  const QRect box = rect().adjusted(20, 20, -20, -kTitleBand);
  const PictureFile file{gallery_[static_cast<std::size_t>(current_)].path, true};
  const ShownPicture shown = pictures_.Get({file, box.size(), Fit::kInside, this});
  if (!shown.pixmap.isNull()) {
    DrawInMiddle(painter, box, shown.pixmap, shown.size);
  } else if (pictures_.IsBroken(file)) {
    painter.setPen(kOnPicture);
    painter.setFont(ViewerFont(kHeadingPixels));
    DrawText(painter, box, pictures_.NoteInPlaceOf(file), 1, Qt::AlignHCenter | Qt::AlignVCenter);
  }
  PaintTitle(painter);
}

void PictureShow::PaintTitle(QPainter& painter) {
  const QRect band(0, height() - kTitleBand, width(), kTitleBand);
  const int beside = next_.x() + next_.width() + 16;
  painter.setFont(ViewerFont(kPicturePixels));
  painter.setPen(kOnPicture);
  DrawText(painter, band.adjusted(beside, 8, -(width() - close_.x() + 16), -8),
           AsCaption(gallery_[static_cast<std::size_t>(current_)].title), 2,
           Qt::AlignHCenter | Qt::AlignVCenter);
  painter.setFont(ViewerFont(kNotePixels));
  painter.setPen(kFaintOnPicture);
  const QString place = texts::PictureOf().arg(PersianNumber(current_ + 1),
                                               PersianNumber(static_cast<qint64>(gallery_.size())));
  DrawText(painter, {close_.x() - 130, band.top(), 114, band.height()}, place, 1, Qt::AlignVCenter);
}

void PictureShow::resizeEvent(QResizeEvent* /*event*/) {
  for (FlatButton* button : {&next_, &previous_, &close_}) button->resize(button->sizeHint());
  const int top = height() - kTitleBand + (kTitleBand - next_.height()) / 2;
  previous_.move(20 + next_.width() + 8, top);
  next_.move(20, top);
  close_.move(width() - 20 - close_.width(), top);
}

// No key means here what it means in the window below.
bool PictureShow::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) event->accept();
  return QWidget::event(event);
}

void PictureShow::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
    case Qt::Key_PageDown:
    case Qt::Key_Space:
      return Step(1);
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_PageUp:
    case Qt::Key_Backspace:
      return Step(-1);
    case Qt::Key_Home:
      return GoTo(0);
    case Qt::Key_End:
      return GoTo(static_cast<int>(gallery_.size()) - 1);
    case Qt::Key_Escape:
    case Qt::Key_Return:
      close();
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

void PictureShow::wheelEvent(QWheelEvent* event) { Step(event->angleDelta().y() < 0 ? 1 : -1); }

void PictureShow::closeEvent(QCloseEvent* event) {
  if (onLeft) onLeft(current_);
  QWidget::closeEvent(event);
}

}  // namespace viewer
