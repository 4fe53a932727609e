#include "labels/bridges.hpp"

namespace labels {

void updateLabels(CFNotificationCenterRef, void*, CFStringRef, const void*, const void*) {
  NSNotificationCenter::defaultCenter()->post("com.morvanel.sprigdial.isIconLabeUpdate"_ns);
}

void refreshRenamedLabels(CFNotificationCenterRef, void*, CFStringRef, const void*, const void*) {
  NSNotificationCenter::defaultCenter()->post("com.morvanel.sprigdial.renameIconLablel"_ns);
}

}  // namespace labels
