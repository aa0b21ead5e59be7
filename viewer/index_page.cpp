#include "viewer/index_page.h"

#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cstdlib>
#include <limits>

namespace viewer {
namespace {

constexpr int kMargin = 22;
constexpr int kGap = 16;
constexpr int kPadding = 14;
constexpr int kNarrowestCard = 270;
constexpr int kWidestCard = 470;
constexpr int kLowestCard = 158;
constexpr int kHighestCard = 236;
constexpr int kLowestPicture = 172;
constexpr int kHighestPicture = 320;
constexpr int kCreditHeight = 26;

// In its own direction, whatever script it begins with.
QString CreditOf(const Index& index) {
  const QString credit = AsCaption(index.credit);
  return credit.isEmpty() ? credit : QChar(0x2068) + credit + QChar(0x2069);
}

}  // namespace

CollectionCard::CollectionCard(const BookFolder& book, const Collection& collection,
                               const Look& look, Pictures& pictures, QWidget* parent)
    : QAbstractButton(parent),
      book_(book),
      collection_(collection),
      caption_(AsCaption(collection.title)),
      look_(look),
      pictures_(pictures) {
  setObjectName(collection.row + QString::number(collection.number));
  setAccessibleName(caption_);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
}

QRect CollectionCard::CoverBox() const {
  if (look_.dark) return rect().adjusted(2, 2, -2, -2);
  const int height = this->height() - 20;
  const int width = height * 3 / 4;
  return {this->width() - 10 - width, 10, width, height};
}

void CollectionCard::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QPixmap cover;
  if (looked_) cover = pictures_.Get(picture_, CoverBox().size(), Fit::kCovering, this);
  look_.dark ? PaintOverCover(painter, cover) : PaintBesideCover(painter, cover);
}

void CollectionCard::ShowPicture() {
  if (!looked_) picture_ = PictureOf(book_, collection_);
  looked_ = true;
  update();
}

void CollectionCard::PaintCover(QPainter& painter, const QPixmap& cover) const {
  const QRect box = CoverBox();
  if (!looked_) {
    painter.fillRect(box, look_.edge);
  } else if (cover.isNull()) {
    DrawPlaceholder(painter, box, look_);
  } else {
    DrawCovering(painter, box, cover);
  }
}

void CollectionCard::PaintBesideCover(QPainter& painter, const QPixmap& cover) const {
  painter.setBrush(look_.card);
  painter.setPen(IsPointedAt() ? QPen(look_.accent, 2.5) : QPen(look_.edge, 1));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), 9, 9);
  const QRect box = CoverBox();
  painter.fillRect(box.translated(-2, 3), QColor(0, 0, 0, 45));
  PaintCover(painter, cover);
  painter.setPen(QPen(QColor(0, 0, 0, 70), 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(box);
  QRect words(14, 12, box.left() - 28, height() - 24);
  if (collection_.isGallery) {
    painter.setFont(ViewerFont(13));
    painter.setPen(look_.accent);
    DrawText(painter, words, QStringLiteral("نگارخانه"), 1, Qt::AlignBottom);
    words.adjust(0, 0, 0, -24);
  }
  painter.setFont(ViewerFont(16, true));
  painter.setPen(look_.ink);
  DrawText(painter, words, caption_, collection_.isGallery ? 3 : 4, Qt::AlignVCenter);
}

void CollectionCard::PaintOverCover(QPainter& painter, const QPixmap& cover) const {
  const QRect box = CoverBox();
  QPainterPath shape;
  shape.addRoundedRect(box, 10, 10);
  painter.save();
  painter.setClipPath(shape);
  PaintCover(painter, cover);
  QLinearGradient shade(0, box.top() + box.height() * 0.3, 0, box.bottom());
  shade.setColorAt(0, QColor(8, 11, 17, 0));
  shade.setColorAt(0.5, QColor(8, 11, 17, 205));
  shade.setColorAt(1, QColor(8, 11, 17, 245));
  painter.fillRect(box, shade);
  painter.restore();
  painter.setBrush(Qt::NoBrush);
  painter.setPen(IsPointedAt() ? QPen(look_.accent, 3) : QPen(look_.edge, 1));
  painter.drawPath(shape);
  painter.setPen(Qt::white);
  painter.setFont(ViewerFont(15, true));
  QRect words = box.adjusted(12, 12, -12, -12);
  if (collection_.isGallery) {
    painter.setPen(look_.accent);
    painter.setFont(ViewerFont(13));
    DrawText(painter, words, QStringLiteral("نگارخانه"), 1, Qt::AlignBottom);
    words.adjust(0, 0, 0, -24);
    painter.setPen(Qt::white);
    painter.setFont(ViewerFont(15, true));
  }
  DrawText(painter, words, caption_, 3, Qt::AlignBottom);
}

void CollectionCard::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void CollectionCard::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

void CollectionCard::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
  // A button would take the arrows for a step to the next one in the order of making.
  event->key() == Qt::Key_Space ? QAbstractButton::keyPressEvent(event) : event->ignore();
}

