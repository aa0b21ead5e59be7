// The record of what is filed: work in, bytes out, work back.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/rtf/rtf.h"
#include "platform/text/encoding.h"
#include "recovery/bytes.h"
#include "recovery/changes.h"
#include "recovery/piece.h"
#include "recovery/replay.h"
#include "recovery/text_code.h"
#include "tests/support/recovery_work.h"

namespace recovery {
namespace {

using platform::Failure;
using platform::Text;
using platform::TextView;
using testing_support::ChangesOf;
using testing_support::Described;
using testing_support::RandomEditor;
using testing_support::WholeRecord;

// Stands for a value of any type in braces.
struct Anything {
  template <typename T>
  operator T() const;  // NOLINT: its use is that it converts
};

template <typename T, typename... Given>
constexpr std::size_t FieldsOf() {
  if constexpr (requires { T{Given{}..., Anything{}}; }) {
    return FieldsOf<T, Given..., Anything>();
  } else {
    return sizeof...(Given);
  }
}

// A member more in one of these is a thing that the editor files or changes: it has to come back
// after a crash. docs/ARCHITECTURE.md, "A field of an entry", says where it is to be named.
TEST(RecoveryRecord, NamesEveryMemberOfTheWork) {
  constexpr std::size_t kGaps = 1;   // closedGaps
  constexpr std::size_t kPairs = 1;  // a gallery's pictures are two columns
  filed::FiledWork filed;
  std::size_t columns = 0;
  std::set<int> numbers;
  filed::ForEachColumn(filed.table, [&](int number, auto&) {
    ++columns;
    numbers.insert(number);
  });
  EXPECT_EQ(FieldsOf<filed::EntryTable>() - kGaps + kPairs, columns);
  EXPECT_EQ(numbers.size(), columns) << "two have one number";
  EXPECT_FALSE(numbers.contains(kLinesColumn));

  // The table, the lines and the text of the main title aren't numbers.
  constexpr std::size_t kRestIsUntouched = 1;
  EXPECT_EQ(FieldsOf<filed::FiledWork>() - 3 + kRestIsUntouched, kNumberFields);
  constexpr std::size_t kLastMainText = 1;
  EXPECT_EQ(FieldsOf<Collection>() + FieldsOf<Fields>() - kRestIsUntouched + kLastMainText,
            kTextFields);

  // An older tool takes what it doesn't know for damage and brings back less: a number more is a
  // newer version, which it leaves alone.
  EXPECT_EQ(kVersion, 2U);
  EXPECT_EQ(columns + kTextFields + kNumberFields, 24U) << "raise kVersion, and this with it";
}

std::string RecordOf(RandomEditor& editor) {
  LiveWork live = editor.Live();
  Recorded recorded;
  return WholeRecord(live, recorded);
}

std::string ReadBack(std::string_view file) {
  std::optional<Work> work = ReadRecord(file);
  return work ? Described(*work) : "refused";
}

TEST(RecoveryRecord, EachColumnComesBackWithItsOwnValues) {
  RandomEditor editor(1);
  filed::FiledWork& filed = editor.Work().filed;
  filed::EntryTable& table = filed.table;
  table.entryTitle.Set(2, u"title");
  table.entryText.Set(1, u"{\\rtf1 \\u1587?}");
  table.entryAttach.Set(0, u"attach");
  table.entrySound.Set(0, u"sound");
  table.entryFilm.Set(0, u"film");
  table.entryBack.Set(3, u"back");
  table.entryGallery.Set(1, true);
  table.entryGalPath.Set(1, 2, u"path");
  table.entryGalTitle.Set(1, 0, u"picture");
  table.galleryPic.Set(0, 0, u"pic");
  table.galleryPic.Set(0, 1, u"its title");
  table.inlineImage.Set(4, u"image");
  filed.lines.Insert(0, u"line");
  filed.entryCount = -1;
  filed.mainOpen = 2;
  filed.imageCount = 5;
  filed.galleryMode = true;
  filed.lastMainText = u"main";
  editor.Work().fields = {u"title", u"One.txt", u"chosen", u"folder", true};
  editor.Work().rest = u"rest\nof it";
  std::optional<Work> back = ReadRecord(RecordOf(editor));
  ASSERT_TRUE(back);
  EXPECT_EQ(Described(*back), Described(editor.Work()));
  EXPECT_EQ(back->filed.table.entryText(1), u"{\\rtf1 \\u1587?}");
  EXPECT_TRUE(back->filed.table.entryGallery(1));
  EXPECT_EQ(back->filed.entryCount, -1);
  EXPECT_EQ(back->collection, (Collection{u"C:\\book\\", u"a1"}));
}

// A heading that another takes the place of leaves a row with a text alone.
TEST(RecoveryRecord, RowsWithoutATitleComeBack) {
  RandomEditor editor(9);
  filed::FiledWork& filed = editor.Work().filed;
  filed.table.entryTitle.Set(0, u"title");
  filed.table.entryText.Set(0, u"text");
  filed.table.entryText.Set(1, u"another");
  filed.entryCount = 2;
  EXPECT_EQ(ReadBack(RecordOf(editor)), Described(editor.Work()));
}

// One that was deleted before it had its text has taken one off the count.
TEST(RecoveryRecord, LessThanNoRowIsNothingFiled) {
  filed::FiledWork filed;
  filed.entryCount = -1;
  EXPECT_TRUE(filed::IsEmpty(filed));
  filed.entryCount = 1;
  EXPECT_FALSE(filed::IsEmpty(filed));
}

// Whatever the editor has typed or filed counts, and what a press or a click shows doesn't.
TEST(RecoveryRecord, NothingIsWhatNobodyWouldWantBack) {
  const auto holdsNothing = [](const std::function<void(Work&)>& change) {
    Work work;
    work.filed.galleryMode = true;
    work.fields.galleryFolder = u"C:\\pictures";
    work.rest = u"as it was read";
    work.fields.restIsUntouched = true;
    change(work);
    return HoldsNothing(work);
  };
  EXPECT_TRUE(holdsNothing([](Work&) {}));
  EXPECT_FALSE(holdsNothing([](Work& work) { work.fields.restIsUntouched = false; }));
  EXPECT_FALSE(holdsNothing([](Work& work) { work.fields.title = u"a"; }));
  EXPECT_FALSE(holdsNothing([](Work& work) { work.filed.mainOpen = 1; }));
  EXPECT_FALSE(holdsNothing([](Work& work) { work.filed.imageCount = 1; }));
  EXPECT_FALSE(holdsNothing([](Work& work) { work.filed.table.entryTitle.Set(0, u"a"); }));
  EXPECT_FALSE(holdsNothing([](Work& work) { work.filed.table.galleryPic.Set(0, 0, u"a"); }));
}

// A record of the version before tells nothing of that, and its text counts.
TEST(RecoveryRecord, AnOlderToolsTextCounts) {
  RandomEditor editor(1);
  editor.Work().rest = u"text";
  std::string file = RecordOf(editor);
  ASSERT_EQ(file[8], static_cast<char>(kVersion));
  file[8] = 1;
  const std::optional<Work> back = ReadRecord(file);
  ASSERT_TRUE(back);
  EXPECT_FALSE(HoldsNothing(*back));
}

TEST(RecoveryRecord, EveryStepIsToldByWhatItChanges) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    RandomEditor editor(seed);
    for (unsigned step = seed % 7; step > 0; --step) editor.Step();
    LiveWork begun = editor.Live();
    Recorded recorded;
    std::string file = WholeRecord(begun, recorded);
    for (int step = 0; step < 60; ++step) {
      editor.Step();
      LiveWork live = editor.Live();
      file += ChangesOf(live, recorded);
      ASSERT_EQ(ReadBack(file), Described(editor.Work())) << "seed " << seed << ", step " << step;
    }
    // And once more from the whole of it.
    ASSERT_EQ(ReadBack(RecordOf(editor)), Described(editor.Work())) << "seed " << seed;
  }
}

