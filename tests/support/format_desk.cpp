#include "tests/support/format_desk.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTextEdit>
#include <algorithm>
#include <regex>
#include <stdexcept>

#include "platform/text/encoding.h"

namespace testing_support {
namespace {

QTextEdit& TextBoxOfPassages() { return Robot::FindAs<QTextEdit>("Form3", "matn"); }

std::string WithoutStems(const std::string& text) {
  static const std::regex kStem("[0-9A-Y]{14}");
  return std::regex_replace(text, kStem, "S");
}

}  // namespace

std::string Utf8(platform::TextView text) { return platform::ToUtf8(text); }

void FormatDesk::AddText(const std::string& name, platform::TextView text) const {
  AddBytes(name, platform::EncodeMachineCodePage(text));
}

void FormatDesk::AddBytes(const std::string& name, std::string_view bytes) const {
  MakeFolders("Texts");
  Write("Texts/" + name, bytes);
}

void FormatDesk::Open() {
  MakeFolders("Texts");
  Start();
  Robot::Type("Form1", "Text1", "Texts");
  PressNext();
}

void FormatDesk::OpenOn(platform::TextView text) {
  AddText("One.txt", text);
  Open();
  OpenBook("One.txt");
}

void FormatDesk::OpenOnFiveRows(const QString& text) {
  OpenOn(u"identity\r\nHead\r\nText\r\nMain\r\nOther\r\n" +
         platform::Replace(text.toStdU16String(), u"\n", u"\r\n"));
  Mark(Qt::Key_F6, QStringLiteral("identity"));
  FileHeading(QStringLiteral("Head"), QStringLiteral("Text"));
  Mark(Qt::Key_F1, QStringLiteral("Main"));
  FileHeading(QStringLiteral("Other"), text);
  Robot::PressKey("Form3", "matn", Qt::Key_F4);
}

void FormatDesk::Mark(int functionKey, const QString& passage) {
  Robot::Select("Form3", "matn", passage);
  Robot::PressKey("Form3", "matn", functionKey);
}

void FormatDesk::Command(int command, const QString& passage) {
  Robot::Select("Form3", "matn", passage);
  Robot::Click("Form3", QStringLiteral("Com(%1)").arg(command));
}

void FormatDesk::FileHeading(const QString& title, const QString& text) {
  Mark(Qt::Key_F2, title);
  Mark(Qt::Key_F3, text);
}

void FormatDesk::InEntry(int row, const std::function<void()>& act) {
  robot.WhenShown("Form6", [this, act] {
    act();
    if (form6.IsLoaded()) Robot::CloseWindow("Form6");
  });
  Robot::ClickLine("Form3", "bindex", row);
}

void FormatDesk::Edit(int row, const std::function<void()>& act) {
  InEntry(row, [act] {
    act();
    Robot::Click("Form6", "btn(4)");
  });
}

std::string FormatDesk::Shown(const QString& control) {
  QWidget& widget = Robot::Find("Form3", control);
  QString shown;
  if (const auto* label = qobject_cast<QLabel*>(&widget)) shown = label->text();
  if (const auto* button = qobject_cast<QAbstractButton*>(&widget)) shown = button->text();
  if (const auto* line = qobject_cast<QLineEdit*>(&widget)) shown = line->text();
  if (const auto* box = qobject_cast<QTextEdit*>(&widget)) {
    shown = box->document()->toRawText().replace(QChar::ParagraphSeparator, u'\n');
  }
  return shown.toStdString();
}

std::vector<std::string> FormatDesk::Lines(const QString& list) {
  return Robot::Lines("Form3", list);
}

std::string FormatDesk::Selected() {
  return TextBoxOfPassages().textCursor().selectedText().toStdString();
}

int FormatDesk::Caret() { return TextBoxOfPassages().textCursor().position(); }

void FormatDesk::Repaint() {
  Robot::FindWindow("Form3")->repaint();
  Robot::Settle();
}

std::string FormatDesk::Book(const std::string& below) const {
  const std::string bytes = Read("Data/" + below);
  if (!bytes.starts_with(platform::kUtf16Mark)) throw std::runtime_error("no mark: " + below);
  return Utf8(platform::DecodeUtf16(std::string_view(bytes).substr(platform::kUtf16Mark.size())));
}

std::vector<std::string> FormatDesk::BookNames(const std::string& place,
                                               const std::string& end) const {
  std::vector<std::string> names = Names("Data/" + place);
  std::erase_if(names, [&](const std::string& name) { return !name.ends_with(end); });
  return names;
}

std::string FormatDesk::Page(const std::string& title) const {
  std::vector<std::string> pages;
  for (const std::string& name : BookNames("TXT", ".htm")) {
    std::string page = Book("TXT/" + name);
    if (page.starts_with("<pgTitle>" + title + "</pgTitle>\r\n")) pages.push_back(std::move(page));
  }
  if (pages.size() != 1) {
    throw std::runtime_error(std::to_string(pages.size()) + " pages: " + title);
  }
  return pages.front();
}

std::string FormatDesk::Collection(const std::string& key) const {
  return Unnamed("_xml/" + key + ".xml");
}

std::string FormatDesk::Unnamed(const std::string& below) const {
  return WithoutStems(Book(below));
}

int FormatDesk::AllLoggedFailures() const {
  const auto lines = LogLines();
  return static_cast<int>(std::ranges::count_if(
      lines, [](const std::string& line) { return line.starts_with("Error occurred"); }));
}

int FormatDesk::LoggedTimes(const std::string& wanted) const {
  const auto lines = LogLines();
  return static_cast<int>(std::ranges::count(lines, wanted));
}

}  // namespace testing_support
