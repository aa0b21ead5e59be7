#include "platform/qt/accessible_names.h"

#include <cstdlib>
#include <limits>

#include "platform/caption.h"
#include "platform/qt/conversions.h"
#include "platform/qt/peers.h"

namespace platform {
namespace {

constexpr int kNotInFront = std::numeric_limits<int>::max();

bool ShowsItsCaption(ControlKind kind) {
  return kind == ControlKind::kLabel || kind == ControlKind::kButton ||
         kind == ControlKind::kCheckBox || kind == ControlKind::kOption;
}

// How far a label is from being the one that names the control: the way to its near edge plus what
// it is out of line, or kNotInFront.
int Distance(const ControlRow& label, const ControlRow& control) {
  constexpr Twips kSlack = 120;  // designs let a label's box reach a little into its field
  const Twips gapRight = label.left - (control.left + control.width);
  const Twips gapAbove = control.top - (label.top + label.height);
  const bool sameLine =
      label.top < control.top + control.height && control.top < label.top + label.height;
  const bool sameColumn =
      label.left < control.left + control.width && control.left < label.left + label.width;
  if (sameColumn && gapAbove >= -2 * kSlack) return std::abs(gapAbove);
  if (sameLine && gapRight >= -kSlack) {
    const Twips outOfLine = std::abs(2 * (label.top - control.top) + label.height - control.height);
    return std::abs(gapRight) + outOfLine;
  }
  return kNotInFront;
}

TextView NameFor(const ControlRow& control, const WindowDefinition& definition) {
  if (ShowsItsCaption(control.kind) && !control.text.empty()) return control.text;
  TextView nearest;
  int best = kNotInFront;
  for (const ControlRow& row : definition.rows) {
    const bool candidate = row.kind == ControlKind::kLabel && !row.text.empty() &&
                           row.parent == control.parent && row.parentIndex == control.parentIndex;
    const int distance = candidate ? Distance(row, control) : kNotInFront;
    if (distance < best) {
      best = distance;
      nearest = row.text;
    }
  }
  return nearest;
}

}  // namespace

void SetAccessibleNames(QWidget& window, const WindowDefinition& definition) {
  for (const ControlRow& row : definition.rows) {
    auto* widget = window.findChild<QWidget*>(ObjectName(row.name, row.index));
    if (widget == nullptr) continue;
    const TextView name = NameFor(row, definition);
    if (!name.empty()) widget->setAccessibleName(ToQString(ShownCaption(name)));
  }
}

}  // namespace platform