TEST(RecoveryRecord, WhatChangesNothingIsNotTold) {
  RandomEditor editor(3);
  LiveWork live = editor.Live();
  Recorded recorded;
  WholeRecord(live, recorded);
  EXPECT_EQ(ChangesOf(live, recorded), "");
}

// Of a table of thousands a deletion or a passage tells itself only.
TEST(RecoveryRecord, AChangeCostsWhatItChanges) {
  RandomEditor editor(4);
  filed::FiledWork& filed = editor.Work().filed;
  for (int row = 0; row < 5000; ++row) {
    filed.table.entryTitle.Set(row, u"title");
    filed.table.entryText.Set(row, Text(1000, u'x'));
    filed.lines.Insert(row, u"line");
  }
  filed.entryCount = 5000;
  editor.Work().rest = Text(2'000'000, u'س');
  LiveWork begun = editor.Live();
  Recorded recorded;
  WholeRecord(begun, recorded);

  filed.lines.Remove(7);
  filed.table.CloseGap(7);
  --filed.entryCount;
  LiveWork deleted = editor.Live();
  EXPECT_LT(ChangesOf(deleted, recorded).size(), 40U);

  filed.table.entryTitle.Set(4999, u"last");
  LiveWork marked = editor.Live();
  marked.restEdit = platform::TextEdit{0, 100, {}};
  EXPECT_LT(ChangesOf(marked, recorded).size(), 40U);
}

