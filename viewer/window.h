// The viewer's window.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QStackedWidget>
#include <QWidget>
#include <functional>
#include <optional>

#include "book/folder.h"
#include "book/index.h"
#include "book/settings.h"
#include "viewer/collection_page.h"
#include "viewer/commands.h"
#include "viewer/flat_button.h"
#include "viewer/gallery_view.h"
#include "viewer/history.h"
#include "viewer/index_page.h"
#include "viewer/memory.h"
#include "viewer/music.h"
#include "viewer/outside.h"
#include "viewer/pictures.h"
#include "viewer/search_page.h"
#include "viewer/surroundings.h"

namespace viewer {

class Window : public QWidget {
 public:
  // With the book in this folder, which may be the export's or its Data; with a message if there
  // is none. Nothing is ever written into the folder.
  explicit Window(const QString& root, Outside outside = TheMachine());
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  ~Window() override;

  bool HasBook() const { return hasBook_; }

  // Without a book the reader can name a folder; this window stays as it is.
  std::function<void(const QString& folder)> onFolderChosen;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeBar();
  void MakeIndex();
  void MakeNotice();
  void ChooseFolder();
  std::vector<Command> Commands();
  std::vector<Command> PlaceCommands();
  std::vector<Command> TextCommands();
  void MakeMenu();
  void ShowMenu();
  void AfterFirstPaint();
  void OpenCollection(const book::Collection& collection);
  void OpenHit(const book::Hit& hit, const book::Wish& wish);
  void Search();
  void GoBack();
  void GoHome();
  void Show(QWidget* page);
  void SwitchMusic();
  // Where the reader is; nowhere on the index and among hits.
  std::optional<BookPlace> Here() const;
  bool GoTo(const BookPlace& place);
  void GoWhereTheReaderWas();
  void Remember();
  void AddBookmark();
  void ShowBookmarks();
  void SayWord(const QString& word);
  void SetStyle(const ReadingStyle& style);
  void Zoom(int by);
  void ChooseStyle();
  void SwitchFullScreen();
  void FocusSearch();
  void FindInPage();
  bool IsInCollection() const;
  void Leave();
  void Arrive();
  void Travel(int by);
  void Step(int by);
  void TellMusic();
  void TellMusicGivenUp();
  CollectionPage& TextPage();
  QWidget* GalleryPage();

  Outside outside_;
  std::optional<QString> found_;
  bool hasBook_;
  book::Folder book_;
  book::Settings settings_;
  book::Index index_;
  Memory memory_;
  Remembered remembered_;
  Look look_;  // the book's own, or in the light of the reader's choice
  Pictures pictures_;
  Music music_;
  bool musicIsAskedFor_ = false;  // not only begun with the book
  Surroundings surroundings_;
  QString notice_;  // in place of an index
  QString backdrop_;
  bool painted_ = false;
  book::Collection last_;
  bool fromSearch_ = false;
  History history_;
  bool isTravelling_ = false;
  bool wasShown_ = false;

  QStackedWidget* pages_ = nullptr;
  IndexPage* indexPage_ = nullptr;
  CollectionPage* collectionPage_ = nullptr;
  GalleryView* galleryPage_ = nullptr;
  SearchPage* searchPage_ = nullptr;
  FlatButton* back_ = nullptr;
  FlatButton* home_ = nullptr;
  FlatButton* musicSwitch_ = nullptr;
  FlatButton* find_ = nullptr;
  FlatButton* options_ = nullptr;
  QMenu menu_;
  QLabel* word_ = nullptr;      // says what the reader hasn't asked for
  FlatButton* open_ = nullptr;  // below the notice that there is no book
  QLineEdit* words_ = nullptr;
};

}  // namespace viewer
