#include "simulator/frameworks/launch_services/LSApplicationProxy.hpp"

#include "simulator/frameworks/launch_services/installed.hpp"

namespace sim {

LSApplicationProxy* LSApplicationProxy::applicationProxyForIdentifier(Class cls, id identifier) {
  if (identifier == nullptr) return nullptr;
  auto proxy = make<LSApplicationProxy>(cls);
  const std::string wanted = text(identifier);
  for (const InstalledApplication& application : installedApplications())
    if (application.bundleIdentifier == wanted) proxy->localizedName = ns(application.name);
  return autoreleased(proxy);
}

void defineLSApplicationProxy() {
  ClassBuilder<LSApplicationProxy>("LSApplicationProxy", "NSObject")
      .classMethod<&LSApplicationProxy::applicationProxyForIdentifier>("applicationProxyForIdentifier:")
      .getter<&LSApplicationProxy::localizedName>("localizedName")
      .add();
}

}  // namespace sim
