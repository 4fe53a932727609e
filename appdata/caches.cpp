#include "appdata/caches.hpp"

#include "appdata/alert.hpp"
#include "appdata/container.hpp"

namespace appdata {

void clearCaches(MenuHost* host, SEL) {
  const Ref<NSString> caches = dataContainer()->appending("/Library/Caches"_ns);
  confirm(targetName(), "Are you sure you want to clear the caches?"_ns, [host, caches] {
    emptyFolder(caches);
    closeAlertWindow();
    send(host, "clearCachesSucces"_sel);
  });
}

void clearCachesSucces(MenuHost*, SEL) { presentMessage(targetName(), "Cache cleared successfully"_ns); }

}  // namespace appdata
