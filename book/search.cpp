#include "book/search.h"

#include <QFile>
#include <utility>
#include <vector>

#include "book/contents.h"
#include "book/page_crew.h"
#include "book/raw_file.h"

namespace book {
namespace {

class Searcher {
 public:
  Searcher(const Folder& book, const Query& query, const std::function<bool(Hit&&)>& onHit,
           const std::function<bool()>& goesOn)
      : book_(book), query_(query), search_(query), onHit_(onHit), goesOn_(goesOn) {}

  // False if the search is to end.
  bool SearchCollection(const Collection& collection) {
    if (!GoesOn()) return false;
    const Contents contents = ReadContents(book_, collection);
    const std::vector<int> pages = PagesOf(contents);
    PageCrew crew(query_, PathsOf(contents, pages));
    for (std::size_t i = 0; i < pages.size(); ++i) {
      if (!GoesOn()) return false;
      const Node& node = contents.nodes[static_cast<std::size_t>(pages[i])];
      std::optional<Match> match = MatchOf(crew.Take(i), node);
      if (match && !Tell(std::move(*match), collection, pages[i], node)) return false;
    }
    return true;
  }

 private:
  bool GoesOn() const { return !goesOn_ || goesOn_(); }

  static std::vector<int> PagesOf(const Contents& contents) {
    std::vector<int> pages;
    for (std::size_t i = 0; i < contents.nodes.size(); ++i) {
      const Node& node = contents.nodes[i];
      if (!node.isTitle && !node.isGallery) pages.push_back(static_cast<int>(i));
    }
    return pages;
  }

  std::vector<QByteArray> PathsOf(const Contents& contents, const std::vector<int>& pages) const {
    std::vector<QByteArray> paths;
    paths.reserve(pages.size());
    for (const int page : pages) {
      const Node& node = contents.nodes[static_cast<std::size_t>(page)];
      paths.push_back(QFile::encodeName(book_.Expected(node.source)));
    }
    return paths;
  }

  // The letter case of a page's name needn't be that of the disk.
  std::optional<Match> MatchOf(Finding finding, const Node& node) {
    if (finding.isRead) return std::move(finding.match);
    return search_.Find(file_.Read(book_.Resolve(node.source)));
  }

  bool Tell(Match match, const Collection& collection, int index, const Node& node) {
    Hit hit{std::move(match), collection, index, node.source};
    if (hit.title.isEmpty()) hit.title = node.label;
    return onHit_(std::move(hit));
  }

  const Folder& book_;
  const Query& query_;
  PageSearch search_;
  const std::function<bool(Hit&&)>& onHit_;
  const std::function<bool()>& goesOn_;
  RawFile file_;
};

}  // namespace

void SearchBook(const Folder& book, const Wish& wish, const std::function<bool(Hit&&)>& onHit,
                const std::function<bool()>& goesOn) {
  const Query query(wish);
  if (query.IsEmpty()) return;
  Searcher searcher(book, query, onHit, goesOn);
  const Index index = ReadIndex(book);
  for (const Collection& collection : index.collections) {
    if (!HoldsGallery(book, collection) && !searcher.SearchCollection(collection)) return;
  }
}

}  // namespace book
