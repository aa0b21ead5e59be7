// The two delivered files of an export: its script and the template of its print pages.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "export/print_page.h"
#include "export/script.h"
#include "platform/text/encoding.h"

namespace {

using platform::Position;
using platform::Text;
using platform::TextView;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::string Delivered(const std::string& name) {
  // This file lies in tests/unit.
  const std::string here = __FILE__;
  const std::string tree = here.substr(0, here.rfind("tests/unit/"));
  std::ifstream file(tree + "Resources/" + name, std::ios::binary);
  if (!file) throw std::runtime_error("no delivered file " + name);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

Text Script() { return platform::DecodeMachineCodePage(Delivered("Export.inf")); }

Text Template() {
  return platform::DecodeUtf16(Delivered("Default.html").substr(platform::kUtf16Mark.size()));
}

int Times(TextView text, TextView word) {
  int times = 0;
  for (Position at = platform::InStr(text, word); at > 0;
       at = platform::InStr(text, word, at + 1)) {
    ++times;
  }
  return times;
}

// Every line feed has its carriage return and the other way round.
void ExpectWholeLineEnds(TextView text) {
  EXPECT_EQ(Times(text, u"\n"), Times(text, platform::kCrLf));
  EXPECT_EQ(Times(text, u"\r"), Times(text, platform::kCrLf));
  EXPECT_GT(Times(text, platform::kCrLf), 0);
}

TEST(DeliveredScript, MakesAndCopiesWhatABookNeeds) {
  const exporting::ExportScript script = exporting::CutScript(Script());
  EXPECT_THAT(script.makeFolder, ElementsAre(u"Data"));
  EXPECT_THAT(script.copyFolder, ElementsAre(u"TXT => Data\\TXT", u"_xml => Data\\_xml",
                                             u"IMG => Data\\IMG", u"FlashIMG => Data\\FlashIMG"));
  EXPECT_THAT(script.copyFile, ElementsAre(u"main.exe => root"));
}

// The grammar allows any path, and an export writes over what is there.
bool LeadsOut(TextView path) {
  if (path.starts_with(u"\\") || path.starts_with(u"/")) return true;
  if (path.find(u':') != TextView::npos || path.find(u'/') != TextView::npos) return true;
  const std::vector<Text> names = platform::Split(path, u"\\");
  return std::any_of(names.begin(), names.end(), [](const Text& name) {
    const TextView trimmed = platform::Trim(name);
    return trimmed.empty() || trimmed == u"." || trimmed == u"..";
  });
}

TEST(DeliveredScript, StaysInsideTheProjectTheResourcesAndTheExport) {
  const exporting::ExportScript script = exporting::CutScript(Script());
  std::vector<Text> paths = script.makeFolder;
  for (const Text& line : script.copyFolder) {
    paths.push_back(exporting::SplitCopyLine(line).source);
    paths.push_back(exporting::SplitCopyLine(line).target);
  }
  for (const Text& line : script.copyFile) {
    const auto [source, target] = exporting::SplitCopyLine(line);
    paths.push_back(source);
    ASSERT_TRUE(target.starts_with(u"root")) << platform::ToUtf8(line);
    const Text below = exporting::WithoutRootWord(target);
    if (below.empty()) continue;  // the export's own folder
    EXPECT_TRUE(below.starts_with(u"\\")) << platform::ToUtf8(line);
    paths.push_back(below.substr(1));
  }
  for (const Text& path : paths) EXPECT_FALSE(LeadsOut(path)) << platform::ToUtf8(path);
}

TEST(DeliveredScript, WhatLeadsOutIsKnown) {
  for (const TextView path : {u"..", u"Data\\..\\..", u"\\Data", u"C:\\Data", u"Data/TXT", u"/etc",
                              u"Data\\ ..", u".\\Data", u""}) {
    EXPECT_TRUE(LeadsOut(path)) << platform::ToUtf8(path);
  }
  for (const TextView path : {u"Data", u"Data\\TXT", u"main.exe", u"a..b"}) {
    EXPECT_FALSE(LeadsOut(path)) << platform::ToUtf8(path);
  }
}

TEST(DeliveredScript, IsWrittenInTheMachinesCodePageWithWholeLineEnds) {
  ExpectWholeLineEnds(Script());
  EXPECT_EQ(platform::EncodeMachineCodePage(Script()), Delivered("Export.inf"));
  EXPECT_EQ(platform::InStr(Script(), u"راهنماي"), 1);
}

TEST(DeliveredScript, TheGuideForTheEditorHoldsNoBracket) {
  const Text script = Script();
  EXPECT_EQ(platform::InStr(script, u"["), platform::InStr(script, u"[ Make Folder ]"));
  EXPECT_EQ(Times(script, u"["), 4);
}

// Who gets a script from a stranger has one of the packages, and reads what lies in it.
TEST(DeliveredScript, ThePackagesSayThatAnotherOneIsAProgram) {
  for (const char* package : {"zorvand", "viewer"}) {
    const std::string text = Delivered("../packaging/" + std::string(package) + "/READ-ME.txt");
    const std::size_t persian = text.find("فارسی");
    ASSERT_NE(persian, std::string::npos);
    const std::size_t told = text.find("Export.inf");
    EXPECT_LT(told, persian) << package;
    EXPECT_THAT(text.substr(std::min(told, persian), 250), HasSubstr("program")) << package;
    EXPECT_THAT(text.substr(persian), HasSubstr("Export.inf")) << package;
  }
}

TEST(DeliveredTemplate, BeginsWithItsMarkAndHasWholeLineEnds) {
  EXPECT_THAT(Delivered("Default.html"), StartsWith(std::string(platform::kUtf16Mark)));
  EXPECT_EQ(platform::InStr(Template(), u"<!DOCTYPE html>\r\n"), 1);
  ExpectWholeLineEnds(Template());
}

TEST(DeliveredTemplate, HasThePlacesOfTheTitleAndOfTheText) {
  EXPECT_EQ(Times(Template(), u"<title>%Title%</title>"), 1);
  EXPECT_EQ(Times(Template(), u"<h1>%Title%</h1>"), 1);
  EXPECT_EQ(Times(Template(), u"%Title%"), 2);
  EXPECT_EQ(Times(Template(), u"%Matn%"), 1);
}

TEST(DeliveredTemplate, IsAPersianPageThatAsksForNothingFromOutside) {
  EXPECT_EQ(Times(Template(), u"<html lang=\"fa\" dir=\"rtl\">"), 1);
  for (const TextView outside : {u"http", u"//cdn", u"src=", u"href=", u"@import", u"url("}) {
    EXPECT_EQ(Times(Template(), outside), 0) << platform::ToUtf8(outside);
  }
}

TEST(DeliveredTemplate, ItsScriptIsReadBeforeAnyTitleCanDisturbIt) {
  EXPECT_LT(platform::InStr(Template(), u"</script>"), platform::InStr(Template(), u"%Title%"));
}

}  // namespace
