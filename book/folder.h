// The folder of a book: `Data` with TXT, _xml, IMG and FlashIMG in it, and the player beside it.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace book {

// Finds the files that a book's own files name. Their letter case isn't that of the disk, and they
// are not to be trusted: no path leads out of the folder. What a folder holds is read once, when it
// is first needed. Each thread uses a copy of its own.
class Folder {
 public:
  explicit Folder(const QString& root);

  // The first of the folders that holds a book (Data/_xml/Index.xml), or is the Data of one.
  [[nodiscard]] static std::optional<QString> Find(const QStringList& candidates);

  // Absolute, without a final slash.
  const QString& Root() const { return root_; }

  // "DATA/TXT/x.htm" as the absolute path of an ordinary file; empty where there is none, or where
  // the path leads out of the book (an absolute path, "..", a link).
  QString Resolve(const QString& pathInBook) const;

  // The same, with a warning that names the path where there is none.
  QString Needed(const QString& pathInBook) const;

  // The same without a look at the file itself, as it is if the letter case of its name is that of
  // the disk. Who opens it must neither follow a link nor take it for an ordinary file.
  QString Expected(const QString& pathInBook) const;

  // The same for a folder: "Data/TXT".
  QString ResolveFolder(const QString& pathInBook) const;

  // Where a file of the disk really lies, without a link in its path; empty where there is none, or
  // where it is outside the book.
  QString WhereItLeads(const QString& path) const;

  // What lies in the folder ("Data/_xml") under names of this pattern ("?Title*.xml"), whatever
  // their letter case; in no order, without a look at the files themselves.
  QStringList NamesIn(const QString& folderInBook, const QString& pattern) const;

  // Of the files with this path up to their last dot ("DATA/TXT/x"), the first that has one of the
  // extensions (".mp3"), in the order of the extensions; empty if there is none.
  QString WithStem(const QString& stem, const QStringList& extensions) const;

  // All files with this path up to their last dot, by name.
  QStringList AllWithStem(const QString& stem) const;

 private:
  struct Entry {
    QString key;  // the name in lower case
    QString name;
    bool isFolder = false;
    bool isLink = false;
  };
  using Listing = std::vector<Entry>;
  struct Place {
    QString folder;  // on the disk; empty where there is none
    QString name;    // as the path has it
  };

  static Listing List(const QString& folder);
  static bool IsSimpleName(const QString& name);
  Place PlaceOf(const QString& pathInBook) const;
  const Listing& ListingOf(const QString& folder) const;
  const Entry* Lookup(const QString& folder, const QString& name) const;
  QString FolderIn(const QString& folder, const QString& name) const;
  QString FileIn(const QString& folder, const QString& name) const;
  QString PathOf(const QString& folder, const Entry& entry) const;

  QString root_;
  mutable QHash<QString, Listing> listings_;
  mutable QHash<QString, QString> folders_;  // resolved before, by their path in the book
};

}  // namespace book
