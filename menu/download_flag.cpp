#include "menu/download_flag.hpp"

#include "platform/dispatch.hpp"

namespace menu {
namespace {

// One hooking environment is exempt. It is told by what it leaves in the file system, which may change at any time.
bool isExemptEnvironment() {
  NSFileManager* files = NSFileManager::defaultManager();
  return files->fileExists("/usr/lib/libsubstitute.dylib"_ns) && !files->fileExists("/usr/lib/substrate"_ns) &&
         files->fileExists("/.installed_unc0ver"_ns);
}

}  // namespace

NSUInteger isDownloadingIcon(SBDownloadingIcon* icon, SEL selector) {
  if (!isExemptEnvironment()) downloading = true;
  return platformIsDownloadingIcon(icon, selector);
}

void uninstalledByUser(SBDownloadingIcon* icon, SEL selector) {
  constexpr std::int64_t halfASecond = 500'000'000;
  dispatch::afterOnMain(halfASecond, [] { postDarwinNotification("com.morvanel.sprigdial.isdownload"_ns); });
  platformUninstalledByUser(icon, selector);
}

void downloadEnded(CFNotificationCenterRef, void*, CFStringRef, const void*, const void*) { downloading = false; }

}  // namespace menu
