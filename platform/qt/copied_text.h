// What the rich-text box gives to the clipboard.
#pragma once

#include <QMimeData>

#include "platform/rtf/document.h"

namespace platform {

inline constexpr const char* kRichTextType = "text/rtf";
// Rich text has two names; some word processors give but this one.
inline constexpr const char* kOtherRichTextType = "application/rtf";

// A passage as rich text, web text and plain text. As rich text it comes back whole, pictures too.
// Each is made once somebody asks for it.
class CopiedText : public QMimeData {
 public:
  explicit CopiedText(rtf::Document passage);

  QStringList formats() const override;

 protected:
  QVariant retrieveData(const QString& format, QMetaType type) const override;

 private:
  rtf::Document passage_;
};

}  // namespace platform
