// The six windows, control by control, against a table that names each of them once more:
// data/catalogue.txt beside this file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QTextEdit>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/window_catalogue.h"
#include "tests/support/gallery_desk.h"
#include "tests/support/small_window.h"

namespace {

using platform::Artwork;
using platform::WindowDefinition;
using testing::ElementsAreArray;
using testing_support::FormatDesk;
using testing_support::GalleryDesk;
using testing_support::Robot;
using testing_support::SmallWindow;

struct Line {
  std::string name;
  std::string kind;
  QString place;
  QString text;
  QString hint;
  QStringList notes;
  QString parent;
};

struct WindowTable {
  QString title;
  QSize size;  // in pixels
  QString border;
  QString opens;
  std::vector<Line> controls;
};

int Pixels(const QString& twips) { return static_cast<int>(std::lround(twips.toInt() / 15.0)); }

// A mark between two letters stands for a half-space and is shown as one.
QString Shown(const QString& written) {
  QString text = written;
  text.replace(u'¶', u'\n');
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] != u'§') continue;
    const bool inside =
        i > 0 && i + 1 < text.size() && text[i - 1].isLetter() && text[i + 1].isLetter();
    text[i] = inside ? u'\u200C' : u'\u200F';
  }
  return text;
}

void AddLine(const QStringList& fields, std::map<std::string, WindowTable>& tables) {
  WindowTable& table = tables[fields[0].toStdString()];
  if (fields.size() == 5) {
    const QStringList size = fields[2].split(u',');
    table.title = fields[1];
    table.size = {Pixels(size[0]), Pixels(size[1])};
    table.border = fields[3];
    table.opens = fields[4];
    return;
  }
  if (fields.size() != 8)
    throw std::runtime_error("not a line: " + fields.join(u'|').toStdString());
  table.controls.push_back({fields[1].toStdString(), fields[2].toStdString(), fields[3],
                            Shown(fields[4]), Shown(fields[5]),
                            fields[6].split(u' ', Qt::SkipEmptyParts), fields[7]});
}

const std::map<std::string, WindowTable>& Tables() {
  static const std::map<std::string, WindowTable> kTables = [] {
    std::map<std::string, WindowTable> tables;
    std::ifstream file(ZORVAND_SOURCE_DIR "/tests/windows/data/catalogue.txt");
    for (std::string line; std::getline(file, line);) {
      if (!line.empty() && line[0] != '#')
        AddLine(QString::fromStdString(line).split(u'|'), tables);
    }
    if (tables.size() != 6) throw std::runtime_error("the table of the windows isn't whole");
    return tables;
  }();
  return kTables;
}

template <typename WidgetType>
bool Is(const QWidget& widget) {
  return qobject_cast<const WidgetType*>(&widget) != nullptr;
}

// What is drawn by hand: no widget of the toolkit's own.
bool IsDrawn(const QWidget& widget) {
  return std::string(widget.metaObject()->className()) == "QWidget";
}

bool IsFrame(const QWidget& widget, QFrame::Shape shape) {
  const auto* frame = qobject_cast<const QFrame*>(&widget);
  const bool plain = frame != nullptr && std::string(frame->metaObject()->className()) == "QFrame";
  return plain && frame->frameShape() == shape;
}

bool IsOfKind(const QWidget& widget, const std::string& kind) {
  static const std::map<std::string, std::function<bool(const QWidget&)>> kKinds = {
      {"frame", [](const QWidget& each) { return IsFrame(each, QFrame::NoFrame); }},
      {"line", [](const QWidget& each) { return IsFrame(each, QFrame::HLine); }},
      {"picture", IsDrawn},
      {"image", IsDrawn},
      {"label", Is<QLabel>},
      {"text box", Is<QLineEdit>},
      {"rich-text box", Is<QTextEdit>},
      {"button", Is<QPushButton>},
      {"tick box", Is<QCheckBox>},
      {"option button", Is<QRadioButton>},
      {"list box", Is<QListWidget>},
      {"folder list", Is<QListWidget>},
      {"file list", Is<QListWidget>},
      {"combo box", Is<QComboBox>},
      {"drive list", Is<QComboBox>},
      {"vertical scroll bar",
       [](const QWidget& each) {
         const auto* bar = qobject_cast<const QScrollBar*>(&each);
         return bar != nullptr && bar->orientation() == Qt::Vertical;
       }},
      {"menu", Is<QMenu>}};
  return kKinds.at(kind)(widget);
}

QString TextOn(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
  if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) return edit->text();
  if (const auto* box = qobject_cast<const QTextEdit*>(&widget)) return box->toPlainText();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
  return {};
}

