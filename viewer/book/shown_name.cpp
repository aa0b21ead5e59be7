#include "viewer/book/shown_name.h"

namespace viewer {
namespace {

constexpr QChar kSign(0xFFFD);  // that every font has

bool IsTurn(QChar character) {
  const char16_t c = character.unicode();
  return (c >= u'\u202A' && c <= u'\u202E') || (c >= u'\u2066' && c <= u'\u2069') ||
         c == u'\u200E' || c == u'\u200F' || c == u'\u061C';
}

bool IsControl(QChar character) {
  const QChar::Category category = character.category();
  return category == QChar::Other_Control || category == QChar::Separator_Line ||
         category == QChar::Separator_Paragraph;
}

}  // namespace

QString WithoutTurns(const QString& fileName) {
  QString name = fileName;
  return name.removeIf(IsTurn);
}

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

}  // namespace viewer
