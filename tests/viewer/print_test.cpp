// Pages on paper: what a printer is given, read back from a PDF.
#include <gtest/gtest.h>

#include <QFile>
#include <QTest>

#include "tests/viewer/paper.h"
#include "tests/viewer/window_bench.h"
#include "viewer/window.h"

using namespace Qt::StringLiterals;

namespace viewer_tests {
namespace {

constexpr double kMargin = 20 / 25.4 * 72;  // points
constexpr QSizeF kSheet(595, 842);          // A4, in points
constexpr double kNear = 3;
constexpr int kResolution = 50;

class Paper : public testing::Test {
 protected:
  void SetUp() override {
    if (!CanReadPaper()) GTEST_SKIP() << "poppler-utils isn't installed";
  }
  void Open(const QString& page) {
    MakeBook(maker_, {.print = true});
    maker_.Write(u"Data/TXT/ONE.htm"_s, page);
    Show();
  }
  void Show() {
    window_ = std::make_unique<viewer::Window>(maker_.Root(), MachineOf(asked_));
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    Click(*window_, u"a1"_s);
  }
  void Print() { Click(*window_, u"print"_s); }
  QString File() const { return asked_->printed.value(0); }
  std::vector<std::vector<PrintedWord>> Sheets() const { return SheetsOf(File()); }
  PrintedWord Word(const QString& text) const {
    for (const auto& sheet : Sheets()) {
      for (const PrintedWord& word : sheet) {
        if (word.text == text) return word;
      }
    }
    ADD_FAILURE() << "not printed: " << text.toStdString();
    return {};
  }
  bool IsPrinted(const QString& text) const {
    for (const auto& sheet : Sheets()) {
      for (const PrintedWord& word : sheet) {
        if (word.text.contains(text)) return true;
      }
    }
    return false;
  }

