#include "platform/qt/copied_text.h"

#include <QTextCursor>
#include <QTextDocument>
#include <utility>

#include "platform/qt/conversions.h"
#include "platform/qt/rich_text_document.h"
#include "platform/rtf/rtf.h"

namespace platform {

CopiedText::CopiedText(rtf::Document passage) : passage_(std::move(passage)) {}

QStringList CopiedText::formats() const {
  return {kRichTextType, QStringLiteral("text/html"), QStringLiteral("text/plain")};
}

QVariant CopiedText::retrieveData(const QString& format, QMetaType) const {
  if (!formats().contains(format)) return {};
  if (format == QLatin1String(kRichTextType)) {
    return QByteArray::fromStdString(rtf::Write(passage_));
  }
  QTextDocument document;
  QTextCursor cursor(&document);
  InsertDocument(cursor, passage_);
  if (format == QLatin1String("text/html")) return document.toHtml();
  return ToQString(Replace(PlainTextOf(document.toRawText()), kCrLf, u"\n"));
}

}  // namespace platform
