// bench_start_label FAMILY PIXELS: shows one label in that font, and ends once it is painted.
#include <QApplication>
#include <QLabel>

#include "bench/first_paint.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  bench::EndAtFirstPaint watch;
  application.installEventFilter(&watch);
  const QStringList arguments = QApplication::arguments();
  QFont font;
  font.setFamilies({arguments.value(1)});
  font.setPixelSize(arguments.value(2).toInt());
  QLabel label(QStringLiteral("ايجاد پاراگراف بر اساس"));
  label.setFont(font);
  label.show();
  return QApplication::exec();
}
