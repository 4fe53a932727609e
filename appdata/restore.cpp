#include "appdata/restore.hpp"

#include "appdata/alert.hpp"
#include "appdata/archiver.hpp"
#include "appdata/container.hpp"
#include "appdata/result.hpp"

namespace appdata {
namespace {

NSString* buttonTitle(NSString* archive) { return archive->replacing("_"_ns, ":"_ns)->replacing("."_ns, " "_ns); }
NSString* archiveOf(UIAlertAction* button) {
  return button->title()->replacing(":"_ns, "_"_ns)->replacing(" "_ns, "."_ns);
}

// A name of one or two blanks becomes one of these: the backup folder itself, and the folder of all backups.
bool isFolder(NSString* archive) { return archive->isEqualToString("."_ns) || archive->isEqualToString(".."_ns); }

// Offers the application's archives, latest name first.
void offer(const DataContainer& container, NSArray* archives, const Block<void(UIAlertAction*)>* choose) {
  NSArray* latestFirst = archives->sortedDescending();
  auto* sheet =
      UIAlertController::alertController(container.title, container.identifier, UIAlertControllerStyle::actionSheet);
  const NSUInteger count = latestFirst->count();
  for (NSUInteger i = 0; i < count; ++i) {
    NSString* title = buttonTitle(latestFirst->at<NSString>(i));
    sheet->addAction(UIAlertAction::action(title, UIAlertActionStyle::standard, choose));
  }
  sheet->addAction(cancelAction());
  presentAlert(sheet, Popover::anchored, makeBlock<void()>([] {}));
}

void tellThatThereIsNone(NSString* title) { presentMessage(title, "Please Use BackUp first!"_ns); }

}  // namespace

void restoreData(MenuHost* host, SEL) {
  const DataContainer container = lookUpDataContainer();
  NSString* folder = backupFolder(container.identifier);
  NSFileManager* files = NSFileManager::defaultManager();
  NSError* error = nullptr;
  NSArray* archives = files->contentsOfDirectory(folder, &error);
  // An empty folder is offered as an empty sheet here; only deleting has something to say about it.
  if (error != nullptr) return tellThatThereIsNone(container.title);
  offer(container, archives,
        makeBlock<void(UIAlertAction*)>(
            [host, files = Ref(files), path = Ref(container.path), folder = Ref(folder)](UIAlertAction* button) {
              NSString* archive = archiveOf(button);
              send(host, "showLoadingView"_sel);
              files->removeItem(path);
              if (!runArchiver(folder, NSMutableArray::of("xfz"_ns, archive, "-C"_ns, "/"_ns))) return;
              send(host, "restoreDataSucces"_sel);
            }));
}

void restoreDataSucces(MenuHost*, SEL) { presentResult("Restore data successfully"_ns); }

void deleteBackUp(MenuHost* host, SEL) {
  const DataContainer container = lookUpDataContainer();
  NSString* folder = backupFolder(container.identifier);
  NSFileManager* files = NSFileManager::defaultManager();
  NSError* error = nullptr;
  NSArray* archives = files->contentsOfDirectory(folder, &error);
  if (error != nullptr || archives->count() == 0) return tellThatThereIsNone(container.title);
  offer(container, archives,
        makeBlock<void(UIAlertAction*)>([host, files = Ref(files), folder = Ref(folder)](UIAlertAction* button) {
          NSString* archive = archiveOf(button);
          if (isFolder(archive)) return;
          NSString* path = folder->appending("/"_ns)->appending(archive);
          if (files->removeItem(path)) send(host, "deleteBackUpSucces"_sel);
        }));
}

void deleteBackUpSucces(MenuHost*, SEL) { presentResult("Delete data successfully"_ns); }

}  // namespace appdata
