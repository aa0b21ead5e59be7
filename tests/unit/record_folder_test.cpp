// The folder of records on a host that gives no locks: nothing is kept in it that another tool
// could take for its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

#include "platform/files/record_folder.h"
#include "tests/support/temporary_folder.h"
#include "tests/unit/file_system_testing.h"

namespace {

int lockError = 0;  // what the host says to the next ones that want a lock

}  // namespace

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
extern "C" int flock(int file, int operation) noexcept {
  if (lockError == 0) return static_cast<int>(syscall(SYS_flock, file, operation));
  errno = lockError;
  return -1;
}

namespace {

using platform::RecordFile;
using testing::EndsWith;
using testing_support::FailureOf;

class RecordFolder : public testing::Test {
 protected:
  void TearDown() override { lockError = 0; }

  const testing_support::TemporaryFolder folder;
  const std::unique_ptr<platform::RecordFolder> records = platform::HostRecordFolder(folder.Path());
};

TEST_F(RecordFolder, WithoutLocksMakesNoRecord) {
  lockError = ENOLCK;
  EXPECT_THAT(FailureOf([&] { static_cast<void>(records->Make(u"a1")); }),
              EndsWith("No locks available"));
  EXPECT_EQ(folder.Count(), 0);
}

TEST_F(RecordFolder, ARecordThatIsReplacedWithoutLocksStaysAsItWas) {
  const std::unique_ptr<RecordFile> record = records->Make(u"a1");
  record->Append("one");
  lockError = ENOLCK;
  EXPECT_THAT(
      FailureOf([&] { record->Replace([](const RecordFile::Sink& sink) { sink("other"); }); }),
      EndsWith("No locks available"));
  EXPECT_EQ(folder.Count(), 1);
  record->Append(" two");
  EXPECT_EQ(record->Read(100), "one two");
}

}  // namespace
