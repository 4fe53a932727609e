#include "simulator/homescreen/common/SBApplicationInfo.hpp"

#include "simulator/homescreen/common/platform_actions.hpp"

namespace sim {

id SBApplicationInfo::installInstanceID() {
  if (application.bundlePath.empty()) return nullptr;
  id path = send<id>(ns(application.bundlePath), "stringByAddingPercentEncodingWithAllowedCharacters:"_sel,
                     send<id>("NSCharacterSet"_cls, "URLPathAllowedCharacterSet"_sel));
  return ns("file://" + text(path) + platformActions().endOfBundleURL);
}

id SBApplicationInfo::dataContainerURL() {
  if (!application.containerPath) return nullptr;
  return send<id>("NSURL"_cls, "fileURLWithPath:"_sel, ns(*application.containerPath));
}

Ref<SBApplicationInfo> makeApplicationInfo(const InstalledApplication& application) {
  auto info = make<SBApplicationInfo>("SBApplicationInfo"_cls);
  info->application = application;
  return info;
}

void defineSBApplicationInfo() {
  ClassBuilder<SBApplicationInfo>("SBApplicationInfo", "NSObject")
      .method<&SBApplicationInfo::bundleIdentifier>("bundleIdentifier")
      .method<&SBApplicationInfo::displayName>("displayName")
      .method<&SBApplicationInfo::installInstanceID>("installInstanceID")
      .method<&SBApplicationInfo::dataContainerURL>("dataContainerURL")
      .add();
}

}  // namespace sim
