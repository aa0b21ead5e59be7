#include "tests/faults/road.h"

#include <QTest>
#include <filesystem>

#include "platform/text/encoding.h"
#include "tests/faults/program_folder.h"
#include "tests/support/format_desk.h"

namespace faults {

using platform::Text;
using testing_support::FormatDesk;
using testing_support::Robot;

namespace fs = std::filesystem;

Road::Road(Found found) {
  CopyProgramFolder(desk.HostPath(""));
  PlanProject();
  if (found == Found::kOlderBook) {
    goals_.push_back({"find an older book",
                      [this] {
                        fs::copy(desk.HostPath("former"), desk.HostPath("Data"),
                                 fs::copy_options::recursive);
                      },
                      [this] { return desk.Has("Data/_xml/aTitle1.xml"); }});
  }
  PlanText();
  PlanBuild();
}

bool Road::Go(int tries, const std::string& until) {
  for (; at_ < goals_.size(); ++at_) {
    const Goal& goal = goals_[at_];
    if (goal.step == until) return true;
    step_ = goal.step;
    for (int i = 0; i < tries && !goal.isReached(); ++i) goal.act();
    if (!goal.isReached()) return false;
  }
  return true;
}

void Road::PlanProject() {
  goals_.push_back({"start", [this] { desk.Start(); }, [this] { return desk.form1.IsVisible(); }});
  goals_.push_back({"first Next", [this] { OpenWorkbench(); },
                    [this] {
                      return desk.form3.IsVisible() && desk.form3.books.ListCount() == 1 &&
                             !desk.form3.imageMark.empty() && desk.form3.rowDigit == u"1";
                    }});
  goals_.push_back(
      {"second Next", [this] { PressNext(); }, [this] { return BookHasMedia("aTitle1.jpg"); }});
}

void Road::PlanText() {
  goals_.push_back({"open", [] { FormatDesk::OpenBook("One.txt"); },
                    [this] { return platform::InStr(desk.form3.matn.Text(), u"Other") > 0; }});
  goals_.push_back({"file", [this] { FileText(); }, [this] { return TableIsWhole(); }});
}

void Road::PlanBuild() {
  goals_.push_back({"build", [this] { Build(); }, [this] { return !desk.form3.IsVisible(); }});
  goals_.push_back(
      {"change", [this] { ChangeSettings(); }, [this] { return desk.form1.Pcheck.Value(); }});
  goals_.push_back({"third Next", [this] { PressNext(); },
                    [this] {
                      return BookHasMedia("aTitle2.jpg") && desk.form3.IsVisible() &&
                             desk.form3.rowDigit == u"2";
                    }});
}

// Leaving a count lists the collections anew, where the list is not what it should be or nothing is
// selected. A click brings a window to the front first; without a window manager nobody does that.
void Road::PressNext() {
  const int waiting = desk.Has("Data/_xml/aTitle1.xml") ? 5 : 6;
  const platform::ComboBox& list = desk.form1.dataName;
  if (list.ListCount() != waiting || list.ListIndex() < 0) {
    Robot::FindWindow("Form1")->activateWindow();
    Robot::Click("Form1", "title");
  }
  desk.PressNext();
}

// A workbench that found no texts looks for them again when it is opened again.
void Road::OpenWorkbench() {
  if (desk.form3.IsVisible()) Robot::CloseWindow("Form3");
  PressNext();
}

void Road::FileText() {
  FormatDesk::Mark(Qt::Key_F5, "Name");
  FormatDesk::Mark(Qt::Key_F1, "Main");
  FormatDesk::FileHeading("Head", "Text");
  FilePicture();
  FormatDesk::FileHeading("Next", "Other");
  Robot::PressKey("Form3", "matn", Qt::Key_F4);
}

// A sound, and a picture in the text, for the newest row.
void Road::FilePicture() {
  workbench::Form3& form3 = desk.form3;
  form3.ConRT.SetText(u"");
  form3.ConRT.SetSelText(u"Text\r\n");
  form3.ConRT.SetSelRTF(form3.imageMark);
  form3.ConRT.SetSelText(u"{0}\r\n");
  form3.table.entryText.Set(1, form3.ConRT.TextRTF());
  form3.ConRT.SetText(u"");
  form3.table.inlineImage.Set(0, desk.Path(u"pictures\\rose.gif"));
  form3.table.entrySound.Set(1, desk.Path(u"media\\song.mp3"));
}

void Road::Build() {
  if (desk.Has("Data/_xml/aTitle1.xml")) desk.robot.AnswerYes();
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
}

// So that what is saved next differs from what was saved before.
void Road::ChangeSettings() { Robot::Click("Form1", "Pcheck"); }

bool Road::TableIsWhole() const {
  const workbench::EntryTable& table = desk.form3.table;
  return desk.form3.entryCount == kRows && desk.form3.bindex.ListCount() == kRows &&
         table.entryTitle(1) == u"Head" && table.entryTitle(2) == u"Next" &&
         !table.entryText(2).empty() && !table.entrySound(1).empty() &&
         !table.inlineImage(0).empty();
}

bool Road::BookHasMedia(const std::string& picture) const {
  return Holds("Data/IMG/" + picture, "Resources/MyBook.jpg") &&
         Holds("Data/FlashIMG/Back.jpg", "Resources/MyBack.jpg") &&
         Holds("Data/FlashIMG/Sound1.mp3", "Resources/MySound1.mp3") &&
         Holds("Data/FlashIMG/Sound2.mp3", "Resources/MySound2.mp3") && SettingsAreSaved();
}

bool Road::SettingsAreSaved() const {
  const Text print = desk.form1.Pcheck.Value() ? u"<Print>1</Print>" : u"<Print>0</Print>";
  return desk.Has("Data/TXT/CDProperty.xml") &&
         desk.Read("Data/TXT/CDProperty.xml").find(platform::EncodeUtf16(print)) !=
             std::string::npos;
}

bool Road::Holds(const std::string& below, const std::string& source) const {
  return desk.Has(below) && desk.Read(below) == ProgramFile(source);
}

}  // namespace faults
