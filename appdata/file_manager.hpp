// Opening the target application's folders in the file manager.
#pragma once

#include "platform/HomeScreen.hpp"

namespace appdata {

/// Added as `openInFilzaApp`: opens the bundle's property list, or the bundle folder when it has none.
void openInFilzaApp(MenuHost* host, SEL selector);
/// Added as `openInFilzaData`: opens the Documents folder of the data container, there or not.
void openInFilzaData(MenuHost* host, SEL selector);

}  // namespace appdata
