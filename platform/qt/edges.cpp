#include "platform/qt/edges.h"

#include "platform/qt/artwork.h"

namespace platform {

void MakeEdgeVisible(QWidget& widget) {
  QPalette palette = widget.palette();
  if (GroundOf(palette) == Ground::kLight) return;
  const QColor ground = palette.color(QPalette::Window);
  const QColor words = palette.color(QPalette::WindowText);
  const auto between = [](int dark, int light) { return (dark + 3 * light) / 4; };
  palette.setColor(QPalette::Window, QColor(between(ground.red(), words.red()),
                                            between(ground.green(), words.green()),
                                            between(ground.blue(), words.blue())));
  widget.setPalette(palette);
}

}  // namespace platform
