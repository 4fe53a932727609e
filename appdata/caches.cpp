#include "appdata/caches.hpp"

#include "appdata/alert.hpp"
#include "appdata/container.hpp"

namespace appdata {

void clearCaches(MenuHost* host, SEL) {
  const DataContainer container = lookUpDataContainer();
  NSString* caches = container.path->appending("/Library/Caches"_ns);
  NSFileManager* files = NSFileManager::defaultManager();
  confirm(container.title, "Are you sure you want to clear the caches?"_ns,
          makeBlock<void(UIAlertAction*)>([host, files = Ref(files), caches = Ref(caches)] {
            emptyFolder(files, caches);
            closeAlertWindow();
            send(host, "clearCachesSucces"_sel);
          }));
}

void clearCachesSucces(MenuHost*, SEL) { presentMessage(lookUpDataContainer().title, "Cache cleared successfully"_ns); }

}  // namespace appdata
