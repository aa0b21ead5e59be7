#include "tests/media/walk/watched.h"

#include <QDir>
#include <QFile>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <algorithm>
#include <array>

#include "tests/media/media_bytes.h"
#include "tests/viewer/window_bench.h"

namespace media_tests {
namespace {

constexpr int kLongest = 280'000;

QString TheLine(const QByteArray& output) {
  return QString::fromUtf8(output).trimmed().section(u'\n', -1);
}

}  // namespace

Watched::Watched() {
  for (const char* name : {"home", "run", "books"}) QDir(folder_.path()).mkdir(QLatin1String(name));
  QFile::setPermissions(PathOf(QStringLiteral("run")),
                        QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  QFile lure(QString::fromStdString(Lure()));
  if (lure.open(QIODevice::WriteOnly)) lure.write(QByteArray::fromStdString(Sample("film.ts")));
  const QString socket = PathOf(QStringLiteral("sound"));
  // With rewinds it would hold two seconds of each sound, and its end for as long.
  server_.setProcessEnvironment(Environment({}));
  server_.setProcessChannelMode(QProcess::MergedChannels);
  server_.start(QStringLiteral("pulseaudio"),
                {QStringLiteral("-n"), QStringLiteral("--daemonize=no"),
                 QStringLiteral("--exit-idle-time=-1"), QStringLiteral("--use-pid-file=no"),
                 QStringLiteral("--disable-shm=yes"), QStringLiteral("-L"),
                 QStringLiteral("module-null-sink norewinds=1"), QStringLiteral("-L"),
                 QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") + socket});
  const bool runs = server_.waitForStarted() && viewer_tests::Await([&] {
                      return QFile::exists(socket) || server_.state() == QProcess::NotRunning;
                    });
  if (!runs || !QFile::exists(socket)) {
    lack_ = QStringLiteral("no sound server: ") + server_.errorString() + u' ' +
            TheLine(server_.readAll());
  }
}

Watched::~Watched() {
  server_.kill();
  server_.waitForFinished();
}

QString Watched::LackOfStrace() {
  QProcess strace;
  strace.setProcessChannelMode(QProcess::MergedChannels);
  strace.start(QStringLiteral("strace"), {QStringLiteral("-f"), QStringLiteral("-o"),
                                          QStringLiteral("/dev/null"), QStringLiteral("true")});
  if (!strace.waitForStarted()) return QStringLiteral("strace isn't there");
  strace.waitForFinished();
  if (strace.exitStatus() == QProcess::NormalExit && strace.exitCode() == 0) return {};
  return QStringLiteral("strace may not look: ") + TheLine(strace.readAll());
}

QProcessEnvironment Watched::Environment(const QString& backend) const {
  QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
  all.insert(QStringLiteral("HOME"), PathOf(QStringLiteral("home")));
  all.insert(QStringLiteral("XDG_RUNTIME_DIR"), PathOf(QStringLiteral("run")));
  all.insert(QStringLiteral("TMPDIR"), PathOf(QStringLiteral("books")));
  all.insert(QStringLiteral("PULSE_SERVER"),
             QStringLiteral("unix:") + PathOf(QStringLiteral("sound")));
  all.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
  all.insert(QStringLiteral("QT_MEDIA_BACKEND"), backend);
  // The leak checker can't work where another looks on, and the players' libraries aren't ours.
  all.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
  for (const char* name :
       {"XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "DISPLAY", "WAYLAND_DISPLAY",
        "DBUS_SESSION_BUS_ADDRESS", "GST_PLUGIN_FEATURE_RANK", "http_proxy", "https_proxy"}) {
    all.remove(QLatin1String(name));
  }
  return all;
}

QStringList Watched::Run(const QString& backend, const QStringList& arguments) {
  QProcess walk;
  walk.setProcessEnvironment(Environment(backend));
  walk.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  walk.start(arguments.first(), arguments.mid(1));
  walk.waitForFinished(kLongest);
  printed_ = QString::fromUtf8(walk.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
  return printed_;
}

std::vector<Reach> Watched::Watch(const QString& backend, const QStringList& arguments) {
  const QString log = PathOf(QStringLiteral("strace.log"));
  QFile::remove(log);
  // With --seccomp-bpf only these calls are stopped at, which takes half the time.
  Run(backend,
      QStringList{QStringLiteral("strace"), QStringLiteral("-f"), QStringLiteral("--seccomp-bpf"),
                  QStringLiteral("-o"), log, QStringLiteral("-e"),
                  QStringLiteral("trace=open,openat,openat2,creat,socket,connect,bind,"
                                 "sendto,sendmsg,execve")} +
          arguments);
  QFile file(log);
  return file.open(QIODevice::ReadOnly) ? ReadStrace(file.readAll().toStdString())
                                        : std::vector<Reach>();
}

// The machine's programs with their fonts, settings and caches, and what the test has given.
bool Watched::IsHome(const std::string& call) const {
  // Netlink is the system's own news; in the folders for temporary files the players' compiler asks
  // for room, without a name; the cache of names is asked for the user's.
  constexpr std::array<std::string_view, 6> kCalls = {
      "socket AF_UNIX", "socket AF_NETLINK", "open /dev",
      "open /tmp",      "open /var/tmp",     "connect /var/run/nscd/socket"};
  if (std::ranges::find(kCalls, call) != kCalls.end()) return true;
  if (call.starts_with("connect {sa_family=AF_NETLINK")) return true;
  const std::string own = folder_.path().toStdString() + '/';
  if (call == "connect " + own + "sound") return true;
  for (const std::string& place :
       {own, std::string("/usr/"), std::string("/lib"), std::string("/etc/"), std::string("/proc/"),
        std::string("/sys/"), std::string("/dev/"), std::string("/var/cache/fontconfig/"),
        std::string(ZORVAND_SOURCE_DIR "/")}) {
    if (call.starts_with("open " + place) || call.starts_with("start " + place)) return true;
  }
  return false;
}

std::vector<std::string> Watched::Offences(const std::vector<Reach>& all) const {
  std::vector<std::string> offences;
  for (const Reach& reach : all) {
    const std::string line = reach.during + ": " + reach.call;
    const bool isNew = std::ranges::find(offences, line) == offences.end();
    if (!IsHome(reach.call) && isNew) offences.push_back(line);
  }
  return offences;
}

}  // namespace media_tests
