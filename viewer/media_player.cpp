#include "viewer/media_player.h"

#include <QAudioDevice>
#include <QAudioOutput>
#include <QDebug>
#include <QMediaDevices>
#include <QMediaFormat>
#include <QMediaPlayer>
#include <QObject>
#include <QUrl>

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
                       qWarning() << "can't be played:" << player_.source() << what;
                     });
  }

  void Play(const QString& path) override {
    player_.setSource(QUrl::fromLocalFile(path));
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

  QAudioOutput output_;
  QMediaPlayer player_;
};

// Fails at each sound.
class NoPlayer : public Player {
 public:
  void Play(const QString& path) override {
    qWarning() << "no sound on this machine for" << path;
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

bool CanPlayFilms() { return !QMediaFormat().supportedFileFormats(QMediaFormat::Decode).isEmpty(); }

bool CanPlaySounds() { return !QMediaDevices::defaultAudioOutput().isNull() && CanPlayFilms(); }

std::unique_ptr<Player> MakeMediaPlayer() {
  if (CanPlaySounds()) return std::make_unique<MediaPlayer>();
  return std::make_unique<NoPlayer>();
}

}  // namespace viewer
