// One editor's day with the whole tool, and everything that was seen in it: on the screen, on disk
// and in the log. Each text of data/constants.txt must have been seen at its place.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTextEdit>
#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/text/encoding.h"
#include "tests/support/export_desk.h"
#include "tests/support/gallery_desk.h"
#include "tests/support/known_texts.h"

namespace {

using platform::Text;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::Robot;
using testing_support::Utf8;

using Seen = std::map<std::string, std::vector<std::string>>;

std::string WithCrLf(QString text) {
  return text.replace(QLatin1String("\n"), QLatin1String("\r\n")).toStdString();
}

std::string TextOn(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text().toStdString();
  if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) return edit->text().toStdString();
  if (const auto* box = qobject_cast<const QTextEdit*>(&widget))
    return WithCrLf(box->toPlainText());
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  return button != nullptr ? button->text().toStdString() : std::string();
}

class Day {
 public:
  Seen Run() {
    StartProgram();
    HearTheToolkit();
    LookAtTheProjectWindow();
    ShowMessages();
    FindTheSpecialInputFolder();
    MakeTheTextCollection();
    MakeTheGallery();
    MakeTheLastCollection();
    Export();
    LookAtTheDisk();
    Robot::CloseWindow("Form1");
    LookAtTheLogs();
    return std::move(seen_);
  }

 private:
  void Saw(const std::string& place, const std::string& text) { seen_[place].push_back(text); }

  void LookAt(const QString& window) {
    const QWidget& widget = *Robot::FindWindow(window);
    const std::string name = window.toStdString() + ".";
    Saw("title of " + window.toStdString(), widget.windowTitle().toStdString());
    for (const QWidget* each : widget.findChildren<QWidget*>()) {
      const std::string control = name + each->objectName().toStdString();
      const bool isField = each->inherits("QLineEdit") || each->inherits("QTextEdit");
      Saw((isField ? "text of " : "caption of ") + control, TextOn(*each));
      Saw("hint of " + control, each->toolTip().toStdString());
    }
    for (const QAction* each : widget.findChildren<QAction*>()) {
      Saw("caption of " + name + each->objectName().toStdString(), each->text().toStdString());
    }
  }

  void StartProgram() {
    for (const char* name : {"one.gif", "one.bmp", "one.mp3", "one.flv", "one.exe", "one.pdf"}) {
      desk_.Write(name, name);
    }
    desk_.AddPicture("one.jpg", ".");
    desk_.AddPictures(3);
    desk_.AddText(
        "One.txt",
        u"a&nbsp;b<ircMAIN></ircMAIN>c\r\n\u0649! d. e:\r\nq\r\nidentity\r\nmain title\r\n"
        u"Head\r\nText\r\nA heading that is long and longer\r\nMore\r\nPics\r\nCaption\r\n"
        u"Drop\r\nGone\r\nWaste");
    desk_.AddText("Two.txt", u"p#0#q");
    std::filesystem::remove(desk_.HostPath("Resources/Help.rtf"));
    desk_.Start();
  }

  // Its own words: in the menus of fields and bars, on buttons, to a screen reader.
  void HearTheToolkit() {
    for (const auto& [name, texts] : testing_support::KnownTexts()) {
      if (name != "Toolkit") continue;
      for (const auto& [place, text] : texts) {
        const std::string source = place.substr(place.find(' ') + 1);
        Saw(place, QCoreApplication::translate("QScrollBar", source.c_str()).toStdString());
      }
    }
  }

  // What a chooser's pattern must be, by what the program folder holds and the chooser offers.
  std::string PatternOf(const std::vector<std::string>& offered) const {
    const std::vector<std::pair<std::string, std::set<std::string>>> patterns = {
        {"*.jpg", {".jpg"}},
        {"*.mp3", {".mp3"}},
        {"*.flv", {".flv"}},
        {"*.gif;*.jpg;*.bmp", {".gif", ".jpg", ".bmp"}}};
    const auto endsOf = [](const std::string& name) {
      return std::filesystem::path(name).extension().string();
    };
    std::set<std::string> ends;
    for (const std::string& name : offered) ends.insert(endsOf(name));
    for (const auto& [pattern, wanted] : patterns) {
      if (ends == wanted) return pattern;
    }
    const auto names = desk_.Desk::Names("");
    const auto files = std::ranges::count_if(names, [&](const auto& name) {
      return std::filesystem::is_regular_file(desk_.HostPath(name));
    });
    return files == std::ssize(offered) ? "*.*" : "none";
  }

