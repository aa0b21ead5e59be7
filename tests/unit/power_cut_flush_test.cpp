// What a flush brings onto the disk, by what the kernel is asked for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>

#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/volatile_disk.h"

namespace {

using platform::Failure;
using platform::FileSystem;
using platform::OpenMode;
using platform::Text;
using platform::TextView;
using testing_support::DiskEvent;
using testing_support::DiskRecorder;
using testing_support::DiskTree;
using testing_support::VolatileDisk;

using Kind = DiskEvent::Kind;

constexpr int kFew = 20;
constexpr int kMany = 300;

class Flushing : public testing::Test {
 protected:
  Text Path(TextView name) const { return folder_.Path(name); }
  void Write(TextView name, std::string_view bytes = "text", OpenMode mode = OpenMode::kReplace) {
    const auto file = files_.Open(Path(name), mode, true);
    file->Write(bytes);
    file->Close();
  }
  // What a tool does with a book: folders, new files, copies, replaced ones, more of one.
  void MakeBook(int pages) {
    files_.MakeFolder(Path(u"Book"));
    files_.MakeFolder(Path(u"Book\\TXT"));
    for (int i = 0; i < pages; ++i) Write(u"Book\\TXT\\" + platform::FromNumber(i), "page");
    Write(u"Book\\Index", "the first of its texts");
    Write(u"Book\\Index", "the second of its texts");
    Write(u"Book\\Index", " and more", OpenMode::kAppend);
    files_.CopyFile(Path(u"Book\\Index"), Path(u"Book\\Copy"));
    files_.CopyFile(Path(u"Book\\Index"), Path(u"Book\\TXT\\0"));
    Write(u"Book\\gone", "nobody's");
    files_.DeleteFile(Path(u"Book\\gone"));
  }

  // When nothing but what was flushed is on the disk.
  DiskTree AfterCut() const {
    VolatileDisk disk(before_);
    for (const DiskEvent& event : DiskRecorder::Events()) disk.Take(event);
    return disk.AfterCut({});
  }
  static std::ptrdiff_t Times(Kind kind) {
    return std::ranges::count(DiskRecorder::Events(), kind, &DiskEvent::kind);
  }
  static bool IsFolderFlushed(const std::string& path) {
    return std::ranges::any_of(DiskRecorder::Events(), [&](const DiskEvent& event) {
      return event.kind == Kind::kFlushFolder && event.path == path;
    });
  }

  testing_support::TemporaryFolder folder_;
  FileSystem& files_ = platform::HostFileSystem();
  DiskTree before_;
  DiskRecorder recorder_{folder_.HostPath()};
};

TEST_F(Flushing, OfFewFilesBringsEachOfThemAndItsName) {
  MakeBook(kFew);
  EXPECT_EQ(AfterCut(), DiskTree());
  files_.Flush(Path(u"Book"));
  EXPECT_EQ(AfterCut(), testing_support::TreeOf(folder_.HostPath()));
  EXPECT_EQ(Times(Kind::kFlushDisk), 0) << "waits for other programs";
}

TEST_F(Flushing, OfManyFilesBringsTheWholeDiskOnce) {
  MakeBook(kMany);
  files_.Flush(Path(u"Book\\"));
  EXPECT_EQ(AfterCut(), testing_support::TreeOf(folder_.HostPath()));
  EXPECT_EQ(Times(Kind::kFlushDisk), 1);
}

TEST_F(Flushing, LeavesWhatLiesElsewhereForItsOwnFlush) {
  Write(u"log", "a line that nobody waits for");
  files_.MakeFolder(Path(u"Book"));
  Write(u"Book\\a");
  files_.Flush(Path(u"Book"));
  EXPECT_EQ(AfterCut(), (DiskTree{{"Book", "/"}, {"Book/a", "text"}, {"log", ""}}));
  files_.Flush(Path(u"log"));
  EXPECT_EQ(AfterCut().at("log"), "a line that nobody waits for");
}

TEST_F(Flushing, OfWhatIsFlushedAlreadyAsksForNothing) {
  MakeBook(kFew);
  files_.Flush(Path(u"Book"));
  const std::ptrdiff_t flushes = Times(Kind::kFlushFile);
  files_.Flush(Path(u"Book"));
  EXPECT_EQ(Times(Kind::kFlushFile), flushes);
}

TEST_F(Flushing, FollowsLinks) {
  files_.MakeFolder(Path(u"Book"));
  files_.MakeFolder(Path(u"far"));
  files_.MakeFolder(Path(u"away"));
  Write(u"away\\file", "an old text");
  std::filesystem::create_symlink("../far", folder_.HostPath("Book/TXT"));
  std::filesystem::create_symlink("../away/file", folder_.HostPath("Book/Index"));
  Write(u"Book\\TXT\\page");
  Write(u"Book\\Index", "a new text");
  files_.Flush(Path(u"Book"));
  EXPECT_TRUE(IsFolderFlushed("Book/TXT"));
  EXPECT_TRUE(IsFolderFlushed("away"));
}

TEST_F(Flushing, FollowsALinkThatStandsWhereAFileWasMadeAndTakenAway) {
  files_.MakeFolder(Path(u"Book"));
  files_.MakeFolder(Path(u"away"));
  Write(u"away\\file", "an old text");
  Write(u"Book\\Index");
  files_.DeleteFile(Path(u"Book\\Index"));
  std::filesystem::create_symlink("../away/file", folder_.HostPath("Book/Index"));
  Write(u"Book\\Index", "a new text");
  files_.Flush(Path(u"Book"));
  EXPECT_TRUE(IsFolderFlushed("away"));
}

// The disk says no once, and drops the bytes.
class LosingFlush : public Flushing, public testing::WithParamInterface<int> {
 protected:
  static bool IsMany() { return GetParam() == kMany; }

