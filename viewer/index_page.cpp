#include "viewer/index_page.h"

#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <algorithm>
#include <cstdlib>
#include <limits>

#include "viewer/texts.h"

namespace viewer {
namespace {

// Cards are there for what can be seen and so many before and after it: where the focus goes next,
// and what a screen reader finds. An ordinary book has all of its cards.
constexpr std::size_t kCardsAround = 100;
constexpr int kRoomAround = 50;  // pixels, between a card with the focus and the edge of the view
constexpr int kScrollStep = 20;

// In its own direction, whatever script it begins with.
QString CreditOf(const book::Index& index) {
  const QString credit = AsCaption(index.credit);
  return credit.isEmpty() ? credit : QChar(0x2068) + credit + QChar(0x2069);
}

QColor Shade(int alpha) {
  QColor shade = kShade;
  shade.setAlpha(alpha);
  return shade;
}

}  // namespace

CollectionCard::CollectionCard(const book::Folder& book, const book::Collection& collection,
                               const Look& look, Pictures& pictures, QWidget* parent)
    : QAbstractButton(parent),
      book_(book),
      collection_(collection),
      look_(look),
      pictures_(pictures) {
  setObjectName(collection.row + QString::number(collection.number));
  setAccessibleName(AsCaption(collection.title));
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
}

QRect CollectionCard::CoverBox() const {
  if (IsOverPicture()) return rect().adjusted(2, 2, -2, -2);
  const int height = this->height() - 20;
  const int width = height * 3 / 4;
  return {this->width() - 10 - width, 10, width, height};
}

void CollectionCard::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QPixmap cover;
  if (looked_) cover = pictures_.Get({{picture_}, CoverBox().size(), Fit::kCovering, this}).pixmap;
  IsOverPicture() ? PaintOverCover(painter, cover) : PaintBesideCover(painter, cover);
}

void CollectionCard::ShowPicture() {
  if (!looked_) picture_ = book::PictureOf(book_, collection_);
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
  painter.fillRect(box.translated(-2, 3), kPictureShadow);
  PaintCover(painter, cover);
  painter.setPen(QPen(kPictureEdge, 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(box);
  QRect words(14, 12, box.left() - 28, height() - 24);
  if (collection_.isGallery) {
    painter.setFont(ViewerFont(kNotePixels));
    painter.setPen(look_.accent);
    DrawText(painter, words, texts::Gallery(), 1, Qt::AlignBottom);
    words.adjust(0, 0, 0, -24);
  }
  painter.setFont(ViewerFont(kCardPixels, true));
  painter.setPen(look_.ink);
  DrawText(painter, words, AsCaption(collection_.title), collection_.isGallery ? 3 : 4,
           Qt::AlignVCenter);
}

void CollectionCard::PaintOverCover(QPainter& painter, const QPixmap& cover) const {
  const QRect box = CoverBox();
  QPainterPath shape;
  shape.addRoundedRect(box, 10, 10);
  painter.save();
  painter.setClipPath(shape);
  PaintCover(painter, cover);
  QLinearGradient shade(0, box.top() + box.height() * 0.3, 0, box.bottom());
  shade.setColorAt(0, Shade(0));
  shade.setColorAt(0.5, Shade(205));
  shade.setColorAt(1, Shade(245));
  painter.fillRect(box, shade);
  painter.restore();
  painter.setBrush(Qt::NoBrush);
  painter.setPen(IsPointedAt() ? QPen(look_.accent, 3) : QPen(look_.edge, 1));
  painter.drawPath(shape);
  painter.setPen(kOnPicture);
  painter.setFont(ViewerFont(kCaptionPixels, true));
  QRect words = box.adjusted(12, 12, -12, -12);
  if (collection_.isGallery) {
    painter.setPen(kAccentOnPicture);
    painter.setFont(ViewerFont(kNotePixels));
    DrawText(painter, words, texts::Gallery(), 1, Qt::AlignBottom);
    words.adjust(0, 0, 0, -24);
    painter.setPen(kOnPicture);
    painter.setFont(ViewerFont(kCaptionPixels, true));
  }
  DrawText(painter, words, AsCaption(collection_.title), 3, Qt::AlignBottom);
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

// What the cards stand on, as far as it is seen.
class IndexPage::Shelves : public QWidget {
 public:
  Shelves(const Look& look, const ShelfPlan& plan, QWidget* parent)
      : QWidget(parent), look_(look), plan_(plan) {}
  QString credit;
  int scrolled = 0;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    PaintCredit(painter);
    if (!look_.layout.hasShelves) return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look_.edge, 1));
    painter.setBrush(look_.panel);
    // A shelf of any height, as far as its corners can be seen.
    const QRect seen = rect().adjusted(0, -100, 0, 100);
    for (const QRect& shelf : plan_.Shelves()) {
      const QRect box = shelf.translated(0, -scrolled).intersected(seen);
      if (!box.isEmpty()) painter.drawRoundedRect(box, 12, 12);
    }
  }

 private:
  void PaintCredit(QPainter& painter) const {
    const int top = plan_.Height() - ShelfPlan::kCreditHeight - scrolled;
    const QRect line(ShelfPlan::kMargin, top, width() - 2 * ShelfPlan::kMargin,
                     ShelfPlan::kCreditHeight);
    if (!line.intersects(rect())) return;
    painter.setPen(look_.faint);
    painter.setFont(ViewerFont(kCaptionPixels));
    DrawText(painter, line, credit, 1, Qt::AlignHCenter | Qt::AlignVCenter);
  }

  const Look& look_;
  const ShelfPlan& plan_;
};

