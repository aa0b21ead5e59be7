// Form6, the paragraph editor: a modal window on one row of the entry table. It holds no data of
// its own: the workbench fills it when it is loaded and reads it back when the changes are kept.
// Loaded for one row, unloaded at its end; closing it by its own button changes no column.
//
// Failures end where they arise, under the number that stands at each operation (see
// core::Reporter::Catching).
#pragma once

#include <cstdint>
#include <memory>

#include "core/ports.h"
#include "core/project_window.h"
#include "platform/files/file_system_object.h"
#include "platform/text/text.h"
#include "platform/windows/controls.h"
#include "platform/windows/rich_text_box.h"
#include "platform/windows/window.h"
#include "workbench/format_window.h"
#include "workbench/paragraph_window.h"

namespace editor {

class Form6 : public platform::Window,
              public core::ParagraphPort,
              public workbench::ParagraphWindow {
 public:
  explicit Form6(workbench::Form3& form3);

  // 0 deletes the row, 1 to 3 empty a path, 4 keeps the changes, 5 turns the row into a gallery or
  // back. 70.
  void btn_Click(std::int16_t index);
  // Whether the three paths that aren't empty lead to files; a message for each that doesn't.
  [[nodiscard]] bool CHK();

  // The pop-up menu of the text, and what its items do with the selection and the clipboard.
  void matn_MouseUp(int button);  // 78
  void picM_Click();
  void copyM_Click();   // 74
  void cutM_Click();    // 75
  void pasteM_Click();  // 79
  void delM_Click();    // 76

  // Ask for a sound, a film, a file and a folder of pictures.
  void Command1_Click();  // 71
  void Command2_Click();  // 72
  void Command5_Click();  // 73
  void Command3_Click();
  // Removes the background, or asks for one. 81.
  void Image1_Click();
  // Shows the background that the tag names, if its file is there. 82.
  void TgDo();

  // What the project window hands over when a file was chosen.
  void SetMedium(core::Medium medium, platform::TextView path) override;

  // What the workbench asks for.
  platform::Window& TheWindow() override { return *this; }
  workbench::ParagraphFields Fields() override;
  gallery::Browser Browser() override;
  void ToggleGallery() override { btn_Click(5); }

  platform::TextBox bname{*this, u"bname"};
  platform::RichTextBox matn{*this, u"matn"};
  platform::TextBox picB{*this, u"picB"};
  platform::TextBox soutB{*this, u"soutB"};
  platform::TextBox filmB{*this, u"filmB"};
  platform::ImageBox Image1{*this, u"Image1"};
  platform::ControlArray<platform::Button> btn{*this, u"btn"};
  platform::Button Command1{*this, u"Command1"};
  platform::Button Command2{*this, u"Command2"};
  platform::Button Command3{*this, u"Command3"};
  platform::Button Command5{*this, u"Command5"};
  platform::Frame Frame4{*this, u"Frame4"};
  platform::ControlArray<platform::Frame> IMF{*this, u"IMF"};
  platform::ControlArray<platform::ImageBox> IMG{*this, u"IMG"};
  platform::ControlArray<platform::Label> IMJ{*this, u"IMJ"};
  platform::ControlArray<platform::CheckBox> IMC{*this, u"IMC"};
  platform::ControlArray<platform::TextBox> IMN{*this, u"IMN"};
  platform::ScrollBar VSC{*this, u"VSC"};
  platform::Label ShPath{*this, u"ShPath"};
  platform::PopupMenu popM{*this, u"popM"};
  platform::MenuItem picM{*this, u"picM"};
  platform::MenuItem copyM{*this, u"copyM"};
  platform::MenuItem cutM{*this, u"cutM"};
  platform::MenuItem pasteM{*this, u"pasteM"};
  platform::MenuItem delM{*this, u"delM"};

 protected:
  void Form_Load() override;  // 77
  void Form_Unload() override;

 private:
  struct MediumControls;

  void Pick(core::Medium medium);
  void WireButtons();
  void WireMedia();
  void EmptyPath(std::int16_t button);
  void WireMenu();
  void WireBrowser();
  void Press(std::int16_t index);
  void SwitchGallery();
  // Failure while there is none.
  platform::FileSystemObject& FileSys();

  workbench::Form3& form3_;
  core::Form1& form1_;
  core::Reporter& report_;
  std::unique_ptr<platform::FileSystemObject> fileSys;
};

}  // namespace editor
