// All texts that the viewer shows of its own, in the Persian of today: with ی and ک, the half-space
// as \u200C. The toolkit's words are in toolkit_texts.cpp.
#pragma once

#include <QString>

namespace viewer::texts {

// The window and its bar.
inline QString Book() { return QStringLiteral("کتاب"); }
inline QString NoCollections() { return QStringLiteral("این کتاب هنوز مجموعه\u200Cای ندارد."); }
inline QString NoBook() {
  return QStringLiteral(
      "کتابی در این پوشه پیدا نشد. این برنامه باید در کنار پوشه\u200Cی Data کتاب باشد.");
}
inline QString OpenBook() { return QStringLiteral("باز کردن کتاب"); }
inline QString ChooseBookFolder() { return QStringLiteral("پوشه\u200Cی کتاب را برگزینید"); }
inline QString Home() { return QStringLiteral("فهرست کتاب"); }
inline QString Back() { return QStringLiteral("بازگشت"); }
inline QString Music() { return QStringLiteral("موسیقی"); }
inline QString SwitchMusicOff() { return QStringLiteral("خاموشی موسیقی"); }
inline QString SwitchMusicOn() { return QStringLiteral("پخش موسیقی"); }
inline QString CantPlayMusic() {
  return QStringLiteral("موسیقی این کتاب را نمی\u200Cتوان پخش کرد.");
}
inline QString Find() { return QStringLiteral("جست\u200Cوجو"); }
inline QString FindInBook() { return QStringLiteral("جست\u200Cوجو در کتاب"); }
inline QString Fine() { return QStringLiteral("تأیید"); }
inline QString Yes() { return QStringLiteral("بله"); }
inline QString No() { return QStringLiteral("خیر"); }
inline QString Cancel() { return QStringLiteral("انصراف"); }

// What the window can be told to do.
inline QString Options() { return QStringLiteral("گزینه\u200Cها"); }
inline QString HistoryBack() { return QStringLiteral("به جای پیشین"); }
inline QString HistoryForward() { return QStringLiteral("به جای پسین"); }
inline QString Up() { return QStringLiteral("یک گام بالاتر"); }
inline QString NextEntry() { return QStringLiteral("نوشته\u200Cی بعدی"); }
inline QString PreviousEntry() { return QStringLiteral("نوشته\u200Cی قبلی"); }
inline QString FindInPage() { return QStringLiteral("جست\u200Cوجو در این نوشته"); }
inline QString NotInPage() { return QStringLiteral("پیدا نشد"); }
inline QString FilterContents() { return QStringLiteral("یافتن در فهرست"); }
inline QString PrintEntry() { return QStringLiteral("چاپ این نوشته"); }
inline QString UsualSize() { return QStringLiteral("اندازه\u200Cی نخست"); }
inline QString FullScreen() { return QStringLiteral("تمام صفحه"); }
inline QString AllKeys() { return QStringLiteral("همه\u200Cی کلیدها"); }

// How texts look.
inline QString Reading() { return QStringLiteral("خط و رنگ نوشته\u200Cها"); }
inline QString Letters() { return QStringLiteral("قلم:"); }
inline QString BooksLetters() { return QStringLiteral("قلم کتاب"); }
inline QString SampleOf() { return QStringLiteral("%1 — چو ایران نباشد تن من مباد ۱۲۳"); }
inline QString LetterSize() { return QStringLiteral("اندازه:"); }
inline QString LineSpacing() { return QStringLiteral("فاصله\u200Cی سطرها:"); }
inline QString Percent() { return QStringLiteral("٪%1"); }
inline QString ColoursOfText() { return QStringLiteral("رنگ:"); }
inline QString BooksColours() { return QStringLiteral("رنگ کتاب"); }
inline QString DayColours() { return QStringLiteral("روز"); }
inline QString NightColours() { return QStringLiteral("شب"); }
inline QString PaperColours() { return QStringLiteral("کاغذ"); }
inline QString Justified() { return QStringLiteral("هم\u200Cتراز از هر دو سو"); }
inline QString PersianDigits() { return QStringLiteral("رقم\u200Cهای فارسی"); }

// What is remembered.
inline QString OpensWhereYouWere() {
  return QStringLiteral("کتاب از جایی که پیش\u200Cتر خوانده بودید باز شد: %1");
}
inline QString AddBookmark() { return QStringLiteral("نشانه گذاشتن"); }
inline QString Bookmarks() { return QStringLiteral("نشانه\u200Cها"); }
inline QString BookmarkName() { return QStringLiteral("نام نشانه:"); }
inline QString BookmarkAdded() { return QStringLiteral("نشانه گذاشته شد: %1"); }
inline QString GoToBookmark() { return QStringLiteral("رفتن"); }
inline QString DropBookmark() { return QStringLiteral("برداشتن"); }

// Collections, their contents and their pages.
inline QString Gallery() { return QStringLiteral("گالری"); }
inline QString NoPictures() { return QStringLiteral("در این گالری تصویری پیدا نشد."); }
inline QString Contents() { return QStringLiteral("فهرست"); }
inline QString PageText() { return QStringLiteral("متن"); }
inline QString NoEntries() { return QStringLiteral("در این مجموعه نوشته\u200Cای پیدا نشد."); }
inline QString NoPage() { return QStringLiteral("این نوشته در کتاب پیدا نشد.\n"); }
inline QString PictureNotInBook() { return QStringLiteral("این تصویر در کتاب پیدا نشد"); }
inline QString NoPicture() { return QStringLiteral("این تصویر پیدا نشد"); }
inline QString PictureNotShown() { return QStringLiteral("این تصویر نمایش داده نمی\u200Cشود"); }
inline QString Previous() { return QStringLiteral("قبلی"); }
inline QString Next() { return QStringLiteral("بعدی"); }
inline QString Close() { return QStringLiteral("بستن"); }
inline QString PictureOf() { return QStringLiteral("%1 از %2"); }
inline QString Smaller() { return QStringLiteral("ریزتر"); }
inline QString Larger() { return QStringLiteral("درشت\u200Cتر"); }
inline QString PreviousSection() { return QStringLiteral("بخش پیش"); }
inline QString NextSection() { return QStringLiteral("بخش بعد"); }
inline QString Sections() { return QStringLiteral("بخش\u200Cهای این نوشته"); }
inline QString SectionOf() { return QStringLiteral("بخش %1 از %2"); }

// Printing.
inline QString Print() { return QStringLiteral("چاپ"); }
inline QString Printing() { return QStringLiteral("چاپ ..."); }
inline QString NotPrinted() { return QStringLiteral("این نوشته چاپ نشد."); }

// Attachments, sounds, films.
inline QString Attachment() { return QStringLiteral("ضمیمه"); }
inline QString Sound() { return QStringLiteral("صدا"); }
inline QString Film() { return QStringLiteral("فیلم"); }
inline QString StopSound() { return QStringLiteral("قطع صدا"); }
inline QString AttachmentMissing() {
  return QStringLiteral("ضمیمه\u200Cی این نوشته در کتاب پیدا نشد.\n");
}
inline QString SoundMissing() { return QStringLiteral("صدای این نوشته در کتاب پیدا نشد.\n"); }
inline QString FilmMissing() { return QStringLiteral("فیلم این نوشته در کتاب پیدا نشد.\n"); }
inline QString MayStartProgram() {
  return QStringLiteral("باز کردن این ضمیمه شاید برنامه\u200Cای را اجرا کند:\n%1\n\nآیا باز شود؟");
}
inline QString NoProgramFor() {
  return QStringLiteral("برنامه\u200Cای برای باز کردن این ضمیمه پیدا نشد.");
}
inline QString IsProgram() {
  return QStringLiteral("ضمیمه\u200Cی این نوشته یک برنامه است:\n%1\n\nآیا اجرا شود؟");
}
inline QString CantStart() {
  return QStringLiteral("این برنامه را در این رایانه نمی\u200Cتوان اجرا کرد.");
}
inline QString CantPlaySound() { return QStringLiteral("این صدا را نمی\u200Cتوان پخش کرد."); }
inline QString CantPlayFilm() { return QStringLiteral("این فیلم را نمی\u200Cتوان پخش کرد."); }
inline QString NoSoundCard() {
  return QStringLiteral("در این رایانه نمی\u200Cتوان فیلم پخش کرد: کارت صدا پیدا نشد.");
}

// %1 are names of Debian's packages.
inline QString PackagesMissing() {
  return QStringLiteral("برای آن در این رایانه باید این\u200Cها نصب شود:\n%1");
}

inline QString Pause() { return QStringLiteral("مکث"); }
inline QString GoOn() { return QStringLiteral("پخش"); }
inline QString WholeScreen() { return QStringLiteral("تمام صفحه"); }
inline QString PlaceInFilm() { return QStringLiteral("جای فیلم"); }
inline QString Volume() { return QStringLiteral("بلندی صدا"); }

inline QString Turn() { return QStringLiteral("چرخاندن"); }
inline QString WholeSize() { return QStringLiteral("اندازه\u200Cی اصلی"); }
inline QString FitToScreen() { return QStringLiteral("هم\u200Cاندازه\u200Cی صفحه"); }
inline QString Copy() { return QStringLiteral("کپی"); }
inline QString Save() { return QStringLiteral("ذخیره"); }
inline QString SavePicture() { return QStringLiteral("ذخیره\u200Cی تصویر"); }
inline QString NotIntoTheBook() {
  return QStringLiteral("در پوشه\u200Cی کتاب چیزی نوشته نمی\u200Cشود. جای دیگری برگزینید.");
}
inline QString CantSave() { return QStringLiteral("این تصویر ذخیره نشد."); }

// Search.
inline QString Hits() { return QStringLiteral("یافته\u200Cها"); }
inline QString WholeWords() { return QStringLiteral("واژه\u200Cی کامل"); }
inline QString WithVowelSigns() { return QStringLiteral("با نشانه\u200Cهای زیر و زبر"); }
inline QString CountOfCollection() { return QStringLiteral("%1 — %2 نوشته"); }
inline QString NotFound() { return QStringLiteral("«%1» در کتاب پیدا نشد."); }
inline QString Searching() { return QStringLiteral("جست\u200Cوجو…"); }
inline QString FoundWith() { return QStringLiteral("%1 نوشته با «%2»"); }
inline QString SearchGoesOn() { return QStringLiteral(" — جست\u200Cوجو ادامه دارد…"); }
inline QString FirstHits() { return QStringLiteral(" — نخستین یافته\u200Cها"); }

}  // namespace viewer::texts
