// A push button that can bear an artwork, above its caption if it has one.
#pragma once

#include <QPushButton>

#include "platform/windows/window_definition.h"

namespace platform {

class PictureButton : public QPushButton {
 public:
  PictureButton(Artwork artwork, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  Artwork artwork_;
};

}  // namespace platform
