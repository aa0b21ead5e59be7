// The files of a book as the player reads them. The first byte says which kind the rest is.
#include <QLoggingCategory>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>

#include "book/contents.h"
#include "book/fold.h"
#include "book/folder.h"
#include "book/gallery.h"
#include "book/index.h"
#include "book/page.h"
#include "book/settings.h"
#include "book/text_file.h"

namespace {

using book::Folder;

void Require(bool holds) {
  if (!holds) std::abort();
}

// Whatever a file names is in the book or nowhere.
void RequireInside(const QString& pathInBook) {
  const QString root = QStringLiteral("/nowhere/book");
  const book::Folder book(root);
  const QString path = book.Expected(pathInBook);
  Require(path.isEmpty() ||
          (path.startsWith(root + u'/') && !path.contains(QLatin1String("/../"))));
  Require(book.Resolve(pathInBook).isEmpty());
}

void ReadSettings(QStringView text) {
  const book::Settings settings = book::ParseSettings(text);
  Require(settings.layout == 1 || settings.layout == 2);
  for (const int count : settings.counts) Require(count >= 0);
}

void ReadIndex(QStringView text) {
  const book::Index index = book::ParseIndex(text);
  const book::Collection* last = nullptr;
  for (const book::Collection& each : index.collections) {
    Require(each.row >= u'a' && each.row <= u'c' && each.number > 0);
    Require(!last || last->row < each.row || last->number < each.number);
    Require(each.title.size() <= text.size());
    last = &each;
  }
}

void ReadContents(QStringView text) {
  const book::Contents contents = book::ParseContents(text);
  for (std::size_t i = 0; i < contents.nodes.size(); ++i) {
    const book::Node& node = contents.nodes[i];
    Require(node.parent < static_cast<int>(i));
    if (node.parent < 0) {
      Require(node.depth == 0);
    } else {
      const book::Node& parent = contents.nodes[static_cast<std::size_t>(node.parent)];
      Require(parent.isTitle && node.depth == parent.depth + 1);
    }
    RequireInside(node.source);
    RequireInside(node.background);
  }
}

void ReadGallery(QStringView text) {
  for (const book::Picture& picture : book::ParseGallery(text)) RequireInside(picture.path);
}

void ReadPage(QStringView text) {
  const book::Page page = book::ParsePage(text);
  for (const book::PagePart& part : page.parts) {
    if (part.kind == book::PagePart::Kind::kPicture) RequireInside(part.text);
  }
  const QString folded = book::Folded(text);
  constexpr qsizetype kLongestLigature = 18;  // U+FDFA, a whole sentence
  Require(folded.size() <= text.size() * kLongestLigature && book::Folded(folded) == folded);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  QLoggingCategory::defaultCategory()->setEnabled(QtWarningMsg, false);
  if (size == 0) return 0;
  const QString text = book::DecodeText(
      QByteArrayView(reinterpret_cast<const char*>(data) + 1, static_cast<qsizetype>(size) - 1));
  constexpr void (*kReaders[])(QStringView) = {ReadSettings, ReadIndex, ReadContents, ReadGallery,
                                               ReadPage};
  kReaders[data[0] % std::size(kReaders)](text);
  return 0;
}
