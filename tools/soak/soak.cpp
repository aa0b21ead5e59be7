#include "tools/soak/soak.h"

#include <QElapsedTimer>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <utility>

#include "platform/clock.h"
#include "platform/files/file_system.h"
#include "platform/files/paths.h"
#include "platform/text/encoding.h"

namespace soak {
namespace {

namespace fs = std::filesystem;
using testing_support::Robot;

const QString kText = QStringLiteral("Soak.txt");

QString Heading(int entry) { return QStringLiteral("سرفصل %1 تا").arg(entry); }
QString Passage(int entry) {
  return QStringLiteral("متن شماره %1 با چند واژه تا پايان").arg(entry);
}

platform::Text MakeProgramFolder(const fs::path& resources, const fs::path& output) {
  fs::create_directories(output / "Texts");
  fs::copy(resources, output / "Resources", fs::copy_options::recursive);
  return platform::ToolPath(fs::absolute(output).string());
}

void Require(bool holds, const std::string& what) {
  if (!holds) throw std::runtime_error("not so: " + what);
}

}  // namespace

Soak::Soak(const fs::path& resources, fs::path output, Plan plan)
    : output_(std::move(output)),
      plan_(plan),
      machine_{platform::HostFileSystem(), platform::HostClock(), random_,
               MakeProgramFolder(resources, output_),
               platform::ToolPath(fs::absolute(output_ / "ZVL.log").string())},
      form1_(machine_),
      form3_(form1_),
      form6_(form3_),
      form4_(form1_) {
  form3_.Wire(form6_);
  form1_.Wire({.workbench = &form3_, .paragraph = &form6_, .help = &form4_});
}

bool Soak::Run() {
  SetUpProject();
  OpenWindowsOfProject();
  MakeCollections(plan_.collections - 1);
  OpenOften("Form3", [this] {
    OpenWorkbench();
    Robot::CloseWindow("Form3");
    robot_.TakeBoxes();
  });
  OpenEntries();
  std::cout << (grew_.empty() ? "Verdict: steady." : "Verdict: what grew:" + grew_) << std::endl;
  return grew_.empty();
}

void Soak::SetUpProject() {
  QString text;
  for (int i = 1; i <= plan_.entries; ++i) {
    text += Heading(i) + QStringLiteral("\r\n") + Passage(i) + QStringLiteral("\r\n");
  }
  std::ofstream(output_ / "Texts" / kText.toStdString(), std::ios::binary)
      << platform::EncodeMachineCodePage(text.toStdU16String());
  form1_.Show();
  Robot::Settle();
  for (const char* count : {"title", "matn", "shenas"}) {
    Robot::Type("Form1", count, QString::number(plan_.collections / 3));
  }
  Robot::Type("Form1", "Text1", QStringLiteral("Texts"));
}

std::vector<Figure> Soak::Measured(const std::string& step, int parts,
                                   const std::function<void(int part)>& work) {
  std::vector<Figure> figures;
  for (int part = 1; part <= parts; ++part) {
    QElapsedTimer timer;
    timer.start();
    work(part);
    const double seconds = static_cast<double>(timer.elapsed()) / 1000;
    figures.push_back(FigureOf(step + " " + std::to_string(part), seconds));
    std::cout << LineOf(figures.back()) << std::endl;
  }
  return figures;
}

void Soak::Judge(const std::vector<Figure>& figures, std::size_t warm) {
  grew_ += WhatGrew(figures, warm);
}

void Soak::OpenWorkbench() {
  Robot::Click("Form1", "Command3");
  Require(robot_.TakeBoxes().empty() && form3_.IsVisible(), "Next opens the workbench");
}

void Soak::FileEntries(int count) {
  Robot::ClickLine("Form3", "books", kText);
  for (int i = 1; i <= count; ++i) {
    Robot::Select("Form3", "matn", Heading(i));
    Robot::PressKey("Form3", "matn", Qt::Key_F2);
    Robot::Select("Form3", "matn", Passage(i));
    Robot::PressKey("Form3", "matn", Qt::Key_F3);
  }
  Require(form3_.entryCount == count, "all entries are filed");
}

void Soak::Build() {
  Robot::PressKey("Form3", "matn", Qt::Key_F12);
  Require(robot_.TakeBoxes().size() == 1 && !form3_.IsVisible(), "the collection is built");
}

void Soak::MakeCollections(int count) {
  Judge(Measured("collection", count,
                 [this](int number) {
                   OpenWorkbench();
                   Robot::Type("Form3", "bname", QStringLiteral("Book %1").arg(number));
                   FileEntries(plan_.entries);
                   Build();
                 }),
        3);
}

void Soak::OpenOften(const std::string& window, const std::function<void()>& open) {
  constexpr int kParts = 10;
  const int each = plan_.openings / kParts;
  Judge(Measured(window + ", " + std::to_string(each) + " times,", kParts,
                 [&](int /*part*/) {
                   for (int i = 0; i < each; ++i) open();
                 }),
        2);
}

// The project window itself is open all day; what it opens comes and goes.
void Soak::OpenWindowsOfProject() {
  const std::pair<const char*, const char*> windows[] = {
      {"Form2", "Command9"}, {"Form4", "Command4"}, {"Form5", "Command5"}};
  for (const auto& [window, button] : windows) {
    OpenOften(window, [this, window = window, button = button] {
      robot_.WhenShown(window, [window] { Robot::CloseWindow(window); });
      Robot::Click("Form1", button);
    });
  }
}

// In the last collection, which is built afterwards.
void Soak::OpenEntries() {
  OpenWorkbench();
  FileEntries(3);
  OpenOften("Form6", [this] {
    robot_.WhenShown("Form6", [] { Robot::CloseWindow("Form6"); });
    Robot::ClickLine("Form3", "bindex", 1);
    robot_.TakeBoxes();
  });
  Build();
}

}  // namespace soak