  BookMaker maker_;
  std::shared_ptr<Asked> asked_ = std::make_shared<Asked>();
  std::unique_ptr<viewer::Window> window_;
};

QString PageWithPicture() {
  return viewer_tests::PageText(u"title"_s, {u"before"_s}) +
         u"<IMG src=\"Data/IMG/Wide.jpg\">\r\n<pgMain>after</pgMain>\r\n"_s;
}

TEST_F(Paper, LettersAreOfAReadableSize) {
  Open(viewer_tests::PageText(u"title"_s, {u"alpha"_s, u"omega"_s}));
  Print();
  const QRectF alpha = Word(u"alpha"_s).box;
  EXPECT_GE(alpha.height(), 11);
  EXPECT_LE(alpha.height(), 15);  // with the room above and below the letters
  EXPECT_GT(Word(u"title"_s).box.height(), alpha.height());
  const double line = Word(u"omega"_s).box.top() - alpha.top();
  EXPECT_GT(line, 17);
  EXPECT_LT(line, 32);
}

TEST_F(Paper, ParagraphsStartAtTheRightWithinTheMargins) {
  const QString text =
      u"کتابی از باغ‌های مهران‌دژ که به کوه می‌رسد "_s
          .repeated(12);
  Open(viewer_tests::PageText(u"عنوان"_s, {text, u"end"_s}));
  Print();
  EXPECT_NEAR(Word(u"end"_s).box.right(), kSheet.width() - kMargin, kNear);
  const auto sheets = Sheets();
  ASSERT_EQ(sheets.size(), 1U);
  for (const PrintedWord& word : sheets.front()) {
    EXPECT_GT(word.box.left(), kMargin - kNear) << word.text.toStdString();
    EXPECT_LT(word.box.right(), kSheet.width() - kMargin + kNear) << word.text.toStdString();
  }
}

TEST_F(Paper, TheTitleStandsAboveTheText) {
  Open(viewer_tests::PageText(u"title"_s, {u"alpha"_s}));
  Print();
  const QRectF title = Word(u"title"_s).box;
  EXPECT_LT(title.bottom(), Word(u"alpha"_s).box.top());
  EXPECT_NEAR(title.center().x(), kSheet.width() / 2, kNear);
  EXPECT_LT(title.top(), kMargin + 40);
}

TEST_F(Paper, BlankParagraphsCostNoSheets) {
  Open(viewer_tests::PageText(u"title"_s, {u"alpha"_s}) +
       u"<pgMain>&nbsp;</pgMain>\r\n"_s.repeated(200));
  Print();
  EXPECT_EQ(Sheets().size(), 1U);
}

TEST_F(Paper, AWidePictureIsAsWideAsTheText) {
  MakePicture(maker_, u"Data/IMG/Wide.jpg"_s, {3000, 1000});
  Open(PageWithPicture());
  Print();
  const QRectF place = PlaceOf(PictureOfSheet(File(), 1, kResolution), kResolution, Qt::darkCyan);
  EXPECT_NEAR(place.left(), kMargin, kNear);
  EXPECT_NEAR(place.right(), kSheet.width() - kMargin, kNear);
  EXPECT_NEAR(place.width(), place.height() * 3, 3 * kNear);
  EXPECT_GT(place.top(), Word(u"before"_s).box.bottom());
  EXPECT_LT(place.bottom(), Word(u"after"_s).box.top() + kNear);
  EXPECT_LT(Word(u"after"_s).box.top() - place.bottom(), 40);
}

TEST_F(Paper, ATallPictureFitsOnASheet) {
  MakePicture(maker_, u"Data/IMG/Wide.jpg"_s, {900, 6000});
  Open(PageWithPicture());
  Print();
  const int sheets = static_cast<int>(Sheets().size());
  EXPECT_LE(sheets, 2);
  QRectF place;
  for (int sheet = 1; sheet <= sheets; ++sheet) {
    const QRectF here =
        PlaceOf(PictureOfSheet(File(), sheet, kResolution), kResolution, Qt::darkCyan);
    EXPECT_TRUE(here.isEmpty() || place.isEmpty()) << "cut in two";
    if (!here.isEmpty()) place = here;
  }
  EXPECT_GT(place.height(), kSheet.height() / 2);
  EXPECT_GT(place.top(), kMargin - kNear);
  EXPECT_LT(place.bottom(), kSheet.height() - kMargin + kNear);
  EXPECT_NEAR(place.height() * 900 / 6000, place.width(), kNear);
}

TEST_F(Paper, ASmallPictureIsNotBlownUp) {
  MakePicture(maker_, u"Data/IMG/Wide.jpg"_s, {96, 48});
  Open(PageWithPicture());
  Print();
  const QRectF place = PlaceOf(PictureOfSheet(File(), 1, kResolution), kResolution, Qt::darkCyan);
  EXPECT_NEAR(place.width(), 72, kNear);
  EXPECT_NEAR(place.center().x(), kSheet.width() / 2, kNear);
}

TEST_F(Paper, EverySheetHasItsNumberAndStaysWhite) {
  Open(viewer_tests::PageText(u"title"_s, QStringList(120, u"متن"_s)));
  Print();
  const auto sheets = Sheets();
  ASSERT_GE(sheets.size(), 3U);
  for (const auto& sheet : sheets) {
    ASSERT_FALSE(sheet.empty());
    EXPECT_NEAR(sheet.back().box.center().x(), kSheet.width() / 2, kNear);
    EXPECT_GT(sheet.back().box.top(), kSheet.height() - 100);
  }
  const QImage picture = PictureOfSheet(File(), 2, kResolution);
  EXPECT_EQ(picture.pixelColor(0, 0), QColor(Qt::white));
  EXPECT_EQ(picture.pixelColor(picture.width() / 4, picture.height() / 2), QColor(Qt::white));
}

TEST_F(Paper, OnlyTheSheetsThatAreWantedArePrinted) {
  QStringList paragraphs;
  for (int i = 1; i <= 150; ++i) paragraphs << u"w%1w"_s.arg(i);
  Open(viewer_tests::PageText(u"title"_s, paragraphs));
  asked_->chosenInDialog = [](QPrinter& printer) { printer.setFromTo(2, 3); };
  Print();
  EXPECT_EQ(Sheets().size(), 2U);
  EXPECT_FALSE(IsPrinted(u"w1w"_s));
  EXPECT_FALSE(IsPrinted(u"w150w"_s));
  EXPECT_TRUE(IsPrinted(u"w60w"_s));
}

TEST_F(Paper, ALongPageIsPrintedToItsEnd) {
  QStringList paragraphs;
  for (int i = 1; i <= 7'000; ++i) paragraphs << u"w%1w "_s.arg(i) + u"متن بلند "_s.repeated(3);
  Open(viewer_tests::PageText(u"title"_s, paragraphs));
  ASSERT_TRUE(IsSeen(*window_, u"sections"_s));
  Print();
  QSet<QString> words;
  for (const auto& sheet : Sheets()) {
    for (const PrintedWord& word : sheet) words += word.text;
  }
  int missing = 0;
  for (int i = 1; i <= 7'000; ++i) missing += words.contains(u"w%1w"_s.arg(i)) ? 0 : 1;
  EXPECT_EQ(missing, 0);
}

TEST_F(Paper, ASmallSheetIsPrintedToo) {
  Open(viewer_tests::PageText(u"title"_s, {u"alpha"_s}));
  asked_->chosenInDialog = [](QPrinter& printer) {
    printer.setPageSize(QPageSize(QSizeF(40, 40), QPageSize::Millimeter));
  };
  Print();
  EXPECT_TRUE(IsPrinted(u"alpha"_s));
}

TEST_F(Paper, APrinterThatTakesNothingIsTold) {
  Open(viewer_tests::PageText(u"title"_s, {u"alpha"_s}));
  asked_->chosenInDialog = [](QPrinter& printer) {
    printer.setOutputFileName(u"/nowhere/at/all.pdf"_s);
  };
  const auto text = AnswerNextBox({});
  Print();
  EXPECT_TRUE(text->contains(u"چاپ نشد"_s));
}

// As the export makes them.
QString MadePage() {
  return u"<!DOCTYPE html>\n<html dir=\"rtl\"><head><style>body { background: #efe9dc; }</style>\n"
         "<script>var a = '<p>script</p>';</script><title>heading</title></head><body>\n"
         "<div class=\"sheet\"><BUTTON type=\"button\" class=\"print\">press</BUTTON>\n"
         "<h1>heading</h1><div id=\"matn\">\n<p align=\"right\">&nbsp;</p>\n"
         "<p align=\"right\">rescued</p>\n<IMG src=\"../IMG/a#b?c%20d.jpg\">\n"
         "<p align=\"right\">last</p>\n<p align=\"right\">&nbsp;</p></div></div></body></html>"_s;
}

TEST_F(Paper, ThePageItselfIsPrintedAndNotThePageForTheBrowser) {
  MakeBook(maker_, {.print = true});
  maker_.Write(u"Data/TXT/ONE.htm"_s, viewer_tests::PageText(u"title"_s, {u"itself"_s}));
  maker_.Write(u"Data/TXT/ONE.html"_s, MadePage());
  Show();
  Print();
  EXPECT_TRUE(IsPrinted(u"itself"_s));
  EXPECT_FALSE(IsPrinted(u"rescued"_s));
}

TEST_F(Paper, ThePageForTheBrowserStandsInForALostPage) {
  MakeBook(maker_, {.print = true});
  ASSERT_TRUE(QFile::remove(maker_.PathOf(u"Data/TXT/ONE.htm"_s)));
  maker_.Write(u"Data/TXT/ONE.html"_s, MadePage());
  MakePicture(maker_, u"Data/IMG/a#b?c%20d.jpg"_s, {400, 300});
  Show();
  EXPECT_EQ(viewer_tests::PageText(*window_), u"heading\nrescued\n\uFFFC\nlast"_s);
  Print();
  EXPECT_TRUE(IsPrinted(u"rescued"_s));
  EXPECT_FALSE(IsPrinted(u"press"_s));
  EXPECT_FALSE(IsPrinted(u"script"_s));
  EXPECT_EQ(Sheets().size(), 1U);
  const QImage sheet = PictureOfSheet(File(), 1, kResolution);
  EXPECT_EQ(sheet.pixelColor(0, 0), QColor(Qt::white));
  EXPECT_NEAR(PlaceOf(sheet, kResolution, Qt::darkCyan).width(), 300, kNear);
}

TEST_F(Paper, APictureWhoseNameIsWrittenAsAnAddressIsFound) {
  MakeBook(maker_, {.print = true});
  ASSERT_TRUE(QFile::remove(maker_.PathOf(u"Data/TXT/ONE.htm"_s)));
  maker_.Write(u"Data/TXT/ONE.html"_s, u"<p><img src=\"../IMG/a%20b.jpg\"></p>"_s);
  MakePicture(maker_, u"Data/IMG/a b.jpg"_s, {400, 300});
  Show();
  EXPECT_TRUE(viewer_tests::PageText(*window_).contains(QChar::ObjectReplacementCharacter));
}

TEST_F(Paper, AButtonThatNeverEndsIsKept) {
  MakeBook(maker_, {.print = true});
  ASSERT_TRUE(QFile::remove(maker_.PathOf(u"Data/TXT/ONE.htm"_s)));
  maker_.Write(u"Data/TXT/ONE.html"_s, u"<p>one</p><button><p>two</p>"_s);
  Show();
  EXPECT_TRUE(viewer_tests::PageText(*window_).contains(u"two"_s));
}

TEST_F(Paper, ANoticeIsNotPrinted) {
  MakeBook(maker_, {.print = true});
  Show();
  EXPECT_TRUE(Find(*window_, u"print"_s).isEnabled());
  ClickRow(ListOf(*window_), 5);
  EXPECT_FALSE(Find(*window_, u"print"_s).isEnabled());
  ClickRow(ListOf(*window_), 0);
  EXPECT_TRUE(Find(*window_, u"print"_s).isEnabled());
}

}  // namespace
}  // namespace viewer_tests
