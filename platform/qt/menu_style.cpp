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

  // The light copy under what is off can't be seen on a light desktop, and doubles it on a dark
  // one.
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override {
    if (hint == SH_EtchDisabledText) return 0;
    return QProxyStyle::styleHint(hint, option, widget, more);
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