// The sides to which a text box brings its text.
QStringList AlignmentOf(const QWidget& widget) {
  const auto* edit = qobject_cast<const QLineEdit*>(&widget);
  if (edit == nullptr) return {};
  const Qt::Alignment sides = edit->alignment();
  if (sides.testFlag(Qt::AlignHCenter)) return {QStringLiteral("centred")};
  // Any other side would be turned by the text in the box.
  EXPECT_TRUE(sides.testFlag(Qt::AlignAbsolute));
  return sides.testFlag(Qt::AlignRight) ? QStringList{QStringLiteral("right")} : QStringList{};
}

void ExpectPlace(const QWidget& widget, const Line& line) {
  if (line.place == u"?") {
    EXPECT_TRUE(widget.parentWidget()->rect().contains(widget.geometry()));
    return;
  }
  if (line.place.isEmpty()) return;
  const QStringList measures = line.place.split(u',');
  const auto edge = [&](int near, int size) {
    return Pixels(QString::number(measures[near].toInt() + measures[size].toInt()));
  };
  EXPECT_EQ(widget.x(), Pixels(measures[0]));
  EXPECT_EQ(widget.y(), Pixels(measures[1]));
  EXPECT_EQ(widget.x() + widget.width(), edge(0, 2));
  EXPECT_EQ(widget.y() + widget.height(), edge(1, 3));
}

// A long caption gets smaller letters where the host's font is wide.
void ExpectFont(const QWidget& widget, const Line& line) {
  const int pixels = widget.font().pixelSize();
  if (line.kind == "tick box") {
    EXPECT_THAT(pixels, testing::AllOf(testing::Ge(9), testing::Le(11)));
  } else {
    EXPECT_EQ(pixels, line.kind == "rich-text box" ? 13 : 11);
  }
}

// Everything but what the tool changes when it opens the window.
void ExpectDesign(const QWidget& window, const QWidget& widget, const Line& line) {
  EXPECT_TRUE(IsOfKind(widget, line.kind)) << widget.metaObject()->className();
  ExpectPlace(widget, line);
  EXPECT_EQ(widget.toolTip().toStdString(), line.hint.toStdString());
  const QString parent = line.parent.isEmpty() ? window.objectName() : line.parent;
  EXPECT_EQ(widget.parentWidget()->objectName().toStdString(), parent.toStdString());
  if (line.kind == "menu") return;
  EXPECT_EQ(widget.isHidden(), line.notes.contains(u"hidden"));
  ExpectFont(widget, line);
  const QStringList alignment = AlignmentOf(widget);
  if (line.kind == "text box") {
    EXPECT_EQ(alignment.contains(u"centred"), line.notes.contains(u"centred"));
    EXPECT_EQ(alignment.contains(u"right"), line.notes.contains(u"right"));
  }
}

bool IsTicked(const QWidget& widget) {
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  return button != nullptr && button->isChecked();
}

void ExpectMenuEntries(const QWidget& window, const WindowTable& table) {
  const auto* menu = window.findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
  std::vector<std::string> wanted;
  for (const Line& line : table.controls) {
    if (line.kind != "menu entry") continue;
    wanted.push_back(line.name);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->objectName().toStdString(), line.parent.toStdString());
    const auto* entry = menu->findChild<QAction*>(QString::fromStdString(line.name));
    ASSERT_NE(entry, nullptr) << line.name;
    EXPECT_EQ(entry->text().toStdString(), line.text.toStdString());
    EXPECT_EQ(entry->isEnabled(), !line.notes.contains(u"disabled")) << line.name;
  }
  std::vector<std::string> names;
  if (menu != nullptr) {
    for (const QAction* entry : menu->actions()) names.push_back(entry->objectName().toStdString());
  }
  EXPECT_THAT(names, ElementsAreArray(wanted));
}

// What stands in the window or in one of its frames, and isn't a part of a control.
std::set<std::string> ControlsOf(const QWidget& window, const WindowTable& table) {
  std::set<QString> holders = {window.objectName()};
  for (const Line& line : table.controls) {
    if (line.kind == "frame") holders.insert(QString::fromStdString(line.name));
  }
  std::set<std::string> names;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (!holders.contains(widget->parentWidget()->objectName())) continue;
    names.insert(widget->objectName().toStdString());
  }
  return names;
}