// Where each piece of a file ends, the head as the first.
std::vector<std::size_t> PieceEnds(std::string_view file) {
  std::vector<std::size_t> ends = {kHeadLength};
  std::string_view left = file.substr(kHeadLength);
  while (TakePiece(left)) ends.push_back(file.size() - left.size());
  return ends;
}

struct History {
  std::string file;
  std::vector<std::string> states;  // after each piece of the file
};

History SomeHistory() {
  RandomEditor editor(5);
  History history{RecordOf(editor), {}};
  LiveWork begun = editor.Live();
  Recorded recorded;
  history.file = WholeRecord(begun, recorded);
  for (const std::size_t end : PieceEnds(history.file)) {
    history.states.push_back(ReadBack(std::string_view(history.file).substr(0, end)));
  }
  for (int step = 0; step < 12; ++step) {
    editor.Step();
    LiveWork live = editor.Live();
    const std::string told = ChangesOf(live, recorded);
    if (told.empty()) continue;
    history.file += told;
    history.states.push_back(Described(editor.Work()));
  }
  return history;
}

// What counts of a file whose bytes are whole up to `whole`.
const std::string& StateUpTo(const History& history, std::size_t whole) {
  const std::vector<std::size_t> ends = PieceEnds(history.file);
  std::size_t last = 0;
  while (last + 1 < ends.size() && ends[last + 1] <= whole) ++last;
  return history.states[last];
}

