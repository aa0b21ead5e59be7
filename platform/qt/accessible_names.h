// What a screen reader calls the controls of a window.
#pragma once

#include <QWidget>

#include "platform/windows/window_definition.h"

namespace platform {

// A control with a caption is called by it; any other by the label that stands nearest in front of
// it (on its right) or above it.
void SetAccessibleNames(QWidget& window, const WindowDefinition& definition);

}  // namespace platform