// In what is told apart by `changed` the tool itself writes when it opens the window.
void ExpectWindow(const QWidget& window, const std::set<std::string>& changed = {}) {
  const std::string name = window.objectName().toStdString();
  const WindowTable& table = Tables().at(name);
  std::set<std::string> wanted;
  for (const Line& line : table.controls) {
    SCOPED_TRACE(name + "." + line.name);
    if (line.kind == "timer" || line.kind == "menu entry") continue;
    wanted.insert(line.name);
    const auto* widget = window.findChild<QWidget*>(QString::fromStdString(line.name));
    ASSERT_NE(widget, nullptr);
    ExpectDesign(window, *widget, line);
    if (changed.contains(line.name)) continue;
    EXPECT_EQ(TextOn(*widget).toStdString(), line.text.toStdString());
    EXPECT_EQ(IsTicked(*widget), line.notes.contains(u"ticked"));
  }
  EXPECT_EQ(ControlsOf(window, table), wanted);
  ExpectMenuEntries(window, table);
}

void ExpectBorder(const QWidget& window, const QString& border) {
  const Qt::WindowFlags flags = window.windowFlags();
  const bool sizable = border == u"sizable";
  const bool tool = border == u"fixed tool window";
  EXPECT_EQ(window.minimumSize() == window.maximumSize(), !sizable);
  EXPECT_EQ(flags.testFlag(Qt::WindowMaximizeButtonHint), sizable);
  EXPECT_EQ(flags.testFlag(Qt::WindowMinimizeButtonHint), !tool);
  EXPECT_EQ((flags & Qt::WindowType_Mask) == Qt::Dialog, tool);
}

// In the middle of `around`; what doesn't fit on the screen begins at its edge.
void ExpectCentred(const QWidget& window, const QRect& around) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  const QPoint middle = around.center() - window.rect().center();
  EXPECT_NEAR(window.x(), std::max(middle.x(), screen.left()), 1);
  EXPECT_NEAR(window.y(), std::max(middle.y(), screen.top()), 1);
}

void ExpectHead(const QWidget& window, const QWidget* owner = nullptr) {
  const WindowTable& table = Tables().at(window.objectName().toStdString());
  EXPECT_EQ(window.windowTitle().toStdString(), table.title.toStdString());
  EXPECT_EQ(window.size(), table.size);
  ExpectBorder(window, table.border);
  const bool overOwner = table.opens.startsWith(u"centred on its owner");
  ASSERT_EQ(overOwner, owner != nullptr);
  ExpectCentred(window, overOwner ? owner->frameGeometry()
                                  : QGuiApplication::primaryScreen()->availableGeometry());
  EXPECT_TRUE(window.isModal() || !table.opens.endsWith(u"modal"));
}

const WindowDefinition& DefinitionOf(const std::string& window) {
  static const std::map<std::string, const WindowDefinition*> kDefinitions = {
      {"Form1", &support::Form1Definition()}, {"Form2", &support::Form2Definition()},
      {"Form3", &support::Form3Definition()}, {"Form4", &support::Form4Definition()},
      {"Form5", &support::Form5Definition()}, {"Form6", &support::Form6Definition()}};
  return *kDefinitions.at(window);
}

std::string NameOf(const platform::ControlRow& row) {
  const std::string name = platform::ToUtf8(row.name);
  return row.index == platform::kNoIndex ? name : name + "(" + std::to_string(row.index) + ")";
}

