#include "appdata/reset.hpp"

#include "appdata/alert.hpp"
#include "appdata/container.hpp"

namespace appdata {

void resetAppData(MenuHost* host, SEL) {
  const DataContainer container = lookUpDataContainer();
  NSString* library = container.path->appending("/Library"_ns);
  NSString* documents = container.path->appending("/Documents"_ns);
  NSString* caches = container.path->appending("/Library/Caches"_ns);
  NSString* preferences = container.path->appending("/Library/Preferences"_ns);
  NSFileManager* files = NSFileManager::defaultManager();
  NSString* message = "Are you sure you want to reset "_ns->appending(container.title)->appending("'s data?"_ns);
  confirm("Warning"_ns, message,
          makeBlock<void(UIAlertAction*)>([host, files = Ref(files), library = Ref(library), documents = Ref(documents),
                                           caches = Ref(caches), preferences = Ref(preferences)] {
            emptyFolder(files, library);
            emptyFolder(files, documents);
            // An application expects these two to be there. Without a container, though, "(null)" would become a
            // folder.
            if (library->isAbsolutePath()) {
              files->createDirectory(caches);
              files->createDirectory(preferences);
            }
            closeAlertWindow();
            send(host, "resetAppDataSucces"_sel);
          }));
}

void resetAppDataSucces(MenuHost*, SEL) { presentMessage(lookUpDataContainer().title, "Reset data successfully"_ns); }

}  // namespace appdata
