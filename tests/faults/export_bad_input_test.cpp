// An export out of files that nobody wrote by hand: huge, broken, in another encoding. Whatever
// they hold, nothing but the export's own folder is touched, and the tool goes on.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/text/encoding.h"
#include "tests/faults/export_walk.h"

namespace {

using faults::ExportWalk;
using faults::Tree;
using platform::Text;
using testing::ElementsAre;
using testing::IsEmpty;
using testing_support::BoxText;
using testing_support::PageBytes;
using testing_support::ScriptOf;

constexpr const char* kRoot = "Export/Export 2";
constexpr std::size_t kMegabyte = std::size_t{1} << 20;

const std::string kSmallScript = ScriptOf({{"Data"}, {"TXT => Data\\TXT"}, {"main.exe => root"}});

std::string Repeated(const std::string& piece, std::size_t bytes) {
  std::string text;
  text.reserve(bytes + piece.size());
  while (text.size() < bytes) text += piece;
  return text;
}

class ExportOfBadInput : public testing::Test {
 protected:
  void ExportBy(const std::string& script, int message) {
    walk.desk.Write("Resources/Export.inf", script);
    Export(message);
  }
  void Export(int message) {
    const Tree around = walk.Around(kRoot);
    EXPECT_THAT(walk.desk.Export(), ElementsAre(BoxText(message)));
    EXPECT_TRUE(walk.Around(kRoot) == around) << "something else was touched";
  }
  void ExpectFailureWithoutRoot(const std::string& script) {
    ExportBy(script, 28);
    EXPECT_FALSE(walk.desk.Has(kRoot));
    ExportBy(kSmallScript, 29);
    EXPECT_TRUE(walk.desk.Has(std::string(kRoot) + "/main.exe"));
  }
  // Of a page in these bytes.
  std::string PrintPageOf(const std::string& bytes) {
    walk.desk.Write("Resources/Default.html", PageBytes(u"<h1>%Title%</h1>%Matn%"));
    walk.desk.Write("Data/TXT/A.htm", bytes);
    ExportBy(kSmallScript, 29);
    EXPECT_TRUE(walk.desk.Read(std::string(kRoot) + "/Data/TXT/A.htm") == bytes);
    return walk.desk.Read(std::string(kRoot) + "/Data/TXT/A.html");
  }

  ExportWalk walk;
};

using ExportScriptOfBadInput = ExportOfBadInput;

TEST_F(ExportScriptOfBadInput, TenMegabytesWithoutAHeader) {
  ExpectFailureWithoutRoot(Repeated("Data => root\r\n", 10 * kMegabyte));
}

TEST_F(ExportScriptOfBadInput, TenMegabytesOfHeaders) {
  ExpectFailureWithoutRoot(Repeated("[ Make Folder ]\r\nData\r\n\r\n", 10 * kMegabyte));
}

TEST_F(ExportScriptOfBadInput, TenMegabytesAheadOfAndAfterTheSections) {
  const std::string words = Repeated("a word => another\r\n", 5 * kMegabyte);
  ExportBy(words + kSmallScript + words, 29);
  EXPECT_THAT(walk.desk.Names(kRoot), ElementsAre("Data", "main.exe"));
}

TEST_F(ExportScriptOfBadInput, ANameOfTenMegabytes) {
  ExportBy(ScriptOf({{"Data", std::string(10 * kMegabyte, 'x')}, {}, {}}), 28);
  EXPECT_EQ(walk.TreeOf(kRoot), (Tree{{"Data", "/"}}));
}

TEST_F(ExportScriptOfBadInput, TenMegabytesOfEmptyLinesInASection) {
  ExportBy("[ Make Folder ]\r\n" + Repeated("\r\n", 10 * kMegabyte) +
               "[ Copy Folder ]\r\n\r\n[ Copy File ]\r\n\r\n[",
           28);
  EXPECT_THAT(walk.TreeOf(kRoot), IsEmpty());
}

TEST_F(ExportScriptOfBadInput, OneBracket) { ExpectFailureWithoutRoot("["); }

TEST_F(ExportScriptOfBadInput, NothingAtAll) { ExpectFailureWithoutRoot(""); }

TEST_F(ExportScriptOfBadInput, NulsAroundTheSectionsAreWordsLikeOthers) {
  const std::string nuls(1000, '\0');
  ExportBy(nuls + kSmallScript + nuls, 29);
  EXPECT_THAT(walk.desk.Names(kRoot), ElementsAre("Data", "main.exe"));
}

TEST_F(ExportScriptOfBadInput, ANulInANameIsNoEndOfTheName) {
  using namespace std::string_literals;
  ExportBy(ScriptOf({{"Data", "More\0Folders"s}, {}, {}}), 28);
  EXPECT_EQ(walk.TreeOf(kRoot), (Tree{{"Data", "/"}}));
}

TEST_F(ExportScriptOfBadInput, Utf16) {
  ExpectFailureWithoutRoot(PageBytes(platform::FromUtf8(kSmallScript)));
}

TEST_F(ExportScriptOfBadInput, Utf8WithItsMark) {
  ExportBy("\xEF\xBB\xBF" + kSmallScript, 29);
  EXPECT_THAT(walk.desk.Names(kRoot), ElementsAre("Data", "main.exe"));
}

TEST_F(ExportScriptOfBadInput, EveryByte) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  ExpectFailureWithoutRoot(bytes);
}

