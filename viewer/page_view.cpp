#include "viewer/page_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <algorithm>

#include "viewer/marks.h"

namespace viewer {
namespace {

constexpr int kColumnWidth = 780;
constexpr int kNarrowMargin = 26;
constexpr int kMostMarks = 500;

}  // namespace

PageView::PageView(const BookFolder& book, const Look& look, Pictures& pictures, QWidget* parent)
    : QTextEdit(parent), book_(book), look_(look), pictures_(pictures) {
  setObjectName(QStringLiteral("page"));
  setAccessibleName(QStringLiteral("متن"));
  setReadOnly(true);
  setCursorWidth(0);
  setAcceptDrops(false);
  setFrameShape(QFrame::NoFrame);
  setTextInteractionFlags(Qt::TextSelectableByMouse);  // by keyboard it would show a caret
  setFocusPolicy(Qt::StrongFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setAutoFillBackground(false);
  style_.ink = look.ink;
  QObject::connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
                   [this] { AppendWhileNear(); });
}

void PageView::ShowPage(Page page, const QString& background, int part, const QString& words) {
  page_ = std::move(page);
  background_ = background;
  words_ = WordsOf(words);
  const std::size_t wanted = part < 0 ? 0 : static_cast<std::size_t>(part);
  qsizetype before = 0;
  for (std::size_t i = 0; i < std::min(wanted, page_.parts.size()); ++i) {
    before += page_.parts[i].text.size();
  }
  // Far down in a huge page the text starts where it was found.
  Restart(before > 2 * kCharactersAtOnce ? PagePlace{wanted, 0} : PagePlace{});
  if (part >= 0 && before <= 2 * kCharactersAtOnce) {
    while (!IsWhole() && next_.part <= wanted) AppendStep();
  }
  if (!marks_.isEmpty() && part >= 0) {
    setTextCursor(marks_.front().cursor);
    ensureCursorVisible();
    QTextCursor start = textCursor();
    start.clearSelection();
    setTextCursor(start);
  }
}

void PageView::ShowNotice(const QString& text) {
  background_.clear();
  words_.clear();
  page_ = {};
  page_.parts.push_back({PagePart::Kind::kParagraph, text});
  Restart({});
}

void PageView::SetTextPixels(int pixels) {
  style_.pixels = std::clamp(pixels, kSmallestText, kLargestText);
  Restart(first_);
}

void PageView::Restart(PagePlace from) {
  appending_ = true;
  first_ = from;
  next_ = from;
  marks_.clear();
  setExtraSelections({});
  FitColumn();
  BeginPage(*document(), page_.title, style_);
  FitColumn();
  AppendStep();
  moveCursor(QTextCursor::Start);
  verticalScrollBar()->setValue(0);
  appending_ = false;
}

void PageView::AppendStep() {
  const int before = document()->blockCount();
  next_ = AppendPage(*document(), book_, page_, next_, style_);
  MarkWords(before);
}

void PageView::AppendWhileNear() {
  if (appending_ || IsWhole()) return;
  QScrollBar* const bar = verticalScrollBar();
  if (bar->maximum() - bar->value() > 2 * viewport()->height()) return;
  appending_ = true;
  AppendStep();
  appending_ = false;
}

void PageView::MarkWords(int fromBlock) {
  if (words_.isEmpty()) return;
  QTextCharFormat format;
  format.setBackground(QColor(0xff, 0xd9, 0x66));
  format.setForeground(Qt::black);
  for (QTextBlock block = document()->findBlockByNumber(fromBlock);
       block.isValid() && marks_.size() < kMostMarks; block = block.next()) {
    for (const Mark& mark : MarksIn(block.text(), words_)) {
      QTextCursor cursor(block);
      cursor.setPosition(block.position() + static_cast<int>(mark.start));
      cursor.setPosition(block.position() + static_cast<int>(mark.start + mark.length),
                         QTextCursor::KeepAnchor);
      marks_.push_back({cursor, format});
    }
  }
  setExtraSelections(marks_);
}

// Long lines are hard to read: the column is as wide as a book's, in the middle.
void PageView::FitColumn() {
  const int margin = std::max(kNarrowMargin, (viewport()->width() - kColumnWidth) / 2);
  style_.pictureWidth = std::max(100, viewport()->width() - 2 * margin);
  QTextFrameFormat format = document()->rootFrame()->frameFormat();
  if (format.leftMargin() == margin && format.bottomMargin() == kNarrowMargin) return;
  format.setLeftMargin(margin);
  format.setRightMargin(margin);
  format.setTopMargin(12);
  format.setBottomMargin(kNarrowMargin);
  document()->rootFrame()->setFrameFormat(format);
}

void PageView::resizeEvent(QResizeEvent* event) {
  FitColumn();
  QTextEdit::resizeEvent(event);
}

void PageView::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(viewport());
    const QRect box = viewport()->rect();
    painter.fillRect(box, look_.paper);
    const QPixmap picture = pictures_.Get(background_, box.size(), Fit::kCovering, viewport());
    if (!picture.isNull()) {
      DrawCovering(painter, box, picture);
      QColor veil = look_.paper;
      veil.setAlpha(look_.dark ? 228 : 200);
      painter.fillRect(box, veil);
    }
  }
  QTextEdit::paintEvent(event);
}

void PageView::keyPressEvent(QKeyEvent* event) {
  QScrollBar* const bar = verticalScrollBar();
  switch (event->key()) {
    case Qt::Key_Space:
      return bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    case Qt::Key_Home:
      if (first_.part > 0) Restart({});  // it was opened in its middle
      return bar->setValue(0);
    case Qt::Key_End:
      return bar->setValue(bar->maximum());
    default:
      QTextEdit::keyPressEvent(event);
  }
}

// A page brings its pictures along; nothing else is ever loaded for it.
QVariant PageView::loadResource(int /*type*/, const QUrl& /*name*/) { return {}; }

}  // namespace viewer
