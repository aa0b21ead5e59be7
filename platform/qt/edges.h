// The edges of fields, lists and marks on a dark desktop.
#pragma once

#include <QWidget>

namespace platform {

// There the toolkit draws them darker than the window, where nobody sees them (Qt 6.4, Fusion: the
// edge is the window's colour darkened). This gives the widget's edge a light colour. Nothing
// changes on a light desktop.
void MakeEdgeVisible(QWidget& widget);

}  // namespace platform
