#include "platform/text/encoding.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

using namespace platform;

std::string AllBytes() {
  std::string bytes;
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  return bytes;
}

TEST(MachineCodePage, EveryByteHasACharacterOfItsOwnAndComesBack) {
  const Text text = DecodeMachineCodePage(AllBytes());
  EXPECT_EQ(text.size(), 256U);
  EXPECT_EQ(text.find(u'\uFFFD'), Text::npos);
  EXPECT_EQ(std::set<char16_t>(text.begin(), text.end()).size(), 256U);
  EXPECT_EQ(EncodeMachineCodePage(text), AllBytes());
}

// Windows-1256 as published by Unicode (CP1256.TXT).
TEST(MachineCodePage, HasThePersianLettersAndTheMarks) {
  EXPECT_EQ(DecodeMachineCodePage("\x81\x8D\x8E\x90"), u"\u067E\u0686\u0698\u06AF");
  EXPECT_EQ(DecodeMachineCodePage("\xED\xDF\xEC\x98"), u"\u064A\u0643\u0649\u06A9");
  EXPECT_EQ(DecodeMachineCodePage("\x9D\x9E\xFD\xFE"), u"\u200C\u200D\u200E\u200F");
  EXPECT_EQ(DecodeMachineCodePage("\x80\xA1\xBF\xFF"), u"\u20AC\u060C\u061F\u06D2");
}

TEST(MachineCodePage, AsciiStaysAsItIs) {
  for (int value = 0; value < 128; ++value) {
    EXPECT_EQ(DecodeMachineCodePage(std::string(1, static_cast<char>(value))),
              Text(1, static_cast<char16_t>(value)));
  }
}

TEST(MachineCodePage, WhatThePageLacksIsAQuestionMark) {
  EXPECT_EQ(EncodeMachineCodePage(u"a\u06CCb\uFFFDc"), "a?b?c");
  EXPECT_EQ(EncodeMachineCodePage(u"\u0416\uFEFF"), "??");
}

TEST(MachineCodePage, ASurrogatePairIsOneQuestionMark) {
  EXPECT_EQ(EncodeMachineCodePage(u"a\U0001F600z"), "a?z");
  EXPECT_EQ(EncodeMachineCodePage(Text{0xD83D, u'a', 0xDE00, 0xD83D}), "?a??");
}

TEST(MachineCodePage, EmptyTexts) {
  EXPECT_EQ(DecodeMachineCodePage(""), u"");
  EXPECT_EQ(EncodeMachineCodePage(u""), "");
}

TEST(Utf16, IsLittleEndian) {
  using namespace std::string_literals;
  EXPECT_EQ(EncodeUtf16(u"<s\u0641"), "<\0s\0\x41\x06"s);
  EXPECT_EQ(DecodeUtf16("<\0s\0\x41\x06"s), u"<s\u0641");
  EXPECT_EQ(EncodeUtf16(u"\uFEFF"), kUtf16Mark);
  std::string bytes = "x";
  AppendUtf16(bytes, u"a");
  EXPECT_EQ(bytes, "xa\0"s);
}

TEST(Utf16, EveryPairOfBytesComesBack) {
  Text all;
  for (unsigned unit = 0; unit < 65536; ++unit) all += static_cast<char16_t>(unit);
  EXPECT_EQ(DecodeUtf16(EncodeUtf16(all)), all);
  EXPECT_EQ(EncodeUtf16(DecodeUtf16(AllBytes())), AllBytes());
}

TEST(Utf16, ALastOddByteIsDropped) {
  EXPECT_EQ(DecodeUtf16(std::string_view("a\0b", 3)), u"a");
  EXPECT_EQ(DecodeUtf16("a"), u"");
  EXPECT_EQ(DecodeUtf16(""), u"");
}

}  // namespace
