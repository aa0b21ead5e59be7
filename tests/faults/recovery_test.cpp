// The record on disks that fail, fill up or are used by two tools at once, and under clocks that
// are moved. Whatever happens, the editor's work goes on, and what is on the disk is the work as it
// was after one of the events.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>

#include "recovery/keeper.h"
#include "recovery/piece.h"
#include "recovery/replay.h"
#include "tests/support/faulty_records.h"
#include "tests/support/full_disk.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/recovery_work.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using recovery::Keeper;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::Described;
using testing_support::FaultyRecords;
using testing_support::FullDisk;
using testing_support::OrdinaryUser;
using testing_support::RandomEditor;

constexpr std::int64_t kDay = std::int64_t{24} * 60 * 60;

class RecoveryFaults : public testing::Test {
 protected:
  struct Left {
    recovery::LeftRecord record;
    recovery::Work work;
  };
  // What a later tool finds and can read.
  std::vector<Left> Find() { return Find(*host_); }
  static std::vector<Left> Find(platform::RecordFolder& records) {
    std::vector<Left> found;
    for (auto& record : recovery::FindLeftRecords(records, {u"C:\\book\\", u"a1"})) {
      std::optional<recovery::Work> work = recovery::ReadLeft(record);
      if (work) found.push_back({std::move(record), std::move(*work)});
    }
    return found;
  }
  std::function<void(platform::TextView)> Log() {
    return [this](platform::TextView line) { log_.push_back(platform::ToUtf8(line)); };
  }
  std::vector<fs::path> Files() const {
    std::vector<fs::path> files;
    if (!fs::exists(HostPath())) return files;
    for (const auto& entry : fs::directory_iterator(HostPath())) files.push_back(entry.path());
    return files;
  }
  fs::path HostPath() const { return folder_.HostPath("recovery"); }

  // A tool that files a while and is closed.
  void LeaveOne(unsigned seed = 1) {
    RandomEditor editor(seed);
    Keeper keeper(host_.get(), Log());
    keeper.Start(editor.Live());
    editor.Work().fields.title = u"title";
    for (int step = 0; step < 5; ++step) {
      editor.Step();
      keeper.Keep(editor.Live());
    }
  }

  testing_support::TemporaryFolder folder_;
  std::unique_ptr<platform::RecordFolder> host_ =
      platform::HostRecordFolder(folder_.Path(u"recovery"));
  std::vector<std::string> log_;
};

TEST_F(RecoveryFaults, EachOperationFailsInTurn) {
  constexpr int kSteps = 8;
  for (std::size_t k = 1;; ++k) {
    fs::remove_all(HostPath());
    log_.clear();
    FaultyRecords records(*host_);
    records.FailAt(k);
    std::set<std::string> states;
    {
      RandomEditor editor(static_cast<unsigned>(k));
      Keeper keeper(&records, Log());
      keeper.FindLeft({u"C:\\book\\", u"a1"});
      keeper.Start(editor.Live());
      for (int step = 0; step < kSteps; ++step) {
        editor.Step();
        keeper.Keep(editor.Live());
        states.insert(Described(editor.Work()));
        if (step % 3 == 2) keeper.Sync(editor.Live());
        if (step == 5) static_cast<void>(keeper.KeepWhole(editor.Live()));  // told by the log
      }
    }
    const bool fails = records.Operations() >= k;
    ASSERT_LE(log_.size(), 1U) << k;
    for (const std::string& line : log_)
      ASSERT_THAT(line, testing::StartsWith("Recovery is off: "));
    for (Left& left : Find()) {
      left.work.collection = {u"C:\\book\\", u"a1"};
      ASSERT_TRUE(states.contains(Described(left.work))) << "operation " << k;
    }
    if (!fails) {
      EXPECT_THAT(log_, IsEmpty());
      EXPECT_GT(k, 8U);
      return;
    }
  }
}

