// The files of a book as the player reads them. The first byte says which kind the rest is.
#include <QLoggingCategory>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>

#include "viewer/book/contents.h"
#include "viewer/book/fold.h"
#include "viewer/book/folder.h"
#include "viewer/book/gallery.h"
#include "viewer/book/index.h"
#include "viewer/book/page.h"
#include "viewer/book/settings.h"
#include "viewer/book/text_file.h"

namespace {

using viewer::BookFolder;

void Require(bool holds) {
  if (!holds) std::abort();
}

// Whatever a file names is in the book or nowhere.
void RequireInside(const QString& pathInBook) {
  const QString root = QStringLiteral("/nowhere/book");
  const BookFolder book(root);
  const QString path = book.Expected(pathInBook);
  Require(path.isEmpty() ||
          (path.startsWith(root + u'/') && !path.contains(QLatin1String("/../"))));
  Require(book.Resolve(pathInBook).isEmpty());
}

void ReadSettings(QStringView text) {
  const viewer::Settings settings = viewer::ParseSettings(text);
  Require(settings.layout == 1 || settings.layout == 2);
  for (const int count : settings.counts) Require(count >= 0);
}

void ReadIndex(QStringView text) {
  const viewer::Index index = viewer::ParseIndex(text);
  const viewer::Collection* last = nullptr;
  for (const viewer::Collection& each : index.collections) {
    Require(each.row >= u'a' && each.row <= u'c' && each.number > 0);
    Require(!last || last->row < each.row || last->number < each.number);
    Require(each.title.size() <= text.size());
    last = &each;
  }
}

void ReadContents(QStringView text) {
  const viewer::Contents contents = viewer::ParseContents(text);
  for (std::size_t i = 0; i < contents.nodes.size(); ++i) {
    const viewer::Node& node = contents.nodes[i];
    Require(node.parent < static_cast<int>(i));
    if (node.parent < 0) {
      Require(node.depth == 0);
    } else {
      const viewer::Node& parent = contents.nodes[static_cast<std::size_t>(node.parent)];
      Require(parent.isTitle && node.depth == parent.depth + 1);
    }
    RequireInside(node.source);
    RequireInside(node.background);
  }
}

void ReadGallery(QStringView text) {
  for (const viewer::Picture& picture : viewer::ParseGallery(text)) RequireInside(picture.path);
}

void ReadPage(QStringView text) {
  const viewer::Page page = viewer::ParsePage(text);
  for (const viewer::PagePart& part : page.parts) {
    if (part.kind == viewer::PagePart::Kind::kPicture) RequireInside(part.text);
  }
  const QString folded = viewer::Folded(text);
  constexpr qsizetype kLongestLigature = 18;  // U+FDFA, a whole sentence
  Require(folded.size() <= text.size() * kLongestLigature && viewer::Folded(folded) == folded);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  QLoggingCategory::defaultCategory()->setEnabled(QtWarningMsg, false);
  if (size == 0) return 0;
  const QString text = viewer::DecodeText(
      QByteArrayView(reinterpret_cast<const char*>(data) + 1, static_cast<qsizetype>(size) - 1));
  constexpr void (*kReaders[])(QStringView) = {ReadSettings, ReadIndex, ReadContents, ReadGallery,
                                               ReadPage};
  kReaders[data[0] % std::size(kReaders)](text);
  return 0;
}
