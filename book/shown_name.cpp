#include "book/shown_name.h"

namespace book {
namespace {

constexpr QChar kSign(0xFFFD);  // that every font has

bool IsControl(QChar character) {
  const QChar::Category category = character.category();
  return category == QChar::Other_Control || category == QChar::Separator_Line ||
         category == QChar::Separator_Paragraph;
}

// Persian needs the half-space and the joiner inside its words.
bool IsHalfSpace(const QString& text, qsizetype at) {
  if (text[at] != QChar(0x200C) && text[at] != QChar(0x200D)) return false;
  return at > 0 && at + 1 < text.size() && text[at - 1].isLetter() && text[at + 1].isLetter();
}

bool IsFormat(const QString& text, qsizetype at) {
  const bool isPair =
      text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
  const char32_t whole =
      isPair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : text[at].unicode();
  return QChar::category(whole) == QChar::Other_Format && !IsHalfSpace(text, at);
}

}  // namespace

QString WithSigns(const QString& text) {
  QString shown = text;
  for (qsizetype i = 0; i < shown.size(); ++i) {
    const bool isPair =
        shown[i].isHighSurrogate() && i + 1 < shown.size() && shown[i + 1].isLowSurrogate();
    if (isPair) {
      ++i;
    } else if (shown[i].isSurrogate() || IsControl(shown[i])) {
      shown[i] = kSign;
    }
  }
  return shown;
}

QString NameWithSigns(const QString& name) {
  const QString signs = WithSigns(name);
  QString shown;
  shown.reserve(signs.size());
  for (qsizetype i = 0; i < signs.size(); ++i) {
    const bool isFormat = IsFormat(signs, i);
    shown += isFormat ? kSign : signs[i];
    if (isFormat && signs[i].isHighSurrogate()) ++i;
  }
  return shown;
}

}  // namespace book
