#include "simulator/frameworks/uikit/UITextField.hpp"

#include "simulator/frameworks/foundation/copying.hpp"
#include "simulator/frameworks/uikit/UIWindow.hpp"

// The runtime has no public way to make a protocol in a running process. This is what it does itself with those
// that a compiler has laid out; a protocol's object begins like this.
extern "C" {
struct objc_protocol {
  Class isa;
  const char* name;
  void* adopted;
  void* instanceMethods;
  void* classMethods;
};
void __objc_protocols_add_protocol(const char* name, objc_protocol* protocol);  // NOLINT(bugprone-reserved-identifier)
}

namespace sim {
namespace {
UITextField* responder = nullptr;
}

UITextField::~UITextField() { resignFirstResponder(); }

BOOL UITextField::becomeFirstResponder() {
  if (window() == nullptr) return false;
  responder = this;
  return true;
}

BOOL UITextField::resignFirstResponder() {
  if (responder == this) responder = nullptr;
  return true;
}

BOOL UITextField::isFirstResponder() const { return responder == this; }

UITextField* focusedField() {
  UIWindow* window = responder != nullptr ? responder->window() : nullptr;
  return window != nullptr && window == keyWindow() ? responder : nullptr;
}

id UITextField::textOrEmpty() { return text ? text.get() : ns(""); }
void UITextField::setText(id changed) { text = copied(changed); }
void UITextField::setPlaceholder(id changed) { placeholder = copied(changed); }

NSUInteger UITextField::length() { return send<NSUInteger>(textOrEmpty(), "length"_sel); }

bool UITextField::hasKeysFor(const std::string& typed) {
  return keyboardType != UIKeyboardType::numberPad || typed.find_first_not_of("0123456789") == std::string::npos;
}

void UITextField::replace(Range range, id replacement) {
  SEL asked = "textField:shouldChangeCharactersInRange:replacementString:"_sel;
  if (send<BOOL>(delegate, "respondsToSelector:"_sel, asked) && !send<BOOL>(delegate, asked, this, range, replacement))
    return;
  send(this, "setText:"_sel,
       send<id>(textOrEmpty(), "stringByReplacingCharactersInRange:withString:"_sel, range, replacement));
}

void UITextField::typeOver(const std::string& typed) {
  id keys = ns(typed);
  const auto count = send<NSUInteger>(keys, "length"_sel);
  // The delete key, too, takes away what is selected.
  if (count == 0) return replaceAll(keys);
  for (NSUInteger place = 0; place < count;) {
    const AutoreleasePool pool;
    const auto key = send<Range>(keys, "rangeOfComposedCharacterSequenceAtIndex:"_sel, place);
    // The first key replaces everything, which is selected; the others come after what is there by then.
    const Range range = place == 0 ? Range{0, length()} : Range{length(), 0};
    replace(range, send<id>(keys, "substringWithRange:"_sel, key));
    place = key.location + key.length;
  }
}

void UITextField::replaceAll(id pasted) { replace({0, length()}, pasted); }

bool UITextField::showsClearButton() {
  return (clearButtonMode == UITextFieldViewMode::always || clearButtonMode == UITextFieldViewMode::whileEditing) &&
         length() > 0;
}

void UITextField::tapClearButton() {
  SEL asked = "textFieldShouldClear:"_sel;
  if (send<BOOL>(delegate, "respondsToSelector:"_sel, asked) && !send<BOOL>(delegate, asked, this)) return;
  send(this, "setText:"_sel, ns(""));
}

void defineUITextField() {
  static objc_protocol delegate{objc_getClass("Protocol"), "UITextFieldDelegate", nullptr, nullptr, nullptr};
  __objc_protocols_add_protocol(delegate.name, &delegate);
  ClassBuilder<UITextField, UIView>("UITextField", "UIView")
      .method<&UITextField::textOrEmpty>("text")
      .method<&UITextField::setText>("setText:")
      .getter<&UITextField::placeholder>("placeholder")
      .method<&UITextField::setPlaceholder>("setPlaceholder:")
      .method<&UITextField::becomeFirstResponder>("becomeFirstResponder")
      .method<&UITextField::resignFirstResponder>("resignFirstResponder")
      .method<&UITextField::isFirstResponder>("isFirstResponder")
      .property<&UITextField::delegate>("delegate")
      .property<&UITextField::keyboardType>("keyboardType")
      .property<&UITextField::clearButtonMode>("clearButtonMode")
      .property<&UITextField::returnKeyType>("returnKeyType")
      .add();
}

}  // namespace sim
