// Every caption of all windows fits its control, and nothing lies over a text, in the font of
// the windows and in others, on screens of several densities.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QLabel>
#include <QPainter>
#include <QProcess>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTemporaryDir>
#include <QTextLayout>
#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/qt/fonts.h"
#include "platform/text/caption.h"
#include "support/window_catalogue.h"
#include "tests/support/small_window.h"

namespace {

using platform::ControlKind;
using platform::ControlRow;
using platform::kNoIndex;
using platform::WindowDefinition;
using testing::IsEmpty;
using testing_support::SmallWindow;

constexpr const char* kOwnFont = "";  // the one that the windows choose

QString NameOf(const ControlRow& row) {
  const QString name = QString::fromStdU16String(platform::Text(row.name));
  return row.index == kNoIndex ? name : QStringLiteral("%1(%2)").arg(name).arg(row.index);
}

QString Shown(const ControlRow& row) {
  return QString::fromStdU16String(platform::ShownCaption(row.text));
}

bool IsTickable(const ControlRow& row) {
  return row.kind == ControlKind::kCheckBox || row.kind == ControlKind::kOption;
}

// The mark of a tick box or option and its caption stand in this part of it.
QStyleOptionButton OptionOf(const QWidget& widget, const ControlRow& row) {
  QStyleOptionButton option;
  option.initFrom(&widget);
  option.rect.adjust(0, 0, -row.markInset / 15, 0);
  return option;
}

QRect CaptionRoom(const QWidget& widget, const ControlRow& row) {
  if (row.kind == ControlKind::kLabel) return widget.contentsRect();
  const QStyleOptionButton option = OptionOf(widget, row);
  if (row.kind == ControlKind::kButton) {
    const QRect inside =
        widget.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &widget);
    return {inside.left(), 0, inside.width(), widget.height()};
  }
  const auto contents = row.kind == ControlKind::kOption ? QStyle::SE_RadioButtonContents
                                                         : QStyle::SE_CheckBoxContents;
  const QRect inside = widget.style()->subElementRect(contents, &option, &widget);
  return {inside.left(), 0, inside.width(), widget.height()};
}

bool HasCaption(const ControlRow& row) {
  return !row.text.empty() &&
         (row.kind == ControlKind::kLabel || row.kind == ControlKind::kButton || IsTickable(row));
}

// The ink of a line, from its left end and its baseline, in the pixels that controls are placed in.
QRectF InkOf(const QWidget& widget, const QString& words) {
  const QFontMetricsF metrics(widget.font(), &widget);
  const QRectF ink = metrics.tightBoundingRect(words);
  return {0, ink.top(), metrics.horizontalAdvance(words), ink.height()};
}

qreal BaselineOf(const QWidget& widget, const ControlRow& row) {
  const QFontMetrics metrics = widget.fontMetrics();
  if (row.kind == ControlKind::kLabel) {
    return std::min(11.0,
                    15 - InkOf(widget, Shown(row)).bottom());  // whatever the font's lines are
  }
  const bool underPicture = row.artwork != platform::Artwork::kNone;
  const int room = widget.height() - metrics.height();
  return (underPicture ? room - 4 : room / 2.0) + metrics.ascent();
}

// Where the words of a caption stand in their control.
QRectF WordsOf(const QWidget& widget, const ControlRow& row) {
  QRectF ink = InkOf(widget, Shown(row));
  const QRectF room = CaptionRoom(widget, row);
  if (IsTickable(row) || row.rightAligned) {
    ink.moveRight(room.right());
  } else if (row.kind == ControlKind::kLabel) {
    ink.moveLeft(room.left());
  } else {
    ink.moveLeft(room.center().x() - ink.width() / 2);
  }
  return ink.translated(0, BaselineOf(widget, row));
}

// How dark the words are that stand in one of the pictures and not in the other.
qint64 Darkness(const QImage& with, const QImage& without) {
  qint64 darkness = 0;
  for (int y = 0; y < with.height(); ++y) {
    for (int x = 0; x < with.width(); ++x) {
      darkness += std::abs(qGray(with.pixel(x, y)) - qGray(without.pixel(x, y)));
    }
  }
  return darkness;
}

