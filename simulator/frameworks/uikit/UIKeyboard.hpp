#pragma once

#include "simulator/frameworks/uikit/UIWindow.hpp"

namespace sim {

/// Brings the keyboard up while a text field of the key window has the focus, and takes it away otherwise.
void updateKeyboard();

/// Whether it is the window that the keyboard stands in.
bool isKeyboardWindow(const UIWindow* window);

/// Defines the keyboard's window.
void defineUIKeyboard();

}  // namespace sim
