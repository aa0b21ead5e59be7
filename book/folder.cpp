#include "book/folder.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QtDebug>
#include <algorithm>

#include "book/shown_name.h"

namespace book {
namespace {

const QString& IndexPath() {
  static const QString path = QStringLiteral("Data/_xml/Index.xml");
  return path;
}

// Backslashes came into a file by hand; they mean the same.
QString WithSlashes(const QString& pathInBook) {
  QString path = pathInBook;
  return path.replace(u'\\', u'/');
}

}  // namespace

Folder::Folder(const QString& root) : root_(QDir::cleanPath(QFileInfo(root).absoluteFilePath())) {}

std::optional<QString> Folder::Find(const QStringList& candidates) {
  for (const QString& candidate : candidates) {
    const Folder folder(candidate);
    if (!folder.Resolve(IndexPath()).isEmpty()) return folder.Root();
    const QFileInfo info(folder.Root());
    if (info.fileName().compare(QLatin1String("data"), Qt::CaseInsensitive) != 0) continue;
    const Folder above(info.absolutePath());
    if (!above.Resolve(IndexPath()).isEmpty()) return above.Root();
  }
  return std::nullopt;
}

// One name of a path: no way up, no drive, no way down.
bool Folder::IsSimpleName(const QString& name) {
  return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") &&
         !name.contains(u'/') && !name.contains(u':') && !name.contains(QChar(u'\0'));
}

Folder::Listing Folder::List(const QString& folder) {
  Listing listing;
  QDirIterator files(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  while (files.hasNext()) {
    files.next();
    const QFileInfo info = files.fileInfo();
    const bool isLink = info.isSymLink();
    if (!info.isFile() && !info.isDir()) continue;
    listing.push_back({files.fileName().toLower(), files.fileName(), info.isDir(), isLink});
  }
  std::ranges::sort(listing, [](const Entry& a, const Entry& b) {
    return a.key != b.key ? a.key < b.key : a.name < b.name;
  });
  return listing;
}

const Folder::Listing& Folder::ListingOf(const QString& folder) const {
  const auto known = listings_.constFind(folder);
  if (known != listings_.cend()) return *known;
  return *listings_.insert(folder, List(folder));
}

const Folder::Entry* Folder::Lookup(const QString& folder, const QString& name) const {
  const Listing& listing = ListingOf(folder);
  const QString key = name.toLower();
  const auto first = std::ranges::lower_bound(listing, key, {}, &Entry::key);
  const Entry* found = nullptr;
  for (auto entry = first; entry != listing.end() && entry->key == key; ++entry) {
    if (entry->name == name) return &*entry;
    if (!found) found = &*entry;
  }
  return found;
}

QString Folder::WhereItLeads(const QString& path) const {
  const QString real = QFileInfo(path).canonicalFilePath();
  const QString realRoot = QFileInfo(root_).canonicalFilePath();
  if (real.isEmpty() || realRoot.isEmpty()) return {};
  const bool isInside = real.startsWith(realRoot.endsWith(u'/') ? realRoot : realRoot + u'/');
  return isInside ? real : QString();
}

QString Folder::PathOf(const QString& folder, const Entry& entry) const {
  const QString path = (folder.endsWith(u'/') ? folder : folder + u'/') + entry.name;
  return entry.isLink && WhereItLeads(path).isEmpty() ? QString() : path;
}

QString Folder::FolderIn(const QString& folder, const QString& name) const {
  const Entry* const entry = IsSimpleName(name) ? Lookup(folder, name) : nullptr;
  return entry && entry->isFolder ? PathOf(folder, *entry) : QString();
}

QString Folder::FileIn(const QString& folder, const QString& name) const {
  if (!IsSimpleName(name)) return {};
  // Nearly every name is that of the disk, and listing a folder of 20,000 pages takes its time.
  if (!listings_.contains(folder)) {
    const QFileInfo info(folder + u'/' + name);
    if (info.isFile() && !info.isSymLink()) return folder + u'/' + name;
  }
  const Entry* const entry = Lookup(folder, name);
  return entry && !entry->isFolder ? PathOf(folder, *entry) : QString();
}

QString Folder::ResolveFolder(const QString& pathInBook) const {
  const auto known = folders_.constFind(pathInBook);
  if (known != folders_.cend()) return *known;
  QString folder = root_;
  const QStringList names = WithSlashes(pathInBook).split(u'/');
  for (const QString& name : names) {
    if (!folder.isEmpty()) folder = FolderIn(folder, name);
  }
  folders_.insert(pathInBook, folder);
  return folder;
}

Folder::Place Folder::PlaceOf(const QString& pathInBook) const {
  const QString path = WithSlashes(pathInBook);
  const qsizetype slash = path.lastIndexOf(u'/');
  return {slash < 0 ? root_ : ResolveFolder(path.first(slash)), path.sliced(slash + 1)};
}

QString Folder::Expected(const QString& pathInBook) const {
  const auto [folder, name] = PlaceOf(pathInBook);
  return folder.isEmpty() || !IsSimpleName(name) ? QString() : folder + u'/' + name;
}

QString Folder::Resolve(const QString& pathInBook) const {
  const auto [folder, name] = PlaceOf(pathInBook);
  return folder.isEmpty() ? QString() : FileIn(folder, name);
}

QString Folder::Needed(const QString& pathInBook) const {
  QString path = Resolve(pathInBook);
  if (path.isEmpty()) {
    qWarning().noquote() << "Can't be read:" << WithSigns(root_ + u'/' + pathInBook);
  }
  return path;
}

QStringList Folder::NamesIn(const QString& folderInBook, const QString& pattern) const {
  const QString folder = ResolveFolder(folderInBook);
  QStringList names;
  if (folder.isEmpty()) return names;
  QDirIterator files(folder, {pattern}, QDir::AllEntries | QDir::Hidden | QDir::System);
  while (files.hasNext()) {
    files.next();
    names += files.fileName();
  }
  return names;
}

QStringList Folder::AllWithStem(const QString& stem) const {
  const auto [folder, name] = PlaceOf(stem);
  if (folder.isEmpty() || !IsSimpleName(name)) return {};
  const Listing& listing = ListingOf(folder);
  const QString key = name.toLower() + u'.';
  QStringList paths;
  for (auto entry = std::ranges::lower_bound(listing, key, {}, &Entry::key);
       entry != listing.end() && entry->key.startsWith(key); ++entry) {
    if (entry->isFolder || entry->key.indexOf(u'.', key.size()) >= 0) continue;
    const QString found = PathOf(folder, *entry);
    if (!found.isEmpty()) paths += found;
  }
  return paths;
}

QString Folder::WithStem(const QString& stem, const QStringList& extensions) const {
  const QStringList paths = AllWithStem(stem);
  for (const QString& extension : extensions) {
    for (const QString& path : paths) {
      if (path.endsWith(extension, Qt::CaseInsensitive)) return path;
    }
  }
  return {};
}

}  // namespace book
