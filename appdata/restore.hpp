// Restoring and deleting the target application's backups.
#pragma once

#include "platform/HomeScreen.hpp"

namespace appdata {

/// Added as `restoreData`: offers the archives; a tap on one replaces the data container by it.
void restoreData(MenuHost* host, SEL selector);
/// Added as `restoreDataSucces`: takes the overlay away and tells that it is done.
void restoreDataSucces(MenuHost* host, SEL selector);
/// Added as `deleteBackUp`: offers the archives; a tap on one deletes it.
void deleteBackUp(MenuHost* host, SEL selector);
/// Added as `deleteBackUpSucces`: tells that it is done.
void deleteBackUpSucces(MenuHost* host, SEL selector);

}  // namespace appdata
