#include "book/media.h"

#include <QFileInfo>
#include <QSet>
#include <QStringList>

namespace book {
namespace {

bool HasExtension(const QString& path, const QStringList& extensions) {
  return extensions.contains(u'.' + QFileInfo(path).suffix(), Qt::CaseInsensitive);
}

QString FirstOf(const QStringList& paths, const QStringList& extensions) {
  for (const QString& path : paths) {
    if (HasExtension(path, extensions)) return path;
  }
  return {};
}

// The files of the stem that may be sound or film.
class Shelf {
 public:
  Shelf(QStringList files, const QStringList& taken, int media) : files_(std::move(files)) {
    for (const QString& path : taken) files_.removeAll(path);
    files_.removeIf([](const QString& path) {
      return HasExtension(path, {QStringLiteral(".htm"), QStringLiteral(".html")});
    });
    isShared_ = files_.size() < media;
  }

  // By its extension; else whatever doesn't look like the other kind. A medium with the extension
  // of the attachment has replaced it: it is that where there are fewer files than media, or where
  // nothing else is left.
  QString Take(const QStringList& extensions, const QStringList& others,
               const QString& attachment) {
    QString path = FirstOf(files_, extensions);
    const bool mayBeAttachment = HasExtension(attachment, extensions);
    if (path.isEmpty() && mayBeAttachment && isShared_) return attachment;
    for (qsizetype i = 0; path.isEmpty() && i < files_.size(); ++i) {
      if (!HasExtension(files_[i], others)) path = files_[i];
    }
    if (path.isEmpty() && mayBeAttachment) return attachment;
    files_.removeAll(path);
    return path;
  }

 private:
  QStringList files_;
  bool isShared_ = false;
};

}  // namespace

const QStringList& SoundExtensions() {
  static const QStringList extensions =
      QStringLiteral(
          ".mp3 .wav .wma .ogg .oga .opus .m4a .aac .flac .amr .aif .aiff .au .mid .midi")
          .split(u' ');
  return extensions;
}

const QStringList& FilmExtensions() {
  static const QStringList extensions =
      QStringLiteral(
          ".avi .mpg .mpeg .mp4 .m4v .mkv .mov .wmv .asf .flv .webm .ogv .3gp .vob .dat .rm .rmvb "
          ".ts .divx .swf")
          .split(u' ');
  return extensions;
}

QString StemOf(const Node& node) {
  const QString& source = node.source;
  const qsizetype dot = source.lastIndexOf(u'.');
  return dot <= source.lastIndexOf(u'/') ? source : source.first(dot);
}

QString BackgroundOf(const Folder& book, const Node& node) {
  return node.background.isEmpty() ? QString() : book.Resolve(node.background);
}

Media MediaOf(const Folder& book, const Node& node) {
  Media media;
  media.background = BackgroundOf(book, node);
  // The build copies no media of a gallery entry, whatever its node says.
  if (node.isTitle || node.isGallery) return media;
  const QString stem = StemOf(node);
  if (node.hasAttachment) media.attachment = book.Resolve(stem + node.attachmentExtension);
  if (!node.hasSound && !node.hasFilm) return media;
  const int wanted = (node.hasSound ? 1 : 0) + (node.hasFilm ? 1 : 0);
  Shelf shelf(book.AllWithStem(stem), {media.attachment, media.background}, wanted);
  const QStringList& sounds = SoundExtensions();
  const QStringList& films = FilmExtensions();
  if (node.hasSound) media.sound = shelf.Take(sounds, films, media.attachment);
  if (node.hasFilm) media.film = shelf.Take(films, sounds, media.attachment);
  return media;
}

QString PrintPageOf(const Folder& book, const Node& node) {
  const bool isPage = !node.isTitle && !node.isGallery && !node.source.isEmpty();
  return isPage ? book.Resolve(node.source + u'l') : QString();
}

}  // namespace book
