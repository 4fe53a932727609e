// How large an application's caches are, and how the menu says it.
#pragma once

#include "platform/Foundation.hpp"

namespace menu {

/// The sizes of everything below the folder, in bytes; what cannot be read adds nothing.
std::uint64_t folderSize(const NSString* folder);
/// "Clear Caches(3.47 MB)"; whole mebibytes are written without a fraction.
NSString* cacheSizeTitle(std::uint64_t bytes);

}  // namespace menu
