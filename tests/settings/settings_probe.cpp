// Loads the settings and prints them as JSON, in a process with the platform's runtime and Foundation.
#include "settings/settings.hpp"

#include <cstdio>
#include <nlohmann/json.hpp>

#include "simulator/frameworks/foundation/foundation.hpp"

int main() {
  const AutoreleasePool pool;
  sim::installFoundationAdditions();
  loadSettings();
  const Settings& s = settings;
  const nlohmann::ordered_json values{{"enabled", s.enabled},
                                      {"direction", s.direction},
                                      {"slideValue", s.slideValue},
                                      {"useForce", s.useForce},
                                      {"useEditing", s.useEditing},
                                      {"useRename", s.useRename},
                                      {"useBadge", s.useBadge},
                                      {"useCustom", s.useCustom},
                                      {"useCopyID", s.useCopyID},
                                      {"useCopySchemes", s.useCopySchemes},
                                      {"openFilza", s.openFilza},
                                      {"useCache", s.useCache},
                                      {"useBackUp", s.useBackUp},
                                      {"useRestore", s.useRestore},
                                      {"delBackUp", s.delBackUp},
                                      {"useReset", s.useReset},
                                      {"useMute", s.useMute},
                                      {"openApp", s.openApp},
                                      {"showSize", s.showSize},
                                      {"useText", s.useText},
                                      {"hideLabel", s.hideLabel},
                                      {"disableType", s.disableType},
                                      {"muteLockScreen", s.muteLockScreen},
                                      {"muteBanners", s.muteBanners}};
  std::puts(values.dump().c_str());
  return 0;
}
