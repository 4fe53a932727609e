// Copying an application's bundle identifier or URL schemes. The menu is closed already.
#pragma once

namespace clipboard {

/// Puts the current bundle identifier on the pasteboard; says nothing.
void copyBundleIdentifier();
/// Puts the application's URL schemes on the pasteboard, a line for each URL type; tells when it has none.
void copyURLSchemes();

}  // namespace clipboard
