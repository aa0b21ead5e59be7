#include "viewer/book/known_files.h"

#include <QFileInfo>
#include <QStringList>

#include "viewer/book/media.h"

namespace viewer {
namespace {

// Without those that may hold a program for the program that opens them: pages of the web,
// documents with macros.
const QStringList& DocumentExtensions() {
  static const QStringList kExtensions =
      QStringLiteral(
          ".pdf .txt .rtf .csv .doc .docx .xls .xlsx .ppt .pptx .pps .ppsx .odt .ods .odp .epub "
          ".djvu .djv .jpg .jpeg .jpe .png .gif .bmp .tif .tiff .webp")
          .split(u' ');
  return kExtensions;
}

// A film of Flash is a program, and anything may be called data.
bool IsKnownFilm(const QString& extension) {
  return FilmExtensions().contains(extension) && extension != QLatin1String(".swf") &&
         extension != QLatin1String(".dat");
}

bool IsTurn(QChar character) {
  const char16_t c = character.unicode();
  return (c >= u'\u202A' && c <= u'\u202E') || (c >= u'\u2066' && c <= u'\u2069') ||
         c == u'\u200E' || c == u'\u200F' || c == u'\u061C';
}

}  // namespace

bool IsKnownDocument(const QString& fileName) {
  const QString extension = u'.' + QFileInfo(fileName).suffix().toLower();
  return DocumentExtensions().contains(extension) || SoundExtensions().contains(extension) ||
         IsKnownFilm(extension);
}

QString WithoutTurns(const QString& fileName) {
  QString name = fileName;
  return name.removeIf(IsTurn);
}

}  // namespace viewer
