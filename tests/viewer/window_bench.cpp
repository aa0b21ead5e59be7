#include "tests/viewer/window_bench.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDirIterator>
#include <QImage>
#include <QMessageBox>
#include <QTest>
#include <QTextEdit>
#include <QTimer>

#include "tests/media/media_bytes.h"

namespace viewer_tests {
namespace {

// Made with the first test, so that the programs that only read books never load it.
class WithApplication : public testing::Environment {
 public:
  void SetUp() override {
    if (!qApp) application_ = std::make_unique<QApplication>(count_, arguments_);
    QApplication::setLayoutDirection(Qt::RightToLeft);
  }
  // Before the toolkit's own globals go.
  void TearDown() override { application_.reset(); }

 private:
  int count_ = 1;
  char name_[5] = "test";
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};
const auto* const kApplication = testing::AddGlobalTestEnvironment(new WithApplication);

class SilentPlayer : public viewer::Player {
 public:
  explicit SilentPlayer(std::shared_ptr<Asked> asked) : asked_(std::move(asked)) {}
  void Play(std::unique_ptr<book::Medium> medium) override {
    asked_->sounds << QStringLiteral("play ") + QFileInfo(medium->Path()).fileName();
    asked_->endOfLastSound = [this](bool played) { onEnd(played); };
  }
  void Pause() override { asked_->sounds << QStringLiteral("pause"); }
  void Resume() override { asked_->sounds << QStringLiteral("resume"); }
  void Stop() override { asked_->sounds << QStringLiteral("stop"); }

