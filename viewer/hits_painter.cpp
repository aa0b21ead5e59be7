#include "viewer/hits_painter.h"

#include <QPainter>
#include <QTextLayout>

#include "book/marks.h"
#include "book/shown_name.h"

namespace viewer {
namespace {

constexpr int kCardHeight = 82;
constexpr int kTitleHeight = 44;

}  // namespace

QSize HitsPainter::sizeHint(const QStyleOptionViewItem& /*option*/,
                            const QModelIndex& index) const {
  return {100, model_.HitAt(index) == nullptr ? kTitleHeight : kCardHeight};
}

void HitsPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  const book::Hit* const hit = model_.HitAt(index);
  if (hit == nullptr) {
    PaintCollection(*painter, option.rect.adjusted(10, 0, -10, 0), index.data().toString());
  } else {
    const bool pointedAt = (option.state & (QStyle::State_Selected | QStyle::State_MouseOver)) != 0;
    PaintHit(*painter, option.rect.adjusted(4, 4, -4, -4), *hit, pointedAt);
  }
  painter->restore();
}

void HitsPainter::PaintCollection(QPainter& painter, const QRect& box, const QString& title) const {
  painter.setFont(ViewerFont(kCardPixels, true));
  painter.setPen(look_.accent);
  DrawText(painter, box, title, 1, Qt::AlignVCenter);
}

void HitsPainter::PaintHit(QPainter& painter, const QRect& card, const book::Hit& hit,
                           bool pointedAt) const {
  painter.setBrush(look_.card);
  painter.setPen(pointedAt ? QPen(look_.accent, 2) : QPen(look_.edge, 1));
  painter.drawRoundedRect(card, 8, 8);
  const QRect box = card.adjusted(14, 6, -14, -6);
  painter.setFont(ViewerFont(kCardPixels, true));
  painter.setPen(look_.ink);
  DrawText(painter, {box.left(), box.top(), box.width(), 28}, AsCaption(hit.title), 1,
           Qt::AlignVCenter);
  PaintSnippet(painter, {box.left(), box.top() + 32}, box.width(), hit.snippet);
}

// One line, each word that was sought on a ground of its own.
void HitsPainter::PaintSnippet(QPainter& painter, QPoint place, int width,
                               const QString& snippet) const {
  QString shown = snippet;
  for (QChar& character : shown) {
    if (character.isSpace()) character = QLatin1Char(' ');
  }
  QTextLayout layout(book::WithSigns(shown), ViewerFont(kListPixels));
  QTextOption option(Qt::AlignRight);
  option.setTextDirection(Qt::RightToLeft);
  option.setWrapMode(QTextOption::WordWrap);
  layout.setTextOption(option);
  QList<QTextLayout::FormatRange> formats;
  for (const book::Mark& mark : book::MarksIn(snippet, query_)) {
    QTextLayout::FormatRange range;
    range.start = static_cast<int>(mark.start);
    range.length = static_cast<int>(mark.length);
    range.format = FoundWord(look_);
    formats.push_back(range);
  }
  layout.setFormats(formats);
  layout.beginLayout();
  QTextLine line = layout.createLine();
  if (line.isValid()) line.setLineWidth(width);
  layout.endLayout();
  painter.setPen(look_.ink);
  layout.draw(&painter, place);
}

}  // namespace viewer