IndexPage::IndexPage(const book::Folder& book, const book::Index& index, const Look& look,
                     Pictures& pictures)
    : book_(book),
      collections_(index.collections),
      look_(look),
      pictures_(pictures),
      credit_(CreditOf(index)),
      plan_(index.collections),
      shelves_(new Shelves(look, plan_, viewport())) {
  setObjectName(QStringLiteral("index"));
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setAutoFillBackground(false);
  verticalScrollBar()->setSingleStep(kScrollStep);
  shelves_->setObjectName(QStringLiteral("shelves"));
  shelves_->setAccessibleDescription(AsCaption(index.credit));
}

void IndexPage::ShowTheRest() {
  showsAll_ = true;
  shelves_->credit = credit_;
  shelves_->update();
  for (const auto& [number, card] : cards_) card->ShowPicture();
}

void IndexPage::FocusCard(const book::Collection& collection) {
  const auto found = std::ranges::find_if(
      collections_, [&](const book::Collection& each) { return book::AreSame(each, collection); });
  if (found != collections_.end()) {
    Focus(static_cast<std::size_t>(found - collections_.begin()));
  }
}

void IndexPage::Focus(std::size_t number) {
  current_ = number;
  ScrollTo(number);
  CardOf(number).setFocus(Qt::TabFocusReason);
}

CollectionCard& IndexPage::CardOf(std::size_t number) {
  CollectionCard*& card = cards_[number];
  if (card != nullptr) return *card;
  card = new CollectionCard(book_, collections_[number], look_, pictures_, shelves_);
  card->installEventFilter(this);
  QObject::connect(card, &QAbstractButton::clicked, this, [this, made = card] {
    if (onChosen) onChosen(made->Shown());
  });
  if (showsAll_) card->ShowPicture();
  isChanged_ = true;
  return *card;
}

void IndexPage::resizeEvent(QResizeEvent* /*event*/) {
  const QSize view = viewport()->size();
  plan_.Fit(view, look_.layout);
  shelves_->resize(view);
  verticalScrollBar()->setPageStep(view.height());
  verticalScrollBar()->setRange(0, plan_.Height() - view.height());
  Arrange();
}

void IndexPage::scrollContentsBy(int /*dx*/, int /*dy*/) { Arrange(); }

