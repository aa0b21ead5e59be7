// The rows of a table of contents that are to be seen: a flat list, however deep the titles nest.
#pragma once

#include <QAbstractListModel>
#include <vector>

#include "book/query.h"

#include "book/contents.h"

namespace viewer {

class ContentsModel : public QAbstractListModel {
 public:
  // Beyond it, titles are drawn no further to the left.
  static constexpr int kDeepestIndent = 10;

  // Where no open parts are told, or those of another text, a short one lies open.
  void SetContents(book::Contents contents, const std::vector<bool>& openParts = {});
  const std::vector<bool>& OpenParts() const { return open_; }
  // Which parts are open is the same again without it.
  void SetFilter(const book::Query& query);
  const std::vector<book::Node>& Nodes() const { return contents_.nodes; }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

  int NodeAt(const QModelIndex& index) const;
  bool IsOpen(int node) const { return open_[static_cast<std::size_t>(node)]; }
  void SetOpen(int node, bool open);
  // The row of the node, whose titles are opened for it.
  QModelIndex Reveal(int node);
  QModelIndex RowOf(int node) const;

  // The entry after (1) or before (-1) the node; -1 if there is none. Titles are passed over.
  int NextEntry(int node, int step) const;

 private:
  void ListRows();
  void ListFiltered();
  bool HasFilteredWords(std::size_t node) const;

  book::Contents contents_;
  std::vector<bool> open_;
  book::Query filter_;
  std::vector<int> rows_;       // nodes, in the order of the file
  std::vector<int> rowOfNode_;  // -1 where it isn't seen
};

}  // namespace viewer
