#include "viewer/contents_list.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "viewer/texts.h"

namespace viewer {
namespace {

constexpr int kRowHeight = 46;
constexpr int kIndent = 16;

void DrawArrow(QPainter& painter, QPointF tip, bool open) {
  const QPolygonF down({tip + QPointF(-5, -3), tip + QPointF(5, -3), tip + QPointF(0, 4)});
  const QPolygonF left({tip + QPointF(3, -5), tip + QPointF(3, 5), tip + QPointF(-4, 0)});
  painter.drawPolygon(open ? down : left);
}

// A small frame with a hill in it: a gallery.
void DrawPictureSign(QPainter& painter, QPointF middle) {
  painter.drawRect(QRectF(middle - QPointF(6, 5), QSizeF(12, 10)));
  painter.drawPolyline(QPolygonF({middle + QPointF(-5, 4), middle + QPointF(-1, -1),
                                  middle + QPointF(2, 2), middle + QPointF(5, -2)}));
}

}  // namespace

class ContentsList::Painter : public QStyledItemDelegate {
 public:
  Painter(const Look& look, const ContentsModel& model, QObject* parent)
      : QStyledItemDelegate(parent), look_(look), model_(model) {}

  int pixels = kUsualPixels;

  QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                 const QModelIndex& /*index*/) const override {
    return {100, kRowHeight * pixels / kUsualPixels};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const int at = model_.NodeAt(index);
    if (at < 0) return;
    const book::Node& node = model_.Nodes()[static_cast<std::size_t>(at)];
    const bool chosen = (option.state & QStyle::State_Selected) != 0;
    const bool pointedAt = (option.state & QStyle::State_MouseOver) != 0;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(chosen ? look_.accent : pointedAt ? look_.pointed : QColor(Qt::transparent));
    painter->drawRoundedRect(QRectF(option.rect).adjusted(3, 1, -3, -1), 6, 6);
    const QColor ink = chosen ? look_.onAccent : node.isTitle ? look_.accent : look_.ink;
    const int indent = std::min(node.depth, ContentsModel::kDeepestIndent) * kIndent;
    QRect box = option.rect.adjusted(10, 0, -28 - indent, 0);
    const QPointF sign(box.right() + 13, box.center().y() + 1);
    PaintSign(*painter, node, at, sign, ink);
    painter->setPen(ink);
    painter->setFont(ViewerFont(pixels, node.isTitle));
    DrawText(*painter, box, index.data().toString(), 2, Qt::AlignVCenter);
    painter->restore();
  }

 private:
  void PaintSign(QPainter& painter, const book::Node& node, int at, QPointF middle,
                 const QColor& ink) const {
    painter.setPen(node.isGallery ? QPen(ink, 1.2) : QPen(Qt::NoPen));
    painter.setBrush(node.isGallery ? QBrush(Qt::NoBrush) : QBrush(ink));
    if (node.isTitle) {
      DrawArrow(painter, middle, model_.IsOpen(at));
    } else if (node.isGallery) {
      DrawPictureSign(painter, middle);
    } else {
      painter.drawEllipse(middle, 2, 2);
    }
  }

  const Look& look_;
  const ContentsModel& model_;
};

ContentsList::ContentsList(const Look& look, QWidget* parent) : QListView(parent) {
  setObjectName(QStringLiteral("contents"));
  setAccessibleName(texts::Contents());
  setFrameShape(QFrame::NoFrame);
  setUniformItemSizes(true);
  setMouseTracking(true);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  painter_ = new Painter(look, model_, this);
  setItemDelegate(painter_);
  setModel(&model_);
}

void ContentsList::SetPixels(int pixels) {
  if (painter_->pixels == pixels) return;
  painter_->pixels = pixels;
  emit painter_->sizeHintChanged({});
  scheduleDelayedItemsLayout();
}

void ContentsList::SetContents(book::Contents contents, const std::vector<bool>& openParts) {
  quiet_ = true;
  model_.SetContents(std::move(contents), openParts);
  scrollToTop();
  quiet_ = false;
}

void ContentsList::Filter(const QString& words) {
  quiet_ = true;
  const int node = model_.NodeAt(currentIndex());
  model_.SetFilter(book::Query({.words = words}));
  const QModelIndex index = model_.RowOf(node);
  setCurrentIndex(index);
  if (index.isValid()) scrollTo(index);
  quiet_ = false;
}

void ContentsList::Select(int node) {
  quiet_ = true;
  const QModelIndex index = model_.Reveal(node);
  setCurrentIndex(index);
  if (index.isValid()) scrollTo(index);
  quiet_ = false;
}

void ContentsList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QListView::currentChanged(current, previous);
  const int node = model_.NodeAt(current);
  if (quiet_ || node < 0 || model_.Nodes()[static_cast<std::size_t>(node)].isTitle) return;
  if (onSelected) onSelected(node);
}

void ContentsList::Choose(const QModelIndex& index) {
  const int node = model_.NodeAt(index);
  if (node < 0) return;
  if (model_.Nodes()[static_cast<std::size_t>(node)].isTitle) {
    OpenOrClose(index, !model_.IsOpen(node));
  } else if (onChosen) {
    onChosen(node);
  }
}

void ContentsList::OpenOrClose(const QModelIndex& index, bool open) {
  const int node = model_.NodeAt(index);
  if (node < 0 || !model_.Nodes()[static_cast<std::size_t>(node)].isTitle) return;
  quiet_ = true;
  model_.SetOpen(node, open);
  quiet_ = false;
}

void ContentsList::keyPressEvent(QKeyEvent* event) {
  const QModelIndex index = currentIndex();
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      return Choose(index);
    case Qt::Key_Left:  // where the text goes on
      return OpenOrClose(index, true);
    case Qt::Key_Right:
      return OpenOrClose(index, false);
    default:
      QListView::keyPressEvent(event);
  }
}

void ContentsList::mouseReleaseEvent(QMouseEvent* event) {
  QListView::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton) Choose(indexAt(event->position().toPoint()));
}

}  // namespace viewer
