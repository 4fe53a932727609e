// The hooking loader.
#pragma once

#include "platform/objc.hpp"

extern "C" {
/// Replaces the class's implementation of `message` and stores the replaced one in `*previous` before the
/// replacement can be called. A class or a method that is absent is left alone.
void MSHookMessageEx(Class cls, SEL message, IMP replacement, IMP* previous);
}
