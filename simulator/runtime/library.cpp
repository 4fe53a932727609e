#include "simulator/runtime/library.hpp"

#include <dlfcn.h>

#include <chrono>
#include <stdexcept>

#include "simulator/runtime/call_log.hpp"

namespace sim {
namespace {
double seconds = 0;
}  // namespace

void mapLibrary(const std::string& path) {
  setMappingLibrary(true);
  const auto start = std::chrono::steady_clock::now();
  const void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  setMappingLibrary(false);
  if (library == nullptr) throw std::runtime_error(dlerror());
}

double mappingSeconds() { return seconds; }

}  // namespace sim
