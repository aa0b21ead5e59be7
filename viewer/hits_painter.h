// Draws what a search has found: the title of a collection, and a card for each hit.
#pragma once

#include <QStyledItemDelegate>

#include "book/query.h"
#include "viewer/hits_model.h"
#include "viewer/look.h"

namespace viewer {

class HitsPainter : public QStyledItemDelegate {
 public:
  HitsPainter(const Look& look, const HitsModel& model, QObject* parent)
      : QStyledItemDelegate(parent), look_(look), model_(model) {}

  // What is marked in each card.
  void SetQuery(book::Query query) { query_ = std::move(query); }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 private:
  void PaintCollection(QPainter& painter, const QRect& box, const QString& title) const;
  void PaintHit(QPainter& painter, const QRect& card, const book::Hit& hit, bool pointedAt) const;
  void PaintSnippet(QPainter& painter, QPoint place, int width, const QString& snippet) const;

  const Look& look_;
  const HitsModel& model_;
  book::Query query_;
};

}  // namespace viewer