// How dark the words are where they have all the room they want.
qint64 DarknessInTheOpen(const QWidget& widget, const QString& words) {
  QTextLayout layout(words, widget.font());
  QTextOption rightToLeft;
  rightToLeft.setTextDirection(Qt::RightToLeft);
  layout.setTextOption(rightToLeft);
  layout.beginLayout();
  layout.createLine().setLineWidth(900);
  layout.endLayout();
  const qreal density = widget.devicePixelRatioF();
  QImage without((QSizeF(1000, 100) * density).toSize(), QImage::Format_RGB32);
  without.setDevicePixelRatio(density);
  without.fill(widget.palette().color(QPalette::Window));
  QImage with = without;
  QPainter painter(&with);
  painter.setPen(widget.palette().color(QPalette::WindowText));
  layout.draw(&painter, QPointF(50, 40));
  painter.end();
  return Darkness(with, without);
}

// Writes a caption for as long as this lives.
class OtherCaption {
 public:
  OtherCaption(QWidget& widget, const QString& caption)
      : widget_(widget), before_(widget.property("text").toString()) {
    widget_.setProperty("text", caption);
  }
  OtherCaption(const OtherCaption&) = delete;
  OtherCaption& operator=(const OtherCaption&) = delete;
  ~OtherCaption() { widget_.setProperty("text", before_); }

 private:
  QWidget& widget_;
  QString before_;
};

// The captions of which less is seen than there is: cut at an edge of their control, or covered by
// another. A letter's edge between two pixels may be a little lighter.
std::vector<std::string> CutCaptionsIn(const SmallWindow& window, const QWidget& part) {
  std::vector<std::string> cut;
  for (const ControlRow& row : window.Definition().rows) {
    if (!HasCaption(row)) continue;
    auto& widget = *window.OnScreen().findChild<QWidget*>(NameOf(row));
    if (!widget.isVisible() || row.leftToRight || !part.isAncestorOf(&widget)) continue;
    const QRect place(widget.mapTo(&window.OnScreen(), QPoint()), widget.size());
    const QImage with = window.OnScreen().grab(place).toImage();
    const OtherCaption none(widget, QStringLiteral(" "));
    const QImage without = window.OnScreen().grab(place).toImage();
    const double seen = static_cast<double>(Darkness(with, without)) /
                        static_cast<double>(DarknessInTheOpen(widget, Shown(row)));
    if (seen >= 0.97) continue;
    cut.push_back(NameOf(row).toStdString() + " shows " + std::to_string(seen));
  }
  return cut;
}

// Too small to be read.
std::vector<std::string> TinyCaptions(const SmallWindow& window) {
  std::vector<std::string> tiny;
  for (const ControlRow& row : window.Definition().rows) {
    if (!HasCaption(row)) continue;
    const int pixels = window.OnScreen().findChild<QWidget*>(NameOf(row))->font().pixelSize();
    if (pixels < 9) tiny.push_back(NameOf(row).toStdString() + " has " + std::to_string(pixels));
  }
  return tiny;
}

// What of its place a control fills: the words of a label, mark and words of a tick box, of all
// else the whole.
QRectF Filled(const QWidget& widget, const ControlRow& row) {
  if (row.kind != ControlKind::kLabel && !IsTickable(row)) return widget.geometry();
  if (row.text.empty()) return {};
  const QRectF words = WordsOf(widget, row).translated(widget.pos());
  if (row.kind == ControlKind::kLabel) return words;
  const QRectF shown = QRectF(OptionOf(widget, row).rect).translated(widget.pos());
  return {QPointF(words.left(), shown.top()), shown.bottomRight()};
}

// The field for the count stands in a gap of its caption, and the working box behind the text.
bool LieOverEachOtherByDesign(const ControlRow& a, const ControlRow& b) {
  const std::set<platform::TextView> names = {a.name, b.name};
  return names == std::set<platform::TextView>{u"P22", u"chnd"} ||
         names == std::set<platform::TextView>{u"ConRT", u"matn"};
}

