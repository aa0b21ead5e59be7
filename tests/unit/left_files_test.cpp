// What a tool that dies while it replaces a file leaves beside it, and who takes that away.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>

#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::Failure;
using platform::FileSystem;
using platform::OpenMode;
using platform::Text;
using platform::TextView;
using testing::EndsWith;

const std::string kOldText = "the old text, longer than a mark";
const TextView kLeft = u".a.zorvand-new";

class LeftFiles : public testing::Test {
 protected:
  void SetUp() override { folder_.Write(u"a", kOldText); }
  void TearDown() override { KillOther(); }

  void Replace(TextView name, std::string_view bytes = "new") {
    const auto file = files_.Open(folder_.Path(name), OpenMode::kReplace, false);
    file->Write(bytes);
    file->Close();
  }

  // Another tool in the middle of replacing "a"; comes back when it is there.
  void StartOther() {
    int ready[2];
    ASSERT_EQ(pipe2(ready, O_CLOEXEC), 0);
    other_ = fork();
    if (other_ == 0) {
      const auto file = files_.Open(folder_.Path(u"a"), OpenMode::kReplace, false);
      file->Write("half a te");
      if (write(ready[1], "!", 1) == 1) pause();
      _exit(1);
    }
    char byte = 0;
    EXPECT_EQ(read(ready[0], &byte, 1), 1);
    close(ready[0]);
    close(ready[1]);
  }
  void KillOther() {
    if (other_ <= 0) return;
    kill(other_, SIGKILL);
    waitpid(other_, nullptr, 0);
    other_ = 0;
  }

  testing_support::TemporaryFolder folder_;
  FileSystem& files_ = platform::HostFileSystem();

 private:
  pid_t other_ = 0;
};

TEST_F(LeftFiles, ACrashLeavesTheOldTextAndItsLeftoverIsUsedUp) {
  StartOther();
  KillOther();
  EXPECT_EQ(folder_.Read(u"a"), kOldText);
  EXPECT_TRUE(folder_.Has(kLeft));
  Replace(u"a", "the whole text");
  EXPECT_EQ(folder_.Read(u"a"), "the whole text");
  EXPECT_EQ(folder_.Count(), 1);
}

TEST_F(LeftFiles, OfADeadToolGoWhenAnyFileOfTheFolderIsReplaced) {
  folder_.Write(u"b", kOldText);
  StartOther();
  KillOther();
  Replace(u"b");
  EXPECT_FALSE(folder_.Has(kLeft));
  EXPECT_EQ(folder_.Read(u"a"), kOldText);
  EXPECT_EQ(folder_.Read(u"b"), "new");
  EXPECT_EQ(folder_.Count(), 2);
}

TEST_F(LeftFiles, GoWhenAFileIsCopiedOver) {
  folder_.Write(u"b", kOldText);
  StartOther();
  KillOther();
  files_.CopyFile(folder_.Path(u"a"), folder_.Path(u"b"));
  EXPECT_EQ(folder_.Count(), 2);
}

TEST_F(LeftFiles, OfALivingToolStay) {
  folder_.Write(u"b", kOldText);
  StartOther();
  Replace(u"b");
  EXPECT_EQ(folder_.Read(u"b"), "new");
  EXPECT_EQ(folder_.Read(kLeft), "half a te");
}

TEST_F(LeftFiles, TwoToolsDoNotReplaceOneFileAtOnce) {
  StartOther();
  std::string failure;
  platform::CatchingFailure([&] { Replace(u"a"); },
                            [&](const Text& text) { failure = platform::ToUtf8(text); });
  EXPECT_THAT(failure, EndsWith("a: Device or resource busy"));
  EXPECT_EQ(folder_.Read(u"a"), kOldText);
  EXPECT_EQ(folder_.Read(kLeft), "half a te");
  KillOther();
  Replace(u"a");
  EXPECT_EQ(folder_.Read(u"a"), "new");
  EXPECT_EQ(folder_.Count(), 1);
}

// Looking through a large folder each time would cost more than the replacing.
TEST_F(LeftFiles, InALargeFolderGoWithinSoManyReplacementsAsItHasThousandsOfNames) {
  for (int i = 0; i < 1500; ++i) folder_.Write(u"n" + platform::FromNumber(i), "");
  Replace(u"a");
  folder_.Write(u".b.zorvand-new", "left");
  for (int i = 0; i < 2; ++i) Replace(u"a");
  EXPECT_FALSE(folder_.Has(u".b.zorvand-new"));
}

TEST_F(LeftFiles, ThatLeadElsewhereAreNotFollowed) {
  folder_.Write(u"precious", "untouched");
  std::filesystem::create_symlink("precious", folder_.HostPath(".a.zorvand-new"));
  Replace(u"a");
  EXPECT_EQ(folder_.Read(u"precious"), "untouched");
  EXPECT_EQ(folder_.Read(u"a"), "new");
}

TEST_F(LeftFiles, AFolderInTheWayOfTheNewTextIsAFailure) {
  folder_.MakeFolder(kLeft);
  EXPECT_THROW(Replace(u"a"), Failure);
  EXPECT_EQ(folder_.Read(u"a"), kOldText);
}

}  // namespace
