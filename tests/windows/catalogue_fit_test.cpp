// Every caption of the six windows fits its control, and nothing lies over a text, in the font of
// the windows and in others, on screens of several densities.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QLabel>
#include <QProcess>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTextLayout>
#include <algorithm>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/caption.h"
#include "platform/qt/fonts.h"
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
  if (row.kind == ControlKind::kLabel) return metrics.ascent();
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

// Half a pixel of a letter's edge is no letter cut.
std::vector<std::string> CutCaptions(const SmallWindow& window) {
  std::vector<std::string> cut;
  for (const ControlRow& row : window.Definition().rows) {
    if (!HasCaption(row)) continue;
    const auto& widget = *window.OnScreen().findChild<QWidget*>(NameOf(row));
    const QRectF words = WordsOf(widget, row);
    const QRectF room = QRectF(CaptionRoom(widget, row)).adjusted(-0.5, -0.5, 0.5, 0.5);
    if (room.contains(words)) continue;
    std::ostringstream report;
    report << NameOf(row).toStdString() << " has words from " << words.left() << "," << words.top()
           << " to " << words.right() << "," << words.bottom() << " in " << room.left() << ","
           << room.top() << " to " << room.right() << "," << room.bottom();
    cut.push_back(report.str());
  }
  return cut;
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
                                     &support::Form5Definition(), &support::Form6Definition()),
                     testing::Values(kOwnFont, "DejaVu Sans", "Homa", "Nazli")),
    NameOfParameter);

TEST_P(CatalogueFit, EveryCaptionFitsItsControlAtItsDesignSize) {
  window.Show();
  EXPECT_THAT(CutCaptions(window), IsEmpty());
}

TEST_P(CatalogueFit, NothingLiesOverAnything) {
  window.Show();
  EXPECT_THAT(Overlaps(window), IsEmpty());
}

// The number of words a line is typed into a gap of the caption around it. In a font that the tool
// doesn't choose itself the gap may be narrower.
class CatalogueFitGap : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(All, CatalogueFitGap, testing::Values(kOwnFont, "DejaVu Sans"),
                         [](const auto& each) {
                           return std::string(each.index == 0 ? "Own" : "DejaVuSans");
                         });

TEST_P(CatalogueFitGap, TheGapInTheCaptionHoldsTheNumberOfWords) {
  if (!IsInstalled(GetParam())) GTEST_SKIP() << "This font is not installed: " << GetParam();
  const OtherFont font(GetParam());
  SmallWindow window(support::Form3Definition());
  window.Show();
  const auto& box = *window.OnScreen().findChild<QCheckBox*>(QStringLiteral("P22"));
  const auto& field = *window.OnScreen().findChild<QWidget*>(QStringLiteral("chnd"));
  const QString caption = box.text();
  const auto gap = caption.indexOf(QStringLiteral("   "));
  ASSERT_GT(gap, 0);
  auto end = gap;
  while (caption[end] == u' ') ++end;
  QTextLayout layout(caption, box.font());
  QTextOption rightToLeft;
  rightToLeft.setTextDirection(Qt::RightToLeft);
  layout.setTextOption(rightToLeft);
  layout.beginLayout();
  QTextLine line = layout.createLine();
  line.setLineWidth(100000);
  layout.endLayout();
  const double start = line.cursorToX(0);
  const auto row = std::ranges::find(window.Definition().rows, u"P22", &ControlRow::name);
  const double right = box.mapTo(&window.OnScreen(), CaptionRoom(box, *row).topRight()).x() + 1;
  const double gapRight = right - (start - line.cursorToX(static_cast<int>(gap)));
  const double gapLeft = right - (start - line.cursorToX(static_cast<int>(end)));
  const QPoint corner = field.mapTo(&window.OnScreen(), QPoint());
  EXPECT_LE(gapLeft, corner.x());
  EXPECT_GE(gapRight, corner.x() + field.width());
}

// A screen's density is fixed when the program starts, so another one needs another process, which
// runs the tests above.
class CatalogueFitScaled : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Screens, CatalogueFitScaled, testing::Values("1", "1.5", "2"),
                         [](const auto& each) {
                           std::string name = each.param;
                           std::ranges::replace(name, '.', '_');
                           return "At" + name;
                         });

TEST(CatalogueFitScreen, IsAsDenseAsAsked) {
  const QByteArray asked = qgetenv("QT_SCALE_FACTOR");
  EXPECT_EQ(qApp->devicePixelRatio(), asked.isEmpty() ? 1.0 : asked.toDouble());
}

TEST(CatalogueFitFont, OnlyAWideOneIsNarrowedAndOnlyATallOneMadeSmaller) {
  const QFont own = platform::WindowFontOf(QStringLiteral("DejaVu Sans Condensed"));
  EXPECT_EQ(own.stretch(), QFont::AnyStretch);
  EXPECT_EQ(own.pixelSize(), 11);
  if (!IsInstalled("DejaVu Sans")) GTEST_SKIP() << "This font is not installed: DejaVu Sans";
  const QFont wide = platform::WindowFontOf(QStringLiteral("DejaVu Sans"));
  EXPECT_LT(wide.stretch(), QFont::Unstretched);
  EXPECT_EQ(wide.pixelSize(), 11);
  if (!IsInstalled("Nazli")) GTEST_SKIP() << "This font is not installed: Nazli";
  const QFont tall = platform::WindowFontOf(QStringLiteral("Nazli"));
  EXPECT_EQ(tall.stretch(), QFont::AnyStretch);
  EXPECT_LT(tall.pixelSize(), 11);
}

TEST_P(CatalogueFitScaled, EverythingFits) {
  QProcess child;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::fromLatin1(GetParam()));
  child.setProcessEnvironment(environment);
  child.setProcessChannelMode(QProcess::MergedChannels);
  child.start(QCoreApplication::applicationFilePath(),
              {QStringLiteral("--gtest_filter=All/CatalogueFit.*:All/CatalogueFitGap.*:"
                              "CatalogueFitScreen.*"),
               QStringLiteral("--gtest_output="), QStringLiteral("--gtest_color=no")});
  ASSERT_TRUE(child.waitForFinished(120000));
  const std::string said = child.readAll().toStdString();
  EXPECT_EQ(child.exitCode(), 0) << said;
  EXPECT_THAT(said, testing::HasSubstr("[       OK ] CatalogueFitScreen.IsAsDenseAsAsked"));
}

}  // namespace
