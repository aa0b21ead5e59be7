#include "viewer/book/search.h"

#include <QStringList>
#include <QtEndian>
#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "viewer/book/contents.h"
#include "viewer/book/fold.h"
#include "viewer/book/page.h"
#include "viewer/book/raw_file.h"
#include "viewer/book/text_file.h"

namespace viewer {
namespace {

class Searcher {
 public:
  Searcher(const BookFolder& book, const QStringList& words,
           const std::function<bool(Hit&&)>& onHit, const std::function<bool()>& goesOn)
      : book_(book), words_(words), onHit_(onHit), goesOn_(goesOn) {}

  // False if the search is to end.
  bool SearchCollection(const Collection& collection) {
    if (!GoesOn()) return false;
    const Contents contents = ReadContents(book_, collection);
    for (std::size_t i = 0; i < contents.nodes.size(); ++i) {
      const Node& node = contents.nodes[i];
      if (node.isTitle || node.isGallery) continue;
      if (!GoesOn() || !SearchPage(collection, static_cast<int>(i), node)) return false;
    }
    return true;
  }

 private:
  bool GoesOn() const { return !goesOn_ || goesOn_(); }

  QByteArrayView BytesOf(const QString& source) {
    const QByteArrayView bytes = file_.Read(book_.Expected(source));
    return bytes.isNull() ? file_.Read(book_.Resolve(source)) : bytes;
  }

  bool SearchPage(const Collection& collection, int index, const Node& node) {
    const QByteArrayView bytes = BytesOf(node.source);
    if (IsLittleEndian(bytes) && !sieve_.MayHoldAll(bytes, words_)) return true;
    const Page page = ParsePage(DecodeText(bytes));
    Hit hit;
    if (!Confirm(hit, page, words_)) return true;
    hit.collection = collection;
    hit.node = index;
    hit.source = node.source;
    hit.title = page.title.isEmpty() ? node.label : page.title;
    return onHit_(std::move(hit));
  }

  const BookFolder& book_;
  const QStringList& words_;
  const std::function<bool(Hit&&)>& onHit_;
  const std::function<bool()>& goesOn_;
  RawFile file_;
  Sieve sieve_;
};

}  // namespace

void SearchBook(const BookFolder& book, const QString& words,
                const std::function<bool(Hit&&)>& onHit, const std::function<bool()>& goesOn) {
  const QStringList folded = WordsOf(words);
  if (folded.isEmpty()) return;
  Searcher searcher(book, folded, onHit, goesOn);
  const Index index = ReadIndex(book);
  for (const Collection& collection : index.collections) {
    if (!collection.isGallery && !searcher.SearchCollection(collection)) return;
  }
}

}  // namespace viewer
