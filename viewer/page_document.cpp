#include "viewer/page_document.h"

#include <QTextBlock>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextFragment>
#include <QTextImageFormat>
#include <QUrl>
#include <algorithm>
#include <optional>

#include "viewer/look.h"
#include "viewer/pictures.h"
#include "viewer/texts.h"

namespace viewer {
namespace {

// On a document: what the pictures in it take.
constexpr const char* kPictureBytes = "pictureBytes";
// On a picture's format.
constexpr int kPath = QTextFormat::UserProperty + 1;
constexpr int kPathInBook = QTextFormat::UserProperty + 2;
constexpr int kWholeSize = QTextFormat::UserProperty + 3;  // in its own pixels
constexpr qsizetype kLongestTitle = 2'000;

// Measures of the page, as parts of the height of its letters.
constexpr double kTitleHeight = 1.3;
constexpr double kNoteHeight = 0.88;
constexpr double kParagraphGap = 0.4;
constexpr double kTitleGap = 0.95;
constexpr double kTopGap = 0.6;

int Part(const PageStyle& style, double part) { return qRound(style.pixels * part); }

// Of the first block that a piece of the page makes.
class PieceOfPage : public QTextBlockUserData {
 public:
  explicit PieceOfPage(book::PagePlace from) : place(from) {}
  const book::PagePlace place;
};

QTextBlockFormat BlockOf(Qt::Alignment alignment, int lineHeight, int bottomMargin) {
  QTextBlockFormat block;
  block.setLayoutDirection(Qt::RightToLeft);
  block.setAlignment(alignment);
  block.setLineHeight(lineHeight, QTextBlockFormat::ProportionalHeight);
  block.setBottomMargin(bottomMargin);
  return block;
}

QTextBlockFormat BlockOf(Qt::Alignment alignment, const PageStyle& style) {
  return BlockOf(alignment, style.lineHeight, Part(style, kParagraphGap));
}

QTextCharFormat Letters(const PageStyle& style) {
  QTextCharFormat letters;
  letters.setFont(ViewerFont(style.pixels, false, style.letters));
  letters.setForeground(style.ink);
  return letters;
}

void AppendParagraph(QTextCursor& cursor, const QString& text, const PageStyle& style) {
  // Left is where the line starts.
  const Qt::Alignment alignment = style.justified ? Qt::AlignJustify : Qt::AlignLeft;
  cursor.insertBlock(BlockOf(alignment, style), Letters(style));
  cursor.insertText(text);
}

QSizeF SizeShown(QSizeF whole, const PageStyle& style) {
  const QSizeF natural = whole * style.pictureScale;
  const QSizeF box = style.pictureBox;
  if (natural.width() <= box.width() && natural.height() <= box.height()) return natural;
  return natural.scaled(box, Qt::KeepAspectRatio);
}

QTextImageFormat PictureFormat(QSizeF whole, const PageStyle& style) {
  QTextImageFormat format;
  const QSizeF size = SizeShown(whole, style);
  format.setProperty(kWholeSize, whole);
  format.setWidth(size.width());
  format.setHeight(size.height());
  return format;
}

// The more a section holds, the coarser are the next; none is left out.
quint64 LargestPictureOf(const QTextDocument& document) {
  constexpr quint64 kPart = 24;
  const quint64 held = document.property(kPictureBytes).toULongLong();
  return (kKeptForPaper - std::min(held, kKeptForPaper)) / kPart;
}

void InsertWords(QTextCursor& cursor, const QString& path, const QString& pathInBook,
                 const PageStyle& style) {
  QTextCharFormat note = Letters(style);
  note.setFont(ViewerFont(Part(style, kNoteHeight)));
  note.setForeground(Qt::gray);
  const QString why = path.isEmpty() ? texts::PictureNotInBook() : NoteInPlaceOf(path);
  cursor.insertText(u'[' + why + QStringLiteral(": ") + AsPath(pathInBook) + u']', note);
}

// Of a picture that can be shown.
std::optional<QTextImageFormat> FormatFor(QTextCursor& cursor, const QString& path,
                                          const PageStyle& style) {
  const QString name = QStringLiteral("picture%1").arg(cursor.position() + 1);
  QTextImageFormat format;
  if (style.picturesComeLater) {
    const QSize whole = SizeOfPicture(path, style.decodeBox);
    if (whole.isEmpty()) return std::nullopt;
    format = PictureFormat(whole, style);
  } else {
    QTextDocument& document = *cursor.document();
    const QImage image =
        DecodeBeside(path, style.decodeBox, Fit::kInside, LargestPictureOf(document)).image;
    if (image.isNull()) return std::nullopt;
    format = PictureFormat(image.deviceIndependentSize(), style);
    document.addResource(QTextDocument::ImageResource, QUrl(name), image);
    document.setProperty(kPictureBytes, document.property(kPictureBytes).toULongLong() +
                                            static_cast<quint64>(image.sizeInBytes()));
  }
  format.setName(name);
  return format;
}

void AppendPicture(QTextCursor& cursor, const book::Folder& book, const QString& pathInBook,
                   const PageStyle& style) {
  const QString path = book.Needed(pathInBook);
  std::optional<QTextImageFormat> format = FormatFor(cursor, path, style);
  if (!format) {
    cursor.insertBlock(BlockOf(Qt::AlignHCenter, style), Letters(style));
    return InsertWords(cursor, path, pathInBook, style);
  }
  format->setProperty(kPath, path);
  format->setProperty(kPathInBook, pathInBook);
  cursor.insertBlock(BlockOf(Qt::AlignHCenter, 100, Part(style, kTitleGap)), Letters(style));
  cursor.insertImage(*format);
}

// Of the block, which holds one picture, or letters; no format then.
QTextImageFormat PictureIn(const QTextBlock& block) {
  if (block.begin().atEnd()) return {};
  const QTextCharFormat format = block.begin().fragment().charFormat();
  return format.isImageFormat() ? format.toImageFormat() : QTextImageFormat();
}

void FitPicture(const QTextBlock& block, const PageStyle& style) {
  QTextImageFormat format = PictureIn(block);
  const QSizeF size = SizeShown(format.property(kWholeSize).toSizeF(), style);
  if (size.isEmpty() || format.width() == size.width()) return;
  format.setWidth(size.width());
  format.setHeight(size.height());
  QTextCursor cursor(block);
  cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
  cursor.setCharFormat(format);
}

}  // namespace

book::PagePlace PlaceInPage(const QTextDocument& document, int position) {
  for (QTextBlock block = document.findBlock(position); block.isValid(); block = block.previous()) {
    const auto* const piece = static_cast<const PieceOfPage*>(block.userData());
    if (piece == nullptr) continue;
    return {piece->place.part, piece->place.offset + std::max(0, position - block.position())};
  }
  return {};
}

int PositionOf(const QTextDocument& document, book::PagePlace place) {
  int position = 0;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    const auto* const piece = static_cast<const PieceOfPage*>(block.userData());
    if (piece == nullptr) continue;
    if (place < piece->place) break;
    const bool isSame = piece->place.part == place.part;
    position =
        block.position() + (isSame ? static_cast<int>(place.offset - piece->place.offset) : 0);
  }
  return std::min(position, document.characterCount() - 1);
}

