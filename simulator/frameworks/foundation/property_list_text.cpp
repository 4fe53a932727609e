#include "simulator/frameworks/foundation/property_list_text.hpp"

namespace sim {
namespace {

enum class TextEncoding : NSUInteger { utf8 = 4, bigEndian = 0x90000100, littleEndian = 0x94000100 };

struct Mark {
  std::string_view bytes;
  TextEncoding encoding;
};

constexpr Mark marks[] = {{"\xef\xbb\xbf", TextEncoding::utf8},
                          {"\xff\xfe", TextEncoding::littleEndian},
                          {"\xfe\xff", TextEncoding::bigEndian}};

std::optional<std::u16string> decoded(std::string_view bytes, TextEncoding encoding) {
  // Foundation here drops half a character at the end without a word.
  if (encoding != TextEncoding::utf8 && bytes.size() % sizeof(char16_t) != 0) return std::nullopt;
  id text = send<id>(send<id>("NSString"_cls, "alloc"_sel), "initWithBytes:length:encoding:"_sel,
                     static_cast<const void*>(bytes.data()), NSUInteger{bytes.size()}, encoding);
  if (text == nullptr) return std::nullopt;
  return charactersOf(Ref<objc_object>::adopt(text).get());
}

}  // namespace

std::optional<std::u16string> charactersOf(std::string_view bytes) {
  for (const auto& [mark, encoding] : marks)
    if (bytes.starts_with(mark)) return decoded(bytes.substr(mark.size()), encoding);
  return decoded(bytes, TextEncoding::utf8);
}

id textOf(std::u16string_view characters) {
  // At the beginning Foundation here would take a character for a byte-order mark, and drop it.
  const std::u16string notFirst = u" " + std::u16string(characters);
  id text = send<id>("NSString"_cls, "stringWithCharacters:length:"_sel, notFirst.data(), NSUInteger{notFirst.size()});
  return send<id>(text, "substringFromIndex:"_sel, NSUInteger{1});
}

std::u16string charactersOf(id text) {
  std::u16string characters(send<NSUInteger>(text, "length"_sel), 0);
  send(text, "getCharacters:"_sel, characters.data());
  return characters;
}

std::size_t afterSpace(std::u16string_view text, std::size_t position) {
  return text.find_first_not_of(u" \t\n\v\f\r\u2028\u2029", position);
}

}  // namespace sim
