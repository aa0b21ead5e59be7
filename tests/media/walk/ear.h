// Hears what a machine without a card plays: the monitor of the sound server's own sink.
#pragma once

#include <QByteArray>
#include <QProcess>

namespace media_tests {

class Ear {
 public:
  Ear();
  Ear(const Ear&) = delete;
  Ear& operator=(const Ear&) = delete;
  ~Ear();

  // The part of this tone, in hertz, in the last tenths of a second: 0 in silence, 1 for the tone
  // alone as loud as it can be.
  double Loudness(double tone);

 private:
  QProcess recorder_;
  QByteArray heard_;  // the last of it
};

// A sound of one tone, as a file (RIFF WAVE), so many seconds long.
QByteArray Tone(double hertz, int seconds);

}  // namespace media_tests