QString PathOfPicture(const QTextFormat& format) { return format.property(kPath).toString(); }

void ReplaceByWords(QTextDocument& document, const QString& path, const PageStyle& style) {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    const QTextImageFormat format = PictureIn(block);
    if (PathOfPicture(format) != path) continue;
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.setBlockFormat(BlockOf(Qt::AlignHCenter, style));
    InsertWords(cursor, path, format.property(kPathInBook).toString(), style);
  }
}

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
  letters.setFont(ViewerFont(Part(style, kTitleHeight), true, style.letters));
  cursor.insertText(title.left(kLongestTitle), letters);
}

book::PagePlace AppendStep(QTextDocument& document, const book::Folder& book,
                           const book::Page& page, book::PagePlace from, book::PagePlace until,
                           const PageStyle& style) {
  QTextCursor cursor(&document);
  cursor.movePosition(QTextCursor::End);
  cursor.beginEditBlock();
  for (qsizetype weight = 0; from < until && weight < kWeightOfStep;) {
    const book::PagePart& part = page.parts[from.part];
    const PagePiece piece = PieceAt(page, from);
    const int block = document.blockCount();
    if (part.kind == book::PagePart::Kind::kPicture) {
      AppendPicture(cursor, book, part.text, style);
    } else {
      AppendParagraph(cursor, part.text.mid(from.offset, piece.length), style);
    }
    document.findBlockByNumber(block).setUserData(new PieceOfPage(from));
    weight += piece.weight;
    from = piece.next;
  }
  cursor.endEditBlock();
  return from;
}

}  // namespace viewer
