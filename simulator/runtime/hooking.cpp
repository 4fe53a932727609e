// The hooking loader's entry point, and the runtime's function that adds methods: the two ways in which the
// library changes classes. Both are logged while it is mapped.
#include "platform/hooking.hpp"

#include <dlfcn.h>

#include "simulator/runtime/call_log.hpp"
#include "simulator/runtime/objc.hpp"

namespace {

// The runtime's own function. Its `class_replaceMethod` is no help where a method is inherited: it changes the
// superclass.
BOOL addMethod(Class cls, SEL selector, IMP implementation, const char* types) {
  using Function = BOOL (*)(Class, SEL, IMP, const char*);
  static const auto original = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "class_addMethod"));
  return original(cls, selector, implementation, types);
}

}  // namespace

/// Stands before the runtime's function of this name.
extern "C" BOOL class_addMethod(Class cls, SEL selector, IMP implementation, const char* types) {
  const bool added = addMethod(cls, selector, implementation, types);
  if (added) sim::logMethod(sim::Call::Kind::add, cls, selector, types);
  return added;
}

extern "C" void MSHookMessageEx(Class cls, SEL message, IMP replacement, IMP* previous) {
  Method method = cls != nullptr ? class_getInstanceMethod(cls, message) : nullptr;
  if (method == nullptr) return sim::logMissingMethod(cls, message);
  const char* types = method_getTypeEncoding(method);
  sim::logMethod(sim::Call::Kind::hook, cls, message, types);
  *previous = method_getImplementation(method);
  const bool inherited = class_getInstanceMethod(class_getSuperclass(cls), message) == method;
  if (inherited) {
    addMethod(cls, message, replacement, types);
  } else {
    method_setImplementation(method, replacement);
  }
}
