#pragma once

namespace sim {

/// Gives `NSFileManager` the methods `contentsOfDirectoryAtPath:error:` and `subpathsOfDirectoryAtPath:error:`, which
/// say why a folder cannot be listed: Foundation here takes one that cannot be read for an empty one.
void installFolderListing();

}  // namespace sim
