#include "simulator/runtime/library.hpp"

#include <dlfcn.h>

#include <stdexcept>

#include "simulator/runtime/call_log.hpp"

namespace sim {

void mapLibrary(const std::string& path) {
  setMappingLibrary(true);
  const void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  setMappingLibrary(false);
  if (library == nullptr) throw std::runtime_error(dlerror());
}

}  // namespace sim