TEST_F(RecoveryFaults, AFailingRemovalLeavesTheRecordAndTheToolGoesOn) {
  FaultyRecords records(*host_);
  RandomEditor editor(1);
  Keeper keeper(&records, Log());
  keeper.Start(editor.Live());
  editor.Step();
  keeper.Keep(editor.Live());
  records.FailAt(1);
  keeper.Drop();
  EXPECT_THAT(log_, SizeIs(1));
  keeper.Start(editor.Live());
  editor.Step();
  keeper.Keep(editor.Live());
  EXPECT_THAT(log_, SizeIs(1));
}

TEST_F(RecoveryFaults, AFullDiskEndsTheRecordWithItsLastWholeEvent) {
  RandomEditor editor(3);
  Keeper keeper(host_.get(), Log());
  keeper.Start(editor.Live());
  editor.Step();
  keeper.Keep(editor.Live());
  const std::string before = Described(editor.Work());
  const auto size = fs::file_size(Files().front());
  {
    const FullDisk full(size + 11);
    editor.Work().filed.table.entryText.Set(0, platform::Text(500, u'x'));
    keeper.Keep(editor.Live());
  }
  EXPECT_THAT(log_, ElementsAre(testing::HasSubstr("Recovery is off: Can't write")));
  EXPECT_EQ(fs::file_size(Files().front()), size);
  editor.Step();
  keeper.Keep(editor.Live());
  keeper.Close();
  ASSERT_THAT(Find(), SizeIs(1));
  EXPECT_EQ(Described(Find().front().work), before);
}

