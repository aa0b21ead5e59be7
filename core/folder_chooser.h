// Form2, the folder chooser that all windows share. It doesn't know who asked: on confirmation it
// runs `upd` and hides. It is hidden and never unloaded.
#pragma once

#include <functional>

#include "platform/text/text.h"
#include "platform/windows/controls.h"
#include "platform/windows/window.h"

namespace core {

class Form2 : public platform::Window {
 public:
  explicit Form2(std::function<void()> upd);

  // Loads the window if need be and opens the folder in it. Failure if there is no such folder.
  void PointAt(platform::TextView folder);
  // The folder that is open. Failure before the first PointAt.
  platform::Text Folder() const { return Dir1.Path(); }

  platform::DriveList Drive1{*this, u"Drive1"};
  platform::FolderList Dir1{*this, u"Dir1"};
  platform::ControlArray<platform::Button> btn{*this, u"btn"};

 protected:
  bool CloseHides() const override { return true; }

 private:
  void Drive1_Change();
  void btn_Click();

  std::function<void()> upd_;
};

}  // namespace core
