#include "tools/kill_test/screen.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>
#include <QTextDocument>
#include <QTextEdit>
#include <map>

namespace kill_test {

using testing_support::Robot;

namespace {

const std::map<Deed, int> kKeys = {
    {Deed::kTitle, Qt::Key_F5},   {Deed::kIdentity, Qt::Key_F6},
    {Deed::kHeading, Qt::Key_F2}, {Deed::kHeadingText, Qt::Key_F3},
    {Deed::kDelete, Qt::Key_F11}, {Deed::kMainTitleEnd, Qt::Key_F4},
};
const std::map<Deed, QString> kButtons = {
    {Deed::kTitleInBrackets, QStringLiteral("Com(5)")},
    {Deed::kMainTitle, QStringLiteral("Com(9)")},
    {Deed::kGalleryMode, QStringLiteral("Com(12)")},
    {Deed::kRebuild, QStringLiteral("HazC(12)")},
};

bool IsShown(const char* window) {
  const QWidget* const found = Robot::FindWindow(window);
  return found != nullptr && found->isVisible();
}

QString CaptionOf(const QString& button) {
  return Robot::FindAs<QAbstractButton>("Form3", button).text();
}

void TypeText(const Operation& operation) {
  Robot::Select("Form3", "matn", operation.from, 0);
  QTest::keyClicks(&Robot::Find("Form3", "matn"), QString::fromStdString(operation.word));
  Robot::Settle();
}

void PickFromPictures(const QString& file) {
  Robot::DoubleClickLine("Form5", "Dir1", "Pictures");
  Robot::ClickLine("Form5", "File1", file);
  Robot::Click("Form5", "btn(0)");
}

// A line of the list begins with the marks of what hangs on the entry, a blank after each.
std::string TitleIn(QString line) {
  while (line.size() > 1 && QStringLiteral("§~#^").contains(line.front()) && line[1] == u' ') {
    line.remove(0, 2);
  }
  return line.section(QStringLiteral("   =>   "), 0, 0).toStdString();
}

}  // namespace

std::string Bare(const std::string& text) {
  std::string bare;
  for (const char c : text) {
    if (c != ' ' && c != '\r' && c != '\n') bare += c;
  }
  return bare;
}

// A long title is cut short in the list.
std::string Describe(const ScreenState& state) {
  constexpr std::size_t kAlwaysThere = 12;
  std::string all = "title " + state.title + "\nopen " + std::to_string(state.mainOpen) +
                    (state.isGallery ? ", gallery\n" : "\n");
  for (const std::string& title : state.titles) {
    all += "line " + Bare(title).substr(0, kAlwaysThere) + "\n";
  }
  return all + "rest " + state.rest;
}

bool Screen::BringBack() {
  if (!IsShown("Recovery")) return false;
  Robot::Click("Recovery", "recoverBring");
  return true;
}

ScreenState Screen::State() {
  QString rest = Robot::FindAs<QTextEdit>("Form3", "matn").document()->toRawText();
  rest.replace(QChar::ParagraphSeparator, u'\n');
  ScreenState state{.title = Robot::FindAs<QLineEdit>("Form3", "bname").text().toStdString(),
                    .mainOpen = CaptionOf("Com(9)").section(u'(', 1).section(u')', 0, 0).toInt(),
                    .isGallery = Robot::Find("Form3", "Frame4").isVisible(),
                    .rest = rest.toStdString()};
  for (const std::string& line : Robot::Lines("Form3", "bindex")) {
    state.titles.push_back(TitleIn(QString::fromStdString(line)));
  }
  return state;
}

std::string Screen::ListAndCaptions() {
  std::string all = (CaptionOf("Com(9)") + u'\n' + CaptionOf("Com(12)")).toStdString();
  for (const std::string& line : Robot::Lines("Form3", "bindex")) all += "\n" + line;
  return all;
}

void Screen::InRow(int row, const std::function<void()>& act) {
  TheRobot().WhenShown("Form6", [act] {
    act();
    if (IsShown("Form6")) Robot::Click("Form6", "btn(4)");
    if (IsShown("Form6")) Robot::CloseWindow("Form6");
  });
  Robot::ClickLine("Form3", "bindex", row);
}

void Screen::PutPictureIntoText() {
  TheRobot().WhenShown("Form5", [] { PickFromPictures("p1.jpg"); });
  Robot::Select("Form6", "matn", 0, 0);
  Robot::RightClick("Form6", "matn");
  Robot::ChooseFromMenu("popM", "picM");
}

void Screen::Attach() {
  TheRobot().WhenShown("Form5", [] { PickFromPictures("p2.jpg"); });
  Robot::Click("Form6", "Command5");
}

void Screen::OpenPictures(const QString& window) {
  TheRobot().WhenShown("Form2", [] {
    Robot::DoubleClickLine("Form2", "Dir1", "Pictures");
    Robot::Click("Form2", "btn(0)");
  });
  Robot::Click(window, window == QLatin1String("Form3") ? "Command1" : "Command3");
}

void Screen::TickPicture(const QString& window, int picture) {
  OpenPictures(window);
  Robot::Click(window, QStringLiteral("IMC(%1)").arg(picture));
}

void Screen::Do(const Operation& operation) {
  if (const auto key = kKeys.find(operation.deed); key != kKeys.end()) {
    Robot::Select("Form3", "matn", 0, operation.length);
    return Robot::PressKey("Form3", "matn", key->second);
  }
  if (const auto button = kButtons.find(operation.deed); button != kButtons.end()) {
    Robot::Select("Form3", "matn", 0, operation.length);
    return Robot::Click("Form3", button->second);
  }
  switch (operation.deed) {
    case Deed::kOpenText:
      Robot::ClickLine("Form3", "books", QStringLiteral("One.txt"));
      return TypeText(operation);
    case Deed::kTypeTitle:
      return Robot::Type("Form3", "bname", QString::fromStdString(operation.word));
    case Deed::kTypeText:
      return TypeText(operation);
    case Deed::kGalleryPicture:
      return TickPicture("Form3", operation.length);
    default:
      return InRow(operation.row, [this, operation] { DoInRow(operation); });
  }
}

void Screen::DoInRow(const Operation& operation) {
  switch (operation.deed) {
    case Deed::kEditTitle:
      return Robot::Type("Form6", "bname", QString::fromStdString(operation.word));
    case Deed::kAttach:
      return Attach();
    case Deed::kDeleteRow:
      return Robot::Click("Form6", "btn(0)");
    case Deed::kPictureInText:
      return PutPictureIntoText();
    default:
      if (!Robot::Find("Form6", "Frame4").isVisible()) Robot::Click("Form6", "btn(5)");
      return TickPicture("Form6", operation.length);
  }
}

bool Screen::Build() {
  TheRobot().AnswerYes();
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  return !IsShown("Form3");
}

}  // namespace kill_test