TEST_F(RecoveryFaults, ADiskThatIsFullFromTheFirstLeavesNothing) {
  RandomEditor editor(3);
  Keeper keeper(host_.get(), Log());
  keeper.Start(editor.Live());
  {
    const FullDisk full(0);
    editor.Step();
    keeper.Keep(editor.Live());
  }
  EXPECT_THAT(log_, SizeIs(1));
  EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(RecoveryFaults, AFolderThatMayNotBeWrittenIsToldOnce) {
  fs::create_directory(HostPath());
  const OrdinaryUser user(folder_.HostPath());
  fs::permissions(HostPath(), fs::perms::owner_read | fs::perms::owner_exec);
  LeaveOne();
  EXPECT_THAT(log_, SizeIs(1));
  fs::permissions(HostPath(), fs::perms::owner_all);
}

TEST_F(RecoveryFaults, AMissingStateFolderIsToldOnce) {
  host_ = platform::HostRecordFolder(folder_.Path(u"not there\\recovery"));
  LeaveOne();
  EXPECT_THAT(log_, ElementsAre(testing::HasSubstr("No such file or directory")));
}

// Whatever stands where the folder should.
TEST_F(RecoveryFaults, WhatIsNoFolderIsToldOnceAndStays) {
  const std::vector<std::function<void()>> made = {
      [&] { std::ofstream(HostPath()) << "a file"; },
      [&] { fs::create_symlink(folder_.HostPath("nowhere"), HostPath()); },
      [&] { ASSERT_EQ(::mkfifo(HostPath().c_str(), 0600), 0); }};
  for (const auto& make : made) {
    log_.clear();
    make();
    LeaveOne();
    EXPECT_THAT(log_, ElementsAre(testing::StartsWith("Recovery is off: ")));
    EXPECT_FALSE(fs::is_directory(HostPath()));
    EXPECT_TRUE(fs::remove(HostPath()));
  }
}

// An editor's own disk for such things, say.
TEST_F(RecoveryFaults, ALinkToAFolderIsAFolder) {
  fs::create_directory(folder_.HostPath("elsewhere"));
  fs::create_directory_symlink(folder_.HostPath("elsewhere"), HostPath());
  LeaveOne();
  EXPECT_THAT(log_, IsEmpty());
  EXPECT_THAT(Find(), SizeIs(1));
}

TEST_F(RecoveryFaults, WhatIsNoOrdinaryFileIsNoRecord) {
  LeaveOne();
  fs::rename(Files().front(), folder_.HostPath("a1.record"));
  fs::create_symlink(folder_.HostPath("a1.record"), HostPath() / "a1-1-1.record");
  fs::create_directory(HostPath() / "a1-1-2.record");
  ASSERT_EQ(::mkfifo((HostPath() / "a1-1-3.record").c_str(), 0600), 0);
  FaultyRecords records(*host_);
  records.clockMoved = 1000 * kDay;
  EXPECT_THAT(Find(records), IsEmpty());
  EXPECT_THAT(Files(), SizeIs(3));
  EXPECT_TRUE(fs::exists(folder_.HostPath("a1.record")));
}

TEST_F(RecoveryFaults, ARunningToolsRecordIsNeitherOfferedNorTouched) {
  RandomEditor editor(4);
  Keeper keeper(host_.get(), Log());
  keeper.Start(editor.Live());
  editor.Work().fields.title = u"title";
  keeper.Keep(editor.Live());
  FaultyRecords later(*host_);
  later.clockMoved = 100 * kDay;
  EXPECT_THAT(Find(later), IsEmpty());
  EXPECT_THAT(Files(), SizeIs(1));
  EXPECT_TRUE(keeper.KeepWhole(editor.Live()));
  EXPECT_THAT(Find(later), IsEmpty()) << "written anew";
  EXPECT_THAT(Files(), SizeIs(1));
  keeper.Close();
  EXPECT_THAT(Find(), SizeIs(1));
}

TEST_F(RecoveryFaults, WhatOneToolOffersNoOtherDoes) {
  LeaveOne();
  const std::vector<Left> offered = Find();
  ASSERT_THAT(offered, SizeIs(1));
  EXPECT_THAT(Find(), IsEmpty());
}

// Offered every few weeks all the while.
TEST_F(RecoveryFaults, ARecordGoesAfterNinetyDays) {
  LeaveOne();
  FaultyRecords records(*host_);
  for (const int day : {0, 1, 28, 57, 60, 89}) {
    records.clockMoved = day * kDay;
    EXPECT_THAT(Find(records), SizeIs(1)) << day;
    EXPECT_THAT(Files(), SizeIs(1)) << day;
  }
  records.clockMoved = 91 * kDay;
  EXPECT_THAT(recovery::FindLeftRecords(records, {u"C:\\other\\", u"a1"}), IsEmpty());
  EXPECT_THAT(Files(), SizeIs(1)) << "another collection's";
  EXPECT_THAT(Find(records), IsEmpty());
  EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(RecoveryFaults, ARecordThatWasNeverOfferedIsOfferedHoweverOldItIs) {
  LeaveOne();
  FaultyRecords records(*host_);
  records.clockMoved = 400 * kDay;
  EXPECT_THAT(Find(records), SizeIs(1));
}

TEST_F(RecoveryFaults, AClockThatWasSetBackTakesNothing) {
  LeaveOne();
  FaultyRecords records(*host_);
  records.clockMoved = -10'000 * kDay;
  EXPECT_THAT(Find(records), SizeIs(1));
}

// In the year 2106 for a month, and back: what was offered before and what never was.
TEST_F(RecoveryFaults, AClockThatWasWrongForAWhileTakesNothing) {
  LeaveOne();
  FaultyRecords records(*host_);
  for (const int day : {0, 29'200, 29'201, 29'230, 1, 2}) {
    records.clockMoved = day * kDay;
    EXPECT_THAT(Find(records), SizeIs(1)) << day;
  }
  fs::remove_all(HostPath());
  LeaveOne();
  for (const int day : {29'200, 29'230, 3}) {
    records.clockMoved = day * kDay;
    EXPECT_THAT(Find(records), SizeIs(1)) << day;
  }
}

// A record of a time that never was goes, too.
TEST_F(RecoveryFaults, ARecordOfAWrongClockGoesAfterNinetyDays) {
  LeaveOne();
  FaultyRecords records(*host_);
  for (const int day : {0, 29, 58, 87}) {
    records.clockMoved = (day - 10'000) * kDay;
    EXPECT_THAT(Find(records), SizeIs(1)) << day;
  }
  records.clockMoved = (91 - 10'000) * kDay;
  EXPECT_THAT(Find(records), IsEmpty());
}

// What the names say doesn't count where nobody wrote them so.
TEST_F(RecoveryFaults, AnyNameIsTheNameOfARecord) {
  FaultyRecords records(*host_);
  for (const char* name : {"a1~x~y", "a1~1~1e300", "a1~-1~-5", "~~", "a1~1~2~3", "x", "a1~9~"}) {
    LeaveOne();
    fs::rename(Files().front(), HostPath() / (std::string(name) + ".record"));
    EXPECT_THAT(Find(records), SizeIs(1)) << name;
    EXPECT_THAT(Files(), SizeIs(1)) << name;
    fs::remove_all(HostPath());
  }
}

TEST_F(RecoveryFaults, AFailingRenameLeavesTheRecordAsItIs) {
  LeaveOne();
  FaultyRecords records(*host_);
  records.clockMoved = kDay;
  records.FailAt(4);
  EXPECT_THAT(Find(records), SizeIs(1));
  EXPECT_EQ(records.Names()[3], "Rename");
  EXPECT_THAT(Find(records), SizeIs(1));
}

// Two runs may have had the same number, and so their records.
TEST_F(RecoveryFaults, NoRecordTakesTheNameOfAnother) {
  FaultyRecords records(*host_);
  records.clockMoved = kDay;
  for (unsigned seed = 1; seed <= 3; ++seed) {
    LeaveOne(seed);
    EXPECT_THAT(Find(records), SizeIs(seed));
    EXPECT_THAT(Files(), SizeIs(seed));
  }
}

TEST_F(RecoveryFaults, ANewerToolsRecordIsNeitherReadNorRemoved) {
  LeaveOne();
  const fs::path file = Files().front();
  std::fstream(file, std::ios::in | std::ios::out | std::ios::binary).seekp(8).put('\x09');
  FaultyRecords records(*host_);
  records.clockMoved = 1000 * kDay;
  EXPECT_THAT(Find(records), IsEmpty());
  EXPECT_THAT(Files(), SizeIs(1));
}

TEST_F(RecoveryFaults, WhatAToolLeftAsItBeganGoes) {
  LeaveOne();
  std::ofstream(HostPath() / "a1-1-1.record") << "ZVRE";
  std::ofstream(HostPath() / ".a1-1-2.record.zorvand-new") << "half";
  std::ofstream(HostPath() / "notes.txt") << "somebody's";
  EXPECT_THAT(Find(), SizeIs(1));
  std::set<std::string> names;
  for (const fs::path& file : Files()) names.insert(file.extension().string());
  EXPECT_THAT(names, testing::UnorderedElementsAre(".record", ".txt"));
  EXPECT_THAT(Files(), SizeIs(2));
}

// Typing in a large text: what it outgrows goes when nobody is waiting.
TEST_F(RecoveryFaults, ARecordThatHasOutgrownTwiceWhatItHoldsIsWrittenAnew) {
  RandomEditor editor(5);
  Keeper keeper(host_.get(), Log());
  keeper.Start(editor.Live());
  for (int step = 0; step < 40; ++step) {
    editor.Work().fields.title = platform::Text(20'000 + static_cast<std::size_t>(step), u'x');
    keeper.Keep(editor.Live());
  }
  EXPECT_GT(fs::file_size(Files().front()), 700'000U);
  keeper.Sync(editor.Live());
  EXPECT_LT(fs::file_size(Files().front()), 30'000U);
  editor.Step();
  keeper.Keep(editor.Live());
  keeper.Close();
  ASSERT_THAT(Find(), SizeIs(1));
  EXPECT_EQ(Described(Find().front().work), Described(editor.Work()));
}

// A text of megabytes that is opened and then filed passage by passage: each passage is told twice,
// as a part of the text that is left and as an entry.
TEST_F(RecoveryFaults, FilingALargeTextKeepsTheRecordShort) {
  constexpr std::size_t kText = 4'000'000;
  constexpr std::size_t kPassage = 4096;
  FaultyRecords records(*host_);
  RandomEditor editor(5);
  Keeper keeper(&records, Log());
  keeper.Start(editor.Live());
  editor.Replace(0, 0, platform::Text(kText, u'س'));
  keeper.Keep(editor.Live());
  keeper.Sync(editor.Live());
  filed::FiledWork& filed = editor.Work().filed;
  while (editor.Work().rest.size() >= kPassage) {
    filed.table.entryText.Set(filed.entryCount++, editor.Work().rest.substr(0, kPassage));
    editor.Replace(0, kPassage, {});
    keeper.Keep(editor.Live());
    keeper.Sync(editor.Live());
    ASSERT_LT(fs::file_size(Files().front()), kText * 13 / 10);
  }
  EXPECT_LE(std::ranges::count(records.Names(), "Replace"), 12) << "each costs the whole";
  keeper.Close();
  ASSERT_THAT(Find(), SizeIs(1));
  EXPECT_TRUE(Described(Find().front().work) == Described(editor.Work()));
}

// What is thrown away is told in a few bytes, so the file doesn't grow by it.
TEST_F(RecoveryFaults, WhatIsNoLongerHeldLeavesTheFile) {
  RandomEditor editor(5);
  Keeper keeper(host_.get(), Log());
  keeper.Start(editor.Live());
  editor.Work().fields.title = u"title";
  editor.Replace(0, 0, platform::Text(2'000'000, u'س'));
  keeper.Keep(editor.Live());
  keeper.Sync(editor.Live());
  for (std::size_t left = 2'000'000; left > 0; left -= 100'000) {
    editor.Replace(0, 100'000, {});
    keeper.Keep(editor.Live());
    keeper.Sync(editor.Live());
    ASSERT_LT(fs::file_size(Files().front()), 2 * (left - 100'000) + 300'000);
  }
}

// The disk has no room for both: the old one goes on, and what changes is told against that.
TEST_F(RecoveryFaults, ARecordThatCouldNotBeWrittenAnewGoesOn) {
  RandomEditor editor(5);
  Keeper keeper(host_.get(), Log());
  keeper.Start(editor.Live());
  editor.Work().filed.mainOpen = 2;
  for (int step = 0; step < 40; ++step) {
    editor.Work().fields.title = platform::Text(20'000 + static_cast<std::size_t>(step), u'x');
    keeper.Keep(editor.Live());
  }
  {
    const FullDisk full(11);
    keeper.Sync(editor.Live());
  }
  EXPECT_GT(fs::file_size(Files().front()), 700'000U);
  editor.Work().filed.mainOpen = 0;
  keeper.Keep(editor.Live());
  keeper.Close();
  EXPECT_THAT(log_, IsEmpty());
  ASSERT_THAT(Find(), SizeIs(1));
  EXPECT_EQ(Described(Find().front().work), Described(editor.Work()));
}

// Each may be as large as a book, and there may be many.
TEST_F(RecoveryFaults, OfManyRecordsNoneIsReadBeforeItIsAskedFor) {
  for (unsigned seed = 1; seed < 5; ++seed) LeaveOne(seed);
  FaultyRecords records(*host_);
  auto left = recovery::FindLeftRecords(records, {u"C:\\book\\", u"a1"});
  ASSERT_THAT(left, SizeIs(4));
  EXPECT_LE(records.MostRead(), recovery::kBeginning);
}

// A tool that was ended after the head of its file.
TEST_F(RecoveryFaults, AHeadAloneGoes) {
  LeaveOne();
  std::ofstream(HostPath() / "a1-1-1.record", std::ios::binary) << recovery::HeadBytes();
  std::string newer = recovery::HeadBytes();
  ++newer[8];
  std::ofstream(HostPath() / "a1-1-2.record", std::ios::binary) << newer;
  EXPECT_THAT(Find(), SizeIs(1));
  EXPECT_THAT(Files(), SizeIs(2)) << "a newer tool's stays";
}

// One that was ended in its first write, or whose bytes a power cut took: nothing can come of it.
TEST_F(RecoveryFaults, ATornFirstPieceGoes) {
  std::string piece;
  recovery::AppendPiece(piece, "the work");
  std::string newer = recovery::HeadBytes();
  ++newer[8];
  const std::string head = recovery::HeadBytes();
  const auto write = [&](const std::string& bytes) {
    std::ofstream(HostPath() / "a1-1-1.record", std::ios::binary) << bytes;
  };
  LeaveOne();
  for (std::size_t cut = 1; cut < piece.size(); ++cut) {
    write(head + piece.substr(0, cut));
    EXPECT_THAT(Find(), SizeIs(1));
    EXPECT_THAT(Files(), SizeIs(1)) << cut;
    write(head + piece.substr(0, cut) + std::string(piece.size() - cut, '\0'));
    EXPECT_THAT(Find(), SizeIs(1));
    EXPECT_THAT(Files(), SizeIs(1)) << cut << ", zeros";
    write(newer + piece.substr(0, cut));
    EXPECT_THAT(Find(), SizeIs(1));
    EXPECT_THAT(Files(), SizeIs(2)) << cut << ", a newer tool's";
  }
  write(head + std::string(500, '\0'));
  EXPECT_THAT(Find(), SizeIs(1));
  EXPECT_THAT(Files(), SizeIs(1));
  write(std::string(500, '\0'));
  EXPECT_THAT(Find(), SizeIs(1));
  EXPECT_THAT(Files(), SizeIs(1));
}

// Somebody may find a way to what stands behind it.
TEST_F(RecoveryFaults, ADamagedFirstPieceWithMoreBehindItStays) {
  LeaveOne();
  std::fstream(Files().front(), std::ios::in | std::ios::out | std::ios::binary).seekp(24).put('x');
  EXPECT_THAT(Find(), IsEmpty());
  EXPECT_THAT(Files(), SizeIs(1));
  std::ofstream(HostPath() / "a1-1-1.record", std::ios::binary) << "somebody's own, no record";
  EXPECT_THAT(Find(), IsEmpty());
  EXPECT_THAT(Files(), SizeIs(2));
}

// What nobody would read isn't written.
TEST_F(RecoveryFaults, ARecordEndsBeforeItIsTooLongToBeRead) {
  FaultyRecords records(*host_);
  RandomEditor editor(7);
  Keeper keeper(&records, Log());
  keeper.Start(editor.Live());
  editor.Step();
  keeper.Keep(editor.Live());
  EXPECT_THAT(log_, IsEmpty());
  records.sizeAdded = recovery::kLongestRecord / 2;
  editor.Work().fields.title += u"more";
  keeper.Keep(editor.Live());
  EXPECT_THAT(log_, ElementsAre("Recovery is off: There is too much for a record"));
  keeper.Close();
  records.sizeAdded = 0;
  EXPECT_THAT(Find(records), SizeIs(1));
}

// What comes after damage may be all of the work.
TEST_F(RecoveryFaults, OnlyAWholeRecordOfNothingGoes) {
  LeaveOne();
  RandomEditor editor(8);
  recovery::LiveWork nothing = editor.Live();
  recovery::Recorded recorded;
  const std::string whole = testing_support::WholeRecord(nothing, recorded);
  const auto write = [&](const std::string& bytes) {
    std::ofstream(HostPath() / "a1-1-1.record", std::ios::binary) << bytes;
  };
  write(whole + std::string(20, '\1'));
  EXPECT_THAT(Find(), SizeIs(1));
  EXPECT_THAT(Files(), SizeIs(2));
  write(whole);
  EXPECT_THAT(Find(), SizeIs(1));
  EXPECT_THAT(Files(), SizeIs(1));
}

// The file's beginning says whose it is, so it is written anew, which takes long: not while an
// editor waits for what the click shows. Until then it is the former collection's.
TEST_F(RecoveryFaults, WorkThatMovesToAnotherCollectionIsWrittenAnewAWhileLater) {
  FaultyRecords records(*host_);
  RandomEditor editor(6);
  Keeper keeper(&records, Log());
  keeper.Start(editor.Live());
  editor.Work().fields.title = u"title";
  keeper.Keep(editor.Live());
  keeper.Sync(editor.Live());
  records.FailAt(0);
  editor.Work().collection.key = u"a2";
  keeper.Keep(editor.Live());
  editor.Work().fields.title = u"another";
  keeper.Keep(editor.Live());
  EXPECT_THAT(records.Names(), ElementsAre("Append"));
  EXPECT_TRUE(keeper.NeedsSync());
  keeper.Sync(editor.Live());
  EXPECT_FALSE(keeper.NeedsSync());
  keeper.Close();
  EXPECT_THAT(Find(), IsEmpty());
  auto moved = recovery::FindLeftRecords(*host_, {u"C:\\book\\", u"a2"});
  ASSERT_THAT(moved, SizeIs(1));
  std::optional<recovery::Work> work = recovery::ReadLeft(moved.front());
  ASSERT_TRUE(work);
  EXPECT_EQ(Described(*work), Described(editor.Work()));
}

TEST_F(RecoveryFaults, WorkThatWasJustMovedIsTheFormerCollectionsStill) {
  RandomEditor editor(6);
  Keeper keeper(host_.get(), Log());
  keeper.Start(editor.Live());
  editor.Work().fields.title = u"title";
  keeper.Keep(editor.Live());
  editor.Work().collection.key = u"a2";
  editor.Work().fields.title = u"another";
  keeper.Keep(editor.Live());
  keeper.Close();
  ASSERT_THAT(Find(), SizeIs(1));
  EXPECT_EQ(Find().front().work.fields.title, u"another");
  EXPECT_EQ(Find().front().work.collection.key, u"a1");
}

// It is offered with the collection that it is of by then.
TEST_F(RecoveryFaults, WhatIsSetAsideIsItsOwnCollections) {
  RandomEditor editor(6);
  Keeper keeper(host_.get(), Log());
  keeper.Start(editor.Live());
  editor.Work().fields.title = u"title";
  keeper.Keep(editor.Live());
  editor.Work().collection.key = u"a2";
  keeper.SetAside(editor.Live());
  EXPECT_TRUE(keeper.KeepWhole(editor.Live()));
  EXPECT_THAT(Files(), SizeIs(2));
  EXPECT_THAT(Find(), IsEmpty());
  EXPECT_THAT(recovery::FindLeftRecords(*host_, {u"C:\\book\\", u"a2"}), SizeIs(1));
}

// A disk that takes no more bytes still has those that it took.
TEST_F(RecoveryFaults, WhatWasWrittenBeforeTheRecordEndedIsSynced) {
  FaultyRecords records(*host_);
  RandomEditor editor(6);
  Keeper keeper(&records, Log());
  keeper.Start(editor.Live());
  editor.Work().fields.title = u"title";
  keeper.Keep(editor.Live());
  records.FailAt(1);
  editor.Work().fields.title = u"another";
  keeper.Keep(editor.Live());
  EXPECT_THAT(log_, SizeIs(1));
  EXPECT_TRUE(keeper.NeedsSync());
  keeper.Sync(editor.Live());
  EXPECT_EQ(records.Names().back(), "Sync");
  EXPECT_FALSE(keeper.NeedsSync());
  EXPECT_THAT(log_, SizeIs(1));
}

// A running tool syncs what it wrote, and says when there is nothing to sync.
TEST_F(RecoveryFaults, SyncsWhatWasWrittenOnce) {
  FaultyRecords records(*host_);
  RandomEditor editor(6);
  Keeper keeper(&records, Log());
  keeper.Start(editor.Live());
  EXPECT_FALSE(keeper.NeedsSync());
  editor.Step();
  keeper.Keep(editor.Live());
  EXPECT_TRUE(keeper.NeedsSync());
  keeper.Sync(editor.Live());
  EXPECT_FALSE(keeper.NeedsSync());
  EXPECT_EQ(records.Names().back(), "Sync");
}

// Nobody has called for a sync meanwhile, as a handler took its time.
TEST_F(RecoveryFaults, WhatStandsUnsyncedForASecondIsSyncedWithTheNextChange) {
  FaultyRecords records(*host_);
  RandomEditor editor(6);
  Keeper keeper(&records, Log());
  keeper.Start(editor.Live());
  const auto change = [&] {
    editor.Work().fields.title += u"a";
    keeper.Keep(editor.Live());
  };
  change();
  change();
  EXPECT_EQ(records.Names().back(), "Append");
  records.waited = std::chrono::seconds(1);
  change();
  EXPECT_EQ(records.Names().back(), "Sync");
  EXPECT_FALSE(keeper.NeedsSync());
  change();
  EXPECT_EQ(records.Names().back(), "Append") << "the second begins anew";
}

}  // namespace
