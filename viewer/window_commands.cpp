// What the window can be told to do by its menu and by keys, and what it remembers of the reader.
#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>

#include "viewer/bookmarks_dialog.h"
#include "viewer/reading_panel.h"
#include "viewer/texts.h"
#include "viewer/window.h"

namespace viewer {
namespace {

constexpr int kZoomStep = 2;

QString Key(const book::Collection& collection) {
  return collection.row + QString::number(collection.number);
}

}  // namespace

std::vector<Command> Window::Commands() {
  std::vector<Command> commands = PlaceCommands();
  for (Command& command : TextCommands()) commands.push_back(std::move(command));
  commands.push_back({QStringLiteral("fullScreen"), texts::FullScreen(), {Qt::Key_F11}, [this] {
                        SwitchFullScreen();
                      }});
  commands.push_back({QStringLiteral("allKeys"), texts::AllKeys(), {Qt::Key_F1}, [this] {
                        ShowKeys(Commands(), this);
                      }});
  return commands;
}

std::vector<Command> Window::PlaceCommands() {
  return {{QStringLiteral("historyBack"),
           texts::HistoryBack(),
           {Qt::ALT | Qt::Key_Left, Qt::Key_Back},
           [this] { Travel(-1); }},
          {QStringLiteral("historyForward"),
           texts::HistoryForward(),
           {Qt::ALT | Qt::Key_Right, Qt::Key_Forward},
           [this] { Travel(1); }},
          {QStringLiteral("up"), texts::Up(), {Qt::Key_Escape}, [this] { GoBack(); }, false},
          {QStringLiteral("toIndex"),
           texts::Home(),
           {Qt::ALT | Qt::Key_Home},
           [this] { GoHome(); },
           false},
          {QStringLiteral("nextEntry"),
           texts::NextEntry(),
           {Qt::CTRL | Qt::Key_PageDown},
           [this] { Step(1); },
           false},
          {QStringLiteral("previousEntry"),
           texts::PreviousEntry(),
           {Qt::CTRL | Qt::Key_PageUp},
           [this] { Step(-1); },
           false},
          {QStringLiteral("addBookmark"),
           texts::AddBookmark(),
           {Qt::CTRL | Qt::Key_D},
           [this] { AddBookmark(); }},
          {QStringLiteral("showBookmarks"), texts::Bookmarks(), {Qt::CTRL | Qt::Key_B}, [this] {
             ShowBookmarks();
           }}};
}

std::vector<Command> Window::TextCommands() {
  return {
      {QStringLiteral("findInPage"),
       texts::FindInPage(),
       {Qt::CTRL | Qt::Key_F},
       [this] { FindInPage(); }},
      {QStringLiteral("findInBook"),
       texts::FindInBook(),
       {Qt::CTRL | Qt::SHIFT | Qt::Key_F},
       [this] { FocusSearch(); },
       false},
      {QStringLiteral("printEntry"),
       texts::PrintEntry(),
       {Qt::CTRL | Qt::Key_P},
       [this] {
         if (IsInCollection()) collectionPage_->Print();
       }},
      {QStringLiteral("readingStyle"), texts::Reading(), {Qt::Key_F2}, [this] { ChooseStyle(); }},
      {QStringLiteral("zoomIn"),
       texts::Larger(),
       {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
       [this] { Zoom(kZoomStep); },
       false},
      {QStringLiteral("zoomOut"),
       texts::Smaller(),
       {Qt::CTRL | Qt::Key_Minus},
       [this] { Zoom(-kZoomStep); },
       false},
      {QStringLiteral("usualSize"),
       texts::UsualSize(),
       {Qt::CTRL | Qt::Key_0},
       [this] { Zoom(ReadingStyle::kUsual - remembered_.style.pixels); },
       false}};
}

void Window::MakeMenu() {
  menu_.setObjectName(QStringLiteral("menu"));
  menu_.setLayoutDirection(Qt::RightToLeft);
  TakeCommands(Commands(), *this, menu_);
}

void Window::ShowMenu() {
  menu_.setPalette(PaletteOf(look_));
  menu_.setFont(ViewerFont(kCaptionPixels));
  menu_.popup(options_->mapToGlobal(QPoint(0, options_->height())));
}

bool Window::eventFilter(QObject* watched, QEvent* event) {
  const auto* const widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || widget->window() != this) return QWidget::eventFilter(watched, event);
  if (event->type() == QEvent::Wheel) {
    const auto* const wheel = static_cast<QWheelEvent*>(event);
    if (wheel->modifiers() != Qt::ControlModifier || wheel->angleDelta().y() == 0) return false;
    Zoom(wheel->angleDelta().y() > 0 ? kZoomStep : -kZoomStep);
    return true;
  }
  if (event->type() == QEvent::MouseButtonPress) {
    const Qt::MouseButton button = static_cast<QMouseEvent*>(event)->button();
    if (button != Qt::BackButton && button != Qt::ForwardButton) return false;
    Travel(button == Qt::BackButton ? -1 : 1);
    return true;
  }
  return false;
}

bool Window::IsInCollection() const {
  return collectionPage_ != nullptr && pages_->currentWidget() == collectionPage_;
}

void Window::Step(int by) {
  if (IsInCollection()) collectionPage_->Step(by);
}

void Window::FocusSearch() {
  words_->setFocus();
  words_->selectAll();
}

// Where there is no page, in the book.
void Window::FindInPage() {
  if (!IsInCollection() || !collectionPage_->FindInPage()) FocusSearch();
}

void Window::SwitchFullScreen() { isFullScreen() ? showNormal() : showFullScreen(); }

void Window::Zoom(int by) {
  ReadingStyle style = remembered_.style;
  style.pixels += by;
  SetStyle(style);
}

void Window::SetStyle(const ReadingStyle& style) {
  remembered_.style = Bounded(style);
  look_ = LookIn(remembered_.style.light, settings_.layout);
  ShowDigits(remembered_.style.digits);
  setPalette(PaletteOf(look_));
  if (collectionPage_) collectionPage_->SetStyle(remembered_.style);
  for (QWidget* widget : findChildren<QWidget*>()) widget->update();
  update();
}

void Window::ChooseStyle() {
  ReadingPanel panel(remembered_.style, this);
  panel.onChange = [this](const ReadingStyle& style) { SetStyle(style); };
  panel.exec();
}

std::optional<BookPlace> Window::Here() const {
  if (IsInCollection()) return collectionPage_->ReadersPlace();
  if (galleryPage_ != nullptr && pages_->currentWidget() == galleryPage_) {
    return BookPlace{Key(last_), {}, {}};
  }
  return std::nullopt;
}

bool Window::GoTo(const BookPlace& place) {
  const auto found = std::ranges::find(index_.collections, place.collection, Key);
  if (found == index_.collections.end()) return false;
  if (place.source.isEmpty() || book::HoldsGallery(book_, *found)) {
    OpenCollection(*found);
    return true;
  }
  Leave();
  last_ = *found;
  fromSearch_ = false;
  setWindowTitle(AsCaption(found->title));
  Show(&TextPage());
  TextPage().OpenPlace(*found, place);
  Arrive();
  return true;
}

void Window::GoWhereTheReaderWas() {
  if (!remembered_.last || !GoTo(*remembered_.last)) return;
  SayWord(texts::OpensWhereYouWere().arg(IsInCollection() ? collectionPage_->EntryTitle()
                                                          : AsCaption(last_.title)));
}

// The line of the page is known once the window has its size.
void Window::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!wasShown_ && remembered_.last && IsInCollection()) {
    collectionPage_->GoToPlace(remembered_.last->place);
  }
  wasShown_ = true;
}

