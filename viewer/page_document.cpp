#include "viewer/page_document.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextFrameFormat>
#include <QUrl>

#include "viewer/look.h"
#include "viewer/pictures.h"

namespace viewer {
namespace {

constexpr int kHighestPicture = 1200;
constexpr qsizetype kLongestTitle = 2'000;

QTextBlockFormat BlockOf(Qt::Alignment alignment) {
  QTextBlockFormat block;
  block.setLayoutDirection(Qt::RightToLeft);
  block.setAlignment(alignment);
  block.setLineHeight(165, QTextBlockFormat::ProportionalHeight);
  block.setBottomMargin(7);
  return block;
}

QTextCharFormat Letters(const PageStyle& style) {
  QTextCharFormat letters;
  letters.setFont(ViewerFont(style.pixels));
  letters.setForeground(style.ink);
  return letters;
}

// How much of the text from `from` on makes one paragraph of the document.
qsizetype PieceLength(const QString& text, qsizetype from) {
  if (text.size() - from <= kLongestParagraph) return text.size() - from;
  const qsizetype blank = text.lastIndexOf(QLatin1Char(' '), from + kLongestParagraph);
  if (blank > from + kLongestParagraph / 2) return blank + 1 - from;
  const bool splitsPair = text[from + kLongestParagraph].isLowSurrogate();
  return kLongestParagraph - (splitsPair ? 1 : 0);
}

void AppendParagraph(QTextCursor& cursor, const QString& text, const PageStyle& style) {
  cursor.insertBlock(BlockOf(Qt::AlignLeft), Letters(style));  // left: where the line starts
  cursor.insertText(text);
}

void AppendPicture(QTextCursor& cursor, const BookFolder& book, const QString& pathInBook,
                   const PageStyle& style) {
  const QImage image =
      DecodePicture(book.Resolve(pathInBook), {style.pictureWidth, kHighestPicture}, Fit::kInside);
  cursor.insertBlock(BlockOf(Qt::AlignHCenter), Letters(style));
  if (image.isNull()) {
    QTextCharFormat note = Letters(style);
    note.setFont(ViewerFont(kCaptionPixels));
    note.setForeground(Qt::gray);
    cursor.insertText(QStringLiteral("[این تصویر در کتاب پیدا نشد.]"), note);
  } else {
    cursor.insertImage(image);
  }
}

}  // namespace

void BeginPage(QTextDocument& document, const QString& title, const PageStyle& style) {
  document.clear();
  document.setUndoRedoEnabled(false);
  document.setDefaultFont(ViewerFont(style.pixels));
  QTextCursor cursor(&document);
  QTextBlockFormat block = BlockOf(Qt::AlignHCenter);
  block.setTopMargin(10);
  block.setBottomMargin(16);
  block.setLineHeight(140, QTextBlockFormat::ProportionalHeight);
  cursor.setBlockFormat(block);
  QTextCharFormat letters = Letters(style);
  letters.setFont(ViewerFont(style.pixels + 5, true));
  cursor.insertText(title.left(kLongestTitle), letters);
}

PagePlace AppendPage(QTextDocument& document, const BookFolder& book, const Page& page,
                     PagePlace from, const PageStyle& style) {
  QTextCursor cursor(&document);
  cursor.movePosition(QTextCursor::End);
  cursor.beginEditBlock();
  qsizetype characters = 0;
  int pictures = 0;
  while (from.part < page.parts.size() && characters < kCharactersAtOnce &&
         pictures < kPicturesAtOnce) {
    const PagePart& part = page.parts[from.part];
    qsizetype length = part.text.size();
    if (part.kind == PagePart::Kind::kPicture) {
      AppendPicture(cursor, book, part.text, style);
      ++pictures;
    } else {
      length = PieceLength(part.text, from.offset);
      AppendParagraph(cursor, part.text.mid(from.offset, length), style);
      from.offset += length;
      characters += length + 20;  // empty paragraphs take their time, too
    }
    if (part.kind == PagePart::Kind::kPicture || from.offset >= part.text.size()) {
      from = {from.part + 1, 0};
    }
  }
  cursor.endEditBlock();
  return from;
}

}  // namespace viewer
