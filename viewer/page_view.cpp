#include "viewer/page_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <algorithm>

#include "book/marks.h"
#include "viewer/texts.h"

namespace viewer {
namespace {

constexpr int kColumnWidth = 780;
constexpr int kHighestPicture = 1200;
constexpr int kNarrowMargin = 26;
constexpr int kMostMarks = 500;
constexpr std::size_t kMostFound = 10'000;

}  // namespace

PageView::PageView(const book::Folder& book, const Look& look, Pictures& pictures, QWidget* parent)
    : QTextEdit(parent),
      book_(book),
      look_(look),
      pictures_(pictures),
      pagePictures_(pictures, look, *viewport(), {kColumnWidth, kHighestPicture}) {
  setObjectName(QStringLiteral("page"));
  setAccessibleName(texts::PageText());
  setReadOnly(true);
  setCursorWidth(0);
  setAcceptDrops(false);
  setFrameShape(QFrame::NoFrame);
  setTextInteractionFlags(Qt::TextSelectableByMouse);  // by keyboard it would show a caret
  setFocusPolicy(Qt::StrongFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setAutoFillBackground(false);
  style_.ink = look.ink;
  style_.decodeBox = {kColumnWidth, kHighestPicture};
  style_.picturesComeLater = true;
  pagePictures_.DrawThoseOf(*document());
  pagePictures_.onBroken = [this](const QString& picture) { ShowWordsFor(picture); };
  QObject::connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
                   [this] { AppendWhileNear(); });
}

void PageView::ShowPage(book::Page page, const QString& background, const book::Query& words) {
  background_ = background;
  isNotice_ = false;
  words_ = words;
  SetPage(std::move(page));
}

void PageView::ShowNotice(const QString& text) {
  background_.clear();
  isNotice_ = true;
  words_ = {};
  book::Page page;
  page.parts.push_back({book::PagePart::Kind::kParagraph, text});
  SetPage(std::move(page));
}

void PageView::SetPage(book::Page page) {
  page_ = std::move(page);
  found_.clear();
  currentFound_ = -1;
  sections_ = CutIntoSections(page_);
  ShowSection(0);
}

void PageView::ShowSection(int section) {
  section_ = std::clamp(section, 0, SectionCount() - 1);
  Restart();
  if (onSection) onSection();
}

void PageView::ShowEndOfSection(int section) {
  ShowSection(section);
  AppendUntil(SectionEnd());
  verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void PageView::ShowSectionOf(book::PagePlace place) {
  const auto after = std::upper_bound(sections_.begin(), sections_.end() - 1, place);
  ShowSection(static_cast<int>(after - sections_.begin()) - 1);
}

void PageView::GoToWords(book::PagePlace place) {
  ShowSectionOf(place);
  while (!IsLaidOut() && next_ <= place) Append();
  if (marks_.isEmpty()) return;
  const int start = marks_.front().cursor.selectionStart();
  ScrollTo(start, viewport()->height() / 3);
}

void PageView::SetStyle(const ReadingStyle& style) {
  const int top = PlaceAtTop();
  style_.pixels = style.pixels;
  style_.letters = style.letters;
  style_.lineHeight = style.lineHeight;
  style_.justified = style.justified;
  style_.ink = look_.ink;
  Restart();
  while (!IsLaidOut() && document()->characterCount() <= top) Append();
  ScrollTo(top);
}

book::PagePlace PageView::ReadersPlace() const {
  const int top = PlaceAtTop();
  return top == 0 ? SectionStart() : PlaceInPage(*document(), top);
}

void PageView::GoTo(book::PagePlace place) {
  ShowSectionOf(place);
  while (!IsLaidOut() && next_ <= place) Append();
  ScrollTo(place == SectionStart() ? 0 : PositionOf(*document(), place));
}

// The section from its top on.
void PageView::Restart() {
  appending_ = true;
  next_ = SectionStart();
  marks_.clear();
  setExtraSelections({});
  FitColumn();
  BeginPage(*document(), page_.title, style_);
  FitColumn();
  moveCursor(QTextCursor::Start);
  verticalScrollBar()->setValue(0);
  appending_ = false;
  Append();
  AppendWhileNear();
}

void PageView::Append() {
  const int before = document()->blockCount();
  next_ = AppendStep(*document(), book_, page_, next_, SectionEnd(), style_);
  MarkWords(before);
}

void PageView::AppendUntil(book::PagePlace place) {
  while (!IsLaidOut() && next_ < place) Append();
}

void PageView::AppendWhileNear() {
  if (appending_) return;
  appending_ = true;
  const QScrollBar& bar = *verticalScrollBar();
  while (!IsLaidOut() && bar.maximum() - bar.value() <= 2 * viewport()->height()) Append();
  appending_ = false;
}

// The position in the document of the first line that is seen; 0 at the top.
int PageView::PlaceAtTop() const {
  if (verticalScrollBar()->value() == 0) return 0;
  return cursorForPosition({viewport()->width() / 2, 2}).position();
}

void PageView::ScrollTo(int position, int below) {
  QTextCursor cursor(document());
  cursor.setPosition(std::min(position, document()->characterCount() - 1));
  QScrollBar* const bar = verticalScrollBar();
  bar->setValue(position == 0 ? 0 : bar->value() + cursorRect(cursor).top() - below);
}

void PageView::MarkWords(int fromBlock) {
  if (words_.IsEmpty()) return;
  const QTextCharFormat format = FoundWord(look_);
  for (QTextBlock block = document()->findBlockByNumber(fromBlock);
       block.isValid() && marks_.size() < kMostMarks; block = block.next()) {
    for (const book::Mark& mark : book::MarksIn(block.text(), words_)) {
      QTextCursor cursor(block);
      cursor.setPosition(block.position() + static_cast<int>(mark.start));
      cursor.setPosition(block.position() + static_cast<int>(mark.start + mark.length),
                         QTextCursor::KeepAnchor);
      marks_.push_back({cursor, format});
    }
  }
  setExtraSelections(marks_);
}

void PageView::Find(const book::Query& query) {
  const book::PagePlace here = ReadersPlace();
  words_ = query;
  found_.clear();
  for (std::size_t i = 0; i < page_.parts.size() && !query.IsEmpty(); ++i) {
    if (page_.parts[i].kind != book::PagePart::Kind::kParagraph) continue;
    const std::size_t room = kMostFound - found_.size();
    for (const book::Mark& mark : book::MarksIn(page_.parts[i].text, query, room)) {
      found_.push_back({{i, mark.start}, mark.length});
    }
  }
  marks_.clear();
  setExtraSelections({});
  MarkWords(0);
  const auto next =
      std::ranges::find_if(found_, [&](const Found& each) { return each.place >= here; });
  currentFound_ = found_.empty()         ? -1
                  : next == found_.end() ? 0
                                         : static_cast<int>(next - found_.begin());
  ShowFound();
}

void PageView::StepFound(int step) {
  if (found_.empty()) return;
  currentFound_ = (currentFound_ + step + FoundCount()) % FoundCount();
  ShowFound();
}

// Selected, so that it is told from the others.
void PageView::ShowFound() {
  QTextCursor cursor = textCursor();
  cursor.clearSelection();
  if (currentFound_ >= 0) {
    const Found& found = found_[static_cast<std::size_t>(currentFound_)];
    if (found.place < SectionStart() || found.place >= SectionEnd()) ShowSectionOf(found.place);
    while (!IsLaidOut() && next_ <= found.place) Append();
    const int start = PositionOf(*document(), found.place);
    ScrollTo(start, viewport()->height() / 3);
    cursor.setPosition(start);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor,
                        static_cast<int>(found.length));
  }
  const int scrolled = verticalScrollBar()->value();
  setTextCursor(cursor);
  verticalScrollBar()->setValue(scrolled);
}

// The reader stays at the same line.
void PageView::ShowWordsFor(const QString& picture) {
  QTextCursor top(document());
  top.setPosition(PlaceAtTop());
  ReplaceByWords(*document(), picture, style_);
  ScrollTo(top.position());
  AppendWhileNear();
}

// Long lines are hard to read: the column is as wide as a book's, in the middle.
void PageView::FitColumn() {
  const int margin = std::max(kNarrowMargin, (viewport()->width() - kColumnWidth) / 2);
  style_.pictureBox = {std::max(100, viewport()->width() - 2 * margin), kHighestPicture};
  QTextFrameFormat format = document()->rootFrame()->frameFormat();
  if (format.leftMargin() == margin && format.bottomMargin() == kNarrowMargin) return;
  format.setLeftMargin(margin);
  format.setRightMargin(margin);
  format.setTopMargin(12);
  format.setBottomMargin(kNarrowMargin);
  document()->rootFrame()->setFrameFormat(format);
}

void PageView::resizeEvent(QResizeEvent* event) {
  const int top = PlaceAtTop();
  const QSize before = style_.pictureBox;
  FitColumn();
  if (before != style_.pictureBox) FitPictures(*document(), style_);
  QTextEdit::resizeEvent(event);
  ScrollTo(top);
  AppendWhileNear();
}

void PageView::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(viewport());
    const QRect box = viewport()->rect();
    painter.fillRect(box, look_.paper);
    const QPixmap picture =
        pictures_.Get({{background_}, box.size(), Fit::kCovering, viewport()}).pixmap;
    if (!picture.isNull()) {
      DrawCovering(painter, box, picture);
      painter.fillRect(box, look_.paperVeil);
    }
  }
  QTextEdit::paintEvent(event);
}

