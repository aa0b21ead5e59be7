// What a search has found: for each collection a row with its title and its count, below it its
// hits.
#pragma once

#include <QAbstractListModel>
#include <cstddef>
#include <vector>

#include "book/search.h"

namespace viewer {

class HitsModel : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  void Clear();
  // The hits come in the book's order, those of a collection one after the other.
  void Append(std::vector<book::Hit>&& more);
  std::size_t Count() const { return hits_.size(); }
  // Null for the row of a collection.
  const book::Hit* HitAt(const QModelIndex& index) const;
  QModelIndex FirstHit() const { return index(hits_.empty() ? -1 : 1); }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  struct Group {
    std::size_t first = 0;  // of its hits
    qint64 count = 0;
  };
  struct Row {
    bool isGroup = false;
    std::size_t number = 0;  // of the group, or of the hit
  };
  QString TitleOf(const Group& group) const;
  void AppendHit(book::Hit&& hit);

  std::vector<book::Hit> hits_;
  std::vector<Group> groups_;
  std::vector<Row> rows_;
};

}  // namespace viewer
