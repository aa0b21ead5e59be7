// What becomes of records that nobody brings back: their age under clocks that are moved, and files
// of which nothing can come.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "recovery/piece.h"
#include "tests/faults/recovery_faults.h"

namespace {

using faults::kDay;
namespace fs = std::filesystem;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::FaultyRecords;
using testing_support::RandomEditor;

class RecoveryLeft : public faults::RecoveryFaults {};

// Offered every few weeks all the while.
TEST_F(RecoveryLeft, ARecordGoesAfterNinetyDays) {
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

TEST_F(RecoveryLeft, ARecordThatWasNeverOfferedIsOfferedHoweverOldItIs) {
  LeaveOne();
  FaultyRecords records(*host_);
  records.clockMoved = 400 * kDay;
  EXPECT_THAT(Find(records), SizeIs(1));
}

TEST_F(RecoveryLeft, AClockThatWasSetBackTakesNothing) {
  LeaveOne();
  FaultyRecords records(*host_);
  records.clockMoved = -10'000 * kDay;
  EXPECT_THAT(Find(records), SizeIs(1));
}

// In the year 2106 for a month, and back: what was offered before and what never was.
TEST_F(RecoveryLeft, AClockThatWasWrongForAWhileTakesNothing) {
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
TEST_F(RecoveryLeft, ARecordOfAWrongClockGoesAfterNinetyDays) {
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
TEST_F(RecoveryLeft, AnyNameIsTheNameOfARecord) {
  FaultyRecords records(*host_);
  for (const char* name : {"a1~x~y", "a1~1~1e300", "a1~-1~-5", "~~", "a1~1~2~3", "x", "a1~9~"}) {
    LeaveOne();
    fs::rename(Files().front(), HostPath() / (std::string(name) + ".record"));
    EXPECT_THAT(Find(records), SizeIs(1)) << name;
    EXPECT_THAT(Files(), SizeIs(1)) << name;
    fs::remove_all(HostPath());
  }
}

TEST_F(RecoveryLeft, AFailingRenameLeavesTheRecordAsItIs) {
  LeaveOne();
  FaultyRecords records(*host_);
  records.clockMoved = kDay;
  records.FailAt(4);
  EXPECT_THAT(Find(records), SizeIs(1));
  EXPECT_EQ(records.Names()[3], "Rename");
  EXPECT_THAT(Find(records), SizeIs(1));
}

// Two runs may have had the same number, and so their records.
TEST_F(RecoveryLeft, NoRecordTakesTheNameOfAnother) {
  FaultyRecords records(*host_);
  records.clockMoved = kDay;
  for (unsigned seed = 1; seed <= 3; ++seed) {
    LeaveOne(seed);
    EXPECT_THAT(Find(records), SizeIs(seed));
    EXPECT_THAT(Files(), SizeIs(seed));
  }
}

TEST_F(RecoveryLeft, ANewerToolsRecordIsNeitherReadNorRemoved) {
  LeaveOne();
  const fs::path file = Files().front();
  std::fstream(file, std::ios::in | std::ios::out | std::ios::binary).seekp(8).put('\x09');
  FaultyRecords records(*host_);
  records.clockMoved = 1000 * kDay;
  EXPECT_THAT(Find(records), IsEmpty());
  EXPECT_THAT(Files(), SizeIs(1));
}

TEST_F(RecoveryLeft, WhatAToolLeftAsItBeganGoes) {
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

// A tool that was ended after the head of its file.
TEST_F(RecoveryLeft, AHeadAloneGoes) {
  LeaveOne();
  std::ofstream(HostPath() / "a1-1-1.record", std::ios::binary) << recovery::HeadBytes();
  std::string newer = recovery::HeadBytes();
  ++newer[8];
  std::ofstream(HostPath() / "a1-1-2.record", std::ios::binary) << newer;
  EXPECT_THAT(Find(), SizeIs(1));
  EXPECT_THAT(Files(), SizeIs(2)) << "a newer tool's stays";
}

// One that was ended in its first write, or whose bytes a power cut took: nothing can come of it.
TEST_F(RecoveryLeft, ATornFirstPieceGoes) {
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
TEST_F(RecoveryLeft, ADamagedFirstPieceWithMoreBehindItStays) {
  LeaveOne();
  std::fstream(Files().front(), std::ios::in | std::ios::out | std::ios::binary).seekp(24).put('x');
  EXPECT_THAT(Find(), IsEmpty());
  EXPECT_THAT(Files(), SizeIs(1));
  std::ofstream(HostPath() / "a1-1-1.record", std::ios::binary) << "somebody's own, no record";
  EXPECT_THAT(Find(), IsEmpty());
  EXPECT_THAT(Files(), SizeIs(2));
}

// What comes after damage may be all of the work.
TEST_F(RecoveryLeft, OnlyAWholeRecordOfNothingGoes) {
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

}  // namespace
