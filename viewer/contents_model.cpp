#include "viewer/contents_model.h"

#include <algorithm>

#include "book/fold.h"
#include "viewer/look.h"

namespace viewer {
namespace {

// Short books lie open from the start.
constexpr std::size_t kOpenFromTheStart = 400;

}  // namespace

void ContentsModel::SetContents(book::Contents contents, const std::vector<bool>& openParts) {
  beginResetModel();
  contents_ = std::move(contents);
  const std::size_t count = contents_.nodes.size();
  open_ = openParts;
  if (open_.size() != count) open_.assign(count, count <= kOpenFromTheStart);
  filter_ = {};
  ListRows();
  endResetModel();
}

// A title comes before what it holds, so one pass settles which nodes are to be seen.
void ContentsModel::ListRows() {
  rows_.clear();
  rowOfNode_.assign(contents_.nodes.size(), -1);
  if (!filter_.IsEmpty()) return ListFiltered();
  for (std::size_t i = 0; i < contents_.nodes.size(); ++i) {
    const int parent = contents_.nodes[i].parent;
    const bool known = parent >= 0 && static_cast<std::size_t>(parent) < i;
    const auto above = static_cast<std::size_t>(known ? parent : 0);
    if (known && (!open_[above] || rowOfNode_[above] < 0)) continue;
    rowOfNode_[i] = static_cast<int>(rows_.size());
    rows_.push_back(static_cast<int>(i));
  }
}

bool ContentsModel::HasFilteredWords(std::size_t node) const {
  const QString folded = book::Folded(contents_.nodes[node].label, filter_.Signs());
  return std::ranges::all_of(filter_.Terms(), [&](const book::Term& term) {
    return term.In(book::UnitsOf(folded)).has_value();
  });
}

// From the end on: what is found keeps the titles around it.
void ContentsModel::ListFiltered() {
  std::vector<bool> isKept(contents_.nodes.size());
  for (std::size_t i = contents_.nodes.size(); i-- > 0;) {
    if (!isKept[i] && !HasFilteredWords(i)) continue;
    isKept[i] = true;
    const int parent = contents_.nodes[i].parent;
    if (parent >= 0 && static_cast<std::size_t>(parent) < i) {
      isKept[static_cast<std::size_t>(parent)] = true;
    }
  }
  for (std::size_t i = 0; i < isKept.size(); ++i) {
    if (!isKept[i]) continue;
    rowOfNode_[i] = static_cast<int>(rows_.size());
    rows_.push_back(static_cast<int>(i));
  }
}

void ContentsModel::SetFilter(const book::Query& query) {
  beginResetModel();
  filter_ = query;
  ListRows();
  endResetModel();
}

int ContentsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ContentsModel::data(const QModelIndex& index, int role) const {
  const int node = NodeAt(index);
  if (node < 0) return {};
  const QString& label = contents_.nodes[static_cast<std::size_t>(node)].label;
  if (role == Qt::DisplayRole) return AsCaption(label);
  if (role == Qt::ToolTipRole) return AsToolTip(label);
  return {};
}

int ContentsModel::NodeAt(const QModelIndex& index) const {
  const auto row = static_cast<std::size_t>(index.row());
  return index.isValid() && row < rows_.size() ? rows_[row] : -1;
}

void ContentsModel::SetOpen(int node, bool open) {
  if (IsOpen(node) == open) return;
  emit layoutAboutToBeChanged();
  const QModelIndexList kept = persistentIndexList();
  std::vector<int> keptNodes;
  for (const QModelIndex& index : kept) keptNodes.push_back(NodeAt(index));
  open_[static_cast<std::size_t>(node)] = open;
  ListRows();
  for (qsizetype i = 0; i < kept.size(); ++i) {
    changePersistentIndex(kept[i], RowOf(keptNodes[static_cast<std::size_t>(i)]));
  }
  emit layoutChanged();
}

QModelIndex ContentsModel::RowOf(int node) const {
  if (node < 0 || static_cast<std::size_t>(node) >= rowOfNode_.size()) return {};
  const int row = rowOfNode_[static_cast<std::size_t>(node)];
  return row < 0 ? QModelIndex() : index(row);
}

QModelIndex ContentsModel::Reveal(int node) {
  if (node < 0 || static_cast<std::size_t>(node) >= contents_.nodes.size()) return {};
  if (RowOf(node).isValid()) return RowOf(node);
  beginResetModel();
  for (int above = contents_.nodes[static_cast<std::size_t>(node)].parent; above >= 0;) {
    const auto at = static_cast<std::size_t>(above);
    open_[at] = true;
    const int next = contents_.nodes[at].parent;
    above = next < above ? next : -1;
  }
  ListRows();
  endResetModel();
  return RowOf(node);
}

int ContentsModel::NextEntry(int node, int step) const {
  const int count = static_cast<int>(contents_.nodes.size());
  for (int i = node + step; i >= 0 && i < count; i += step) {
    if (!contents_.nodes[static_cast<std::size_t>(i)].isTitle) return i;
  }
  return -1;
}

}  // namespace viewer
