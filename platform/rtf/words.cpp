#include "platform/rtf/words.h"

#include <array>

#include "platform/rtf/document.h"

namespace platform::rtf {
namespace {

template <typename Value>
constexpr Word Make(std::string_view name, Family family, Value value) {
  return {name, family, static_cast<std::uint16_t>(value)};
}

constexpr Word Character(std::string_view name, char16_t value) {
  return Make(name, Family::kText, value);
}
constexpr Word Opens(std::string_view name, DestinationWord value) {
  return Make(name, Family::kDestination, value);
}
constexpr Word Known(std::string_view name) { return Make(name, Family::kNothing, 0); }
constexpr Word Skipped(std::string_view name) { return Opens(name, DestinationWord::kSkipped); }
constexpr Word Format(std::string_view name, FormatWord value) {
  return Make(name, Family::kFormat, value);
}
constexpr Word Toggle(std::string_view name, Style value) {
  return Make(name, Family::kToggle, value);
}
constexpr Word Slot(std::string_view name, FontSlot value) {
  return Make(name, Family::kSlot, value);
}
constexpr Word Aligns(std::string_view name, Alignment value) {
  return Make(name, Family::kAlignment, value);
}
constexpr Word InTable(std::string_view name, TableWord value) {
  return Make(name, Family::kTable, value);
}
constexpr Word InPicture(std::string_view name, PictureWord value) {
  return Make(name, Family::kPicture, value);
}
constexpr Word OfDocument(std::string_view name, DocumentWord value) {
  return Make(name, Family::kDocument, value);
}

constexpr auto kWords = std::to_array<Word>({
    Character("par", u'\u2029'),
    Character("row", u'\u2029'),
    Character("nestrow", u'\u2029'),
    Character("line", u'\u2028'),
    Character("tab", u'\t'),
    Character("cell", u'\t'),
    Character("nestcell", u'\t'),
    Character("emdash", u'\u2014'),
    Character("endash", u'\u2013'),
    Character("emspace", u'\u2003'),
    Character("enspace", u'\u2002'),
    Character("qmspace", u'\u2005'),
    Character("bullet", u'\u2022'),
    Character("lquote", u'\u2018'),
    Character("rquote", u'\u2019'),
    Character("ldblquote", u'\u201C'),
    Character("rdblquote", u'\u201D'),
    Character("zwj", u'\u200D'),
    Character("zwnj", u'\u200C'),
    Character("zwbo", u'\u200B'),
    Character("zwnbo", u'\u2060'),
    Character("ltrmark", u'\u200E'),
    Character("rtlmark", u'\u200F'),

    Opens("fonttbl", DestinationWord::kFontTable),
    Opens("colortbl", DestinationWord::kColourTable),
    Opens("object", DestinationWord::kObject),
    Opens("result", DestinationWord::kObjectResult),
    Opens("shpinst", DestinationWord::kShape),
    Opens("sn", DestinationWord::kShapeName),
    Opens("sv", DestinationWord::kShapeValue),
    Opens("shptxt", DestinationWord::kShapeText),
    Opens("fldinst", DestinationWord::kFieldInstruction),
    Opens("upr", DestinationWord::kAlternatives),
    Opens("ud", DestinationWord::kUnicodeAlternative),
    Opens("pict", DestinationWord::kPicture),
    Opens("shppict", DestinationWord::kShownPicture),
    Opens("nonshppict", DestinationWord::kFallbackPicture),

    Skipped("aftncn"),
    Skipped("aftnsep"),
    Skipped("aftnsepc"),
    Skipped("annotation"),
    Skipped("atnauthor"),
    Skipped("atndate"),
    Skipped("atnid"),
    Skipped("atnref"),
    Skipped("background"),
    Skipped("bkmkend"),
    Skipped("bkmkstart"),
    Skipped("blipuid"),
    Skipped("colorschememapping"),
    Skipped("datafield"),
    Skipped("datastore"),
    Skipped("do"),
    Skipped("docvar"),
    Skipped("falt"),
    Skipped("filetbl"),
    Skipped("footer"),
    Skipped("footerf"),
    Skipped("footerl"),
    Skipped("footerr"),
    Skipped("footnote"),
    Skipped("formfield"),
    Skipped("ftncn"),
    Skipped("ftnsep"),
    Skipped("ftnsepc"),
    Skipped("generator"),
    Skipped("header"),
    Skipped("headerf"),
    Skipped("headerl"),
    Skipped("headerr"),
    Skipped("info"),
    Skipped("latentstyles"),
    Skipped("listoverridetable"),
    Skipped("listtable"),
    Skipped("nextfile"),
    Skipped("nonesttables"),
    Skipped("objclass"),
    Skipped("objdata"),
    Skipped("objname"),
    Skipped("panose"),
    Skipped("pgdsctbl"),
    Skipped("picprop"),
    Skipped("pntxta"),
    Skipped("pntxtb"),
    Skipped("private"),
    Skipped("revtbl"),
    Skipped("rsidtbl"),
    Skipped("rxe"),
    Skipped("shprslt"),
    Skipped("stylesheet"),
    Skipped("tc"),
    Skipped("tcn"),
    Skipped("template"),
    Skipped("themedata"),
    Skipped("txe"),
    Skipped("userprops"),
    Skipped("xe"),
    Skipped("xmlnstbl"),
    Known("field"),
    Known("fldrslt"),
    Known("listtext"),
    Known("pntext"),
    Known("nesttableprops"),
    Known("s"),
    Known("cs"),
    Known("ds"),
    Known("ts"),
    Known("accnone"),
    Known("acccomma"),
    Known("acccircle"),
    Known("accdot"),
    Known("accunderdot"),
    Known("animtext"),
    Known("caps"),
    Known("cchs"),
    Known("cgrid"),
    Known("charrsid"),
    Known("charscalex"),
    Known("chbrdr"),
    Known("chcfpat"),
    Known("chshdng"),
    Known("crauth"),
    Known("crdate"),
    Known("delrsid"),
    Known("dn"),
    Known("embo"),
    Known("expnd"),
    Known("expndtw"),
    Known("fcs"),
    Known("fittext"),
    Known("hres"),
    Known("impr"),
    Known("insrsid"),
    Known("kerning"),
    Known("lang"),
    Known("langfe"),
    Known("langfenp"),
    Known("langnp"),
    Known("noproof"),
    Known("nosectexpand"),
    Known("nosupersub"),
    Known("outl"),
    Known("revauth"),
    Known("revauthdel"),
    Known("revdttm"),
    Known("revdttmdel"),
    Known("revised"),
    Known("scaps"),
    Known("shad"),
    Known("sub"),
    Known("super"),
    Known("ulc"),
    Known("up"),
    Known("v"),
    Known("webhidden"),
    Known("acaps"),
    Known("acf"),
    Known("adn"),
    Known("aexpnd"),
    Known("alang"),
    Known("aoutl"),
    Known("ascaps"),
    Known("ashad"),
    Known("astrike"),
    Known("aul"),
    Known("auld"),
    Known("auldb"),
    Known("aulnone"),
    Known("aulw"),
    Known("aup"),
    Known("fi"),
    Known("li"),
    Known("ri"),
    Known("lin"),
    Known("rin"),
    Known("cufi"),
    Known("culi"),
    Known("curi"),
    Known("sb"),
    Known("sa"),
    Known("sbauto"),
    Known("saauto"),
    Known("sl"),
    Known("slmult"),
    Known("widctlpar"),
    Known("nowidctlpar"),
    Known("nowwrap"),
    Known("keep"),
    Known("keepn"),
    Known("pagebb"),
    Known("hyphpar"),
    Known("noline"),
    Known("level"),
    Known("outlinelevel"),
    Known("contextualspace"),
    Known("intbl"),
    Known("itap"),
    Known("tx"),
    Known("tqr"),
    Known("tqc"),
    Known("tqdec"),
    Known("tb"),
    Known("tldot"),
    Known("ilvl"),
    Known("ls"),
    Known("pnlvl"),
    Known("pnlvlblt"),
    Known("pnlvlbody"),
    Known("pnlvlcont"),
    Known("aspalpha"),
    Known("aspnum"),
    Known("faauto"),
    Known("fahang"),
    Known("facenter"),
    Known("faroman"),
    Known("favar"),
    Known("fafixed"),
    Known("adjustright"),
    Known("pararsid"),
    Known("tblrsid"),
    Known("sectrsid"),
    Known("trowd"),
    Known("trql"),
    Known("trqr"),
    Known("trqc"),
    Known("cellx"),
    Known("irow"),
    Known("irowband"),
    Known("lastrow"),
    Known("ltrrow"),
    Known("rtlrow"),
    Known("brdrt"),
    Known("brdrb"),
    Known("brdrl"),
    Known("brdrr"),
    Known("brdrs"),
    Known("brdrw"),
    Known("brdrcf"),
    Known("brsp"),
    Known("box"),
    Known("chftn"),
    Known("chpgn"),
    Known("chdate"),
    Known("chtime"),
    Known("chatn"),
    Known("ltrdoc"),
    Known("rtldoc"),
    Known("ltrsect"),
    Known("rtlsect"),
    Known("sectd"),
    Known("deflang"),
    Known("deflangfe"),
    Known("deftab"),
    Known("viewkind"),

    Format("plain", FormatWord::kPlain),
    Format("pard", FormatWord::kPard),
    Format("f", FormatWord::kFont),
    Format("af", FormatWord::kComplexFont),
    Format("fs", FormatWord::kSize),
    Format("afs", FormatWord::kComplexSize),
    Format("ab", FormatWord::kComplexBold),
    Format("ai", FormatWord::kComplexItalic),
    Format("cf", FormatWord::kForeground),
    Format("cb", FormatWord::kBackground),
    Format("chcbpat", FormatWord::kBackground),
    Format("highlight", FormatWord::kBackground),
    Toggle("b", kBold),
    Toggle("i", kItalic),
    Toggle("ul", kUnderline),
    Toggle("uld", kUnderline),
    Toggle("uldash", kUnderline),
    Toggle("uldashd", kUnderline),
    Toggle("uldashdd", kUnderline),
    Toggle("uldb", kUnderline),
    Toggle("ulhwave", kUnderline),
    Toggle("ulldash", kUnderline),
    Toggle("ulth", kUnderline),
    Toggle("ulthd", kUnderline),
    Toggle("ulthdash", kUnderline),
    Toggle("ulthdashd", kUnderline),
    Toggle("ulthdashdd", kUnderline),
    Toggle("ulthldash", kUnderline),
    Toggle("ululdbwave", kUnderline),
    Toggle("ulw", kUnderline),
    Toggle("ulwave", kUnderline),
    Toggle("strike", kStrikeOut),
    Toggle("striked", kStrikeOut),
    Toggle("deleted", kDeleted),
    Make("ulnone", Family::kUntoggle, kUnderline),
    Slot("ltrch", FontSlot::kPlain),
    Slot("rtlch", FontSlot::kComplex),
    Make("loch", Family::kScript, FontSlot::kPlain),
    Make("hich", Family::kScript, FontSlot::kPlain),
    Make("dbch", Family::kScript, FontSlot::kDouble),
    Aligns("ql", Alignment::kLeft),
    Aligns("qr", Alignment::kRight),
    Aligns("qc", Alignment::kCentre),
    Aligns("qj", Alignment::kJustified),
    Aligns("qd", Alignment::kJustified),
    Make("rtlpar", Family::kDirection, Direction::kRightToLeft),
    Make("ltrpar", Family::kDirection, Direction::kLeftToRight),

    InTable("fcharset", TableWord::kCharset),
    InTable("cpg", TableWord::kCodePage),
    InTable("red", TableWord::kRed),
    InTable("green", TableWord::kGreen),
    InTable("blue", TableWord::kBlue),

    InPicture("pngblip", PictureWord::kPng),
    InPicture("jpegblip", PictureWord::kJpeg),
    InPicture("dibitmap", PictureWord::kBitmap),
    InPicture("picwgoal", PictureWord::kWidth),
    InPicture("pichgoal", PictureWord::kHeight),
    InPicture("picscalex", PictureWord::kScaleX),
    InPicture("picscaley", PictureWord::kScaleY),

    Make("ansi", Family::kCharacterSet, 1252),
    Make("mac", Family::kCharacterSet, 10000),
    Make("pc", Family::kCharacterSet, 437),
    Make("pca", Family::kCharacterSet, 850),
    OfDocument("ansicpg", DocumentWord::kCodePage),
    OfDocument("deff", DocumentWord::kDefaultFont),
    OfDocument("uc", DocumentWord::kFallbackLength),
    OfDocument("u", DocumentWord::kUnicode),
    OfDocument("bin", DocumentWord::kBinary),
    OfDocument("sect", DocumentWord::kPageEnd),
    OfDocument("page", DocumentWord::kPageEnd),
    OfDocument("column", DocumentWord::kPageEnd),
});

// Word numbers counted from 1 by hash; 0 is a free slot. Four times the words, so that most names,
// known or not, are decided by one look.
constexpr std::size_t kSlotCount = 2048;
static_assert(kWords.size() * 4 < kSlotCount);

constexpr std::uint32_t SlotOf(std::uint32_t hash) {
  return (hash ^ (hash >> 16)) & (kSlotCount - 1);
}

constexpr std::uint32_t NextSlot(std::uint32_t slot) { return (slot + 1) & (kSlotCount - 1); }

constexpr std::uint32_t HashOf(std::string_view name) {
  std::uint32_t hash = kWordHashSeed;
  for (const char letter : name) hash = HashStep(hash, letter);
  return hash;
}

constexpr std::array<std::uint16_t, kSlotCount> MakeSlots() {
  std::array<std::uint16_t, kSlotCount> slots{};
  for (std::size_t i = 0; i < kWords.size(); ++i) {
    std::uint32_t slot = SlotOf(HashOf(kWords[i].name));
    while (slots[slot] != 0) slot = NextSlot(slot);
    slots[slot] = static_cast<std::uint16_t>(i + 1);
  }
  return slots;
}

constexpr auto kSlots = MakeSlots();

}  // namespace

const Word* FindWord(std::string_view name, std::uint32_t hash) {
  for (std::uint32_t slot = SlotOf(hash); kSlots[slot] != 0; slot = NextSlot(slot)) {
    const Word& word = kWords[kSlots[slot] - 1U];
    if (word.name == name) return &word;
  }
  return nullptr;
}

}  // namespace platform::rtf
