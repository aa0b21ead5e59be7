#include "tests/viewer/book_maker.h"

#include <QDir>
#include <QFile>
#include <QtEndian>

namespace viewer_tests {

QByteArray BookBytes(const QString& text) {
  QByteArray bytes("\xFF\xFE");
  for (const QChar character : text) {
    const char16_t unit = qToLittleEndian(character.unicode());
    bytes.append(reinterpret_cast<const char*>(&unit), sizeof unit);
  }
  return bytes;
}

QString PageText(const QString& title, const QStringList& paragraphs) {
  const QString blank = QStringLiteral("<pgMain>&nbsp;</pgMain>\r\n");
  return QStringLiteral("<pgTitle>") + title + QStringLiteral("</pgTitle>\r\n\r\n") + blank +
         QStringLiteral("<pgMain>") + paragraphs.join(QStringLiteral("</pgMain>\r\n<pgMain>")) +
         QStringLiteral("</pgMain>\r\n") + blank.repeated(7);
}

BookMaker::BookMaker() {
  for (const char* name : {"Data/TXT", "Data/_xml", "Data/IMG", "Data/FlashIMG"}) {
    MakeFolder(QString::fromLatin1(name));
  }
}

void BookMaker::MakeFolder(const QString& pathInBook) const {
  if (!QDir().mkpath(PathOf(pathInBook))) qFatal("no folder %s", qPrintable(pathInBook));
}

void BookMaker::Write(const QString& pathInBook, const QString& text) const {
  WriteBytes(pathInBook, BookBytes(text));
}

void BookMaker::WriteBytes(const QString& pathInBook, const QByteArray& bytes) const {
  QFile file(PathOf(pathInBook));
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
    qFatal("can't write %s", qPrintable(pathInBook));
  }
}

}  // namespace viewer_tests
