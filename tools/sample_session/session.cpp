#include "tools/sample_session/session.h"

#include <QBackingStore>
#include <QListView>
#include <QListWidget>
#include <QMessageBox>
#include <QStringList>
#include <QTextEdit>
#include <memory>
#include <stdexcept>

#include "platform/files/file_system.h"
#include "platform/files/paths.h"
#include "tools/sample_session/threads.h"
#include "viewer/window.h"

namespace sample {
namespace {

namespace fs = std::filesystem;
using testing_support::Robot;

// One text for each of the first five collections of the default counts; the sixth is a gallery.
const QStringList kBooks = {"Baghha.txt", "Ghesseha.txt", "Kavir.txt", "ChaiNan.txt", "Sherha.txt"};
const QString kIdentity = QStringLiteral("شناسنامه");

// A fresh program folder with the delivered files.
platform::Text MakeProgramFolder(const fs::path& resources, const fs::path& output) {
  fs::create_directories(output);
  // It may be a mount, which can be emptied and not removed.
  for (const auto& entry : fs::directory_iterator(output)) fs::remove_all(entry);
  fs::create_directories(output / "pictures");
  fs::create_directories(output / "program");
  fs::copy(resources, output / "program" / "Resources", fs::copy_options::recursive);
  return platform::ToolPath(fs::absolute(output / "program").string());
}

class SilentPlayer : public viewer::Player {
 public:
  void Play(std::unique_ptr<book::Medium> /*medium*/) override {}
  void Pause() override {}
  void Resume() override {}
  void Stop() override {}
};

// Nothing is started, played or printed.
viewer::Outside StillMachine() {
  return {.openFile = [](const QString&) { return true; },
          .startProgram = [](const QString&) { return true; },
          .showFilm = [](std::unique_ptr<book::Medium>, const QString&, QWidget*,
                         const std::function<void()>&) {},
          .makePlayer = [] { return std::make_unique<SilentPlayer>(); },
          .print = [](const std::function<void(QPrinter&)>&, QWidget*) {}};
}

// Milliseconds; under memcheck everything takes its time.
constexpr int kPatience = 120'000;

// As the window has painted itself. A grab would have it paint itself anew, and a repaint that is
// missing wouldn't show.
QImage OnScreen(const QWidget& window) {
  const auto* const screen = dynamic_cast<QImage*>(window.backingStore()->paintDevice());
  if (screen == nullptr) throw std::runtime_error("the windows aren't drawn in memory");
  return screen->copy();
}

// The viewer's pictures come one by one once the window is there; a busy machine has them come
// late.
QImage WhenStill(QWidget& window) {
  constexpr int kLooksAlike = 3;
  QImage before;
  int alike = 0;
  const auto isStill = [&] {
    const bool canChange = !OtherThreadsSleep();
    Robot::Settle();
    const QImage now = OnScreen(window);
    alike = now == before && !canChange ? alike + 1 : 0;
    before = now;
    return alike == kLooksAlike;
  };
  Robot::WaitUntil(isStill, kPatience);
  return before;
}

QString ShownText() {
  QString text = Robot::FindAs<QTextEdit>("Form3", "matn").document()->toRawText();
  return text.replace(QChar::ParagraphSeparator, u'\n');
}

}  // namespace

Session::Session(const fs::path& resources, fs::path output)
    : output_(std::move(output)),
      records_(platform::HostRecordFolder(
          platform::ToolPath(fs::absolute(output_ / "recovery").string()))),
      machine_{platform::HostFileSystem(),
               clock_,
               random_,
               MakeProgramFolder(resources, output_),
               platform::ToolPath(fs::absolute(output_ / "ZVL.log").string()),
               &records_},
      form1_(machine_),
      form3_(form1_),
      form6_(form3_),
      form4_(form1_),
      exportPass_(form1_, launcher_) {
  form3_.Wire(form6_);
  form1_.Wire(
      {.workbench = &form3_, .paragraph = &form6_, .help = &form4_, .exporting = &exportPass_});
  robot_.onBox = [this](QWidget& box) {
    Save(box, QStringLiteral("box"));
    if (atBox) atBox(dynamic_cast<QMessageBox&>(box).text().toStdString());
  };
}

void Session::Run() {
  form1_.Show();
  Robot::Settle();
  LookAtProject();
  LookAtHelp();
  LookAtChoosers();
  for (const QString& book : kBooks) MakeCollection(++collection_, book);
  MakeGallery(collection_ + 1);
  TakePicture("Form1", "all-collections-built");
  Robot::Click("Form1", "Command3");
  const auto boxes = robot_.TakeBoxes();
  Require(boxes.size() == 1, "one box says that no collection is left");
  Robot::Click("Form1", "Pcheck");
  Export(1, QStringLiteral("first-layout"));
  Robot::Click("Form1", "Olgoo(1)");
  Export(2, QStringLiteral("second-layout"));
}

void Session::LookAtProject() {
  TakePicture("Form1", "project");
  Robot::Click("Form1", "bMus(1)");
  TakePicture("Form1", "music-off");
  Robot::Click("Form1", "bMus(0)");
}

void Session::LookAtHelp() {
  robot_.WhenShown("Form4", [this] {
    TakePicture("Form4", QStringLiteral("help"));
    Robot::FindWindow("Form4")->close();
  });
  Robot::Click("Form1", "Command4");
}

void Session::LookAtChoosers() {
  robot_.WhenShown("Form5", [this] {
    Robot::DoubleClickLine("Form5", "Dir1", "Resources");
    Robot::ClickLine("Form5", "File1", QStringLiteral("MyBook.jpg"));
    TakePicture("Form5", "choose-picture");
    Robot::Click("Form5", "btn(0)");
  });
  Robot::Click("Form1", "Command5");
  robot_.WhenShown("Form2", [this] {
    Robot::DoubleClickLine("Form2", "Dir1", "Resources");
    TakePicture("Form2", "choose-text-folder");
    Robot::Click("Form2", "btn(0)");
  });
  Robot::Click("Form1", "Command9");
  TakePicture("Form1", "choices-made");
}

void Session::MakeCollection(int number, const QString& book) {
  Robot::Click("Form1", "Command3");
  Require(robot_.TakeBoxes().empty(), "Next finds everything in place");
  TakePicture("Form3", QStringLiteral("collection-%1-opened").arg(number));
  OpenBook(book);
  if (IsFirst()) TryRebuilding(book);
  const Reading reading = ReadText(ShownText());
  Require(reading.passages.size() > 3, "the text has headings");
  FileTitle(reading);
  FilePassages(reading);
  if (IsFirst()) CloseAndBringBack();
  if (IsFirst()) EditEntries();
  Build([] { Robot::PressKey("Form3", "matn", Qt::Key_F12); });
}

void Session::OpenBook(const QString& book) {
  Robot::ClickLine("Form3", "books", book);
  TakePicture("Form3", QStringLiteral("text-opened"));
}

void Session::FileTitle(const Reading& reading) {
  MarkWith(Qt::Key_F5, reading.title);
  if (!reading.subtitle.isEmpty()) {
    Robot::Select("Form3", "matn", reading.subtitle);
    Robot::Click("Form3", "Com(5)");
  }
  if (IsFirst()) TakePicture("Form3", QStringLiteral("title-filed"));
}

void Session::FilePassage(const Passage& passage) {
  if (passage.heading.trimmed() == kIdentity) {
    MarkWith(Qt::Key_F11, passage.heading);
    MarkWith(Qt::Key_F6, passage.text);
    return;
  }
  MarkWith(Qt::Key_F2, passage.heading);
  Robot::Select("Form3", "matn", passage.text);
  if (IsFirst()) TakePicture("Form3", QStringLiteral("passage-selected"));
  Robot::PressKey("Form3", "matn", Qt::Key_F3);
}

// Two passages stand alone; the rest is gathered under one main title. Its words are those of the
// next heading, which has to stay in the text for that: F7 switches the removal off and on.
void Session::FilePassages(const Reading& reading) {
  std::size_t filed = 0;
  for (const Passage& passage : reading.passages) {
    if (filed++ == 2) {
      Robot::PressKey("Form3", "matn", Qt::Key_F7);
      MarkWith(Qt::Key_F1, passage.heading);
      Robot::PressKey("Form3", "matn", Qt::Key_F7);
    }
    FilePassage(passage);
  }
  Robot::PressKey("Form3", "matn", Qt::Key_F4);
  TakePicture("Form3", QStringLiteral("passages-filed"));
}

void Session::Build(const std::function<void()>& start) {
  const QString collection = QStringLiteral("%1Title%2.xml")
                                 .arg(QChar(u'a' + (collection_ - 1) / 2))
                                 .arg((collection_ - 1) % 2 + 1);
  start();
  const auto boxes = robot_.TakeBoxes();
  Require(boxes.size() == 1, "one box says that the collection is built");
  Require(fs::exists(output_ / "program" / "Data" / "_xml" / collection.toStdString()),
          collection + " is there");
  Require(!form3_.IsVisible(), "the workbench makes way for the project window");
}

void Session::Export(int number, const QString& layout) {
  launcher_.opened.clear();
  Robot::Click("Form1", "Command10");
  const auto boxes = robot_.TakeBoxes();
  Require(boxes.size() == 1, "one box says that the export is ready");
  TakePicture("Form1", QStringLiteral("exported-%1").arg(number));
  const fs::path root = output_ / "program" / "Export" / ("Export " + std::to_string(number));
  const fs::path viewer = fs::absolute(root / "main.exe");
  Require(launcher_.opened.size() == 1 &&
              platform::HostPath(launcher_.opened[0].path) == viewer.string(),
          "the viewer is started from the export");
  LookAtBook(QString::fromStdString(root.string()), layout);
}

// The viewer that the export has brought there, but in this process, so that it can be seen; what
// it would start or play stays still.
void Session::LookAtBook(const QString& root, const QString& layout) {
  viewer::Window window(root, StillMachine());
  Require(window.HasBook(), "the viewer finds the book");
  window.show();
  const auto look = [&](const QString& step) {
    Save(window, QStringLiteral("viewer-%1-%2").arg(layout, step));
  };
  look(QStringLiteral("index"));
  Robot::Click("viewer", "a1");
  look(QStringLiteral("collection"));
  Robot::PressKey("viewer", "contents", Qt::Key_Down);
  Robot::PressKey("viewer", "contents", Qt::Key_Return);
  look(QStringLiteral("page"));
  Robot::Click("viewer", "home");
  Robot::Click("viewer", "c2");
  look(QStringLiteral("gallery"));
  Robot::Click("viewer", "home");
  Robot::Type("viewer", "words", QStringLiteral("باغ"));
  Robot::Click("viewer", "find");
  const auto& hits = Robot::FindAs<QListView>("viewer", "hits");
  Robot::WaitUntil([&] { return hits.model()->rowCount() > 0; }, kPatience);
  look(QStringLiteral("search"));
}

void Session::MarkWith(int functionKey, const QString& text) {
  Robot::Select("Form3", "matn", text);
  Robot::PressKey("Form3", "matn", functionKey);
}

void Session::TakePicture(const QString& window, const QString& step) {
  Robot::Settle();
  QWidget* widget = Robot::FindWindow(window);
  Require(widget != nullptr && widget->isVisible(), window + " is on the screen");
  Save(*widget, window + u'-' + step);
}

void Session::Save(QWidget& widget, const QString& step) {
  const QString name = QStringLiteral("%1-%2.png").arg(++pictures_, 3, 10, QChar(u'0')).arg(step);
  const auto path = output_ / "pictures" / name.toStdString();
  const QImage picture = WhenStill(widget);
  Require(picture.save(QString::fromStdString(path.string())), "the picture is written");
}

void Session::Require(bool holds, const QString& what) const {
  if (holds) return;
  throw std::runtime_error(
      QStringLiteral("Collection %1: not so: %2").arg(collection_).arg(what).toStdString());
}

}  // namespace sample
