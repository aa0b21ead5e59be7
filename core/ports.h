// What the project window asks of the rooms above it. main.cpp hands in the real windows.
#pragma once

#include "core/entry_media.h"
#include "platform/text/text.h"
#include "platform/windows/window.h"

namespace core {

class WorkbenchPort {
 public:
  WorkbenchPort() = default;
  WorkbenchPort(const WorkbenchPort&) = delete;
  WorkbenchPort& operator=(const WorkbenchPort&) = delete;
  virtual ~WorkbenchPort() = default;
  virtual void ShowWorkbench() = 0;
  virtual void RestoreWorkbench() = 0;     // to the normal window state
  virtual void StartWorkbenchTimer() = 0;  // the workbench's own minimise watch
  virtual void SetChosenImage(platform::TextView path) = 0;
  virtual void RemFol(int which) = 0;
  virtual void SetGalFol(platform::TextView folder, int which) = 0;
};

class ParagraphPort {
 public:
  ParagraphPort() = default;
  ParagraphPort(const ParagraphPort&) = delete;
  ParagraphPort& operator=(const ParagraphPort&) = delete;
  virtual ~ParagraphPort() = default;
  // A file was chosen. A background's path becomes the tag, and TgDo shows it.
  virtual void SetMedium(Medium medium, platform::TextView path) = 0;
};

class HelpPort {
 public:
  HelpPort() = default;
  HelpPort(const HelpPort&) = delete;
  HelpPort& operator=(const HelpPort&) = delete;
  virtual ~HelpPort() = default;
  virtual void ShowHelp(platform::Window& owner) = 0;
};

class ExportPort {
 public:
  ExportPort() = default;
  ExportPort(const ExportPort&) = delete;
  ExportPort& operator=(const ExportPort&) = delete;
  virtual ~ExportPort() = default;
  virtual void Export() = 0;
};

// A port that isn't wired (nullptr) makes the request do nothing.
struct Ports {
  WorkbenchPort* workbench = nullptr;
  ParagraphPort* paragraph = nullptr;
  HelpPort* help = nullptr;
  ExportPort* exporting = nullptr;
};

}  // namespace core