// A text that takes several pieces comes with the last of them.
TEST(RecoveryRecord, ALongTextIsThereOnceAllOfItIs) {
  RandomEditor editor(8);
  editor.Work().rest = u"before";
  LiveWork begun = editor.Live();
  Recorded recorded;
  std::string file = WholeRecord(begun, recorded);
  const std::size_t pieces = PieceEnds(file).size();
  const std::string before = Described(editor.Work());

  for (int i = 0; i < 200'000; ++i) editor.Work().rest += static_cast<char16_t>(u'a' + i % 26);
  LiveWork opened = editor.Live();
  opened.restEdit = platform::TextEdit{6, 0, 200'000};
  file += ChangesOf(opened, recorded);
  const std::vector<std::size_t> ends = PieceEnds(file);
  ASSERT_GT(ends.size(), pieces + 2);
  for (std::size_t piece = pieces - 1; piece + 1 < ends.size(); ++piece) {
    EXPECT_EQ(ReadBack(std::string_view(file).substr(0, ends[piece])), before) << piece;
  }
  EXPECT_EQ(ReadBack(file), Described(editor.Work()));
}

TEST(RecoveryRecord, CutAtAnyByteWhatStandsBeforeCounts) {
  const History history = SomeHistory();
  ASSERT_EQ(PieceEnds(history.file).size(), history.states.size());
  for (std::size_t cut = 0; cut <= history.file.size(); ++cut) {
    const std::string back = ReadBack(std::string_view(history.file).substr(0, cut));
    ASSERT_EQ(back, cut < kHeadLength ? "refused" : StateUpTo(history, cut)) << "cut at " << cut;
  }
}

TEST(RecoveryRecord, AByteTurnedLeavesWhatStandsBefore) {
  const History history = SomeHistory();
  for (std::size_t at = 0; at < history.file.size(); ++at) {
    for (const int turned : {0x01, 0x80, 0xFF}) {
      std::string file = history.file;
      file[at] = static_cast<char>(file[at] ^ turned);
      const std::string back = ReadBack(file);
      ASSERT_EQ(back, at < kHeadLength ? "refused" : StateUpTo(history, at)) << "byte " << at;
    }
  }
}

TEST(RecoveryRecord, OfANewerToolIsNotRead) {
  std::string file = HeadBytes();
  EXPECT_EQ(HeadOf(file), Head::kReadable);
  ++file[8];
  EXPECT_EQ(HeadOf(file), Head::kNewer);
  EXPECT_EQ(ReadBack(file), "refused");
  EXPECT_FALSE(ReadCollection(file));
}

TEST(RecoveryRecord, ItsBeginningTellsWhose) {
  RandomEditor editor(6);
  editor.Work().filed.lastMainText = Text(200'000, u'x');
  const std::string file = RecordOf(editor);
  const auto whose = ReadCollection(std::string_view(file).substr(0, kBeginning));
  ASSERT_TRUE(whose);
  EXPECT_EQ(*whose, (Collection{u"C:\\book\\", u"a1"}));
}

// Sizes are looked at before anything is made of them.
TEST(RecoveryRecord, NoNumberInItMakesMoreThanItsBytes) {
  const auto piece = [](Change change, std::initializer_list<std::uint64_t> numbers) {
    std::string content;
    AppendNumber(content, static_cast<std::uint64_t>(change));
    for (const std::uint64_t number : numbers) AppendNumber(content, number);
    std::string file = HeadBytes();
    AppendPiece(file, content);
    return file;
  };
  constexpr std::uint64_t kHuge = UINT64_C(1) << 62;
  EXPECT_EQ(ReadBack(piece(Change::kRows, {0, kHuge, 1, 0})), "refused");
  EXPECT_EQ(ReadBack(piece(Change::kRows, {0, 1, 1, 0})), "refused") << "after a gap";
  EXPECT_EQ(ReadBack(piece(Change::kRows, {0, 0, kHuge, 0})), "refused");
  EXPECT_EQ(ReadBack(piece(Change::kRows, {0, 0, 2, 0})), "refused") << "breaks off";
  EXPECT_EQ(ReadBack(piece(Change::kRows, {99, 0, 1, 0})), "refused");
  EXPECT_EQ(ReadBack(piece(Change::kRows, {7, 0, 1, 0})), "refused") << "a grid";
  EXPECT_EQ(ReadBack(piece(Change::kSlots, {0, 0, 0, 1, 0})), "refused") << "no grid";
  EXPECT_EQ(ReadBack(piece(Change::kSlots, {7, 40'000, 0, 1, 0})), "refused");
  EXPECT_EQ(ReadBack(piece(Change::kText, {0, kHuge})), "refused");
  EXPECT_EQ(ReadBack(piece(Change::kText, {kTextFields, 0})), "refused");
  EXPECT_EQ(ReadBack(piece(Change::kNumber, {kNumberFields, 0})), "refused");
  EXPECT_EQ(ReadBack(piece(Change::kLineCame, {1})), "refused");
  EXPECT_EQ(ReadBack(piece(Change::kLineWent, {0})), "refused");
  EXPECT_EQ(ReadBack(piece(Change::kRest, {1, 0, 0})), "refused");
  EXPECT_EQ(ReadBack(piece(Change::kRest, {0, 1, 0})), "refused");
  EXPECT_EQ(ReadBack(piece(static_cast<Change>(99), {})), "refused");
  EXPECT_NE(ReadBack(piece(Change::kGap, {0, kHuge})), "refused") << "of an empty table";
  EXPECT_EQ(ReadBack(piece(Change::kNumber, {0, 2})), "refused") << "no such row";
  EXPECT_EQ(ReadBack(piece(Change::kNumber, {1, kHuge})), "refused") << "too many main titles";
  EXPECT_EQ(ReadBack(piece(Change::kNumber, {2, 2})), "refused") << "no such picture";
  EXPECT_NE(ReadBack(piece(Change::kNumber, {0, 1})), "refused") << "a heading was deleted";
}

// A gallery's row alone is none that a count could be of: where it is empty nobody tells it again.
TEST(RecoveryRecord, TheCountIsOfRowsThatHaveATitleOrAText) {
  std::string content;
  for (const std::uint64_t number : {5, 7, 1, 2, 0, 4}) AppendNumber(content, number);
  std::string file = HeadBytes();
  AppendPiece(file, content);
  EXPECT_EQ(ReadBack(file), "refused");
}

// `characters` letters and blanks in paragraphs of that length, as the window files them.
Text RichText(std::size_t characters, std::size_t ofParagraph) {
  namespace rtf = platform::rtf;
  rtf::Document document;
  for (std::size_t left = characters; left > 0;) {
    const std::size_t length = std::min(left, ofParagraph);
    Text text;
    for (std::size_t i = 0; i < length; ++i)
      text += i % 6 == 5 ? u' ' : static_cast<char16_t>(u'\u0627' + i % 20);
    document.paragraphs.push_back({rtf::Alignment::kRight,
                                   rtf::Direction::kRightToLeft,
                                   {{{.font = u"Tahoma", .halfPoints = 20}, text}}});
    left -= length;
  }
  return rtf::WriteText(document);
}

// 5,000 entries of 4 KB, as they are read from their input texts: prose, and verses.
TEST(RecoveryRecord, TakesLittleMoreThanTheTexts) {
  constexpr std::size_t kEntries = 500;
  constexpr std::size_t kCharacters = 4096;
  for (const std::size_t ofParagraph : {400U, 30U}) {
    const Text rich = RichText(kCharacters, ofParagraph);
    RandomEditor editor(7);
    filed::FiledWork& filed = editor.Work().filed;
    for (std::size_t row = 0; row < kEntries; ++row) {
      const auto at = static_cast<std::ptrdiff_t>(row);
      filed.table.entryTitle.Set(at, Text(20, u'س'));
      filed.table.entryText.Set(at, rich);
      filed.lines.Insert(at, Text(100, u'س'));
    }
    EXPECT_LT(RecordOf(editor).size(), kEntries * kCharacters * 13 / 10) << ofParagraph;
  }
}

TEST(RecoveryText, EveryUnitComesBack) {
  Text all;
  for (int unit = 0; unit <= 0xFFFF; ++unit) all += static_cast<char16_t>(unit);
  std::string bytes;
  AppendCoded(bytes, all);
  EXPECT_EQ(Decoded(bytes), all);
}

TEST(RecoveryText, RichTextComesBackAsItWas) {
  for (const TextView text :
       {TextView(u"{\\rtf1 "
                 u"\\'d3\\'80\\'ff\\u1740?\\u-1?\\u-32768?\\u32767?\\par\r\n\\pard\\rtlpar\\qr}"),
        TextView(u"{\\rtf \\'D3\\'7f\\'d\\'g0\\'\\par\n\\pard\\rtlpar\\q\\\\'d3\\plain\\plai\\'d"),
        TextView(u"{\\rtf \\u32768?\\u01587?\\u1587 ?\\u?\\u-?\\u65?\\\\u1587?\\u1587"),
        TextView(u"{\\rtf \\u128?\\u127?\\u-0?\\u99999?\\u123456?\t"), TextView(u"{\\rtf")}) {
    std::string bytes;
    ASSERT_TRUE(Fold(bytes, text));
    EXPECT_EQ(Unfolded(bytes), text);
  }
}

// All kinds of beginnings and ends of what is folded, one run into the other.
TEST(RecoveryText, AnyRichTextComesBackAsItWas) {
  const std::vector<Text> parts = {u"\\",
                                   u"\\'",
                                   u"d3",
                                   u"\\'d3",
                                   u"\\u",
                                   u"1740?",
                                   u"-",
                                   u"?",
                                   u"\\par",
                                   u"\r\n",
                                   u"\\pard\\rtlpar\\qr",
                                   u"\\plain",
                                   u"{",
                                   u"}",
                                   u" ",
                                   u"a",
                                   u"\t",
                                   RichText(7, 3),
                                   u"\b",
                                   u"\u06CC",
                                   u"\u00E9",
                                   u"\u0080",
                                   u"\x1",
                                   u"س",
                                   Text(1, u'\0')};
  std::mt19937 random(1);
  for (int round = 0; round < 20'000; ++round) {
    Text text = random() % 2 == 0 ? u"{\\rtf" : u"";
    for (auto left = random() % 9; left > 0; --left) text += parts[random() % parts.size()];
    std::string bytes;
    AppendText(bytes, text);
    Reader reader(bytes);
    ASSERT_EQ(reader.Text(), text);
    ASSERT_TRUE(reader.IsAtEnd());
  }
}

// Of any length, in one paragraph and in many.
TEST(RecoveryText, ALongRichTextComesBackAsItWas) {
  for (std::size_t length = 240; length < 800; ++length) {
    for (const std::size_t ofParagraph : {std::size_t{17}, length}) {
      const Text text = RichText(length, ofParagraph);
      std::string bytes;
      ASSERT_TRUE(Fold(bytes, text));
      ASSERT_EQ(Unfolded(bytes), text) << length;
    }
  }
}

TEST(RecoveryText, WhatIsNoRichTextIsNotFolded) {
  std::string bytes = "before";
  EXPECT_FALSE(Fold(bytes, u"rtf"));
  EXPECT_EQ(bytes, "before");
}

// A short record can't fill the memory.
TEST(RecoveryText, NothingFoldedGrowsWithoutBounds) {
  Text ends = u"{\\rtf1 ";
  for (int i = 0; i < 1000; ++i) ends += u"\\par\r\n\\pard\\rtlpar\\qr";
  std::string bytes;
  EXPECT_FALSE(Fold(bytes, ends));
  EXPECT_THROW(Unfolded("{\\rtf1 " + std::string(1000, '\1')), Failure);
}

TEST(RecoveryText, TornBytesFail) {
  EXPECT_THROW(Decoded(std::string_view("\0a", 2)), Failure);
  EXPECT_THROW(Unfolded("{\\rtf\x1F"), Failure);
  EXPECT_THROW(Unfolded("{\\rtf\b"), Failure) << "no beginning";
  EXPECT_THROW(Reader("\x80").Number(), Failure);
  EXPECT_THROW(Reader(std::string(11, '\x80')).Number(), Failure);
  EXPECT_THROW(Reader("\x08zz").Text(), Failure);
}

}  // namespace
}  // namespace recovery