TEST_F(ExportScriptOfBadInput, AFolderInItsPlaceCountsAsMissing) {
  std::filesystem::remove(walk.desk.HostPath("Resources/Export.inf"));
  walk.desk.MakeFolders("Resources/Export.inf");
  EXPECT_THAT(walk.desk.Export(), ElementsAre(BoxText(27), BoxText(29)));
  EXPECT_FALSE(walk.desk.Has(kRoot));
}

using PrintPageOfBadInput = ExportOfBadInput;

TEST_F(PrintPageOfBadInput, APageWithoutItsMarkIsReadAllTheSame) {
  EXPECT_EQ(PrintPageOf(platform::EncodeUtf16(u"<pgTitle>t</pgTitle><pgMain>x</pgMain>")),
            PageBytes(u"<h1>t</h1><p align=\"right\">x</p>"));
}

TEST_F(PrintPageOfBadInput, AnOddLastByteIsLeftOut) {
  EXPECT_EQ(PrintPageOf(PageBytes(u"<pgTitle>t</pgTitle>x") + "y"), PageBytes(u"<h1>t</h1>x"));
}

TEST_F(PrintPageOfBadInput, EightBitTextHasNoTitle) {
  const std::string page = PrintPageOf("<pgTitle>t</pgTitle><pgMain>body</pgMain>.");
  const Text body =
      platform::DecodeUtf16(std::string("<pgTitle>t</pgTitle><pgMain>body</pgMain>."));
  EXPECT_EQ(page, PageBytes(u"<h1></h1>" + body.substr(9)));
}

TEST_F(PrintPageOfBadInput, NulsAndHalfCharactersGoThrough) {
  const Text body = Text(u"a\0b", 3) + static_cast<char16_t>(0xD800) + u"c";
  EXPECT_EQ(PrintPageOf(PageBytes(u"<pgTitle>t</pgTitle>" + body)),
            PageBytes(u"<h1>t</h1>" + body));
}

TEST_F(PrintPageOfBadInput, APageOfItsMarkAloneEndsThePass) {
  walk.desk.Write("Data/TXT/A.htm", platform::kUtf16Mark);
  ExportBy(kSmallScript, 28);
  EXPECT_FALSE(walk.desk.Has(std::string(kRoot) + "/Data/TXT/A.html"));
  EXPECT_TRUE(walk.desk.Has(std::string(kRoot) + "/main.exe"));
}

TEST_F(PrintPageOfBadInput, APageOfOneByteEndsThePass) {
  walk.desk.Write("Data/TXT/A.htm", "x");
  ExportBy(kSmallScript, 28);
  EXPECT_FALSE(walk.desk.Has(std::string(kRoot) + "/Data/TXT/A.html"));
}

TEST_F(PrintPageOfBadInput, AFolderWithAPagesNameIsNoPage) {
  walk.desk.MakeFolders("Data/TXT/Folder.htm");
  ExportBy(kSmallScript, 29);
  EXPECT_FALSE(walk.desk.Has(std::string(kRoot) + "/Data/TXT/Folder.html"));
}

TEST_F(PrintPageOfBadInput, APageOfFiftyMegabytesComesWhole) {
  constexpr std::size_t kParagraphs = 50 * kMegabyte / (2 * 25);
  Text page = u"<pgTitle>t</pgTitle>";
  Text printed = u"<h1>t</h1>";
  for (std::size_t i = 0; i < kParagraphs; ++i) {
    page += u"<pgMain>0123456789</pgMain>";
    printed += u"<p align=\"right\">0123456789</p>";
  }
  ASSERT_GT(PageBytes(page).size(), 50 * kMegabyte);
  EXPECT_TRUE(PrintPageOf(PageBytes(page)) == PageBytes(printed));
}

TEST_F(PrintPageOfBadInput, TwentyThousandPagesGetTheirPrintPagesEach) {
  constexpr int kPages = 20'000;
  const std::string page = PageBytes(u"<pgTitle>t</pgTitle>x");
  for (int i = 0; i < kPages; ++i) {
    walk.desk.Write("Data/TXT/P" + std::to_string(i) + ".htm", page);
  }
  ExportBy(kSmallScript, 29);
  const std::string folder = std::string(kRoot) + "/Data/TXT";
  const std::string printed = PageBytes(u"<h1>t</h1>x");
  for (int i = 0; i < kPages; ++i) {
    const std::string name = folder + "/P" + std::to_string(i) + ".html";
    ASSERT_TRUE(walk.desk.Read(name) == printed) << name;
  }
  EXPECT_EQ(walk.desk.Names(folder).size(), std::size_t{2} * (kPages + 2) + 1);
}

}  // namespace
