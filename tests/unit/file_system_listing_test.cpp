#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/files/paths.h"
#include "tests/unit/file_system_testing.h"

namespace {

using namespace platform;
using testing::ElementsAre;
using testing_support::FailureOf;

using Listing = testing_support::FileSystemTest;

TEST_F(Listing, SortsWithoutRegardToCase) {
  for (const Text name : {u"b", u"A", u"a", u"C", u"_", u"Z1", u"z2"}) folder_.Write(name, "");
  folder_.MakeFolder(u"Y");
  folder_.MakeFolder(u"x");
  EXPECT_THAT(files_.FileNames(folder_.Path()),
              ElementsAre(u"_", u"A", u"a", u"b", u"C", u"Z1", u"z2"));
  EXPECT_THAT(files_.FolderNames(folder_.Path() + u"\\"), ElementsAre(u"x", u"Y"));
}

TEST_F(Listing, LinksCountAsWhatTheyLeadTo) {
  folder_.Write(u"file", "");
  folder_.MakeFolder(u"folder");
  std::filesystem::create_symlink("file", folder_.HostPath("toFile"));
  std::filesystem::create_symlink("folder", folder_.HostPath("toFolder"));
  std::filesystem::create_symlink("nowhere", folder_.HostPath("toNowhere"));
  ASSERT_EQ(mkfifo(folder_.HostPath("pipe").c_str(), 0600), 0);
  EXPECT_THAT(files_.FileNames(folder_.Path()), ElementsAre(u"file", u"toFile"));
  EXPECT_THAT(files_.FolderNames(folder_.Path()), ElementsAre(u"folder", u"toFolder"));
}

TEST_F(Listing, LeavesOutNamesThatNoPathCanHold) {
  folder_.Write(u"plain", "");
  ASSERT_GE(close(open(folder_.HostPath("back\\slash").c_str(), O_CREAT | O_WRONLY, 0600)), 0);
  EXPECT_THAT(files_.FileNames(folder_.Path()), ElementsAre(u"plain"));
}

TEST_F(Listing, ANameThatIsNoUtf8CanBeOpened) {
  const int file = open(folder_.HostPath("a\xD9\xFFz").c_str(), O_CREAT | O_WRONLY, 0600);
  ASSERT_EQ(write(file, "found", 5), 5);
  ASSERT_EQ(close(file), 0);
  const std::vector<Text> names = files_.FileNames(folder_.Path());
  ASSERT_EQ(names.size(), 1U);
  EXPECT_EQ(ReadWhole(names[0]), "found");
}

TEST_F(Listing, NeedsAFolder) {
  folder_.Write(u"file", "");
  EXPECT_EQ(FailureOf([&] { files_.FileNames(Path(u"none")); }),
            "Can't list " + ToUtf8(Path(u"none")) + ": No such file or directory");
  EXPECT_THROW(files_.FileNames(Path(u"file")), Failure);
  EXPECT_THROW(files_.FolderNames(u""), Failure);
}

TEST_F(Listing, OfTenThousandNamesIsWholeAndSorted) {
  for (int i = 0; i < 10000; ++i) {
    std::string name(1, i % 2 != 0 ? 'n' : 'N');
    name += std::to_string(i);
    ASSERT_EQ(close(open(folder_.HostPath(name).c_str(), O_CREAT | O_WRONLY, 0600)), 0);
  }
  const std::vector<Text> names = files_.FileNames(folder_.Path());
  EXPECT_EQ(names.size(), 10000U);
  EXPECT_TRUE(std::is_sorted(names.begin(), names.end(),
                             [](const Text& a, const Text& b) { return LCase(a) < LCase(b); }));
}

}  // namespace
