#include "viewer/film_bar.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <algorithm>

#include "viewer/texts.h"

namespace viewer {
namespace {

constexpr int kFull = 100;
constexpr int kSecond = 1000;
constexpr int kVolumeWidth = 110;
constexpr int kLongest = 24 * 3600 * kSecond;  // a slider's numbers have an end

const Look& Room() { return LookOf(1, Light::kNight); }

}  // namespace

QString PersianTime(qint64 milliseconds) {
  const qint64 seconds = std::max<qint64>(0, milliseconds) / kSecond;
  const auto two = [](qint64 number) {
    return (number < 10 ? PersianNumber(0) : QString()) + PersianNumber(number);
  };
  const qint64 minutes = seconds / 60;
  if (minutes < 60) return PersianNumber(minutes) + u':' + two(seconds % 60);
  return PersianNumber(minutes / 60) + u':' + two(minutes % 60) + u':' + two(seconds % 60);
}

FilmBar::FilmBar(QWidget* parent)
    : QWidget(parent),
      pause_(QStringLiteral("filmPause"), texts::Pause(), Room(), FlatButton::Place::kBar, this),
      place_(Qt::Horizontal, this),
      time_(this),
      volume_(Qt::Horizontal, this),
      whole_(QStringLiteral("filmWholeScreen"), texts::WholeScreen(), Room(),
             FlatButton::Place::kBar, this) {
  setObjectName(QStringLiteral("filmBar"));
  setPalette(PaletteOf(Room()));
  setLayoutDirection(Qt::LeftToRight);  // as a film runs, whatever is spoken in it
  place_.setObjectName(QStringLiteral("filmPlace"));
  place_.setAccessibleName(texts::PlaceInFilm());
  place_.setRange(0, 0);
  place_.setSingleStep(5 * kSecond);
  place_.setPageStep(30 * kSecond);
  time_.setObjectName(QStringLiteral("filmTime"));
  time_.setFont(ViewerFont(kNotePixels));
  volume_.setObjectName(QStringLiteral("filmVolume"));
  volume_.setAccessibleName(texts::Volume());
  volume_.setRange(0, kFull);
  volume_.setValue(kFull);
  volume_.setSingleStep(5);
  volume_.setFixedWidth(kVolumeWidth);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(12, 6, 12, 6);
  row->setSpacing(10);
  row->addWidget(&pause_);
  row->addWidget(&place_, 1);
  row->addWidget(&time_);
  row->addWidget(&volume_);
  row->addWidget(&whole_);
  QObject::connect(&pause_, &QAbstractButton::clicked, this, [this] { onPause(); });
  QObject::connect(&whole_, &QAbstractButton::clicked, this, [this] { onWholeScreen(); });
  QObject::connect(&place_, &QSlider::valueChanged, this, [this](int place) {
    Tell();
    onSeek(place);
  });
  QObject::connect(&volume_, &QSlider::valueChanged, this, [this](int to) { onVolume(to); });
  Tell();
}

void FilmBar::ShowLength(qint64 length) {
  const QSignalBlocker quiet(place_);
  length_ = static_cast<int>(std::clamp<qint64>(length, 0, kLongest));
  place_.setRange(0, std::max(length_, place_.value()));
  Tell();
}

// A slider that the reader holds stays where it is.
void FilmBar::ShowPlace(qint64 place) {
  if (place_.isSliderDown()) return;
  const QSignalBlocker quiet(place_);
  const int shown = static_cast<int>(std::clamp<qint64>(place, 0, kLongest));
  if (shown > place_.maximum()) place_.setMaximum(shown);
  place_.setValue(shown);
  Tell();
}

void FilmBar::ShowPlaying(bool plays) { pause_.SetCaption(plays ? texts::Pause() : texts::GoOn()); }

void FilmBar::SeekBy(qint64 time) {
  place_.setValue(static_cast<int>(
      std::clamp<qint64>(place_.value() + time, place_.minimum(), place_.maximum())));
}

void FilmBar::SetVolumeBy(int percent) { volume_.setValue(volume_.value() + percent); }

void FilmBar::SwitchSound() {
  const int to = volume_.value() > 0 ? 0 : std::max(before_, volume_.singleStep());
  before_ = volume_.value();
  volume_.setValue(to);
}

void FilmBar::Tell() {
  const QString place = PersianTime(place_.value());
  time_.setText(length_ == 0 ? place : place + QStringLiteral(" / ") + PersianTime(length_));
}

}  // namespace viewer
