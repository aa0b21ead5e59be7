// A window of the tool. The object lives as long as its owner wants; the window on the screen comes
// with Load and goes with Unload. Everything that needs the screen is a Failure while unloaded.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/text/text.h"
#include "platform/windows/window_definition.h"

namespace platform {

class Control;

enum class WindowState : std::uint8_t { kNormal, kMinimised, kMaximised };

class Window {
 public:
  explicit Window(const WindowDefinition& definition);
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window();

  // Makes the controls as designed, then runs Form_Load. Does nothing when loaded.
  void Load();
  // Loads if need be and shows, not modal.
  void Show();
  // Shows over `owner` (nullptr: over nothing) and returns once hidden or unloaded. Other windows
  // get no input meanwhile; events go on.
  void ShowModal(Window* owner);
  // Loads if need be and shows next to `owner`, not modal and in front of it. The focus stays with
  // that window; Ctrl+Tab takes it over to this one, and back.
  void ShowBeside(const Window& owner);
  // Tells a screen reader what the labels of a window that was shown so say by now.
  void Announce();
  void Hide();
  // Runs Form_Unload, then takes the window and its controls off the screen for good.
  void Unload();

  bool IsLoaded() const { return peer_ != nullptr; }
  bool IsVisible() const;
  WindowState State() const;
  void SetState(WindowState state);

  // Of the inside, in twips.
  Twips Width() const;
  Twips Height() const;
  void SetWidth(Twips width);
  void SetHeight(Twips height);

  // Failure where no member has that name and index.
  Control& ControlNamed(TextView name, int index) const;

  const WindowDefinition& Definition() const { return definition_; }

  struct Peer;  // the toolkit's side
  Peer& ThePeer() const;

 protected:
  virtual void Form_Load() {}
  virtual void Form_Unload() {}
  virtual void Form_Resize() {}
  virtual void Form_Paint() {}
  // What the window's own close button does: unload (the default) or only hide.
  virtual bool CloseHides() const { return false; }
  virtual void Form_Close() { CloseHides() ? Hide() : Unload(); }

 private:
  friend class Control;
  void Register(Control& control);
  void Unregister(Control& control);
  Control* FindControl(TextView name, int index) const;
  void BuildControls();
  void TakeApart();

  const WindowDefinition& definition_;
  std::vector<Control*> controls_;
  std::unique_ptr<Peer> peer_;
};

}  // namespace platform
