// Bytes of media, whole and broken, for the tests of what a file is.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace media_tests {

// A small sound or film of tests/media/samples.
std::string Sample(const std::string& name);
inline constexpr const char* kSamples[] = {
    "sound.mp3", "sound.mp2", "sound.wav", "sound-adpcm.wav", "sound.ogg", "sound.opus",
    "sound.flac", "sound.aac", "sound.m4a", "film.mp4", "film.mov", "film-fragments.mp4",
    "film.flv", "film.avi", "film.mkv", "film.webm", "film.ogv", "film.mpg", "film.ts", "film.m2v",
    "film-vcd.mpg",
    // Cut off, with bytes after its end, from before there were brands, and after other bytes.
    "film-cut.mp4", "film-tail.mp4", "film-old.mov", "sound-junk.mp3", "sound-tag-junk.mp3"};

std::string Big(std::uint64_t number, int bytes);
std::string Little(std::uint64_t number, int bytes);

// A silent sound of MPEG audio: layer III, 128 kbit/s, 44.1 kHz.
std::string Mp3Frames(int count);
// One of its frames with the text in it.
std::string Mp3FrameWith(std::string_view text);
// An ID3v2 tag of that many bytes in all; with a foot ten more.
std::string Id3(std::string_view body, bool foot = false);

std::string Box(std::string_view name, std::string_view body);
std::string Chunk(std::string_view name, std::string_view body);
// A stream's first page.
std::string OggPage(std::string_view packet);

// The film sample with another reference to its data in all its tracks' place.
std::string FilmWithReference(std::string_view reference);
// The film sample with a box more in its description.
std::string FilmWithBox(std::string_view box);

}  // namespace media_tests
