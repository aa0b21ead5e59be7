#include "platform/windows/application.h"

#include <QApplication>
#include <QThread>
#include <QWidget>
#include <cstdlib>
#include <utility>

#include "platform/failure.h"
#include "platform/qt/conversions.h"
#include "platform/qt/fonts.h"
#include "platform/qt/notice.h"
#include "platform/qt/toolkit_texts.h"
#include "platform/qt/trampoline.h"
#include "platform/windows/message_box.h"

namespace platform {
namespace {

bool processHasEnded = false;
int endStatus = 0;

void EndWithFailure(const Text& description) {
  processHasEnded = true;
  ShowNotice(description, kApplicationTitle);
  // Handlers of outer event loops are still on the stack: nothing of them may run again.
  std::quick_exit(1);
}

// Tells when an event is done. One that is sent out of the middle of another is a part of that; one
// of a nested loop stands for itself.
class ToolApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    if (QThread::currentThread() != thread()) return QApplication::notify(receiver, event);
    const int level = thread()->loopLevel();
    const bool ofLoop = level > level_;
    const int before = std::exchange(level_, level);
    const bool result = QApplication::notify(receiver, event);
    // What the watches send themselves is a part of it, too.
    if (ofLoop) TellEventWatches();
    level_ = before;
    return result;
  }

 private:
  int level_ = -1;  // of the loop whose event is being handled
};

}  // namespace

struct Application::Peer {
  Peer(int& argc, char** argv) : application(argc, argv) { MakeNoticesKnown(); }
  ToolApplication application;
};

Application::Application(int& argc, char** argv) {
  peer_ = std::make_unique<Peer>(argc, argv);
  processHasEnded = false;
  MakeToolkitSpeakPersian(peer_->application);
  QApplication::setFont(WindowFont());
  QApplication::setQuitOnLastWindowClosed(false);
}

Application::~Application() = default;

int Application::Run(const std::function<void()>& start) {
  FromEvent(start);
  return processHasEnded ? endStatus : QApplication::exec();
}

void EndProcess(int status) {
  processHasEnded = true;
  endStatus = status;
  for (QWidget* window : QApplication::topLevelWidgets()) window->hide();
  QCoreApplication::exit(status);
}

bool ProcessHasEnded() { return processHasEnded; }

void FromEvent(const std::function<void()>& handler) {
  if (processHasEnded || !handler) return;
  CatchingFailure(handler, EndWithFailure);
}

}  // namespace platform
