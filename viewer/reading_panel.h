// The dialog in which a reader chooses how texts look. What is chosen is seen at once.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QSpinBox>
#include <functional>

#include "viewer/reading_style.h"

namespace viewer {

class ReadingPanel : public QDialog {
 public:
  ReadingPanel(const ReadingStyle& style, QWidget* parent);

  std::function<void(const ReadingStyle&)> onChange;

 private:
  void MakeLetters(const QString& chosen);
  void MakeColours();
  void Tell();

  QComboBox letters_;
  QSpinBox pixels_;
  QComboBox lineHeight_;
  QComboBox colours_;
  QCheckBox justified_;
  QCheckBox persianDigits_;
};

}  // namespace viewer
