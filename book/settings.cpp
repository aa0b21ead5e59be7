#include "book/settings.h"

#include "book/text_file.h"
#include "book/text_scan.h"

namespace book {
namespace {

QStringView ValueOf(QStringView text, const QString& tag) {
  return Between(text, QString(u'<' + tag + u'>'), QString(QStringLiteral("</") + tag + u'>'))
      .trimmed();
}

// Counts are written as the author typed them.
int CountOf(QStringView text, const QString& tag) {
  bool isNumber = false;
  const int count = ValueOf(text, tag).toInt(&isNumber);
  return isNumber && count > 0 ? count : 0;
}

}  // namespace

Settings ParseSettings(QStringView text) {
  Settings settings;
  settings.counts = {CountOf(text, QStringLiteral("aNumber")),
                     CountOf(text, QStringLiteral("bNumber")),
                     CountOf(text, QStringLiteral("cNumber"))};
  settings.layout = ValueOf(text, QStringLiteral("Olgoo")) == u"2" ? 2 : 1;
  settings.music = ValueOf(text, QStringLiteral("Music")) == u"1";
  settings.print = ValueOf(text, QStringLiteral("Print")) == u"1";
  return settings;
}

Settings ReadSettings(const Folder& book) {
  const std::optional<QString> text = ReadText(book, QStringLiteral("Data/TXT/CDProperty.xml"));
  return text ? ParseSettings(*text) : Settings{};
}

}  // namespace book
