// The first page of a book: its collections, in three rows.
#pragma once

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <cstddef>
#include <functional>
#include <map>
#include <vector>

#include "book/folder.h"
#include "book/index.h"
#include "viewer/look.h"
#include "viewer/pictures.h"
#include "viewer/shelf_plan.h"

namespace viewer {

// One collection: its picture and its title. Its objectName is the collection's key, as "a1".
class CollectionCard : public QAbstractButton {
 public:
  CollectionCard(const book::Folder& book, const book::Collection& collection, const Look& look,
                 Pictures& pictures, QWidget* parent);

  const book::Collection& Shown() const { return collection_; }
  // Looks for the picture. Until then there is a plain ground.
  void ShowPicture();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void PaintCover(QPainter& painter, const QPixmap& cover) const;
  void PaintBesideCover(QPainter& painter, const QPixmap& cover) const;
  void PaintOverCover(QPainter& painter, const QPixmap& cover) const;
  bool IsOverPicture() const { return look_.layout.cards == Layout::Cards::kOverPicture; }
  bool IsPointedAt() const { return hasFocus() || underMouse(); }
  QRect CoverBox() const;

  const book::Folder& book_;
  book::Collection collection_;
  const Look& look_;
  Pictures& pictures_;
  QString picture_;
  bool looked_ = false;
};

// The rows as shelves (first template), or as walls of pictures (second). Has a card only for what
// is near the view: a book may have any number of collections. The index must outlive it.
class IndexPage : public QAbstractScrollArea {
 public:
  IndexPage(const book::Folder& book, const book::Index& index, const Look& look,
            Pictures& pictures);

  std::function<void(const book::Collection&)> onChosen;

  // The pictures and the credit: what the first paint doesn't wait for.
  void ShowTheRest();
  void FocusCard(const book::Collection& collection);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  class Shelves;
  void Focus(std::size_t number);
  CollectionCard& CardOf(std::size_t number);
  void Arrange();
  void DropCardsBut(std::size_t from, std::size_t until);
  void OrderCards();
  void ScrollTo(std::size_t number);
  std::size_t NumberOf(const QObject* card) const;
  [[nodiscard]] bool Step(int key);
  std::size_t Nearest(std::size_t from, int key) const;

  const book::Folder& book_;
  const std::vector<book::Collection>& collections_;
  const Look& look_;
  Pictures& pictures_;
  QString credit_;
  ShelfPlan plan_;
  Shelves* shelves_;
  std::map<std::size_t, CollectionCard*> cards_;  // by their number in the book
  std::size_t current_ = 0;                       // has the focus, or had it last
  bool isChanged_ = false;                        // cards have come since they were ordered
  bool showsAll_ = false;
};

}  // namespace viewer
