#include "bench/long_text_rows.h"

#include <QCoreApplication>
#include <QEvent>
#include <array>
#include <memory>

#include "bench/bare_edit.h"
#include "bench/paint_watch.h"
#include "platform/rtf/rtf.h"
#include "platform/windows/rich_text_box.h"
#include "tests/support/small_window.h"

namespace bench {
namespace {

using platform::Text;
using testing_support::Robot;

constexpr std::size_t kMegabyte = std::size_t{1024} * 1024;
constexpr Target kAsBare = {Target::Kind::kAtMost, 1.3};

// As large as the bare editor.
constexpr std::array kRows = std::to_array<platform::ControlRow>({
    {.name = u"matn",
     .kind = platform::ControlKind::kRichTextBox,
     .left = 0,
     .top = 0,
     .width = 12300,
     .height = 5895},
});
constexpr platform::WindowDefinition kWindow = {
    .name = u"Long", .title = u"", .width = 12300, .height = 5895, .rows = kRows};

struct Box {
  Box() {
    window.Load();
    window.Show();
    Robot::Settle();
  }
  static QTextEdit& Edit() { return Robot::FindAs<QTextEdit>("Long", "matn"); }

  testing_support::SmallWindow window{kWindow};
  platform::RichTextBox matn{window, u"matn"};
};

Text Letters(std::size_t count) {
  constexpr platform::TextView alphabet = u"دوستمنبرگكتابخانهسلام";
  Text letters;
  letters.reserve(count);
  for (std::size_t i = 0; i < count; ++i) letters += alphabet[(i * 7 + i / 13) % alphabet.size()];
  return letters;
}

QString ToolkitText(const Text& text) { return QString::fromStdU16String(text); }

using Act = std::function<void()>;

// Each round with an empty box first, which isn't timed.
struct Filling {
  Act tool;
  Act beside;
  Act toolTenfold;
};

Measured MeasureFilling(const Plan& plan, Box& box, BareEdit& bare, const Filling& filling) {
  PaintWatch toolWatch(Box::Edit());
  PaintWatch bareWatch(bare);
  const auto tool = [&](const Act& fill) {
    box.matn.SetText(u"");
    Robot::Settle();
    return toolWatch.SecondsToPaint(fill);
  };
  const auto beside = [&] {
    bare.setPlainText({});
    Robot::Settle();
    return bareWatch.SecondsToPaint(filling.beside);
  };
  tool(filling.tool);
  beside();
  Measured measured;
  for (int round = 0; round < plan.rounds; ++round) {
    measured.tool.push_back(tool(filling.tool));
    measured.beside.push_back(beside());
    measured.toolTenfold.push_back(tool(filling.toolTenfold));
  }
  return measured;
}

platform::rtf::Paragraph WordOf(int formats) {
  constexpr std::size_t kLetters = 5;
  const Text word = Letters(kLetters * static_cast<std::size_t>(formats));
  platform::rtf::Paragraph paragraph;
  for (int i = 0; i < formats; ++i) {
    const Text piece = word.substr(kLetters * static_cast<std::size_t>(i), kLetters);
    paragraph.runs.push_back({{.font = {}, .bold = i % 2 == 0}, piece});
  }
  return paragraph;
}

Text RtfOf(const platform::rtf::Paragraph& paragraph) {
  const std::string rtf = platform::rtf::Write({{paragraph}});
  return {rtf.begin(), rtf.end()};
}

QString HtmlOf(const platform::rtf::Paragraph& paragraph) {
  QString html = QStringLiteral("<p dir=\"rtl\" align=\"right\">");
  for (const platform::rtf::Run& run : paragraph.runs) {
    const QString text = ToolkitText(std::get<Text>(run.content));
    html += run.format.bold ? QStringLiteral("<b>") + text + QStringLiteral("</b>") : text;
  }
  return html + QStringLiteral("</p>");
}

constexpr std::size_t kParagraphs = 200'000;  // and ten times as many

Text ParagraphEnds(std::size_t count) {
  Text text;
  for (std::size_t i = 0; i < count; ++i) text += platform::kCrLf;
  return text;
}

double SecondsToClose(const Text& text) {
  Box box;
  box.matn.SetText(text);
  LayOut(Box::Edit());
  return SecondsOf([&] {
    box.window.Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  });
}

double SecondsToCloseBare(const QString& text) {
  auto bare = std::make_unique<BareEdit>();
  bare->setPlainText(text);
  LayOut(*bare);
  return SecondsOf([&] { bare.reset(); });
}

}  // namespace

Row MeasureEndlessWord(const Plan& plan) {
  Box box;
  BareEdit bare;
  bare.setWordWrapMode(QTextOption::WrapAnywhere);  // as it is, its time grows with the square
  const Text word = Letters(kMegabyte);
  const Text tenfold = Letters(10 * kMegabyte);
  const QString same = ToolkitText(word);
  return TimedRow("showing 1 MB of text without a blank",
                  "a bare QTextEdit that breaks it anywhere",
                  MeasureFilling(plan, box, bare,
                                 {.tool = [&] { box.matn.SetText(word); },
                                  .beside = [&] { bare.setPlainText(same); },
                                  .toolTenfold = [&] { box.matn.SetText(tenfold); }}),
                  kAsBare);
}

Row MeasureWordOfFormats(const Plan& plan) {
  constexpr int kFormats = 40'000;
  Box box;
  BareEdit bare;
  bare.setWordWrapMode(QTextOption::WrapAnywhere);
  const platform::rtf::Paragraph word = WordOf(kFormats);
  const Text rtf = RtfOf(word);
  const Text tenfold = RtfOf(WordOf(10 * kFormats));
  const QString html = HtmlOf(word);
  return TimedRow("showing one word in 40,000 formats",
                  "a bare QTextEdit that takes it as HTML and breaks it anywhere",
                  MeasureFilling(plan, box, bare,
                                 {.tool = [&] { box.matn.SetTextRTF(rtf); },
                                  .beside = [&] { bare.setHtml(html); },
                                  .toolTenfold = [&] { box.matn.SetTextRTF(tenfold); }}),
                  kAsBare);
}

Row MeasureOpeningEmptyParagraphs(const Plan& plan) {
  Box box;
  BareEdit bare;
  const Text text = ParagraphEnds(kParagraphs);
  const Text tenfold = ParagraphEnds(10 * kParagraphs);
  const QString same = ToolkitText(text);
  return TimedRow("showing 200,000 empty paragraphs", "a bare QTextEdit",
                  MeasureFilling(plan, box, bare,
                                 {.tool = [&] { box.matn.SetText(text); },
                                  .beside = [&] { bare.setPlainText(same); },
                                  .toolTenfold = [&] { box.matn.SetText(tenfold); }}),
                  kAsBare);
}

Row MeasureClosingEmptyParagraphs(const Plan& plan) {
  const Text text = ParagraphEnds(kParagraphs);
  const Text tenfold = ParagraphEnds(10 * kParagraphs);
  const QString same = ToolkitText(text);
  Measured measured;
  for (int round = 0; round < plan.rounds; ++round) {
    measured.tool.push_back(SecondsToClose(text));
    measured.beside.push_back(SecondsToCloseBare(same));
    measured.toolTenfold.push_back(SecondsToClose(tenfold));
  }
  return TimedRow("closing a window with 200,000 empty paragraphs", "a bare QTextEdit", measured,
                  kAsBare);
}

}  // namespace bench
