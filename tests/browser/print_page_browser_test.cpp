// The print pages of an export in a real browser: on the screen and on paper. Skipped where
// Chromium or pdftotext isn't installed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QUrl>
#include <string>
#include <vector>

#include "core/vocabulary.h"
#include "export/export_pass.h"
#include "platform/text/encoding.h"
#include "tests/support/desk.h"
#include "workbench/book_formats.h"

namespace {

using platform::Text;
using platform::TextView;
using testing::HasSubstr;
using testing::Not;
using testing_support::Robot;

const QString kBrowser = QStringLiteral("chromium");
const QString kPdfReader = QStringLiteral("pdftotext");
constexpr int kLongestWait = 90'000;  // milliseconds; a browser that hangs is an error

// What the browser made of a page, as lines "name=value" in the page it prints.
constexpr TextView kProbe =
    uR"(<script>
addEventListener("load", function () {
  var box = document.getElementById("matn");
  var shown = box ? Array.from(box.querySelectorAll("p")).filter(function (p) {
    return p.offsetHeight > 0; }) : [];
  var pictures = Array.from(document.images);
  var style = shown.length ? getComputedStyle(shown[0]) : {};
  var button = document.querySelector("button.print");
  var printed = 0;
  window.print = function () { printed++; };
  button.click();
  var facts = ["title=" + document.title, "direction=" + style.direction,
    "align=" + style.textAlign, "shown=" + shown.length,
    "first=" + (shown.length ? shown[0].textContent : ""),
    "pictures=" + pictures.map(function (i) { return i.naturalWidth + "x" + i.naturalHeight; }),
    "hidden=" + pictures.filter(function (i) { return !i.offsetHeight; }).length,
    "wide=" + (document.documentElement.scrollWidth > innerWidth), "printed=" + printed];
  document.documentElement.innerHTML = "<body></body>";
  document.body.textContent = "|" + facts.join("|") + "|";
});
</script>)";

class Launched : public platform::Launcher {
 public:
  void Open(TextView /*path*/, TextView /*folder*/) override {}
};

struct PictureInText {
  int number;
  TextView name;
};

class PrintPageInBrowser : public testing::Test {
 protected:
  void SetUp() override {
    for (const QString& program : {kBrowser, kPdfReader}) {
      if (QStandardPaths::findExecutable(program).isEmpty()) {
        GTEST_SKIP() << program.toStdString() << " is not installed";
      }
    }
    for (const char* place : {"Data/TXT", "Data/_xml", "Data/IMG", "Data/FlashIMG", "home"}) {
      desk.MakeFolders(place);
    }
    desk.Write("Resources/main.exe", "the viewer");
    desk.Write("Data/IMG/MyBook.jpg", desk.Read("Resources/MyBook.jpg"));
    desk.form1.Wire({.workbench = &desk.form3, .exporting = &pass});
  }

  // A page of the book as a build writes it; a paragraph " {k}" becomes the picture of that number.
  void AddPage(TextView title, TextView paragraphs, const std::vector<PictureInText>& pictures) {
    Text page =
        workbench::PageTitleLine(title, u"pgTitle") + workbench::SetMatn(paragraphs, u"pgMain");
    for (const auto& [number, name] : pictures) {
      const Text mark = u"<pgMain> {" + platform::FromNumber(number) + u"}</pgMain>";
      page = platform::Replace(page, mark, (u"<IMG src=\"Data/IMG/" + Text(name)) + u"\">");
    }
    page += workbench::AddEntr(pictures.empty() ? 7 : 50, u"pgMain");
    desk.Write("Data/TXT/PAGE.htm",
               std::string(platform::kUtf16Mark) + platform::EncodeUtf16(page));
  }

  void Export() {
    desk.Start();
    Robot::Click("Form1", "Pcheck");
    Robot::Click("Form1", "Command10");
    ASSERT_EQ(desk.robot.TakeBoxes().size(), 1U);
    ASSERT_TRUE(desk.Has(kPage)) << desk.Log();
  }

  std::string Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", QString::fromStdString(desk.HostPath("home")));
    process.setProcessEnvironment(environment);
    process.start(program, arguments, QIODevice::ReadOnly);
    const bool ended = process.waitForFinished(kLongestWait);
    EXPECT_TRUE(ended && process.exitCode() == 0)
        << program.toStdString() << ": " << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput().toStdString();
  }

  // With a profile of its own and nothing from the network.
  std::string Browse(const QStringList& wish, const std::string& below) {
    QStringList arguments{"--headless",
                          "--no-sandbox",
                          "--disable-gpu",
                          "--disable-quic",
                          "--disable-dev-shm-usage",
                          "--no-first-run",
                          "--disable-background-networking",
                          "--disable-component-update",
                          "--disable-sync",
                          "--user-data-dir=" + QString::fromStdString(desk.HostPath("profile"))};
    arguments << wish
              << QUrl::fromLocalFile(QString::fromStdString(desk.HostPath(below))).toString();
    return Run(kBrowser, arguments);
  }

  // What the browser shows of the page; the probe is added to a copy beside it.
  std::string Facts() {
    desk.Write(kProbed, desk.Read(kPage) + platform::EncodeUtf16(kProbe));
    return Browse({"--dump-dom"}, kProbed);
  }

  // The page as it stands where no script may run. The browser can't be asked for it without
  // scripts of its own, so it is the page's that are forbidden, in a copy beside it.
  std::string Unscripted() {
    const std::string head = platform::EncodeUtf16(u"<head>");
    const std::string forbids = platform::EncodeUtf16(
        u"<meta http-equiv=\"Content-Security-Policy\" content=\"script-src 'none'\">");
    std::string page = desk.Read(kPage);
    page.insert(page.find(head) + head.size(), forbids);
    desk.Write(kProbed, page);
    return Browse({"--dump-dom"}, kProbed);
  }

  // The texts of the printed sheets, one after the other.
  std::vector<std::string> Sheets() {
    const QString pdf = QString::fromStdString(desk.HostPath("page.pdf"));
    Browse({"--no-pdf-header-footer", "--print-to-pdf=" + pdf}, kPage);
    const std::string text = Run(kPdfReader, {pdf, "-"});
    std::vector<std::string> sheets;
    for (std::size_t start = 0, end = 0; (end = text.find('\f', start)) != std::string::npos;
         start = end + 1) {
      sheets.push_back(text.substr(start, end - start));
    }
    return sheets;
  }

  static inline const std::string kPage = "Export/Export 1/Data/TXT/PAGE.html";
  static inline const std::string kProbed = "Export/Export 1/Data/TXT/probed.html";

  testing_support::Desk desk;
  Launched launcher;
  exporting::ExportPass pass{desk.form1, launcher};
};

