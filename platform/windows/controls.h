// The controls of a window, as members of it: `TextBox idir{*this, u"idir"};`. Kind, place and text
// come from the window's table of rows; until the window is loaded every use is a Failure.
// Handlers are run by what the user does and, where a change handler is named, by code that writes
// the property: then before the write returns, and a failure in it reaches the writer.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

#include "platform/failure.h"
#include "platform/text/text.h"
#include "platform/windows/window.h"
#include "platform/windows/window_definition.h"

namespace platform {

class Control {
 public:
  Control(Window& window, TextView name, int index = kNoIndex);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  TextView Name() const { return name_; }
  int Index() const { return index_; }

  Twips Left() const;
  Twips Top() const;
  Twips Width() const;
  Twips Height() const;
  void SetLeft(Twips left);
  void SetTop(Twips top);
  void SetWidth(Twips width);
  void SetHeight(Twips height);
  bool Visible() const;
  void SetVisible(bool visible);
  void SetEnabled(bool enabled);
  platform::Text ToolTip() const;
  void SetToolTip(TextView tip);
  void SetFocus();

  std::function<void()> onGotFocus;
  std::function<void()> onLostFocus;

  struct Peer;  // the toolkit's side
  Peer& ThePeer() const;

 private:
  friend class Window;
  Window& window_;
  TextView name_;
  int index_;
  std::unique_ptr<Peer> peer_;
};

// Several controls of one name, told apart by a number; Com(9) is one of them.
template <typename T>
class ControlArray {
 public:
  ControlArray(Window& window, TextView name) {
    for (const ControlRow& row : window.Definition().rows) {
      if (row.name == name) elements_.push_back(std::make_unique<T>(window, name, row.index));
    }
  }
  // Failure for a number that the window's table doesn't have.
  T& operator()(std::ptrdiff_t index) const {
    for (const auto& element : elements_) {
      if (element->Index() == index) return *element;
    }
    throw Failure(u"Control array element doesn't exist");
  }
  template <typename Visit>
  void ForEach(Visit visit) const {
    for (const auto& element : elements_) visit(*element);
  }

 private:
  std::vector<std::unique_ptr<T>> elements_;
};

class Frame : public Control {
 public:
  using Control::Control;
};

class Label : public Control {
 public:
  using Control::Control;
  platform::Text Caption() const;
  void SetCaption(TextView caption);
};

class Button : public Control {
 public:
  using Control::Control;
  platform::Text Caption() const;
  void SetCaption(TextView caption);
  std::function<void()> onClick;
};

class CheckBox : public Control {
 public:
  using Control::Control;
  bool Value() const;
  void SetValue(bool on);  // runs no handler
  std::function<void()> onClick;
  std::function<void()> onMouseUp;  // once the box has its new value
};

// One of several of which one is on: those that share a parent and a name.
class OptionButton : public Control {
 public:
  using Control::Control;
  bool Value() const;
  // Switching one on switches the others off and runs onClick where it was off before.
  void SetValue(bool on);
  std::function<void()> onClick;
  std::function<void()> onKeyUp;
};

// One line. Line breaks that code writes stay in the text, whatever the widget shows for them.
class TextBox : public Control {
 public:
  using Control::Control;
  platform::Text Text() const;
  void SetText(TextView text);  // runs onChange where the text differs
  void SetSelStart(Position start);
  void SetSelLength(Position length);
  void SelectAll();
  Position SelStart() const;
  Position SelLength() const;
  void SetLocked(bool locked);
  std::function<void()> onChange;
  std::function<void(int keyCode)> onKeyPress;  // the character's code, Ctrl+A is 1
};

class ListBox : public Control {
 public:
  using Control::Control;
  Position ListCount() const;
  Position ListIndex() const;  // -1 when no line is selected
  void SetListIndex(Position index);
  platform::Text List(Position index) const;
  void SetList(Position index, TextView text);
  void AddItem(TextView text);
  void InsertItem(Position index, TextView text);
  void RemoveItem(Position index);  // if it was selected, no line is any more
  void Clear();
  std::function<void()> onClick;    // a line was chosen, by mouse or key
  std::function<void()> onMouseUp;  // any button, wherever in the list
};

class ComboBox : public Control {
 public:
  using Control::Control;
  Position ListCount() const;
  Position ListIndex() const;  // -1 when nothing is selected
  void SetListIndex(Position index);
  platform::Text List(Position index) const;
  platform::Text Text() const;  // the selected line, or empty
  void AddItem(TextView text);
  void Clear();
};

class DriveList : public Control {
 public:
  using Control::Control;
  platform::Text Drive() const;  // "C:"
  // Takes the drive of any path. Failure where there is no such drive. Runs onChange if it differs.
  void SetDrive(TextView drive);
  std::function<void()> onChange;
};

class FolderList : public Control {
 public:
  using Control::Control;
  platform::Text Path() const;  // the folder that is open, not one that is only highlighted
  // Failure where there is no such folder. Runs onChange where the folder differs.
  void SetPath(TextView path);
  std::function<void()> onChange;
};

class FileList : public Control {
 public:
  using Control::Control;
  platform::Text Path() const;
  void SetPath(TextView path);
  void SetPattern(TextView pattern);  // masks separated by ";", letter case doesn't count
  platform::Text FileName() const;    // the selected name without a path, or empty
  std::function<void()> onDoubleClick;
};

class ImageBox : public Control {
 public:
  using Control::Control;
  // JPEG, GIF or bitmap, decoded at the size shown. Failure if it can't be loaded.
  void LoadPicture(TextView path);
  void ClearPicture();
  bool HasPicture() const;
  platform::Text Tag() const;
  void SetTag(TextView tag);
  std::function<void()> onClick;
};

class ScrollBar : public Control {
 public:
  using Control::Control;
  int Value() const;
  void SetValue(int value);  // runs onChange where the value differs
  void SetMax(int maximum);  // a value beyond it comes down, which runs onChange
  void SetSmallChange(int step);
  void SetLargeChange(int step);
  std::function<void()> onChange;
};

// Opens over the window when it is told to, at the pointer or, for the keyboard, at what has the
// focus. It is gone with a choice or a click elsewhere; Show doesn't wait for that.
class PopupMenu : public Control {
 public:
  using Control::Control;
  void Show();
};

class MenuItem : public Control {
 public:
  using Control::Control;
  std::function<void()> onClick;
};

class Timer : public Control {
 public:
  using Control::Control;
  bool TimerEnabled() const;
  void SetTimerEnabled(bool enabled);
  std::function<void()> onTimer;
};

}  // namespace platform
