#include "platform/windows/message_box.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QMessageBox>
#include <QPointer>
#include <QSpacerItem>
#include <array>
#include <string_view>
#include <utility>

#include "platform/qt/artwork.h"
#include "platform/qt/conversions.h"
#include "platform/qt/pointer_at_rest.h"
#include "platform/qt/toolkit_texts.h"
#include "platform/text/caption.h"

namespace platform {
namespace {

// A desktop may have words of its own for the buttons of all its programs.
void NameButtons(QMessageBox& box) {
  constexpr std::array<std::pair<QMessageBox::StandardButton, std::string_view>, 3> kCaptions = {
      {{QMessageBox::Ok, "OK"}, {QMessageBox::Yes, "Yes"}, {QMessageBox::No, "No"}}};
  for (const auto& [which, caption] : kCaptions) {
    if (QAbstractButton* button = box.button(which)) button->setText(PersianOf(caption));
  }
}

// Wide enough for its title, which the desktop would cut over a short text.
void Widen(QMessageBox& box) {
  constexpr int kNarrowest = 240;  // pixels
  auto* grid = qobject_cast<QGridLayout*>(box.layout());
  if (grid == nullptr) return;
  grid->addItem(new QSpacerItem(kNarrowest, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

void CentreButtons(QMessageBox& box) {
  if (auto* buttons = box.findChild<QDialogButtonBox*>()) buttons->setCenterButtons(true);
}

QMessageBox::StandardButton Ask(TextView prompt, TextView title, QMessageBox::Icon icon,
                                QMessageBox::StandardButtons buttons) {
  // On the heap: the window that it belongs to may go away, and the box with it, while it is open.
  const QPointer<QMessageBox> box =
      new QMessageBox(icon, ToQString(title), ToQString(ShownCaption(prompt)), buttons,
                      QApplication::activeWindow());
  box->setObjectName(QStringLiteral("MessageBox"));
  box->setTextFormat(Qt::PlainText);
  box->setWindowIcon(ArtworkIcon(Artwork::kWindowIcon));
  Widen(*box);
  CentreButtons(*box);
  NameButtons(*box);
  box->setLayoutDirection(Qt::RightToLeft);
  const PointerAtRest rest;
  const int pressed = box->exec();
  delete box;
  return static_cast<QMessageBox::StandardButton>(pressed);
}

}  // namespace

void ShowNotice(TextView prompt, TextView title) {
  Ask(prompt, title, QMessageBox::NoIcon, QMessageBox::Ok);
}

Answer AskYesNo(TextView prompt, TextView title) {
  const auto pressed =
      Ask(prompt, title, QMessageBox::Question, QMessageBox::Yes | QMessageBox::No);
  return pressed == QMessageBox::Yes ? Answer::kYes : Answer::kNo;
}

}  // namespace platform
