#include "support/window_catalogue.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "support/marking_commands.h"

namespace support {

namespace {

using platform::Artwork;
using platform::ControlRow;
using platform::Growth;
using platform::kNoIndex;
using platform::TextView;
using platform::Twips;
using platform::WindowDefinition;
using Kind = platform::ControlKind;

struct Place {
  Twips left;
  Twips top;
  Twips width;
  Twips height;
};

// A row that is written as a sentence: what and where it is, then what is special about it. A label
// above or below its field is right-aligned; one beside it begins where the field ends, so that a
// box that reaches under its neighbour or past the window's edge still shows its words.
struct Row : ControlRow {
  constexpr Row(Kind rowKind, TextView rowName, Place place, TextView rowText = {}) {
    kind = rowKind;
    name = rowName;
    left = place.left;
    top = place.top;
    width = place.width;
    height = place.height;
    text = rowText;
    tabStop = platform::IsPlaced(rowKind) && rowKind != Kind::kLabel && rowKind != Kind::kFrame &&
              rowKind != Kind::kLine && rowKind != Kind::kPicture && rowKind != Kind::kImage;
  }
  constexpr Row In(TextView frame, int frameIndex = kNoIndex) const {
    Row row = *this;
    row.parent = frame;
    row.parentIndex = frameIndex;
    return row;
  }
  template <typename T>
  constexpr Row With(T ControlRow::*member, T value) const {
    Row row = *this;
    row.*member = value;
    return row;
  }
  constexpr Row At(int rowIndex) const { return With(&ControlRow::index, rowIndex); }
  constexpr Row Hint(TextView rowHint) const { return With(&ControlRow::hint, rowHint); }
  constexpr Row Shows(Artwork picture) const { return With(&ControlRow::artwork, picture); }
  constexpr Row Every(int milliseconds) const { return With(&ControlRow::interval, milliseconds); }
  constexpr Row Hidden() const { return With(&ControlRow::hidden, true); }
  constexpr Row MarkInset(Twips inset) const { return With(&ControlRow::markInset, inset); }
  constexpr Row Gap(Twips from, Twips size) const {
    return With(&ControlRow::gapLeft, from).With(&ControlRow::gapWidth, size);
  }
  constexpr Row Ticked() const { return With(&ControlRow::ticked, true); }
  constexpr Row Centred() const { return With(&ControlRow::centred, true); }
  constexpr Row RightAligned() const { return With(&ControlRow::rightAligned, true); }
  constexpr Row Default() const { return With(&ControlRow::defaultButton, true); }
  constexpr Row LeftToRight() const { return With(&ControlRow::leftToRight, true); }
  constexpr Row Path() const { return LeftToRight().With(&ControlRow::path, true); }
  constexpr Row TabStop() const { return With(&ControlRow::tabStop, true); }
  constexpr Row NoTabStop() const { return With(&ControlRow::tabStop, false); }
  constexpr Row NamedBy(TextView label) const { return With(&ControlRow::namedBy, label); }
  constexpr Row Grows(platform::Growths growths) const { return With(&ControlRow::grows, growths); }
  constexpr Row Disabled() const { return With(&ControlRow::enabled, false); }
};

// The button of a marking command, by its number.
constexpr Row Command(Mark mark, Place place) {
  const MarkingCommand& command = CommandOf(mark);
  return Row(Kind::kButton, u"Com", place, command.caption)
      .At(static_cast<int>(mark))
      .Hint(command.hint);
}

// How the controls of a window follow its size.
constexpr platform::Growths kMovesRight{.left = Growth::kByWidth};
constexpr platform::Growths kMovesDown{.top = Growth::kByHeight};
constexpr platform::Growths kWidens{.width = Growth::kByWidth};
constexpr platform::Growths kFills{.width = Growth::kByWidth, .height = Growth::kByHeight};
constexpr platform::Growths kWidensAtTheFoot{.top = Growth::kByHeight, .width = Growth::kByWidth};
constexpr platform::Growths kHighAtTheRight{.left = Growth::kByWidth, .height = Growth::kByHeight};
constexpr platform::Growths kCell{
    .top = Growth::kStacked, .width = Growth::kByWidth, .height = Growth::kByFifthOfHeight};
constexpr platform::Growths kPictureInCell{.left = Growth::kByWidth,
                                           .height = Growth::kByFifthOfHeight};

constexpr Row Chooser(TextView name, Place place) {
  return Row(Kind::kButton, name, place).Shows(Artwork::kChooserButton);
}

template <std::size_t... N>
constexpr auto Concat(const std::array<ControlRow, N>&... parts) {
  std::array<ControlRow, (N + ...)> rows;
  auto at = rows.begin();
  ((at = std::copy(parts.begin(), parts.end(), at)), ...);
  return rows;
}

// The rows of all picture cells, from the frame of the first one and what it holds.
template <std::size_t N>
constexpr auto PictureCells(const std::array<ControlRow, N>& first, Twips pitch) {
  std::array<ControlRow, N * kPictureCells> rows;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const int cell = static_cast<int>(i / N);
    rows[i] = first[i % N];
    rows[i].index = cell;
    if (rows[i].kind == Kind::kFrame) {
      rows[i].top += cell * pitch;
    } else {
      rows[i].parentIndex = cell;
    }
  }
  return rows;
}

constexpr std::array kForm1Rows = std::to_array<ControlRow>({
    Row(Kind::kPicture, u"Picture1", {-30, 0, 4725, 1860}).Shows(Artwork::kBanner),
    Row(Kind::kFrame, u"Frame1", {-45, 1770, 4755, 6510}),

    // Texts and counts.
    Row(Kind::kPicture, u"Picture2", {4290, 315, 330, 330})
        .In(u"Frame1")
        .Shows(Artwork::kTextsIcon),
    Row(Kind::kLabel, u"Label2", {3120, 360, 1140, 285}, u"رديف اول:\u200F").In(u"Frame1"),
    Row(Kind::kLabel, u"Label3", {3120, 735, 960, 285}, u"رديف دوم:\u200F").In(u"Frame1"),
    Row(Kind::kLabel, u"Label4", {3120, 1110, 1380, 285}, u"رديف سوم:\u200F").In(u"Frame1"),
    Row(Kind::kLabel, u"Label7", {990, 270, 1560, 285}, u"مسير متون ورودي:\u200F")
        .In(u"Frame1")
        .RightAligned(),
    Row(Kind::kLabel, u"Label8", {705, 855, 1845, 285}, u"مسير ساخت خروجي:\u200F")
        .In(u"Frame1")
        .RightAligned(),
    Row(Kind::kTextBox, u"title", {2655, 330, 405, 315}, u"2")
        .In(u"Frame1")
        .Centred()
        .NamedBy(u"Label2"),
    Row(Kind::kTextBox, u"matn", {2655, 705, 405, 315}, u"2")
        .In(u"Frame1")
        .Centred()
        .NamedBy(u"Label3"),
    Row(Kind::kTextBox, u"shenas", {2655, 1080, 405, 315}, u"2")
        .In(u"Frame1")
        .Centred()
        .NamedBy(u"Label4"),
    Row(Kind::kTextBox, u"Text1", {810, 495, 1740, 315}, u"Resources")
        .In(u"Frame1")
        .Path()
        .NamedBy(u"Label7"),
    Chooser(u"Command9", {330, 480, 420, 315}).In(u"Frame1").NamedBy(u"Label7"),
    Row(Kind::kTextBox, u"idir", {810, 1080, 1740, 315}, u"Data")
        .In(u"Frame1")
        .Path()
        .NamedBy(u"Label8"),
    Chooser(u"Command2", {330, 1065, 420, 315}).In(u"Frame1").NamedBy(u"Label8"),
    Row(Kind::kLine, u"Frame2", {240, 1560, 4275, 30}).In(u"Frame1"),

    // The collection.
    Row(Kind::kPicture, u"Picture3", {4290, 1755, 330, 330})
        .In(u"Frame1")
        .Shows(Artwork::kCollectionIcon),
    Row(Kind::kLabel, u"Label9", {3060, 1785, 1215, 285}, u"انتخاب:\u200F").In(u"Frame1"),
    Row(Kind::kLabel, u"Label6", {3060, 2160, 1380, 285}, u"تصوير مجموعه:\u200F").In(u"Frame1"),
    Row(Kind::kComboBox, u"dataName", {330, 1755, 2655, 315}).In(u"Frame1").NamedBy(u"Label9"),
    Row(Kind::kTextBox, u"index", {810, 2130, 2175, 315}, u"Resources\\MyBook.jpg")
        .In(u"Frame1")
        .Path()
        .NamedBy(u"Label6"),
    Chooser(u"Command5", {330, 2115, 420, 315}).In(u"Frame1").NamedBy(u"Label6"),
    Row(Kind::kLine, u"Frame3", {240, 2565, 4275, 30}).In(u"Frame1"),

    // The music.
    Row(Kind::kPicture, u"Picture4", {4290, 2700, 330, 330})
        .In(u"Frame1")
        .Shows(Artwork::kMusicIcon),
    Row(Kind::kFrame, u"Frame4", {1080, 2700, 2610, 330}).In(u"Frame1"),
    Row(Kind::kOption, u"bMus", {1500, 0, 750, 330}, u"فعال").At(0).In(u"Frame4"),
    Row(Kind::kOption, u"bMus", {540, 0, 915, 330}, u"غير فعال").At(1).In(u"Frame4"),
    Row(Kind::kLabel, u"Label1", {3405, 3090, 855, 255}, u"موزيك اول:\u200F").In(u"Frame1"),
    Row(Kind::kLabel, u"Label10", {3405, 3465, 855, 270}, u"موزيك دوم:\u200F").In(u"Frame1"),
    Row(Kind::kTextBox, u"Mus1", {810, 3045, 2535, 315}, u"Resources\\MySound1.mp3")
        .In(u"Frame1")
        .Path()
        .NamedBy(u"Label1"),
    Chooser(u"Command6", {330, 3030, 420, 315}).In(u"Frame1").NamedBy(u"Label1"),
    Row(Kind::kTextBox, u"Mus2", {810, 3420, 2535, 315}, u"Resources\\MySound2.mp3")
        .In(u"Frame1")
        .Path()
        .NamedBy(u"Label10"),
    Chooser(u"Command7", {330, 3390, 420, 315}).In(u"Frame1").NamedBy(u"Label10"),
    Row(Kind::kLine, u"Frame5", {240, 3870, 4275, 30}).In(u"Frame1"),

    // Pattern and background.
    Row(Kind::kPicture, u"Picture5", {4290, 4035, 330, 330})
        .In(u"Frame1")
        .Shows(Artwork::kPatternIcon),
    Row(Kind::kLabel, u"Label11", {3015, 4035, 855, 375}, u"انتخاب الگو:\u200F").In(u"Frame1"),
    Row(Kind::kLabel, u"Label14", {3015, 4380, 1335, 375}, u"تصوير پيش\u200Fزمينه:\u200F")
        .In(u"Frame1"),
    Row(Kind::kOption, u"Olgoo", {1725, 4035, 1125, 255}, u"الگوي اول").At(0).In(u"Frame1"),
    Row(Kind::kOption, u"Olgoo", {675, 4035, 1125, 255}, u"الگوي دوم").At(1).In(u"Frame1"),
    Row(Kind::kTextBox, u"Back", {810, 4350, 2145, 315}, u"Resources\\MyBack.jpg")
        .In(u"Frame1")
        .Path()
        .NamedBy(u"Label14"),
    Chooser(u"Command8", {330, 4335, 420, 315}).In(u"Frame1").NamedBy(u"Label14"),
    Row(Kind::kLine, u"Frame6", {240, 4830, 4275, 30}).In(u"Frame1"),

    // The export.
    Row(Kind::kPicture, u"Picture6", {4290, 4920, 330, 330})
        .In(u"Frame1")
        .Shows(Artwork::kExportIcon),
    Row(Kind::kCheckBox, u"Pcheck", {360, 4920, 2595, 315}, u"ايجاد امكان پرينت در نرم\u200Fافزار")
        .In(u"Frame1"),
    Row(Kind::kLabel, u"Label5", {3015, 5310, 1530, 375}, u"مسير ايجاد نرم\u200Fافزار:\u200F")
        .In(u"Frame1"),
    Row(Kind::kTextBox, u"ExBox", {810, 5280, 2145, 315}, u"Export")
        .In(u"Frame1")
        .Path()
        .NamedBy(u"Label5"),
    Chooser(u"Command1", {330, 5265, 420, 315}).In(u"Frame1").NamedBy(u"Label5"),
    Row(Kind::kButton, u"Command4", {2760, 5730, 855, 610}, u"راهنما")
        .In(u"Frame1")
        .Shows(Artwork::kHelpButton),
    Row(Kind::kButton, u"Command3", {1875, 5730, 855, 615}, u"بعدي")
        .In(u"Frame1")
        .Default()
        .Shows(Artwork::kNextButton),
    Row(Kind::kButton, u"Command10", {990, 5730, 855, 615}, u"خروجي")
        .In(u"Frame1")
        .Shows(Artwork::kExportButton),

    Row(Kind::kTimer, u"Timer1", {}).Every(100).Disabled(),
});

constexpr std::array kForm2Rows = std::to_array<ControlRow>({
    Row(Kind::kDriveList, u"Drive1", {15, 60, 3255, 315}).LeftToRight(),
    Row(Kind::kFolderList, u"Dir1", {15, 420, 3255, 3015}).LeftToRight(),
    Row(Kind::kButton, u"btn", {15, 3525, 3255, 390}, u"شاخه مورد نظر را انتخاب كنيد!\u200F").At(0),
});

constexpr std::array kForm3InputRows = std::to_array<ControlRow>({
    Row(Kind::kLabel, u"Label1", {9690, 300, 2580, 300}, u"متن\u200Fهاي ورودي:\u200F")
        .RightAligned()
        .Grows(kMovesRight),
    Command(Mark::kGalleryMode, {9615, 165, 1365, 345}).Grows(kMovesRight),
    Row(Kind::kListBox, u"books", {9615, 570, 2745, 1620}).Grows(kMovesRight).NamedBy(u"Label1"),

    Row(Kind::kFrame, u"Frame2", {60, 60, 9525, 2190}).Grows(kWidens),
    Row(Kind::kLabel, u"Label2", {5145, 225, 2655, 180}).In(u"Frame2"),
    Row(Kind::kLabel, u"Label3", {7710, 225, 1695, 300}, u"عناوين فهرست:\u200F")
        .In(u"Frame2")
        .RightAligned()
        .Grows(kMovesRight),
    // Bare, as its words can become a collection's title.
    Row(Kind::kLabel, u"BookLabel", {5175, 195, 2565, 300}, u"عنوان مجموعه:").In(u"Frame2"),
    Row(Kind::kTextBox, u"bname", {60, 150, 5040, 330})
        .In(u"Frame2")
        .RightAligned()
        .NamedBy(u"BookLabel"),
    Row(Kind::kListBox, u"bindex", {60, 510, 9390, 1620})
        .In(u"Frame2")
        .Grows(kWidens)
        .NamedBy(u"Label3"),
});

constexpr std::array kForm3MarkingRows = std::to_array<ControlRow>({
    Row(Kind::kFrame, u"Frame1", {60, 2220, 12300, 720}).Grows(kWidens),
    Command(Mark::kTitle, {11115, 210, 1050, 405}).In(u"Frame1").Grows(kMovesRight),
    Command(Mark::kIdentity, {9765, 210, 1365, 405}).In(u"Frame1").Grows(kMovesRight),
    Command(Mark::kTitleInBrackets, {9240, 210, 315, 405}).In(u"Frame1").Grows(kMovesRight),
    Command(Mark::kTitleAfterDash, {8955, 210, 300, 405}).In(u"Frame1").Grows(kMovesRight),
    Command(Mark::kTitleAfterColon, {8670, 210, 300, 405}).In(u"Frame1").Grows(kMovesRight),
    Command(Mark::kTitleAfterSemicolon, {8385, 210, 300, 405}).In(u"Frame1").Grows(kMovesRight),
    Command(Mark::kMainTitle, {6705, 210, 1470, 405}).In(u"Frame1").Grows(kMovesRight),
    Command(Mark::kMainTitleEnd, {6060, 210, 660, 405}).In(u"Frame1").Grows(kMovesRight),
    Command(Mark::kHeading, {5085, 210, 765, 405}).In(u"Frame1").Grows(kMovesRight),
    Command(Mark::kHeadingText, {3975, 210, 1125, 405}).In(u"Frame1").Grows(kMovesRight),
    Row(Kind::kCheckBox, u"Chek", {2895, 315, 795, 210}, u"با حذف")
        .Hint(kRemovalHint)
        .In(u"Frame1"),
    Command(Mark::kDelete, {1635, 210, 1035, 405}).In(u"Frame1"),
    Command(Mark::kBuild, {120, 210, 1275, 405}).In(u"Frame1"),
});

// What the editor reads before a text is opened: four paragraphs.
constexpr TextView kForm3OpeningText =
    u"متن در اين محل نمايش داده مي\u200Fشود و شما  پس از انتخاب هر بخش از متن، با فشردن دگمه "
    u"مربوطه نوع آن بخش را\r\n"
    u"انتخاب مي\u200Fكنيد و در نهايت تمام متن قطعه قطعه خواهد شد!\u200F\r\n"
    u"براي ويرايش متن انتخاب شده، روي عنوان آن در فهرست عناوين كليك كنيد.\u200F\r\n"
    u"براي ايجاد گالري دو راه وجود دارد؛ يك مجموعه به عنوان گالري انتخاب شود و ياداخل يك مجموعه "
    u"بعضي از تيترها به گالري تبديل شود. براي استفاده از روش دوم ابتدا تيتر مورد نظر را انتخاب "
    u"كرده و سپس در صفحه ويرايش، آن را به گالري تبديل نماييد.\u200F";

constexpr std::array kForm3TextRows = std::to_array<ControlRow>({
    Row(Kind::kRichTextBox, u"ConRT", {6045, 3885, 1830, 1425}, u"RichTextBox1").NoTabStop(),
    Row(Kind::kRichTextBox, u"matn", {60, 3000, 12300, 5895}, kForm3OpeningText).Grows(kFills),

    Row(Kind::kFrame, u"Frame3", {75, 8865, 12300, 450}).Grows(kWidensAtTheFoot),
    Row(Kind::kButton, u"HazC", {11655, 135, 495, 255}, u"<<<")
        .At(12)
        .In(u"Frame3")
        .LeftToRight()  // else the signs, being brackets, would be mirrored
        .Grows(kMovesRight),
    Row(Kind::kCheckBox, u"P22", {6450, 165, 5400, 210},
        u"حذف تمامي پاراگراف\u200Fها و ايجاد پاراگراف بر اساس           كلمه در هر سطر")
        .In(u"Frame3")
        .MarkInset(195)  // its right end lies under HazC(12)
        .Gap(1365, 420)  // chnd stands in it
        .Grows(kMovesRight),
    Row(Kind::kTextBox, u"chnd", {7815, 135, 420, 285}, u"22")
        .Hint(u"از 10 تا 30")
        .In(u"Frame3")
        .Centred()
        .Grows(kMovesRight)
        .NamedBy(u"P22"),
    Row(Kind::kCheckBox, u"HazP", {4245, 165, 2130, 210}, u"با حذف پاراگراف\u200Fهاي اصلي")
        .In(u"Frame3")
        .Ticked()
        .Grows(kMovesRight),
    Row(Kind::kCheckBox, u"Noghte", {60, 165, 4020, 210},
        u"همراه با درج پاراگراف پس از علائم نگارشي «. - ؟ - !»\u200F")
        .In(u"Frame3")
        .Ticked()
        .Grows(kMovesRight),
});

constexpr std::array kForm3BrowserHead = std::to_array<ControlRow>({
    Row(Kind::kFrame, u"Frame4", {60, 540, 12300, 8760}).Hidden().Grows(kFills),
    Row(Kind::kButton, u"SelAll", {11265, 180, 915, 315}, u"انتخاب همه").Hidden().In(u"Frame4"),
    Row(Kind::kLabel, u"ShPath", {645, 240, 11490, 240}, u"C:\\windows\\system32")
        .In(u"Frame4")
        .LeftToRight(),
    Chooser(u"Command1", {120, 180, 420, 315}).In(u"Frame4"),
    Row(Kind::kScrollBar, u"VSC", {11835, 555, 345, 7560}).In(u"Frame4").Grows(kHighAtTheRight),
});

constexpr std::array kForm3Cell = std::to_array<ControlRow>({
    Row(Kind::kFrame, u"IMF", {105, 480, 11655, 1530}).In(u"Frame4").Grows(kCell),
    Row(Kind::kImage, u"IMG", {9570, 195, 1980, 1215}).In(u"IMF").Grows(kPictureInCell),
    Row(Kind::kLabel, u"Label14", {8490, 300, 1020, 375}, u"عنوان تصوير:\u200F")
        .In(u"IMF")
        .Grows(kMovesRight),
    Row(Kind::kTextBox, u"IMN", {150, 270, 8280, 315})
        .In(u"IMF")
        .RightAligned()
        .Grows(kWidens)
        .NamedBy(u"Label14"),
    Row(Kind::kLabel, u"IMJ", {180, 645, 9180, 240}, u"*.jpg")
        .In(u"IMF")
        .LeftToRight()
        .Grows(kWidens),
    Row(Kind::kCheckBox, u"IMC", {8010, 1110, 1365, 315}, u"انتخاب تصوير")
        .In(u"IMF")
        .Grows(kMovesRight),
});

constexpr std::array kForm3Tail = std::to_array<ControlRow>({
    Row(Kind::kLine, u"Frame5", {105, 8205, 12075, 30}).In(u"Frame4").Grows(kWidensAtTheFoot),
    Command(Mark::kBuildGallery, {90, 8310, 3315, 345}).In(u"Frame4").Grows(kMovesDown),
    Row(Kind::kTimer, u"Timer1", {}).Every(100),
    Row(Kind::kTimer, u"Timer2", {}).Every(100).Disabled(),
});

constexpr auto kForm3Rows = Concat(kForm3InputRows, kForm3MarkingRows, kForm3TextRows,
                                   kForm3BrowserHead, PictureCells(kForm3Cell, 1530), kForm3Tail);

constexpr std::array kForm4Rows = std::to_array<ControlRow>({
    Row(Kind::kRichTextBox, u"Box1", {120, 120, 10125, 7380}, u"راهنماي استفاده از نرم\u200Fافزار"),
});

constexpr std::array kForm5Rows = std::to_array<ControlRow>({
    Row(Kind::kLabel, u"Label5", {2700, 120, 2595, 285}, u"فهرست فايل\u200Fهاي قابل انتخاب:\u200F")
        .RightAligned(),
    Row(Kind::kDriveList, u"Drive1", {30, 60, 2610, 315}).LeftToRight(),
    Row(Kind::kFileList, u"File1", {2730, 390, 2640, 2625}).LeftToRight().NamedBy(u"Label5"),
    Row(Kind::kFolderList, u"Dir1", {30, 465, 2610, 2565}).LeftToRight(),
    Row(Kind::kButton, u"btn", {870, 3135, 3510, 390}, u"فايل مورد نظر را انتخاب كنيد!\u200F")
        .At(0),
});

constexpr std::array kForm6ParagraphRows = std::to_array<ControlRow>({
    Row(Kind::kLabel, u"Label3", {8460, 240, 1695, 300}, u"عنوان فهرست:\u200F"),
    Row(Kind::kTextBox, u"bname", {2910, 195, 5505, 330}).RightAligned().NamedBy(u"Label3"),
    Row(Kind::kButton, u"btn", {1350, 150, 1455, 390}, u"تبديل به گالري").At(5),
    Row(Kind::kButton, u"btn", {75, 150, 1200, 390}, u"حذف كامل").At(0),
    Row(Kind::kRichTextBox, u"matn", {75, 660, 9495, 5895}, u"پاراگراف"),

    Row(Kind::kButton, u"btn", {7665, 6660, 1890, 390}, u"حذف فايل ضميمه").At(1),
    Row(Kind::kLabel, u"Label6", {5805, 6750, 2160, 285}, u"فايل ضميمه پاراگراف:\u200F"),
    Row(Kind::kTextBox, u"picB", {2730, 6720, 3045, 315}).Path().NamedBy(u"Label6"),
    Chooser(u"Command5", {2250, 6705, 420, 315}).NamedBy(u"Label6"),
    Row(Kind::kButton, u"btn", {7665, 7170, 1890, 390}, u"حذف صوت متصل").At(2),
    Row(Kind::kLabel, u"Label1", {5805, 7260, 2160, 285}, u"صوت متصل به پاراگراف:\u200F"),
    Row(Kind::kTextBox, u"soutB", {2730, 7230, 3045, 315}).Path().NamedBy(u"Label1"),
    Chooser(u"Command1", {2250, 7215, 420, 315}).NamedBy(u"Label1"),
    Row(Kind::kButton, u"btn", {7665, 7680, 1890, 390}, u"حذف فيلم متصل").At(3),
    Row(Kind::kLabel, u"Label2", {5805, 7770, 2160, 285}, u"فيلم متصل به پاراگراف:\u200F"),
    Row(Kind::kTextBox, u"filmB", {2730, 7740, 3045, 315}).Path().NamedBy(u"Label2"),
    Chooser(u"Command2", {2250, 7725, 420, 315}).NamedBy(u"Label2"),

    Row(Kind::kImage, u"Image1", {75, 6645, 1995, 1260})
        .Hint(u"براي تغيير پس\u200Fزمينه كليك كنيد!\u200F")
        .TabStop(),
    Row(Kind::kLabel, u"Label4", {-15, 7935, 2160, 285}, u"تصوير پس\u200Fزمينه اين پاراگراف")
        .RightAligned(),
    Row(Kind::kButton, u"btn", {2025, 8265, 5610, 390},
        u"ثبت تغييرات و بازگشت به فهرست اصلي عناوين")
        .At(4),
});

constexpr std::array kForm6BrowserHead = std::to_array<ControlRow>({
    Row(Kind::kFrame, u"Frame4", {75, 570, 9495, 7590}).Hidden(),
    // Wider than its frame, which cuts a long path off.
    Row(Kind::kLabel, u"ShPath", {645, 240, 11490, 240}, u"C:\\windows\\system32")
        .In(u"Frame4")
        .LeftToRight(),
    Chooser(u"Command3", {120, 180, 420, 315}).In(u"Frame4"),
    Row(Kind::kScrollBar, u"VSC", {9030, 570, 345, 6885}).In(u"Frame4"),
});

constexpr std::array kForm6Cell = std::to_array<ControlRow>({
    Row(Kind::kFrame, u"IMF", {105, 495, 8865, 1395}).In(u"Frame4"),
    Row(Kind::kImage, u"IMG", {7110, 195, 1650, 1080}).In(u"IMF"),
    Row(Kind::kLabel, u"Label14", {6090, 300, 1020, 375}, u"عنوان تصوير:\u200F").In(u"IMF"),
    Row(Kind::kTextBox, u"IMN", {150, 270, 5865, 315})
        .In(u"IMF")
        .RightAligned()
        .NamedBy(u"Label14"),
    Row(Kind::kLabel, u"IMJ", {450, 645, 6510, 240}, u"*.jpg").In(u"IMF").LeftToRight(),
    Row(Kind::kCheckBox, u"IMC", {5610, 960, 1365, 315}, u"انتخاب تصوير").In(u"IMF"),
});

constexpr std::array kForm6Menu = std::to_array<ControlRow>({
    Row(Kind::kMenu, u"popM", {}),
    Row(Kind::kMenuItem, u"picM", {}, u"درج تصوير در متن").In(u"popM"),
    Row(Kind::kMenuItem, u"copyM", {}, u"كپي متن").In(u"popM").Disabled(),
    Row(Kind::kMenuItem, u"cutM", {}, u"برش متن").In(u"popM").Disabled(),
    Row(Kind::kMenuItem, u"pasteM", {}, u"چسباندن متن").In(u"popM").Disabled(),
    Row(Kind::kMenuItem, u"delM", {}, u"حذف متن").In(u"popM").Disabled(),
});

constexpr auto kForm6Rows =
    Concat(kForm6ParagraphRows, kForm6BrowserHead, PictureCells(kForm6Cell, 1395), kForm6Menu);

constexpr std::array kRecoveryRows = std::to_array<ControlRow>({
    Row(Kind::kLabel, u"recoverWhose", {120, 120, 4440, 285}).RightAligned(),
    Row(Kind::kLabel, u"Label1", {120, 465, 4440, 285},
        u"از اين مجموعه كاري مانده كه ساخته نشده است.\u200F")
        .RightAligned(),
    Row(Kind::kLabel, u"Label2", {3330, 840, 1230, 285}, u"تعداد عنوان\u200Fها:\u200F")
        .RightAligned(),
    Row(Kind::kLabel, u"recoverCount", {120, 840, 3150, 285}).RightAligned(),
    Row(Kind::kLabel, u"Label3", {3330, 1185, 1230, 285}, u"آخرين تغيير:\u200F").RightAligned(),
    Row(Kind::kLabel, u"recoverWhen", {120, 1185, 3150, 285}).RightAligned(),
    Row(Kind::kLabel, u"Label4", {3330, 1530, 1230, 285}, u"عنوان اول:\u200F").RightAligned(),
    Row(Kind::kLabel, u"recoverFirst", {120, 1530, 3150, 285}).RightAligned(),
    Row(Kind::kLabel, u"Label5", {3330, 1875, 1230, 285}, u"عنوان آخر:\u200F").RightAligned(),
    Row(Kind::kLabel, u"recoverLast", {120, 1875, 3150, 285}).RightAligned(),
    Row(Kind::kLabel, u"Label6", {120, 2220, 4440, 285},
        u"با Ctrl+Tab به اين پنجره مي\u200Fآييد و برمي\u200Fگرديد.\u200F")
        .RightAligned(),
    Row(Kind::kButton, u"recoverBring", {3120, 2655, 1440, 390}, u"بازگرداندن"),
    Row(Kind::kButton, u"recoverLater", {1620, 2655, 1440, 390}, u"بعداً"),
    Row(Kind::kButton, u"recoverDrop", {120, 2655, 1440, 390}, u"دور انداختن"),
});

}  // namespace

