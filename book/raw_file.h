// A file's bytes with as few calls as can be, for reading thousands of small files.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <vector>

namespace book {

// A descriptor of the ordinary file, open for reading; a link isn't followed. -1 if there is none.
[[nodiscard]] int OpenOrdinaryFile(const QString& path);

class RawFile {
 public:
  // The bytes of an ordinary file, up to kLongestText; a link isn't followed. Null if it can't be
  // read. They last until the next call.
  QByteArrayView Read(const QString& path);
  QByteArrayView Read(const QByteArray& encodedPath);  // as the file system has it

 private:
  std::vector<char> buffer_;
};

}  // namespace book
