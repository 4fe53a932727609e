// Backing up the target application's data container.
#pragma once

#include "platform/HomeScreen.hpp"

namespace appdata {

/// Added as `backUpData`: packs the data container into one archive in the application's backup folder.
void backUpData(MenuHost* host, SEL selector);
/// Added as `backUpDataSucces`: takes the overlay away and tells that it is done.
void backUpDataSucces(MenuHost* host, SEL selector);

}  // namespace appdata
