#include "platform/windows/application.h"

#include <QApplication>
#include <QFont>
#include <QWidget>
#include <cstdlib>

#include "platform/failure.h"
#include "platform/qt/conversions.h"
#include "platform/qt/fonts.h"
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

}  // namespace

struct Application::Peer {
  Peer(int& argc, char** argv) : application(argc, argv) {}
  QApplication application;
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
