#include "simulator/runtime/class_builder.hpp"

#include <cctype>
#include <stdexcept>

namespace sim {

std::map<std::string, long>& liveObjects() {
  // Objects go until the very end of the process.
  static auto* const counts = new std::map<std::string, long>;
  return *counts;
}

namespace detail {

void countAllocation(Class cls) { ++liveObjects()[class_getName(cls)]; }
void countDeallocation(Class cls) { --liveObjects()[class_getName(cls)]; }

namespace {
// The runtime places instance variables one after the other. Bytes between those with a name are padded, so
// that each lands where the C++ struct has its member.
void addPadding(Class cls, std::size_t from, std::size_t to) {
  if (from < to) class_addIvar(cls, ("members at " + std::to_string(from)).c_str(), to - from, 0, "?");
}
}  // namespace

Class allocateClass(const char* name, const char* superclass, std::size_t size, std::size_t superclassSize,
                    std::vector<NamedIvar> ivars) {
  Class base = objc_getClass(superclass);
  Class cls = base != nullptr ? objc_allocateClassPair(base, name, 0) : nullptr;
  if (cls == nullptr) throw std::logic_error(std::string("cannot define ") + name + ", a subclass of " + superclass);
  std::sort(ivars.begin(), ivars.end(), [](const auto& a, const auto& b) { return a.offset < b.offset; });
  std::size_t end = superclassSize;
  for (const auto& ivar : ivars) {
    addPadding(cls, end, ivar.offset);
    class_addIvar(cls, ivar.name.c_str(), ivar.size, 3, ivar.encoding.c_str());
    end = ivar.offset + ivar.size;
  }
  addPadding(cls, end, size);
  objc_registerClassPair(cls);
  for (const auto& ivar : ivars)
    if (static_cast<std::size_t>(ivar_getOffset(class_getInstanceVariable(cls, ivar.name.c_str()))) != ivar.offset)
      throw std::logic_error(std::string(name) + ": " + ivar.name + " is not where the struct has it");
  return cls;
}

void addMethod(Class cls, const char* selector, IMP implementation, const std::string& encoding) {
  class_addMethod(cls, sel_registerName(selector), implementation, encoding.c_str());
}

std::string setterName(const std::string& getter) {
  std::string setter = "set" + getter + ":";
  setter[3] = static_cast<char>(std::toupper(static_cast<unsigned char>(setter[3])));
  return setter;
}

}  // namespace detail
}  // namespace sim
