#include "appdata/reset.hpp"

#include "appdata/alert.hpp"
#include "appdata/container.hpp"

namespace appdata {

void resetAppData(MenuHost* host, SEL) {
  const Ref<NSString> container = dataContainer();
  NSString* message = "Are you sure you want to reset "_ns->appending(targetName())->appending("'s data?"_ns);
  confirm("Warning"_ns, message, [host, container] {
    emptyFolder(container->appending("/Library"_ns));
    emptyFolder(container->appending("/Documents"_ns));
    // An application expects these two to be there. Without a container, though, "(null)" would become a folder.
    if (container->isAbsolutePath()) {
      NSFileManager* files = NSFileManager::defaultManager();
      files->createDirectory(container->appending("/Library/Caches"_ns));
      files->createDirectory(container->appending("/Library/Preferences"_ns));
    }
    closeAlertWindow();
    send(host, "resetAppDataSucces"_sel);
  });
}

void resetAppDataSucces(MenuHost*, SEL) { presentMessage(targetName(), "Reset data successfully"_ns); }

}  // namespace appdata
