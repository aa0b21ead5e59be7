#include "viewer/film_window.h"

#include <QCloseEvent>
#include <QDebug>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <utility>

#include "viewer/look.h"
#include "viewer/media_player.h"
#include "viewer/texts.h"

namespace viewer {

FilmWindow::FilmWindow(std::unique_ptr<book::Medium> medium, const QString& title, QWidget* parent)
    : QWidget(parent, Qt::Window), medium_(std::move(medium)), player_(this) {
  setObjectName(QStringLiteral("film"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(title);
  resize(800, 500);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(&video_, 1);
  rows->addWidget(&message_);
  video_.setObjectName(QStringLiteral("filmPicture"));
  message_.setObjectName(QStringLiteral("filmMessage"));
  message_.setFont(ViewerFont(kCaptionPixels));
  message_.setAlignment(Qt::AlignCenter);
  message_.hide();
  player_.setAudioOutput(&output_);
  player_.setVideoOutput(&video_);
  QObject::connect(&player_, &QMediaPlayer::errorOccurred, this,
                   [this](QMediaPlayer::Error, const QString& what) {
                     qWarning() << "film can't be played:" << medium_->Path() << what;
                     message_.setText(texts::CantPlayFilm());
                     message_.show();
                   });
  player_.setSourceDevice(medium_.get(), NoAddress());
  player_.play();
}

void FilmWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space) return SwitchPause();
  if (event->key() == Qt::Key_F) return SwitchFullScreen();
  if (event->key() == Qt::Key_Escape) {
    close();
    return;
  }
  QWidget::keyPressEvent(event);
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
