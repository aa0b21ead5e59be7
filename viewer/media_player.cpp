#include "viewer/media_player.h"

#include <QAudioDevice>
#include <QAudioOutput>
#include <QDebug>
#include <QMediaDevices>
#include <QMediaFormat>
#include <QMediaPlayer>
#include <QObject>
#include <utility>

#include "viewer/plug_ins.h"

namespace viewer {
namespace {

class MediaPlayer : public Player {
 public:
  MediaPlayer() {
    player_.setAudioOutput(&output_);
    QObject::connect(&player_, &QMediaPlayer::mediaStatusChanged, &player_,
                     [this](QMediaPlayer::MediaStatus status) {
                       if (status == QMediaPlayer::EndOfMedia) End(true);
                       if (status == QMediaPlayer::InvalidMedia) End(false);
                     });
    QObject::connect(&player_, &QMediaPlayer::errorOccurred, &player_,
                     [this](QMediaPlayer::Error, const QString& what) {
                       qWarning() << "can't be played:" << medium_->Path() << what;
                     });
  }

  void Play(std::unique_ptr<book::Medium> medium) override {
    // The one before is read from until the player has the new one, and of that some players say
    // within the call already that it can't be opened.
    const std::unique_ptr<book::Medium> before = std::exchange(medium_, std::move(medium));
    player_.setSourceDevice(medium_.get(), NoAddress());
    player_.play();
  }
  void Pause() override { player_.pause(); }
  void Resume() override { player_.play(); }
  void Stop() override { player_.stop(); }

 private:
  // Not from inside the player's own signal: what comes next may load another file.
  void End(bool played) {
    QMetaObject::invokeMethod(
        &player_,
        [this, played] {
          if (onEnd) onEnd(played);
        },
        Qt::QueuedConnection);
  }

  std::unique_ptr<book::Medium> medium_;
  QAudioOutput output_;
  QMediaPlayer player_;
};

// Fails at each sound.
class NoPlayer : public Player {
 public:
  void Play(std::unique_ptr<book::Medium> medium) override {
    qWarning() << "no sound on this machine for" << medium->Path();
    QMetaObject::invokeMethod(
        &context_,
        [this] {
          if (onEnd) onEnd(false);
        },
        Qt::QueuedConnection);
  }
  void Pause() override {}
  void Resume() override {}
  void Stop() override {}

 private:
  QObject context_;
};

}  // namespace

bool CanPlayFilms() {
  KeepPlugInsAtHome();
  return !QMediaFormat().supportedFileFormats(QMediaFormat::Decode).isEmpty();
}

bool CanPlaySounds() { return CanPlayFilms() && !QMediaDevices::defaultAudioOutput().isNull(); }

QUrl NoAddress() { return QUrl(QStringLiteral("medium:")); }

std::unique_ptr<Player> MakeMediaPlayer() {
  if (CanPlaySounds()) return std::make_unique<MediaPlayer>();
  return std::make_unique<NoPlayer>();
}

}  // namespace viewer
