#include "appdata/backup.hpp"

#include "appdata/alert.hpp"
#include "appdata/archiver.hpp"
#include "appdata/container.hpp"
#include "appdata/result.hpp"

namespace appdata {
namespace {

// "YYYY" is the year that the week belongs to; names made so far carry it, and are read back by it.
NSString* archiveName() {
  const NSDate* now = NSDate::date();
  const auto* formatter = NSDateFormatter::with("en_US_POSIX"_ns, "YYYY-MM-dd.HH_mm_ss"_ns);
  return formatter->string(now)->replacing(" "_ns, ""_ns);
}

}  // namespace

void backUpData(MenuHost* host, SEL) {
  const DataContainer container = lookUpDataContainer();
  NSString* folder = backupFolder(container.identifier);
  NSFileManager* files = NSFileManager::defaultManager();
  if (!files->fileExists(folder)) files->createDirectory(folder);
  if (!files->fileExists(container.path) || !files->fileExists(folder)) {
    presentMessage(container.title, "User data not found"_ns);
    return;
  }
  send(host, "showLoadingView"_sel);
  if (!runArchiver(folder, NSMutableArray::of("cfz"_ns, archiveName(), container.path))) return;
  send(host, "backUpDataSucces"_sel);
}

void backUpDataSucces(MenuHost*, SEL) { presentResult("BackUp data successfully"_ns); }

}  // namespace appdata