  // Presses what opens a chooser and looks at it; picks a file of the program folder, or none.
  void Choose(const QString& window, const QString& button, const QString& chooser,
              const QString& file = {}) {
    const std::string name = (window + u'.' + button).toStdString();
    desk_.robot.WhenShown(chooser, [=, this] {
      Saw("key of " + name, Utf8(desk_.form1.pendingTarget));
      LookAt(chooser);
      const bool forFiles = chooser == QLatin1String("Form5");
      if (forFiles) Saw("pattern of " + name, PatternOf(Robot::Lines("Form5", "File1")));
      if (file.isEmpty()) return Robot::CloseWindow(chooser);
      Robot::ClickLine("Form5", "File1", file);
      Robot::Click("Form5", "btn(0)");
    });
    if (button != QLatin1String("picM")) return Robot::Click(window, button);
    Robot::RightClick(window, "matn");
    Robot::ChooseFromMenu("popM", "picM");
  }

  static void Count(const char* field, const char* count) {
    Robot::Type("Form1", field, count);
    Robot::PressKey("Form1", field, Qt::Key_Tab);
  }

  void LookAtTheProjectWindow() {
    LookAt("Form1");
    for (const char* field : {"title", "matn", "shenas"}) Count(field, "10");
    const auto& waiting = Robot::FindAs<QComboBox>("Form1", "dataName");
    for (int i = 0; i < waiting.count(); ++i) {
      Saw("line of dataName", waiting.itemText(i).toStdString());
    }
    for (const char* field : {"title", "matn", "shenas"}) Count(field, "1");
    for (const char* button : {"Command1", "Command2", "Command9"})
      Choose("Form1", button, "Form2");
    for (const char* button : {"Command5", "Command6", "Command7", "Command8"}) {
      Choose("Form1", button, "Form5");
    }
    desk_.robot.WhenShown("Form4", [this] {
      LookAt("Form4");
      Robot::CloseWindow("Form4");
    });
    Robot::Click("Form1", "Command4");
  }

  void ShowMessages() {
    std::vector<std::int16_t> numbers = {0, 30, 101, 102};
    for (std::int16_t number = 1; number <= 29; ++number) numbers.push_back(number);
    for (const std::int16_t number : numbers) {
      desk_.form1.bepayam(number);
      for (const Robot::Box& box : desk_.robot.TakeBoxes()) {
        Saw("message " + std::to_string(number), box.text.toStdString());
        Saw("title of a message", box.title.toStdString());
      }
    }
  }

  void SawBoxes(const std::string& place) {
    for (const Robot::Box& box : desk_.robot.TakeBoxes()) Saw(place, box.text.toStdString());
  }

  void FindTheSpecialInputFolder() {
    const char* word = "شاخه جاري";
    Robot::Type("Form1", "Text1", word);
    desk_.PressNext();
    if (TextOn(Robot::Find("Form1", "Text1")) == Utf8(desk_.Path())) {
      Saw("input folder that is the program folder", word);
    }
    Robot::CloseWindow("Form3");
    Robot::Type("Form1", "Text1", "Texts");
  }

  void MakeTheTextCollection() {
    desk_.PressNext();
    LookAt("Form3");
    const auto words = platform::Split(desk_.form1.vocabulary, u"|");
    for (std::size_t i = 0; i < words.size(); ++i) {
      Saw("vocabulary " + std::to_string(i), Utf8(words[i]));
    }
    FormatDesk::OpenBook("Two.txt");
    Robot::Click("Form3", "HazC(12)");
    Saw("text that was rebuilt", TextOn(Robot::Find("Form3", "matn")));
    FormatDesk::OpenBook("One.txt");
    Saw("text that was opened", TextOn(Robot::Find("Form3", "matn")));
    TitleTheCollection();
    MarkTheText();
    EditTheEntries();
    for (const std::string& line : FormatDesk::Lines("bindex")) Saw("line of bindex", line);
    Robot::PressKey("Form3", "matn", Qt::Key_F12);
  }

  void TitleTheCollection() {
    Robot::Click("Form3", "Chek");
    for (const int command : {5, 6, 7, 8, 0}) {
      Robot::Type("Form3", "bname", "A");
      FormatDesk::Command(command, "q");
      Saw("title after Com(" + std::to_string(command) + ")", FormatDesk::Shown("bname"));
    }
    Robot::Click("Form3", "Chek");
  }

