#include "viewer/entry_bar.h"

#include <QDebug>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPainter>

#include "book/known_files.h"
#include "book/medium.h"
#include "book/shown_name.h"
#include "viewer/missing_packages.h"
#include "viewer/texts.h"

namespace viewer {
namespace {

constexpr int kSideMargin = 12;
constexpr int kGap = 8;

// The contents don't tell the extension of a sound or a film.
const QString kAnyEnding = QStringLiteral(".*");

}  // namespace

EntryBar::EntryBar(const Surroundings& surroundings, QWidget* parent)
    : QWidget(parent),
      surroundings_(surroundings),
      previous_(QStringLiteral("previous"), texts::Previous(), surroundings.look,
                FlatButton::Place::kPage, this),
      next_(QStringLiteral("next"), texts::Next(), surroundings.look, FlatButton::Place::kPage,
            this),
      attachment_(QStringLiteral("attachment"), texts::Attachment(), surroundings.look,
                  FlatButton::Place::kPage, this),
      sound_(QStringLiteral("sound"), texts::Sound(), surroundings.look, FlatButton::Place::kPage,
             this),
      film_(QStringLiteral("film"), texts::Film(), surroundings.look, FlatButton::Place::kPage,
            this),
      print_(QStringLiteral("print"), texts::Print(), surroundings.look, FlatButton::Place::kPage,
             this),
      smaller_(QStringLiteral("smaller"), texts::Smaller(), surroundings.look,
               FlatButton::Place::kPage, this),
      larger_(QStringLiteral("larger"), texts::Larger(), surroundings.look,
              FlatButton::Place::kPage, this) {
  setObjectName(QStringLiteral("entryBar"));
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(kSideMargin, 7, kSideMargin, 7);
  row->setSpacing(kGap);
  row->addWidget(&previous_);
  row->addStretch(1);
  for (FlatButton* button : {&attachment_, &sound_, &film_, &print_, &smaller_, &larger_}) {
    row->addWidget(button);
  }
  row->addStretch(1);
  row->addWidget(&next_);
  print_.setVisible(surroundings.settings.print);
  QObject::connect(&previous_, &QAbstractButton::clicked, this, [this] { onStep(-1); });
  QObject::connect(&next_, &QAbstractButton::clicked, this, [this] { onStep(1); });
  QObject::connect(&attachment_, &QAbstractButton::clicked, this, [this] { OpenAttachment(); });
  QObject::connect(&sound_, &QAbstractButton::clicked, this, [this] { SwitchSound(); });
  QObject::connect(&film_, &QAbstractButton::clicked, this, [this] { ShowFilm(); });
  QObject::connect(&print_, &QAbstractButton::clicked, this, [this] { onPrint(); });
  QObject::connect(&smaller_, &QAbstractButton::clicked, this, [this] { onZoom(-2); });
  QObject::connect(&larger_, &QAbstractButton::clicked, this, [this] { onZoom(2); });
}

void EntryBar::ShowEntry(const book::Node& node, bool hasPrevious, bool hasNext) {
  Silence();
  node_ = node;
  // The nodes of galleries may name files that were never made.
  media_ = node.isGallery ? book::Media() : book::MediaOf(surroundings_.book, node);
  const bool isPage = !node.isGallery;
  attachment_.setVisible(isPage && node.hasAttachment);
  sound_.setVisible(isPage && node.hasSound);
  film_.setVisible(isPage && node.hasFilm);
  print_.setVisible(isPage && surroundings_.settings.print);
  previous_.setEnabled(hasPrevious);
  next_.setEnabled(hasNext);
  ShowWhatFits();
}

void EntryBar::resizeEvent(QResizeEvent* /*event*/) { ShowWhatFits(); }

// In a narrow window the size of the text is changed by keys alone; captions stay whole.
void EntryBar::ShowWhatFits() {
  int needed = 2 * kSideMargin - kGap;
  for (const FlatButton* button :
       {&previous_, &attachment_, &sound_, &film_, &print_, &smaller_, &larger_, &next_}) {
    const bool isZoom = button == &smaller_ || button == &larger_;
    if (isZoom || !button->isHidden()) needed += button->sizeHint().width() + kGap;
  }
  for (FlatButton* zoom : {&smaller_, &larger_}) {
    zoom->setVisible(!node_.isGallery && needed <= width());
  }
}

// Else says which file is missing.
bool EntryBar::IsThere(const QString& path, const QString& missing, const QString& ending) {
  if (!path.isEmpty()) return true;
  const QString file = book::StemOf(node_) + ending;
  qWarning().noquote() << "Can't be read:"
                       << book::WithSigns(surroundings_.book.Root() + u'/' + file);
  Tell(window(), missing + AsPath(file));
  return false;
}

void EntryBar::OpenAttachment() {
  if (!IsThere(media_.attachment, texts::AttachmentMissing(), node_.attachmentExtension)) return;
  const bool isDocument = book::IsKnownDocument(media_.attachment);
  const bool isExecutable = QFileInfo(media_.attachment).isExecutable();
  if (node_.attachmentIsProgram || (isExecutable && !isDocument)) return StartProgram();
  // On some disks everything may be executed.
  const bool isSafe = isDocument && !isExecutable && IsWhatItIsCalled();
  if (isSafe || MayOpen()) OpenWithItsProgram();
}

// The machine's own player would follow a list of addresses under the name of a sound.
bool EntryBar::IsWhatItIsCalled() const {
  return !book::IsCalledMedium(media_.attachment) ||
         book::Medium::Open(surroundings_.book, media_.attachment) != nullptr;
}

QString EntryBar::AttachmentName() const { return AsPath(QFileInfo(media_.attachment).fileName()); }

bool EntryBar::MayOpen() { return Ask(window(), texts::MayStartProgram().arg(AttachmentName())); }

void EntryBar::OpenWithItsProgram() {
  if (surroundings_.outside.openFile(media_.attachment)) return;
  Tell(window(), texts::NoProgramFor());
}

void EntryBar::StartProgram() {
  if (!Ask(window(), texts::IsProgram().arg(AttachmentName()))) return;
  if (!surroundings_.outside.startProgram(media_.attachment)) {
    Tell(window(), texts::CantStart());
  }
}

void EntryBar::SwitchSound() {
  if (sounds_) return Silence();
  if (!IsThere(media_.sound, texts::SoundMissing(), kAnyEnding)) return;
  auto sound = book::Medium::Open(surroundings_.book, media_.sound);
  if (!sound) return TellSound(texts::CantPlaySound());
  soundKind_ = sound->Kind();
  if (!player_) {
    player_ = surroundings_.outside.makePlayer();
    player_->onEnd = [this](bool played) {
      if (!sounds_) return;
      Silence();
      if (!played) TellSound(WithMissingPackages(texts::CantPlaySound(), soundKind_));
    };
  }
  surroundings_.hushMusic(true);
  sounds_ = true;
  sound_.SetCaption(texts::StopSound());
  player_->Play(std::move(sound));
}

void EntryBar::TellSound(const QString& why) { Tell(window(), why); }

void EntryBar::Silence() {
  if (!sounds_) return;
  sounds_ = false;
  player_->Stop();
  sound_.SetCaption(texts::Sound());
  surroundings_.hushMusic(false);
}

void EntryBar::ShowFilm() {
  if (!IsThere(media_.film, texts::FilmMissing(), kAnyEnding)) return;
  auto film = book::Medium::Open(surroundings_.book, media_.film);
  if (!film) return Tell(window(), texts::CantPlayFilm());
  surroundings_.hushMusic(true);
  Silence();
  surroundings_.outside.showFilm(std::move(film), AsCaption(node_.label), window(),
                                 [&hush = surroundings_.hushMusic] { hush(false); });
}

}  // namespace viewer
