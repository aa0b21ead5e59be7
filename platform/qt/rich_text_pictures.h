// The pictures inside rich text: their files, and what is shown of them.
#pragma once

#include <QByteArray>
#include <QCache>
#include <QHash>
#include <QImage>
#include <QObject>
#include <QPair>
#include <QSize>
#include <QTextDocument>
#include <QTextObjectInterface>

#include "platform/rtf/document.h"

namespace platform {

// Gives the document the bytes of the picture that it calls so, as rich text has them.
void AddPictureFile(QTextDocument& document, const QString& name, rtf::PictureKind kind,
                    const QByteArray& bytes);
// A file as rich text takes it: a GIF becomes a PNG. No bytes where it can't be decoded.
rtf::Picture PictureOfFile(QByteArray file);

// Lays out and draws the pictures of all documents. Each is decoded once it is drawn, in the size
// in which it is; of all of them together no more is kept than a process may keep, those that were
// drawn last. One that can't be decoded is a grey box with a cross.
class RichTextPictures : public QObject, public QTextObjectInterface {
 public:
  static void Show(QTextDocument& document);

  QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
  void drawObject(QPainter* painter, const QRectF& place, QTextDocument* document, int position,
                  const QTextFormat& format) override;

  // By this the toolkit finds out that an object lays out and draws.
  void* qt_metacast(const char* name) override;

 private:
  using Name = QPair<const QObject*, QString>;  // of a document and of a picture in it
  struct Shown {
    QImage picture;
    QSize drawn;  // for which it was decoded
  };

  RichTextPictures();
  const QImage& Decoded(QTextDocument& document, const QString& name, QSize drawn);
  QSize WholeSize(QTextDocument& document, const QString& name);
  void Know(const QTextDocument& document);
  void Forget(const QObject* document);

  QCache<Name, Shown> kept_;    // costs are kilobytes
  QHash<Name, QSize> whole_;    // as much room as each takes without a size of its own
  QSet<const QObject*> known_;  // documents
};

}  // namespace platform
