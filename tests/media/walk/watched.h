// Runs media_walk on a machine that is the test's own: a sound server without a card, empty homes.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <string>
#include <vector>

#include "tests/media/strace_log.h"

namespace media_tests {

class Watched {
 public:
  Watched();
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched&) = delete;
  ~Watched();

  // Empty if everything that is needed runs; else what doesn't.
  QString Lack() const { return lack_; }
  // The same for being watched: strace must be there and be allowed to look.
  static QString LackOfStrace();

  // What it prints. With the toolkit's backend of that name, "gstreamer" or "ffmpeg".
  QStringList Run(const QString& backend, const QStringList& arguments);
  // What it asked the system for.
  std::vector<Reach> Watch(const QString& backend, const QStringList& arguments);

  // A file outside every book.
  std::string Lure() const { return outside_.filePath(QStringLiteral("outside.ts")).toStdString(); }
  // Of those, what belongs neither to the books nor to the machine's programs and settings.
  std::vector<std::string> Offences(const std::vector<Reach>& all) const;
  QString PathOf(const QString& name) const { return folder_.filePath(name); }
  const QStringList& Printed() const { return printed_; }

 private:
  bool IsHome(const std::string& call) const;
  QProcessEnvironment Environment(const QString& backend) const;

  QTemporaryDir folder_;
  QTemporaryDir outside_;
  QProcess server_;
  QString lack_;
  QStringList printed_;
};

}  // namespace media_tests