TEST_F(PrintPageInBrowser, ReadsFromRightToLeftUnderItsTitle) {
  AddPage(u"باغ دلگشا", u"باغ سبز است\r\nگل شكفت", {});
  Export();
  const std::string facts = Facts();
  EXPECT_THAT(facts, HasSubstr("|title=باغ دلگشا|direction=rtl|align=justify|"));
  EXPECT_THAT(facts, HasSubstr("|wide=false|"));
}

TEST_F(PrintPageInBrowser, NumbersAddressesAndHalfSpacesReadAsTheyShould) {
  AddPage(u"مي\u200Fشود 6.\u200F4",
          u"كتاب\u200Fها در 23.\u200F5 و ۱۲:\u200F۳۰ و http:\u200F//a1.\u200Fir رفت.\u200F پس", {});
  Export();
  const std::string facts = Facts();
  EXPECT_THAT(facts, HasSubstr("|title=می\u200Cشود 6.4|"));
  EXPECT_THAT(facts,
              HasSubstr("|first=کتاب\u200Cها در 23.5 و ۱۲:۳۰ و http://a1.ir رفت.\u200F پس|"));
}

TEST_F(PrintPageInBrowser, WithoutScriptsThePageIsAsItWasWritten) {
  AddPage(u"باغ", u"كتاب\u200Fها در 23.\u200F5", {});
  Export();
  EXPECT_THAT(Unscripted(), HasSubstr("كتاب\u200Fها در 23.\u200F5"));
}

TEST_F(PrintPageInBrowser, BlankParagraphsAtTheEndsTakeNoPlace) {
  AddPage(u"باغ", u"يكم\r\n\r\nسوم", {});
  Export();
  const std::string facts = Facts();
  EXPECT_THAT(facts, HasSubstr("|shown=2|first=یکم|"));
}

TEST_F(PrintPageInBrowser, FindsThePicturesBesideThePages) {
  AddPage(u"نگاره", u"پيش\r\n {0}\r\nپس", {{0, u"MyBook.jpg"}});
  Export();
  EXPECT_THAT(Facts(), HasSubstr("|shown=2|first=پیش|pictures=600x800|hidden=0|"));
}

TEST_F(PrintPageInBrowser, APictureThatIsNotThereLeavesNoBrokenFrame) {
  AddPage(u"نگاره", u"پيش\r\n {0}\r\n {1}", {{0, u"gone.jpg"}, {1, u"MyBook.jpg"}});
  Export();
  EXPECT_THAT(Facts(), HasSubstr("|pictures=0x0,600x800|hidden=1|"));
}

TEST_F(PrintPageInBrowser, TheButtonPrints) {
  AddPage(u"باغ", u"يكم", {});
  Export();
  EXPECT_THAT(Facts(), HasSubstr("|printed=1|"));
}

TEST_F(PrintPageInBrowser, OddTitlesLeaveTheButtonAndTheTextAtWork) {
  AddPage(u"گل \"سرخ\" & 'لاله' \\ <b>ياس</title><i></script></div>", u"يكم", {});
  Export();
  const std::string facts = Facts();
  EXPECT_THAT(facts, HasSubstr("|shown=1|first=یکم|"));
  EXPECT_THAT(facts, HasSubstr("|printed=1|"));
}

TEST_F(PrintPageInBrowser, AShortPageWithAPictureIsOneSheet) {
  AddPage(u"garden", u"roses 1403\r\n {0}\r\nlilies", {{0, u"MyBook.jpg"}});
  Export();
  const std::vector<std::string> sheets = Sheets();
  ASSERT_EQ(sheets.size(), 1U);
  for (const char* word : {"garden", "roses 1403", "lilies"}) {
    EXPECT_THAT(sheets.front(), HasSubstr(word));
  }
}

TEST_F(PrintPageInBrowser, TheButtonIsNotPrinted) {
  AddPage(u"باغ", u"گل", {});
  Export();
  const std::vector<std::string> sheets = Sheets();
  ASSERT_EQ(sheets.size(), 1U);
  EXPECT_THAT(sheets.front(), HasSubstr("باغ"));
  EXPECT_THAT(sheets.front(), Not(HasSubstr("چاپ")));
}

TEST_F(PrintPageInBrowser, EverySheetOfALongTextHoldsSomeOfIt) {
  Text text = u"first";
  for (int number = 1; number <= 90; ++number) {
    text += u"\r\nline " + platform::FromNumber(number);
  }
  AddPage(u"long", text, {});
  Export();
  const std::vector<std::string> sheets = Sheets();
  ASSERT_GT(sheets.size(), 1U);
  for (const std::string& sheet : sheets) EXPECT_THAT(sheet, HasSubstr("line "));
  EXPECT_THAT(sheets.back(), HasSubstr("line 90"));
}

}  // namespace
