#include "filed/entry_table.h"

namespace filed {

using platform::Column;
using platform::Text;

namespace {

// Of a table that may be changed or of one that may not.
template <typename Table>
auto& ColumnOf(Table& table, core::Medium medium) {
  switch (medium) {
    case core::Medium::kAttachment:
      return table.entryAttach;
    case core::Medium::kSound:
      return table.entrySound;
    case core::Medium::kFilm:
      return table.entryFilm;
    case core::Medium::kBackground:
      break;
  }
  return table.entryBack;
}

}  // namespace

const Text& GalleryTable::operator()(std::ptrdiff_t slot, std::size_t column) const {
  if (column >= columns_.size()) throw platform::Failure(u"Subscript out of range");
  return columns_[column](slot);
}

void GalleryTable::Set(std::ptrdiff_t slot, std::size_t column, Text value) {
  if (column >= columns_.size()) throw platform::Failure(u"Subscript out of range");
  columns_[column].Set(slot, std::move(value));
}

void GalleryTable::Clear() {
  for (Column<Text>& column : columns_) column.Clear();
}

Column<Text>& EntryTable::Media(core::Medium medium) { return ColumnOf(*this, medium); }

const Column<Text>& EntryTable::Media(core::Medium medium) const { return ColumnOf(*this, medium); }

core::PerMedium<bool> EntryTable::Attached(std::ptrdiff_t row) const {
  core::PerMedium<bool> attached;
  for (const core::MediumRow& each : core::kMedia) {
    attached[each.medium] = !Media(each.medium)(row).empty();
  }
  return attached;
}

void EntryTable::Clear() {
  ForEachColumn(*this, [](int, auto& column) { column.Clear(); });
  closedGaps.clear();
}

std::vector<Column<Text>*> EntryTable::MovingColumns() {
  std::vector<Column<Text>*> moving = {&entryTitle, &entryText};
  for (const core::MediumRow& each : core::kMedia) {
    if (each.movesUp) moving.push_back(&Media(each.medium));
  }
  return moving;
}

// A row without a title ends the walk and keeps what else it holds.
void EntryTable::CloseGap(std::ptrdiff_t row) {
  if (entryTitle(row).empty()) return;
  std::ptrdiff_t last = row + 1;
  while (!entryTitle(last).empty()) ++last;
  for (Column<Text>* column : MovingColumns()) column->MoveUp(row, last);
  closedGaps.push_back({row, last});
}

}  // namespace filed
