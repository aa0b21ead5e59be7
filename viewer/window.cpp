#include "viewer/window.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include "viewer/texts.h"

namespace viewer {
namespace {

constexpr int kBarHeight = 54;

QStringList TracksOf(const book::Folder& book) {
  QStringList tracks;
  for (const QString& name : {QStringLiteral("Sound1.mp3"), QStringLiteral("Sound2.mp3")}) {
    const QString path = book.Resolve(QStringLiteral("Data/FlashIMG/") + name);
    if (!path.isEmpty()) tracks.push_back(path);
  }
  return tracks;
}

}  // namespace

Window::Window(const QString& root, Outside outside)
    : outside_(std::move(outside)),
      found_(book::Folder::Find({root})),
      hasBook_(found_.has_value()),
      book_(found_.value_or(root)),
      settings_(hasBook_ ? book::ReadSettings(book_) : book::Settings()),
      index_(hasBook_ ? book::ReadIndex(book_) : book::Index()),
      memory_(hasBook_ ? outside_.memoryFolder : QString(), book_),
      remembered_(memory_.Read()),
      look_(LookIn(remembered_.style.light, settings_.layout)),
      pictures_(book_),
      music_(book_, hasBook_ && settings_.music ? TracksOf(book_) : QStringList(),
             outside_.makePlayer),
      surroundings_{book_,     settings_, look_,
                    pictures_, outside_,  [this](bool hushed) { music_.Hush(hushed); }} {
  setObjectName(QStringLiteral("viewer"));
  setWindowTitle(texts::Book());
  setLayoutDirection(Qt::RightToLeft);
  setFont(ViewerFont(kCaptionPixels));
  setPalette(PaletteOf(look_));
  setMinimumSize(720, 480);
  resize(1040, 720);
  pages_ = new QStackedWidget(this);
  pages_->setObjectName(QStringLiteral("pages"));
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, kBarHeight, 0, 0);
  rows->setSpacing(0);
  word_ = new QLabel(this);
  word_->setObjectName(QStringLiteral("word"));
  word_->setTextFormat(Qt::PlainText);
  word_->setMargin(8);
  word_->hide();
  rows->addWidget(word_);
  rows->addWidget(pages_);
  ShowDigits(remembered_.style.digits);
  MakeBar();
  MakeMenu();
  qApp->installEventFilter(this);
  music_.onGivenUp = [this] { TellMusicGivenUp(); };
  index_.collections.empty() ? MakeNotice() : MakeIndex();
  if (indexPage_) GoWhereTheReaderWas();
}

// The pages use what the window holds: they go first.
Window::~Window() {
  Remember();
  delete pages_;
}

void Window::MakeNotice() {
  notice_ = hasBook_ ? texts::NoCollections() : texts::NoBook();
  setAccessibleDescription(notice_);
  if (hasBook_ || !outside_.chooseFolder) return;
  open_ = new FlatButton(QStringLiteral("open"), texts::OpenBook(), look_, FlatButton::Place::kPage,
                         this);
  QObject::connect(open_, &QAbstractButton::clicked, this, [this] { ChooseFolder(); });
  open_->setFocus();
}

void Window::ChooseFolder() {
  const QString folder = outside_.chooseFolder(this);
  if (!folder.isEmpty() && onFolderChosen) onFolderChosen(folder);
}

void Window::MakeIndex() {
  indexPage_ = new IndexPage(book_, index_, look_, pictures_);
  indexPage_->onChosen = [this](const book::Collection& collection) { OpenCollection(collection); };
  pages_->addWidget(indexPage_);
  indexPage_->FocusCard(index_.collections.front());
}

void Window::MakeBar() {
  const auto button = [this](const char* name, const QString& caption) {
    return new FlatButton(QString::fromLatin1(name), caption, look_, FlatButton::Place::kBar, this);
  };
  home_ = button("home", texts::Home());
  back_ = button("back", texts::Back());
  musicSwitch_ = button("music", texts::Music());
  find_ = button("find", texts::Find());
  options_ = button("options", texts::Options());
  QObject::connect(options_, &QAbstractButton::clicked, this, [this] { ShowMenu(); });
  words_ = new QLineEdit(this);
  words_->setObjectName(QStringLiteral("words"));
  words_->setPlaceholderText(texts::FindInBook());
  words_->setAccessibleName(words_->placeholderText());
  words_->setMaxLength(200);
  words_->setTextMargins(6, 0, 6, 0);
  QObject::connect(home_, &QAbstractButton::clicked, this, [this] { GoHome(); });
  QObject::connect(back_, &QAbstractButton::clicked, this, [this] { GoBack(); });
  QObject::connect(musicSwitch_, &QAbstractButton::clicked, this, [this] { SwitchMusic(); });
  QObject::connect(find_, &QAbstractButton::clicked, this, [this] { Search(); });
  QObject::connect(words_, &QLineEdit::returnPressed, this, [this] { Search(); });
  for (QWidget* widget : {static_cast<QWidget*>(find_), static_cast<QWidget*>(words_),
                          static_cast<QWidget*>(options_)}) {
    widget->setVisible(hasBook_);
  }
  musicSwitch_->setVisible(music_.HasTracks());
  home_->hide();
  back_->hide();
}

// Pictures and music come once the reader sees the index.
void Window::AfterFirstPaint() {
  pictures_.Start();
  backdrop_ = book_.Resolve(QStringLiteral("Data/FlashIMG/Back.jpg"));
  if (indexPage_) indexPage_->ShowTheRest();
  if (music_.HasTracks() && remembered_.music) music_.SwitchOn();
  TellMusic();
  update();
}