  void MarkTheText() {
    FormatDesk::Command(1, "identity");
    FormatDesk::Command(9, "main title");
    LookAt("Form3");
    FormatDesk::Command(2, "Head");
    FormatDesk::Command(3, "Text");
    Robot::Click("Form3", "Com(10)");
    desk_.robot.TakeBoxes();
    Robot::Click("Form3", "Com(10)");
    SawBoxes("notice");
    FormatDesk::FileHeading("A heading that is long and longer", "More");
    FormatDesk::FileHeading("Pics", "Caption");
    FormatDesk::FileHeading("Drop", "Gone");
    FormatDesk::Command(4, "Waste");
    for (const std::string& line : FormatDesk::Lines("bindex")) Saw("line of bindex", line);
  }

  void InEntry(int row, const std::function<void()>& act) {
    desk_.InEntry(row, [act] {
      act();
      Robot::Click("Form6", "btn(4)");
    });
  }

  void EditTheEntries() {
    InEntry(2, [this] {
      LookAt("Form6");
      Choose("Form6", "Command5", "Form5", "one.exe");
      Choose("Form6", "Command1", "Form5", "one.mp3");
      Choose("Form6", "Command2", "Form5", "one.flv");
      Choose("Form6", "Image1", "Form5", "one.jpg");
      Choose("Form6", "picM", "Form5", "one.jpg");
      LookAt("Form6");
    });
    Saw("plain text of an entry", Utf8(desk_.form3.ToTXT(desk_.form3.table.entryText(2))));
    InEntry(4, [this] { Choose("Form6", "Command5", "Form5", "one.pdf"); });
    InEntry(5, [this] {
      Robot::Click("Form6", "btn(5)");
      LookAt("Form6");
      Choose("Form6", "Command3", "Form2");
      desk_.OpenFolder("Form6");
      GalleryDesk::Tick("Form6", 0);
      GalleryDesk::Tick("Form6", 0);
      Saw("picture taken out", Utf8(desk_.form3.table.entryGalPath(5, 0)));
      GalleryDesk::Tick("Form6", 0, "Picture");
    });
    desk_.InEntry(6, [] { Robot::Click("Form6", "btn(0)"); });
  }

  void MakeTheGallery() {
    desk_.PressNext();
    Robot::Click("Form3", "Com(12)");
    LookAt("Form3");
    Choose("Form3", "Command1", "Form2");
    // No code shows the button for all pictures, and what it takes can't be built.
    desk_.form3.SelAll_Click();
    Robot::Click("Form3", "Com(12)");
    Robot::Click("Form3", "Com(12)");
    desk_.OpenFolder("Form3");
    GalleryDesk::Tick("Form3", 0, "Picture");
    Robot::Click("Form3", "Com(13)");
  }

  void MakeTheLastCollection() {
    namespace fs = std::filesystem;
    desk_.PressNext();
    Robot::Click("Form3", "Com(12)");  // the gallery mode stays from one collection to the next
    LookAt("Form3");
    desk_.robot.TakeBoxes();
    for (const char* name : {"TXT", "_xml"}) {
      fs::rename(desk_.HostPath("Data/") + name, desk_.HostPath("Data/Away") + name);
    }
    Robot::Click("Form3", "Com(11)");
    SawBoxes("notice");
    for (const char* name : {"TXT", "_xml"}) {
      fs::rename(desk_.HostPath("Data/Away") + name, desk_.HostPath("Data/") + name);
    }
    desk_.Write("Data/_xml/cTitle1.xml", "of somebody else");
    Robot::Click("Form3", "Com(11)");
    SawBoxes("question");
    desk_.robot.AnswerYes();
    Robot::Click("Form3", "Com(11)");
    LookAt("Form3");
  }

  // Each header is seen by what its section does.
  void Export() {
    desk_.Write("Resources/Export.inf",
                testing_support::ScriptOf({.makeFolder = {"Data"},
                                           .copyFolder = {"TXT => Data\\TXT"},
                                           .copyFile = {"main.exe => root"}}));
    desk_.Write("Resources/main.exe", "the viewer");
    desk_.Write("Resources/Default.html",
                testing_support::PageBytes(u"<title>%Title%</title>%Matn%"));
    Robot::Type("Form1", "idir", "elsewhere");
    Robot::Type("Form1", "idir", QString::fromStdU16String(desk_.Path(u"Data")));
    Robot::Click("Form1", "Pcheck");
    Robot::Click("Form1", "Command10");
    const auto sawSection = [this](const char* header, const char* made) {
      if (desk_.Has(std::string("Export/Export 1/") + made)) Saw("script", header);
    };
    sawSection("[ Make Folder ]", "Data");
    sawSection("[ Copy Folder ]", "Data/TXT/CDProperty.xml");
    sawSection("[ Copy File ]", "main.exe");
  }

