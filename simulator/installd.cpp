// Tells what is installed, read as the home screen reads it: every application of the device, or the one in the
// bundle's folder that is given.
#include <nlohmann/json.hpp>

#include "simulator/device/messages.hpp"
#include "simulator/frameworks/foundation/foundation.hpp"
#include "simulator/frameworks/launch_services/installed.hpp"

int main(int count, char** arguments) {
  constexpr int driver = 3;
  const AutoreleasePool pool;
  sim::installFoundationAdditions();
  std::vector<sim::InstalledApplication> applications;
  if (count == 1) {
    applications = sim::installedApplications();
  } else if (auto application = sim::applicationIn(arguments[1])) {
    applications.push_back(std::move(*application));
  }
  auto list = nlohmann::json::array();
  for (const auto& application : applications)
    list.push_back({{"id", application.bundleIdentifier},
                    {"name", application.name},
                    {"version", application.version},
                    {"bundle", application.bundlePath},
                    {"data", application.containerPath.value_or("")}});
  return sim::Messages(driver).send({{"applications", list}}) ? 0 : 1;
}
