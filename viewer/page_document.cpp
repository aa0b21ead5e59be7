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

void AppendParagraph(QTextCursor& cursor, const QString& text, const PageStyle& style) {
  cursor.insertBlock(BlockOf(Qt::AlignLeft), Letters(style));  // left: where the line starts
  cursor.insertText(text);
}

void AppendPicture(QTextCursor& cursor, const BookFolder& book, const QString& pathInBook,
                   const PageStyle& style) {
  const QImage image =
      DecodePicture(book.Needed(pathInBook), {style.pictureWidth, kHighestPicture}, Fit::kInside);
  cursor.insertBlock(BlockOf(Qt::AlignHCenter), Letters(style));
  if (image.isNull()) {
    QTextCharFormat note = Letters(style);
    note.setFont(ViewerFont(kCaptionPixels));
    note.setForeground(Qt::gray);
    cursor.insertText(QStringLiteral("[این تصویر در کتاب پیدا نشد: ") + AsPath(pathInBook) + u']',
                      note);
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

PagePlace AppendStep(QTextDocument& document, const BookFolder& book, const Page& page,
                     PagePlace from, PagePlace until, const PageStyle& style) {
  QTextCursor cursor(&document);
  cursor.movePosition(QTextCursor::End);
  cursor.beginEditBlock();
  for (qsizetype weight = 0; from < until && weight < kWeightOfStep;) {
    const PagePart& part = page.parts[from.part];
    const PagePiece piece = PieceAt(page, from);
    if (part.kind == PagePart::Kind::kPicture) {
      AppendPicture(cursor, book, part.text, style);
    } else {
      AppendParagraph(cursor, part.text.mid(from.offset, piece.length), style);
    }
    weight += piece.weight;
    from = piece.next;
  }
  cursor.endEditBlock();
  return from;
}

}  // namespace viewer
