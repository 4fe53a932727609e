#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// The characters of a property list that is text, without its byte-order mark: UTF-16 when it begins with the mark
/// of that, UTF-8 otherwise; nothing when it is neither.
std::optional<std::u16string> charactersOf(std::string_view bytes);

/// A Foundation text of exactly these characters; autoreleased.
id textOf(std::u16string_view characters);

/// The characters of a Foundation text.
std::u16string charactersOf(id text);

/// Where the first character that is no white space stands, from `position` on; `npos` when there is none.
std::size_t afterSpace(std::u16string_view text, std::size_t position);

}  // namespace sim
