#include "viewer/page_pictures.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextFormat>
#include <cstring>

#include "viewer/page_document.h"

namespace viewer {

PagePictures::PagePictures(Pictures& pictures, const Look& look, QWidget& shown, QSize box)
    : pictures_(pictures), look_(look), shown_(shown), box_(box) {}

void PagePictures::DrawThoseOf(QTextDocument& document) {
  document.documentLayout()->registerHandler(QTextFormat::ImageObject, this);
}

void* PagePictures::qt_metacast(const char* name) {
  const bool draws = std::strcmp(name, qobject_interface_iid<QTextObjectInterface*>()) == 0;
  return draws ? static_cast<QTextObjectInterface*>(this) : QObject::qt_metacast(name);
}

QSizeF PagePictures::intrinsicSize(QTextDocument* /*document*/, int /*position*/,
                                   const QTextFormat& format) {
  const QTextImageFormat picture = format.toImageFormat();
  return {picture.width(), picture.height()};
}

void PagePictures::drawObject(QPainter* painter, const QRectF& place, QTextDocument* /*document*/,
                              int /*position*/, const QTextFormat& format) {
  const QString path = PathOfPicture(format);
  const QPixmap picture = pictures_.Get({{path}, box_, Fit::kInside, &shown_}).pixmap;
  if (!picture.isNull()) {
    painter->save();
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawPixmap(place, picture, picture.rect());
    painter->restore();
    return;
  }
  DrawPlaceholder(*painter, place.toRect(), look_);
  if (!pictures_.IsBroken({path})) return;
  QMetaObject::invokeMethod(
      this,
      [this, path] {
        if (onBroken) onBroken(path);
      },
      Qt::QueuedConnection);
}

}  // namespace viewer
