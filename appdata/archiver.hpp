// The system's archiver.
#pragma once

#include "platform/Foundation.hpp"

/// Runs tar in the folder and waits for its end, however it ends. NO when it cannot be started at all: then
/// nothing has happened.
bool runArchiver(NSString* folder, NSArray* arguments);
