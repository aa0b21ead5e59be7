// Form1, the project window: the fields of one project and what all windows share (log, numbered
// messages, the catching of failures, the list of waiting collections, the routing of choosers).
// It is the first window and lives for the whole run; closing it ends the process.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

#include "core/file_chooser.h"
#include "core/folder_chooser.h"
#include "core/machine.h"
#include "core/ports.h"
#include "core/reporter.h"
#include "platform/files/file_system_object.h"
#include "platform/text/text.h"
#include "platform/windows/controls.h"
#include "platform/windows/window.h"

namespace core {

class Form1 : public platform::Window, public Reporter {
 public:
  explicit Form1(Machine& machine);

  // To be called once, before the window is shown.
  void Wire(const Ports& ports) { ports_ = ports; }

  // The list of the collections that wait, in dataName. Failure number 42.
  void MakeCombo();
  // Puts the chooser's result where pendingTarget says. Failure number 44.
  void upd();
  // The text between the first <tag> and the first </tag>, empty where there is none. Failure
  // number 41, with an empty result.
  platform::Text Wsre(platform::TextView text, platform::TextView tag);
  // A final "\" for paths of two or more characters. Failure number 45.
  platform::Text DoSlash(platform::TextView path);
  // Writes the settings file and the book's background and music. What fails is left out.
  void SaveThings();
  // The vocabulary record as built in, and the two that store it in `vocabulary`.
  platform::Text LoadVocabulary();
  void InitVocabulary();
  void RefreshVocabulary();
  // What a switch says, as it goes into the settings file.
  platform::Text OptionValue(std::int16_t option);

  // The steps that all choosers' requesters share: key, program folder, pattern, modal showing.
  // Failures go to the requester.
  void RequestFolder(platform::TextView key, Window* owner);
  void RequestFile(platform::TextView key, platform::TextView pattern, Window* owner);

  Machine& TheMachine() { return machine_; }
  // The file service. Failure before it is made and once it is released.
  platform::FileSystemObject& FileSys();

  // The folders of the program and of the book as the fields name it, with their final "\".
  platform::Text ProgramRoot();
  platform::Text BookRoot();

  // Makes the folder that the field names, if it holds the usual name still. Failure if it can't.
  void MakeDefaultFolder(const platform::TextBox& field, platform::TextView usual);
  // A relative path counts from the program folder.
  void MakeAbsolute(platform::TextBox& field);

  platform::Text pendingTarget;
  platform::Text vocabulary;

  platform::TextBox title{*this, u"title"};
  platform::TextBox matn{*this, u"matn"};
  platform::TextBox shenas{*this, u"shenas"};
  platform::ComboBox dataName{*this, u"dataName"};
  platform::TextBox Text1{*this, u"Text1"};
  platform::TextBox idir{*this, u"idir"};
  platform::TextBox ExBox{*this, u"ExBox"};
  platform::TextBox index{*this, u"index"};
  platform::TextBox Back{*this, u"Back"};
  platform::TextBox Mus1{*this, u"Mus1"};
  platform::TextBox Mus2{*this, u"Mus2"};
  platform::ControlArray<platform::OptionButton> bMus{*this, u"bMus"};
  platform::ControlArray<platform::OptionButton> Olgoo{*this, u"Olgoo"};
  platform::CheckBox Pcheck{*this, u"Pcheck"};
  platform::Label Label1{*this, u"Label1"};
  platform::Label Label10{*this, u"Label10"};
  platform::Button Command1{*this, u"Command1"};
  platform::Button Command2{*this, u"Command2"};
  platform::Button Command3{*this, u"Command3"};
  platform::Button Command4{*this, u"Command4"};
  platform::Button Command5{*this, u"Command5"};
  platform::Button Command6{*this, u"Command6"};
  platform::Button Command7{*this, u"Command7"};
  platform::Button Command8{*this, u"Command8"};
  platform::Button Command9{*this, u"Command9"};
  platform::Button Command10{*this, u"Command10"};
  platform::Timer Timer1{*this, u"Timer1"};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  struct Route;

  void WireFields();
  void WireButtons();

  void ReadSett();
  void ReadWhole(platform::TextView path);
  platform::Text SettingsOfFields();
  void SaveMedium(platform::TextView source, platform::TextView target);

  void ListRow(std::size_t row, platform::TextView count);

  [[nodiscard]] bool CHK();
  [[nodiscard]] bool FE();
  // The two halves of FE; `require(exists, number)` reports what isn't there.
  using Requirement = std::function<void(bool exists, std::int16_t number)>;
  void RequireFolders(const Requirement& require);
  void RequireFiles(const Requirement& require);
  void MakeDirs();
  void CopyTitleImage();
  void Doitin();

  void Command1_Click();
  void Command2_Click();
  void Command3_Click();
  void Command4_Click();
  void Command5_Click();
  void Command6_Click();
  void Command7_Click();
  void Command8_Click();
  void Command9_Click();
  void Command10_Click();
  void Timer1_Timer();
  void bMus_Click();
  void bMus_KeyUp();
  void idir_Change();

  Machine& machine_;
  Ports ports_;
  Form2 folderChooser_;
  Form5 fileChooser_;
  std::unique_ptr<platform::FileSystemObject> fileSys;
  platform::Text txtFolder;
  platform::Text xmlFolder;
};

}  // namespace core
