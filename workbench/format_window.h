// Form3, the format window or workbench: raw texts are cleaned here, filed passage by passage into
// the entry table, and built into one collection of the book after the other. It is made once and
// can be loaded and unloaded any number of times; what it has filed lives in it, and in a record
// that only the editor's press brings back.
//
// Failures end where they arise, under the number that stands at each operation (see
// core::Reporter::Catching); an operation that returns something then returns what it had so far.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "core/ports.h"
#include "core/project_window.h"
#include "core/selector.h"
#include "filed/filed_work.h"
#include "gallery/browser.h"
#include "gallery/folder_pictures.h"
#include "platform/files/file_system_object.h"
#include "platform/text/text.h"
#include "platform/windows/controls.h"
#include "platform/windows/event_watch.h"
#include "platform/windows/rich_text_box.h"
#include "platform/windows/window.h"
#include "recovery/keeper.h"
#include "workbench/book_formats.h"
#include "workbench/marking.h"
#include "workbench/paragraph_window.h"
#include "workbench/recovery_window.h"
#include "workbench/workbench_geometry.h"

namespace workbench {

using filed::EntryTable;
using filed::FiledWork;
using filed::GalleryTable;

class Form3 : public platform::Window, public core::WorkbenchPort, public FiledWork {
 public:
  explicit Form3(core::Form1& form1);

  // To be called once, before a row is opened.
  void Wire(ParagraphWindow& paragraph) { paragraph_ = &paragraph; }

  // Which collection is in hand: rowLetter, rowDigit and the caption of BookLabel, from the
  // selection of dataName. Runs at every paint, so it writes the caption only where it differs. 61.
  void NameNevis();
  // Empties the entry table, the counters, bname and bindex. 66.
  void ResetA();
  // 63.
  void IndexEmpty();
  // Lists the text files of the input folder in books; gives their number. 64.
  std::int16_t FileList();

  // Opens the clicked file: its cleaned text takes the place of what stands in matn. 55.
  void books_Click();
  // Aligns the whole of matn to the right; the caret goes to its start.
  void Mright();
  static void AlignRight(platform::RichTextBox& box);
  platform::Text DelCrLf(platform::TextView text);                // 58
  platform::Text BeBor(platform::TextView text, std::int16_t n);  // 65
  // A final "\". Failure for an empty path, which is the caller's.
  platform::Text DoSlash(platform::TextView path);
  // Keep the words a line between 10 and 30; without any report.
  void chnd_GotFocus();
  void chnd_LostFocus();
  // Rebuilds the paragraphs of matn by what Frame3 says; what was formatted becomes plain. Reads
  // chnd itself. 80.
  void DoPara();
  void HazC_Click(std::int16_t index);

  // A marking command, 0 to 13; the buttons' and the function keys'. 59.
  void Com_Click(std::int16_t index);
  void matn_KeyDown(int keyCode);
  // Ctrl+A (1) selects the whole title.
  void bname_KeyPress(int keyCode);

  // Opens the paragraph window on the selected row, unless the row closes a main title. 53.
  void bindex_MouseUp();
  // The row into the fields of the paragraph window, and back into the row and its line; the latter
  // closes the window. 51, 52.
  void ShowEdit();
  void DoEdit();
  // Deletes the row. Backgrounds, galleries and counters don't follow the rows that move up. 54.
  void Ohazf();
  // Asks for a picture and puts it, as a paragraph of its own, in front of the paragraph in which
  // the caret of the paragraph window stands. 56.
  void DoIMG();

  // The galleries and their browsers. `which` is 0 for the collection's, in this window, else the
  // one of the entry in the paragraph window; of two names the second is the latter's. Without a
  // number here, nothing catches a failure.
  void SetGalFol(platform::TextView folder, int which) override;
  void GetFolInfo();
  void ShowFol(std::ptrdiff_t first);
  void ShowFol2(std::ptrdiff_t first);
  void VSC_Change();
  void VSCchange();
  void Command1_Click();                 // 46
  void ComClick();                       // 46
  void IMC_MouseUp(std::ptrdiff_t row);  // 55
  void IMCmous(std::ptrdiff_t row);      // 55
  void AddPicGal(std::int16_t row);      // 54
  void AddPicGal2(std::int16_t row);     // 54
  void RemPicGal(std::int16_t row);      // 57
  void RemPicGal2(std::int16_t row);     // 57
  void SelAll_Click();                   // 54
  void RemGalAll(int which);
  void RemFol(int which) override;

  // Builds the collection in hand. 57.
  void MakeFile();
  // The plain text of rich text; empty for an empty text and for what is no rich text. 67.
  platform::Text ToTXT(const platform::Text& richText);
  // The body of a page with its image marks replaced and the page's tail added. 68.
  platform::Text ToIMG(platform::Text body);
  platform::Text AddEntr(std::int16_t count);                               // 83
  platform::Text PasBin(platform::TextView path, platform::TextView stem);  // 84
  platform::Text sndBin(platform::TextView path);                           // 85

  // The project window asks for these. A workbench that was closed while minimised has no state to
  // put back and no timer to start.
  void ShowWorkbench() override;
  void RestoreWorkbench() override;
  void StartWorkbenchTimer() override;
  void SetChosenImage(platform::TextView path) override;

  // The record of what is filed and not yet built (recovery/): it goes with the build, and what
  // comes then begins another.
  void ForgetRecord();
  void BeginRecord();
  // What an earlier run left of the collection in hand. 86.
  void OfferRecords();
  [[nodiscard]] bool BringBack(recovery::LeftRecord& record, recovery::Work& work);
  // False where it is there still. 87.
  [[nodiscard]] bool DropRecord(recovery::LeftRecord& record);

  core::Form1& TheForm1() { return form1_; }

