#include "book/known_files.h"

#include <QFileInfo>
#include <QStringList>

#include "book/media.h"

namespace book {
namespace {

// Without those that may hold a program for the program that opens them: pages of the web;
// documents, tables and shows that may have macros, also under the name of rich text; tables of
// plain text, whose formulas may start something; shows that fill the screen as they open. Scripts
// of a PDF or an EPUB stay within what their readers allow them.
const QStringList& DocumentExtensions() {
  static const QStringList kExtensions = QStringLiteral(
                                             ".pdf .txt .docx .xlsx .pptx .epub .djvu .djv "
                                             ".jpg .jpeg .jpe .png .gif .bmp .tif .tiff .webp")
                                             .split(u' ');
  return kExtensions;
}

// A film of Flash is a program, and anything may be called data.
bool IsKnownFilm(const QString& extension) {
  return FilmExtensions().contains(extension) && extension != QLatin1String(".swf") &&
         extension != QLatin1String(".dat");
}

QString ExtensionOf(const QString& fileName) {
  return u'.' + QFileInfo(fileName).suffix().toLower();
}

}  // namespace

bool IsKnownDocument(const QString& fileName) {
  const QString extension = ExtensionOf(fileName);
  return DocumentExtensions().contains(extension) || SoundExtensions().contains(extension) ||
         IsKnownFilm(extension);
}

bool IsCalledMedium(const QString& fileName) {
  const QString extension = ExtensionOf(fileName);
  return SoundExtensions().contains(extension) || FilmExtensions().contains(extension);
}

}  // namespace book
