// The rich-text box's rich text: in, out, and to other programs by the clipboard.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>
#include <QTextFrame>
#include <algorithm>
#include <memory>

#include "tests/support/known_texts.h"
#include "tests/support/rich_text_bench.h"

namespace {

using platform::Text;
using platform::rtf::Alignment;
using platform::rtf::Direction;
using platform::rtf::Document;
using platform::rtf::Paragraph;
using platform::rtf::Picture;
using platform::rtf::PictureKind;
using testing_support::AsShown;
using testing_support::FailureOf;
using testing_support::KnownText;
using testing_support::RandomDocuments;
using testing_support::RichPicture;
using testing_support::RichTextBench;
using testing_support::Robot;
using testing_support::RtfOf;

class PlatformRichText : public testing::Test, protected RichTextBench {
 protected:
  static Document OneOfEverything() {
    const Picture png = RichPicture(PictureKind::kPng);
    return {{{Alignment::kRight,
              Direction::kRightToLeft,
              {{{.font = u"Tahoma", .halfPoints = 25, .bold = true}, Text(u"درشت")},
               {{.font = {}, .italic = true, .colour = 0x112233}, Text(u" كج ")},
               {{.font = {}, .underline = true, .strikeOut = true, .background = 0xFFEE00},
                Text(u"خط")}}},
             {Alignment::kCentre, Direction::kLeftToRight, {{{}, Text(u"left to right")}}},
             {Alignment::kJustified, Direction::kRightToLeft, {}},
             {Alignment::kLeft,
              Direction::kRightToLeft,
              {{{}, png},
               {{}, RichPicture(PictureKind::kJpeg)},
               {{}, png},
               {{}, RichPicture(PictureKind::kBitmap)},
               {{}, Text(u"\u00A0پايان\u2028دو")}}}}};
  }
  void Press(int key) { Robot::PressKey("Rich", "matn", key, Qt::ControlModifier); }
  static void Offer(const char* format, const QByteArray& bytes) {
    auto* data = new QMimeData;
    data->setData(format, bytes);
    QApplication::clipboard()->setMimeData(data);
  }
};

TEST_F(PlatformRichText, TextRtfRoundTrips) {
  const Document document = OneOfEverything();
  matn.SetTextRTF(RtfOf(document));
  EXPECT_EQ(matn.TextRTF(), RtfOf(document));
  EXPECT_EQ(matn.Text(), u"درشت كج خط\r\nleft to right\r\n\r\n    \u00A0پايان\r\nدو");
}

// The toolkit decodes a picture once it draws it.
TEST_F(PlatformRichText, ThePicturesBytesOutliveTheirDrawing) {
  const Document document = OneOfEverything();
  matn.SetTextRTF(RtfOf(document));
  window.ShowActive();
  window.OnScreen().grab();
  EXPECT_EQ(matn.TextRTF(), RtfOf(document));
}

TEST_F(PlatformRichText, PicturesOfAllKindsAreDrawn) {
  for (const PictureKind kind : {PictureKind::kPng, PictureKind::kJpeg, PictureKind::kBitmap}) {
    matn.SetTextRTF(
        RtfOf({{{Alignment::kLeft, Direction::kLeftToRight, {{{}, RichPicture(kind, 1500)}}}}}));
    window.ShowActive();
    const QImage drawn = Edit().viewport()->grab().toImage();
    const QColor middle = drawn.pixelColor(30, 20);
    EXPECT_NEAR(middle.red(), 0x33, 8) << static_cast<int>(kind);
    EXPECT_NEAR(middle.blue(), 0x99, 8) << static_cast<int>(kind);
  }
}

// How a bitmap says which bits are which colour: in masks after a short header, of which a long
// one has room itself.
struct MaskedBitmap {
  std::uint32_t header;
  std::uint32_t compression;
  int masksAfter;
};

// A picture of 4 by 4 pixels without its file's header: the left half red, the right half blue.
std::string BytesOf(const MaskedBitmap& kind) {
  std::string bytes;
  const auto add = [&](std::uint32_t value) {
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
  };
  constexpr std::uint32_t kPlaneOf32Bits = 1U | 32U << 16U;
  for (const std::uint32_t value : {kind.header, 4U, 4U, kPlaneOf32Bits, kind.compression, 64U}) {
    add(value);
  }
  bytes.resize(40);
  for (const std::uint32_t mask : {0xFFU, 0xFF00U, 0xFF0000U, 0xFF000000U}) add(mask);
  bytes.resize(kind.masksAfter > 0 ? 40U + 4U * static_cast<unsigned>(kind.masksAfter)
                                   : kind.header);
  for (int i = 0; i < 16; ++i) add(i % 4 < 2 ? 0xFF0000FFU : 0xFFFF0000U);
  return bytes;
}

TEST_F(PlatformRichText, ABitmapWithMasksIsDrawnInItsPlace) {
  window.ShowActive();
  for (const auto& kind : {MaskedBitmap{40, 3, 3}, MaskedBitmap{40, 6, 4}, MaskedBitmap{108, 3, 0},
                           MaskedBitmap{124, 3, 0}}) {
    const Picture picture = {PictureKind::kBitmap, BytesOf(kind), 1500, 1500};
    matn.SetTextRTF(RtfOf({{{Alignment::kLeft, Direction::kLeftToRight, {{{}, picture}}}}}));
    const QImage drawn = Edit().viewport()->grab().toImage();
    for (const int y : {10, 50, 95}) {
      EXPECT_EQ(drawn.pixelColor(15, y), QColor(Qt::red)) << kind.header << kind.compression << y;
      EXPECT_EQ(drawn.pixelColor(95, y), QColor(Qt::blue)) << kind.header << kind.compression << y;
    }
  }
}

TEST_F(PlatformRichText, SelRtfRoundTrips) {
  matn.SetTextRTF(RtfOf(OneOfEverything()));
  SelectAll();
  const Text rtf = matn.SelRTF();
  matn.SetSelRTF(rtf);
  EXPECT_EQ(matn.TextRTF(), RtfOf(OneOfEverything()));
  SelectAll();
  matn.SetSelRTF(matn.SelRTF());
  EXPECT_EQ(matn.TextRTF(), RtfOf(OneOfEverything()));
}

TEST_F(PlatformRichText, SelRtfOfAPartIsThatPart) {
  matn.SetTextRTF(RtfOf(OneOfEverything()));
  Select(2, 5);
  const Document part = platform::rtf::Read(matn.SelRTF());
  ASSERT_EQ(part.paragraphs.size(), 1U);
  EXPECT_EQ(platform::rtf::PlainText(matn.SelRTF()), matn.SelText());
  EXPECT_EQ(part.paragraphs[0].alignment, Alignment::kRight);
  EXPECT_TRUE(part.paragraphs[0].runs.front().format.bold);
  EXPECT_TRUE(part.paragraphs[0].runs.back().format.italic);
}

TEST_F(PlatformRichText, ASelectedParagraphEndIsPartOfTheRichText) {
  matn.SetText(u"one\r\ntwo\r\nthree");
  Select(4, 4);
  const Text rtf = matn.SelRTF();
  EXPECT_EQ(platform::rtf::PlainText(rtf), u"two\r\n");
  matn.SetSelRTF(rtf);
  EXPECT_EQ(matn.Text(), u"one\r\ntwo\r\nthree");
}

TEST_F(PlatformRichText, BrokenInputIsAFailureAndLeavesTheContent) {
  matn.SetTextRTF(RtfOf(OneOfEverything()));
  Select(2, 3);
  for (const Text broken : {u"", u"plain", u"{\\html x}", u"\\rtf1"}) {
    EXPECT_EQ(FailureOf([&] { matn.SetTextRTF(broken); }), "The text is no rich text");
    EXPECT_EQ(FailureOf([&] { matn.SetSelRTF(broken); }), "The text is no rich text");
  }
  EXPECT_EQ(matn.TextRTF(), RtfOf(OneOfEverything()));
  EXPECT_EQ(matn.SelLength(), 3);
}

TEST_F(PlatformRichText, SetSelRtfIsOneStepOfUndo) {
  window.ShowActive();
  matn.SetText(u"one two");
  Select(4, 3);
  matn.SetSelRTF(u"{\\rtf1 a\\par\\b b\\par c}");
  EXPECT_EQ(matn.Text(), u"one a\r\nb\r\nc");
  Press(Qt::Key_Z);
  EXPECT_EQ(matn.Text(), u"one two");
}

TEST_F(PlatformRichText, PlainTextIsThatOfTheRichText) {
  RandomDocuments random(20261121);
  for (int i = 0; i < 300; ++i) {
    const Document document = random.Next();
    matn.SetTextRTF(RtfOf(document));
    const Text rtf = matn.TextRTF();
    ASSERT_EQ(matn.Text(), platform::rtf::PlainText(rtf)) << "document " << i;
    ASSERT_EQ(rtf, RtfOf(document)) << "document " << i;
    SelectAll();
    ASSERT_EQ(matn.SelText(), matn.Text());
    ASSERT_EQ(matn.SelRTF(), rtf);
  }
}

TEST_F(PlatformRichText, EveryPartsPlainTextIsThatOfItsRichText) {
  RandomDocuments random(7);
  for (int i = 0; i < 60; ++i) {
    matn.SetTextRTF(RtfOf(random.Next()));
    const auto length = matn.TextLength();
    for (platform::Position start = 0; start < length; start += 3) {
      Select(start, length / 2);
      ASSERT_EQ(matn.SelText(), platform::rtf::PlainText(matn.SelRTF()))
          << "document " << i << " from " << start;
    }
  }
}

TEST_F(PlatformRichText, ControlCharactersStayAndOnlyNulIsNotFiled) {
  matn.SetText(Text(u"a\u0001b\u000Bc\u0000d\te", 9));
  EXPECT_EQ(matn.TextLength(), 9);
  EXPECT_EQ(platform::rtf::PlainText(matn.TextRTF()), u"a\u0001b\u000Bcd\te");
}

TEST_F(PlatformRichText, PasteOfRichText) {
  window.ShowActive();
  Offer("text/rtf", QByteArray::fromStdString(platform::rtf::Write(OneOfEverything())));
  Press(Qt::Key_V);
  EXPECT_EQ(matn.TextRTF(), RtfOf(OneOfEverything()));
}

TEST_F(PlatformRichText, PasteOfAWebPageWithTableListAndPicture) {
  window.ShowActive();
  const QByteArray picture =
      QByteArray::fromStdString(testing_support::PictureFile("PNG")).toBase64();
  Offer("text/html",
        "<html><body><h1>Head</h1><table border=1><tr><td>a</td><td><b>b</b></td></tr>"
        "<tr><td>c</td><td>d</td></tr></table><ul><li>one</li><li>two</li></ul>"
        "<p>picture: <img src=\"data:image/png;base64," +
            picture + "\"></p></body></html>");
  Press(Qt::Key_V);
  EXPECT_EQ(Edit().document()->rootFrame()->childFrames().size(), 0);
  for (QTextBlock block = Edit().document()->begin(); block.isValid(); block = block.next()) {
    EXPECT_EQ(block.textList(), nullptr);
  }
  const Text text = matn.Text();
  for (const Text piece : {u"Head", u"a", u"b", u"c", u"d", u"one", u"two", u"picture:"}) {
    EXPECT_NE(text.find(piece), Text::npos) << platform::ToUtf8(piece);
  }
  EXPECT_EQ(text, platform::rtf::PlainText(matn.TextRTF()));
  const Document content = Content();
  const auto& last = content.paragraphs.back().runs.back().content;
  ASSERT_TRUE(std::holds_alternative<Picture>(last));
  QImage image;
  EXPECT_TRUE(image.loadFromData(QByteArray::fromStdString(std::get<Picture>(last).bytes)));
  EXPECT_EQ(image.size(), QSize(4, 3));
}

TEST_F(PlatformRichText, PasteIsOfferedForTextOfEveryKindAndForNothingElse) {
  const std::string paste = AsShown(KnownText("toolkit Paste"));
  const auto isOffered = [&] {
    const std::unique_ptr<QMenu> menu(Edit().createStandardContextMenu());
    const auto actions = menu->actions();
    const auto found = std::ranges::find_if(actions, [&](const QAction* action) {
      return action->text().section(u'\t', 0, 0).toStdString() == paste;
    });
    return found != actions.end() && (*found)->isEnabled();
  };
  window.ShowActive();
  for (const char* type : {"text/rtf", "application/rtf", "text/plain", "text/html"}) {
    Offer(type, "{\\rtf1 words}");
    EXPECT_TRUE(isOffered()) << type;
  }
  Offer("application/x-else", "words");
  EXPECT_FALSE(isOffered());
}

TEST_F(PlatformRichText, PasteOfPlainText) {
  window.ShowActive();
  Offer("text/plain", "one\r\ntwo");
  Press(Qt::Key_V);
  EXPECT_EQ(matn.Text(), u"one\r\ntwo");
  EXPECT_EQ(matn.SelStart(), 7);
}

TEST_F(PlatformRichText, RichTextThatCanNotBeReadFallsBackToPlainText) {
  window.ShowActive();
  auto* data = new QMimeData;
  data->setData("text/rtf", "broken");
  data->setText("plain");
  QApplication::clipboard()->setMimeData(data);
  Press(Qt::Key_V);
  EXPECT_EQ(matn.Text(), u"plain");
}

TEST_F(PlatformRichText, WhatIsCutAndPastedComesBackWhole) {
  window.ShowActive();
  matn.SetTextRTF(RtfOf(OneOfEverything()));
  window.OnScreen().grab();
  SelectAll();
  Press(Qt::Key_X);
  EXPECT_EQ(matn.Text(), u"");
  Press(Qt::Key_V);
  EXPECT_EQ(matn.TextRTF(), RtfOf(OneOfEverything()));
}

TEST_F(PlatformRichText, WhatIsCopiedIsTextForOtherPrograms) {
  window.ShowActive();
  matn.SetText(u"one\r\ntwo");
  SelectAll();
  Press(Qt::Key_C);
  EXPECT_EQ(QApplication::clipboard()->text(), "one\ntwo");
  EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasFormat("text/rtf"));
}

}  // namespace
