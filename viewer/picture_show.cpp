#include "viewer/picture_show.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>

#include "viewer/saved_picture.h"
#include "viewer/texts.h"

namespace viewer {
namespace {

constexpr int kTitleBand = 84;
constexpr int kMargin = 20;
constexpr double kZoomStep = 1.25;
constexpr int kPanStep = 80;

// Whatever the book's own look: pictures stand out in the dark.
const Look& Room() { return LookOf(1, Light::kNight); }

}  // namespace

// The title, and beside it which of the pictures it is.
class PictureShow::Title : public QWidget {
 public:
  explicit Title(QWidget* parent) : QWidget(parent) { setMinimumHeight(kTitleBand); }
  QString title;
  QString place;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    constexpr int kPlaceWidth = 100;
    QPainter painter(this);
    painter.setFont(ViewerFont(kPicturePixels));
    painter.setPen(kOnPicture);
    DrawText(painter, rect().adjusted(8, 8, -kPlaceWidth - 8, -8), title, 2,
             Qt::AlignHCenter | Qt::AlignVCenter);
    painter.setFont(ViewerFont(kNotePixels));
    painter.setPen(kFaintOnPicture);
    DrawText(painter, {width() - kPlaceWidth, 0, kPlaceWidth, height()}, place, 1,
             Qt::AlignVCenter);
  }
};

PictureShow::PictureShow(const Surroundings& surroundings, std::vector<book::Picture> gallery,
                         int first, QWidget* parent)
    : QWidget(parent, Qt::Window),
      surroundings_(surroundings),
      gallery_(std::move(gallery)),
      current_(first),
      pictures_(surroundings.book, kLargestOnScreen),
      next_(QStringLiteral("nextPicture"), texts::Next(), Room(), FlatButton::Place::kBar, this),
      previous_(QStringLiteral("previousPicture"), texts::Previous(), Room(),
                FlatButton::Place::kBar, this),
      title_(new Title(this)),
      turn_(QStringLiteral("turnPicture"), texts::Turn(), Room(), FlatButton::Place::kBar, this),
      fit_(QStringLiteral("fitPicture"), texts::WholeSize(), Room(), FlatButton::Place::kBar, this),
      copy_(QStringLiteral("copyPicture"), texts::Copy(), Room(), FlatButton::Place::kBar, this),
      save_(QStringLiteral("savePicture"), texts::Save(), Room(), FlatButton::Place::kBar, this),
      close_(QStringLiteral("closePicture"), texts::Close(), Room(), FlatButton::Place::kBar,
             this) {
  setObjectName(QStringLiteral("pictureShow"));
  setAttribute(Qt::WA_DeleteOnClose);
  setFocusPolicy(Qt::StrongFocus);
  MakeBand();
  QObject::connect(&next_, &QAbstractButton::clicked, this, [this] { Step(1); });
  QObject::connect(&previous_, &QAbstractButton::clicked, this, [this] { Step(-1); });
  QObject::connect(&turn_, &QAbstractButton::clicked, this, [this] { Turn(true); });
  QObject::connect(&fit_, &QAbstractButton::clicked, this, [this] { SwitchFit(); });
  QObject::connect(&copy_, &QAbstractButton::clicked, this, [this] { Copy(); });
  QObject::connect(&save_, &QAbstractButton::clicked, this, [this] { Save(); });
  QObject::connect(&close_, &QAbstractButton::clicked, this, [this] { close(); });
  pictures_.Start();
  GoTo(first);
}

// From left to right, as the arrows of the keyboard lie.
void PictureShow::MakeBand() {
  auto* const band = new QHBoxLayout;
  band->setDirection(QBoxLayout::LeftToRight);
  band->setContentsMargins(kMargin, 0, kMargin, 0);
  band->setSpacing(8);
  setLayoutDirection(Qt::LeftToRight);
  band->addWidget(&next_);
  band->addWidget(&previous_);
  band->addWidget(title_, 1);
  for (FlatButton* button : {&turn_, &fit_, &copy_, &save_, &close_}) band->addWidget(button);
  for (FlatButton* button : {&next_, &previous_, &turn_, &fit_, &copy_, &save_, &close_}) {
    button->setFocusPolicy(Qt::NoFocus);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  }
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addStretch(1);
  rows->addLayout(band);
}

void PictureShow::Step(int step) { GoTo(current_ + step); }

void PictureShow::GoTo(int number) {
  const int before = current_;
  current_ = std::clamp(number, 0, static_cast<int>(gallery_.size()) - 1);
  if (current_ != before) pose_ = {};
  const QString title = AsCaption(gallery_[static_cast<std::size_t>(current_)].title);
  setWindowTitle(title);
  setAccessibleName(title);
  title_->title = title;
  title_->place = texts::PictureOf().arg(PersianNumber(current_ + 1),
                                         PersianNumber(static_cast<qint64>(gallery_.size())));
  title_->update();
  previous_.setEnabled(current_ > 0);
  next_.setEnabled(current_ + 1 < static_cast<int>(gallery_.size()));
  TellFit();
}

PictureFile PictureShow::File() const {
  return {gallery_[static_cast<std::size_t>(current_)].path, true};
}

QRect PictureShow::Box() const { return rect().adjusted(kMargin, kMargin, -kMargin, -kTitleBand); }

