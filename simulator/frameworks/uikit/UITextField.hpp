#pragma once

#include "simulator/frameworks/uikit/UIView.hpp"

namespace sim {

enum class UIKeyboardType : NSInteger { standard = 0, numberPad = 4 };
enum class UITextFieldViewMode : NSInteger { never = 0, always = 3 };
enum class UIReturnKeyType : NSInteger { standard = 0, done = 9 };

/// A line of text that can be edited.
struct UITextField : UIView {
  Ref<objc_object> text;         ///< empty, never nil
  Ref<objc_object> placeholder;  ///< nil for none
  id delegate = nullptr;         ///< not kept
  UIKeyboardType keyboardType = UIKeyboardType::standard;
  UITextFieldViewMode clearButtonMode = UITextFieldViewMode::never;
  UIReturnKeyType returnKeyType = UIReturnKeyType::standard;

  /// Nil counts as the empty text, before and after.
  id textOrEmpty();
  void setText(id text);
  void setPlaceholder(id placeholder);

  ~UITextField();
  /// What is typed goes into this field from now on, until another takes over, it resigns, or it goes. NO for a field
  /// that is in no window.
  BOOL becomeFirstResponder();
  BOOL resignFirstResponder();
  BOOL isFirstResponder() const;
};

/// The field that what is typed goes into, of the key window; nil while there is none.
UITextField* focusedField();

/// Defines the class and the protocol `UITextFieldDelegate`.
void defineUITextField();

}  // namespace sim
