#include "simulator/frameworks/launch_services/LSApplicationProxy.hpp"

namespace sim {

LSApplicationProxy* LSApplicationProxy::applicationProxyForIdentifier(Class cls, id bundleIdentifier) {
  auto proxy = make<LSApplicationProxy>(cls);
  for (const auto& application : installedApplications())
    if (application.bundleIdentifier == text(bundleIdentifier)) proxy->application = application;
  return autoreleased(proxy);
}

void defineLSApplicationProxy() {
  ClassBuilder<LSApplicationProxy>("LSApplicationProxy", "NSObject")
      .classMethod<&LSApplicationProxy::applicationProxyForIdentifier>("applicationProxyForIdentifier:")
      .method<&LSApplicationProxy::localizedName>("localizedName")
      .add();
}

}  // namespace sim
