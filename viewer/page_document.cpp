#include "viewer/page_document.h"

#include <QTextBlock>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextFragment>
#include <QTextImageFormat>
#include <QUrl>
#include <algorithm>

#include "viewer/look.h"
#include "viewer/pictures.h"

namespace viewer {
namespace {

// On a document: what the pictures in it take.
constexpr const char* kPictureBytes = "pictureBytes";
constexpr qsizetype kLongestTitle = 2'000;

// Measures of the page, as parts of the height of its letters.
constexpr double kTitleHeight = 1.3;
constexpr double kNoteHeight = 0.88;
constexpr double kParagraphGap = 0.4;
constexpr double kTitleGap = 0.95;
constexpr double kTopGap = 0.6;

int Part(const PageStyle& style, double part) { return qRound(style.pixels * part); }

QTextBlockFormat BlockOf(Qt::Alignment alignment, int lineHeight, int bottomMargin) {
  QTextBlockFormat block;
  block.setLayoutDirection(Qt::RightToLeft);
  block.setAlignment(alignment);
  block.setLineHeight(lineHeight, QTextBlockFormat::ProportionalHeight);
  block.setBottomMargin(bottomMargin);
  return block;
}

QTextBlockFormat BlockOf(Qt::Alignment alignment, const PageStyle& style) {
  return BlockOf(alignment, 165, Part(style, kParagraphGap));
}

QTextCharFormat Letters(const PageStyle& style) {
  QTextCharFormat letters;
  letters.setFont(ViewerFont(style.pixels));
  letters.setForeground(style.ink);
  return letters;
}

void AppendParagraph(QTextCursor& cursor, const QString& text, const PageStyle& style) {
  // Left is where the line starts.
  cursor.insertBlock(BlockOf(Qt::AlignLeft, style), Letters(style));
  cursor.insertText(text);
}

QSizeF SizeShown(const QImage& image, const PageStyle& style) {
  const QSizeF natural = image.deviceIndependentSize() * style.pictureScale;
  const QSizeF box = style.pictureBox;
  if (natural.width() <= box.width() && natural.height() <= box.height()) return natural;
  return natural.scaled(box, Qt::KeepAspectRatio);
}

void InsertPicture(QTextCursor& cursor, const QImage& image, const PageStyle& style) {
  QTextDocument& document = *cursor.document();
  QTextImageFormat format;
  format.setName(QStringLiteral("picture%1").arg(cursor.position()));
  document.addResource(QTextDocument::ImageResource, QUrl(format.name()), image);
  const QSizeF size = SizeShown(image, style);
  format.setWidth(size.width());
  format.setHeight(size.height());
  cursor.insertImage(format);
}

// The more a section holds, the coarser are the next; none is left out.
quint64 LargestPictureOf(const QTextDocument& document) {
  constexpr quint64 kPart = 24;
  const quint64 held = document.property(kPictureBytes).toULongLong();
  return (kKeptByPage - std::min(held, kKeptByPage)) / kPart;
}

void AppendPicture(QTextCursor& cursor, const BookFolder& book, const QString& pathInBook,
                   const PageStyle& style) {
  QTextDocument& document = *cursor.document();
  const QString path = book.Needed(pathInBook);
  const QImage image =
      DecodePicture(path, style.decodeBox, Fit::kInside, LargestPictureOf(document));
  if (image.isNull()) {
    cursor.insertBlock(BlockOf(Qt::AlignHCenter, style), Letters(style));
    QTextCharFormat note = Letters(style);
    note.setFont(ViewerFont(Part(style, kNoteHeight)));
    note.setForeground(Qt::gray);
    const QString why =
        path.isEmpty() ? QStringLiteral("این تصویر در کتاب پیدا نشد") : NoteInPlaceOf(path);
    cursor.insertText(u'[' + why + QStringLiteral(": ") + AsPath(pathInBook) + u']', note);
    return;
  }
  document.setProperty(kPictureBytes, document.property(kPictureBytes).toULongLong() +
                                          static_cast<quint64>(image.sizeInBytes()));
  cursor.insertBlock(BlockOf(Qt::AlignHCenter, 100, Part(style, kTitleGap)), Letters(style));
  InsertPicture(cursor, image, style);
}

// The pictures of the block; it holds one, or letters.
void FitPicture(const QTextBlock& block, const PageStyle& style) {
  if (block.begin().atEnd()) return;
  const QTextFragment fragment = block.begin().fragment();
  if (!fragment.charFormat().isImageFormat()) return;
  QTextImageFormat format = fragment.charFormat().toImageFormat();
  const QVariant image =
      block.document()->resource(QTextDocument::ImageResource, QUrl(format.name()));
  const QSizeF size = SizeShown(image.value<QImage>(), style);
  if (size.isEmpty() || format.width() == size.width()) return;
  format.setWidth(size.width());
  format.setHeight(size.height());
  QTextCursor cursor(block);
  cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
  cursor.setCharFormat(format);
}

}  // namespace

void FitPictures(QTextDocument& document, const PageStyle& style) {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    FitPicture(block, style);
  }
}

void BeginPage(QTextDocument& document, const QString& title, const PageStyle& style) {
  document.clear();
  document.setProperty(kPictureBytes, 0);
  document.setUndoRedoEnabled(false);
  document.setDefaultFont(ViewerFont(style.pixels));
  QTextCursor cursor(&document);
  // A document always has a first line; without a title it takes no room.
  QTextBlockFormat block = BlockOf(Qt::AlignHCenter, 1, 0);
  if (!title.isEmpty()) {
    block = BlockOf(Qt::AlignHCenter, 140, Part(style, kTitleGap));
    block.setTopMargin(Part(style, kTopGap));
  }
  cursor.setBlockFormat(block);
  QTextCharFormat letters = Letters(style);
  letters.setFont(ViewerFont(Part(style, kTitleHeight), true));
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
