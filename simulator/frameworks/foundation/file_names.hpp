#pragma once

#include <string>
#include <string_view>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// A name or path of the file system as a text. A phone's file system takes none that is no text in UTF-8; the one here
/// does, and then each byte that belongs to no character stands as "%FF", as a phone shows the names of volumes that
/// know no better: such files can be counted, opened and removed like any others. Not autoreleased: a long listing
/// leaves nothing else behind.
Ref<objc_object> textOfPath(std::string_view path);
/// The bytes behind a path's text. What looks like such a byte is one only where no file has just that name.
std::string bytesOfPath(id path);

/// Lets the file manager, and with it all of Foundation, translate paths in this way.
void installFileNames();

}  // namespace sim
