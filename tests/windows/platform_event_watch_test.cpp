// What is called after each event, and a while later.
#include "platform/windows/event_watch.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QObject>
#include <QTimer>
#include <functional>
#include <string>

#include "tests/support/robot.h"

namespace {

using platform::EventWatch;
using testing_support::Robot;

// Runs an act as an event of its own.
class Receiver : public QObject {
 public:
  std::function<void()> act;
  bool event(QEvent* event) override {
    if (event->type() != QEvent::User) return QObject::event(event);
    act();
    return true;
  }
  void Post() { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }
  void Send() {
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(this, &event);
  }
};

TEST(EventWatch, IsToldAfterEachEventAndNotInTheMiddleOfOne) {
  std::string told;
  const EventWatch watch([&] { told += '.'; });
  Receiver outer;
  Receiver inner;
  inner.act = [&] { told += 'i'; };
  outer.act = [&] {
    told += '(';
    inner.Send();
    told += ')';
  };
  outer.Send();
  EXPECT_EQ(told, "(i).");
}

TEST(EventWatch, WhatItSendsItselfIsNotToldAgain) {
  std::string told;
  Receiver receiver;
  receiver.act = [&] { told += 'e'; };
  const EventWatch watch([&] {
    told += '<';
    if (told.size() < 20) receiver.Send();
    told += '>';
  });
  receiver.Send();
  EXPECT_EQ(told, "e<e>");
}

TEST(EventWatch, AnEventOfANestedLoopStandsForItself) {
  std::string told;
  Receiver outer;
  Receiver inner;
  inner.act = [&] { told += 'i'; };
  outer.act = [&] {
    QEventLoop loop;
    inner.Post();
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    const EventWatch watch([&] {
      if (told == "i") told += '.';
    });
    loop.exec();
    told += ')';
  };
  outer.Send();
  EXPECT_EQ(told, "i.)");
}

TEST(EventWatch, CallsLaterOnceAndNotWhenItIsGone) {
  int calls = 0;
  {
    EventWatch watch([] {});
    watch.After(1, [&] { ++calls; });
    Robot::WaitUntil([&] { return calls > 0; });
    watch.After(0, [&] { ++calls; });
  }
  Robot::Settle();
  EXPECT_EQ(calls, 1);
}

}  // namespace
