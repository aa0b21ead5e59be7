// Drives the real windows as an editor would: finds controls by their object names, types, clicks,
// selects, presses function keys and answers the boxes that come up.
#pragma once

#include <QObject>
#include <QString>
#include <QWidget>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

class QTextEdit;

namespace testing_support {

class Robot : public QObject {
 public:
  Robot();
  Robot(const Robot&) = delete;
  Robot& operator=(const Robot&) = delete;
  ~Robot() override;

  // A message box as the editor saw it.
  struct Box {
    QString title;
    QString text;
    int buttons = 0;
  };

  // Top-level window by name; nullptr if it isn't there. Windows that are only hidden are found.
  static QWidget* FindWindow(const QString& window);
  // "Form3", "Com(9)". Throws std::runtime_error with both names if there is none.
  static QWidget& Find(const QString& window, const QString& control);
  template <typename WidgetType>
  static WidgetType& FindAs(const QString& window, const QString& control) {
    return dynamic_cast<WidgetType&>(Find(window, control));
  }

  // Clicks where an editor would, with the left button. A control that is hidden, disabled or not
  // on the screen is an error.
  static void Click(const QString& window, const QString& control);
  // With the right button, into the middle of what the control shows.
  static void RightClick(const QString& window, const QString& control);
  // Clicks an item of the menu that is open; an error if it isn't shown or can't be chosen.
  static void ChooseFromMenu(const QString& menu, const QString& item);
  // Clicks into the field, takes all that stands there and types.
  static void Type(const QString& window, const QString& control, const QString& text);
  static void PressKey(const QString& window, const QString& control, int key,
                       Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  // What a list shows.
  static std::vector<std::string> Lines(const QString& window, const QString& list);
  // The line in bold, which in a list of folders is the one that is open; an error if none is.
  static std::string BoldLine(const QString& window, const QString& list);
  // A line of a list, by number or by its text (-1 lines: an error).
  static void ClickLine(const QString& window, const QString& list, int line);
  static void ClickLine(const QString& window, const QString& list, const QString& text);
  static void DoubleClickLine(const QString& window, const QString& list, const QString& text);
  // Picks an entry of a drop-down list with the keys.
  static void Choose(const QString& window, const QString& combo, int entry);
  // Selects characters of a rich-text box, a paragraph end counting one.
  static void Select(const QString& window, const QString& box, int start, int length);
  // Selects the first occurrence of `text`; an error if it isn't there.
  static void Select(const QString& window, const QString& box, const QString& text);
  static void CloseWindow(const QString& window);
  // Lets all events run that are waiting.
  static void Settle();
  // Lets events run until `holds`; an error after `milliseconds`. For what waits on a timer.
  static void WaitUntil(const std::function<bool()>& holds, int milliseconds = 5000);

  // The button for the next Yes/No box; without one it is No. Notices are always closed with OK.
  void AnswerYes() { answers_.push_back(true); }
  void AnswerNo() { answers_.push_back(false); }
  // What to do when a window (a chooser, say) comes up modally; done once for each call.
  void WhenShown(const QString& window, std::function<void()> act);
  // All boxes since the last call.
  std::vector<Box> TakeBoxes();
  // Called with each box before it is answered, for taking pictures.
  std::function<void(QWidget& box)> onBox;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AnswerBox(QObject* object);

  std::deque<bool> answers_;
  std::map<QString, std::deque<std::function<void()>>> waiting_;
  std::vector<Box> boxes_;
};

}  // namespace testing_support
