#include "book/medium.h"

#include <QDebug>
#include <utility>

#include "book/raw_file.h"
#include "book/shown_name.h"

namespace book {

std::unique_ptr<Medium> Medium::Open(const Folder& book, const QString& path) {
  // Where links lead was asked before; now none is followed.
  const QString real = book.WhereItLeads(path);
  const int descriptor = real.isEmpty() ? -1 : OpenOrdinaryFile(real);
  std::unique_ptr<Medium> medium(descriptor < 0 ? nullptr : new Medium(path, descriptor));
  if (medium && medium->BeginWhereTheMediumDoes()) return medium;
  qWarning().noquote() << "Neither a sound nor a film that is known:" << WithSigns(path);
  return nullptr;
}

Medium::Medium(QString path, int descriptor) : path_(std::move(path)) {
  file_.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
}

media::Source Medium::Bytes() {
  return {static_cast<std::uint64_t>(file_.size()), [this](std::uint64_t at, std::size_t count) {
            if (!file_.seek(static_cast<qint64>(at))) return std::string();
            return file_.read(static_cast<qint64>(count)).toStdString();
          }};
}

bool Medium::BeginWhereTheMediumDoes() {
  const auto known = media::MediumOf(Bytes());
  if (!known) return false;
  kind_ = known->kind;
  start_ = static_cast<qint64>(known->start);
  size_ = file_.size() - start_;
  return open(QIODevice::ReadOnly | QIODevice::Unbuffered) && seek(0);
}

bool Medium::seek(qint64 position) {
  return QIODevice::seek(position) && file_.seek(start_ + position);
}

qint64 Medium::readData(char* to, qint64 count) { return file_.read(to, count); }

qint64 Medium::writeData(const char* /*from*/, qint64 /*count*/) { return -1; }

}  // namespace book