 private:
  std::shared_ptr<Asked> asked_;
};

QByteArray SilentSound() { return QByteArray::fromStdString(media_tests::Mp3Frames(8)); }
QByteArray SmallFilm() { return QByteArray::fromStdString(media_tests::Sample("film.mp4")); }

QString Settings(const BookPlan& plan) {
  return QStringLiteral(
             "<strings>\r\n\t<aNumber>2</aNumber>\r\n\t<bNumber>1</bNumber>\r\n"
             "\t<cNumber>1</cNumber>\r\n\t<Olgoo>%1</Olgoo>\r\n\t<Music>%2</Music>\r\n"
             "\t<Print>%3</Print>\r\n</strings>")
      .arg(plan.layout)
      .arg(plan.music ? 1 : 0)
      .arg(plan.print ? 1 : 0);
}

void MakeIndexAndGalleries(const BookMaker& maker) {
  maker.Write(QStringLiteral("Data/_xml/Index.xml"),
              QStringLiteral("<strings>\r\n\t<aTitle0>Designed</aTitle0>\r\n"
                             "\t<aTitle1 vol=\"txt\">باغ‌ها & گل‌ها</aTitle1>\r\n"
                             "\t<aTitle2 vol=\"txt\">قصه‌ها</aTitle2>\r\n\r\n"
                             "\t<bTitle1 vol=\"pic1\">نگارخانه</bTitle1>\r\n"
                             "\t<cTitle1 vol=\"txt\">شعر</cTitle1>\r\n"));
  maker.Write(QStringLiteral("Data/_xml/bTitle1.xml"),
              QStringLiteral("<?xml version=\"1.0\"?>\r\n<gallery>\r\n"
                             "\t<img dtl=\"نخست\">Data/IMG/P1.jpg</img>\r\n"
                             "\t<img dtl=\"دوم\">Data/IMG/P2.jpg</img>\r\n"
                             "\t<img dtl=\"گم\">Data/IMG/P3.jpg</img>\r\n</gallery>\r\n"));
  maker.Write(QStringLiteral("Data/_xml/GAL.xml"),
              QStringLiteral("<?xml version=\"1.0\"?>\r\n<gallery>\r\n"
                             "\t<img dtl=\"در متن\">Data/IMG/P1.jpg</img>\r\n</gallery>\r\n"));
  MakePicture(maker, QStringLiteral("Data/IMG/P1.jpg"));
  MakePicture(maker, QStringLiteral("Data/IMG/P2.jpg"));
}

void MakeContents(const BookMaker& maker) {
  maker.Write(
      QStringLiteral("Data/_xml/aTitle1.xml"),
      QStringLiteral(
          "<?xml version=\"1.0\"?>\r\n<Tree>\r\n"
          "\t<node label=\"یکم\" src=\"DATA/TXT/ONE.htm\" mediaStatus=\"000\" pic=\"0\" />\r\n"
          "\t<node label=\"فصل\">\r\n"
          "\t\t<node label=\"دوم\" src=\"DATA/TXT/TWO.htm\" mediaStatus=\"111\" snd=\"0\""
          " pas=\".pdf\" pic=\"0\" />\r\n"
          "\t\t<node label=\"عکس‌ها\" src=\"DATA/_xml/GAL.xml\" mediaStatus=\"000\""
          " pic=\"1\" />\r\n"
          "\t</node>\r\n"
          "\t<node label=\"برنامه\" src=\"DATA/TXT/EXE.htm\" mediaStatus=\"100\" snd=\"1\""
          " pas=\".exe\" pic=\"0\" />\r\n"
          "\t<node label=\"گم‌شده\" src=\"DATA/TXT/GONE.htm\" mediaStatus=\"111\" snd=\"0\""
          " pas=\".pdf\" pic=\"0\" />\r\n</Tree>\r\n"));
  for (const char* key : {"aTitle2", "cTitle1"}) {
    maker.Write(QStringLiteral("Data/_xml/%1.xml").arg(QLatin1String(key)),
                QStringLiteral("<?xml version=\"1.0\"?>\r\n<Tree>\r\n"
                               "\t<node label=\"%1\" src=\"DATA/TXT/%1.htm\" mediaStatus=\"000\""
                               " pic=\"0\" />\r\n</Tree>\r\n")
                    .arg(QLatin1String(key)));
    maker.Write(QStringLiteral("Data/TXT/%1.htm").arg(QLatin1String(key)),
                viewer_tests::PageText(QLatin1String(key), {QStringLiteral("متن كتاب ديگر")}));
  }
}

void MakePages(const BookMaker& maker) {
  maker.Write(QStringLiteral("Data/TXT/ONE.htm"),
              PageText(QStringLiteral("یکم"),
                       {QStringLiteral("متن نخست"), QStringLiteral("روباهي در باغ است")}));
  QString two = PageText(QStringLiteral("دوم"), {QStringLiteral("متن دوم")});
  two += QStringLiteral("<IMG src=\"Data/IMG/P1.jpg\">\r\n<pgMain>پس از تصویر</pgMain>\r\n");
  maker.Write(QStringLiteral("Data/TXT/TWO.htm"), two);
  maker.Write(QStringLiteral("Data/TXT/EXE.htm"),
              PageText(QStringLiteral("برنامه"), {QStringLiteral("متن برنامه")}));
  for (const char* file : {"TWO.pdf", "EXE.exe"}) {
    maker.WriteBytes(QStringLiteral("Data/TXT/") + QLatin1String(file), "bytes");
  }
  maker.WriteBytes(QStringLiteral("Data/TXT/TWO.mp3"), SilentSound());
  maker.WriteBytes(QStringLiteral("Data/TXT/TWO.mp4"), SmallFilm());
}

void ListTree(const QString& folder, QStringList& tree) {
  QDirIterator each(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
  while (each.hasNext()) {
    const QFileInfo info(each.next());
    QFile file(info.filePath());
    const QByteArray bytes =
        info.isFile() && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    tree << info.filePath() +
                QStringLiteral(" %1 %2 ")
                    .arg(info.size())
                    .arg(info.lastModified().toMSecsSinceEpoch()) +
                QString::fromLatin1(
                    QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
  }
}

}  // namespace

viewer::Outside MachineOf(const std::shared_ptr<Asked>& asked) {
  viewer::Outside outside;
  outside.openFile = [asked](const QString& path) {
    asked->opened << QFileInfo(path).fileName();
    return true;
  };
  outside.startProgram = [asked](const QString& path) {
    asked->started << QFileInfo(path).fileName();
    return true;
  };
  outside.showFilm = [asked](std::unique_ptr<book::Medium> film, const QString&, QWidget*,
                             std::function<void()> onClosed) {
    asked->films << QFileInfo(film->Path()).fileName();
    asked->closeLastFilm = std::move(onClosed);
  };
  outside.chooseFolder = [asked](QWidget*) { return asked->chosenFolder; };
  outside.chooseNewFile = [asked](QWidget*, const QString& name) {
    asked->nameOfNewFile = name;
    return asked->newFile;
  };
  outside.makePlayer = [asked] { return std::make_unique<SilentPlayer>(asked); };
  outside.print = [asked](const std::function<void(QPrinter&)>& draw, QWidget*) {
    const QString file =
        asked->folder.filePath(QStringLiteral("%1.pdf").arg(asked->printed.size()));
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    printer.setPageSize(QPageSize(QPageSize::A4));
    if (asked->chosenInDialog) asked->chosenInDialog(printer);
    draw(printer);
    asked->printed << file;
  };
  return outside;
}

void MakeBook(const BookMaker& maker, const BookPlan& plan) {
  maker.Write(QStringLiteral("Data/TXT/CDProperty.xml"), Settings(plan));
  MakeIndexAndGalleries(maker);
  MakeContents(maker);
  MakePages(maker);
  MakePicture(maker, QStringLiteral("Data/FlashIMG/Back.jpg"), {40, 30});
  maker.WriteBytes(QStringLiteral("Data/FlashIMG/Sound1.mp3"), SilentSound());
  maker.WriteBytes(QStringLiteral("Data/FlashIMG/Sound2.mp3"), SilentSound());
}

void MakePicture(const BookMaker& maker, const QString& pathInBook, QSize size) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::darkCyan);
  maker.WriteBytes(pathInBook, {});
  ASSERT_TRUE(image.save(maker.PathOf(pathInBook), "JPG"));
}

QWidget& Find(const QWidget& window, const QString& name) {
  auto* const found = window.findChild<QWidget*>(name);
  if (!found) throw std::runtime_error("there is no " + name.toStdString());
  return *found;
}

void Click(const QWidget& window, const QString& name) {
  QWidget& widget = Find(window, name);
  EXPECT_TRUE(widget.isVisible()) << name.toStdString();
  QTest::mouseClick(&widget, Qt::LeftButton);
}

QListView& ListOf(const QWidget& window, const QString& name) {
  return *qobject_cast<QListView*>(&Find(window, name));
}

void ClickRow(QListView& list, int row) {
  const QModelIndex index = list.model()->index(row, 0);
  list.scrollTo(index);
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(index).center());
}

