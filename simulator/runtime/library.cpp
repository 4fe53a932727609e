#include "simulator/runtime/library.hpp"

#include <dlfcn.h>

#include <stdexcept>

#include "simulator/runtime/call_log.hpp"

namespace {
bool mapping = false;
}

/// Stands before the runtime's own function of this name, to log what the library adds.
extern "C" BOOL class_addMethod(Class cls, SEL selector, IMP implementation, const char* types) {
  using Function = BOOL (*)(Class, SEL, IMP, const char*);
  static const auto original = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "class_addMethod"));
  const bool added = original(cls, selector, implementation, types);
  if (mapping && added) sim::logMethod(sim::Call::Kind::add, cls, selector, types);
  return added;
}

namespace sim {

void mapLibrary(const std::string& path) {
  mapping = true;
  const void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  mapping = false;
  if (library == nullptr) throw std::runtime_error(dlerror());
}

}  // namespace sim
