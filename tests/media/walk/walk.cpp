// media_walk bare|walled FILE...        plays each by its path with the toolkit's player alone
// media_walk books FILE ADDRESS [NAME]  opens a book for each hostile medium, and lets it sound
// media_walk samples                    plays the samples out of a book, and says how each ended
// media_walk concert                    reads a book with its ears open, and says what it hears
#include <QApplication>
#include <QAudioOutput>
#include <QFile>
#include <QMediaPlayer>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/media/hostile_media.h"
#include "tests/media/media_bytes.h"
#include "tests/media/walk/concert.h"
#include "tests/viewer/window_bench.h"
#include "viewer/film_window.h"
#include "viewer/media_player.h"
#include "viewer/window.h"

namespace {

using namespace Qt::StringLiterals;
using viewer_tests::Click;
using viewer_tests::Find;

// A player that can't come to an end may be what a hostile medium wants.
constexpr int kPatience = 3'000;
constexpr int kLongPatience = 60'000;  // for what does come to an end

bool Await(const std::function<bool()>& holds, int patience = kPatience) {
  return QTest::qWaitFor(holds, patience);
}

void Say(const std::string& line) {
  std::printf("%s\n", line.c_str());
  std::fflush(stdout);
}

// Whoever watches the calls to the system finds this among them.
void Mark(const std::string& name) {
  QFile mark(QStringLiteral("/mark/") + QString::fromStdString(name));
  if (mark.open(QIODevice::ReadOnly)) Say("there is a mark");
}

void PlayByPath(const QString& path) {
  QMediaPlayer player;
  QAudioOutput output;
  player.setAudioOutput(&output);
  player.setSource(QUrl::fromLocalFile(path));
  player.play();
  Await([&] {
    return player.mediaStatus() == QMediaPlayer::InvalidMedia ||
           player.mediaStatus() == QMediaPlayer::EndOfMedia;
  });
}

// The machine's player, of which one knows whether a sound has come to its end.
class CountingPlayer : public viewer::Player {
 public:
  explicit CountingPlayer(int& ends) : inner_(viewer::MakeMediaPlayer()) {
    inner_->onEnd = [this, &ends](bool played) {
      ++ends;
      if (onEnd) onEnd(played);
    };
  }
  void Play(std::unique_ptr<book::Medium> medium) override { inner_->Play(std::move(medium)); }
  void Pause() override { inner_->Pause(); }
  void Resume() override { inner_->Resume(); }
  void Stop() override { inner_->Stop(); }

 private:
  std::unique_ptr<viewer::Player> inner_;
};

// Closes each box that comes up.
class Boxes : public QObject {
 public:
  Boxes() { qApp->installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* const box = qobject_cast<QMessageBox*>(watched);
    if (box && event->type() == QEvent::Show) {
      ++count;
      QTimer::singleShot(0, box, &QWidget::close);
    }
    return false;
  }
};

bool IsOver(const QWidget& film) {
  const QMediaPlayer::MediaStatus status = film.findChild<QMediaPlayer*>()->mediaStatus();
  return status == QMediaPlayer::InvalidMedia || status == QMediaPlayer::EndOfMedia;
}

void ReadBook(const viewer_tests::BookMaker& book) {
  int ends = 0;
  Boxes boxes;
  viewer::Outside outside = viewer::TheMachine();
  outside.memoryFolder.clear();  // each of the books is read for the first time
  outside.makePlayer = [&ends] { return std::make_unique<CountingPlayer>(ends); };
  viewer::Window window(book.Root(), outside);
  window.show();
  const QWidget& music = Find(window, u"music"_s);
  Await([&] { return ends > 0 || music.accessibleName() == u"پخش موسیقی"_s; });
  Click(window, u"a1"_s);
  viewer_tests::ClickRow(viewer_tests::ListOf(window), 2);
  const int endsOfMusic = ends;
  Click(window, u"sound"_s);
  Await([&] { return ends > endsOfMusic || boxes.count > 0; });
  Click(window, u"film"_s);
  QWidget* const film = viewer_tests::TopLevel(u"film"_s);
  if (!film) return;
  Await([&] { return IsOver(*film); });
  film->close();
}

void ReadHostileBooks(const media_tests::Lures& lures, const QString& only) {
  for (const auto& medium : media_tests::HostileMedia(lures)) {
    if (!only.isEmpty() && medium.name != only.toStdString()) continue;
    const viewer_tests::BookMaker book;
    viewer_tests::MakeBook(book, {.music = true});
    for (const char* path : {"Data/FlashIMG/Sound1.mp3", "Data/FlashIMG/Sound2.mp3",
                             "Data/TXT/TWO.mp3", "Data/TXT/TWO.mp4"}) {
      book.WriteBytes(QLatin1String(path), QByteArray::fromStdString(medium.bytes));
    }
    Mark(medium.name);
    ReadBook(book);
    Say("read " + medium.name);
  }
}

// A sample that plays; all of them play at once.
class Trial {
 public:
  virtual ~Trial() = default;
  virtual bool HasEnded() const = 0;
  virtual std::string End() const = 0;
};

class UnknownTrial : public Trial {
 public:
  bool HasEnded() const override { return true; }
  std::string End() const override { return "not known"; }
};

class SoundTrial : public Trial {
 public:
  explicit SoundTrial(std::unique_ptr<book::Medium> medium) : player_(viewer::MakeMediaPlayer()) {
    player_->onEnd = [this](bool played) { end_ = played ? "played" : "can't be played"; };
    player_->Play(std::move(medium));
  }
  bool HasEnded() const override { return !end_.empty(); }
  std::string End() const override { return end_.empty() ? "no end" : end_; }

