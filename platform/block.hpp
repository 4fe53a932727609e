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
[[gnu::returns_nonnull]] inline void* operator new(std::size_t, InPlace, void* place) noexcept { return place; }

/// A block of that signature. Only the platform and what `makeBlock` makes know what is in it.
template <class Signature>
struct Block;

namespace block {

template <class Signature, class Callable>
struct Literal;

/// A block that calls a C++ callable, which may leave out the block's arguments.
template <class Result, class... Arguments, class Callable>
struct Literal<Result(Arguments...), Callable> {
  Header<Result (*)(const void*, Arguments...)> header;
  Callable callable;

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
};

template <class Signature, class Callable>
inline constexpr Descriptor descriptorOf{0, sizeof(Literal<Signature, Callable>), &Literal<Signature, Callable>::copy,
                                         &Literal<Signature, Callable>::dispose};

}  // namespace block

/// A block of this signature that calls `callable`: a global one without captures, else one on the heap that lives
/// until the surrounding pool drains, or longer where the platform keeps it. Capture a `Ref` for what the block has to
/// keep alive, a plain pointer for what it must not. The stack holds nothing of it when this returns, so that an
/// exception of the platform's leaves nothing behind.
template <class Signature, class Callable>
const Block<Signature>* makeBlock(Callable callable) {
  using Literal = block::Literal<Signature, Callable>;
  constexpr const block::Descriptor* descriptor = &block::descriptorOf<Signature, Callable>;
  if constexpr (std::is_empty_v<Callable>) {
    static constinit const Literal global{{&_NSConcreteGlobalBlock, block::isGlobal, 0, &Literal::invoke, descriptor},
                                          {}};
    return reinterpret_cast<const Block<Signature>*>(&global);
  } else {
    const Literal literal{{&_NSConcreteStackBlock, block::hasCopyDispose, 0, &Literal::invoke, descriptor},
                          static_cast<Callable&&>(callable)};
    return autoreleased(static_cast<const Block<Signature>*>(_Block_copy(&literal)));
  }
}
