// What the viewer asks of the machine beyond its own windows. Tests put their own functions here.
#pragma once

#include <QPrinter>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>

#include "book/medium.h"

namespace viewer {

// Plays one sound at a time. Without a sound card it plays nothing and fails at nothing.
class Player {
 public:
  virtual ~Player() = default;
  virtual void Play(std::unique_ptr<book::Medium> medium) = 0;
  virtual void Pause() = 0;
  virtual void Resume() = 0;
  virtual void Stop() = 0;

  // The sound has come to its end (true), or can't be played (false).
  std::function<void(bool)> onEnd;
};

struct Outside {
  // With the program that the machine has for it; false if there is none.
  std::function<bool(const QString& path)> openFile;
  // Starts it in its own folder and doesn't wait for it.
  std::function<bool(const QString& path)> startProgram;
  // Calls onClosed once: when the reader closes the film, or there is nothing to see.
  std::function<void(std::unique_ptr<book::Medium> film, const QString& title, QWidget* parent,
                     std::function<void()> onClosed)>
      showFilm;
  std::function<std::unique_ptr<Player>()> makePlayer;
  // Asks for a printer, and draws on the one that the reader has chosen.
  std::function<void(const std::function<void(QPrinter&)>& draw, QWidget* parent)> print;
  // Asks for the folder of a book; empty if the reader has none to name.
  std::function<QString(QWidget* parent)> chooseFolder = nullptr;
  // Asks where a file is to be written, under this name unless the reader has another; empty if
  // nowhere.
  std::function<QString(QWidget* parent, const QString& name)> chooseNewFile = nullptr;
  // Where the viewer may remember what it is told; empty where it remembers nothing.
  QString memoryFolder = {};
};

Outside TheMachine();

}  // namespace viewer