QStringList RowsOf(const QListView& list) {
  QStringList rows;
  for (int row = 0; row < list.model()->rowCount(); ++row) {
    rows << list.model()->index(row, 0).data().toString();
  }
  return rows;
}

QString PageText(const QWidget& window) {
  return qobject_cast<QTextEdit*>(&Find(window, QStringLiteral("page")))->toPlainText();
}

bool IsSeen(const QWidget& window, const QString& name) {
  const auto* const found = window.findChild<QWidget*>(name);
  return found && found->isVisible();
}

QWidget* TopLevel(const QString& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == name && window->isVisible()) return window;
  }
  return nullptr;
}

std::shared_ptr<QString> AnswerNextBox(const QString& buttonName) {
  auto text = std::make_shared<QString>();
  QTimer::singleShot(0, qApp, [text, buttonName] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    *text = box->text();
    if (buttonName.isEmpty()) return QTest::keyClick(box, Qt::Key_Escape);
    box->findChild<QAbstractButton*>(buttonName)->click();
  });
  return text;
}

bool Await(const std::function<bool()>& holds) { return QTest::qWaitFor(holds, 30'000); }

QStringList TreeOf(const QString& root) {
  QStringList tree;
  ListTree(root, tree);
  tree.sort();
  return tree;
}

}  // namespace viewer_tests
