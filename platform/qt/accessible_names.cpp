#include "platform/qt/accessible_names.h"

#include <QComboBox>

#include "platform/qt/conversions.h"
#include "platform/qt/peers.h"
#include "platform/text/caption.h"

namespace platform {
namespace {

bool ShowsItsCaption(ControlKind kind) {
  return kind == ControlKind::kLabel || kind == ControlKind::kButton ||
         kind == ControlKind::kCheckBox || kind == ControlKind::kOption;
}

TextView CaptionThatNames(const ControlRow& control, const WindowDefinition& definition) {
  for (const ControlRow& row : definition.rows) {
    const bool sameFrame = row.parent == control.parent && row.parentIndex == control.parentIndex;
    if (sameFrame && row.name == control.namedBy) return row.text;
  }
  return {};
}

TextView NameFor(const ControlRow& control, const WindowDefinition& definition) {
  if (ShowsItsCaption(control.kind) && !control.text.empty()) return control.text;
  const TextView caption = CaptionThatNames(control, definition);
  if (!caption.empty()) return caption;
  // What fills most of a window is what the window is about.
  return control.hint.empty() ? definition.title : control.hint;
}

// On Linux the toolkit gives what a combo box shows for its name (Qt 6.4, QAccessibleComboBox), so
// the words for it go into the description.
void SetName(QWidget& widget, const QString& name) {
  widget.setAccessibleName(name);
  if (qobject_cast<QComboBox*>(&widget) != nullptr) widget.setAccessibleDescription(name);
}

}  // namespace

void SetAccessibleNames(QWidget& window, const WindowDefinition& definition) {
  for (const ControlRow& row : definition.rows) {
    if (!row.tabStop && !ShowsItsCaption(row.kind) && row.kind != ControlKind::kImage) continue;
    auto* widget = window.findChild<QWidget*>(ObjectName(row.name, row.index));
    if (widget == nullptr) continue;
    const TextView name = NameFor(row, definition);
    if (!name.empty()) SetName(*widget, ToQString(ShownCaption(name)));
  }
}

}  // namespace platform
