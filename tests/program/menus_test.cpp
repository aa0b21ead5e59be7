// The program as it is delivered, in a process of its own: the toolkit's menus in it are Persian
// whatever translations the host has.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QDataStream>
#include <QFile>
#include <QLibraryInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTranslator>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/context_menus.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kOfTheHost = "WRONG";

// Of a text and its comment, as the toolkit finds them in its files.
quint32 HashOf(std::string_view text) {
  quint32 hash = 0;
  for (const char letter : text) {
    hash = (hash << 4) + static_cast<unsigned char>(letter);
    const quint32 high = hash & 0xf0000000U;
    if (high != 0) hash ^= high >> 24;
    hash &= ~high;
  }
  return hash == 0 ? 1 : hash;
}

// A file of translations as a host may have one, with one word for a text (QTranslator::load).
QByteArray TranslationOf(const QByteArray& text) {
  constexpr quint8 kHashes = 0x42;
  constexpr quint8 kMessages = 0x69;
  constexpr quint8 kEnd = 1;
  constexpr quint8 kTranslation = 3;
  constexpr quint8 kSource = 6;
  const QString word = QString::fromLatin1(kOfTheHost);
  QByteArray messages;
  QDataStream message(&messages, QIODevice::WriteOnly);
  message << kTranslation << static_cast<quint32>(2 * word.size());
  for (const QChar letter : word) message << static_cast<quint16>(letter.unicode());
  message << kSource << text << kEnd;
  QByteArray hashes;
  QDataStream(&hashes, QIODevice::WriteOnly) << HashOf(text.toStdString()) << quint32(0);
  QByteArray file = QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd");
  QByteArray sections;
  QDataStream(&sections, QIODevice::WriteOnly) << kHashes << hashes << kMessages << messages;
  return file + sections;
}

void Write(const fs::path& path, const QByteArray& bytes) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  ASSERT_EQ(file.write(bytes), bytes.size());
}

class ProgramMenus : public testing::Test {
 protected:
  ProgramMenus() {
    fs::copy(ZORVAND_PROGRAM_FOLDER, program, fs::copy_options::recursive);
    fs::create_directories(translations);
    for (const char* name : {"qtbase_fa.qm", "qt_fa.qm"}) {
      Write(translations / name, TranslationOf("&Copy"));
    }
    // Where the toolkit looks for what the host has.
    Write(program / "qt.conf",
          "[Paths]\nPrefix=" + QLibraryInfo::path(QLibraryInfo::PrefixPath).toUtf8() +
              "\nPlugins=" + QLibraryInfo::path(QLibraryInfo::PluginsPath).toUtf8() +
              "\nTranslations=" + QByteArray::fromStdString(translations.string()) + "\n");
  }

  std::vector<QString> Told() const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), folder.path());
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("fa_IR.UTF-8"));
    environment.insert(QStringLiteral("LANGUAGE"), QStringLiteral("fa"));
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(MENU_READER_FOLDER));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("menu_reader"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QString::fromStdString((program / "zorvand").string()), {});
    EXPECT_TRUE(process.waitForFinished(60000));
    std::vector<QString> lines;
    const QString said = QString::fromUtf8(process.readAllStandardOutput());
    for (const QString& line : said.split(u'\n', Qt::SkipEmptyParts)) lines.push_back(line);
    EXPECT_TRUE(!lines.empty() && lines.back() == QStringLiteral("DONE"))
        << process.readAllStandardError().toStdString();
    return lines;
  }

  QTemporaryDir folder;
  fs::path program = fs::path(folder.path().toStdString()) / "program";
  fs::path translations = fs::path(folder.path().toStdString()) / "translations";
};

TEST_F(ProgramMenus, ArePersianWhateverTheHostHas) {
  QTranslator ofTheHost;
  ASSERT_TRUE(ofTheHost.load(QString::fromStdString((translations / "qtbase_fa.qm").string())));
  ASSERT_EQ(ofTheHost.translate("QLineEdit", "&Copy"), QString::fromLatin1(kOfTheHost));

  std::vector<QString> texts;
  std::map<QString, int> menus;
  for (const QString& line : Told()) {
    if (line == QStringLiteral("DONE")) break;
    if (line.startsWith(QStringLiteral("MENU "))) {
      ++menus[line.section(u' ', 1)];
    } else {
      texts.push_back(line);
    }
  }
  EXPECT_THAT(testing_support::LatinAmong(texts), testing::IsEmpty());
  EXPECT_THAT(texts, testing::Contains(QStringLiteral("كپي\tCtrl+C")));
  for (const char* window : {"Form1", "Form3", "Form4"}) {
    EXPECT_GT(menus[QString::fromLatin1(window) + QStringLiteral(" from the right")], 0) << window;
    EXPECT_EQ(menus[QString::fromLatin1(window) + QStringLiteral(" from the left")], 0) << window;
  }
}

}  // namespace
