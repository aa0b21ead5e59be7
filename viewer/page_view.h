// Shows the text of one entry.
#pragma once

#include <QString>
#include <QTextEdit>

#include "viewer/book/folder.h"
#include "viewer/book/page.h"
#include "viewer/look.h"
#include "viewer/page_document.h"
#include "viewer/pictures.h"

namespace viewer {

// What lies below the window is laid out as the reader comes near to it.
class PageView : public QTextEdit {
 public:
  static constexpr int kSmallestText = 13;
  static constexpr int kLargestText = 44;

  PageView(const BookFolder& book, const Look& look, Pictures& pictures, QWidget* parent);

  // From this part on; the words are marked wherever they occur.
  void ShowPage(Page page, const QString& background, int part, const QString& words);
  // A notice in place of a page.
  void ShowNotice(const QString& text);
  const Page& Shown() const { return page_; }
  bool IsWhole() const { return next_.part >= page_.parts.size(); }

  int TextPixels() const { return style_.pixels; }
  void SetTextPixels(int pixels);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  void Restart(PagePlace from);
  void AppendStep();
  void AppendWhileNear();
  void MarkWords(int fromBlock);
  void FitColumn();

  const BookFolder& book_;
  const Look& look_;
  Pictures& pictures_;
  Page page_;
  PagePlace first_;
  PagePlace next_;
  PageStyle style_;
  QString background_;
  QStringList words_;
  QList<ExtraSelection> marks_;
  bool appending_ = false;
};

}  // namespace viewer