  std::string Utf16(const std::string& below) const {
    const std::string bytes = desk_.Read(below);
    return Utf8(platform::DecodeUtf16(std::string_view(bytes).substr(2)));
  }

  void LookAtTheDisk() {
    for (const std::string folder : {"Data", "Data/TXT", "Data/_xml", "Data/IMG", "Data/FlashIMG",
                                     "Export", "Export/Export 1"}) {
      for (const std::string& name : desk_.Desk::Names(folder)) Saw("in " + folder, name);
    }
    for (const std::string& name : desk_.Desk::Names("")) Saw("in the program folder", name);
    for (const char* name : {"Index.xml", "aTitle1.xml", "bTitle1.xml"}) {
      Saw(name, Utf16(std::string("Data/_xml/") + name));
    }
    Saw("CDProperty.xml", Utf16("Data/TXT/CDProperty.xml"));
    for (const std::string& name : desk_.BookNames("_xml", ".xml")) {
      if (name.size() > 14) Saw("gallery of an entry", Utf16("Data/_xml/" + name));
    }
    for (const std::string& name : desk_.BookNames("TXT", ".htm")) {
      Saw("page", Utf16("Data/TXT/" + name));
      Saw("print page", Utf16("Export/Export 1/Data/TXT/" + name + "l"));
    }
  }

  void LookAtTheLogs() {
    for (const std::string& line : desk_.LogLines()) Saw("log", line);
    Saw("head of ZVL.txt", desk_.Read("ZVL.txt"));
    Saw("head of ZVL.log", desk_.folder.Read(u"state\\ZVL.log"));
  }

  GalleryDesk desk_;
  Seen seen_;
};

// "…" stands for anything.
bool Matches(const std::string& text, const std::string& wanted) {
  const std::string anything = "…";
  std::size_t at = 0;
  std::size_t from = 0;
  for (std::size_t gap = wanted.find(anything); gap != std::string::npos;
       gap = wanted.find(anything, from)) {
    const std::string piece = wanted.substr(from, gap - from);
    const std::size_t found = text.find(piece, at);
    if (found == std::string::npos || (from == 0 && found != 0)) return false;
    at = found + piece.size();
    from = gap + anything.size();
  }
  if (from == 0) return text == wanted;
  const std::string rest = wanted.substr(from);
  return text.size() >= at + rest.size() && text.ends_with(rest);
}

struct Section {
  std::string name;
  std::vector<std::pair<std::string, std::string>> texts;  // place, text as it is shown
};

void PrintTo(const Section& section, std::ostream* out) { *out << section.name; }

std::vector<Section> Sections() {
  std::vector<Section> sections;
  for (const auto& [name, texts] : testing_support::KnownTexts()) {
    Section& section = sections.emplace_back(Section{name, {}});
    for (const auto& [place, text] : texts) {
      section.texts.emplace_back(place, testing_support::AsShown(text));
    }
  }
  return sections;
}

class Constants : public testing::TestWithParam<Section> {
 protected:
  static void SetUpTestSuite() { seen = std::make_unique<Seen>(Day().Run()); }
  static void TearDownTestSuite() { seen.reset(); }
  static std::unique_ptr<Seen> seen;
};

std::unique_ptr<Seen> Constants::seen;

INSTANTIATE_TEST_SUITE_P(All, Constants, testing::ValuesIn(Sections()), [](const auto& each) {
  std::string name = each.param.name;
  std::erase(name, ' ');
  return name;
});

TEST_P(Constants, EachTextIsSeenAtItsPlace) {
  EXPECT_FALSE(GetParam().texts.empty());
  for (const auto& [place, text] : GetParam().texts) {
    const std::vector<std::string>& texts = (*seen)[place];
    EXPECT_TRUE(std::ranges::any_of(
        texts, [&wanted = text](const std::string& each) { return Matches(each, wanted); }))
        << place << " has not shown: " << text << "\nbut: " << testing::PrintToString(texts);
  }
}

// Neither the log nor a box says what the table doesn't know.
TEST_P(Constants, NothingElseIsSaidThere) {
  for (const auto& [place, any] : GetParam().texts) {
    if (place != "log" && !place.starts_with("message") && place != "notice") continue;
    for (const std::string& text : (*seen)[place]) {
      const auto isText = [&, &where = place](const auto& each) {
        return each.first == where && Matches(text, each.second);
      };
      EXPECT_TRUE(std::ranges::any_of(GetParam().texts, isText)) << place << ": " << text;
    }
  }
}

}  // namespace
