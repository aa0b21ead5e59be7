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

#include "recovery/replay.h"
#include "tests/faults/recovery_faults.h"
#include "tests/support/full_disk.h"
#include "tests/support/ordinary_user.h"

namespace {

using faults::kDay;
using faults::Keeper;
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::Described;
using testing_support::FaultyRecords;
using testing_support::FullDisk;
using testing_support::OrdinaryUser;
using testing_support::RandomEditor;

class RecoveryFaults : public faults::RecoveryFaults {};

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

// Something is kept for a1, and is a2's then.
void KeepAndMove(RandomEditor& editor, Keeper& keeper) {
  keeper.Start(editor.Live());
  editor.Work().fields.title = u"title";
  keeper.Keep(editor.Live());
  editor.Work().collection.key = u"a2";
}

TEST_F(RecoveryFaults, WorkThatWasJustMovedIsTheFormerCollectionsStill) {
  RandomEditor editor(6);
  Keeper keeper(host_.get(), Log());
  KeepAndMove(editor, keeper);
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
  KeepAndMove(editor, keeper);
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