  void SetUp() override {
    files_.MakeFolder(Path(u"Book"));
    for (int i = 0; i < GetParam(); ++i) Write(Page(i));
    Refuse(u"Book");
  }
  static Text Page(int number) { return u"Book\\" + platform::FromNumber(number); }
  void Refuse(TextView path) {
    DiskRecorder::RefuseFlushes(EIO, IsMany() ? "" : "Book/0");
    ExpectNo(path, path);
    DiskRecorder::RefuseFlushes(0);
  }
  void ExpectNo(TextView path, TextView lost) {
    std::string failure;
    platform::CatchingFailure([&] { files_.Flush(Path(path)); },
                              [&](const Text& text) { failure = platform::ToUtf8(text); });
    EXPECT_EQ(failure, "Can't flush " + platform::ToUtf8(Path(lost)) + ": Input/output error");
  }
  // Of many files any may be lost.
  void RewriteAllButOne() {
    for (int i = 1; IsMany() && i < GetParam(); ++i) Write(Page(i), "anew");
  }
  void ExpectWhole() {
    files_.Flush(Path(u"Book"));
    EXPECT_EQ(AfterCut(), testing_support::TreeOf(folder_.HostPath()));
  }
};

TEST_P(LosingFlush, IsAFailureUntilWhatIsLostIsReplaced) {
  ExpectNo(u"Book", Page(0));
  RewriteAllButOne();
  ExpectNo(u"Book", Page(0));
  ExpectNo(Page(0), Page(0));
  Write(Page(0), "anew");
  ExpectWhole();
}

TEST_P(LosingFlush, IsAFailureUntilWhatIsLostIsCopiedOver) {
  RewriteAllButOne();
  Write(u"Book\\source", "a copy");
  files_.CopyFile(Path(u"Book\\source"), Path(Page(0)));
  ExpectWhole();
}

TEST_P(LosingFlush, IsAFailureUntilWhatIsLostIsGone) {
  RewriteAllButOne();
  files_.DeleteFile(Path(Page(0)));
  ExpectWhole();
  Write(Page(0), "a new file", OpenMode::kAppend);
  ExpectWhole();
}

TEST_P(LosingFlush, ForgetsWhatOthersTookAwayAndThenIsMadeAnew) {
  RewriteAllButOne();
  unlink(folder_.HostPath("Book/0").c_str());
  Write(Page(0), "a new file", OpenMode::kAppend);
  ExpectWhole();
}

TEST_P(LosingFlush, IsAFailureUntilWhatIsLostIsGivenUp) {
  RewriteAllButOne();
  EXPECT_TRUE(files_.IsLost(Path(Page(0))));
  files_.GiveUp(Path(Page(0)));
  EXPECT_FALSE(files_.IsLost(Path(Page(0))));
  files_.Flush(Path(u"Book"));
}

TEST_P(LosingFlush, IsntMadeGoodByMoreAtTheEndNorByWhatFails) {
  RewriteAllButOne();
  Write(Page(0), " and more", OpenMode::kAppend);
  ExpectNo(u"Book", Page(0));
  EXPECT_THROW(files_.CopyFile(Path(u"nothing"), Path(Page(0))), Failure);
  ExpectNo(u"Book", Page(0));
  files_.Open(Path(Page(0)), OpenMode::kReplace, true)->Write("never closed");
  ExpectNo(u"Book", Page(0));
}

TEST_P(LosingFlush, SaysSoOfWhatMayBeLostElsewhere) {
  Write(u"log", "nobody has flushed it");
  RewriteAllButOne();
  Write(Page(0));
  if (IsMany()) {
    Refuse(u"Book");
    ExpectNo(u"log", u"log");
    files_.GiveUp(Path(u"log"));
  }
  EXPECT_FALSE(files_.IsLost(Path(u"log")));
  files_.Flush(Path(u"log"));
}

INSTANTIATE_TEST_SUITE_P(Each, LosingFlush, testing::Values(kFew, kMany),
                         [](const auto& files) { return files.param == kFew ? "few" : "many"; });

// With a folder the names in it; what has no bytes is asked again.
TEST_F(Flushing, OfAFolderThatIsRefusedLosesTheFilesInIt) {
  files_.MakeFolder(Path(u"Book"));
  files_.MakeFolder(Path(u"Book\\TXT"));
  DiskRecorder::RefuseFlushes(EIO);
  EXPECT_THROW(files_.Flush(Path(u"Book")), Failure);
  DiskRecorder::RefuseFlushes(0);
  files_.Flush(Path(u"Book"));
  Write(u"Book\\TXT\\page");
  Write(u"Book\\TXT\\gone");
  Write(u"Book\\Index");
  files_.DeleteFile(Path(u"Book\\TXT\\gone"));
  DiskRecorder::RefuseFlushes(EIO, "Book/TXT");
  EXPECT_THROW(files_.Flush(Path(u"Book")), Failure);
  DiskRecorder::RefuseFlushes(0);
  EXPECT_TRUE(files_.IsLost(Path(u"Book\\TXT\\page")));
  EXPECT_FALSE(files_.IsLost(Path(u"Book\\Index")));
  Write(u"Book\\TXT\\page", "anew");
  files_.Flush(Path(u"Book"));
  EXPECT_EQ(AfterCut(), testing_support::TreeOf(folder_.HostPath()));
}

// A host that keeps some of it from the tool which wrote it.
class FlushingByAnOrdinaryUser : public Flushing {
 protected:
  void SetUp() override {
    if (!user_.IsOrdinary()) GTEST_SKIP() << "refused nothing";
    files_.MakeFolder(Path(u"Book"));
    files_.MakeFolder(Path(u"Book\\TXT"));
  }
  void TearDown() override { SetMode("Book/TXT", 0700); }
  void SetMode(const std::string& below, mode_t mode) {
    ASSERT_EQ(chmod(folder_.HostPath(below).c_str(), mode), 0);
  }

