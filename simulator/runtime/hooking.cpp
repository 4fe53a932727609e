// The hooking loader's entry point.
#include "platform/hooking.hpp"

#include "simulator/runtime/call_log.hpp"
#include "simulator/runtime/objc.hpp"

extern "C" void MSHookMessageEx(Class cls, SEL message, IMP replacement, IMP* previous) {
  Method method = cls != nullptr ? class_getInstanceMethod(cls, message) : nullptr;
  if (method == nullptr) return;
  sim::logMethod(sim::Call::Kind::hook, cls, message, method_getTypeEncoding(method));
  *previous = method_getImplementation(method);
  const bool inherited = class_getInstanceMethod(class_getSuperclass(cls), message) == method;
  if (inherited) {
    class_replaceMethod(cls, message, replacement, method_getTypeEncoding(method));
  } else {
    method_setImplementation(method, replacement);
  }
}
