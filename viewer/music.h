// The book's two music tracks, in turn, behind the reading.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

#include "viewer/outside.h"

namespace viewer {

class Music {
 public:
  // The tracks that are there, and how to come by a player once one is needed.
  Music(const book::Folder& book, QStringList tracks,
        std::function<std::unique_ptr<Player>()> makePlayer);

  // It has gone off by itself: nothing can be played.
  std::function<void()> onGivenUp;

  bool HasTracks() const { return !tracks_.isEmpty(); }
  bool IsOn() const { return on_; }
  void SwitchOn();
  void SwitchOff();

  // A sound or a film of the book itself silences the music for its time: told once with true, once
  // with false by each of them.
  void Hush(bool hushed);

 private:
  bool IsHushed() const { return hushing_ > 0; }
  void PlayCurrent();
  void OnEnd(bool played);

  const book::Folder& book_;
  QStringList tracks_;
  std::function<std::unique_ptr<Player>()> makePlayer_;
  std::unique_ptr<Player> player_;
  qsizetype current_ = 0;
  qsizetype failures_ = 0;  // in a row
  bool on_ = false;
  int hushing_ = 0;  // how many of them sound
  bool begun_ = false;
};

}  // namespace viewer