// Beyond the end of a section the next one begins.
void PageView::ReadOn() {
  QScrollBar* const bar = verticalScrollBar();
  if (bar->value() < bar->maximum() || section_ + 1 >= SectionCount()) {
    bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
  } else {
    ShowSection(section_ + 1);
  }
}

void PageView::ReadBack() {
  QScrollBar* const bar = verticalScrollBar();
  if (bar->value() > 0 || section_ == 0) {
    bar->triggerAction(QAbstractSlider::SliderPageStepSub);
  } else {
    ShowEndOfSection(section_ - 1);
  }
}

void PageView::keyPressEvent(QKeyEvent* event) {
  const bool shift = (event->modifiers() & Qt::ShiftModifier) != 0;
  switch (event->key()) {
    case Qt::Key_Space:
      return shift ? ReadBack() : ReadOn();
    case Qt::Key_PageDown:
      return ReadOn();
    case Qt::Key_PageUp:
      return ReadBack();
    case Qt::Key_Home:
      if (section_ > 0) ShowSection(0);
      return verticalScrollBar()->setValue(0);
    case Qt::Key_End:
      return ShowEndOfSection(SectionCount() - 1);
    default:
      QTextEdit::keyPressEvent(event);
  }
}

// A page brings its pictures along; nothing else is ever loaded for it.
QVariant PageView::loadResource(int /*type*/, const QUrl& /*name*/) { return {}; }

}  // namespace viewer
