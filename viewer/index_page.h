// The first page of a book: its collections, in three rows.
#pragma once

#include <QAbstractButton>
#include <QScrollArea>
#include <functional>
#include <vector>

#include "viewer/book/folder.h"
#include "viewer/book/index.h"
#include "viewer/look.h"
#include "viewer/pictures.h"

namespace viewer {

// One collection: its picture and its title. Its objectName is the collection's key, as "a1".
class CollectionCard : public QAbstractButton {
 public:
  CollectionCard(const BookFolder& book, const Collection& collection, const Look& look,
                 Pictures& pictures, QWidget* parent);

  const Collection& Shown() const { return collection_; }
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
  bool IsPointedAt() const { return hasFocus() || underMouse(); }
  QRect CoverBox() const;

  const BookFolder& book_;
  Collection collection_;
  QString caption_;
  const Look& look_;
  Pictures& pictures_;
  QString picture_;
  bool looked_ = false;
};

// The rows as shelves (first template), or as walls of pictures (second).
class IndexPage : public QScrollArea {
 public:
  IndexPage(const BookFolder& book, const Index& index, const Look& look, Pictures& pictures);

  std::function<void(const Collection&)> onChosen;

  // The pictures and the credit: what the first paint doesn't wait for.
  void ShowTheRest();
  void FocusCard(const Collection& collection);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class Shelves;
  void Place();
  void Step(int key);
  CollectionCard* Nearest(const CollectionCard& from, int key) const;

  const Look& look_;
  QString credit_;
  Shelves* shelves_;
  std::vector<CollectionCard*> cards_;
};

}  // namespace viewer
