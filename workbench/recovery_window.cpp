#include "workbench/recovery_window.h"

#include <utility>

#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/windows/application.h"
#include "platform/windows/message_box.h"
#include "support/window_catalogue.h"
#include "workbench/left_work.h"

namespace workbench {

using platform::TextView;

RecoveryWindow::RecoveryWindow(RecoveryDesk desk)
    : Window(support::RecoveryDefinition()), desk_(std::move(desk)) {
  recoverBring.onClick = [this] { Bring(); };
  recoverLater.onClick = [this] { Later(); };
  recoverDrop.onClick = [this] { Drop(); };
}

void RecoveryWindow::Offer(std::vector<recovery::LeftRecord> records,
                           const platform::Window& workbench) {
  Dismiss();
  records_ = std::move(records);
  if (!ReadFirst()) return;
  Load();
  ShowFirst();
  ShowBeside(workbench);
}

void RecoveryWindow::Dismiss() {
  records_.clear();
  shown_.reset();
  Unload();
}

// Passes over what can't be read. One at a time, as each may be as large as a book.
bool RecoveryWindow::ReadFirst() {
  shown_.reset();
  for (; !records_.empty(); records_.erase(records_.begin())) {
    platform::Ignoring([&] { shown_ = recovery::ReadLeft(records_.front()); });
    if (shown_) return true;
  }
  return false;
}

void RecoveryWindow::ShowFirst() {
  const LeftWorkTexts texts = DescribeLeft(*shown_);
  recoverWhose.SetCaption(texts.whose);
  recoverCount.SetCaption(texts.count);
  recoverWhen.SetCaption(platform::GeneralDateOf(records_.front().found.changed));
  recoverFirst.SetCaption(texts.first);
  recoverLast.SetCaption(texts.last);
  Refresh();
}

void RecoveryWindow::ShowNext() {
  records_.erase(records_.begin());
  if (!ReadFirst()) return Unload();
  ShowFirst();
  Announce();
}

void RecoveryWindow::Refresh() {
  if (IsLoaded()) recoverBring.SetEnabled(CanBring());
}

bool RecoveryWindow::CanBring() {
  return shown_ && desk_.isTableEmpty() && shown_->collection == desk_.collectionInHand();
}

// The others stay for another opening, as the table is no longer empty.
void RecoveryWindow::Bring() {
  if (records_.empty() || !CanBring()) return;
  if (desk_.bring(records_.front(), *shown_)) Dismiss();
}

void RecoveryWindow::Later() {
  if (!records_.empty()) ShowNext();
}

void RecoveryWindow::Drop() {
  constexpr TextView kQuestion = u"آنچه از اين مجموعه مانده است براي هميشه دور انداخته شود؟";
  if (platform::AskYesNo(kQuestion, platform::kApplicationTitle) != platform::Answer::kYes) return;
  if (records_.empty()) return;
  if (desk_.drop(records_.front())) return ShowNext();
  platform::ShowNotice(u"دور انداختن آن ممكن نشد!\u200F", platform::kApplicationTitle);
}

}  // namespace workbench
