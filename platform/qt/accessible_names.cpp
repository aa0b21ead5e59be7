#include "platform/qt/accessible_names.h"

#include <QComboBox>
#include <algorithm>
#include <cstdlib>
#include <limits>
#include <map>
#include <set>
#include <tuple>
#include <vector>

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

bool SameLine(const ControlRow& a, const ControlRow& b) {
  return a.top < b.top + b.height && b.top < a.top + a.height;
}

bool SameColumn(const ControlRow& a, const ControlRow& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width;
}

bool SameFrame(const ControlRow& a, const ControlRow& b) {
  return a.parent == b.parent && a.parentIndex == b.parentIndex;
}

// How far a label is from being the one that names the control: the way to its near edge plus what
// it is out of line, or kNotInFront.
int Distance(const ControlRow& label, const ControlRow& control) {
  constexpr Twips kSlack = 120;  // designs let a label's box reach a little into its field
  constexpr Twips kNear = 400;   // between a label and what it names lies nothing else
  const Twips gapRight = label.left - (control.left + control.width);
  const Twips gapAbove = control.top - (label.top + label.height);
  if (SameColumn(label, control) && gapAbove >= -2 * kSlack && gapAbove < kNear) {
    return std::abs(gapAbove);
  }
  if (SameLine(label, control) && gapRight >= -kSlack && gapRight < kNear) {
    const Twips outOfLine = std::abs(2 * (label.top - control.top) + label.height - control.height);
    return std::abs(gapRight) + outOfLine;
  }
  return kNotInFront;
}

// A label that runs from left to right shows a path and names nothing.
bool IsNaming(const ControlRow& row) {
  return row.kind == ControlKind::kLabel && !row.text.empty() && !row.leftToRight;
}

bool IsNamedByLabel(const ControlRow& row) {
  return !ShowsItsCaption(row.kind) && row.kind != ControlKind::kFrame &&
         row.kind != ControlKind::kLine && row.kind != ControlKind::kPicture && IsPlaced(row.kind);
}

using Labels = std::map<const ControlRow*, TextView>;

// Which label names which control: the nearest pairs first, so that a label between two controls
// goes to one of them.
Labels LabelsOfControls(const WindowDefinition& definition) {
  using Pair = std::tuple<int, const ControlRow*, const ControlRow*>;
  std::vector<Pair> pairs;
  for (const ControlRow& label : definition.rows) {
    if (!IsNaming(label)) continue;
    for (const ControlRow& control : definition.rows) {
      if (!IsNamedByLabel(control) || !SameFrame(label, control)) continue;
      const int distance = Distance(label, control);
      if (distance < kNotInFront) pairs.emplace_back(distance, &label, &control);
    }
  }
  std::ranges::stable_sort(pairs, {}, [](const Pair& pair) { return std::get<int>(pair); });
  Labels names;
  std::set<const ControlRow*> used;
  for (const auto& [distance, label, control] : pairs) {
    if (used.contains(label) || names.contains(control)) continue;
    used.insert(label);
    names.emplace(control, label->text);
  }
  return names;
}

// A button without a caption fills the field that stands next to it on its line.
const ControlRow* FieldOf(const ControlRow& button, const WindowDefinition& definition) {
  const ControlRow* nearest = nullptr;
  for (const ControlRow& row : definition.rows) {
    const bool behind = row.kind == ControlKind::kTextBox && row.left > button.left &&
                        SameFrame(row, button) && SameLine(row, button);
    if (behind && (nearest == nullptr || row.left < nearest->left)) nearest = &row;
  }
  return nearest;
}

// The caption that has a gap in which the control stands, or nothing.
TextView CaptionAround(const ControlRow& control, const WindowDefinition& definition) {
  for (const ControlRow& row : definition.rows) {
    const bool around = SameFrame(row, control) && row.left < control.left &&
                        row.left + row.width > control.left + control.width;
    if (around && row.kind == ControlKind::kCheckBox && SameLine(row, control)) return row.text;
  }
  return {};
}

TextView NameFor(const ControlRow& control, const WindowDefinition& definition,
                 const Labels& labels) {
  if (ShowsItsCaption(control.kind) && !control.text.empty()) return control.text;
  const bool isButton = control.kind == ControlKind::kButton;
  const ControlRow* field = isButton ? FieldOf(control, definition) : &control;
  if (const auto found = labels.find(field); found != labels.end()) return found->second;
  const TextView around = CaptionAround(control, definition);
  if (!around.empty()) return around;
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
  const Labels labels = LabelsOfControls(definition);
  for (const ControlRow& row : definition.rows) {
    if (!row.tabStop && !ShowsItsCaption(row.kind) && row.kind != ControlKind::kImage) continue;
    auto* widget = window.findChild<QWidget*>(ObjectName(row.name, row.index));
    if (widget == nullptr) continue;
    const TextView name = NameFor(row, definition, labels);
    if (!name.empty()) SetName(*widget, ToQString(ShownCaption(name)));
  }
}

}  // namespace platform
