// Clearing the target application's caches.
#pragma once

#include "platform/HomeScreen.hpp"

namespace appdata {

/// Added as `clearCaches`: asks, then empties the caches folder and keeps it.
void clearCaches(MenuHost* host, SEL selector);
/// Added as `clearCachesSucces`: tells that it is done.
void clearCachesSucces(MenuHost* host, SEL selector);

}  // namespace appdata
