// A presented controller's view over the window that its presenter stands in.
#pragma once

#include "simulator/frameworks/uikit/UIViewController.hpp"

namespace sim {

/// Puts the controller's view in front of everything in its window, with a view between that dims the rest and takes
/// the touches beside it.
void showPresented(UIViewController* controller);
/// Takes it away again.
void removePresented(UIViewController* controller);
/// Dims what lies behind a presented view.
void defineUIDimmingView();

}  // namespace sim
