// Every control of all windows as a screen reader meets it on the accessibility bus: where it
// stands, what it is and what it is called; that it can be given the focus, and pressed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QEventLoop>
#include <QProcess>
#include <QStringList>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/text/caption.h"
#include "platform/windows/controls.h"
#include "support/window_catalogue.h"
#include "tests/support/small_window.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::ControlKind;
using platform::ControlRow;
using platform::WindowDefinition;
using testing::IsEmpty;
using testing_support::SmallWindow;

struct Found {
  QRect place;
  QString role;
  QStringList states;
  QString name;
  QString description;
};

// Runs the reader's program, while this one goes on answering it.
QString AskReader(const QStringList& request) {
  QProcess reader;
  reader.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  QEventLoop untilDone;
  QObject::connect(&reader, &QProcess::finished, &untilDone, &QEventLoop::quit);
  QObject::connect(&reader, &QProcess::errorOccurred, &untilDone, &QEventLoop::quit);
  reader.start(QStringLiteral("/usr/bin/python3"),
               QStringList{QStringLiteral(SCREEN_READER),
                           QString::number(QCoreApplication::applicationPid())} +
                   request);
  untilDone.exec();
  EXPECT_EQ(reader.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(reader.exitCode(), 0) << request.join(u' ').toStdString();
  return QString::fromUtf8(reader.readAllStandardOutput());
}

std::vector<Found> Listed() {
  std::vector<Found> found;
  const QStringList lines = AskReader({QStringLiteral("list")}).split(u'\n', Qt::SkipEmptyParts);
  for (const QString& line : lines) {
    const QStringList fields = line.split(u'\t');
    if (fields.size() != 8) continue;
    const QRect place(fields[0].toInt(), fields[1].toInt(), fields[2].toInt(), fields[3].toInt());
    found.push_back({place, fields[4], fields[5].split(u','), fields[6], fields[7]});
  }
  return found;
}

QString RoleOf(ControlKind kind) {
  static const std::map<ControlKind, QString> kRoles = {
      {ControlKind::kLabel, "label"},          {ControlKind::kTextBox, "text"},
      {ControlKind::kRichTextBox, "text"},     {ControlKind::kButton, "push button"},
      {ControlKind::kCheckBox, "check box"},   {ControlKind::kOption, "radio button"},
      {ControlKind::kListBox, "list"},         {ControlKind::kComboBox, "combo box"},
      {ControlKind::kDriveList, "combo box"},  {ControlKind::kFolderList, "list"},
      {ControlKind::kFileList, "list"},        {ControlKind::kImage, "push button"},
      {ControlKind::kScrollBar, "scroll bar"},
  };
  return kRoles.at(kind);
}

QString NameOf(const ControlRow& row) {
  const QString name = QString::fromStdU16String(platform::Text(row.name));
  return row.index == platform::kNoIndex ? name : QStringLiteral("%1(%2)").arg(name).arg(row.index);
}

// Frames, lines and drawings say nothing; a label says its text.
bool IsSeenByReaders(const ControlRow& row) {
  if (row.kind == ControlKind::kLabel) return !row.text.empty();
  return platform::IsPlaced(row.kind) && row.tabStop && row.kind != ControlKind::kFrame &&
         row.kind != ControlKind::kLine && row.kind != ControlKind::kPicture;
}

bool IsTickable(const ControlRow& row) {
  return row.kind == ControlKind::kCheckBox || row.kind == ControlKind::kOption;
}

// A combo box gives what it shows for its name.
QString CalledBy(const ControlRow& row, const Found& seen) {
  return RoleOf(row.kind) == QLatin1String("combo box") ? seen.description : seen.name;
}

QRect PlaceOf(const QWidget& widget) { return {widget.mapToGlobal(QPoint()), widget.size()}; }

// The toolkit's lists and combo boxes can't be given the focus on the bus (Qt 6.4 offers no such
// action for item views); the Tab key reaches them.
bool TakesFocusOnTheBus(const ControlRow& row, const QWidget& widget) {
  static const std::set<QString> kWithout = {"list", "combo box"};
  return row.tabStop && row.enabled && widget.focusPolicy() != Qt::NoFocus &&
         !kWithout.contains(RoleOf(row.kind));
}

std::string WhatIsWrong(const ControlRow& row, const QWidget& widget,
                        const std::vector<Found>& found) {
  const auto seen = std::ranges::find_if(found, [&](const Found& each) {
    // Of tick boxes and options only the mark and the caption count.
    const QRect place = PlaceOf(widget);
    const bool here = IsTickable(row) ? place.contains(each.place) : each.place == place;
    return here && each.role == RoleOf(row.kind);
  });
  if (seen == found.end()) return "isn't there";
  const QString called = CalledBy(row, *seen);
  if (called.trimmed().isEmpty()) return "has no name";
  if (called != widget.accessibleName()) return "is called otherwise";
  const bool wanted = row.enabled && row.kind != ControlKind::kLabel;
  if (wanted && !seen->states.contains(QStringLiteral("focusable"))) return "can't take the focus";
  return {};
}

class ScreenReader : public testing::TestWithParam<const WindowDefinition*> {
 protected:
  // With what it hides at first on the screen too.
  void SetUp() override {
    window.ShowActive();
    for (const ControlRow& row : GetParam()->rows) {
      if (row.hidden && platform::IsPlaced(row.kind)) WidgetOf(row).show();
    }
    testing_support::Robot::Settle();
  }
  QWidget& WidgetOf(const ControlRow& row) const {
    return *window.OnScreen().findChild<QWidget*>(NameOf(row));
  }
  SmallWindow window{*GetParam()};
};

INSTANTIATE_TEST_SUITE_P(All, ScreenReader,
                         testing::Values(&support::Form1Definition(), &support::Form2Definition(),
                                         &support::Form3Definition(), &support::Form4Definition(),
                                         &support::Form5Definition(), &support::Form6Definition(),
                                         &support::RecoveryDefinition()),
                         [](const auto& each) { return platform::ToUtf8(each.param->name); });

TEST_P(ScreenReader, FindsAndNamesEveryControl) {
  const std::vector<Found> found = Listed();
  std::vector<std::string> wrong;
  for (const ControlRow& row : GetParam()->rows) {
    if (!IsSeenByReaders(row)) continue;
    const std::string what = WhatIsWrong(row, WidgetOf(row), found);
    if (!what.empty()) wrong.push_back(NameOf(row).toStdString() + " " + what);
  }
  EXPECT_THAT(wrong, IsEmpty());
}

TEST_P(ScreenReader, GivesTheFocusToEveryControl) {
  std::set<const QWidget*> hadFocus;
  const auto watch = QObject::connect(
      qApp, &QApplication::focusChanged,
      [&](const QWidget* /*before*/, const QWidget* now) { hadFocus.insert(now); });
  hadFocus.insert(QApplication::focusWidget());
  AskReader({QStringLiteral("focus")});
  QObject::disconnect(watch);
  std::vector<std::string> missed;
  for (const ControlRow& row : GetParam()->rows) {
    if (!IsSeenByReaders(row)) continue;
    const QWidget& widget = WidgetOf(row);
    if (!TakesFocusOnTheBus(row, widget)) continue;
    if (!hadFocus.contains(&widget)) missed.push_back(NameOf(row).toStdString());
  }
  EXPECT_THAT(missed, IsEmpty());
}

// Pressing shows a button down for a moment first.
void PressAndCount(const QString& name, const int& clicks) {
  AskReader({QStringLiteral("press"), name});
  testing_support::Robot::WaitUntil([&] { return clicks > 0; });
  EXPECT_EQ(clicks, 1);
}

constexpr ControlRow kSaid[] = {
    {.name = u"first", .kind = ControlKind::kLabel, .width = 1500, .height = 300, .text = u"يك"},
    {.name = u"second",
     .kind = ControlKind::kLabel,
     .top = 300,
     .width = 1500,
     .height = 300,
     .text = u"دو"}};
constexpr WindowDefinition kNotice = {
    .name = u"notice", .title = u"notice", .width = 3000, .height = 1500, .rows = kSaid};
constexpr WindowDefinition kOwner = {
    .name = u"owner", .title = u"owner", .width = 3000, .height = 1500};

// It takes no focus, so a reader learns of it by being told.
TEST(ScreenReaderNotice, HearsOfAWindowThatComesUpBesideAnother) {
  const testing_support::TemporaryFolder folder;
  const std::string listens = folder.HostPath("listens");
  SmallWindow owner(kOwner);
  SmallWindow notice(kNotice);
  platform::Label second(notice, u"second");
  owner.ShowActive();
  const auto whenHeard = [&](const std::function<void()>& act) {
    QTimer until;
    QObject::connect(&until, &QTimer::timeout, [&] {
      if (!std::filesystem::exists(listens)) return;
      std::filesystem::remove(listens);
      until.stop();
      act();
    });
    until.start(std::chrono::milliseconds(20));
    return AskReader({QStringLiteral("hear"), QString::fromStdString(listens)}).toStdString();
  };
  EXPECT_EQ(whenHeard([&] { notice.ShowBeside(owner); }), "notification\tيك. دو\n");
  EXPECT_EQ(whenHeard([&] {
              second.SetCaption(u"سه");
              notice.Announce();
            }),
            "notification\tيك. سه\n");
  EXPECT_TRUE(owner.OnScreen().isActiveWindow());
}

constexpr ControlRow kPressed[] = {
    {.name = u"go", .kind = ControlKind::kButton, .width = 1500, .height = 450, .text = u"برو"},
    {.name = u"face",
     .kind = ControlKind::kImage,
     .top = 600,
     .width = 1500,
     .height = 450,
     .hint = u"تصوير"}};
constexpr WindowDefinition kSmall = {
    .name = u"small", .title = u"small", .width = 3000, .height = 1500, .rows = kPressed};

TEST(ScreenReaderPress, ActsLikeAClick) {
  SmallWindow window(kSmall);
  platform::Button button(window, u"go");
  platform::ImageBox image(window, u"face");
  int clicks = 0;
  int imageClicks = 0;
  button.onClick = [&] { ++clicks; };
  image.onClick = [&] { ++imageClicks; };
  window.ShowActive();
  PressAndCount(QStringLiteral("برو"), clicks);
  PressAndCount(QStringLiteral("تصوير"), imageClicks);
}

}  // namespace
