#include "simulator/frameworks/foundation/foundation.hpp"

#include "simulator/frameworks/foundation/delayed_messages.hpp"
#include "simulator/frameworks/foundation/file_names.hpp"
#include "simulator/frameworks/foundation/folder_listing.hpp"
#include "simulator/frameworks/foundation/paths.hpp"
#include "simulator/frameworks/foundation/property_list.hpp"
#include "simulator/frameworks/foundation/property_list_reading.hpp"
#include "simulator/frameworks/foundation/task.hpp"
#include "simulator/frameworks/foundation/user_defaults.hpp"
#include "simulator/runtime/blocks.hpp"

namespace sim {

void installFoundationAdditions() {
  static constexpr void (*additions[])() = {
      installPathHandling,  installFileNames,           defineBlockClasses,
      installUserDefaults,  installPropertyListReading, installPropertyListWriting,
      installFolderListing, installTaskWaiting,         installDelayedMessages};
  for (const auto install : additions) install();
}

}  // namespace sim
