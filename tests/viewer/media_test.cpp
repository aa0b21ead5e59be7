#include "book/media.h"

#include <gtest/gtest.h>

#include <QFileInfo>

#include "tests/viewer/book_maker.h"

namespace viewer {
namespace {

using viewer_tests::BookMaker;

class MediaOfNode : public testing::Test {
 protected:
  MediaOfNode() {
    node_.source = QStringLiteral("DATA/TXT/S.htm");
    Add({"S.htm", "S.html", "SX.mp3", "SX.avi"});
  }

  void Add(std::initializer_list<const char*> names) const {
    for (const char* name : names) {
      maker_.WriteBytes(QStringLiteral("Data/TXT/") + QString::fromLatin1(name), "x");
    }
  }
  void Attach(const char* extension) {
    node_.hasAttachment = true;
    node_.attachmentExtension = QString::fromLatin1(extension);
  }
  void SetBack(const char* extension) {
    node_.background = QStringLiteral("Data/TXT/S") + QString::fromLatin1(extension);
  }

  // Attachment, sound, film and background by their names.
  QString Names() const {
    const book::Media media = book::MediaOf(maker_.Book(), node_);
    QStringList names;
    for (const QString& path : {media.attachment, media.sound, media.film, media.background}) {
      names += path.isEmpty() ? QStringLiteral("-") : QFileInfo(path).fileName();
    }
    return names.join(u' ');
  }

  const BookMaker maker_;
  book::Node node_;
};

TEST_F(MediaOfNode, None) {
  Add({"S.mp3", "S.avi", "S.pdf"});
  EXPECT_EQ(Names(), QStringLiteral("- - - -"));
}

TEST_F(MediaOfNode, All) {
  Add({"S.pdf", "S.mp3", "S.avi", "S.jpg"});
  Attach(".pdf");
  SetBack(".jpg");
  node_.hasSound = node_.hasFilm = true;
  EXPECT_EQ(Names(), QStringLiteral("S.pdf S.mp3 S.avi S.jpg"));
}

TEST_F(MediaOfNode, LetterCaseIsNoMatter) {
  Add({"S.EXE", "S.WAV", "S.MPG"});
  Attach(".exe");
  node_.hasSound = node_.hasFilm = true;
  EXPECT_EQ(Names(), QStringLiteral("S.EXE S.WAV S.MPG -"));
}

TEST_F(MediaOfNode, AnAttachedFilmIsNotTakenForTheFilm) {
  Add({"S.mp4", "S.avi"});
  Attach(".avi");
  node_.hasFilm = true;
  EXPECT_EQ(Names(), QStringLiteral("S.avi - S.mp4 -"));
}

TEST_F(MediaOfNode, ABackgroundIsNotTakenForTheFilm) {
  Add({"S.gif"});
  SetBack(".gif");
  node_.hasFilm = true;
  EXPECT_EQ(Names(), QStringLiteral("- - - S.gif"));
}

TEST_F(MediaOfNode, ASoundThatReplacedTheAttachment) {
  Add({"S.mp3"});
  Attach(".mp3");
  node_.hasSound = true;
  EXPECT_EQ(Names(), QStringLiteral("S.mp3 S.mp3 - -"));
}

TEST_F(MediaOfNode, AnUnknownExtensionIsTakenWhereNothingElseIsLeft) {
  Add({"S.avi", "S.xyz"});
  node_.hasSound = node_.hasFilm = true;
  EXPECT_EQ(Names(), QStringLiteral("- S.xyz S.avi -"));
}

TEST_F(MediaOfNode, ASoundOfItsOwnComesBeforeAnAttachedSound) {
  Add({"S.mp3", "S.xyz"});
  Attach(".mp3");
  node_.hasSound = true;
  EXPECT_EQ(Names(), QStringLiteral("S.mp3 S.xyz - -"));
}

TEST_F(MediaOfNode, AFilmOfItsOwnComesBeforeAnAttachedFilm) {
  Add({"S.avi", "S.xyz", "S.wav"});
  Attach(".avi");
  node_.hasSound = node_.hasFilm = true;
  EXPECT_EQ(Names(), QStringLiteral("S.avi S.wav S.xyz -"));
}

TEST_F(MediaOfNode, WithAFileTooFewTheAttachmentIsTheMediumOfItsKind) {
  Add({"S.mp3", "S.xyz"});
  Attach(".mp3");
  node_.hasSound = node_.hasFilm = true;
  EXPECT_EQ(Names(), QStringLiteral("S.mp3 S.mp3 S.xyz -"));
}

TEST_F(MediaOfNode, AnAttachedFilmDoesntKeepASoundFromItsFile) {
  Add({"S.avi", "S.xyz"});
  Attach(".avi");
  node_.hasSound = node_.hasFilm = true;
  EXPECT_EQ(Names(), QStringLiteral("S.avi S.xyz S.avi -"));
}

TEST_F(MediaOfNode, AFilmWithoutASoundIsNotTheSound) {
  Add({"S.pdf", "S.avi"});
  Attach(".pdf");
  node_.hasSound = node_.hasFilm = true;
  EXPECT_EQ(Names(), QStringLiteral("S.pdf - S.avi -"));
}

TEST_F(MediaOfNode, MissingFiles) {
  Attach(".pdf");
  SetBack(".jpg");
  node_.hasSound = node_.hasFilm = true;
  EXPECT_EQ(Names(), QStringLiteral("- - - -"));
}

TEST_F(MediaOfNode, AGalleryEntryHasNoneWhateverItsNodeSays) {
  Add({"S.mp3"});
  node_.isGallery = true;
  node_.source = QStringLiteral("DATA/_xml/S.xml");
  Attach(".mp3");
  node_.hasSound = true;
  EXPECT_EQ(Names(), QStringLiteral("- - - -"));
}

TEST_F(MediaOfNode, NoExtensionLeadsOutOfTheFolder) {
  maker_.WriteBytes(QStringLiteral("Data/secret"), "x");
  Attach("/../../secret");
  SetBack("/../../../secret");
  EXPECT_EQ(Names(), QStringLiteral("- - - -"));
}

TEST_F(MediaOfNode, ThePrintPage) {
  EXPECT_TRUE(book::PrintPageOf(maker_.Book(), node_).endsWith(QLatin1String("/Data/TXT/S.html")));
  node_.source = QStringLiteral("DATA/TXT/T.htm");
  EXPECT_EQ(book::PrintPageOf(maker_.Book(), node_), QString());
}

}  // namespace
}  // namespace viewer
