// Work for tests of its record: all that it holds as lines of text, and an editor who changes it at
// random.
#pragma once

#include <optional>
#include <random>
#include <string>
#include <utility>

#include "platform/text/text.h"
#include "recovery/changes.h"
#include "recovery/work.h"

namespace testing_support {

template <typename T>
void Describe(std::string& all, const platform::Column<T>& column) {
  using platform::ToUtf8;
  for (std::ptrdiff_t row = 0; row < column.Count(); ++row) {
    const std::string at = " " + std::to_string(row) + "=";
    if constexpr (std::is_same_v<T, platform::Text>) {
      if (!column(row).empty()) all.append(at).append(ToUtf8(column(row)));
    } else if constexpr (std::is_same_v<T, char>) {
      if (column(row) != 0) all.append(at).append("yes");
    } else {
      std::string cells;
      Describe(cells, column(row));
      if (!cells.empty()) all.append(at).append("(").append(cells).append(")");
    }
  }
}

// All that is in it; what is empty counts as not there.
inline std::string Described(recovery::Work& work) {
  std::string all;
  recovery::ForEachColumn(work.filed, [&](int number, auto& column) {
    all += "\ncolumn " + std::to_string(number) + ":";
    Describe(all, column);
  });
  recovery::ForEachText(work, [&](int number, const platform::Text& text) {
    all += "\ntext " + std::to_string(number) + ": " + platform::ToUtf8(text);
  });
  recovery::ForEachNumber(work, [&](int number, auto value) {
    all += "\nnumber " + std::to_string(number) + ": " + std::to_string(value);
  });
  return all + "\nrest: " + platform::ToUtf8(work.rest);
}

inline recovery::RestPart PartsOf(const platform::Text& rest) {
  return [&rest](platform::Position start, platform::Position count) {
    return rest.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(count));
  };
}

// The bytes of the pieces, and those of the whole file.
inline std::string ChangesOf(recovery::LiveWork& work, recovery::Recorded& recorded) {
  std::string pieces;
  TellChanges(work, recorded, [&](std::string_view bytes) { pieces += bytes; });
  return pieces;
}
inline std::string WholeRecord(recovery::LiveWork& work, recovery::Recorded& recorded) {
  std::string file;
  TellWhole(work, recorded, [&](std::string_view bytes) { file += bytes; });
  return file;
}

// Work that is changed step by step as the workbench changes it.
class RandomEditor {
 public:
  using Position = platform::Position;

  explicit RandomEditor(unsigned seed) : random_(seed) {
    work_.collection = {u"C:\\book\\", u"a1"};
  }

  recovery::Work& Work() { return work_; }

  recovery::LiveWork Live() {
    return {.filed = work_.filed,
            .fields = work_.fields,
            .collection = work_.collection,
            .restEdit = std::exchange(edit_, std::nullopt),
            .rest = PartsOf(work_.rest),
            .restLength = static_cast<Position>(work_.rest.size())};
  }

  // Each changes what one event may change.
  void Step() {
    switch (Below(12)) {
      case 0:
      case 1:
      case 2:
        return FileHeading();
      case 3:
        return EditRow();
      case 4:
        return DeleteRow();
      case 5:
        return TickPicture();
      case 6:
        return EntryPicture();
      case 7:
        work_.filed.table.inlineImage.Set(work_.filed.imageCount++, AnyText());
        return;
      case 8:
        work_.fields.title += AnyText();
        work_.filed.lastMainText = AnyText();
        return;
      case 9:
        work_.filed.galleryMode = !work_.filed.galleryMode;
        if (!work_.filed.galleryMode) gallery::Clear(work_.filed.table.galleryPic.Slots());
        return;
      case 10:
        return Replace(0, static_cast<platform::Position>(work_.rest.size()), AnyText());
      default: {
        const auto size = static_cast<int>(work_.rest.size());
        const int start = Below(size + 1);
        return Replace(start, Below(size - start + 1), AnyText());
      }
    }
  }

  // A part of the text that is left.
  void Replace(Position start, Position removed, const platform::Text& added) {
    work_.rest.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(removed), added);
    edit_ = platform::TextEdit{start, removed, static_cast<Position>(added.size())};
  }

  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }

  platform::Text AnyText() {
    static constexpr char16_t kUnits[] = {u'a', u' ', u'س', u'ک', u'\n', 0xD83D, 0xDE00, 0, 0x80};
    platform::Text text;
    for (int length = Below(6); length > 0; --length) text += kUnits[Below(9)];
    if (Below(8) == 0) text.insert(0, u"{\\rtf1 \\u1587?\\u-3?\\u07?\\u1587 }");
    return text;
  }

 private:
  void FileHeading() {
    filed::FiledWork& filed = work_.filed;
    filed.table.entryTitle.Set(filed.entryCount, u"t" + AnyText());
    filed.lines.Insert(filed.entryCount, AnyText());
    filed.table.entryText.Set(filed.entryCount, AnyText());
    filed.lines.Rows().Set(filed.entryCount, AnyText());
    filed.mainOpen += Below(3) - 1;
    ++filed.entryCount;
    const auto passage = std::min<std::size_t>(work_.rest.size(), 3);
    Replace(0, static_cast<Position>(passage), {});
  }

  std::ptrdiff_t AnyRow() { return Below(static_cast<int>(work_.filed.entryCount) + 2); }

  void EditRow() {
    const std::ptrdiff_t row = AnyRow();
    work_.filed.table.entryGallery.Set(row, Below(2) == 0);
    for (const core::MediumRow& each : core::kMedia) {
      work_.filed.table.Media(each.medium).Set(row, AnyText());
    }
    work_.filed.table.entryTitle.Set(row, AnyText());
  }

  void DeleteRow() {
    const std::ptrdiff_t lines = work_.filed.lines.Rows().Count();
    if (lines == 0) return;
    const std::ptrdiff_t row = Below(static_cast<int>(lines));
    work_.filed.lines.Remove(row);
    work_.filed.table.CloseGap(row);
    --work_.filed.entryCount;
  }

  void TickPicture() {
    const gallery::Slots chosen = work_.filed.table.galleryPic.Slots();
    if (Below(3) == 0) {
      static_cast<void>(gallery::Remove(chosen, chosen.paths(Below(5))));  // it may be gone
    } else {
      gallery::Add(chosen, u"C:\\" + AnyText(), AnyText());
    }
  }

  void EntryPicture() {
    const gallery::Slots chosen =
        work_.filed.table.EntryGallery(std::max<std::ptrdiff_t>(AnyRow(), 0));
    Below(4) == 0 ? gallery::Clear(chosen) : gallery::Add(chosen, u"p" + AnyText(), AnyText());
  }

  std::mt19937 random_;
  recovery::Work work_;
  std::optional<platform::TextEdit> edit_;
};

}  // namespace testing_support
