// Writes Objective-C classes in C++. A simulated class is a struct whose members are the object's instance
// variables and whose member functions are its methods:
//
//   struct UIWindow : UIView {
//     double windowLevel = 0;
//     void setWindowLevel(double level);
//   };
//
//   void defineUIWindow() {
//     ClassBuilder<UIWindow>("UIWindow", "UIView").method<&UIWindow::setWindowLevel>("setWindowLevel:").add();
//   }
//
// The struct's base must be the struct of the superclass (`Object` for `NSObject`). Members are constructed
// when the object is allocated, before any initialiser runs, and destroyed when it is deallocated: a
// destructor is the place for what other classes write in `dealloc`. No virtual functions.
#pragma once

#include <algorithm>
#include <map>
#include <new>
#include <string>
#include <vector>

#include "simulator/runtime/encoding.hpp"
#include "simulator/runtime/objc.hpp"

namespace sim {

/// The root of all simulated classes: an object with its class and nothing else.
struct Object : objc_object {};

/// How many objects of each simulated class are alive, subclasses counted under their own name.
std::map<std::string, long>& liveObjects();

namespace detail {
struct NamedIvar {
  std::string name;
  std::size_t offset;
  std::size_t size;
  std::string encoding;
};
Class allocateClass(const char* name, const char* superclass, std::size_t size, std::size_t superclassSize,
                    std::vector<NamedIvar> ivars);
void addMethod(Class cls, const char* selector, IMP implementation, const std::string& encoding);
void countAllocation(Class cls);
void countDeallocation(Class cls);

template <auto Method>
struct Thunk;
template <class T, class Result, class... Arguments, Result (T::*Method)(Arguments...)>
struct Thunk<Method> {
  static Result call(T* self, SEL, Arguments... arguments) { return (self->*Method)(arguments...); }
  static std::string encoding() { return methodEncoding<Result, Arguments...>(); }
};
template <class T, class Result, class... Arguments, Result (T::*Method)(Arguments...) const>
struct Thunk<Method> {
  static Result call(const T* self, SEL, Arguments... arguments) { return (self->*Method)(arguments...); }
  static std::string encoding() { return methodEncoding<Result, Arguments...>(); }
};
template <class Result, class... Arguments, Result (*Function)(Class, Arguments...)>
struct Thunk<Function> {
  static Result call(Class self, SEL, Arguments... arguments) { return Function(self, arguments...); }
  static std::string encoding() { return methodEncoding<Result, Arguments...>(); }
};
template <auto Member>
struct Property;
template <class T, class Value, Value T::*Member>
struct Property<Member> {
  static Value get(const T* self, SEL) { return self->*Member; }
  static void set(T* self, SEL, Value value) { self->*Member = value; }
  using Type = Value;
};
template <class T, class Value, Ref<Value> T::*Member>
struct Property<Member> {
  static Value* get(const T* self, SEL) { return (self->*Member).get(); }
  static void set(T* self, SEL, Value* value) { self->*Member = value; }
  using Type = Value*;
};
/// "name" to "setName:".
std::string setterName(const std::string& getter);
}  // namespace detail

/// Registers one class. `T` mirrors the object; see the head of this file. `add()` ends the definition.
template <class T, class Base = Object>
class ClassBuilder {
 public:
  ClassBuilder(const char* name, const char* superclass) : name_(name), superclass_(superclass) {}

  /// A member that key-value coding and the runtime's instance-variable functions find under this name.
  template <class Value>
  ClassBuilder& ivar(const char* name, Value T::*member) {
    alignas(T) char storage[sizeof(T)];
    auto* object = reinterpret_cast<T*>(storage);
    auto offset = static_cast<std::size_t>(reinterpret_cast<char*>(&(object->*member)) - storage);
    ivars_.push_back({name, offset, sizeof(Value), Encoding<Value>::text()});
    return *this;
  }
  /// An instance method; its type encoding follows from the member function's type.
  template <auto Method>
  ClassBuilder& method(const char* selector) {
    using Bound = detail::Thunk<Method>;
    methods_.push_back({selector, reinterpret_cast<IMP>(&Bound::call), Bound::encoding()});
    return *this;
  }
  /// A class method: a function whose first argument is the class.
  template <auto Function>
  ClassBuilder& classMethod(const char* selector) {
    using Bound = detail::Thunk<Function>;
    classMethods_.push_back({selector, reinterpret_cast<IMP>(&Bound::call), Bound::encoding()});
    return *this;
  }
  /// A getter of that name; a member of type `Ref` is handed out as a plain pointer.
  template <auto Member>
  ClassBuilder& getter(const char* name) {
    using Bound = detail::Property<Member>;
    methods_.push_back({name, reinterpret_cast<IMP>(&Bound::get), methodEncoding<typename Bound::Type>()});
    return *this;
  }
  /// A getter `name` and a setter `setName:`; a member of type `Ref` retains.
  template <auto Member>
  ClassBuilder& property(const char* name) {
    using Bound = detail::Property<Member>;
    getter<Member>(name);
    methods_.push_back(
        {detail::setterName(name), reinterpret_cast<IMP>(&Bound::set), methodEncoding<void, typename Bound::Type>()});
    return *this;
  }
  /// Registers the class with the runtime.
  Class add() {
    Class cls = detail::allocateClass(name_, superclass_, sizeof(T), sizeof(Base), ivars_);
    Class metaclass = object_getClass(reinterpret_cast<id>(cls));
    detail::addMethod(metaclass, "allocWithZone:", reinterpret_cast<IMP>(&allocate), "@@:^v");
    detail::addMethod(cls, "dealloc", reinterpret_cast<IMP>(&deallocate), "v@:");
    for (const auto& [selector, implementation, encoding] : methods_)
      detail::addMethod(cls, selector.c_str(), implementation, encoding);
    for (const auto& [selector, implementation, encoding] : classMethods_)
      detail::addMethod(metaclass, selector.c_str(), implementation, encoding);
    return cls;
  }

 private:
  static id allocate(Class cls, SEL, void* zone) {
    id object = NSAllocateObject(cls, 0, zone);
    new (object) T;
    object->isa = cls;
    detail::countAllocation(cls);
    return object;
  }
  static void deallocate(T* self, SEL) {
    detail::countDeallocation(self->isa);
    self->~T();
    sendSuper(self, "NSObject"_cls, "dealloc"_sel);
  }

  struct MethodRow {
    std::string selector;
    IMP implementation;
    std::string encoding;
  };
  const char* name_;
  const char* superclass_;
  std::vector<detail::NamedIvar> ivars_;
  std::vector<MethodRow> methods_;
  std::vector<MethodRow> classMethods_;
};

}  // namespace sim
