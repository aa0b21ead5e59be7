#include "platform/windows/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "platform/qt/conversions.h"

namespace platform {

bool ClipboardHasText() {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  return data != nullptr && data->hasText();
}

// Between programs of the host a line ends in one character; the toolkit knows those that want two.
Text ClipboardText() {
  const Text text = Replace(ToText(QGuiApplication::clipboard()->text()), kCrLf, u"\n");
  return Replace(text, u"\n", kCrLf);
}

void SetClipboardText(TextView text) {
  QGuiApplication::clipboard()->setText(ToQString(Replace(text, kCrLf, u"\n")));
}

}  // namespace platform
