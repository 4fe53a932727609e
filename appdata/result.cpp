#include "appdata/result.hpp"

#include "appdata/alert.hpp"
#include "appdata/container.hpp"

void presentResult(NSString* message) {
  dropAlertWindow();
  const DataContainer container = lookUpDataContainer();
  presentMessage(container.identifier != nullptr ? container.title : nullptr, message);
}
