#include "recovery/changes.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

#include "platform/column.h"
#include "recovery/bytes.h"
#include "recovery/piece.h"

namespace recovery {

using platform::Column;
using platform::Position;
using platform::RowRange;
using platform::Text;
using platform::TextView;

namespace {

using Grid = Column<Column<Text>>;

// After so many bytes a whole record begins its next piece.
constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;
// So many characters of a text are one part.
constexpr Position kPartLength = Position{64} * 1024;

// Gathers what a piece tells.
class Writer {
 public:
  explicit Writer(const RecordSink& sink) : sink_(sink) {}

  template <typename... Numbers>
  void Tell(Change change, Numbers... numbers) {
    AppendNumber(content_, static_cast<std::uint64_t>(change));
    (AppendNumber(content_, static_cast<std::uint64_t>(numbers)), ...);
  }
  void Add(TextView text) { AppendText(content_, text); }
  // A number that may be below 0.
  void TellNumber(std::size_t number, std::ptrdiff_t value) {
    const std::uint64_t sign = value < 0 ? 1 : 0;
    const std::uint64_t size =
        sign == 0 ? static_cast<std::uint64_t>(value) : ~static_cast<std::uint64_t>(value);
    Tell(Change::kNumber, number, size << 1 | sign);
  }
  std::size_t Size() const { return content_.size(); }
  // What was told since the last piece is one, unless that is nothing.
  void EndPiece() {
    if (content_.empty()) return;
    piece_.clear();
    AppendPiece(piece_, content_);
    content_.clear();
    sink_(piece_);
  }

 private:
  const RecordSink& sink_;
  std::string content_;
  std::string piece_;
};

TextView AsText(const Text& value) { return value; }
TextView AsText(char flag) { return flag != 0 ? TextView(u"1") : TextView(); }

template <typename T>
void AddRows(Writer& writer, const Column<T>& column, RowRange rows) {
  for (std::ptrdiff_t row = rows.first; row < rows.end; ++row) writer.Add(AsText(column(row)));
}

template <typename T>
void TellRows(Writer& writer, int number, const Column<T>& column, RowRange rows) {
  if (rows.IsEmpty()) return;
  writer.Tell(Change::kRows, number, rows.first, rows.end - rows.first);
  AddRows(writer, column, rows);
}

void TellSlots(Writer& writer, int number, std::ptrdiff_t row, const Column<Text>& slots,
               RowRange range) {
  if (range.IsEmpty()) return;
  writer.Tell(Change::kSlots, number, row, range.first, range.end - range.first);
  AddRows(writer, slots, range);
}

template <typename T>
void TellTouched(Writer& writer, int number, Column<T>& column) {
  TellRows(writer, number, column, column.Touched());
  column.Settle();
}

void TellTouched(Writer& writer, int number, Grid& grid) {
  const RowRange rows = grid.Touched();
  for (std::ptrdiff_t row = rows.first; row < rows.end; ++row) {
    Column<Text>& slots = grid.At(row);
    if (slots.WasCleared()) writer.Tell(Change::kClearSlots, number, row);
    TellSlots(writer, number, row, slots, slots.Touched());
    slots.Settle();
  }
  grid.Settle();
}

// Whatever the touched rows are told by now, they stand where the moves left them, so the moves
// come first.
void TellMoves(Writer& writer, filed::FiledWork& filed) {
  ForEachColumn(filed, [&](int number, auto& column) {
    if (column.WasCleared()) writer.Tell(Change::kClear, number);
  });
  for (const RowRange& gap : filed.table.closedGaps) {
    writer.Tell(Change::kGap, gap.first, gap.end);
  }
  filed.table.closedGaps.clear();
  for (const filed::EntryLines::Shift& shift : filed.lines.Shifts()) {
    writer.Tell(shift.came ? Change::kLineCame : Change::kLineWent, shift.row);
  }
}

// Of a long text all parts but the last end pieces of their own, so nothing may stand in the writer
// yet.
void TellRest(Writer& writer, const RestPart& rest, platform::TextEdit edit) {
  Position at = edit.start;
  const Position end = edit.start + edit.added;
  for (; end - at > kPartLength; at += kPartLength) {
    writer.Tell(Change::kRestPart);
    writer.Add(rest(at, kPartLength));
    writer.EndPiece();
  }
  writer.Tell(Change::kRest, edit.start, edit.removed);
  writer.Add(rest(at, end - at));
}

void TellTexts(Writer& writer, const LiveWork& work, Recorded& recorded,
               std::size_t end = kTextFields) {
  ForEachText(work, [&](std::size_t number, const Text& text) {
    if (number >= end || recorded.texts[number] == text) return;
    recorded.texts[number] = text;
    writer.Tell(Change::kText, number);
    writer.Add(text);
  });
}

void TellNumbers(Writer& writer, const LiveWork& work, Recorded& recorded) {
  ForEachNumber(work, [&](std::size_t number, auto value) {
    const auto now = static_cast<std::ptrdiff_t>(value);
    if (std::exchange(recorded.numbers[number], now) != now) writer.TellNumber(number, now);
  });
}

template <typename T>
void SettleColumn(Column<T>& column) {
  column.Settle();
}

void SettleColumn(Grid& grid) {
  for (std::ptrdiff_t row = 0; row < grid.Count(); ++row) grid.At(row).Settle();
  grid.Settle();
}

void Settle(filed::FiledWork& filed) {
  ForEachColumn(filed, [](int, auto& column) { SettleColumn(column); });
  filed.table.closedGaps.clear();
  filed.lines.Settle();
}

// A row of each column that has rows of entries.
class RowTeller {
 public:
  RowTeller(Writer& writer, std::ptrdiff_t row) : writer_(writer), row_(row) {}

  template <typename T>
  void operator()(int number, Column<T>& column) const {
    if (row_ < column.Count()) TellRows(writer_, number, column, {row_, row_ + 1});
  }
  void operator()(int number, Grid& grid) const {
    const Column<Text>& slots = std::as_const(grid)(row_);
    TellSlots(writer_, number, row_, slots, {0, slots.Count()});
  }

 private:
  Writer& writer_;
  std::ptrdiff_t row_;
};

}  // namespace

void TellChanges(LiveWork& work, Recorded& recorded, const RecordSink& sink) {
  Writer writer(sink);
  if (work.restEdit) TellRest(writer, work.rest, *work.restEdit);
  TellMoves(writer, work.filed);
  ForEachColumn(work.filed, [&](int number, auto& column) { TellTouched(writer, number, column); });
  work.filed.lines.Settle();
  TellTexts(writer, work, recorded);
  TellNumbers(writer, work, recorded);
  writer.EndPiece();
}

void TellWhole(LiveWork& work, Recorded& recorded, const RecordSink& sink) {
  Settle(work.filed);
  recorded = {};
  sink(HeadBytes());
  Writer writer(sink);
  TellTexts(writer, work, recorded, kCollectionTexts);
  writer.EndPiece();
  TellTexts(writer, work, recorded);
  writer.EndPiece();
  TellRest(writer, work.rest, {.added = work.restLength});
  writer.EndPiece();
  const std::ptrdiff_t rows = LongestColumn(work.filed);
  for (std::ptrdiff_t row = 0; row < rows; ++row) {
    ForEachColumn(work.filed, RowTeller(writer, row));
    if (writer.Size() < kPieceBytes) continue;
    writer.TellNumber(kEntryCountNumber, std::min(row + 1, work.filed.entryCount));
    writer.EndPiece();
  }
  TellNumbers(writer, work, recorded);
  writer.EndPiece();
}

}  // namespace recovery
