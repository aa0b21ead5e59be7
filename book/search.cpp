#include "book/search.h"

#include <utility>

#include "book/contents.h"
#include "book/raw_file.h"

namespace book {
namespace {

class Searcher {
 public:
  Searcher(const Folder& book, PageSearch search, const std::function<bool(Hit&&)>& onHit,
           const std::function<bool()>& goesOn)
      : book_(book), search_(std::move(search)), onHit_(onHit), goesOn_(goesOn) {}

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
    std::optional<Match> match = search_.Find(BytesOf(node.source));
    if (!match) return true;
    Hit hit{std::move(*match), collection, index, node.source};
    if (hit.title.isEmpty()) hit.title = node.label;
    return onHit_(std::move(hit));
  }

  const Folder& book_;
  PageSearch search_;
  const std::function<bool(Hit&&)>& onHit_;
  const std::function<bool()>& goesOn_;
  RawFile file_;
};

}  // namespace

void SearchBook(const Folder& book, const QString& words, const std::function<bool(Hit&&)>& onHit,
                const std::function<bool()>& goesOn) {
  PageSearch search(words);
  if (!search.HasWords()) return;
  Searcher searcher(book, std::move(search), onHit, goesOn);
  const Index index = ReadIndex(book);
  for (const Collection& collection : index.collections) {
    if (!HoldsGallery(book, collection) && !searcher.SearchCollection(collection)) return;
  }
}

}  // namespace book
