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
