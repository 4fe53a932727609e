#include "simulator/runtime/interposition.hpp"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <list>
#include <stdexcept>
#include <utility>

#include "simulator/runtime/exception.hpp"
#include "simulator/runtime/objc.hpp"

extern "C" {
/// The assembly that stands in each interposed method's place.
void simInterposed();
/// Gives zero in every result register.
void simGiveNothing();
}

namespace sim {
namespace {

struct Interposed {
  std::string name;
  Class cls;  // the metaclass for a class's own method
  SEL selector;
  IMP original;
  long calls = 0;
  Interposition next = {};
  std::uint64_t value = 0;  // what the call that is going on gives
};

// Methods are called until the very end of the process. A list, since a call may be going on in one.
std::list<Interposed>& interposed() {
  static auto* const methods = new std::list<Interposed>;
  return *methods;
}

bool isBelow(Class cls, Class superclass) {
  while (cls != nullptr && cls != superclass) cls = class_getSuperclass(cls);
  return cls != nullptr;
}

Interposed& called(id self, SEL selector) {
  for (Interposed& method : interposed())
    if (isNamed(method.selector, selector) && isBelow(self->isa, method.cls)) return method;
  std::abort();
}

bool isInitialiser(const Interposed& method) {
  const std::string name = sel_getName(method.selector);
  // Past the end of "init" is no letter.
  return name.starts_with("init") && std::islower(static_cast<unsigned char>(name[4])) == 0 &&
         !class_isMetaClass(method.cls);
}

// The method stays as it is for its first calls and, unless told for good, for those after the one that is meant.
Interposition take(Interposed& method) {
  ++method.calls;
  if (method.next.skip > 0) return --method.next.skip, Interposition();
  return method.next.always ? method.next : std::exchange(method.next, {});
}

// Both objects live at once: the other one is never found in the first one's place.
id initialiseAnother(id self, SEL selector, NSUInteger a, NSUInteger b, NSUInteger c, NSUInteger d) {
  using Initialiser = id (*)(id, SEL, NSUInteger, NSUInteger, NSUInteger, NSUInteger);
  const IMP original = called(self, selector).original;
  id another = send<id>(self->isa, "alloc"_sel);
  send(self, "release"_sel);
  return reinterpret_cast<Initialiser>(original)(another, selector, a, b, c, d);
}

std::uint64_t giveValue(id self, SEL selector) { return called(self, selector).value; }

}  // namespace

void interpose(const std::string& name) {
  const auto space = name.find(' ');
  const bool ofClass = name.starts_with('+');
  const std::string className = name.substr(ofClass ? 1 : 0, space - (ofClass ? 1 : 0));
  Class cls = space != std::string::npos ? objc_getClass(className.c_str()) : nullptr;
  if (cls == nullptr) throw std::invalid_argument("cannot interpose \"" + name + "\": there is no such class");
  if (ofClass) cls = object_getClass(reinterpret_cast<id>(cls));
  SEL selector = sel_registerName(name.c_str() + space + 1);
  Method method = class_getInstanceMethod(cls, selector);
  if (method == nullptr) throw std::invalid_argument("cannot interpose \"" + name + "\": there is no such method");
  const char* types = method_getTypeEncoding(method);
  // Its address would be in the receiver's place.
  if (*types == '{') throw std::invalid_argument("cannot interpose \"" + name + "\": its result is a struct");
  // A call tells its receiver and its selector, which have to say which of the methods is called.
  for (const Interposed& other : interposed())
    if (isNamed(other.selector, selector) && (isBelow(cls, other.cls) || isBelow(other.cls, cls)))
      throw std::invalid_argument("cannot interpose \"" + name + "\" beside \"" + other.name + "\"");
  interposed().push_back(
      {.name = name, .cls = cls, .selector = selector, .original = method_getImplementation(method)});
  const bool inherited = class_getInstanceMethod(class_getSuperclass(cls), selector) == method;
  if (inherited) class_addMethod(cls, selector, simInterposed, types);
  else method_setImplementation(method, simInterposed);
}

void interfere(const std::string& name, Interposition interposition) {
  auto& methods = interposed();
  const auto method =
      std::find_if(methods.begin(), methods.end(), [&](const Interposed& each) { return each.name == name; });
  if (method == methods.end()) throw std::invalid_argument("\"" + name + "\" is not interposed");
  if (interposition.what == Interference::other && !isInitialiser(*method))
    throw std::invalid_argument("\"" + name + "\" is no initialiser");
  method->next = std::move(interposition);
}

std::map<std::string, long> interposedCalls() {
  std::map<std::string, long> counts;
  for (const Interposed& method : interposed()) counts[method.name] = method.calls;
  return counts;
}

}  // namespace sim

/// Chooses what an interposed method's call runs. An exception raised here is the method's own to its caller.
extern "C" IMP simChooseImplementation(id self, SEL selector) {
  sim::Interposed& method = sim::called(self, selector);
  const sim::Interposition now = sim::take(method);
  switch (now.what) {
    case sim::Interference::none:
      break;
    case sim::Interference::raise:
      sim::raiseException("InterposedException", method.name);
    case sim::Interference::nil:
      if (sim::isInitialiser(method)) sim::send(self, "release"_sel);
      return simGiveNothing;
    case sim::Interference::other:
      return reinterpret_cast<IMP>(&sim::initialiseAnother);
    case sim::Interference::prior:
      now.first();
      break;
    case sim::Interference::value:
      method.value = now.value;
      return reinterpret_cast<IMP>(&sim::giveValue);
  }
  return method.original;
}
