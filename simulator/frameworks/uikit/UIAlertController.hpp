#pragma once

#include "simulator/frameworks/uikit/UIAlertAction.hpp"
#include "simulator/frameworks/uikit/UIPopoverPresentationController.hpp"
#include "simulator/frameworks/uikit/UITextField.hpp"
#include "simulator/frameworks/uikit/UIViewController.hpp"

namespace sim {

enum class UIAlertControllerStyle : NSInteger { actionSheet = 0, alert = 1 };

/// A sheet or an alert.
struct UIAlertController : UIViewController {
  Ref<objc_object> message;  ///< nil for none
  UIAlertControllerStyle preferredStyle = UIAlertControllerStyle::actionSheet;
  std::vector<Ref<UIAlertAction>> actions;       ///< in the order they were added
  std::vector<Ref<UITextField>> textFields;      ///< in the order they were added
  Ref<UIPopoverPresentationController> popover;  ///< nil until asked for

  ~UIAlertController();
  void loadView();
  /// The button of the cancel style; nil without one.
  UIAlertAction* cancelAction() const;
  /// Whether it is shown beside what it belongs to, without a cancel button.
  bool inPopover() const;

  static UIAlertController* alertController(Class cls, id title, id message, UIAlertControllerStyle style);
  void setTitle(id title);
  void setMessage(id message);
  id actionsArray();
  /// Raises for a second action of the cancel style.
  void addAction(UIAlertAction* action);
  /// Raises in a sheet.
  void addTextField(const BlockLiteral* configurationHandler);
  /// Nil without text fields.
  id textFieldsArray();
  /// On a tablet a sheet is shown in a popover; anything else has none.
  id popoverPresentationController();

  /// Lets go of the buttons' handlers, which may hold the alert.
  void forgetHandlers();
};

/// The sheet or alert that the window's root controller presents, or what that presents in its turn; nil for none.
UIAlertController* alertIn(const UIWindow* window);

/// Raises, as a tablet does, when `presented` is a sheet that does not say where its popover belongs.
void requirePopoverAnchor(UIViewController* presented, UIViewController* presenter);

/// A person taps a button of an alert that has come: the alert goes, and when it has gone the action's handler runs.
void press(UIAlertController* alert, UIAlertAction* action);

void defineUIAlertController();

}  // namespace sim
