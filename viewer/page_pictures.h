// The pictures inside a page on the screen.
#pragma once

#include <QObject>
#include <QSize>
#include <QTextDocument>
#include <QTextObjectInterface>
#include <QWidget>
#include <functional>

#include "viewer/look.h"
#include "viewer/pictures.h"

namespace viewer {

// Draws them as they come from the threads that decode, and until then what stands for pictures
// elsewhere. Needs their size in the document.
class PagePictures : public QObject, public QTextObjectInterface {
 public:
  // `shown` is painted again when a picture has come; larger ones are made as small as `box`.
  PagePictures(Pictures& pictures, const Look& look, QWidget& shown, QSize box);

  void DrawThoseOf(QTextDocument& document);

  // By the next event, for each time that a picture of this path would have been drawn.
  std::function<void(const QString& path)> onBroken;

  QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
  void drawObject(QPainter* painter, const QRectF& place, QTextDocument* document, int position,
                  const QTextFormat& format) override;
  // By this the toolkit finds out that an object draws.
  void* qt_metacast(const char* name) override;

 private:
  Pictures& pictures_;
  const Look& look_;
  QWidget& shown_;
  QSize box_;
};

}  // namespace viewer
