// The viewer's program as it is started from a disc, in an environment that says nothing of
// languages, as a screen reader meets it: the toolkit's own words are Persian from the first one.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>
#include <algorithm>
#include <string>
#include <vector>

namespace {

using testing::Contains;
using testing::Not;

constexpr int kLongestWait = 120'000;  // milliseconds; a program that hangs is an error

class ViewerOnADesktop : public testing::Test {
 protected:
  ~ViewerOnADesktop() override {
    viewer_.terminate();
    viewer_.waitForFinished(kLongestWait);
  }

  void Start() {
    const QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
    QProcessEnvironment bare;
    for (const char* name : {"DISPLAY", "XAUTHORITY", "XDG_RUNTIME_DIR", "DBUS_SESSION_BUS_ADDRESS",
                             "QT_QPA_PLATFORM", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON"}) {
      bare.insert(name, all.value(name));
    }
    bare.insert(QStringLiteral("HOME"), folder_.path());
    viewer_.setProcessEnvironment(bare);
    viewer_.start(QStringLiteral(VIEWER), {folder_.path()});
    ASSERT_TRUE(viewer_.waitForStarted(kLongestWait));
  }

  QString Ask(const QStringList& request) {
    QProcess reader;
    reader.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    reader.start(
        QStringLiteral("/usr/bin/python3"),
        QStringList{QStringLiteral(SCREEN_READER), QString::number(viewer_.processId())} + request);
    EXPECT_TRUE(reader.waitForFinished(kLongestWait));
    EXPECT_EQ(reader.exitCode(), 0) << request.join(u' ').toStdString();
    return QString::fromUtf8(reader.readAllStandardOutput());
  }

  std::vector<std::string> Names() {
    std::vector<std::string> names;
    const QStringList lines = Ask({QStringLiteral("list")}).split(u'\n');
    for (const QString& line : lines) names.push_back(line.section(u'\t', 6, 6).toStdString());
    return names;
  }

  // The names once this one is among them.
  std::vector<std::string> NamesWith(const std::string& awaited) {
    std::vector<std::string> names = Names();
    for (int tries = 0; tries < 50 && std::ranges::find(names, awaited) == names.end(); ++tries) {
      names = Names();
    }
    return names;
  }

  QTemporaryDir folder_;
  QProcess viewer_;
};

TEST_F(ViewerOnADesktop, TheToolkitsDialogIsPersianInABareEnvironment) {
  Start();
  EXPECT_THAT(NamesWith("باز کردن کتاب"), Contains("باز کردن کتاب"));
  Ask({QStringLiteral("press"), QStringLiteral("باز کردن کتاب")});
  const std::vector<std::string> names = NamesWith("انصراف");
  EXPECT_THAT(names, Contains("انصراف"));
  EXPECT_THAT(names, Contains("پوشه\u200Cی کتاب را برگزینید"));
  for (const char* english : {"Cancel", "Open", "Choose", "Look in:", "Directory:", "Back"}) {
    EXPECT_THAT(names, Not(Contains(english)));
  }
}

}  // namespace
