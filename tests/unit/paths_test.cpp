#include "platform/files/paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "tests/support/temporary_folder.h"
#include "tests/unit/file_system_testing.h"

namespace {

using namespace platform;
using testing_support::FailureOf;
using testing_support::TemporaryFolder;

TEST(HostPath, TheDriveIsTheRoot) {
  EXPECT_EQ(HostPath(u"C:\\home\\ali\\book"), "/home/ali/book");
  EXPECT_EQ(HostPath(u"c:\\x"), "/x");
  EXPECT_EQ(HostPath(u"C:"), "/");
  EXPECT_EQ(HostPath(u"C:\\"), "/");
  EXPECT_EQ(HostPath(u"C:x"), "/x");
}

TEST(HostPath, BothSeparatorsAreUnderstood) {
  EXPECT_EQ(HostPath(u"C:/a\\b/c"), "/a/b/c");
  EXPECT_EQ(HostPath(u"a/b\\c"), "a/b/c");
}

TEST(HostPath, WithoutADriveItStartsHereOrAtTheRoot) {
  EXPECT_EQ(HostPath(u"Data\\TXT"), "Data/TXT");
  EXPECT_EQ(HostPath(u"\\Data"), "/Data");
  EXPECT_EQ(HostPath(u"C"), "C");
}

TEST(HostPath, PersianNamesAreUtf8) {
  EXPECT_EQ(HostPath(u"C:\\\u0641\u0627"), "/\xD9\x81\xD8\xA7");
}

TEST(HostPath, FailsWhereThereIsNoSuchPath) {
  EXPECT_THROW(HostPath(u""), Failure);
  EXPECT_EQ(FailureOf([] { HostPath(u"D:\\x"); }), "There is no such drive: D:\\x");
  EXPECT_THROW(HostPath(u"1:\\x"), Failure);
  EXPECT_THROW(HostPath(Text(u"a\0b", 3)), Failure);
  EXPECT_THROW(HostPath(Text{u'a', 0xD800}), Failure);
  EXPECT_THROW(HostPath(Text{u'a', 0xDC7F}), Failure);
}

TEST(ToolPath, IsAbsoluteWithBackslashes) {
  EXPECT_EQ(ToolPath("/home/ali"), u"C:\\home\\ali");
  EXPECT_EQ(ToolPath("/"), u"C:\\");
  EXPECT_EQ(ToolPath("x/y"), ToolPath(std::filesystem::current_path().string()) + u"\\x\\y");
}

TEST(ToolPath, EveryByteThatANameCanHaveComesBack) {
  for (int value = 1; value < 256; ++value) {
    if (value == '\\') continue;
    const std::string host = std::string("/a") + static_cast<char>(value) + "z";
    EXPECT_EQ(HostPath(ToolPath(host)), host) << value;
  }
  EXPECT_EQ(ToolPath("/\xFF"), (Text{u'C', u':', u'\\', 0xDCFF}));
  EXPECT_EQ(ToolPath("/\x80"), (Text{u'C', u':', u'\\', 0xDC80}));
}

TEST(ToolPath, HalfACharacterAndAnOverlongOneComeBack) {
  for (const std::string host : {"/\xD9", "/\xE2\x80", "/\xED\xB2\x80", "/\xC0\xAF",
                                 "/\xF0\x9F\x98\x80\x80", "/\xF8\x88\x80\x80\x80"}) {
    EXPECT_EQ(HostPath(ToolPath(host)), host);
  }
}

TEST(ToolName, IsOneNameOfAListing) {
  EXPECT_EQ(ToolName("a\xFF"), (Text{u'a', 0xDCFF}));
  EXPECT_EQ(ToolName("\xD9\x81.txt"), u"\u0641.txt");
}

TEST(TypedPath, TurnsWhatIsAbsoluteOnThisHost) {
  EXPECT_EQ(TypedPath(u"/home/ali/texts"), u"C:\\home\\ali\\texts");
  EXPECT_EQ(TypedPath(u"/home/علی/متن‌ها/"), u"C:\\home\\علی\\متن‌ها\\");
  EXPECT_EQ(TypedPath(u"/"), u"C:\\");
  EXPECT_EQ(TypedPath(u" \t/home/a b\r\n"), u"C:\\home\\a b");
}

TEST(TypedPath, LeavesAllElseAsItIs) {
  for (const platform::TextView text :
       {u"", u"Data", u"Resources/MyBook.jpg", u"C:\\home\\ali", u"C:/home", u"\\home",
        u"\\\\server\\share", u"شاخه جاري", u" Data\n", u"~ali/x", u"~\\x", u"http://a/b", u"file",
        u"file:", u"file:x", u"file://", u"file://server/share/x", u"file:////x",
        u"file:///a%00b"}) {
    EXPECT_EQ(TypedPath(text), text) << platform::ToUtf8(text);
  }
}

TEST(TypedPath, TheHomeFolderIsTheUsers) {
  setenv("HOME", "/home/ali", 1);
  EXPECT_EQ(TypedPath(u"~"), u"C:\\home\\ali");
  EXPECT_EQ(TypedPath(u"~/texts"), u"C:\\home\\ali\\texts");
}

TEST(TypedPath, AFileManagersAddressIsDecoded) {
  EXPECT_EQ(TypedPath(u"file:///home/ali/a%20b%D8%A8.txt"), u"C:\\home\\ali\\a bب.txt");
  EXPECT_EQ(TypedPath(u"file://localhost/x\r\n"), u"C:\\x");
  EXPECT_EQ(TypedPath(u"file:/x/y"), u"C:\\x\\y");
  EXPECT_EQ(TypedPath(u"file:///100%"), u"C:\\100%");
  EXPECT_EQ(TypedPath(u"file:///100%4"), u"C:\\100%4");
  EXPECT_EQ(TypedPath(u"file:///a%zzb"), u"C:\\a%zzb");
  EXPECT_EQ(HostPath(TypedPath(u"file:///%ff")), "/\xFF");
}

TEST(DoSlash, AddsAFinalBackslashToTwoCharactersAndMore) {
  EXPECT_EQ(DoSlash(u""), u"");
  EXPECT_EQ(DoSlash(u"C"), u"C");
  EXPECT_EQ(DoSlash(u"C:"), u"C:\\");
  EXPECT_EQ(DoSlash(u"C:\\"), u"C:\\");
  EXPECT_EQ(DoSlash(u"C:/x/"), u"C:/x/\\");
}

TEST(DoSlash, TheShortestTextThatGetsOneCanBeNamed) {
  EXPECT_EQ(DoSlash(u"", 1), u"");
  EXPECT_EQ(DoSlash(u"C", 1), u"C\\");
  EXPECT_EQ(DoSlash(u"\\", 1), u"\\");
  EXPECT_EQ(DoSlash(u"C:\\a", 1), u"C:\\a\\");
}

TEST(ProgramFolder, HoldsTheRunningProgram) {
  const Text folder = ProgramFolder();
  EXPECT_FALSE(folder.ends_with(u'\\'));
  EXPECT_TRUE(HostFileSystem().FolderExists(folder));
  EXPECT_TRUE(HostFileSystem().FileExists(
      folder + u"\\" +
      FromUtf8(std::filesystem::read_symlink("/proc/self/exe").filename().string())));
}

TEST(StateFolder, HoldsTheSecondLogAndTheRecordsAndIsMadeByNeitherName) {
  const TemporaryFolder home;
  setenv("HOME", home.HostPath().c_str(), 1);
  EXPECT_EQ(SystemLogPath(), home.Path(u".local\\state\\zorvand\\ZVL.log"));
  EXPECT_EQ(RecordsPath(), home.Path(u".local\\state\\zorvand\\recovery"));
  EXPECT_FALSE(HostFileSystem().FolderExists(home.Path(u".local")));
}

TEST(StateFolder, IsMadeWithThoseAboveItAndForItsUserAlone) {
  const TemporaryFolder home;
  setenv("HOME", home.HostPath().c_str(), 1);
  platform::MakeStateFolder();
  platform::MakeStateFolder();
  const std::filesystem::path folder = home.HostPath() + "/.local/state/zorvand";
  ASSERT_TRUE(std::filesystem::is_directory(folder));
  EXPECT_EQ(std::filesystem::status(folder).permissions(), std::filesystem::perms::owner_all);
}

TEST(StateFolder, ThatCanNotBeMadeIsNamedAllTheSame) {
  const TemporaryFolder home;
  home.Write(u".local", "a file stands in the way");
  setenv("HOME", home.HostPath().c_str(), 1);
  platform::MakeStateFolder();
  EXPECT_EQ(SystemLogPath(), home.Path(u".local\\state\\zorvand\\ZVL.log"));
}

TEST(RecordsPath, LiesBesideThatLog) {
  const TemporaryFolder home;
  setenv("HOME", home.HostPath().c_str(), 1);
  EXPECT_EQ(RecordsPath(), home.Path(u".local\\state\\zorvand\\recovery"));
}

}  // namespace
