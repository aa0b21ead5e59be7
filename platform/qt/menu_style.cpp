#include "platform/qt/menu_style.h"

#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace platform {
namespace {

// The styles put a menu's texts to the side where the program's language begins, not the menu's.
class MenuStyle : public QProxyStyle {
 public:
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    painter->setLayoutDirection(option->direction);
    QProxyStyle::drawControl(element, option, painter, widget);
  }
};

}  // namespace

void MakeRightToLeft(QMenu& menu) {
  menu.setLayoutDirection(Qt::RightToLeft);
  auto* style = new MenuStyle;
  style->setParent(&menu);
  menu.setStyle(style);
}

}  // namespace platform
