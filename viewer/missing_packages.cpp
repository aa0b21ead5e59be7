#include "viewer/missing_packages.h"

#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <algorithm>
#include <array>
#include <vector>

#include "viewer/texts.h"

namespace viewer {
namespace {

using media::MediaKind;

struct Package {
  const char* name;
  const char* sign;  // a plug-in that it brings and without which nothing of the kinds is played
  std::vector<MediaKind> kinds;
};

// https://packages.debian.org/bookworm/, "list of files" of each.
const std::vector<Package>& Packages() {
  static const std::vector<MediaKind> kAll = {
      MediaKind::kMp3, MediaKind::kAac, MediaKind::kWave, MediaKind::kOgg,      MediaKind::kFlac,
      MediaKind::kMp4, MediaKind::kFlv, MediaKind::kAvi,  MediaKind::kMatroska, MediaKind::kMpeg};
  static const std::vector<Package> kPackages = {
      {"gstreamer1.0-plugins-base", "libgstplayback.so", kAll},
      {"gstreamer1.0-plugins-good", "libgstpulseaudio.so", kAll},
      {"gstreamer1.0-libav",
       "libgstlibav.so",
       {MediaKind::kAac, MediaKind::kMp4, MediaKind::kFlv, MediaKind::kAvi, MediaKind::kMatroska,
        MediaKind::kMpeg}},
      {"gstreamer1.0-plugins-bad", "libgstmpegtsdemux.so", {MediaKind::kMpeg}}};
  return kPackages;
}

bool IsIn(const QStringList& folders, const char* file) {
  return std::ranges::any_of(folders, [file](const QString& folder) {
    return QFile::exists(folder + u'/' + QLatin1String(file));
  });
}

}  // namespace

QStringList MissingPackages(MediaKind kind, const QStringList& folders) {
  const QByteArray backend = qgetenv("QT_MEDIA_BACKEND");
  if (!backend.isEmpty() && backend != "gstreamer") return {};
  QStringList missing;
  for (const Package& package : Packages()) {
    const bool isNeeded = std::ranges::find(package.kinds, kind) != package.kinds.end();
    if (isNeeded && !IsIn(folders, package.sign)) missing << QLatin1String(package.name);
  }
  return missing;
}

// The machine's own, beside those of the toolkit, and the reader's.
QStringList PlugInFolders() {
  QStringList folders;
  for (const char* name : {"GST_PLUGIN_PATH_1_0", "GST_PLUGIN_PATH"}) {
    folders << qEnvironmentVariable(name).split(QDir::listSeparator(), Qt::SkipEmptyParts);
  }
  for (const char* name : {"GST_PLUGIN_SYSTEM_PATH_1_0", "GST_PLUGIN_SYSTEM_PATH"}) {
    if (!qEnvironmentVariableIsSet(name)) continue;
    return folders << qEnvironmentVariable(name).split(QDir::listSeparator(), Qt::SkipEmptyParts);
  }
  const QString libraries = QLibraryInfo::path(QLibraryInfo::LibrariesPath);
  return folders << libraries + QStringLiteral("/gstreamer-1.0")
                 << QDir::homePath() + QStringLiteral("/.local/share/gstreamer-1.0/plugins");
}

QString WithMissingPackages(const QString& words, MediaKind kind) {
  const QStringList missing = MissingPackages(kind, PlugInFolders());
  if (missing.isEmpty()) return words;
  // From left to right, as they are typed.
  const QString names = QChar(0x2066) + missing.join(u' ') + QChar(0x2069);
  return words + u'\n' + texts::PackagesMissing().arg(names);
}

}  // namespace viewer
