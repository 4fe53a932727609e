#include "appdata/file_manager.hpp"

#include "appdata/container.hpp"
#include "state/generation.hpp"

namespace appdata {
namespace {

void openInFileManager(NSString* path) {
  NSURL* url = NSURL::withString("filza:/"_ns->appending(path));
  if (url != nullptr) UIApplication::sharedApplication()->openURL(url);
}

}  // namespace

void openInFilzaApp(MenuHost*, SEL) {
  NSString* bundle = bundleTextOf(targetApplication()->info());
  if (bundle == nullptr) return;
  NSString* propertyList = bundle->appending(NSString::text(Generation::current().bundlePlist));
  openInFileManager(NSFileManager::defaultManager()->fileExists(propertyList) ? propertyList : bundle);
}

void openInFilzaData(MenuHost*, SEL) { openInFileManager(lookUpDataContainer().path->appending("/Documents"_ns)); }

}  // namespace appdata
