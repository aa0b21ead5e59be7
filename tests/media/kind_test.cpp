#include "media/media_kind.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "tests/media/hostile_media.h"
#include "tests/media/media_bytes.h"

namespace media {
namespace {

using media_tests::Big;
using media_tests::Box;
using media_tests::Chunk;
using media_tests::FilmWithBox;
using media_tests::FilmWithReference;
using media_tests::HostileMedia;
using media_tests::Id3;
using media_tests::Little;
using media_tests::Mp3Frames;
using media_tests::OggPage;
using media_tests::Sample;

std::optional<MediaKind> KindOf(const std::string& bytes) {
  const auto medium = MediumOf(SourceOf(bytes));
  return medium ? std::optional(medium->kind) : std::nullopt;
}

bool IsKnown(const std::string& bytes) { return KindOf(bytes).has_value(); }

TEST(MediaKind, EachSampleIsKnownByItsBytes) {
  const std::map<std::string, MediaKind> kinds = {
      {"mp3", MediaKind::kMp3},       {"mp2", MediaKind::kMp3},      {"wav", MediaKind::kWave},
      {"ogg", MediaKind::kOgg},       {"opus", MediaKind::kOgg},     {"ogv", MediaKind::kOgg},
      {"flac", MediaKind::kFlac},     {"aac", MediaKind::kAac},      {"m4a", MediaKind::kMp4},
      {"mp4", MediaKind::kMp4},       {"mov", MediaKind::kMp4},      {"flv", MediaKind::kFlv},
      {"avi", MediaKind::kAvi},       {"mkv", MediaKind::kMatroska}, {"mpg", MediaKind::kMpeg},
      {"webm", MediaKind::kMatroska}, {"ts", MediaKind::kMpeg},      {"m2v", MediaKind::kMpeg}};
  for (const std::string name : media_tests::kSamples) {
    EXPECT_EQ(KindOf(Sample(name)), kinds.at(name.substr(name.find('.') + 1))) << name;
  }
}

TEST(MediaKind, TheDeliveredSoundsAndFilmAreKnown) {
  EXPECT_EQ(KindOf(Sample("../../../Resources/MySound1.mp3")), MediaKind::kMp3);
  EXPECT_EQ(KindOf(Sample("../../../Resources/MySound2.mp3")), MediaKind::kMp3);
  EXPECT_EQ(KindOf(Sample("../../../Resources/Negareh/Parvaz.flv")), MediaKind::kFlv);
}

TEST(MediaKind, WhatNamesSomethingElseIsNotKnown) {
  const auto media = HostileMedia({"/outside/file.ts", "127.0.0.1:9"});
  EXPECT_GE(media.size(), 40U);
  for (const auto& medium : media) {
    EXPECT_EQ(IsKnown(medium.bytes), medium.isKnown) << medium.name;
  }
}

// A file that is cut off anywhere is known or not; nothing reads past its end.
TEST(MediaKind, OfEachSampleTheBeginningAloneIsAnswered) {
  for (const std::string name : media_tests::kSamples) {
    const std::string whole = Sample(name);
    for (std::size_t length = 0; length < 600; ++length) {
      const auto medium = MediumOf(SourceOf(std::string_view(whole).substr(0, length)));
      EXPECT_LE(medium ? medium->start : 0, length);
      EXPECT_FALSE(medium && length < 16) << name << " " << length;
    }
  }
}

TEST(MediaKind, ASoundBeginsAfterItsTags) {
  const std::string tag = Id3(std::string(30, 'x'));
  const auto start = [](const std::string& bytes) { return MediumOf(SourceOf(bytes))->start; };
  EXPECT_EQ(start(Mp3Frames(8)), 0U);
  EXPECT_EQ(start(tag + Mp3Frames(8)), 40U);
  EXPECT_EQ(start(tag + tag + Mp3Frames(8)), 80U);
  EXPECT_EQ(start(Id3("x", true) + Mp3Frames(8)), 21U);
  EXPECT_EQ(start(tag + std::string(500, '\0') + Mp3Frames(8)), 540U);
  EXPECT_EQ(start(tag + Sample("sound.flac")), 40U);
  EXPECT_EQ(start(tag + Sample("sound.aac")), 40U);
  EXPECT_FALSE(IsKnown(tag + Sample("sound.wav")));
  EXPECT_FALSE(IsKnown(tag + Sample("film.mp4")));
  EXPECT_FALSE(IsKnown(tag));
}

// Its smallest and its largest block, and its rate.
TEST(MediaKind, AFlacIsDescribedAsOneCanBe) {
  const std::string sound = Sample("sound.flac");
  const auto with = [&](std::size_t at, const std::string& bytes) {
    return std::string(sound).replace(at, bytes.size(), bytes);
  };
  EXPECT_TRUE(IsKnown(with(8, Big(16, 2) + Big(16, 2))));
  EXPECT_FALSE(IsKnown(with(8, Big(15, 2) + Big(16, 2))));
  EXPECT_FALSE(IsKnown(with(8, Big(4608, 2) + Big(4607, 2))));
  EXPECT_FALSE(IsKnown(with(18, Big(0x00000F, 3))));
}

TEST(MediaKind, AnMp3IsARowOfFramesThatAreAlike) {
  EXPECT_TRUE(IsKnown(Mp3Frames(3)));
  EXPECT_FALSE(IsKnown(Mp3Frames(2)));
  EXPECT_TRUE(IsKnown(Mp3Frames(4).substr(0, 417 * 3 + 100)));  // cut off
  EXPECT_TRUE(IsKnown(Mp3Frames(3) + "TAG" + std::string(125, 'x')));
  EXPECT_FALSE(IsKnown(Mp3Frames(3) + std::string(500, 'x')));
  EXPECT_TRUE(IsKnown(Mp3Frames(8) + std::string(500, 'x')));
  EXPECT_FALSE(IsKnown("x" + Mp3Frames(8)));
  std::string other = Mp3Frames(8);
  other[417 * 2 + 2] = '\x94';  // 48 kHz
  EXPECT_FALSE(IsKnown(other));
}

TEST(MediaKind, AnMp3MayBeginAfterJunk) {
  const auto start = [](const std::string& bytes) {
    const auto medium = MediumOf(SourceOf(bytes));
    return medium && medium->kind == MediaKind::kMp3 ? std::optional(medium->start) : std::nullopt;
  };
  const std::string frames = Mp3Frames(8);
  const std::string rest = Mp3Frames(1).substr(100);
  EXPECT_EQ(start(rest + frames), rest.size());
  EXPECT_EQ(start("\x01" + frames), 1U);
  EXPECT_EQ(start(std::string(3, '\0') + frames), 3U);
  EXPECT_EQ(start(Id3("x") + std::string(40, '\0') + rest + frames), 51 + rest.size());
  EXPECT_EQ(start(std::string(65'536, '\1') + frames), 65'536U);
  EXPECT_EQ(start(std::string(65'537, '\1') + frames), std::nullopt);
  EXPECT_EQ(start("\x01" + Mp3Frames(7)), std::nullopt);
  // A head alone is no frame.
  EXPECT_EQ(start("\x01\xFF\xFB\x90\x44" + frames), 5U);
}

TEST(MediaKind, NeitherTextsNorOtherFilesAreJunkBeforeAnMp3) {
  const std::string frames = Mp3Frames(8);
  for (const char* text :
       {"x", "\n", "a path.mp3\r\n", "متن", "<A>\x01", "#EXTINF\x01", "\xFF\xFE\x27\x06"}) {
    EXPECT_FALSE(IsKnown(text + frames)) << text;
  }
  EXPECT_FALSE(IsKnown(std::string(200, '\xE3') + frames));  // in a code page
  EXPECT_FALSE(IsKnown(std::string("a\0b\0c\0", 6) + frames));
  for (const char* head :
       {"RIFF\x01", "OggS\x01", "FLV\x01", "%PDF\x01", "GIF8\x01", "PK\x03\x04"}) {
    EXPECT_FALSE(IsKnown(head + frames)) << head;
  }
  EXPECT_FALSE(IsKnown(std::string("\0\0\1\xBA", 4) + frames));
  EXPECT_FALSE(IsKnown(Box("ftyp", "isom") + frames));
}

TEST(MediaKind, AWaveHasAKnownFormatBeforeItsSamples) {
  const auto wave = [](const std::string& format) {
    return Chunk("RIFF", "WAVE" + Chunk("LIST", "INFO") + Chunk("fmt ", format) +
                             Chunk("data", std::string(64, '\0')));
  };
  const std::string rest =
      Little(2, 2) + Little(8'000, 4) + Little(32'000, 4) + Little(4, 2) + Little(16, 2);
  EXPECT_TRUE(IsKnown(wave(Little(1, 2) + rest)));
  EXPECT_FALSE(IsKnown(wave(Little(0x161, 2) + rest)));
  EXPECT_FALSE(IsKnown(wave(Little(1, 2) + Little(0, 2) + rest.substr(2))));  // no channels
  const std::string more = Little(22, 2) + Little(16, 2) + Little(3, 4);
  const std::string guid("\0\0\0\0\x10\0\x80\0\0\xAA\0\x38\x9B\x71", 14);
  EXPECT_TRUE(IsKnown(wave(Little(0xFFFE, 2) + rest + more + Little(1, 2) + guid)));
  EXPECT_FALSE(IsKnown(wave(Little(0xFFFE, 2) + rest + more + Little(0x161, 2) + guid)));
  EXPECT_FALSE(IsKnown(wave(Little(0xFFFE, 2) + rest + more + Little(1, 2) + "another ident.")));
}

TEST(MediaKind, AFilmsDataLieInItself) {
  EXPECT_TRUE(IsKnown(FilmWithReference(Box("url ", Big(1, 4)))));
  EXPECT_TRUE(IsKnown(FilmWithReference(Box("alis", Big(1, 4)))));
  EXPECT_TRUE(IsKnown(FilmWithReference(Box("url ", Big(1, 4) + std::string(1, '\0')))));
  EXPECT_FALSE(IsKnown(FilmWithReference(Box("url ", Big(0, 4)))));
  EXPECT_FALSE(IsKnown(FilmWithReference(Box("url ", Big(1, 4) + "x"))));
  EXPECT_FALSE(IsKnown(FilmWithReference(Box("cios", Big(1, 4)))));
}

// Whatever box they lie in, and wherever that is cut as it is read.
TEST(MediaKind, EachReferenceOfAFilmIsLookedAt) {
  const auto references = [](std::uint64_t inThisFile) {
    return Box("dref", Big(0, 4) + Big(1, 4) + Box("url ", Big(inThisFile, 4)));
  };
  EXPECT_TRUE(IsKnown(FilmWithBox(Box("udta", Box("wave", references(1))))));
  EXPECT_FALSE(IsKnown(FilmWithBox(Box("udta", Box("wave", references(0))))));
  EXPECT_FALSE(IsKnown(FilmWithBox(Box("udta", references(1) + references(0)))));
  EXPECT_FALSE(IsKnown(FilmWithBox(Box("udta", Big(1'000'000, 4) + "dref"))));
  const std::string film = Sample("film.mp4");
  EXPECT_TRUE(IsKnown(film + references(1)));
  EXPECT_TRUE(IsKnown(film + Box("mdat", references(0))));
  for (std::size_t before = 65'480; before < 65'540; ++before) {
    for (const std::uint64_t inThisFile : {0U, 1U}) {
      std::string bytes = film;
      bytes += Box("uuid", std::string(before, '\0').append(references(inThisFile)));
      EXPECT_EQ(IsKnown(bytes), inThisFile == 1) << before;
    }
  }
}

TEST(MediaKind, AFilmsBoxesLieWithinEachOther) {
  EXPECT_TRUE(IsKnown(FilmWithBox(Box("free", "x"))));
  EXPECT_FALSE(IsKnown(FilmWithBox(Big(7, 4) + "free")));
  EXPECT_FALSE(IsKnown(FilmWithBox(Big(1'000'000, 4) + "free")));
  EXPECT_FALSE(IsKnown(FilmWithBox(Big(1, 4) + "free" + Big(~std::uint64_t{0}, 8))));
  std::string deep = "x";
  for (int i = 0; i < 20; ++i) deep = Box("trak", deep);
  EXPECT_FALSE(IsKnown(FilmWithBox(deep)));
}

TEST(MediaKind, AFilmHasAKnownBrandAndATrack) {
  std::string film = Sample("film.mp4");
  EXPECT_FALSE(IsKnown(film.replace(8, 4, "heic")));
  EXPECT_FALSE(IsKnown(Box("ftyp", "isom" + Big(0, 4)) + Box("moov", "")));
  EXPECT_TRUE(IsKnown(Sample("film.mp4").substr(32)));  // of before there were brands
  EXPECT_FALSE(IsKnown(Box("what", "") + Sample("film.mp4").substr(32)));
}

// As far as it goes, a film is played. What its description lacks nobody can make up.
TEST(MediaKind, AFilmMayBeCutOffAndHaveMoreAfterIt) {
  const std::string film = Sample("film.mp4");
  const std::string data = Big(5'000'000, 4) + "mdat" + std::string(90, 'x');
  EXPECT_TRUE(IsKnown(film + data));
  EXPECT_TRUE(IsKnown(film + "1234567"));
  EXPECT_TRUE(IsKnown(film + Big(7, 4) + "what" + std::string(500, 'x')));
  EXPECT_TRUE(IsKnown(film + Big(5'000, 4) + "what"));
  EXPECT_TRUE(IsKnown(film + std::string(500, '\0')));
  EXPECT_FALSE(IsKnown(film.substr(0, film.size() - 1)));  // its description comes last
  EXPECT_FALSE(IsKnown(film.substr(0, 32) + data));
  const std::string references = Box("dref", Big(0, 4) + Big(1, 4) + Box("url ", Big(0, 4)));
  EXPECT_FALSE(IsKnown(film + Big(5'000, 4) + "what" + references));
  EXPECT_FALSE(IsKnown(film + Big(7, 4) + "what" + references));
}

TEST(MediaKind, AnOggOfTextsIsNotKnown) {
  const std::string sound = OggPage("\x01vorbis" + std::string(23, '\0'));
  const std::string next = std::string("OggS\0\0", 6) + std::string(21, '\0');
  EXPECT_TRUE(IsKnown(sound + next));
  EXPECT_FALSE(IsKnown(sound + OggPage(std::string("CMML\0\0\0\0", 8)) + next));
  EXPECT_FALSE(IsKnown(next));
  EXPECT_FALSE(IsKnown(sound + "x"));
}

// Bytes that would keep a reader busy: it stops.
TEST(MediaKind, TakesNoLongerForALargeFile) {
  std::size_t read = 0;
  const auto costOf = [&read](const std::string& head, const std::string& row) {
    read = 0;
    static_cast<void>(MediumOf({std::uint64_t{1} << 40U, [&](std::uint64_t at, std::size_t count) {
                                  std::string bytes;
                                  while (bytes.size() < count) {
                                    bytes += at < head.size()
                                                 ? head.substr(static_cast<std::size_t>(at))
                                                 : row;
                                    at = head.size();
                                  }
                                  read += count;
                                  return bytes.substr(0, count);
                                }}));
    return read;
  };
  const std::string brand = Box("ftyp", "isom" + Big(0, 4));
  EXPECT_LT(costOf(brand, Box("free", "")), 3'000'000U);
  EXPECT_LT(costOf(brand + Big(1, 4) + "moov" + Big(std::uint64_t{1} << 39U, 8), "x"), 40'000'000U);
  EXPECT_LT(costOf(Id3("x"), Id3("")), 3'000'000U);
  EXPECT_LT(costOf(Chunk("RIFF", "WAVE").substr(0, 12), Chunk("LIST", "INFO")), 3'000'000U);
  EXPECT_LT(costOf("", OggPage("OpusHead")), 3'000'000U);
}

// Each of these boxes and lists is short enough to be gone through; there are too many of them.
TEST(MediaKind, LooksAtNoMorePiecesThanAFilmHas) {
  const auto readsOf = [](const std::string& bytes) {
    int reads = 0;
    const Source whole = SourceOf(bytes);
    static_cast<void>(MediumOf({bytes.size(), [&](std::uint64_t at, std::size_t count) {
                                  ++reads;
                                  return whole.Read(at, count);
                                }}));
    return reads;
  };
  const auto times = [](int count, const std::string& piece) {
    std::string pieces;
    for (int i = 0; i < count; ++i) pieces += piece;
    return pieces;
  };
  const std::string references = Big(0, 4) + Big(64, 4) + times(64, Box("url ", Big(1, 4)));
  const std::string film = Box("ftyp", "isom" + Big(0, 4)) +
                           Box("moov", Box("trak", "") + times(2'000, Box("dref", references)));
  EXPECT_LT(readsOf(film), 100'000);
  const std::string list =
      Chunk("LIST", "strl" + Chunk("strh", "vids") + times(900, Chunk("JUNK", "")));
  EXPECT_LT(readsOf(Chunk("RIFF", "AVI " + Chunk("LIST", "hdrl" + times(900, list)))), 100'000);
}

}  // namespace
}  // namespace media