// What the cards stand on.
class IndexPage::Shelves : public QWidget {
 public:
  explicit Shelves(const Look& look) : look_(look) {}
  std::vector<QRect> boxes;
  QString credit;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setPen(look_.faint);
    painter.setFont(ViewerFont(kCaptionPixels));
    DrawText(painter, {kMargin, height() - kCreditHeight, width() - 2 * kMargin, kCreditHeight},
             credit, 1, Qt::AlignHCenter | Qt::AlignVCenter);
    if (look_.dark) return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look_.edge, 1));
    painter.setBrush(look_.panel);
    for (const QRect& box : boxes) painter.drawRoundedRect(box, 12, 12);
  }

 private:
  const Look& look_;
};

IndexPage::IndexPage(const BookFolder& book, const Index& index, const Look& look,
                     Pictures& pictures)
    : look_(look), credit_(CreditOf(index)), shelves_(new Shelves(look)) {
  setObjectName(QStringLiteral("index"));
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setAutoFillBackground(false);
  shelves_->setObjectName(QStringLiteral("shelves"));
  for (const Collection& collection : index.collections) {
    auto* const card = new CollectionCard(book, collection, look, pictures, shelves_);
    card->installEventFilter(this);
    QObject::connect(card, &QAbstractButton::clicked, this, [this, card] {
      if (onChosen) onChosen(card->Shown());
    });
    cards_.push_back(card);
  }
  shelves_->setAccessibleDescription(AsCaption(index.credit));
  setWidget(shelves_);
  shelves_->setAutoFillBackground(false);
}

void IndexPage::ShowTheRest() {
  shelves_->credit = credit_;
  shelves_->update();
  for (CollectionCard* card : cards_) card->ShowPicture();
}

void IndexPage::FocusCard(const Collection& collection) {
  for (CollectionCard* card : cards_) {
    if (AreSame(card->Shown(), collection)) card->setFocus();
  }
}

void IndexPage::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  Place();
}

// Each row on a shelf of its own, from right to left, in as many lines as it needs.
void IndexPage::Place() {
  const int width = viewport()->width();
  const int inner = width - 2 * kMargin - 2 * kPadding;
  const int third = (viewport()->height() - kMargin - kCreditHeight) / 3 - 2 * kPadding;
  const int height = look_.dark ? std::clamp(third, kLowestPicture, kHighestPicture)
                                : std::clamp(third - kGap, kLowestCard, kHighestCard);
  int top = kMargin;
  shelves_->boxes.clear();
  for (auto first = cards_.begin(); first != cards_.end();) {
    const QChar row = (*first)->Shown().row;
    const auto last = std::find_if(first, cards_.end(), [row](const CollectionCard* card) {
      return card->Shown().row != row;
    });
    const int count = static_cast<int>(last - first);
    const int widest = look_.dark ? height * 17 / 10 : kWidestCard;
    const int narrowest = look_.dark ? height : kNarrowestCard;
    const int fitting = std::max(1, (inner + kGap) / (narrowest + kGap));
    const int columns = std::clamp(count, 1, fitting);
    const int each = std::min(widest, (inner - (columns - 1) * kGap) / columns);
    const int used = columns * each + (columns - 1) * kGap;
    const int right = width - kMargin - kPadding - (inner - used) / 2;
    const int lines = (count + columns - 1) / columns;
    for (int i = 0; i < count; ++i) {
      const int x = right - (i % columns) * (each + kGap) - each;
      const int y = top + kPadding + (i / columns) * (height + kGap);
      first[i]->setGeometry(x, y, each, height);
    }
    const int shelf = 2 * kPadding + lines * height + (lines - 1) * kGap;
    shelves_->boxes.emplace_back(kMargin, top, width - 2 * kMargin, shelf);
    top += shelf + (look_.dark ? 0 : kGap);
    first = last;
  }
  const int end = top + kCreditHeight - (look_.dark ? 0 : kGap);
  shelves_->resize(width, std::max(end, viewport()->height()));
  shelves_->update();
}

bool IndexPage::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) ensureWidgetVisible(qobject_cast<QWidget*>(watched));
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key >= Qt::Key_Left && key <= Qt::Key_Down) {
      Step(key);
      return true;
    }
  }
  return QScrollArea::eventFilter(watched, event);
}

void IndexPage::Step(int key) {
  for (CollectionCard* card : cards_) {
    if (!card->hasFocus()) continue;
    if (CollectionCard* const next = Nearest(*card, key)) next->setFocus(Qt::TabFocusReason);
    return;
  }
}

// The card that lies next in the direction of the arrow.
CollectionCard* IndexPage::Nearest(const CollectionCard& from, int key) const {
  CollectionCard* best = nullptr;
  int bestDistance = std::numeric_limits<int>::max();
  for (CollectionCard* card : cards_) {
    const QPoint way = card->geometry().center() - from.geometry().center();
    const bool sideways = key == Qt::Key_Left || key == Qt::Key_Right;
    const int along = key == Qt::Key_Left    ? -way.x()
                      : key == Qt::Key_Right ? way.x()
                      : key == Qt::Key_Up    ? -way.y()
                                             : way.y();
    const int across = std::abs(sideways ? way.y() : way.x());
    if (along <= 0 || (sideways && across > from.height() / 2)) continue;
    const int distance = along * (sideways ? 1 : 3) + across;
    if (distance < bestDistance) {
      best = card;
      bestDistance = distance;
    }
  }
  return best;
}

}  // namespace viewer
