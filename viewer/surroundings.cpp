#include "viewer/surroundings.h"

#include <QMessageBox>
#include <QPushButton>

#include "viewer/texts.h"

namespace viewer {
namespace {

void SetUp(QMessageBox& box, const QString& name, const QString& text) {
  box.setObjectName(name);
  box.setWindowTitle(texts::Book());  // the desktop would put the program's file name there
  box.setLayoutDirection(Qt::RightToLeft);
  box.setTextFormat(Qt::PlainText);  // a book's own words may stand in it
  box.setFont(ViewerFont(kCaptionPixels));
  box.setText(text);
}

}  // namespace

void Tell(QWidget* parent, const QString& text) {
  QMessageBox box(parent);
  SetUp(box, QStringLiteral("notice"), text);
  box.addButton(texts::Fine(), QMessageBox::AcceptRole);
  box.exec();
}

bool Ask(QWidget* parent, const QString& text) {
  QMessageBox box(parent);
  SetUp(box, QStringLiteral("question"), text);
  box.setIcon(QMessageBox::Question);
  QPushButton* const yes = box.addButton(texts::Yes(), QMessageBox::YesRole);
  QPushButton* const no = box.addButton(texts::No(), QMessageBox::NoRole);
  yes->setObjectName(QStringLiteral("yes"));
  no->setObjectName(QStringLiteral("no"));
  box.setDefaultButton(no);
  box.setEscapeButton(no);
  box.exec();
  return box.clickedButton() == yes;
}

}  // namespace viewer
