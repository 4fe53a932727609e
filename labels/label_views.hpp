// Hiding icon labels, and refreshing them on request.
#pragma once

#include "platform/HomeScreen.hpp"

namespace labels {

void layoutSubviews(SBIconView* view, SEL selector);
inline constinit decltype(&layoutSubviews) platformLayoutSubviews = nullptr;

/// Added as `recievedIconLablelUpdate`: the settings pane asks for a label update.
void recievedIconLablelUpdate(SBIconView* view, SEL selector);
/// Added as `renameIconLablelUpdate` in the new generation: a label has been renamed.
void renameIconLablelUpdate(SBIconView* view, SEL selector);
/// Added as `_sprigDial_registerNotification` in the new generation: listens for both.
void registerNotification(SBIconView* view, SEL selector);

// Old generation.
SBIconView* initWithContentType(SBIconView* view, SEL selector, NSUInteger contentType);
inline constinit decltype(&initWithContentType) platformInitWithContentType = nullptr;

// New generation.
SBIconView* initWithFrame(SBIconView* view, SEL selector, CGRect frame);
inline constinit decltype(&initWithFrame) platformInitWithFrame = nullptr;

SBIconView* initWithOptions(SBIconView* view, SEL selector, NSUInteger options);
inline constinit decltype(&initWithOptions) platformInitWithOptions = nullptr;

SBIconView* initWithOptionsAndLayout(SBIconView* view, SEL selector, NSUInteger options, NSObject* layoutProvider);
inline constinit decltype(&initWithOptionsAndLayout) platformInitWithOptionsAndLayout = nullptr;

}  // namespace labels
