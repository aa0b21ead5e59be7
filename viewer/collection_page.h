// A text collection: its table of contents, and the entry that is read.
#pragma once

#include <QLineEdit>
#include <QStackedWidget>
#include <QWidget>
#include <map>
#include <vector>

#include "book/index.h"
#include "book/search.h"
#include "viewer/contents_list.h"
#include "viewer/entry_bar.h"
#include "viewer/find_bar.h"
#include "viewer/gallery_view.h"
#include "viewer/memory.h"
#include "viewer/page_view.h"
#include "viewer/section_bar.h"
#include "viewer/surroundings.h"

namespace viewer {

// In the first template the contents stand beside the page, in the second they are a page of their
// own before the text.
class CollectionPage : public QWidget {
 public:
  CollectionPage(const Surroundings& surroundings, QWidget* parent);

  void Open(const book::Collection& collection);
  // At an entry that a search has found.
  void OpenAt(const book::Hit& hit, const book::Wish& wish);

  // From the text to the contents, where these are a page of their own; false if there is nowhere
  // to go back to but the index.
  [[nodiscard]] bool GoBack();
  void Step(int step);
  void Print();
  // Where the letters, the digits or the colours are others by now.
  void SetStyle(const ReadingStyle& style);
  // At a place of the collection that may be gone by now: then it opens as always.
  void OpenPlace(const book::Collection& collection, const BookPlace& place);
  BookPlace ReadersPlace() const;
  // In the page that is open.
  void GoToPlace(book::PagePlace place);
  QString EntryTitle() const;
  std::function<void(int step)> onZoom;
  // The reader goes from one entry to another, and has come there.
  std::function<void()> onLeave;
  std::function<void()> onArrive;
  // False where no page is to be seen.
  [[nodiscard]] bool FindInPage();
  void Silence() { bar_.Silence(); }
  int Current() const { return current_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Load(const book::Collection& collection);
  void ShowEntry(int node, const book::Query& words = {});
  void ShowPage(const book::Node& node, const book::Query& words);
  void ShowText(bool text);
  void Go(int node);
  void MakeFindBar();
  void MakeFilter();
  void PrintOn(QPrinter& printer);
  bool IsApart() const { return surroundings_.look.layout.contents == Layout::Contents::kApart; }
  QRect CoverBox() const;
  void Arrange();
  void PlaceContents(const QRect& box);

  const Surroundings& surroundings_;
  book::Collection collection_;
  QString picture_;
  int current_ = -1;
  ReadingStyle style_;
  bool readsText_ = false;
  ContentsList contents_;
  QWidget reader_;
  QStackedWidget sheets_;
  PageView page_;
  GalleryView gallery_;
  SectionBar sections_;
  EntryBar bar_;
  FindBar find_;
  QLineEdit filter_;
  std::map<QString, std::vector<bool>> openParts_;  // of the collections that were read
};

}  // namespace viewer
