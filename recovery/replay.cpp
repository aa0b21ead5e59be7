#include "recovery/replay.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "platform/column.h"
#include "platform/failure.h"
#include "recovery/bytes.h"
#include "recovery/changes.h"
#include "recovery/piece.h"
#include "recovery/rest_text.h"

namespace recovery {

using platform::Column;
using platform::Failure;
using platform::Text;

namespace {

using Grid = Column<Column<Text>>;

constexpr std::ptrdiff_t kAnyCount = PTRDIFF_MAX;
// No row above it can be opened in the paragraph window, so none has a gallery of its own.
constexpr std::ptrdiff_t kMostGridRows = 32768;

void Take(Text& cell, Text told) { cell = std::move(told); }
void Take(char& flag, const Text& told) { flag = told.empty() ? 0 : 1; }

// Carries out what the pieces tell.
class Replay {
 public:
  void Piece(std::string_view content) {
    Reader piece(content);
    while (!piece.IsAtEnd()) Step(piece);
  }

  Work TakeWork() {
    work_.rest = rest_.Whole();
    return std::move(work_);
  }
  const Collection& Whose() const { return work_.collection; }

 private:
  void Step(Reader& piece) {
    switch (static_cast<Change>(piece.Count(kAnyCount))) {
      case Change::kText:
        return ReadText(piece);
      case Change::kNumber:
        return ReadNumber(piece);
      case Change::kClear:
        return Visit(piece, [](auto& column) { column.Clear(); });
      case Change::kRows:
        return Visit(piece, [&](auto& column) { ReadRows(piece, column); });
      case Change::kClearSlots:
        return Visit(piece, [&](auto& column) { RowOf(piece, column).Clear(); });
      case Change::kSlots:
        return Visit(piece, [&](auto& column) { ReadRows(piece, RowOf(piece, column)); });
      case Change::kGap:
        return CloseGap(piece);
      case Change::kLineCame:
        return Lines().Insert(piece.Count(Lines().Count()), {});
      case Change::kLineWent:
        return Lines().Remove(piece.Count(Lines().Count() - 1));
      case Change::kRest:
        return ReadRest(piece);
      case Change::kRestPart:
        restParts_ += piece.Text();
        return;
    }
    throw Failure(u"A record tells of what isn't known");
  }

  Column<Text>& Lines() { return work_.filed.lines.Rows(); }

  template <typename Act>
  void Visit(Reader& piece, const Act& act) {
    const std::ptrdiff_t wanted = piece.Count(kAnyCount);
    bool found = false;
    ForEachColumn(work_.filed, [&](int number, auto& column) {
      if (number != wanted) return;
      found = true;
      act(column);
    });
    if (!found) throw Failure(u"A record tells of an unknown column");
  }

  // A new row stands right after the others, so that there are never more rows than bytes.
  template <typename T>
  static void ReadRows(Reader& piece, Column<T>& column) {
    const std::ptrdiff_t first = piece.Count(column.Count());
    const std::ptrdiff_t count = piece.Count(piece.Left());
    for (std::ptrdiff_t row = first; row < first + count; ++row) Take(column.At(row), piece.Text());
  }
  static void ReadRows(Reader&, Grid&) { throw Failure(u"A record has a grid for a column"); }

  static Column<Text>& RowOf(Reader& piece, Grid& grid) {
    return grid.At(piece.Count(kMostGridRows));
  }
  template <typename T>
  static Column<T>& RowOf(Reader&, Column<T>&) {
    throw Failure(u"A record has a column for a grid");
  }

  void ReadText(Reader& piece) {
    const std::ptrdiff_t wanted = piece.Count(static_cast<std::ptrdiff_t>(kTextFields) - 1);
    Text told = piece.Text();
    ForEachText(work_, [&](std::ptrdiff_t number, Text& text) {
      if (number == wanted) text = std::move(told);
    });
  }

  void ReadNumber(Reader& piece) {
    const std::ptrdiff_t wanted = piece.Count(static_cast<std::ptrdiff_t>(kNumberFields) - 1);
    const std::uint64_t coded = piece.Number();
    const auto size = static_cast<std::ptrdiff_t>(coded >> 1);
    const std::ptrdiff_t told = (coded & 1) != 0 ? ~size : size;
    ForEachNumber(work_, [&](std::ptrdiff_t number, auto& value) {
      using Value = std::remove_reference_t<decltype(value)>;
      if (number == wanted) value = static_cast<Value>(told);
    });
  }

  void CloseGap(Reader& piece) {
    const std::ptrdiff_t row = piece.Count(kAnyCount);
    const std::ptrdiff_t last = piece.Count(kAnyCount);
    for (Column<Text>* column : work_.filed.table.MovingColumns()) column->MoveUp(row, last);
  }

  void ReadRest(Reader& piece) {
    const std::ptrdiff_t start = piece.Count(rest_.Length());
    const std::ptrdiff_t removed = piece.Count(rest_.Length() - start);
    restParts_ += piece.Text();
    rest_.Change(start, removed, std::exchange(restParts_, {}));
  }

  Work work_;
  Text restParts_;  // of a text whose end is still to come
  RestText rest_;
};

// The next free rows lie right after those that are there: whoever goes on makes no table up to a
// number that is none of this work's. A row may have a text and no title: a heading that another
// command has overwritten before it got its text.
bool MakesSense(const filed::FiledWork& filed) {
  constexpr std::ptrdiff_t kMostOpen = INT32_MAX;
  const std::ptrdiff_t rows =
      std::max(filed.table.entryTitle.Count(), filed.table.entryText.Count());
  return filed.entryCount <= rows && filed.imageCount <= filed.table.inlineImage.Count() &&
         filed.mainOpen <= kMostOpen && filed.mainOpen >= -kMostOpen;
}

}  // namespace

std::optional<Work> ReadRecord(std::string_view file) {
  if (HeadOf(file) != Head::kReadable) return std::nullopt;
  file.remove_prefix(kHeadLength);
  std::optional<Work> work;
  platform::Ignoring([&] {
    Replay replay;
    while (const auto content = TakePiece(file)) replay.Piece(*content);
    Work told = replay.TakeWork();
    if (MakesSense(told.filed)) work = std::move(told);
  });
  return work;
}

std::optional<Collection> ReadCollection(std::string_view beginning) {
  if (HeadOf(beginning) != Head::kReadable) return std::nullopt;
  beginning.remove_prefix(kHeadLength);
  const auto first = TakePiece(beginning);
  if (!first) return std::nullopt;
  std::optional<Collection> whose;
  platform::Ignoring([&] {
    Replay replay;
    replay.Piece(*first);
    whose = replay.Whose();
  });
  return whose;
}

}  // namespace recovery
