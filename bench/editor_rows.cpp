#include "bench/editor_rows.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QTextEdit>
#include <QTimer>
#include <functional>
#include <stdexcept>

#include "bench/bare_edit.h"
#include "bench/desk.h"
#include "bench/texts.h"

namespace bench {
namespace {

using testing_support::Robot;

constexpr std::size_t kEntryCharacters = 200 * 1024;

// Waits for the first paint of an editor that isn't there yet, and then does something.
class FirstPaint : public QObject {
 public:
  FirstPaint(QString window, std::function<void()> then)
      : window_(std::move(window)), then_(std::move(then)) {
    qApp->installEventFilter(this);
    clock_.start();
  }

  double Seconds() const {
    if (nanoseconds_ == 0) throw std::runtime_error("nothing was painted");
    return static_cast<double>(nanoseconds_) / 1e9;
  }
  bool HasCome() const { return nanoseconds_ != 0; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (seen_ || event->type() != QEvent::Paint || !IsTextOf(watched)) return false;
    seen_ = true;
    // The paint itself is still to come.
    QTimer::singleShot(0, this, [this] {
      nanoseconds_ = clock_.nsecsElapsed();
      then_();
    });
    return false;
  }

 private:
  bool IsTextOf(const QObject* watched) const {
    const auto* edit = qobject_cast<const QTextEdit*>(watched->parent());
    return edit != nullptr && edit->viewport() == watched &&
           edit->window()->objectName() == window_;
  }

  QString window_;
  std::function<void()> then_;
  QElapsedTimer clock_;
  qint64 nanoseconds_ = 0;
  bool seen_ = false;
};

// The desk with one entry in its list.
class EntryDesk {
 public:
  explicit EntryDesk(WorkFolder& work) : desk_(work.NewFolder("program")) {
    desk_.OpenWorkbench(work.NewFolder("project"));
    workbench::Form3& form3 = desk_.form3;
    form3.matn.SetText(CleanText(kEntryCharacters));
    form3.Mright();
    form3.table.entryTitle.Set(0, u"باغ");
    form3.bindex.AddItem(u"باغ");
    form3.matn.SetSelStart(0);
    form3.matn.SetSelLength(form3.matn.TextLength());
    form3.table.entryText.Set(0, form3.matn.SelRTF());
    form3.entryCount = 1;
    form3.matn.SetText(u"");
    Robot::Settle();
  }

  double SecondsToOpen() {
    const FirstPaint paint("Form6", [this] {
      html_ = Robot::FindAs<QTextEdit>("Form6", "matn").toHtml();
      Robot::CloseWindow("Form6");
    });
    Robot::ClickLine("Form3", "bindex", 0);
    return paint.Seconds();
  }

  // Of what the window showed last.
  const QString& Html() const { return html_; }

 private:
  Desk desk_;
  QString html_;
};

double SecondsOfBareEdit(const QString& html) {
  const FirstPaint paint({}, [] {});
  BareEdit edit;
  edit.setHtml(html);
  while (!paint.HasCome()) QCoreApplication::processEvents();
  return paint.Seconds();
}

}  // namespace

Row MeasureOpeningEntry(const Plan& plan) {
  EntryDesk desk(plan.work);
  desk.SecondsToOpen();
  SecondsOfBareEdit(desk.Html());
  Measured measured;
  for (int round = 0; round < plan.rounds; ++round) {
    measured.tool.push_back(desk.SecondsToOpen());
    measured.beside.push_back(SecondsOfBareEdit(desk.Html()));
  }
  return TimedRow("opening the paragraph window on an entry of 200 KB, click to first paint",
                  "a bare QTextEdit that takes the same text as HTML", measured,
                  {Target::Kind::kAtMost, 1.3});
}

}  // namespace bench