void Window::Remember() {
  if (!hasBook_) return;
  remembered_.last = Here();
  memory_.Write(remembered_);
}

void Window::AddBookmark() {
  const std::optional<BookPlace> here = Here();
  if (!here || remembered_.bookmarks.size() >= Memory::kMostBookmarks) return;
  const QString title = IsInCollection() ? collectionPage_->EntryTitle() : AsCaption(last_.title);
  const QString name = AskBookmarkName(title, this);
  if (name.isEmpty()) return;
  remembered_.bookmarks.push_back({name, *here});
  Remember();
  SayWord(texts::BookmarkAdded().arg(AsCaption(name)));
}

void Window::ShowBookmarks() {
  BookmarksDialog dialog(remembered_.bookmarks, this);
  dialog.onDropped = [this](int number) {
    remembered_.bookmarks.erase(remembered_.bookmarks.begin() + number);
    Remember();
  };
  if (dialog.exec() != QDialog::Accepted) return;
  GoTo(remembered_.bookmarks[static_cast<std::size_t>(dialog.Chosen())].place);
}

void Window::SayWord(const QString& word) {
  word_->setText(word);
  word_->show();
}

// The place from which the reader goes is where he comes back to.
void Window::Leave() {
  if (!isTravelling_) history_.Update({Here(), pages_->currentWidget() == searchPage_});
}

void Window::Arrive() {
  if (!isTravelling_) history_.Add({Here(), pages_->currentWidget() == searchPage_});
}

void Window::Travel(int by) {
  Leave();
  const std::optional<Spot> spot = history_.Move(by);
  if (!spot) return;
  isTravelling_ = true;
  if (spot->isSearch && searchPage_ != nullptr) {
    Show(searchPage_);
    searchPage_->FocusHits();
  } else if (!spot->place || !GoTo(*spot->place)) {
    GoHome();
  }
  isTravelling_ = false;
}

}  // namespace viewer
