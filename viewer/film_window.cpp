#include "viewer/film_window.h"

#include <QCloseEvent>
#include <QDebug>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <utility>

#include "viewer/look.h"
#include "viewer/media_player.h"
#include "viewer/missing_packages.h"
#include "viewer/texts.h"

namespace viewer {

FilmWindow::FilmWindow(std::unique_ptr<book::Medium> medium, const QString& title, QWidget* parent)
    : QWidget(parent, Qt::Window), medium_(std::move(medium)), bar_(this), player_(this) {
  setObjectName(QStringLiteral("film"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(title);
  setPalette(PaletteOf(LookOf(1, Light::kNight)));
  setFocusPolicy(Qt::StrongFocus);
  resize(800, 500);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(&video_, 1);
  rows->addWidget(&message_);
  rows->addWidget(&bar_);
  video_.setObjectName(QStringLiteral("filmPicture"));
  message_.setObjectName(QStringLiteral("filmMessage"));
  message_.setFont(ViewerFont(kCaptionPixels));
  message_.setAlignment(Qt::AlignCenter);
  message_.setTextFormat(Qt::PlainText);
  message_.hide();
  Connect();
  player_.setSourceDevice(medium_.get(), NoAddress());
  player_.play();
  setFocus();
}

void FilmWindow::Connect() {
  player_.setAudioOutput(&output_);
  player_.setVideoOutput(&video_);
  QObject::connect(&player_, &QMediaPlayer::errorOccurred, this,
                   [this](QMediaPlayer::Error, const QString& what) { TellWhyNot(what); });
  QObject::connect(&player_, &QMediaPlayer::durationChanged, this,
                   [this](qint64 length) { bar_.ShowLength(length); });
  QObject::connect(&player_, &QMediaPlayer::positionChanged, this,
                   [this](qint64 place) { bar_.ShowPlace(place); });
  QObject::connect(&player_, &QMediaPlayer::playbackStateChanged, this,
                   [this](QMediaPlayer::PlaybackState state) {
                     bar_.ShowPlaying(state == QMediaPlayer::PlayingState);
                   });
  bar_.onPause = [this] { SwitchPause(); };
  bar_.onSeek = [this](qint64 place) { player_.setPosition(place); };
  bar_.onVolume = [this](int percent) { output_.setVolume(static_cast<float>(percent) / 100); };
  bar_.onWholeScreen = [this] { SwitchFullScreen(); };
}

void FilmWindow::TellWhyNot(const QString& what) {
  qWarning() << "film can't be played:" << medium_->Path() << what;
  message_.setText(WithMissingPackages(texts::CantPlayFilm(), medium_->Kind()));
  message_.show();
}

void FilmWindow::keyPressEvent(QKeyEvent* event) {
  constexpr qint64 kStep = 5'000;
  constexpr int kLouder = 5;
  switch (event->key()) {
    case Qt::Key_Space:
      return SwitchPause();
    case Qt::Key_Right:
      return bar_.SeekBy(kStep);
    case Qt::Key_Left:
      return bar_.SeekBy(-kStep);
    case Qt::Key_Up:
      return bar_.SetVolumeBy(kLouder);
    case Qt::Key_Down:
      return bar_.SetVolumeBy(-kLouder);
    case Qt::Key_M:
      return bar_.SwitchSound();
    case Qt::Key_F:
      return SwitchFullScreen();
    case Qt::Key_Escape:
      close();
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

// Silent before anything else sounds again.
void FilmWindow::closeEvent(QCloseEvent* event) {
  player_.stop();
  const std::function<void()> closed = std::exchange(onClosed, nullptr);
  if (closed) closed();
  QWidget::closeEvent(event);
}

void FilmWindow::mouseDoubleClickEvent(QMouseEvent* /*event*/) { SwitchFullScreen(); }

void FilmWindow::SwitchPause() {
  player_.playbackState() == QMediaPlayer::PlayingState ? player_.pause() : player_.play();
}

void FilmWindow::SwitchFullScreen() { isFullScreen() ? showNormal() : showFullScreen(); }

}  // namespace viewer
