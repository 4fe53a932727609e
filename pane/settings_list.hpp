// The pane's first page: what can be set.
#pragma once

namespace pane {

/// Registers `SprigdialSettingsController`, the bundle's principal class.
void registerSettingsList();

}  // namespace pane
