#include "viewer/music.h"

#include <QDebug>
#include <utility>

namespace viewer {

Music::Music(const book::Folder& book, QStringList tracks,
             std::function<std::unique_ptr<Player>()> makePlayer)
    : book_(book), tracks_(std::move(tracks)), makePlayer_(std::move(makePlayer)) {}

void Music::SwitchOn() {
  if (on_ || tracks_.isEmpty()) return;
  on_ = true;
  failures_ = 0;
  if (IsHushed()) return;
  begun_ ? player_->Resume() : PlayCurrent();
}

void Music::SwitchOff() {
  if (on_ && player_ && !IsHushed()) player_->Pause();
  on_ = false;
}

void Music::Hush(bool hushed) {
  const bool before = IsHushed();
  hushing_ += hushed ? 1 : -1;
  if (!on_ || before == IsHushed()) return;
  if (IsHushed()) {
    if (player_) player_->Pause();
  } else {
    begun_ ? player_->Resume() : PlayCurrent();
  }
}

void Music::PlayCurrent() {
  auto track = book::Medium::Open(book_, tracks_[current_]);
  if (!track) return OnEnd(false);
  if (!player_) {
    player_ = makePlayer_();
    player_->onEnd = [this](bool played) { OnEnd(played); };
  }
  begun_ = true;
  player_->Play(std::move(track));
}

void Music::OnEnd(bool played) {
  failures_ = played ? 0 : failures_ + 1;
  current_ = (current_ + 1) % tracks_.size();
  begun_ = false;
  if (failures_ >= tracks_.size()) {
    qWarning() << "none of the music tracks can be played";
    on_ = false;
    if (onGivenUp) onGivenUp();
    return;
  }
  if (on_ && !IsHushed()) PlayCurrent();
}

}  // namespace viewer
