// Removing all of the target application's user data.
#pragma once

#include "platform/HomeScreen.hpp"

namespace appdata {

/// Added as `resetAppData`: warns, then empties the Library and Documents folders.
void resetAppData(MenuHost* host, SEL selector);
/// Added as `resetAppDataSucces`: tells that it is done.
void resetAppDataSucces(MenuHost* host, SEL selector);

}  // namespace appdata
