#include "workbench/entry_table.h"

namespace workbench {

using platform::Column;
using platform::Text;

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

void EntryTable::Clear() {
  for (Column<Text>* column :
       {&entryTitle, &entryText, &entryAttach, &entryBack, &entrySound, &entryFilm, &inlineImage}) {
    column->Clear();
  }
  galleryPic.Clear();
  entryGalPath.Clear();
  entryGalTitle.Clear();
  entryGallery.Clear();
}

void EntryTable::CloseGap(std::ptrdiff_t row) {
  for (bool filed = !entryTitle(row).empty(); filed; ++row) {
    filed = !entryTitle(row + 1).empty();
    for (Column<Text>* column : {&entryTitle, &entryText, &entryAttach, &entrySound, &entryFilm}) {
      // A row without a title ends the walk and keeps what else it holds, so that one is copied.
      Text& next = column->At(row + 1);
      column->Set(row, filed ? std::move(next) : next);
    }
  }
}

}  // namespace workbench
