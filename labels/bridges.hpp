// Darwin notifications about labels, handed on to the icon views as local ones. The names are spelled as the
// settings pane and the icon views know them.
#pragma once

#include "platform/CoreFoundation.hpp"

namespace labels {

/// The settings pane asks for a label update.
void updateLabels(CFNotificationCenterRef, void*, CFStringRef, const void*, const void*);
/// A label has been renamed.
void refreshRenamedLabels(CFNotificationCenterRef, void*, CFStringRef, const void*, const void*);

}  // namespace labels
