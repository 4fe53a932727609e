#pragma once

namespace sim {

/// Gives `NSFileManager` the method `subpathsOfDirectoryAtPath:error:`.
void installSubpaths();

}  // namespace sim
