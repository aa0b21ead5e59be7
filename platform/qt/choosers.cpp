// Drive, folder and file lists.
#include <QComboBox>
#include <QPointer>

#include "platform/failure.h"
#include "platform/files/file_system.h"
#include "platform/files/paths.h"
#include "platform/qt/conversions.h"
#include "platform/qt/list_widget.h"
#include "platform/qt/peers.h"
#include "platform/qt/trampoline.h"
#include "platform/windows/mask.h"

namespace platform {
namespace {

struct DriveListPeer : Control::Peer {
  QComboBox& Combo() const { return static_cast<QComboBox&>(*widget); }
};

// Lines: the folders from the root down to the open one, then those inside it.
struct FolderListPeer : Control::Peer {
  ListWidget& List() const { return static_cast<ListWidget&>(*widget); }
  Text path;
  std::vector<Text> paths;  // one for each line
};

struct FileListPeer : Control::Peer {
  ListWidget& List() const { return static_cast<ListWidget&>(*widget); }
  Text path;
  Text pattern = u"*.*";
};

// The root of the one drive that a host without drive letters has.
constexpr TextView kDrive = u"C:";

// "C:\a\b" from any way to write it: no separator at the end but the root's.
Text NormalFolder(TextView path) {
  Text folder = ToolPath(HostPath(path));
  while (folder.size() > 3 && folder.back() == u'\\') folder.pop_back();
  return folder;
}

Text LastName(TextView folder) {
  return folder.size() <= 3 ? Text(folder) : Text(After(folder, u"\\"));
}

void AddLine(FolderListPeer& peer, const Text& path, std::size_t depth, bool open) {
  auto* item = new QListWidgetItem(QString(static_cast<qsizetype>(2 * depth), u' ') +
                                   ToQString(LastName(path)));
  QFont font = item->font();
  font.setBold(open);
  item->setFont(font);
  peer.List().addItem(item);
  peer.paths.push_back(path);
}

// A folder that can't be read leaves the list as it was.
void FillFolders(FolderListPeer& peer, const Text& path) {
  const std::vector<Text> inside = HostFileSystem().FolderNames(path);
  peer.path = path;
  peer.List().clear();
  peer.paths.clear();
  std::size_t depth = 0;
  for (std::size_t end = 2; end != Text::npos; end = peer.path.find(u'\\', end + 1)) {
    if (end + 1 == peer.path.size()) break;
    const Text ancestor = peer.path.substr(0, end == 2 ? 3 : end);
    if (ancestor != peer.path) AddLine(peer, ancestor, depth++, false);
  }
  AddLine(peer, peer.path, depth, true);
  peer.List().setCurrentRow(static_cast<int>(depth));
  for (const Text& name : inside) {
    if (name.front() != u'.') AddLine(peer, DoSlash(peer.path) + name, depth + 1, false);
  }
}

// A folder that can't be read stays closed: that is no reason to end the process.
void OpenLine(FolderList& control, const FolderListPeer& peer) {
  const int row = peer.List().SelectedRow();
  if (row < 0) return;
  const Text path = peer.paths[static_cast<std::size_t>(row)];
  bool readable = false;
  Ignoring([&] {
    HostFileSystem().FolderNames(path);
    readable = true;
  });
  if (readable) control.SetPath(path);
}

// A folder that can't be read leaves the list as it was.
void FillFiles(FileListPeer& peer, const Text& path) {
  const std::vector<Text> names = HostFileSystem().FileNames(path);
  peer.path = path;
  peer.List().clear();
  for (const Text& name : names) {
    if (FitsMasks(name, peer.pattern)) peer.List().addItem(ToQString(name));
  }
}

}  // namespace

std::unique_ptr<Control::Peer> MakeDriveList(const ControlRow&, QWidget* parent,
                                             DriveList* control) {
  auto peer = std::make_unique<DriveListPeer>();
  auto* combo = new QComboBox(parent);
  combo->setLayoutDirection(Qt::LeftToRight);
  combo->addItem(ToQString(kDrive));
  peer->widget = combo;
  if (control != nullptr) {
    QObject::connect(combo, &QComboBox::activated, &peer->anchor, peer->Gate(control->onChange));
  }
  return peer;
}

Text DriveList::Drive() const { return ToText(PeerOf<DriveListPeer>(*this).Combo().currentText()); }

void DriveList::SetDrive(TextView drive) {
  PeerOf<DriveListPeer>(*this);
  if (drive.empty() || UCase(drive.substr(0, 1)) != kDrive.substr(0, 1)) {
    throw Failure(u"Device unavailable: " + platform::Text(drive));
  }
}

std::unique_ptr<Control::Peer> MakeFolderList(const ControlRow&, QWidget* parent,
                                              FolderList* control) {
  auto peer = std::make_unique<FolderListPeer>();
  auto* list = new ListWidget(parent);
  list->setLayoutDirection(Qt::LeftToRight);
  peer->widget = list;
  if (control != nullptr) {
    list->onOpened = [control, raw = peer.get(), alive = QPointer<QObject>(&peer->anchor)] {
      if (alive != nullptr) FromEvent([&] { OpenLine(*control, *raw); });
    };
  }
  return peer;
}

Text FolderList::Path() const { return PeerOf<FolderListPeer>(*this).path; }

void FolderList::SetPath(TextView path) {
  auto& peer = PeerOf<FolderListPeer>(*this);
  const platform::Text folder = NormalFolder(path);
  if (!HostFileSystem().FolderExists(folder)) throw Failure(u"Path not found: " + folder);
  const platform::Text before = peer.path;
  FillFolders(peer, folder);
  if (before != folder && onChange) onChange();
}

std::unique_ptr<Control::Peer> MakeFileList(const ControlRow&, QWidget* parent, FileList* control) {
  auto peer = std::make_unique<FileListPeer>();
  auto* list = new ListWidget(parent);
  list->setLayoutDirection(Qt::LeftToRight);
  peer->widget = list;
  if (control != nullptr) list->onOpened = peer->Gate(control->onDoubleClick);
  return peer;
}

Text FileList::Path() const { return PeerOf<FileListPeer>(*this).path; }

void FileList::SetPath(TextView path) {
  auto& peer = PeerOf<FileListPeer>(*this);
  const platform::Text folder = NormalFolder(path);
  if (!HostFileSystem().FolderExists(folder)) throw Failure(u"Path not found: " + folder);
  FillFiles(peer, folder);
}

void FileList::SetPattern(TextView pattern) {
  auto& peer = PeerOf<FileListPeer>(*this);
  peer.pattern = pattern;
  if (!peer.path.empty()) FillFiles(peer, peer.path);
}

Text FileList::FileName() const {
  const ListWidget& list = PeerOf<FileListPeer>(*this).List();
  const int row = list.SelectedRow();
  return row < 0 ? platform::Text() : ToText(list.item(row)->text());
}

}  // namespace platform