 private:
  std::unique_ptr<viewer::Player> player_;
  std::string end_;
};

class FilmTrial : public Trial {
 public:
  explicit FilmTrial(std::unique_ptr<book::Medium> medium)
      : film_(std::move(medium), u"film"_s, nullptr) {
    QObject::connect(&Player(), &QMediaPlayer::positionChanged, &film_,
                     [this](qint64 at) { furthest_ = std::max(furthest_, at); });
    film_.setAttribute(Qt::WA_DeleteOnClose, false);
    film_.show();
  }
  bool HasEnded() const override { return IsOver(film_); }
  std::string End() const override {
    if (Player().error() != QMediaPlayer::NoError) return "can't be played";
    if (!HasEnded()) return "no end";
    return furthest_ > 0 ? "played" : "stood";
  }

 private:
  QMediaPlayer& Player() const { return *film_.findChild<QMediaPlayer*>(); }

  viewer::FilmWindow film_;
  qint64 furthest_ = 0;
};

std::unique_ptr<Trial> Begin(const viewer_tests::BookMaker& book, const std::string& name) {
  const QString path = QStringLiteral("Data/TXT/") + QString::fromStdString(name);
  book.WriteBytes(path, QByteArray::fromStdString(media_tests::Sample(name)));
  auto medium = book::Medium::Open(book.Book(), book.PathOf(path));
  if (!medium) return std::make_unique<UnknownTrial>();
  if (name.starts_with("film")) return std::make_unique<FilmTrial>(std::move(medium));
  return std::make_unique<SoundTrial>(std::move(medium));
}

void PlaySamples() {
  const viewer_tests::BookMaker book;
  std::vector<std::unique_ptr<Trial>> trials;
  for (const char* name : media_tests::kSamples) trials.push_back(Begin(book, name));
  Await([&] { return std::ranges::all_of(trials, [](const auto& t) { return t->HasEnded(); }); },
        kLongPatience);
  for (std::size_t i = 0; i < trials.size(); ++i) {
    Say(std::string(media_tests::kSamples[i]) + " " + trials[i]->End());
  }
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QStringList words = QApplication::arguments().mid(1);
  const QString what = words.value(0);
  if (what != u"bare"_s && !viewer::CanPlaySounds()) {
    Say("this machine has no sound");
    return 1;
  }
  if (what == u"books"_s) {
    ReadHostileBooks({words.value(1).toStdString(), words.value(2).toStdString()}, words.value(3));
  } else if (what == u"samples"_s) {
    PlaySamples();
  } else if (what == u"concert"_s) {
    media_tests::HearABook();
  } else {
    for (const QString& path : words.mid(1)) PlayByPath(path);
  }
  Say("done");
  return 0;
}
