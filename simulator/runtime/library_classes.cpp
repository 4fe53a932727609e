// Counts the live objects of the classes that the library registers, without changing those classes: their
// objects are made and go by the root class's methods.
#include <dlfcn.h>

#include <algorithm>
#include <vector>

#include "simulator/runtime/call_log.hpp"
#include "simulator/runtime/class_builder.hpp"

namespace {

// Objects go until the very end of the process: this stays, like everything that their going looks at.
std::vector<Class>& counted() {
  static auto* const classes = new std::vector<Class>;
  return *classes;
}

bool isCounted(Class cls) { return std::find(counted().begin(), counted().end(), cls) != counted().end(); }

id (*rootAllocate)(Class cls, SEL selector, void* zone) = nullptr;
void (*rootDeallocate)(id self, SEL selector) = nullptr;

id allocate(Class cls, SEL selector, void* zone) {
  if (isCounted(cls)) sim::detail::countAllocation(cls);
  return rootAllocate(cls, selector, zone);
}

void deallocate(id self, SEL selector) {
  if (isCounted(self->isa)) sim::detail::countDeallocation(self->isa);
  rootDeallocate(self, selector);
}

template <class Function>
void replace(Method method, Function* replacement, Function*& replaced) {
  replaced = reinterpret_cast<Function*>(method_setImplementation(method, reinterpret_cast<IMP>(replacement)));
}

/// Classes of the simulator's own count their objects, those of subclasses too.
bool countsItself(Class cls) {
  return class_getClassMethod(cls, "allocWithZone:"_sel) != class_getClassMethod("NSObject"_cls, "allocWithZone:"_sel);
}

void count(Class cls) {
  if (counted().empty()) {
    replace(class_getClassMethod("NSObject"_cls, "allocWithZone:"_sel), &allocate, rootAllocate);
    replace(class_getInstanceMethod("NSObject"_cls, "dealloc"_sel), &deallocate, rootDeallocate);
  }
  counted().push_back(cls);
}

}  // namespace

/// Stands before the runtime's function of this name.
extern "C" void objc_registerClassPair(Class cls) {
  using Function = void (*)(Class);
  static const auto original = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "objc_registerClassPair"));
  original(cls);
  if (sim::isMappingLibrary() && !countsItself(cls)) count(cls);
}