std::vector<std::string> Overlaps(const SmallWindow& window) {
  std::vector<std::pair<const ControlRow*, QRectF>> filled;
  for (const ControlRow& row : window.Definition().rows) {
    if (!platform::IsPlaced(row.kind) || row.kind == ControlKind::kFrame || row.hidden) continue;
    const auto& widget = *window.OnScreen().findChild<QWidget*>(NameOf(row));
    filled.emplace_back(&row, Filled(widget, row));
  }
  std::vector<std::string> overlaps;
  for (auto a = filled.begin(); a != filled.end(); ++a) {
    for (auto b = std::next(a); b != filled.end(); ++b) {
      const ControlRow& first = *a->first;
      const ControlRow& second = *b->first;
      if (first.parent != second.parent || first.parentIndex != second.parentIndex) continue;
      // Buttons that stand side by side share an edge.
      const QRectF common = a->second & b->second;
      if (common.width() <= 1 || common.height() <= 1) continue;
      if (LieOverEachOtherByDesign(first, second)) continue;
      overlaps.push_back((NameOf(first) + QStringLiteral(" and ") + NameOf(second)).toStdString());
    }
  }
  return overlaps;
}

// Another font for the windows that are opened while it lives.
class OtherFont {
 public:
  explicit OtherFont(const char* family) {
    const QString name = QString::fromLatin1(family);
    if (!name.isEmpty()) QApplication::setFont(platform::WindowFontOf(name));
  }
  OtherFont(const OtherFont&) = delete;
  OtherFont& operator=(const OtherFont&) = delete;
  ~OtherFont() { QApplication::setFont(before_); }

 private:
  QFont before_ = QApplication::font();
};

bool IsInstalled(const char* family) {
  return family == std::string(kOwnFont) || QFontDatabase::hasFamily(QString::fromLatin1(family));
}

using Parameter = std::tuple<const WindowDefinition*, const char*>;

class CatalogueFit : public testing::TestWithParam<Parameter> {
 protected:
  void SetUp() override {
    if (!IsInstalled(family)) GTEST_SKIP() << "This font is not installed: " << family;
  }
  const char* family = std::get<1>(GetParam());
  OtherFont font{family};
  SmallWindow window{*std::get<0>(GetParam())};
};

std::string NameOfParameter(const testing::TestParamInfo<Parameter>& info) {
  std::string font = std::get<1>(info.param);
  std::erase(font, ' ');
  return platform::ToUtf8(std::get<0>(info.param)->name) + (font.empty() ? "Own" : font);
}

INSTANTIATE_TEST_SUITE_P(
    All, CatalogueFit,
    testing::Combine(testing::Values(&support::Form1Definition(), &support::Form2Definition(),
                                     &support::Form3Definition(), &support::Form4Definition(),
                                     &support::Form5Definition(), &support::Form6Definition(),
                                     &support::RecoveryDefinition()),
                     testing::Values(kOwnFont, "DejaVu Sans", "Noto Sans Arabic", "FreeFarsi")),
    NameOfParameter);

TEST_P(CatalogueFit, EveryCaptionIsSeenWholeAtItsDesignSize) {
  window.Show();
  EXPECT_THAT(CutCaptionsIn(window, window.OnScreen()), IsEmpty());
  EXPECT_THAT(TinyCaptions(window), IsEmpty());
  auto* browser = window.OnScreen().findChild<QWidget*>(QStringLiteral("Frame4"));
  if (browser == nullptr || browser->isVisible()) return;
  browser->show();
  EXPECT_THAT(CutCaptionsIn(window, *browser), IsEmpty());
}

TEST_P(CatalogueFit, NothingLiesOverAnything) {
  window.Show();
  EXPECT_THAT(Overlaps(window), IsEmpty());
}

// What a host has, where it isn't this one: its fonts, and how dense its screen is. Both are fixed
// when the program starts, so another host needs another process, which runs the tests above.
struct Host {
  const char* name;
  std::vector<const char*> fonts;  // files; none for those that this one has
  const char* density;
};

void PrintTo(const Host& host, std::ostream* out) { *out << host.name; }

class CatalogueFitHost : public testing::TestWithParam<Host> {};

