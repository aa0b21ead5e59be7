#include "viewer/saved_picture.h"

#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "book/raw_file.h"
#include "book/shown_name.h"

namespace viewer {
namespace {

constexpr qint64 kAtOnce = 1 << 20;  // bytes

bool CopyBytes(QFile& from, QSaveFile& to) {
  while (!from.atEnd()) {
    const QByteArray bytes = from.read(kAtOnce);
    if (bytes.isEmpty() || to.write(bytes) != bytes.size()) return false;
  }
  return to.commit();
}

}  // namespace

Saved SavePicture(const book::Folder& book, const QString& from, const QString& to) {
  const QString folder = QFileInfo(QFileInfo(to).absolutePath()).canonicalFilePath();
  const bool isRoot = folder == QFileInfo(book.Root()).canonicalFilePath();
  if (isRoot || !book.WhereItLeads(folder).isEmpty()) return Saved::kIntoTheBook;
  const QString real = book.WhereItLeads(from);
  const int descriptor = real.isEmpty() ? -1 : book::OpenOrdinaryFile(real);
  QFile file;
  QSaveFile copy(to);
  if (descriptor >= 0 && file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle) &&
      copy.open(QIODevice::WriteOnly) && CopyBytes(file, copy)) {
    return Saved::kYes;
  }
  qWarning().noquote() << "Can't be saved:" << book::WithSigns(from) << "as" << book::WithSigns(to)
                       << copy.errorString();
  return Saved::kNot;
}

QString NameForSaving(const QString& path) { return QFileInfo(path).fileName(); }

}  // namespace viewer
