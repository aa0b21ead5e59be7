#include "viewer/hits_model.h"

#include <utility>

#include "viewer/look.h"
#include "viewer/texts.h"

namespace viewer {

void HitsModel::Clear() {
  beginResetModel();
  hits_.clear();
  groups_.clear();
  rows_.clear();
  endResetModel();
}

void HitsModel::AppendHit(book::Hit&& hit) {
  const bool isFirst =
      groups_.empty() || !book::AreSame(hits_[groups_.back().first].collection, hit.collection);
  if (isFirst) {
    rows_.push_back({true, groups_.size()});
    groups_.push_back({hits_.size(), 0});
  }
  ++groups_.back().count;
  rows_.push_back({false, hits_.size()});
  hits_.push_back(std::move(hit));
}

void HitsModel::Append(std::vector<book::Hit>&& more) {
  if (more.empty()) return;
  // How many rows there will be is known by the collections.
  qsizetype added = static_cast<qsizetype>(more.size());
  const book::Hit* before = hits_.empty() ? nullptr : &hits_.back();
  for (const book::Hit& hit : more) {
    if (before == nullptr || !book::AreSame(before->collection, hit.collection)) ++added;
    before = &hit;
  }
  const int first = rowCount();
  beginInsertRows({}, first, first + static_cast<int>(added) - 1);
  for (book::Hit& hit : more) AppendHit(std::move(hit));
  endInsertRows();
  emit dataChanged(index(0), index(rowCount() - 1));  // the counts
}

const book::Hit* HitsModel::HitAt(const QModelIndex& index) const {
  const auto row = static_cast<std::size_t>(index.row());
  if (!index.isValid() || row >= rows_.size() || rows_[row].isGroup) return nullptr;
  return &hits_[rows_[row].number];
}

int HitsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QString HitsModel::TitleOf(const Group& group) const {
  return texts::CountOfCollection().arg(AsCaption(hits_[group.first].collection.title),
                                        PersianNumber(group.count));
}

QVariant HitsModel::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  if (role != Qt::DisplayRole || row >= rows_.size()) return {};
  const auto [isGroup, number] = rows_[row];
  return isGroup ? TitleOf(groups_[number]) : AsCaption(hits_[number].title);
}

// The arrows pass over the row of a collection.
Qt::ItemFlags HitsModel::flags(const QModelIndex& index) const {
  return HitAt(index) == nullptr ? Qt::ItemNeverHasChildren : QAbstractListModel::flags(index);
}

}  // namespace viewer
