// A sound or a film of a book, open for a player.
#pragma once

#include <QFile>
#include <QIODevice>
#include <memory>

#include "book/folder.h"
#include "media/media_kind.h"
#include "media/source.h"

namespace book {

// What a player is given in place of a path: bytes from which it can't tell where they lie, and
// that begin with the sound itself.
class Medium : public QIODevice {
 public:
  // Null, with a warning that names the file, if it can't be read, leads out of the book or isn't
  // known to be a sound or a film. The file that was looked at is the one that is played, whatever
  // comes under its name in the meantime.
  [[nodiscard]] static std::unique_ptr<Medium> Open(const Folder& book, const QString& path);

  media::MediaKind Kind() const { return kind_; }

  // For the log.
  QString Path() const { return path_; }

  bool seek(qint64 position) override;
  qint64 size() const override { return size_; }

 protected:
  qint64 readData(char* to, qint64 count) override;
  qint64 writeData(const char* from, qint64 count) override;

 private:
  Medium(QString path, int descriptor);
  media::Source Bytes();
  [[nodiscard]] bool BeginWhereTheMediumDoes();

  QString path_;
  QFile file_;
  media::MediaKind kind_{};
  qint64 start_ = 0;
  qint64 size_ = 0;
};

}  // namespace book
