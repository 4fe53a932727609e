// What a person sees, read from views and windows, whichever process has them.
#pragma once

#include <cstdint>
#include <string>

#include "simulator/control/screen.hpp"
#include "simulator/frameworks/uikit/UIWindow.hpp"

namespace sim {

Frame readFrame(const CGRect& rect);
double seconds(std::int64_t nanoseconds);
/// The view with its subviews.
ViewOnScreen readView(UIView* view);
/// The window with its views; a person calls what it shows by the name.
WindowOnScreen readWindow(UIWindow* window, std::string name);

}  // namespace sim
