#include "platform/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "platform/qt/conversions.h"

namespace platform {

bool ClipboardHasText() {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  return data != nullptr && data->hasText();
}

Text ClipboardText() { return ToText(QGuiApplication::clipboard()->text()); }

void SetClipboardText(TextView text) { QGuiApplication::clipboard()->setText(ToQString(text)); }

}  // namespace platform