// As drawn, before the tool writes anything into it.
class CatalogueAsDesigned : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(All, CatalogueAsDesigned,
                         testing::Values("Form1", "Form2", "Form3", "Form4", "Form5", "Form6"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(CatalogueAsDesigned, EveryControlIsAsInTheTableAndThereIsNoOther) {
  SmallWindow window(DefinitionOf(GetParam()));
  window.Load();
  ExpectWindow(window.OnScreen());
}

TEST_P(CatalogueAsDesigned, TimersImagesAndTheDefaultButtonAreThoseOfTheTable) {
  std::map<std::string, Line> lines;
  for (const Line& line : Tables().at(GetParam()).controls) lines[line.name] = line;
  const WindowDefinition& definition = DefinitionOf(GetParam());
  EXPECT_EQ(definition.rows.size(), lines.size());
  for (const platform::ControlRow& row : definition.rows) {
    const Line& line = lines.at(NameOf(row));
    SCOPED_TRACE(line.name);
    EXPECT_EQ(row.kind == platform::ControlKind::kTimer, line.kind == "timer");
    EXPECT_EQ(row.kind == platform::ControlKind::kImage, line.kind == "image");
    EXPECT_EQ(row.interval, line.notes.contains(u"every100") ? 100 : 0);
    EXPECT_EQ(row.enabled, !line.notes.contains(u"disabled"));
    EXPECT_EQ(row.defaultButton, line.notes.contains(u"default"));
    const bool pictured = line.kind == "picture" || line.notes.contains(u"picture");
    EXPECT_EQ(row.artwork != platform::Artwork::kNone, pictured);
  }
}

// All buttons without a caption show one and the same picture; three buttons have their own.
TEST_P(CatalogueAsDesigned, ButtonsShowTheirPictures) {
  const std::map<std::string, Artwork> own = {{"Command10", Artwork::kExportButton},
                                              {"Command3", Artwork::kNextButton},
                                              {"Command4", Artwork::kHelpButton}};
  for (const platform::ControlRow& row : DefinitionOf(GetParam()).rows) {
    if (row.kind != platform::ControlKind::kButton || row.artwork == Artwork::kNone) continue;
    const Artwork wanted = row.text.empty() ? Artwork::kChooserButton : own.at(NameOf(row));
    EXPECT_EQ(row.artwork, wanted) << NameOf(row);
  }
}

// The lines divide the project window into groups; each has the icon that stands for it.
TEST(CatalogueIcons, EachMarksItsGroup) {
  std::vector<platform::Twips> lines;
  std::map<platform::Twips, Artwork> icons;  // by their place
  for (const platform::ControlRow& row : DefinitionOf("Form1").rows) {
    if (row.kind == platform::ControlKind::kLine) lines.push_back(row.top);
    if (row.kind == platform::ControlKind::kPicture && !row.parent.empty()) {
      icons[row.top] = row.artwork;
    }
  }
  std::ranges::sort(lines);
  std::map<std::ptrdiff_t, Artwork> ofGroup;
  for (const auto& [top, artwork] : icons) {
    ofGroup[std::ranges::lower_bound(lines, top) - lines.begin()] = artwork;
  }
  EXPECT_EQ(ofGroup, (std::map<std::ptrdiff_t, Artwork>{{0, Artwork::kTextsIcon},
                                                        {1, Artwork::kCollectionIcon},
                                                        {2, Artwork::kMusicIcon},
                                                        {3, Artwork::kPatternIcon},
                                                        {4, Artwork::kExportIcon}}));
}

// The real windows, each opened on the editor's way to it.
class CatalogueWalk : public testing::Test {
 protected:
  QWidget& Window(const QString& name) { return *Robot::FindWindow(name); }
  // Opens a window by a click and looks at it while it is there.
  void Look(const QString& clickedWindow, const QString& button, const QString& opened,
            const std::function<void()>& look) {
    bool looked = false;
    desk.robot.WhenShown(opened, [&] {
      look();
      looked = true;
      Robot::CloseWindow(opened);
    });
    Robot::Click(clickedWindow, button);
    EXPECT_TRUE(looked);
  }

  GalleryDesk desk;
};

TEST_F(CatalogueWalk, TheProjectWindow) {
  desk.Start();
  ExpectHead(Window("Form1"));
  ExpectWindow(Window("Form1"), {"bMus(0)", "Olgoo(0)"});
  EXPECT_FALSE(Window("Form1").windowIcon().isNull());
  EXPECT_FALSE(desk.form1.Timer1.TimerEnabled());
}

TEST_F(CatalogueWalk, TheFolderChooser) {
  desk.Start();
  Look("Form1", "Command2", "Form2", [this] {
    ExpectHead(Window("Form2"), &Window("Form1"));
    ExpectWindow(Window("Form2"));
  });
}

TEST_F(CatalogueWalk, TheFileChooser) {
  desk.Start();
  Look("Form1", "Command5", "Form5", [this] {
    ExpectHead(Window("Form5"), &Window("Form1"));
    ExpectWindow(Window("Form5"));
  });
}

TEST_F(CatalogueWalk, TheHelp) {
  std::filesystem::remove(desk.HostPath("Resources/Help.rtf"));
  desk.Start();
  Look("Form1", "Command4", "Form4", [this] {
    ExpectHead(Window("Form4"));
    ExpectWindow(Window("Form4"));
  });
}

TEST_F(CatalogueWalk, TheWorkbench) {
  desk.AddText("One.txt", u"text");
  desk.Open();
  ExpectHead(Window("Form3"));
  ExpectWindow(Window("Form3"), {"BookLabel", "Chek"});
  EXPECT_FALSE(Window("Form3").windowIcon().isNull());
  EXPECT_TRUE(desk.form3.Timer1.TimerEnabled());
  EXPECT_FALSE(desk.form3.Timer2.TimerEnabled());
}

TEST_F(CatalogueWalk, TheParagraphWindow) {
  desk.OpenOn(u"Head\r\nText");
  FormatDesk::FileHeading("Head", "Text");
  bool looked = false;
  desk.InEntry(0, [&] {
    ExpectHead(Window("Form6"));
    ExpectWindow(Window("Form6"), {"bname", "matn"});
    EXPECT_TRUE(Window("Form6").isModal());
    looked = true;
  });
  EXPECT_TRUE(looked);
}

}  // namespace
