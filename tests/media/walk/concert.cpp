#include "tests/media/walk/concert.h"

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QScreen>
#include <QSlider>
#include <QTest>
#include <QWindow>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>

#include "tests/media/walk/ear.h"
#include "tests/viewer/window_bench.h"
#include "viewer/window.h"

namespace media_tests {
namespace {

using namespace Qt::StringLiterals;
using viewer_tests::Click;
using viewer_tests::Find;

constexpr double kMusic = 440;
constexpr double kSound = 1'000;
constexpr double kLoud = 0.1;
constexpr double kSilent = 0.01;
constexpr int kPatience = 20'000;
constexpr int kSeconds = 60;

void Say(const char* what, bool holds) {
  std::printf("%s: %s\n", what, holds ? "yes" : "no");
  std::fflush(stdout);
}

class Concert {
 public:
  Concert() {
    viewer_tests::MakeBook(book_, {.music = true});
    book_.WriteBytes(u"Data/FlashIMG/Sound1.mp3"_s, Tone(kMusic, kSeconds));
    book_.WriteBytes(u"Data/TXT/TWO.mp3"_s, Tone(kSound, kSeconds));
    QFile film(u"" ZORVAND_SOURCE_DIR "/Resources/Negareh/Parvaz.flv"_s);
    if (film.open(QIODevice::ReadOnly)) book_.WriteBytes(u"Data/TXT/TWO.mp4"_s, film.readAll());
    window_ = std::make_unique<viewer::Window>(book_.Root());
    window_->show();
  }

  void Run() {
    Say("music is heard", HearsOnly(kMusic, kSound));
    Click(*window_, u"music"_s);
    Say("music stops", IsSilent());
    Click(*window_, u"music"_s);
    Say("music goes on", HearsOnly(kMusic, kSound));
    Click(*window_, u"a1"_s);
    viewer_tests::ClickRow(viewer_tests::ListOf(*window_), 2);
    Click(*window_, u"sound"_s);
    Say("a sound hushes the music", HearsOnly(kSound, kMusic));
    Click(*window_, u"sound"_s);
    Say("music is back after the sound", HearsOnly(kMusic, kSound));
    RunFilm();
    Say("music is back after the film", HearsOnly(kMusic, kSound));
    window_.reset();
    Say("nothing sounds after the book", IsSilent());
  }

 private:
  void RunFilm() {
    Click(*window_, u"film"_s);
    QWidget* film = viewer_tests::TopLevel(u"film"_s);
    if (film == nullptr) return Say("the film is there", false);
    Say("a film hushes the music", IsSilent());
    const QImage first = Frame(*film);
    Say("its frames change",
        Await([&] { return !Frame(*film).isNull() && Frame(*film) != first; }));
    QSlider& place = *film->findChild<QSlider*>(u"filmPlace"_s);
    Say("its bar goes on", Await([&] { return place.value() > 0; }));
    const auto canGoOn = [film] {
      return Find(*film, u"filmPause"_s).accessibleName() == u"پخش"_s;
    };
    QTest::keyClick(film, Qt::Key_Space);
    Say("the space bar pauses it", Await(canGoOn));
    QTest::keyClick(film, Qt::Key_Space);
    Say("and lets it go on", Await([&] { return !canGoOn(); }));
    Click(*window_, u"film"_s);
    Say("one film at a time", Films() == 1);
    viewer_tests::TopLevel(u"film"_s)->close();
  }

  static int Films() {
    int films = 0;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      films += window->objectName() == u"film"_s && window->isVisible() ? 1 : 0;
    }
    return films;
  }

  // What is on the screen where the film runs.
  static QImage Frame(const QWidget& film) {
    for (QWindow* window : QGuiApplication::allWindows()) {
      if (!window->inherits("QVideoWindow") || !window->isVisible()) continue;
      return film.screen()->grabWindow(window->winId()).toImage();
    }
    return {};
  }

  static bool Await(const std::function<bool()>& holds) {
    return QTest::qWaitFor(holds, kPatience);
  }
  bool HearsOnly(double one, double other) {
    return Await([&] { return ear_.Loudness(one) > kLoud && ear_.Loudness(other) < kSilent; });
  }
  bool IsSilent() {
    return Await(
        [&] { return ear_.Loudness(kMusic) < kSilent && ear_.Loudness(kSound) < kSilent; });
  }

  Ear ear_;
  viewer_tests::BookMaker book_;
  std::unique_ptr<viewer::Window> window_;
};

}  // namespace

void HearABook() { Concert().Run(); }

}  // namespace media_tests