const WindowDefinition& Form1Definition() {
  static constexpr WindowDefinition kDefinition{.name = u"Form1",
                                                .title = u"Zorvand",
                                                .width = 4635,
                                                .height = 8190,
                                                .hasIcon = true,
                                                .rows = kForm1Rows};
  return kDefinition;
}

const WindowDefinition& Form2Definition() {
  static constexpr WindowDefinition kDefinition{.name = u"Form2",
                                                .title = u"Select folder",
                                                .width = 3315,
                                                .height = 3945,
                                                .border = platform::Border::kFixedTool,
                                                .opensAt = platform::OpensAt::kOwnerCentre,
                                                .rows = kForm2Rows};
  return kDefinition;
}

const WindowDefinition& Form3Definition() {
  static constexpr WindowDefinition kDefinition{.name = u"Form3",
                                                .title = u"Format data",
                                                .width = 12405,
                                                .height = 9360,
                                                .border = platform::Border::kSizable,
                                                .hasIcon = true,
                                                .rows = kForm3Rows};
  return kDefinition;
}

const WindowDefinition& Form4Definition() {
  static constexpr WindowDefinition kDefinition{.name = u"Form4",
                                                .title = u"Help",
                                                .width = 10365,
                                                .height = 7620,
                                                .border = platform::Border::kFixedTool,
                                                .rows = kForm4Rows};
  return kDefinition;
}

const WindowDefinition& Form5Definition() {
  static constexpr WindowDefinition kDefinition{.name = u"Form5",
                                                .title = u"Select file",
                                                .width = 5400,
                                                .height = 3615,
                                                .border = platform::Border::kFixedTool,
                                                .opensAt = platform::OpensAt::kOwnerCentre,
                                                .rows = kForm5Rows};
  return kDefinition;
}

const WindowDefinition& Form6Definition() {
  static constexpr WindowDefinition kDefinition{.name = u"Form6",
                                                .title = u"Edit paragraph",
                                                .width = 9645,
                                                .height = 8775,
                                                .border = platform::Border::kFixedTool,
                                                .rows = kForm6Rows};
  return kDefinition;
}

const WindowDefinition& RecoveryDefinition() {
  static constexpr WindowDefinition kDefinition{.name = u"Recovery",
                                                .title = u"Recovery",
                                                .width = 4680,
                                                .height = 3165,
                                                .border = platform::Border::kFixedTool,
                                                .escapeCloses = true,
                                                .rows = kRecoveryRows};
  return kDefinition;
}

}  // namespace support
