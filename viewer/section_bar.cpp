#include "viewer/section_bar.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <algorithm>

#include "viewer/texts.h"

namespace viewer {

SectionBar::SectionBar(const Look& look, QWidget* parent)
    : QWidget(parent),
      previous_(QStringLiteral("previousSection"), texts::PreviousSection(), look,
                FlatButton::Place::kPage, this),
      label_(this),
      slider_(Qt::Horizontal, this),
      next_(QStringLiteral("nextSection"), texts::NextSection(), look, FlatButton::Place::kPage,
            this) {
  setObjectName(QStringLiteral("sectionBar"));
  label_.setObjectName(QStringLiteral("sectionLabel"));
  label_.setFont(ViewerFont(kCaptionPixels));
  slider_.setObjectName(QStringLiteral("sections"));
  slider_.setAccessibleName(texts::Sections());
  slider_.setTracking(false);  // a section is laid out once the reader lets go
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(12, 5, 12, 0);
  row->setSpacing(10);
  row->addWidget(&previous_);
  row->addWidget(&slider_, 1);
  row->addWidget(&label_);
  row->addWidget(&next_);
  QObject::connect(&previous_, &QAbstractButton::clicked, this,
                   [this] { onChosen(slider_.value() - 1); });
  QObject::connect(&next_, &QAbstractButton::clicked, this,
                   [this] { onChosen(slider_.value() + 1); });
  QObject::connect(&slider_, &QSlider::valueChanged, this, [this](int value) { onChosen(value); });
}

void SectionBar::Show(int section, int count) {
  const QSignalBlocker quiet(slider_);
  slider_.setRange(0, count - 1);
  slider_.setPageStep(std::max(1, count / 10));
  slider_.setValue(section);
  label_.setText(texts::SectionOf().arg(PersianNumber(section + 1), PersianNumber(count)));
  previous_.setEnabled(section > 0);
  next_.setEnabled(section + 1 < count);
  setVisible(count > 1);
}

}  // namespace viewer
