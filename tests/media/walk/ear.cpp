#include "tests/media/walk/ear.h"

#include <QtEndian>
#include <cmath>
#include <complex>
#include <numbers>

#include "tests/media/media_bytes.h"

namespace media_tests {
namespace {

constexpr int kRate = 8'000;                    // of what is heard
constexpr qsizetype kListened = 2 * kRate / 4;  // bytes, a quarter of a second
constexpr int kLoudest = 32'767;

}  // namespace

Ear::Ear() {
  recorder_.start(
      QStringLiteral("parec"),
      {QStringLiteral("--raw"), QStringLiteral("--format=s16le"),
       QStringLiteral("--rate=%1").arg(kRate), QStringLiteral("--channels=1"),
       QStringLiteral("--latency-msec=50"), QStringLiteral("--device=@DEFAULT_MONITOR@")});
}

Ear::~Ear() {
  recorder_.kill();
  recorder_.waitForFinished();
}

// The Fourier transform at the one place.
double Ear::Loudness(double tone) {
  heard_ = (heard_ + recorder_.readAllStandardOutput()).right(kListened);
  if (heard_.size() < kListened) return 0;
  const auto count = static_cast<int>(heard_.size() / 2);
  std::complex<double> sum;
  for (int i = 0; i < count; ++i) {
    const double value = qFromLittleEndian<qint16>(heard_.constData() + 2 * i);
    sum += std::polar(value, 2 * std::numbers::pi * tone * i / kRate);
  }
  return 2 * std::abs(sum) / count / kLoudest;
}

QByteArray Tone(double hertz, int seconds) {
  constexpr int kFileRate = 16'000;
  std::string samples;
  for (int i = 0; i < kFileRate * seconds; ++i) {
    const double value = std::sin(2 * std::numbers::pi * hertz * i / kFileRate) * kLoudest / 2;
    samples += Little(static_cast<std::uint16_t>(static_cast<std::int16_t>(value)), 2);
  }
  const std::string format = Little(1, 2) + Little(1, 2) + Little(kFileRate, 4) +
                             Little(2 * kFileRate, 4) + Little(2, 2) + Little(16, 2);
  const std::string body = "WAVE" + Chunk("fmt ", format) + Chunk("data", samples);
  return QByteArray::fromStdString("RIFF" + Little(body.size(), 4) + body);
}

}  // namespace media_tests
