// Form5, the file chooser that all windows share. It doesn't know who asked: on confirmation it
// runs `upd` and hides. It is hidden and never unloaded.
#pragma once

#include <functional>

#include "platform/text/text.h"
#include "platform/windows/controls.h"
#include "platform/windows/window.h"

namespace core {

class Form5 : public platform::Window {
 public:
  explicit Form5(std::function<void()> upd);

  // Loads the window if need be, opens the folder in it and lists its files that fit the pattern:
  // masks separated by ";". Failure if there is no such folder.
  void PointAt(platform::TextView folder, platform::TextView pattern);
  // The selected file with its path; only the folder with its final "\" where none is selected.
  // Failure before the first PointAt.
  platform::Text File() const;

  platform::DriveList Drive1{*this, u"Drive1"};
  platform::FolderList Dir1{*this, u"Dir1"};
  platform::FileList File1{*this, u"File1"};
  platform::ControlArray<platform::Button> btn{*this, u"btn"};

 protected:
  bool CloseHides() const override { return true; }

 private:
  void Drive1_Change();
  void Dir1_Change();
  void btn_Click();

  std::function<void()> upd_;
};

}  // namespace core
