// The small window beside the workbench that offers what an earlier run left of a collection. It
// waits for nobody and takes the focus from nobody; who ignores it loses nothing.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/windows/controls.h"
#include "platform/windows/window.h"
#include "recovery/left_records.h"

namespace workbench {

// What it asks of the workbench.
struct RecoveryDesk {
  std::function<bool()> isTableEmpty;
  std::function<recovery::Collection()> collectionInHand;
  // Puts all of the work in its place, and does with its record what is right then; false where it
  // didn't get there.
  std::function<bool(recovery::LeftRecord&, recovery::Work&)> bring;
  // Removes the record for good; false where it is there still.
  std::function<bool(recovery::LeftRecord&)> drop;
};

class RecoveryWindow : public platform::Window {
 public:
  explicit RecoveryWindow(RecoveryDesk desk);

  // Shows the first of them beside the workbench; those after it follow when it is answered.
  void Offer(std::vector<recovery::LeftRecord> records, const platform::Window& workbench);
  // Leaves all that is still offered for another opening.
  void Dismiss();
  // Whether the first button can be pressed: only as long as nothing would be lost by it, and only
  // while the collection that the work is of is in hand.
  void Refresh();

  platform::Label recoverWhose{*this, u"recoverWhose"};
  platform::Label recoverCount{*this, u"recoverCount"};
  platform::Label recoverWhen{*this, u"recoverWhen"};
  platform::Label recoverFirst{*this, u"recoverFirst"};
  platform::Label recoverLast{*this, u"recoverLast"};
  platform::Button recoverBring{*this, u"recoverBring"};
  platform::Button recoverLater{*this, u"recoverLater"};
  platform::Button recoverDrop{*this, u"recoverDrop"};

 protected:
  void Form_Close() override { Later(); }

 private:
  void Bring();
  void Later();
  void Drop();
  [[nodiscard]] bool ReadFirst();
  bool CanBring();
  void ShowFirst();
  void ShowNext();

  RecoveryDesk desk_;
  std::vector<recovery::LeftRecord> records_;
  std::optional<recovery::Work> shown_;  // what the first of them tells
};

}  // namespace workbench
