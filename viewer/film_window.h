// The window in which the film of an entry runs.
#pragma once

#include <QAudioOutput>
#include <QLabel>
#include <QMediaPlayer>
#include <QVideoWidget>
#include <QWidget>
#include <functional>
#include <memory>

#include "book/medium.h"
#include "viewer/film_bar.h"

namespace viewer {

// Plays at once. The space bar pauses, the arrows go on and back and make it louder and softer, M
// silences it, F and a double click fill the screen, Esc ends.
class FilmWindow : public QWidget {
 public:
  FilmWindow(std::unique_ptr<book::Medium> medium, const QString& title, QWidget* parent);

  std::function<void()> onClosed;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void SwitchPause();
  void SwitchFullScreen();
  void Connect();
  void TellWhyNot(const QString& what);

  const std::unique_ptr<book::Medium> medium_;
  QVideoWidget video_;
  FilmBar bar_;
  QLabel message_;
  QAudioOutput output_;
  QMediaPlayer player_;
};

}  // namespace viewer
