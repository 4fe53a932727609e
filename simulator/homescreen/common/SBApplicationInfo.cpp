#include "simulator/homescreen/common/SBApplicationInfo.hpp"

#include <cctype>
#include <string_view>

namespace sim {
namespace {

// A path as it stands in a URL.
std::string percentEncoded(const std::string& path) {
  constexpr std::string_view plain = "/-._~!$&'()*+,=:@";
  constexpr char digits[] = "0123456789ABCDEF";
  std::string encoded;
  for (const char character : path) {
    const auto byte = static_cast<unsigned char>(character);
    if (std::isalnum(byte) != 0 || plain.find(character) != std::string_view::npos) encoded += character;
    else encoded += {'%', digits[byte >> 4], digits[byte & 15]};
  }
  return encoded;
}

}  // namespace

id SBApplicationInfo::installInstanceID() {
  if (application.bundlePath.empty()) return nullptr;
  // The old generation's URL was made without knowing that it leads to a folder.
  const char* end = home().generation == Generation::old ? "" : "/";
  return ns("file://" + percentEncoded(application.bundlePath) + end);
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
