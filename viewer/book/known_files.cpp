#include "viewer/book/known_files.h"

#include <QFileInfo>
#include <QSet>
#include <QStringList>

namespace viewer {
namespace {

// Without those that may hold a program for the program that opens them: pages of the web, films of
// Flash, documents with macros.
const QSet<QString>& Extensions() {
  static const QSet<QString> kExtensions = [] {
    const QStringList names =
        QStringLiteral(
            "pdf txt rtf csv doc docx xls xlsx ppt pptx pps ppsx odt ods odp epub djvu djv "
            "jpg jpeg jpe png gif bmp tif tiff webp "
            "mp3 wav wma ogg oga opus m4a aac flac amr aif aiff au mid midi "
            "avi mpg mpeg mp4 m4v mkv mov wmv asf flv webm ogv 3gp vob rm rmvb ts divx")
            .split(u' ');
    return QSet<QString>(names.begin(), names.end());
  }();
  return kExtensions;
}

bool IsTurn(QChar character) {
  const char16_t c = character.unicode();
  return (c >= u'\u202A' && c <= u'\u202E') || (c >= u'\u2066' && c <= u'\u2069') ||
         c == u'\u200E' || c == u'\u200F' || c == u'\u061C';
}

}  // namespace

bool IsKnownDocument(const QString& fileName) {
  return Extensions().contains(QFileInfo(fileName).suffix().toLower());
}

QString WithoutTurns(const QString& fileName) {
  QString name = fileName;
  return name.removeIf(IsTurn);
}

}  // namespace viewer
