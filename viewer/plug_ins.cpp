#include "viewer/plug_ins.h"

#include <QByteArray>
#include <QList>
#include <QMediaFormat>
#include <utility>

namespace viewer {
namespace {

constexpr const char* kRanks = "GST_PLUGIN_FEATURE_RANK";

// What reads lists, and what fetches that which they name. Names that a machine doesn't have are no
// matter.
constexpr const char* kStayOut =
    "hlsdemux:NONE,hlsdemux2:NONE,dashdemux:NONE,dashdemux2:NONE,mssdemux:NONE,mssdemux2:NONE,"
    "sdpdemux:NONE,sdpsrc:NONE,rtspsrc:NONE,rtspwms:NONE,rtspreal:NONE,rtpsrc:NONE,udpsrc:NONE,"
    "souphttpsrc:NONE,curlhttpsrc:NONE,neonhttpsrc:NONE,rtmpsrc:NONE,rtmp2src:NONE,srtsrc:NONE,"
    "ristsrc:NONE,pnmsrc:NONE,giosrc:NONE,dataurisrc:NONE,webrtcbin:NONE";

}  // namespace

// The second wall, behind Medium::Open: GStreamer, which plays for the toolkit unless the reader
// wants another, chooses its plug-ins by its own look at a file, and where that differs from ours
// it must still find none that leaves the book. It reads the variable once, as it starts, and
// writes it into no cache. The programs that open attachments are started later and must not
// inherit it: their reader may well want to hear the radio.
void KeepPlugInsAtHome() {
  static bool isDone = false;
  if (std::exchange(isDone, true)) return;
  const bool wasSet = qEnvironmentVariableIsSet(kRanks);
  const QByteArray before = qgetenv(kRanks);
  qputenv(kRanks, before.isEmpty() ? QByteArray(kStayOut) : before + ',' + kStayOut);
  static_cast<void>(QMediaFormat().supportedFileFormats(QMediaFormat::Decode));  // starts it
  wasSet ? qputenv(kRanks, before) : qunsetenv(kRanks);
}

}  // namespace viewer
