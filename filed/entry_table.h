// What the workbench has filed so far: the entry table, whose row i is line i of the list, and the
// pictures of a picture-gallery collection. The columns have no end (platform/column.h); a row
// exists when its entryTitle is not empty. How many rows are filed is FiledWork's entryCount.
#pragma once

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "core/entry_media.h"
#include "gallery/slots.h"
#include "platform/column.h"
#include "platform/text/text.h"

namespace filed {

// A column of flags, false past its end. Failure for a negative row.
class FlagColumn {
 public:
  bool operator()(std::ptrdiff_t row) const { return rows_(row) != 0; }
  void Set(std::ptrdiff_t row, bool value) { rows_.At(row) = value ? 1 : 0; }
  void Clear() { rows_.Clear(); }
  platform::Column<char>& Rows() { return rows_; }

 private:
  platform::Column<char> rows_;
};

// A column of columns: (row, slot), empty past either end. Failure for a negative row or slot.
class TextGrid {
 public:
  const platform::Text& operator()(std::ptrdiff_t row, std::ptrdiff_t slot) const {
    return rows_(row)(slot);
  }
  void Set(std::ptrdiff_t row, std::ptrdiff_t slot, platform::Text value) {
    rows_.At(row).Set(slot, std::move(value));
  }
  // All slots of one row.
  platform::Column<platform::Text>& Row(std::ptrdiff_t row) { return rows_.At(row); }
  void Clear() { rows_.Clear(); }
  platform::Column<platform::Column<platform::Text>>& Rows() { return rows_; }

 private:
  platform::Column<platform::Column<platform::Text>> rows_;
};

// The gallery of a whole collection: (slot, 0) is a picture's path, (slot, 1) its title. Failure
// for another column number.
class GalleryTable {
 public:
  const platform::Text& operator()(std::ptrdiff_t slot, std::size_t column) const;
  void Set(std::ptrdiff_t slot, std::size_t column, platform::Text value);
  gallery::Slots Slots() { return {columns_[0], columns_[1]}; }
  void Clear();

 private:
  std::array<platform::Column<platform::Text>, 2> columns_;
};

struct EntryTable {
  platform::Column<platform::Text> entryTitle;
  platform::Column<platform::Text> entryText;  // rich text; plain for a main title
  platform::Column<platform::Text> entryAttach;
  platform::Column<platform::Text> entrySound;
  platform::Column<platform::Text> entryFilm;
  platform::Column<platform::Text> entryBack;
  FlagColumn entryGallery;
  TextGrid entryGalPath;   // (row, slot)
  TextGrid entryGalTitle;  // (row, slot)

  GalleryTable galleryPic;                       // (slot, column)
  platform::Column<platform::Text> inlineImage;  // by image number

  // The gallery of one entry. Failure for a negative row.
  gallery::Slots EntryGallery(std::ptrdiff_t row) {
    return {entryGalPath.Row(row), entryGalTitle.Row(row)};
  }

  // The column of one kind of medium.
  platform::Column<platform::Text>& Media(core::Medium medium);
  const platform::Column<platform::Text>& Media(core::Medium medium) const;
  // Which kinds the row has.
  core::PerMedium<bool> Attached(std::ptrdiff_t row) const;

  // What ResetA empties: every column.
  void Clear();

  // The rows after `row` move up by one, as far as titles go: title, text, and the media that
  // move. Backgrounds and galleries stay at their row numbers.
  void CloseGap(std::ptrdiff_t row);
  // The columns in which they do.
  std::vector<platform::Column<platform::Text>*> MovingColumns();
  // What CloseGap has done since the last Settle: the row that went, and the first one that stayed.
  std::vector<platform::RowRange> closedGaps;
};

// Calls `visit(number, column)` for every column of the table, a grid or flags among them. The
// numbers stand in records on the disk: a column keeps its own for good, and a new one gets the
// next but for 12, which is that of the list's lines (recovery/work.h).
template <typename Visit>
void ForEachColumn(EntryTable& table, const Visit& visit) {
  visit(0, table.entryTitle);
  visit(1, table.entryText);
  visit(2, table.entryAttach);
  visit(3, table.entrySound);
  visit(4, table.entryFilm);
  visit(5, table.entryBack);
  visit(6, table.entryGallery.Rows());
  visit(7, table.entryGalPath.Rows());
  visit(8, table.entryGalTitle.Rows());
  visit(9, table.galleryPic.Slots().paths);
  visit(10, table.galleryPic.Slots().titles);
  visit(11, table.inlineImage);
}

}  // namespace filed
