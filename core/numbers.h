// The numbers that bepayam takes, as the log shows them and the editor quotes them.
#pragma once

#include <cstdint>

namespace core {

// What a box tells; the texts stand in core/messages.cpp.
namespace message {
inline constexpr std::int16_t kNoInputTexts = 1;
inline constexpr std::int16_t kDetailsMissing = 2;
inline constexpr std::int16_t kFolderMissing = 3;
inline constexpr std::int16_t kFileMade = 4;
inline constexpr std::int16_t kNoRowToEdit = 5;
inline constexpr std::int16_t kAttachmentMissing = 6;
inline constexpr std::int16_t kSoundMissing = 7;
inline constexpr std::int16_t kFilmMissing = 8;
inline constexpr std::int16_t kInputFolderMissing = 9;
inline constexpr std::int16_t kProjectFolderMissing = 10;
inline constexpr std::int16_t kCollectionPictureMissing = 11;
inline constexpr std::int16_t kFirstMusicMissing = 12;
inline constexpr std::int16_t kSecondMusicMissing = 13;
inline constexpr std::int16_t kBackgroundMissing = 14;
inline constexpr std::int16_t kNoCollectionWaits = 15;
inline constexpr std::int16_t kInputFolderNotSet = 16;
inline constexpr std::int16_t kFirstCountNotSet = 17;
inline constexpr std::int16_t kSecondCountNotSet = 18;
inline constexpr std::int16_t kThirdCountNotSet = 19;
inline constexpr std::int16_t kFirstMusicNotSet = 20;
inline constexpr std::int16_t kSecondMusicNotSet = 21;
inline constexpr std::int16_t kCollectionPictureNotSet = 22;
inline constexpr std::int16_t kProjectFolderNotSet = 23;
inline constexpr std::int16_t kBackgroundNotSet = 24;
inline constexpr std::int16_t kNoImageMark = 25;
inline constexpr std::int16_t kExportFolderMissing = 26;
inline constexpr std::int16_t kNoExportScript = 27;
inline constexpr std::int16_t kExportFailed = 28;
inline constexpr std::int16_t kExportReady = 29;
}  // namespace message

// Under which a failure of the operation is told. Those up to 99 reach the log alone, and some
// operations share one; the last two have a box, too.
namespace failure {
inline constexpr std::int16_t kFirst = 31;
inline constexpr std::int16_t kMusicSwitch = 31;
inline constexpr std::int16_t kHelp = 33;
inline constexpr std::int16_t kPickCollectionPicture = 34;
inline constexpr std::int16_t kPickFirstMusic = 35;
inline constexpr std::int16_t kPickSecondMusic = 36;
inline constexpr std::int16_t kPickBackground = 37;
inline constexpr std::int16_t kPickInputFolder = 38;
inline constexpr std::int16_t kLoadProjectWindow = 39;
inline constexpr std::int16_t kReadSettings = 40;
inline constexpr std::int16_t kReadTag = 41;
inline constexpr std::int16_t kListCollections = 42;
inline constexpr std::int16_t kRestoreWindows = 43;
inline constexpr std::int16_t kRouteChoice = 44;
inline constexpr std::int16_t kSlashPath = 45;
inline constexpr std::int16_t kPickExportFolder = 46;
inline constexpr std::int16_t kPickGalleryFolder = 46;
inline constexpr std::int16_t kPickProjectFolder = 47;
inline constexpr std::int16_t kFindPaths = 48;
inline constexpr std::int16_t kMakeFolders = 50;
inline constexpr std::int16_t kShowRow = 51;
inline constexpr std::int16_t kKeepRow = 52;
inline constexpr std::int16_t kOpenRow = 53;
inline constexpr std::int16_t kDeleteRow = 54;
inline constexpr std::int16_t kAddPicture = 54;
inline constexpr std::int16_t kOpenText = 55;
inline constexpr std::int16_t kTickPicture = 55;
inline constexpr std::int16_t kInsertImage = 56;
inline constexpr std::int16_t kBuild = 57;
inline constexpr std::int16_t kRemovePicture = 57;
inline constexpr std::int16_t kDropLineEnds = 58;
inline constexpr std::int16_t kMark = 59;
inline constexpr std::int16_t kLoadWorkbench = 60;
inline constexpr std::int16_t kNameCollection = 61;
inline constexpr std::int16_t kEmptyList = 63;
inline constexpr std::int16_t kListTexts = 64;
inline constexpr std::int16_t kShorten = 65;
inline constexpr std::int16_t kReset = 66;
inline constexpr std::int16_t kPlainText = 67;
inline constexpr std::int16_t kImageTags = 68;
inline constexpr std::int16_t kLoadHelp = 69;
inline constexpr std::int16_t kPressButton = 70;
inline constexpr std::int16_t kPickSound = 71;
inline constexpr std::int16_t kPickFilm = 72;
inline constexpr std::int16_t kPickAttachment = 73;
inline constexpr std::int16_t kCopy = 74;
inline constexpr std::int16_t kCut = 75;
inline constexpr std::int16_t kDelete = 76;
inline constexpr std::int16_t kLoadParagraphWindow = 77;
inline constexpr std::int16_t kOpenMenu = 78;
inline constexpr std::int16_t kPaste = 79;
inline constexpr std::int16_t kRebuildParagraphs = 80;
inline constexpr std::int16_t kClickBackground = 81;
inline constexpr std::int16_t kShowBackground = 82;
inline constexpr std::int16_t kBlankParagraphs = 83;
inline constexpr std::int16_t kBackgroundAttribute = 84;
inline constexpr std::int16_t kAttachmentAttributes = 85;
inline constexpr std::int16_t kBringBack = 86;
inline constexpr std::int16_t kDropRecord = 87;
inline constexpr std::int16_t kNext = 101;
inline constexpr std::int16_t kExport = 102;
}  // namespace failure

}  // namespace core
