// The bar below a film: pause, the place in it, its volume, the whole screen.
#pragma once

#include <QLabel>
#include <QSlider>
#include <QWidget>
#include <functional>

#include "viewer/flat_button.h"

namespace viewer {

// Times in milliseconds, the volume in percent.
class FilmBar : public QWidget {
 public:
  explicit FilmBar(QWidget* parent);

  std::function<void()> onPause;
  std::function<void(qint64 place)> onSeek;
  std::function<void(int percent)> onVolume;
  std::function<void()> onWholeScreen;

  // What the film does; nothing of it comes back as a wish. Some players know no length, or a wrong
  // one: the slider then goes as far as the film has gone.
  void ShowLength(qint64 length);
  void ShowPlace(qint64 place);
  void ShowPlaying(bool plays);

  // As if the reader had moved the slider: within the film, between silent and loud.
  void SeekBy(qint64 time);
  void SetVolumeBy(int percent);
  void SwitchSound();

 private:
  void Tell();

  FlatButton pause_;
  QSlider place_;
  QLabel time_;
  QSlider volume_;
  FlatButton whole_;
  int length_ = 0;  // 0 while it isn't known
  int before_ = 0;  // the volume before it was silenced
};

// As in 3:05, with hours 1:00:09, in the digits of Persian.
QString PersianTime(qint64 milliseconds);

}  // namespace viewer
