#pragma once

#include "simulator/frameworks/uikit/UIView.hpp"

namespace sim {

enum class UIKeyboardType : NSInteger { standard = 0, numberPad = 4 };
enum class UITextFieldViewMode : NSInteger { never = 0, whileEditing = 1, unlessEditing = 2, always = 3 };
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

  /// Whether the keyboard that comes up for the field has keys for the text.
  bool hasKeysFor(const std::string& typed);
  /// What a person does who edits the field: types over what is there, key by key; puts something else in its place at
  /// once, as pasting does; taps the clear button. The delegate has its say each time, and may keep things as they are.
  void typeOver(const std::string& typed);
  void replaceAll(id pasted);
  void tapClearButton();
  /// Whether the field has a clear button while it is edited.
  bool showsClearButton();

 private:
  struct Range {
    NSUInteger location, length;
  };
  void replace(Range range, id replacement);
  NSUInteger length();
};

/// The field that what is typed goes into, of the key window; nil while there is none.
UITextField* focusedField();

/// Defines the class and the protocol `UITextFieldDelegate`.
void defineUITextField();

}  // namespace sim
