#include "tests/support/faulty_file_system.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>

#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/files/paths.h"
#include "tests/unit/file_system_testing.h"

namespace {

using namespace platform;
using testing_support::FaultyFileSystem;
using testing_support::kOldText;

// The fault injector itself: what it counts, and that only the k-th operation fails.
class Faults : public testing_support::FileSystemTest {
 protected:
  // Each operation tried on its own; how many of them failed.
  int Run() {
    int failed = 0;
    std::unique_ptr<OpenedFile> file;
    const auto tried = [&](const std::function<void()>& operation) {
      CatchingFailure(operation, [&](const Text&) { ++failed; });
    };
    tried([&] { faulty_.MakeFolder(Path(u"f")); });
    tried([&] { faulty_.FolderExists(Path(u"f")); });
    tried([&] { faulty_.FileExists(Path(u"a")); });
    tried([&] { file = faulty_.Open(Path(u"a"), OpenMode::kReplace, true); });
    if (file) tried([&] { file->Write("abc"); });
    if (file) tried([&] { file->Close(); });
    tried([&] { faulty_.FileNames(folder_.Path()); });
    tried([&] { faulty_.FolderNames(folder_.Path()); });
    tried([&] { faulty_.CopyFile(Path(u"given"), Path(u"b")); });
    tried([&] { faulty_.DeleteFile(Path(u"given2")); });
    tried([&] { faulty_.Flush(folder_.Path()); });
    file.reset();
    tried([&] { faulty_.Open(Path(u"given"), OpenMode::kRead, false)->ReadAll(); });
    return failed;
  }
  void SetUp() override {
    folder_.Write(u"given", "g");
    folder_.Write(u"given2", "g");
  }

  FaultyFileSystem faulty_{HostFileSystem()};
};

TEST_F(Faults, NoneUnlessAsked) {
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(faulty_.Operations(), 13U);
  EXPECT_EQ(faulty_.Names()[3], "Open " + ToUtf8(Path(u"a")));
  EXPECT_FALSE(faulty_.HasFailed());
}

class FaultAt : public Faults, public testing::WithParamInterface<std::size_t> {};

TEST_P(FaultAt, ThatOneAlone) {
  faulty_.FailAt(GetParam());
  EXPECT_EQ(Run(), 1);
  EXPECT_TRUE(faulty_.HasFailed());
}

INSTANTIATE_TEST_SUITE_P(EachOperation, FaultAt, testing::Range<std::size_t>(1, 14));

TEST_F(Faults, PastTheEndNothingFails) {
  faulty_.FailAt(14);
  EXPECT_EQ(Run(), 0);
  EXPECT_FALSE(faulty_.HasFailed());
}

TEST_F(Faults, FromOneOnAllFail) {
  faulty_.FailFrom(7);
  EXPECT_EQ(Run(), 6);
  EXPECT_EQ(folder_.Read(u"a"), "abc");
  EXPECT_TRUE(folder_.Has(u"given2"));
}

TEST_F(Faults, AWriteOrCloseThatFailsKeepsTheOldText) {
  folder_.Write(u"a", kOldText);
  for (const std::size_t k : {5U, 6U}) {
    faulty_.FailAt(k);
    Run();
    EXPECT_EQ(folder_.Read(u"a"), k == 5 ? "" : kOldText) << faulty_.Names().back();
    folder_.Write(u"a", kOldText);
  }
}

}  // namespace