void PictureShow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), kDarkRoom);
  const QRect box = Box();
  // Enlarged it is decoded as large as it is itself, as far as that may be.
  const QSize wanted = pose_.IsFitted() && pose_.Quarters() % 2 == 0
                           ? box.size()
                           : pose_.Size().boundedTo(pose_.Whole()).toSize().expandedTo({1, 1});
  const ShownPicture shown = pictures_.Get({File(), wanted, Fit::kInside, this});
  if (!shown.pixmap.isNull()) {
    pose_.Show(shown.whole, box.size());
    PaintPicture(painter, shown);
  } else if (pictures_.IsBroken(File())) {
    painter.setPen(kOnPicture);
    painter.setFont(ViewerFont(kHeadingPixels));
    DrawText(painter, box, pictures_.NoteInPlaceOf(File()), 1, Qt::AlignHCenter | Qt::AlignVCenter);
  }
}

void PictureShow::PaintPicture(QPainter& painter, const ShownPicture& shown) const {
  const QRect box = Box();
  painter.setClipRect(box);
  painter.translate(QRectF(box).center() + pose_.Place().center());
  painter.rotate(90 * pose_.Quarters());
  const QSizeF size = pose_.Size();
  DrawInMiddle(painter, QRect(-box.width(), -box.height(), 2 * box.width(), 2 * box.height()),
               shown.pixmap, size);
}

void PictureShow::Turn(bool right) {
  pose_.Turn(right);
  update();
}

void PictureShow::ZoomBy(double factor) {
  pose_.ZoomBy(factor);
  TellFit();
}

void PictureShow::SwitchFit() {
  pose_.IsFitted() ? pose_.ShowWholeSize() : pose_.Fit();
  TellFit();
}

void PictureShow::TellFit() {
  fit_.SetCaption(pose_.IsFitted() ? texts::WholeSize() : texts::FitToScreen());
  update();
}

// As it is seen, in the size that may be decoded.
void PictureShow::Copy() {
  const ShownPicture shown = pictures_.Get({File(), Box().size(), Fit::kInside, this});
  if (shown.pixmap.isNull()) return;
  QApplication::clipboard()->setImage(
      shown.pixmap.toImage().transformed(QTransform().rotate(90 * pose_.Quarters())));
}

void PictureShow::Save() {
  const QString path = surroundings_.book.Resolve(File().path);
  if (path.isEmpty() || !surroundings_.outside.chooseNewFile) return;
  const QString chosen = surroundings_.outside.chooseNewFile(this, NameForSaving(path));
  if (chosen.isEmpty()) return;
  const Saved saved = SavePicture(surroundings_.book, path, chosen);
  if (saved == Saved::kIntoTheBook) Tell(this, texts::NotIntoTheBook());
  if (saved == Saved::kNot) Tell(this, texts::CantSave());
}

// No key means here what it means in the window below.
bool PictureShow::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) event->accept();
  return QWidget::event(event);
}

void PictureShow::keyPressEvent(QKeyEvent* event) {
  const bool control = (event->modifiers() & Qt::ControlModifier) != 0;
  if (Pan(event->key()) || Press(event->key(), control)) return;
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

bool PictureShow::Press(int key, bool control) {
  if (key == Qt::Key_Plus || key == Qt::Key_Equal) {
    ZoomBy(kZoomStep);
  } else if (key == Qt::Key_Minus) {
    ZoomBy(1 / kZoomStep);
  } else if (control && key == Qt::Key_C) {
    Copy();
  } else if (control && key == Qt::Key_S) {
    Save();
  } else if (!control && (key == Qt::Key_R || key == Qt::Key_L)) {
    Turn(key == Qt::Key_R);
  } else if (!control && key == Qt::Key_F) {
    SwitchFit();
  } else {
    return false;
  }
  return true;
}

bool PictureShow::Pan(int key) {
  const QPointF by = key == Qt::Key_Left    ? QPointF(kPanStep, 0)
                     : key == Qt::Key_Right ? QPointF(-kPanStep, 0)
                     : key == Qt::Key_Up    ? QPointF(0, kPanStep)
                     : key == Qt::Key_Down  ? QPointF(0, -kPanStep)
                                            : QPointF();
  if (by.isNull() || pose_.IsFitted()) return false;
  pose_.Pan(by);
  update();
  return true;
}

void PictureShow::wheelEvent(QWheelEvent* event) {
  const bool forward = event->angleDelta().y() < 0;
  if ((event->modifiers() & Qt::ControlModifier) != 0) {
    return ZoomBy(forward ? 1 / kZoomStep : kZoomStep);
  }
  Step(forward ? 1 : -1);
}

void PictureShow::mousePressEvent(QMouseEvent* event) { held_ = event->position(); }

void PictureShow::mouseMoveEvent(QMouseEvent* event) {
  if (pose_.Pan(event->position() - held_)) update();
  held_ = event->position();
}

void PictureShow::mouseDoubleClickEvent(QMouseEvent* /*event*/) { SwitchFit(); }

void PictureShow::closeEvent(QCloseEvent* event) {
  if (onLeft) onLeft(current_);
  QWidget::closeEvent(event);
}

}  // namespace viewer
