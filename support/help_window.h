// Form4, the help window: shows the guide that lies beside the program, read anew at each opening.
// Without that file it keeps its design text. What fails at loading goes to the log (69).
#pragma once

#include <memory>

#include "core/ports.h"
#include "core/project_window.h"
#include "platform/files/file_system_object.h"
#include "platform/windows/rich_text_box.h"
#include "platform/windows/window.h"

namespace support {

class Form4 : public platform::Window, public core::HelpPort {
 public:
  explicit Form4(core::Form1& form1);

  // Modal over the window that asks.
  void ShowHelp(platform::Window& owner) override { ShowModal(&owner); }

  platform::RichTextBox Box1{*this, u"Box1"};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  core::Machine& machine_;
  core::Reporter& report_;
  std::unique_ptr<platform::FileSystemObject> fileSys;
};

}  // namespace support
