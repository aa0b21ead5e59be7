#include "viewer/reading_panel.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <algorithm>

#include "viewer/texts.h"

namespace viewer {
namespace {

// Those of the machine's that can write Persian: the letters of Arabic alone aren't enough.
QStringList PersianFamilies() {
  QStringList families;
  const QStringList all = QFontDatabase::families(QFontDatabase::Arabic);
  for (const QString& family : all) {
    const QFontMetrics metrics((QFont(family)));
    const QString letters = QStringLiteral("\u067E\u0686\u0698\u06A9\u06AF\u06CC");
    const auto has = [&](QChar letter) { return metrics.inFont(letter); };
    if (!QFontDatabase::isPrivateFamily(family) && std::ranges::all_of(letters, has)) {
      families += family;
    }
  }
  return families;
}

}  // namespace

ReadingPanel::ReadingPanel(const ReadingStyle& style, QWidget* parent)
    : QDialog(parent), justified_(texts::Justified()), persianDigits_(texts::PersianDigits()) {
  setObjectName(QStringLiteral("readingPanel"));
  setWindowTitle(texts::Reading());
  setLayoutDirection(Qt::RightToLeft);
  MakeLetters(style.letters);
  pixels_.setObjectName(QStringLiteral("pixels"));
  pixels_.setRange(ReadingStyle::kSmallest, ReadingStyle::kLargest);
  pixels_.setValue(style.pixels);
  lineHeight_.setObjectName(QStringLiteral("lineHeight"));
  for (const int percent : {140, 165, 190, 220}) {
    lineHeight_.addItem(texts::Percent().arg(PersianNumber(percent)), percent);
  }
  lineHeight_.setCurrentIndex(std::max(0, lineHeight_.findData(style.lineHeight)));
  MakeColours();
  colours_.setCurrentIndex(style.light ? 1 + static_cast<int>(*style.light) : 0);
  justified_.setObjectName(QStringLiteral("justified"));
  justified_.setChecked(style.justified);
  persianDigits_.setObjectName(QStringLiteral("persianDigits"));
  persianDigits_.setChecked(style.digits == book::Digits::kPersian);
  auto* const form = new QFormLayout(this);
  form->addRow(texts::Letters(), &letters_);
  form->addRow(texts::LetterSize(), &pixels_);
  form->addRow(texts::LineSpacing(), &lineHeight_);
  form->addRow(texts::ColoursOfText(), &colours_);
  form->addRow(&justified_);
  form->addRow(&persianDigits_);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QObject::connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  form->addRow(buttons);
  for (QComboBox* box : {&letters_, &lineHeight_, &colours_}) {
    QObject::connect(box, &QComboBox::currentIndexChanged, this, [this] { Tell(); });
  }
  QObject::connect(&pixels_, &QSpinBox::valueChanged, this, [this] { Tell(); });
  for (QCheckBox* box : {&justified_, &persianDigits_}) {
    QObject::connect(box, &QCheckBox::toggled, this, [this] { Tell(); });
  }
}

// Each with a sample in its own letters.
void ReadingPanel::MakeLetters(const QString& chosen) {
  letters_.setObjectName(QStringLiteral("letters"));
  letters_.addItem(texts::BooksLetters(), QString());
  for (const QString& family : PersianFamilies()) {
    letters_.addItem(texts::SampleOf().arg(family), family);
    letters_.setItemData(letters_.count() - 1, ViewerFont(kCaptionPixels, false, family),
                         Qt::FontRole);
  }
  letters_.setCurrentIndex(std::max(0, letters_.findData(chosen)));
}

void ReadingPanel::MakeColours() {
  colours_.setObjectName(QStringLiteral("colours"));
  colours_.addItems(
      {texts::BooksColours(), texts::DayColours(), texts::PaperColours(), texts::NightColours()});
}

void ReadingPanel::Tell() {
  if (!onChange) return;
  ReadingStyle style;
  style.pixels = pixels_.value();
  style.letters = letters_.currentData().toString();
  style.lineHeight = lineHeight_.currentData().toInt();
  style.justified = justified_.isChecked();
  if (colours_.currentIndex() > 0) style.light = static_cast<Light>(colours_.currentIndex() - 1);
  if (persianDigits_.isChecked()) style.digits = book::Digits::kPersian;
  onChange(style);
}

}  // namespace viewer
