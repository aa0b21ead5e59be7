// Memory that runs out when a file is open already leaves no file that wasn't there.
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <string>

#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "tests/support/failing_memory.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::FileSystem;
using platform::OpenMode;
using platform::Text;

class FilesWithoutMemory : public testing::Test {
 protected:
  void TearDown() override { testing_support::LetAllocationsBe(); }

  testing_support::TemporaryFolder folder_;
  FileSystem& files_ = platform::HostFileSystem();
};

// What the kernel won't copy goes through a buffer, which is asked for when the target is open.
TEST_F(FilesWithoutMemory, ACopyLeavesNoNewTarget) {
  folder_.Write(u"a", "x");
  constexpr std::size_t kHalfABuffer = std::size_t{1} << 15;
  testing_support::FailNextAllocation(kHalfABuffer);
  EXPECT_THROW(files_.CopyFile(folder_.Path(u"a"), folder_.Path(u"new")), std::bad_alloc);
  ASSERT_FALSE(testing_support::AllocationStillToFail());
  EXPECT_FALSE(folder_.Has(u"new"));
  files_.CopyFile(folder_.Path(u"a"), folder_.Path(u"new"));
  EXPECT_EQ(folder_.Read(u"new"), "x");
}

TEST_F(FilesWithoutMemory, AFileOfAnySizeIsCopiedInTheSameMemory) {
  constexpr std::size_t kMegabyte = std::size_t{1} << 20;
  folder_.Write(u"small", "x");
  folder_.Write(u"large", std::string(10 * kMegabyte, 'x'));
  const auto copy = [this](platform::TextView from, platform::TextView to) {
    return testing_support::BytesAskedFor(
        [&] { files_.CopyFile(folder_.Path(from), folder_.Path(to)); });
  };
  EXPECT_LE(copy(u"large", u"new"), copy(u"small", u"another") + testing_support::kSmallChange);
}

TEST_F(FilesWithoutMemory, OpeningANewFileLeavesNone) {
  const Text path = folder_.Path(u"new");
  int opened = 0;
  const std::function<void()> open = [&] {
    static_cast<void>(files_.Open(path, OpenMode::kReplace, true));
    ++opened;
  };
  constexpr std::size_t kLargest = 1000;
  for (std::size_t bytes = 1; bytes <= kLargest; ++bytes) {
    testing_support::FailNextAllocation(bytes);
    platform::Ignoring(open);
    testing_support::LetAllocationsBe();
    EXPECT_EQ(folder_.Count(), 0) << bytes;
  }
  EXPECT_GT(opened, 0);
  EXPECT_LT(opened, static_cast<int>(kLargest));
}

}  // namespace
