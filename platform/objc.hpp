// Typed message sends, selector and class literals, and reference ownership.
#pragma once

#include <type_traits>

#include "platform/runtime.hpp"

/// A character array that can be a template argument, so that a literal has a slot of its own.
template <std::size_t Size>
struct LiteralText {
  char characters[Size];
  consteval LiteralText(const char (&text)[Size]) {  // NOLINT(google-explicit-constructor): made from literals
    for (std::size_t i = 0; i < Size; ++i) characters[i] = text[i];
  }
};

inline void lookUp(SEL& selector, const char* name) { selector = sel_registerName(name); }
inline void lookUp(Class& cls, const char* name) { cls = objc_getClass(name); }

/// What stands in the slot, looked up by the text as long as there is nothing. One function for all literals of a kind,
/// each with no more than its slot: a phone maps whole pages.
template <class T>
T found(T& slot, const char* text) {
  if (slot == nullptr) lookUp(slot, text);
  return slot;
}

template <class T, LiteralText Text>
[[gnu::always_inline]] inline T found() {
  static constinit struct {
    T slot;
    decltype(Text) text;
  } literal{nullptr, Text};
  return found(literal.slot, literal.text.characters);
}

/// The selector of that name, looked up at the first use of the literal and kept.
template <LiteralText Text>
[[gnu::always_inline]] inline SEL operator""_sel() {
  return found<SEL, Text>();
}

/// The class of that name, kept from the first time it is found; nil while there is none.
template <LiteralText Text>
[[gnu::always_inline]] inline Class operator""_cls() {
  return found<Class, Text>();
}

// Struct results of more than 16 bytes travel through memory on x86-64 and have an entry point of their
// own there. This is a matter of the processor; no other architecture of the platform has it.
#if defined(__x86_64__)
inline constexpr bool largeStructsHaveOwnEntryPoint = true;
#else
inline constexpr bool largeStructsHaveOwnEntryPoint = false;
#endif

template <class Result>
constexpr bool returnedThroughMemory() {
  if constexpr (std::is_class_v<Result>) return largeStructsHaveOwnEntryPoint && sizeof(Result) > 16;
  return false;
}

/// Sends a message and gives its result. A nil receiver gives nil, zero or an all-zero struct.
/// The arguments must have the method's own types: nothing converts them on the way.
template <class Result = void, class... Arguments>
Result send(const void* receiver, SEL selector, Arguments... arguments) {
  using Function = Result (*)(const void*, SEL, Arguments...);
  if constexpr (returnedThroughMemory<Result>()) {
    if (receiver == nullptr) return Result{};
    return reinterpret_cast<Function>(&objc_msgSend_stret)(receiver, selector, arguments...);
  } else {
    return reinterpret_cast<Function>(&objc_msgSend)(receiver, selector, arguments...);
  }
}

/// Sends a message to the implementation that `superclass` has for it.
template <class Result = void, class... Arguments>
Result sendSuper(const void* receiver, Class superclass, SEL selector, Arguments... arguments) {
  using Function = Result (*)(const void*, SEL, Arguments...);
  return reinterpret_cast<Function>(class_getMethodImplementation(superclass, selector))(receiver, selector,
                                                                                         arguments...);
}

template <class Result, class... Arguments>
inline constexpr char objectEncoding[] = {std::is_void_v<Result> ? 'v' : '@', '@', ':',
                                          (std::is_pointer_v<Arguments> ? '@' : '?')..., '\0'};

/// How the runtime writes the type of a method that takes objects only, and gives one or nothing.
template <class Result, class Self, class... Arguments>
  requires((std::is_void_v<Result> || std::is_pointer_v<Result>) && ... && std::is_pointer_v<Arguments>)
constexpr const char* encodingOf(Result (*)(Self*, SEL, Arguments...)) {
  return objectEncoding<Result, Arguments...>;
}

/// Gives the class a method, whatever its superclass has under that name.
template <class Function>
void addMethod(Class cls, const char* selector, Function* function) {
  class_addMethod(cls, sel_registerName(selector), reinterpret_cast<IMP>(function), encodingOf(function));
}

/// An object as the C interface wants it.
inline id asId(const void* object) { return static_cast<id>(const_cast<void*>(object)); }

// Three ways to keep an object, by how long. On the stack: `kept` and `autoreleased`, since the platform's
// exceptions pass through functions of ours without running destructors, and a pool lets go all the same. In a block
// or another C++ object: `Ref`. For the life of the process, or of an object whose `dealloc` clears it: `Slot`.

/// The object, which stays at least until the surrounding pool drains, whoever else lets go of it. Nil for nil.
template <class T>
T* kept(T* object) {
  objc_autorelease(objc_retain(asId(object)));
  return object;
}

/// Gives an owned object, as `alloc`/`init`, `new` and `copy` make it, to the surrounding pool. Nil for nil.
template <class T>
T* autoreleased(T* owned) {
  objc_autorelease(asId(owned));
  return owned;
}

/// An owning reference: keeps its object alive for as long as it lives. May hold nil.
template <class T>
class Ref {
 public:
  Ref() = default;
  /// Retains `object`.
  Ref(T* object) : object_(object) { objc_retain(asId(object)); }  // NOLINT(google-explicit-constructor)
  Ref(const Ref& other) : Ref(other.object_) {}
  Ref(Ref&& other) noexcept : object_(other.object_) { other.object_ = nullptr; }
  ~Ref() { objc_release(asId(object_)); }
  Ref& operator=(Ref other) noexcept {
    T* previous = object_;
    object_ = other.object_;
    other.object_ = previous;
    return *this;
  }
  /// Takes over a reference that the caller owns already, as `alloc`/`init` and `copy` give.
  [[nodiscard]] static Ref adopt(T* object) {
    Ref reference;
    reference.object_ = object;
    return reference;
  }
  T* get() const [[clang::lifetimebound]] { return object_; }
  T* operator->() const { return object_; }
  operator T*() const [[clang::lifetimebound]] { return object_; }  // NOLINT(google-explicit-constructor)

 private:
  T* object_ = nullptr;
};

/// An owning slot. It is made of constants and never destroyed, so nothing runs at load or exit.
template <class T>
class Slot {
 public:
  /// Retains `object` (which may be nil) and lets go of what was held before.
  void set(T* object) {
    objc_retain(asId(object));
    T* previous = object_;
    object_ = object;
    objc_release(asId(previous));
  }
  void clear() { set(nullptr); }
  /// What is held, kept until the surrounding pool drains: it may be used whatever becomes of the slot meanwhile.
  T* get() const { return kept(object_); }
  T* operator->() const { return get(); }
  bool holds(const T* object) const { return object_ == object; }
  explicit operator bool() const { return object_ != nullptr; }

 private:
  T* object_ = nullptr;
};

/// Drains what was autoreleased during its life.
class AutoreleasePool {
 public:
  AutoreleasePool() : pool_(objc_autoreleasePoolPush()) {}
  ~AutoreleasePool() { objc_autoreleasePoolPop(pool_); }
  AutoreleasePool(const AutoreleasePool&) = delete;
  AutoreleasePool& operator=(const AutoreleasePool&) = delete;

 private:
  void* pool_;
};