  platform::Text mainMark;
  platform::Text mainEndMark;
  platform::Text identityWord;
  platform::Text imageMark;  // rich text that stands for a picture
  platform::Text chosenImage;
  std::unique_ptr<platform::FileSystemObject> fileSys;  // while loaded
  std::int16_t editIndex = 0;
  platform::Text rowLetter;
  platform::Text rowDigit;
  platform::Text currentBook;
  std::int16_t wordLimit = 0;
  gallery::FolderPictures pictures;
  Vocabulary words;
  DesignGeometry designGeometry;

  platform::ControlArray<platform::Button> Com{*this, u"Com"};
  platform::CheckBox Chek{*this, u"Chek"};
  platform::RichTextBox matn{*this, u"matn"};
  platform::RichTextBox ConRT{*this, u"ConRT"};
  platform::TextBox bname{*this, u"bname"};
  platform::ListBox bindex{*this, u"bindex"};
  platform::ListBox books{*this, u"books"};
  platform::Label BookLabel{*this, u"BookLabel"};
  platform::Label Label1{*this, u"Label1"};
  platform::Label Label2{*this, u"Label2"};
  platform::Label Label3{*this, u"Label3"};
  platform::CheckBox HazP{*this, u"HazP"};
  platform::CheckBox Noghte{*this, u"Noghte"};
  platform::CheckBox P22{*this, u"P22"};
  platform::TextBox chnd{*this, u"chnd"};
  platform::ControlArray<platform::Button> HazC{*this, u"HazC"};
  platform::Frame Frame1{*this, u"Frame1"};
  platform::Frame Frame2{*this, u"Frame2"};
  platform::Frame Frame3{*this, u"Frame3"};
  platform::Frame Frame4{*this, u"Frame4"};
  platform::Frame Frame5{*this, u"Frame5"};
  platform::ControlArray<platform::Frame> IMF{*this, u"IMF"};
  platform::ControlArray<platform::ImageBox> IMG{*this, u"IMG"};
  platform::ControlArray<platform::CheckBox> IMC{*this, u"IMC"};
  platform::ControlArray<platform::TextBox> IMN{*this, u"IMN"};
  platform::ControlArray<platform::Label> IMJ{*this, u"IMJ"};
  platform::ControlArray<platform::Label> Label14{*this, u"Label14"};
  platform::ScrollBar VSC{*this, u"VSC"};
  platform::Label ShPath{*this, u"ShPath"};
  platform::Button SelAll{*this, u"SelAll"};
  platform::Button Command1{*this, u"Command1"};
  platform::Timer Timer1{*this, u"Timer1"};
  platform::Timer Timer2{*this, u"Timer2"};

 protected:
  void Form_Load() override;  // 60
  void Form_Unload() override;
  void Form_Paint() override;
  void Form_Resize() override;  // ends without a report where it fails

 private:
  void WireHandlers();
  void ForgetFormerRun();
  void Timer1_Timer();

  // Failure while there is none.
  platform::FileSystemObject& FileSys();
  platform::Text ReadWhole(platform::TextView path);
  void ReadImageMark();

  platform::Twips ReadMeasure(platform::TextView name, int index, Measure measure);
  void WriteMeasure(const ControlMeasure& measure);

  void RunCommand(Mark command);
  void EndCommand(Mark command);
  void AddToTitle(Mark command);
  void FileIdentity();
  void StartHeading();
  void FinishHeading();
  void OpenMainTitle();
  void CloseMainTitle();
  void InsertLine(platform::TextView line);
  void AddTextToLine(platform::TextView text);
  void ShowMainOpen();
  void SwitchGalleryMode();
  void ShowGalleryMode(bool on);

  core::CollectionKey KeyInHand();
  const platform::Text& BookFolder();
  recovery::Collection CollectionInHand();
  [[nodiscard]] std::optional<platform::TextEdit> TakeTextEdit();
  void TextWasRead();
  recovery::LiveWork Live();
  void KeepRecord();
  void TakeOver(recovery::Work& work);
  void ShowGalleryAgain();

  // Failure while none is wired.
  ParagraphWindow& Paragraph();
  void ShowEntryText(platform::RichTextBox& box);
  bool IsTextPlain() const;
  void ShowLineOfRow();
  void PlaceImage(platform::RichTextBox& box);

  gallery::Browser BrowserOf(int which);
  gallery::Slots ChosenOf(int which);
  platform::Text PictureRoot();
  void ShowFolder(int which, std::ptrdiff_t first);
  void TickChanged(int which, std::ptrdiff_t row);
  void AddPicture(int which, std::ptrdiff_t row);
  void RemovePicture(int which, std::ptrdiff_t row);

  void BringImage(const platform::Text& source, platform::TextView fileName);

  core::Form1& form1_;
  core::Reporter& report_;
  ParagraphWindow* paragraph_ = nullptr;
  bool selectionWasRead_ = true;    // the last NameNevis did not fail
  platform::Text unreadSelection_;  // of dataName, at the paint that could not read it
  recovery::Keeper keeper_;
  bool isOpen_ = false;           // all controls are there: from the end of a load to an unload
  bool recordBegins_ = false;     // the collection is built, and what follows has no record yet
  bool textIsWork_ = false;       // what stands in matn is no longer the design's
  bool textIsUntouched_ = false;  // it was read from a file, and is as it was then
  // How many characters the text had, as the record knows it, in whose place another was read.
  std::optional<platform::Position> replacedByRead_;
  bool syncIsDue_ = false;    // a call of the watch is under way
  platform::Text bookNamed_;  // what idir said when the book's folder was looked for last
  platform::Text bookFolder_;
  RecoveryWindow recoveryWindow_;
  platform::EventWatch watch_;
};

}  // namespace workbench
