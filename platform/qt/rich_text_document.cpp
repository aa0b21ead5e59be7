#include "platform/qt/rich_text_document.h"

#include <QTextBlock>
#include <QTextFragment>
#include <algorithm>
#include <cmath>

#include "platform/qt/conversions.h"
#include "platform/qt/rich_text_pictures.h"

namespace platform {
namespace {

constexpr int kKindProperty = QTextFormat::UserProperty + 1;
// A passage keeps its formats where it goes, and leaves the document's resources behind.
constexpr int kBytesProperty = QTextFormat::UserProperty + 2;
constexpr char16_t kLineBreak = u'\u2028';

rtf::Alignment AlignmentOf(const QTextBlock& block) {
  const Qt::Alignment alignment = block.blockFormat().alignment();
  if (alignment & Qt::AlignHCenter) return rtf::Alignment::kCentre;
  if (alignment & Qt::AlignJustify) return rtf::Alignment::kJustified;
  const bool mirrored =
      !(alignment & Qt::AlignAbsolute) && block.textDirection() == Qt::RightToLeft;
  const bool right = (alignment & Qt::AlignRight) != 0;
  return right != mirrored ? rtf::Alignment::kRight : rtf::Alignment::kLeft;
}

rtf::Direction DirectionOf(const QTextBlock& block) {
  const bool leftToRight = block.textDirection() == Qt::LeftToRight;
  return leftToRight ? rtf::Direction::kLeftToRight : rtf::Direction::kRightToLeft;
}

QTextBlockFormat BlockFormatOf(const rtf::Paragraph& paragraph) {
  QTextBlockFormat format;
  format.setAlignment(ToolkitAlignment(paragraph.alignment));
  const bool leftToRight = paragraph.direction == rtf::Direction::kLeftToRight;
  format.setLayoutDirection(leftToRight ? Qt::LeftToRight : Qt::RightToLeft);
  return format;
}

rtf::Colour ColourOf(const QTextFormat& format, int property) {
  if (!format.hasProperty(property)) return rtf::kAutomatic;
  const QBrush brush = format.brushProperty(property);
  if (brush.style() == Qt::NoBrush) return rtf::kAutomatic;
  return static_cast<rtf::Colour>(brush.color().rgb() & 0xFFFFFFU);
}

int HalfPointsOf(const QTextCharFormat& format) {
  if (format.hasProperty(QTextFormat::FontPointSize)) {
    return static_cast<int>(std::lround(2 * format.fontPointSize()));
  }
  if (format.hasProperty(QTextFormat::FontPixelSize)) {
    return static_cast<int>(std::lround(1.5 * format.intProperty(QTextFormat::FontPixelSize)));
  }
  return 0;
}

rtf::CharacterFormat CharacterFormatOf(const QTextCharFormat& format) {
  rtf::CharacterFormat own;
  const QStringList families = format.fontFamilies().toStringList();
  if (!families.isEmpty()) own.font = ToText(families.front());
  own.halfPoints = HalfPointsOf(format);
  own.bold = format.fontWeight() >= QFont::DemiBold;
  own.italic = format.fontItalic();
  own.underline = format.fontUnderline() && !format.isAnchor();
  own.strikeOut = format.fontStrikeOut();
  own.colour = format.isAnchor() ? rtf::kAutomatic : ColourOf(format, QTextFormat::ForegroundBrush);
  own.background = ColourOf(format, QTextFormat::BackgroundBrush);
  return own;
}

QTextCharFormat ToolkitFormatOf(const rtf::CharacterFormat& own) {
  QTextCharFormat format;
  if (!own.font.empty()) format.setFontFamilies({ToQString(own.font)});
  if (own.halfPoints > 0) format.setFontPointSize(own.halfPoints / 2.0);
  if (own.bold) format.setFontWeight(QFont::Bold);
  if (own.italic) format.setFontItalic(true);
  if (own.underline) format.setFontUnderline(true);
  if (own.strikeOut) format.setFontStrikeOut(true);
  if (own.colour != rtf::kAutomatic) {
    format.setForeground(QColor::fromRgb(static_cast<QRgb>(own.colour)));
  }
  if (own.background != rtf::kAutomatic) {
    format.setBackground(QColor::fromRgb(static_cast<QRgb>(own.background)));
  }
  return format;
}

// A web page may bring a picture in its own address. No other address is ever followed.
rtf::Picture PictureInAddress(const QString& address) {
  constexpr QStringView kStart = u"data:image/";
  const qsizetype comma =
      address.startsWith(kStart, Qt::CaseInsensitive) ? address.indexOf(u',') : -1;
  if (comma < 0) return {};
  return PictureOfFile(QByteArray::fromBase64(QStringView(address).sliced(comma + 1).toLatin1()));
}

rtf::Picture PictureOf(const QTextImageFormat& format) {
  rtf::Picture picture;
  if (format.hasProperty(kBytesProperty)) {
    picture.kind = static_cast<rtf::PictureKind>(format.intProperty(kKindProperty));
    picture.bytes = format.property(kBytesProperty).toByteArray().toStdString();
  } else {
    picture = PictureInAddress(format.name());
  }
  picture.widthTwips = static_cast<int>(std::lround(format.width() * kTwipsPerPixel));
  picture.heightTwips = static_cast<int>(std::lround(format.height() * kTwipsPerPixel));
  return picture;
}

void AppendText(rtf::Paragraph& paragraph, const rtf::CharacterFormat& format, Text text) {
  if (text.empty()) return;
  if (!paragraph.runs.empty() && paragraph.runs.back().format == format) {
    if (auto* before = std::get_if<Text>(&paragraph.runs.back().content)) {
      *before += text;
      return;
    }
  }
  paragraph.runs.push_back({format, std::move(text)});
}

// A fragment's pictures follow each other as one character each of the same format.
void AppendFragment(rtf::Paragraph& paragraph, const QTextFragment& fragment, qsizetype from,
                    qsizetype length) {
  const QTextCharFormat format = fragment.charFormat();
  const rtf::CharacterFormat own = CharacterFormatOf(format);
  const QString whole = fragment.text();
  Text text;
  for (const QChar unit : QStringView(whole).mid(from, length)) {
    if (unit == QChar::ObjectReplacementCharacter && format.isImageFormat()) {
      AppendText(paragraph, own, std::exchange(text, {}));
      paragraph.runs.push_back({own, PictureOf(format.toImageFormat())});
    } else {
      text += unit.unicode();
    }
  }
  AppendText(paragraph, own, std::move(text));
}

rtf::Paragraph SelectedParagraph(const QTextBlock& block, int start, int end) {
  rtf::Paragraph paragraph;
  paragraph.alignment = AlignmentOf(block);
  paragraph.direction = DirectionOf(block);
  for (auto at = block.begin(); !at.atEnd(); ++at) {
    const QTextFragment fragment = at.fragment();
    const int from = std::max(start, fragment.position());
    const int to = std::min(end, fragment.position() + fragment.length());
    if (from >= to) continue;
    AppendFragment(paragraph, fragment, from - fragment.position(), to - from);
  }
  return paragraph;
}

void InsertPicture(QTextCursor& cursor, const rtf::Picture& picture,
                   const QTextCharFormat& around) {
  static int lastNumber = 0;
  QTextImageFormat format;
  format.merge(around);
  const QString name = QStringLiteral("picture:%1").arg(++lastNumber);
  const QByteArray bytes = QByteArray::fromStdString(picture.bytes);
  AddPictureFile(*cursor.document(), name, picture.kind, bytes);
  format.setName(name);
  format.setProperty(kKindProperty, static_cast<int>(picture.kind));
  format.setProperty(kBytesProperty, bytes);
  const auto toPixels = [](int twips) { return static_cast<double>(twips) / kTwipsPerPixel; };
  if (picture.widthTwips > 0) format.setWidth(toPixels(picture.widthTwips));
  if (picture.heightTwips > 0) format.setHeight(toPixels(picture.heightTwips));
  cursor.insertImage(format);
}

void InsertParagraph(QTextCursor& cursor, const rtf::Paragraph& paragraph) {
  for (const rtf::Run& run : paragraph.runs) {
    const QTextCharFormat format = ToolkitFormatOf(run.format);
    if (const auto* text = std::get_if<Text>(&run.content)) {
      cursor.insertText(ToQString(*text), format);
    } else {
      InsertPicture(cursor, std::get<rtf::Picture>(run.content), format);
    }
  }
}

}  // namespace

Qt::Alignment ToolkitAlignment(rtf::Alignment alignment) {
  switch (alignment) {
    case rtf::Alignment::kLeft:
      return Qt::AlignLeft | Qt::AlignAbsolute;
    case rtf::Alignment::kRight:
      return Qt::AlignRight | Qt::AlignAbsolute;
    case rtf::Alignment::kCentre:
      return Qt::AlignHCenter;
    case rtf::Alignment::kJustified:
      return Qt::AlignJustify;
  }
  return Qt::AlignLeft;
}

rtf::Document SelectedDocument(const QTextCursor& cursor) {
  rtf::Document document;
  const int start = cursor.selectionStart();
  const int end = cursor.selectionEnd();
  QTextBlock block = cursor.document()->findBlock(start);
  for (; block.isValid() && block.position() <= end; block = block.next()) {
    document.paragraphs.push_back(SelectedParagraph(block, start, end));
  }
  return document;
}

void InsertDocument(QTextCursor& cursor, const rtf::Document& document) {
  cursor.beginEditBlock();
  cursor.removeSelectedText();
  bool first = true;
  for (const rtf::Paragraph& paragraph : document.paragraphs) {
    const QTextBlockFormat format = BlockFormatOf(paragraph);
    if (!first) {
      cursor.insertBlock(format, QTextCharFormat());
    } else if (cursor.block().length() == 1) {
      cursor.setBlockFormat(format);
    }
    InsertParagraph(cursor, paragraph);
    first = false;
  }
  cursor.endEditBlock();
}

namespace {

bool Breaks(QChar unit) { return unit == QChar::ParagraphSeparator || unit == QChar(kLineBreak); }

char16_t Shown(QChar unit) {
  return unit == QChar::ObjectReplacementCharacter ? u' ' : unit.unicode();
}

}  // namespace

Text EditedTextOf(const QString& raw) {
  Text text;
  text.reserve(static_cast<std::size_t>(raw.size()));
  for (const QChar unit : raw) text += Breaks(unit) ? u'\n' : Shown(unit);
  return text;
}

Text PlainTextOf(const QString& raw) {
  const QStringView view(raw);
  Text text;
  text.reserve(static_cast<std::size_t>(view.size() + std::ranges::count_if(view, Breaks)));
  for (const QChar unit : view) {
    if (Breaks(unit)) {
      text += kCrLf;
    } else {
      text += Shown(unit);
    }
  }
  return text;
}

}  // namespace platform