  testing_support::OrdinaryUser user_{folder_.HostPath()};
};

TEST_F(FlushingByAnOrdinaryUser, BringsAFileThatMayBeWrittenButNotRead) {
  Write(u"Book\\TXT\\page");
  SetMode("Book/TXT/page", 0200);
  files_.Flush(Path(u"Book"));
  EXPECT_EQ(AfterCut().at("Book/TXT/page"), "text");
}

TEST_F(FlushingByAnOrdinaryUser, FailsWhereItMayNotLookIntoWhatItWrote) {
  Write(u"Book\\TXT\\page");
  SetMode("Book/TXT/page", 0);
  EXPECT_THROW(files_.Flush(Path(u"Book")), Failure);
  SetMode("Book/TXT/page", 0600);
  SetMode("Book/TXT", 0);
  EXPECT_THROW(files_.Flush(Path(u"Book")), Failure);
  SetMode("Book/TXT", 0700);
  files_.Flush(Path(u"Book"));
  EXPECT_EQ(AfterCut(), testing_support::TreeOf(folder_.HostPath()));
}

TEST_F(FlushingByAnOrdinaryUser, HasNothingToWaitForWhereItCouldntWrite) {
  Write(u"Book\\TXT\\page");
  files_.Flush(Path(u"Book"));
  SetMode("Book/TXT/page", 0);
  EXPECT_THROW(Write(u"Book\\TXT\\page"), Failure);
  files_.Flush(Path(u"Book"));
}

TEST_F(FlushingByAnOrdinaryUser, BringsTheNamesInAFolderThatMayBeWrittenButNotRead) {
  for (const int pages : {kFew, kMany}) {
    for (int i = 0; i < pages; ++i) Write(u"Book\\TXT\\" + platform::FromNumber(pages + i));
    SetMode("Book/TXT", 0300);
    files_.Flush(Path(u"Book"));
    SetMode("Book/TXT", 0700);
    EXPECT_EQ(AfterCut(), testing_support::TreeOf(folder_.HostPath()));
  }
}

TEST_F(FlushingByAnOrdinaryUser, NeedsNoFileOfThemForThat) {
  Write(u"Book\\TXT\\page");
  files_.Flush(Path(u"Book"));
  files_.DeleteFile(Path(u"Book\\TXT\\page"));
  SetMode("Book/TXT", 0300);
  files_.Flush(Path(u"Book"));
  EXPECT_EQ(AfterCut(), (DiskTree{{"Book", "/"}, {"Book/TXT", "/"}}));
}

// What an ext4 answers that has given up and let itself be read alone from then on.
TEST_F(Flushing, OnADiskThatTakesNothingAnyMoreIsAFailure) {
  Write(u"a");
  DiskRecorder::RefuseFlushes(EROFS);
  EXPECT_THROW(files_.Flush(Path(u"a")), Failure);
}

// Not even that is the disk's no.
TEST_F(Flushing, OnAHostThatHasNoneIsNoFailure) {
  Write(u"a");
  DiskRecorder::RefuseFlushes(EINVAL);
  files_.Flush(Path(u"a"));
}

TEST_F(Flushing, OfAFolderThatIsGoneIsAFailure) {
  MakeBook(kFew);
  std::filesystem::remove_all(folder_.HostPath("Book"));
  EXPECT_THROW(files_.Flush(Path(u"Book")), Failure);
  EXPECT_THROW(files_.Flush(u""), Failure);
}

// The folder of a book may be no folder but what its paths begin with, or nothing at all.
class FlushingFromTheCurrentFolder : public Flushing, public testing::WithParamInterface<TextView> {
 protected:
  void SetUp() override {
    std::filesystem::current_path(folder_.HostPath());
    files_.MakeFolder(Below(u"TXT"));
    const auto file = files_.Open(Below(u"TXT\\page"), OpenMode::kReplace, true);
    file->Write("text");
    file->Close();
  }
  void TearDown() override { std::filesystem::current_path(before_); }
  static Text Below(TextView path) { return Text(GetParam()).append(path); }

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

TEST_P(FlushingFromTheCurrentFolder, BringsWhatBeginsSo) {
  Write(u"elsewhere", "nobody waits for it");
  files_.Flush(GetParam());
  DiskTree whole = testing_support::TreeOf(folder_.HostPath());
  whole["elsewhere"] = "";
  EXPECT_EQ(AfterCut(), whole);
}

TEST_P(FlushingFromTheCurrentFolder, IsAFailureWhereItIsGone) {
  std::filesystem::remove_all(folder_.HostPath(platform::ToUtf8(Below(u"TXT"))));
  EXPECT_THROW(files_.Flush(GetParam()), Failure);
  files_.GiveUp(Below(u"TXT\\page"));
}

INSTANTIATE_TEST_SUITE_P(Each, FlushingFromTheCurrentFolder, testing::Values(u"", u"D"),
                         [](const auto& path) { return path.param.empty() ? "none" : "letter"; });

TEST_F(Flushing, OfAFileIsNoneOfOthersWhoseNamesBeginSo) {
  Write(u"Index");
  Write(u"Index of others");
  files_.Flush(Path(u"Index"));
  EXPECT_EQ(AfterCut(), (DiskTree{{"Index", "text"}, {"Index of others", ""}}));
}

TEST_F(Flushing, OfWhatOthersTookAwayMeanwhileIsNoFailure) {
  MakeBook(kFew);
  std::filesystem::remove_all(folder_.HostPath("Book/TXT"));
  files_.Flush(Path(u"Book"));
  files_.Flush(folder_.Path());
}

}  // namespace
