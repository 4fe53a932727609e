// The simulator's own way of talking to Objective-C: GCC's runtime, used directly. It does not go through
// `objc_msgSend`, which the process offers to the add-on alone, so that the call log holds the add-on's
// messages and nothing else.
#pragma once

#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "platform/objc.hpp"

struct objc_method;
using Method = objc_method*;

namespace sim {
/// A receiver and the superclass that its message goes to, as the runtime's lookup takes them.
struct SuperTarget {
  id receiver;
  Class superclass;
};
}  // namespace sim

extern "C" {
IMP objc_msg_lookup(id receiver, SEL selector);
IMP objc_msg_lookup_super(sim::SuperTarget* target, SEL selector);
const char* class_getName(Class cls);
const char* sel_getName(SEL selector);
Class class_getSuperclass(Class cls);
Method class_getInstanceMethod(Class cls, SEL selector);
Method class_getClassMethod(Class cls, SEL selector);
IMP method_getImplementation(Method method);
IMP method_setImplementation(Method method, IMP implementation);
const char* method_getTypeEncoding(Method method);
BOOL class_isMetaClass(Class cls);
IMP class_replaceMethod(Class cls, SEL selector, IMP implementation, const char* types);
id NSAllocateObject(Class cls, NSUInteger extraBytes, void* zone);
}

namespace sim {

/// Sends a message; nil gives a zero result. The arguments must have the method's own types.
template <class Result = void, class... Arguments>
Result send(id receiver, SEL selector, Arguments... arguments) {
  if (receiver == nullptr) return Result();
  return reinterpret_cast<Result (*)(id, SEL, Arguments...)>(objc_msg_lookup(receiver, selector))(receiver, selector,
                                                                                                  arguments...);
}
template <class Result = void, class... Arguments>
Result send(Class receiver, SEL selector, Arguments... arguments) {
  return send<Result>(reinterpret_cast<id>(receiver), selector, arguments...);
}

/// Sends a message to the implementation that `superclass` has for it.
template <class Result = void, class... Arguments>
Result sendSuper(id receiver, Class superclass, SEL selector, Arguments... arguments) {
  SuperTarget target{receiver, superclass};
  return reinterpret_cast<Result (*)(id, SEL, Arguments...)>(objc_msg_lookup_super(&target, selector))(
      receiver, selector, arguments...);
}

/// A Foundation text of UTF-8; autoreleased.
id ns(const std::string& utf8);
/// A Foundation text's characters as UTF-8; empty for nil. Anything else than a text gives its description.
std::string text(id object);
/// The same; none for nil.
std::optional<std::string> textOrNone(id object);
/// The objects of an `NSArray`; empty for nil.
std::vector<id> elements(id array);
/// An `NSArray` of these objects; autoreleased.
id array(const std::vector<id>& objects);
/// Whether two selectors have the same name: several may have it, since they may carry types.
bool isNamed(SEL selector, SEL other);
/// Whether the object is of that class or a subclass of it; NO for nil.
bool isKind(id object, Class cls);

/// `alloc` and `init` in one; the caller owns the result.
template <class T = objc_object>
Ref<T> make(Class cls) {
  return Ref<T>::adopt(static_cast<T*>(send<id>(send<id>(cls, "alloc"_sel), "init"_sel)));
}

/// Gives the object to the surrounding autorelease pool.
template <class T>
T* autoreleased(Ref<T> reference) {
  T* object = reference.get();
  objc_autorelease(objc_retain(asId(object)));
  return object;
}

}  // namespace sim
