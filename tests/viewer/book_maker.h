// Writes books for the tests, byte for byte as the tool writes them.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include "book/folder.h"

namespace viewer_tests {

// UTF-16, little-endian, with its mark.
QByteArray BookBytes(const QString& text);

// The text of an ordinary page.
QString PageText(const QString& title, const QStringList& paragraphs);

// A folder with an empty book's folders in it, gone when this goes.
class BookMaker {
 public:
  BookMaker();

  QString Root() const { return folder_.path(); }
  book::Folder Book() const { return book::Folder(Root()); }
  QString PathOf(const QString& pathInBook) const { return Root() + u'/' + pathInBook; }

  void Write(const QString& pathInBook, const QString& text) const;
  void WriteBytes(const QString& pathInBook, const QByteArray& bytes) const;
  void MakeFolder(const QString& pathInBook) const;

 private:
  QTemporaryDir folder_;
};

}  // namespace viewer_tests