INSTANTIATE_TEST_SUITE_P(
    All, CatalogueFitHost,
    testing::Values(
        Host{"Plain", {}, "1"}, Host{"Denser", {}, "1.5"}, Host{"Dense", {}, "2"},
        Host{"DejaVuCore", {"DejaVuSans.ttf", "DejaVuSans-Bold.ttf"}, "1"},
        Host{"DejaVuCoreDense", {"DejaVuSans.ttf", "DejaVuSans-Bold.ttf"}, "2"},
        Host{"NotoSansArabic", {"NotoSansArabic-Regular.ttf", "NotoSans-Regular.ttf"}, "1"},
        Host{"NotoSansArabicDense", {"NotoSansArabic-Regular.ttf", "NotoSans-Regular.ttf"}, "2"},
        Host{"NotoNaskhArabic", {"NotoNaskhArabic-Regular.ttf", "NotoSans-Regular.ttf"}, "1"},
        Host{"NotoNaskhArabicDense", {"NotoNaskhArabic-Regular.ttf", "NotoSans-Regular.ttf"}, "2"},
        Host{"FreeFarsi", {"FreeFarsi.ttf"}, "1"}, Host{"FreeFarsiDense", {"FreeFarsi.ttf"}, "2"},
        Host{"Vazirmatn", {"Vazirmatn-Regular.ttf"}, "1"},
        Host{"VazirmatnDense", {"Vazirmatn-Regular.ttf"}, "2"}),
    [](const auto& each) { return std::string(each.param.name); });

// Where a font's file lies; empty where it isn't installed.
QString FontFile(const char* name) {
  QDirIterator files(QStringLiteral("/usr/share/fonts"), {QString::fromLatin1(name)}, QDir::Files,
                     QDirIterator::Subdirectories);
  return files.hasNext() ? files.next() : QString();
}

TEST(CatalogueFitScreen, IsAsDenseAsAsked) {
  const QByteArray asked = qgetenv("QT_SCALE_FACTOR");
  EXPECT_EQ(qApp->devicePixelRatio(), asked.isEmpty() ? 1.0 : asked.toDouble());
}

TEST(CatalogueFitFont, OnlyAWideOneIsNarrowed) {
  const QFont own = platform::WindowFontOf(QStringLiteral("DejaVu Sans Condensed"));
  EXPECT_EQ(own.stretch(), QFont::AnyStretch);
  EXPECT_EQ(own.pixelSize(), 11);
  if (!IsInstalled("DejaVu Sans")) GTEST_SKIP() << "This font is not installed: DejaVu Sans";
  const QFont wide = platform::WindowFontOf(QStringLiteral("DejaVu Sans"));
  EXPECT_LT(wide.stretch(), QFont::Unstretched);
  EXPECT_EQ(wide.pixelSize(), 11);
}

// Tall lines are no large letters.
TEST(CatalogueFitFont, ATallOneKeepsItsSize) {
  if (!IsInstalled("Noto Naskh Arabic")) GTEST_SKIP() << "It is not installed: Noto Naskh Arabic";
  EXPECT_EQ(platform::WindowFontOf(QStringLiteral("Noto Naskh Arabic")).pixelSize(), 11);
}

TEST_P(CatalogueFitHost, EverythingFits) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::fromLatin1(GetParam().density));
  const QTemporaryDir folder;
  for (const char* font : GetParam().fonts) {
    const QString file = FontFile(font);
    if (file.isEmpty()) GTEST_SKIP() << "This font is not installed: " << font;
    ASSERT_TRUE(QFile::copy(file, folder.filePath(QString::fromLatin1(font))));
  }
  if (!GetParam().fonts.empty()) {
    QFile settings(folder.filePath(QStringLiteral("fonts.conf")));
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("<fontconfig><dir>" + folder.path().toUtf8() + "</dir><cachedir>" +
                   folder.path().toUtf8() + "</cachedir></fontconfig>");
    environment.insert(QStringLiteral("FONTCONFIG_FILE"), settings.fileName());
  }
  QProcess child;
  child.setProcessEnvironment(environment);
  child.setProcessChannelMode(QProcess::MergedChannels);
  child.start(QCoreApplication::applicationFilePath(),
              {QStringLiteral("--gtest_filter=All/CatalogueFit.*Own:CatalogueFitScreen.*"),
               QStringLiteral("--gtest_output="), QStringLiteral("--gtest_color=no")});
  ASSERT_TRUE(child.waitForFinished(120000));
  const std::string said = child.readAll().toStdString();
  EXPECT_EQ(child.exitCode(), 0) << said;
  EXPECT_THAT(said, testing::HasSubstr("[       OK ] CatalogueFitScreen.IsAsDenseAsAsked"));
}

}  // namespace
