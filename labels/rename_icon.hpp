// The class `RenameIcon`: the dialog that renames an icon.
#pragma once

namespace labels {

/// Registers the class with the runtime.
void registerRenameIcon();

}  // namespace labels
