// Telling the result of an operation.
#pragma once

#include "platform/Foundation.hpp"

/// Presents the result of an operation on the target application, in place of the overlay: an alert with its name, or
/// without a title when no application is the current one.
void presentResult(NSString* message);
