// The bar below a page: next and previous, what belongs to the entry, size of the text, printing.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "book/contents.h"
#include "book/media.h"
#include "viewer/flat_button.h"
#include "viewer/surroundings.h"

namespace viewer {

class EntryBar : public QWidget {
 public:
  EntryBar(const Surroundings& surroundings, QWidget* parent);

  std::function<void(int step)> onStep;
  std::function<void(int pixels)> onZoom;
  std::function<void()> onPrint;

  // What sounds is silenced.
  void ShowEntry(const book::Node& node, bool hasPrevious, bool hasNext);
  // Where printing isn't offered at all it makes no difference.
  void AllowPrinting(bool allowed) { print_.setEnabled(allowed); }
  void Silence();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ShowWhatFits();
  void OpenAttachment();
  QString AttachmentName() const;
  bool IsWhatItIsCalled() const;
  [[nodiscard]] bool MayOpen();
  void OpenWithItsProgram();
  void StartProgram();
  void SwitchSound();
  void TellSound(const QString& why);
  void ShowFilm();
  [[nodiscard]] bool IsThere(const QString& path, const QString& missing, const QString& ending);

  const Surroundings& surroundings_;
  book::Node node_;
  book::Media media_;
  std::unique_ptr<Player> player_;
  bool sounds_ = false;
  media::MediaKind soundKind_{};
  FlatButton previous_;
  FlatButton next_;
  FlatButton attachment_;
  FlatButton sound_;
  FlatButton film_;
  FlatButton print_;
  FlatButton smaller_;
  FlatButton larger_;
};

}  // namespace viewer
