#include "tests/media/hostile_media.h"

#include "tests/media/media_bytes.h"

namespace media_tests {
namespace {

using Media = std::vector<HostileMedium>;

constexpr const char* kXml = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";

std::string Http(const Lures& to) { return "http://" + to.address + "/outside.ts"; }

std::string Hls(const std::string& name) {
  return "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:2\n#EXT-X-MEDIA-SEQUENCE:0\n"
         "#EXTINF:2,\n" +
         name + "\n#EXT-X-ENDLIST\n";
}

std::string Sdp(const Lures& /*to*/) {
  return "v=0\no=- 0 0 IN IP4 127.0.0.1\ns=x\nc=IN IP4 127.0.0.1\nt=0 0\nm=audio 40004 RTP/AVP 0\n";
}

std::string Dash(const Lures& to) {
  return "<MPD xmlns=\"urn:mpeg:dash:schema:mpd:2011\" type=\"static\" "
         "profiles=\"urn:mpeg:dash:profile:isoff-on-demand:2011\" "
         "mediaPresentationDuration=\"PT2S\">"
         "<Period><AdaptationSet mimeType=\"video/mp4\"><Representation id=\"1\" bandwidth=\"1\">"
         "<BaseURL>" +
         Http(to) + "</BaseURL></Representation></AdaptationSet></Period></MPD>\n";
}

std::string Smooth(const Lures& to) {
  return "<SmoothStreamingMedia MajorVersion=\"2\" MinorVersion=\"0\" Duration=\"20000000\">"
         "<StreamIndex Type=\"video\" Chunks=\"1\" Url=\"" +
         Http(to) +
         "\"><QualityLevel Index=\"0\" Bitrate=\"1\" FourCC=\"H264\" CodecPrivateData=\"\"/>"
         "<c d=\"20000000\"/></StreamIndex></SmoothStreamingMedia>\n";
}

std::string Utf16(const std::string& text) {
  std::string wide = "\xFF\xFE";
  for (const char c : text) wide += {c, '\0'};
  return wide;
}

Media Streams(const Lures& to) {
  return {{"hls-address", Hls(Http(to))},
          {"hls-file", Hls("file://" + to.file)},
          {"hls-path", Hls(to.file)},
          {"hls-way-up", Hls("../../../../../../../.." + to.file)},
          {"hls-key", "#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXT-X-KEY:METHOD=AES-128,URI=\"" +
                          Http(to) + "\"\n#EXTINF:2,\nSound1.mp3\n#EXT-X-ENDLIST\n"},
          {"hls-of-lists", "#EXTM3U\n#EXT-X-STREAM-INF:BANDWIDTH=1\n" + Http(to) + "\n"},
          {"hls-with-mark", "\xEF\xBB\xBF" + Hls(Http(to))},
          {"hls-utf16", Utf16(Hls(Http(to)))},
          {"dash", kXml + Dash(to)},
          {"dash-utf16", Utf16(Dash(to))},
          {"smooth", kXml + Smooth(to)},
          {"smooth-utf16", Utf16(Smooth(to))},
          {"sdp", Sdp(to)},
          {"rtsp", "rtsptextrtsp://" + to.address + "/x\r\n"}};
}

Media Lists(const Lures& to) {
  return {
      {"m3u", "#EXTM3U\n#EXTINF:1,x\n" + to.file + "\n"},
      {"bare-path", to.file + "\n"},
      {"addresses", "# a list\r\n" + Http(to) + "\r\n"},
      {"pls", "[playlist]\nFile1=" + Http(to) + "\nNumberOfEntries=1\nVersion=2\n"},
      {"xspf", kXml + ("<playlist xmlns=\"http://xspf.org/ns/0/\"><trackList><track><location>" +
                       Http(to) + "</location></track></trackList></playlist>\n")},
      {"asx", "<asx version=\"3.0\"><entry><ref href=\"" + Http(to) + "\"/></entry></asx>\n"},
      {"reference", "[Reference]\r\nRef1=" + Http(to) + "\r\n"},
      {"smil", "<smil><body><audio src=\"" + Http(to) + "\"/></body></smil>\n"},
      {"concat", "ffconcat version 1.0\nfile '" + to.file + "'\n"},
      {"media-link",
       kXml + ("<?quicktime type=\"application/x-quicktime-media-link\"?><embed src=\"" + Http(to) +
               "\"/>\n")},
      {"subtitle-index", "# VobSub index file, v7 (do not modify this line!)\n# " + to.file + "\n"},
      {"cue-sheet", "FILE \"" + to.file + "\" WAVE\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n"},
      {"picture", "<svg xmlns=\"http://www.w3.org/2000/svg\"><image href=\"file://" + to.file +
                      "\" width=\"9\" height=\"9\"/></svg>\n"},
      {"page", "<html><audio src=\"" + Http(to) + "\" autoplay></html>\n"}};
}

Media TaggedLists(const Lures& to) {
  const std::string tag = Id3(std::string(64, '\0'));
  const std::string link = std::string("\0-->\0\x03\0", 7) + Http(to);
  const std::string frame = "APIC" + Big(link.size(), 4) + std::string(2, '\0') + link;
  return {
      {"tag-hls", tag + Hls(Http(to))},
      {"two-tags-hls", tag + tag + Hls(Http(to))},
      {"tag-with-foot-hls", Id3(std::string(64, '\0'), true) + Hls(Http(to))},
      {"tag-padding-hls", tag + std::string(4'000, '\0') + Hls(Http(to))},
      {"tag-frame-hls", tag + Mp3Frames(1) + Hls(Http(to))},
      {"tag-sdp", tag + Sdp(to)},
      {"tag-longer-than-file", "ID3" + std::string("\x04\0\0\x7F\x7F\x7F\x7F", 7) + Hls(Http(to))},
      {"ape-tag-hls", "APETAGEX" + Little(2'000, 4) + Little(32, 4) + Little(0, 4) +
                          Little(0xA000'0000, 4) + std::string(8, '\0') + Hls(Http(to))},
      {"tag-with-link", Id3(frame) + Sample("sound.mp2"), true}};
}

Media Sounds(const Lures& to) {
  const std::string format = Little(1, 2) + Little(1, 2) + Little(8'000, 4) + Little(16'000, 4) +
                             Little(2, 2) + Little(16, 2);
  const auto wave = [](const std::string& chunks) { return Chunk("RIFF", "WAVE" + chunks); };
  return {{"mp3-then-hls", Mp3Frames(40) + Hls(Http(to))},

          {"mp3-with-sdp-line", Mp3FrameWith("\n" + Sdp(to)) + Mp3Frames(40)},
          {"mp3-with-dash", Mp3FrameWith(Dash(to)) + Mp3Frames(40)},
          {"mp3-layer-1", "\xFF\xFF\x50\x04" + Hls(Http(to))},
          {"flac-hls", "fLaC" + Hls(Http(to))},
          {"wave-without-format", wave(Chunk("data", Hls(Http(to))))},
          {"wave-of-a-list", wave(Chunk("fmt ", format) + Chunk("data", Hls(Http(to))))},
          {"wave-of-another-codec",
           wave(Chunk("fmt ", "\x61\x01" + format.substr(2)) + Chunk("data", "x"))},
          {"riff-of-notes", Chunk("RIFF", "RMID" + Chunk("data", Hls(Http(to))))},
          {"notes", std::string("MThd\0\0\0\x06\0\0\0\x01\0\x60MTrk", 18) + Hls(Http(to))},
          {"ogg-of-texts", OggPage(std::string("CMML\0\0\0\0", 8)) + OggPage(Hls(Http(to)))},
          {"ogg-hls", std::string("OggS\0\x02", 6) + Hls(Http(to))},
          {"real", ".ra\xFD" + std::string(60, '\0') + "rtsp://" + to.address + "/x"}};
}

Media Films(const Lures& to) {
  const std::string url = Big(0, 4) + Http(to) + '\0';
  const std::string file = Big(0, 4) + "file://" + to.file + '\0';
  const std::string link = Box(
      "rmra", Box("rmda", Box("rdrf", Big(0, 4) + "url " + Big(Http(to).size(), 4) + Http(to))));
  std::string stream = Chunk("strh", "txts" + std::string(52, '\0'));
  const std::string texts = stream;
  stream = Chunk("LIST", "strl" + stream + Chunk("strf", ""));
  const std::string pictures = Chunk("strh", "vids" + std::string(52, '\0')) + Chunk("strf", "");
  const auto avi = [](const std::string& streams) {
    const std::string head = Chunk("LIST", "hdrl" + Chunk("avih", std::string(56, '\0')) + streams);
    return Chunk("RIFF", "AVI " + head + Chunk("LIST", "movi"));
  };
  const std::string head = Chunk("LIST", "hdrl" + Chunk("avih", std::string(56, '\0')) + stream);
  const std::string subtitle = Chunk("00tx", std::string("GAB2\0\x02\0", 7) + Hls(Http(to)));
  return {
      {"mp4-elsewhere", FilmWithReference(Box("url ", url))},
      {"mp4-elsewhere-on-disk", FilmWithReference(Box("url ", file))},
      {"mp4-elsewhere-by-name", FilmWithReference(Box("urn ", file))},
      {"mp4-alias", FilmWithReference(Box("alis", Big(0, 4) + std::string(150, 'a') + to.file))},
      {"mp4-alias-said-to-be-itself",
       FilmWithReference(Box("alis", Big(1, 4) + std::string(150, 'a') + to.file))},
      {"mp4-of-films", FilmWithBox(link)},
      {"mp4-only-link", Box("ftyp", "qt  " + Big(0, 4)) + Box("moov", link)},
      {"mp4-packed", FilmWithBox(Box("cmov", Box("dcom", "zlib") + Box("cmvd", "x")))},
      {"mp4-hls", Box("ftyp", "isom" + Big(0, 4)) + Hls(Http(to))},
      {"mp4-hls-far-into-it",
       Sample("film.mp4") + Box("free", std::string(1'100'000, ' ')) + Box("free", Hls(Http(to))),
       true},
      {"avi-with-texts", Chunk("RIFF", "AVI " + head + Chunk("LIST", "movi" + subtitle))},
      {"avi-with-texts-after-pictures", avi(Chunk("LIST", "strl" + pictures + texts))},
      {"avi-with-texts-beside-pictures",
       avi(Chunk("LIST", "strl" + pictures) + Chunk("LIST", "INFO" + texts))},
      {"flv-hls", std::string("FLV\x01\x05\0\0\0\x09\0\0\0\0", 13) + Hls(Http(to))},
      {"matroska-hls", "\x1A\x45\xDF\xA3\x8B\x42\x82\x88matroska" + Hls(Http(to))},
      // The beginning of a film without anything after it: players say so while they open it.
      {"matroska-without-film", "\x1A\x45\xDF\xA3\x8B\x42\x82\x88matroska\x18\x53\x80\x67\x80",
       true},
      {"mpeg-hls", std::string("\0\0\x01\xBA", 4) + Hls(Http(to))},
      {"transport-hls", "G" + Hls(Http(to))},
      {"wmv", "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9" + Utf16(Http(to))},
      {"flash", "FWS\x06" + std::string(20, '\0') + Http(to)}};
}

// Players look for references in boxes within boxes, and in some outside the description.
Media FilmsThatHideReferences(const Lures& to) {
  const std::string url = Box("url ", Big(0, 4) + Http(to) + '\0');
  const std::string references = Box("dref", Big(0, 4) + Big(1, 4) + url);
  Media films;
  for (const char* name : {"udta", "edts", "mvex", "tref", "wave", "sinf", "free", "what"}) {
    films.push_back({std::string("mp4-elsewhere-in-") + name, FilmWithBox(Box(name, references))});
  }
  const std::string entry =
      Box("stsd", Big(0, 4) + Big(1, 4) +
                      Box("mp4a", std::string(28, '\0') + Box("wave", Box("sinf", references))));
  const std::string film = Sample("film.mp4");
  const std::string afterMvhd = Box("mvhd", std::string(100, '\0')) + Box("trak", references);
  films.push_back({"mp4-elsewhere-in-an-entry", FilmWithBox(Box("trak", Box("stbl", entry)))});
  films.push_back({"mp4-elsewhere-in-a-piece", film + Box("moof", Box("traf", references))});
  films.push_back({"mp4-elsewhere-by-itself", film + references});
  films.push_back({"mp4-elsewhere-in-padding", film + Box("free", afterMvhd)});
  films.push_back({"mp4-packed-deeper", FilmWithBox(Box("udta", Box("cmov", "x")))});
  return films;
}

// The sound that follows them is whole; but a player that looked at their beginning took them for a
// list.
Media ListsBeforeASound(const Lures& to) {
  const std::string sound = Mp3Frames(40);
  const std::string concat = "ffconcat version 1.0\nfile '" + to.file + "'\n";
  const std::string list = "[playlist]\nFile1=" + Http(to) + "\nNumberOfEntries=1\n";
  const std::string asx =
      "<ASX version=\"3.0\"><entry><ref href=\"" + Http(to) + "\"/></entry></ASX>";
  return {
      {"hls-with-sound", Hls(Http(to)) + sound},
      {"hls-with-mark-and-sound", "\xEF\xBB\xBF" + Hls(Http(to)) + sound},
      {"hls-utf16-with-sound", Utf16(Hls(Http(to))) + sound},
      {"m3u-with-sound", "#EXTM3U\n" + to.file + "\n" + sound},
      {"m3u-with-controls-and-sound", "#EXTM3U\n" + to.file + "\n\x01\x02" + sound},
      {"bare-path-with-sound", to.file + "\n" + sound},
      {"pls-with-sound", list + sound},
      {"pls-with-controls-and-sound", "[PlayList]\x01\n" + list + sound},
      {"asx-with-sound", asx + sound},
      {"asx-with-controls-and-sound", " \r\n<asx>\x01" + asx + sound},
      {"xml-with-sound", "<?xml\x01?>" + asx + sound},
      {"smil-with-sound", "<smil><body><audio src=\"" + Http(to) + "\"/></body></smil>" + sound},
      {"concat-with-sound", concat + sound},
      {"sdp-with-sound", Sdp(to) + sound},
      {"tag-pls-with-sound", Id3(std::string(64, '\0')) + std::string(99, '\0') + list + sound},
      {"midi-with-sound", std::string("MThd\0\0\0\x06\0\0\0\x01\0\x60MTrk", 18) + sound}};
}

}  // namespace

std::vector<HostileMedium> HostileMedia(const Lures& lures) {
  Media all;
  for (const auto& some :
       {Streams(lures), Lists(lures), TaggedLists(lures), Sounds(lures), Films(lures),
        FilmsThatHideReferences(lures), ListsBeforeASound(lures)}) {
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

}  // namespace media_tests
