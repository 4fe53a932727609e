// The pane's one entry point: runs when the settings application maps it, before it asks for the principal class.
#include "pane/muted_applications.hpp"
#include "pane/renamed_labels.hpp"
#include "pane/settings_list.hpp"
#include "platform/objc.hpp"

namespace {

[[gnu::constructor]] void start() {
  const AutoreleasePool pool;
  pane::registerSettingsList();
  pane::registerRenamedLabels();
  pane::registerMutedApplications();
}

}  // namespace