void Window::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), look_.ground);
  const QRect box = rect().adjusted(0, kBarHeight, 0, 0);
  const QPixmap backdrop = pictures_.Get({{backdrop_}, box.size(), Fit::kCovering, this}).pixmap;
  if (!backdrop.isNull()) {
    DrawCovering(painter, box, backdrop);
    painter.fillRect(box, look_.veil);
  }
  painter.fillRect(QRect(0, 0, width(), kBarHeight), look_.bar);
  if (!notice_.isEmpty()) {
    painter.setPen(look_.ink);
    painter.setFont(ViewerFont(kHeadingPixels));
    DrawText(painter, box.adjusted(60, 40, -60, -40), notice_, 4,
             Qt::AlignHCenter | Qt::AlignVCenter);
  }
  if (painted_) return;
  painted_ = true;
  if (hasBook_) QTimer::singleShot(0, this, [this] { AfterFirstPaint(); });
}

void Window::resizeEvent(QResizeEvent* /*event*/) {
  if (open_ != nullptr) {
    open_->resize(open_->sizeHint());
    open_->move((width() - open_->width()) / 2, height() * 2 / 3);
  }
  const auto height = find_->sizeHint().height();
  const int top = (kBarHeight - height) / 2;
  int right = width() - 14;
  for (FlatButton* button : {home_, back_}) {
    const int wide = button->sizeHint().width();
    button->setGeometry(right - wide, top, wide, height);
    right -= wide + 8;
  }
  int left = 14;
  if (music_.HasTracks()) {
    // Wide enough for either caption.
    musicSwitch_->setGeometry(left, top, 150, height);
    left += 158;
  }
  for (FlatButton* button : {options_, find_}) {
    button->setGeometry(left, top, button->sizeHint().width(), height);
    left += button->width() + 8;
  }
  words_->setGeometry(left, top, std::min(320, right - left - 8), height);
}

CollectionPage& Window::TextPage() {
  if (!collectionPage_) {
    collectionPage_ = new CollectionPage(surroundings_, pages_);
    collectionPage_->onZoom = [this](int by) { Zoom(by); };
    collectionPage_->onLeave = [this] {
      word_->hide();
      Leave();
    };
    collectionPage_->onArrive = [this] { Arrive(); };
    collectionPage_->SetStyle(remembered_.style);
    pages_->addWidget(collectionPage_);
  }
  return *collectionPage_;
}

QWidget* Window::GalleryPage() {
  if (!galleryPage_) {
    galleryPage_ = new GalleryView(surroundings_, pages_);
    galleryPage_->setObjectName(QStringLiteral("galleryPage"));
    pages_->addWidget(galleryPage_);
  }
  return galleryPage_;
}

void Window::OpenCollection(const book::Collection& collection) {
  Leave();
  last_ = collection;
  fromSearch_ = false;
  setWindowTitle(AsCaption(collection.title));
  if (book::HoldsGallery(book_, collection)) {
    Show(GalleryPage());
    galleryPage_->ShowGallery(book::ReadGallery(book_, book::FileOf(collection)));
    galleryPage_->setFocus();
  } else {
    Show(&TextPage());
    TextPage().Open(collection);
  }
  Arrive();
}

void Window::OpenHit(const book::Hit& hit, const book::Wish& wish) {
  Leave();
  last_ = hit.collection;
  fromSearch_ = true;
  setWindowTitle(AsCaption(hit.collection.title));
  Show(&TextPage());
  TextPage().OpenAt(hit, wish);
  Arrive();
}

void Window::Search() {
  const QString words = words_->text().trimmed();
  if (words.isEmpty()) return words_->setFocus();
  if (!searchPage_) {
    searchPage_ = new SearchPage(book_.Root(), look_, pages_);
    searchPage_->onChosen = [this](const book::Hit& hit, const book::Wish& wish) {
      OpenHit(hit, wish);
    };
    pages_->addWidget(searchPage_);
  }
  Leave();
  Show(searchPage_);
  searchPage_->Search(words);
  searchPage_->FocusHits();
  Arrive();
}

void Window::Show(QWidget* page) {
  word_->hide();
  if (collectionPage_) collectionPage_->Silence();
  pages_->setCurrentWidget(page);
  const bool away = page != indexPage_;
  home_->setVisible(away);
  back_->setVisible(away);
}

void Window::GoBack() {
  QWidget* const current = pages_->currentWidget();
  if (!indexPage_ || current == indexPage_) return;
  Leave();
  if (current == collectionPage_ && fromSearch_) {
    fromSearch_ = false;
    Show(searchPage_);
    searchPage_->FocusHits();
    return Arrive();
  }
  if (current == collectionPage_ && collectionPage_->GoBack()) return Arrive();
  GoHome();
}

void Window::GoHome() {
  if (!indexPage_) return;
  Leave();
  if (searchPage_) searchPage_->Stop();
  fromSearch_ = false;
  setWindowTitle(texts::Book());
  Show(indexPage_);
  indexPage_->FocusCard(last_.number > 0 ? last_ : index_.collections.front());
  Arrive();
}

void Window::SwitchMusic() {
  musicIsAskedFor_ = !music_.IsOn();
  music_.IsOn() ? music_.SwitchOff() : music_.SwitchOn();
  remembered_.music = music_.IsOn();
  TellMusic();
}

// Music that begins by itself brings no box with it: the reader has asked for a book.
void Window::TellMusicGivenUp() {
  TellMusic();
  const QString word = texts::CantPlayMusic();
  musicSwitch_->setToolTip(word);
  musicSwitch_->setAccessibleDescription(word);
  if (musicIsAskedFor_) Tell(this, word);
}

void Window::TellMusic() {
  musicSwitch_->SetCaption(music_.IsOn() ? texts::SwitchMusicOff() : texts::SwitchMusicOn());
}

}  // namespace viewer