void IndexPage::Arrange() {
  const int scrolled = verticalScrollBar()->value();
  const auto [first, end] = plan_.CardsWithin(scrolled, scrolled + viewport()->height());
  const std::size_t from = first - std::min(first, kCardsAround);
  const std::size_t until = std::min(end + kCardsAround, collections_.size());
  DropCardsBut(from, until);
  for (std::size_t number = from; number < until; ++number) CardOf(number);
  for (const auto& [number, card] : cards_) {
    card->setGeometry(plan_.PlaceOf(number).translated(0, -scrolled));
    card->show();
  }
  shelves_->scrolled = scrolled;
  shelves_->update();
  if (isChanged_) OrderCards();
}

// One of them may be handling the key that has brought the others.
void IndexPage::DropCardsBut(std::size_t from, std::size_t until) {
  std::erase_if(cards_, [&](const auto& each) {
    const auto [number, card] = each;
    if ((number >= from && number < until) || number == current_) return false;
    card->hide();
    card->setObjectName({});
    card->deleteLater();
    return true;
  });
}

// The tab key goes from card to card as they stand.
void IndexPage::OrderCards() {
  isChanged_ = false;
  QWidget* before = nullptr;
  for (const auto& [number, card] : cards_) {
    if (before != nullptr) setTabOrder(before, card);
    before = card;
  }
}

void IndexPage::ScrollTo(std::size_t number) {
  const QRect place = plan_.PlaceOf(number).adjusted(0, -kRoomAround, 0, kRoomAround);
  QScrollBar& bar = *verticalScrollBar();
  const int lowest = place.bottom() + 1 - viewport()->height();
  bar.setValue(std::min(std::max(bar.value(), lowest), place.top()));
}

bool IndexPage::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    current_ = NumberOf(watched);
    ScrollTo(current_);
  }
  if (event->type() == QEvent::KeyPress && Step(static_cast<QKeyEvent*>(event)->key())) return true;
  return QAbstractScrollArea::eventFilter(watched, event);
}

std::size_t IndexPage::NumberOf(const QObject* card) const {
  const auto found =
      std::ranges::find_if(cards_, [card](const auto& each) { return each.second == card; });
  return found == cards_.end() ? current_ : found->first;
}

bool IndexPage::focusNextPrevChild(bool next) {
  const auto card = cards_.find(current_);
  const bool isInside = card != cards_.end() && card->second->hasFocus();
  const bool isLast = next ? current_ + 1 >= collections_.size() : current_ == 0;
  if (!isInside || isLast) return QAbstractScrollArea::focusNextPrevChild(next);
  Focus(next ? current_ + 1 : current_ - 1);
  return true;
}

// True if the key leads from card to card, whether or not there is one.
bool IndexPage::Step(int key) {
  if (key == Qt::Key_Home || key == Qt::Key_End) {
    Focus(key == Qt::Key_Home ? 0 : collections_.size() - 1);
    return true;
  }
  if (key < Qt::Key_Left || key > Qt::Key_Down) return false;
  ScrollTo(current_);  // where its neighbours are
  Focus(Nearest(current_, key));
  return true;
}

// The card that lies next in the direction of the arrow; the same where there is none.
std::size_t IndexPage::Nearest(std::size_t from, int key) const {
  const QRect start = plan_.PlaceOf(from);
  std::size_t best = from;
  int bestDistance = std::numeric_limits<int>::max();
  for (const auto& [number, card] : cards_) {
    const QPoint way = plan_.PlaceOf(number).center() - start.center();
    const bool sideways = key == Qt::Key_Left || key == Qt::Key_Right;
    const int along = key == Qt::Key_Left    ? -way.x()
                      : key == Qt::Key_Right ? way.x()
                      : key == Qt::Key_Up    ? -way.y()
                                             : way.y();
    const int across = std::abs(sideways ? way.y() : way.x());
    if (along <= 0 || (sideways && across > start.height() / 2)) continue;
    const int distance = along * (sideways ? 1 : 3) + across;
    if (distance < bestDistance) {
      best = number;
      bestDistance = distance;
    }
  }
  return best;
}

}  // namespace viewer
