// The block ABI: C++ callables as the blocks that the platform's methods take.
#pragma once

#include <concepts>
#include <type_traits>

#include "platform/objc.hpp"

namespace block {

inline constexpr std::int32_t hasCopyDispose = 1 << 25;
inline constexpr std::int32_t isGlobal = 1 << 28;

struct Descriptor {
  std::uintptr_t reserved;
  std::uintptr_t size;
  void (*copy)(void* to, const void* from);
  void (*dispose)(const void* block);
};

/// What every block begins with; `Invoke` is the type of the function that runs it.
template <class Invoke = IMP>
struct Header {
  void* isa;
  std::int32_t flags;
  std::int32_t reserved;
  Invoke invoke;
  const Descriptor* descriptor;
};

/// Calls a block. It must not be nil and must have this signature.
template <class Result = void, class... Arguments>
Result call(const void* target, Arguments... arguments) {
  auto* header = static_cast<const Header<Result (*)(const void*, Arguments...)>*>(target);
  return header->invoke(target, arguments...);
}

}  // namespace block

/// Tells our construction in place apart from the standard header's, which the library does not include.
struct InPlace {};
inline void* operator new(std::size_t, InPlace, void* place) noexcept { return place; }

template <class Signature, class Callable>
class Block;

/// A block that calls a C++ callable. One without captures is a global block; one with captures lives on
/// the stack until the platform copies it, and its copy holds copies of the captures: capture a `Ref` for
/// what the block has to keep alive, a plain pointer for what it must not. The callable may leave out the
/// block's arguments.
template <class Result, class... Arguments, class Callable>
class Block<Result(Arguments...), Callable> {
 public:
  explicit Block(Callable&& callable)
      : literal_{{&_NSConcreteStackBlock, block::hasCopyDispose, 0, &invoke, &descriptor},
                 static_cast<Callable&&>(callable)} {}

  /// The block, as a method's argument. It is valid while this object lives.
  const void* pointer() const {
    if constexpr (std::is_empty_v<Callable>) {
      static constinit const Literal global{{&_NSConcreteGlobalBlock, block::isGlobal, 0, &invoke, &descriptor}, {}};
      return &global;
    } else {
      return &literal_;
    }
  }

 private:
  struct Literal {
    block::Header<Result (*)(const void*, Arguments...)> header;
    Callable callable;
  };

  static Result invoke(const void* self, Arguments... arguments) {
    // What the callable does may let go of the block, as closing a dialog from its button does.
    if constexpr (!std::is_empty_v<Callable>) kept(self);
    const Callable& callable = static_cast<const Literal*>(self)->callable;
    if constexpr (std::invocable<const Callable&, Arguments...>) {
      return callable(arguments...);
    } else {
      return callable();
    }
  }

  // The runtime has copied the bytes already; the copy's captures are made anew over them.
  static void copy(void* to, const void* from) {
    new (InPlace{}, &static_cast<Literal*>(to)->callable) Callable(static_cast<const Literal*>(from)->callable);
  }
  static void dispose(const void* target) { static_cast<const Literal*>(target)->callable.~Callable(); }

  static constexpr block::Descriptor descriptor{0, sizeof(Literal), &copy, &dispose};

  Literal literal_;
};

/// A block of this signature that calls `callable`.
template <class Signature, class Callable>
Block<Signature, Callable> makeBlock(Callable callable) {
  return Block<Signature, Callable>(static_cast<Callable&&>(callable));
}
