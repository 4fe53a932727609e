// Objective-C type encodings, derived from C++ types.
#pragma once

#include <string>
#include <type_traits>

#include "platform/objc.hpp"

namespace sim {

/// The encoding of one C++ type. Structs give theirs by a specialisation beside their definition.
template <class T>
struct Encoding {
  static std::string text() {
    if constexpr (std::is_void_v<T>) return "v";
    else if constexpr (std::is_same_v<T, bool>) return "B";
    else if constexpr (std::is_same_v<T, Class>) return "#";
    else if constexpr (std::is_same_v<T, SEL>) return ":";
    else if constexpr (std::is_same_v<T, char*> || std::is_same_v<T, const char*>) return "*";
    else if constexpr (std::is_enum_v<T>) return Encoding<std::underlying_type_t<T>>::text();
    else if constexpr (std::is_same_v<T, float>) return "f";
    else if constexpr (std::is_same_v<T, double>) return "d";
    else if constexpr (std::is_integral_v<T> && sizeof(T) == 8) return std::is_signed_v<T> ? "q" : "Q";
    else if constexpr (std::is_integral_v<T> && sizeof(T) == 4) return std::is_signed_v<T> ? "i" : "I";
    else if constexpr (std::is_integral_v<T> && sizeof(T) == 2) return std::is_signed_v<T> ? "s" : "S";
    else if constexpr (std::is_integral_v<T>) return std::is_signed_v<T> ? "c" : "C";
    else if constexpr (std::is_pointer_v<T> && std::is_convertible_v<T, const objc_object*>) return "@";
    else if constexpr (std::is_pointer_v<T>) return "^v";
    else static_assert(!sizeof(T), "this type has no encoding yet");
  }
};
template <class T>
struct Encoding<Ref<T>> {
  static std::string text() { return "@"; }
};
/// A block argument or result: opaque, and an object to the runtime.
struct BlockLiteral;
template <>
struct Encoding<const BlockLiteral*> {
  static std::string text() { return "@?"; }
};

/// A BOOL argument as the byte that arrived, which may be any. C++ takes a `bool` for 0 or 1, whatever it holds.
enum class RawBool : std::uint8_t {};
/// The byte alone. It goes through memory: the compiler trusts callers to have cleared the rest of the register.
inline std::int64_t byteOf(RawBool value) {
  const volatile RawBool byte = value;
  return static_cast<std::int64_t>(byte);
}
template <>
struct Encoding<RawBool> {
  static std::string text() { return "B"; }
};

/// The encoding of a method: result, receiver, selector, arguments.
template <class Result, class... Arguments>
std::string methodEncoding() {
  return ((Encoding<Result>::text() + "@:") + ... + Encoding<Arguments>::text());
}

}  // namespace sim
