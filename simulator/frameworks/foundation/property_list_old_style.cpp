#include "simulator/frameworks/foundation/property_list_old_style.hpp"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "simulator/frameworks/foundation/property_list_text.hpp"

namespace sim {
namespace {

constexpr auto nowhere = std::u16string_view::npos;
constexpr std::u16string_view octalDigits = u"01234567";
constexpr std::u16string_view hexadecimalDigits = u"0123456789abcdefABCDEF";
constexpr std::u16string_view unquoted = u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_$/:.-";
// Deeper ones would use up the stack.
constexpr int deepest = 512;

struct Damaged : std::runtime_error {
  Damaged() : std::runtime_error("a damaged property list") {}
};

class OldStyleReader {
 public:
  explicit OldStyleReader(std::u16string_view text) : text_(text) {}

  id root() {
    skipToNext();
    if (!atEnd() && !beginsText()) {
      id list = value(0);
      skipToNext();
      return atEnd() ? list : throw Damaged();
    }
    return entries(0, [this] { return atEnd(); });
  }

 private:
  bool atEnd() const { return position_ == text_.size(); }
  char16_t next() const { return atEnd() ? throw Damaged() : text_[position_]; }
  bool beginsText() const { return next() == u'"' || next() == u'\'' || unquoted.find(next()) != nowhere; }
  void goTo(std::size_t position) { position_ = std::min(position, text_.size()); }

  // To the next character that is neither white space nor part of a comment.
  void skipToNext() {
    while (true) {
      goTo(afterSpace(text_, position_));
      const std::u16string_view rest = text_.substr(position_);
      if (rest.starts_with(u"//")) {
        goTo(text_.find_first_of(u"\n\r\u2028\u2029", position_));
      } else if (rest.starts_with(u"/*")) {
        const std::size_t end = text_.find(u"*/", position_ + 2);
        goTo(end != nowhere ? end + 2 : nowhere);
      } else {
        return;
      }
    }
  }

  bool takes(char16_t expected) {
    skipToNext();
    if (atEnd() || next() != expected) return false;
    ++position_;
    return true;
  }
  void take(char16_t expected) {
    if (!takes(expected)) throw Damaged();
  }

  id value(int depth) {
    if (depth > deepest) throw Damaged();
    if (takes(u'{')) return entries(depth, [this] { return takes(u'}'); });
    if (takes(u'(')) return members(depth);
    if (takes(u'<')) return data();
    return string();
  }

  template <class AtEnd>
  id entries(int depth, AtEnd atEndOfEntries) {
    id dictionary = send<id>("NSMutableDictionary"_cls, "dictionary"_sel);
    while (!atEndOfEntries()) {
      id key = string();
      // A key alone is its own value.
      send(dictionary, "setObject:forKey:"_sel, takes(u'=') ? value(depth + 1) : key, key);
      take(u';');
      skipToNext();
    }
    return send<id>("NSDictionary"_cls, "dictionaryWithDictionary:"_sel, dictionary);
  }

  id members(int depth) {
    std::vector<id> objects;
    while (!takes(u')')) {
      objects.push_back(value(depth + 1));
      if (takes(u',')) continue;
      take(u')');
      break;
    }
    return array(objects);
  }

  id data() {
    std::string bytes;
    while (!takes(u'>')) {
      const std::u16string pair = run(hexadecimalDigits, 2);
      if (pair.size() != 2) throw Damaged();
      bytes += static_cast<char>(number(pair, 16));
    }
    return send<id>("NSData"_cls, "dataWithBytes:length:"_sel, static_cast<const void*>(bytes.data()),
                    NSUInteger{bytes.size()});
  }

  id string() {
    skipToNext();
    if (!beginsText()) throw Damaged();
    return next() == u'"' || next() == u'\'' ? quoted(text_[position_++]) : textOf(run(unquoted, nowhere));
  }

  id quoted(char16_t quote) {
    std::u16string content;
    while (next() != quote) {
      const char16_t character = text_[position_++];
      content += character == u'\\' ? escaped() : character;
    }
    ++position_;
    return textOf(content);
  }

  char16_t escaped() {
    if (const std::u16string octal = run(octalDigits, 3); !octal.empty()) return oldCharacter(number(octal, 8));
    const char16_t character = next();
    ++position_;
    if (character == u'U') return static_cast<char16_t>(number(run(hexadecimalDigits, 4), 16));
    constexpr std::u16string_view letters = u"abfnrtv";
    constexpr std::u16string_view meanings = u"\a\b\f\n\r\t\v";
    const std::size_t letter = letters.find(character);
    return letter != nowhere ? meanings[letter] : character;
  }

  // Octal numbers count in the encoding of the system that this form comes from.
  static char16_t oldCharacter(unsigned long code) {
    constexpr NSUInteger encoding = 2;
    const auto byte = static_cast<unsigned char>(code);
    id text = send<id>(send<id>("NSString"_cls, "alloc"_sel), "initWithBytes:length:encoding:"_sel,
                       static_cast<const void*>(&byte), NSUInteger{1}, encoding);
    const std::u16string characters = charactersOf(Ref<objc_object>::adopt(text).get());
    return characters.empty() ? throw Damaged() : characters[0];
  }

  // The next characters that are of that kind, at most so many.
  std::u16string run(std::u16string_view kind, std::size_t most) {
    const std::u16string_view rest = text_.substr(position_).substr(0, most);
    const std::u16string_view found = rest.substr(0, rest.find_first_not_of(kind));
    position_ += found.size();
    return std::u16string(found);
  }

  static unsigned long number(const std::u16string& digits, int base) {
    return digits.empty() ? throw Damaged() : std::stoul(std::string(digits.begin(), digits.end()), nullptr, base);
  }

  std::u16string_view text_;
  std::size_t position_ = 0;
};

}  // namespace

id readOldStylePropertyList(std::u16string_view text) { return OldStyleReader(text).root(); }

}  // namespace sim
