// Shows the text of one entry.
#pragma once

#include <QString>
#include <QTextEdit>
#include <functional>
#include <vector>

#include "book/folder.h"
#include "book/page.h"
#include "book/query.h"
#include "viewer/look.h"
#include "viewer/page_document.h"
#include "viewer/page_pictures.h"
#include "viewer/pictures.h"
#include "viewer/reading_style.h"

namespace viewer {

// A long page is shown a section at a time; of that, what lies below the window is laid out as the
// reader comes near to it.
class PageView : public QTextEdit {
 public:
  PageView(const book::Folder& book, const Look& look, Pictures& pictures, QWidget* parent);

  // From its beginning; the words are marked wherever they occur.
  void ShowPage(book::Page page, const QString& background, const book::Query& words);
  // To the first of the words from this place of the page on.
  void GoToWords(book::PagePlace place);
  // A notice in place of a page.
  void ShowNotice(const QString& text);
  const book::Page& Shown() const { return page_; }
  bool IsNotice() const { return isNotice_; }

  // Another section is shown, or another page.
  std::function<void()> onSection;
  int Section() const { return section_; }
  int SectionCount() const { return static_cast<int>(sections_.size()) - 1; }
  void ShowSection(int section);
  book::PagePlace SectionStart() const { return sections_[static_cast<std::size_t>(section_)]; }
  book::PagePlace SectionEnd() const { return sections_[static_cast<std::size_t>(section_) + 1]; }

  // Leaves the reader at the same line. The digits are the page's own.
  void SetStyle(const ReadingStyle& style);
  // Of the first line that is seen.
  book::PagePlace ReadersPlace() const;
  void GoTo(book::PagePlace place);

  // Marks the words wherever they occur, and goes to the first of them from the reader's place on.
  void Find(const book::Query& query);
  // To the next (1) or the one before (-1), around the end of the page.
  void StepFound(int step);
  int FoundCount() const { return static_cast<int>(found_.size()); }
  int FoundPlace() const { return currentFound_ + 1; }  // counted from 1

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  void SetPage(book::Page page);
  void Restart();
  void ShowSectionOf(book::PagePlace place);
  void ShowEndOfSection(int section);
  bool IsLaidOut() const { return next_ >= SectionEnd(); }
  void Append();
  void AppendUntil(book::PagePlace place);
  void AppendWhileNear();
  void MarkWords(int fromBlock);
  void ShowFound();
  void ShowWordsFor(const QString& picture);
  void FitColumn();
  int PlaceAtTop() const;
  void ScrollTo(int position, int below = 0);
  void ReadOn();
  void ReadBack();

  const book::Folder& book_;
  const Look& look_;
  Pictures& pictures_;
  PagePictures pagePictures_;
  book::Page page_;
  std::vector<book::PagePlace> sections_ = {{}, {}};  // their starts, and the end of the page
  int section_ = 0;
  book::PagePlace next_;  // what isn't laid out yet
  PageStyle style_;
  QString background_;
  bool isNotice_ = false;
  book::Query words_;
  QList<ExtraSelection> marks_;
  bool appending_ = false;
  struct Found {
    book::PagePlace place;
    qsizetype length = 0;
  };
  std::vector<Found> found_;
  int currentFound_ = -1;
};

}  // namespace viewer
