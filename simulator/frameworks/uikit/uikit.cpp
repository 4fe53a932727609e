#include "simulator/frameworks/uikit/uikit.hpp"

#include "simulator/frameworks/uikit/UIActivityIndicatorView.hpp"
#include "simulator/frameworks/uikit/UIAlertController.hpp"
#include "simulator/frameworks/uikit/UIAlertControllerView.hpp"
#include "simulator/frameworks/uikit/UIApplication.hpp"
#include "simulator/frameworks/uikit/UIBarButtonItem.hpp"
#include "simulator/frameworks/uikit/UIControl.hpp"
#include "simulator/frameworks/uikit/UIDevice.hpp"
#include "simulator/frameworks/uikit/UIImageView.hpp"
#include "simulator/frameworks/uikit/UIKeyboard.hpp"
#include "simulator/frameworks/uikit/UILabel.hpp"
#include "simulator/frameworks/uikit/UINavigationBar.hpp"
#include "simulator/frameworks/uikit/UINavigationController.hpp"
#include "simulator/frameworks/uikit/UINavigationItem.hpp"
#include "simulator/frameworks/uikit/UIPageControl.hpp"
#include "simulator/frameworks/uikit/UIPasteboard.hpp"
#include "simulator/frameworks/uikit/UIPresentation.hpp"
#include "simulator/frameworks/uikit/UIScreen.hpp"
#include "simulator/frameworks/uikit/UIScrollView.hpp"
#include "simulator/frameworks/uikit/UISegmentedControl.hpp"
#include "simulator/frameworks/uikit/UISlider.hpp"
#include "simulator/frameworks/uikit/UISwitch.hpp"
#include "simulator/frameworks/uikit/UITableView.hpp"
#include "simulator/frameworks/uikit/UITableViewCell.hpp"
#include "simulator/frameworks/uikit/UITableViewHeaderFooterView.hpp"
#include "simulator/frameworks/uikit/UITouch.hpp"
#include "simulator/frameworks/uikit/UIWindow.hpp"

namespace sim {

void defineUIKit() {
  // Superclasses before their subclasses.
  static constexpr void (*classes[])() = {
      defineCALayer,
      defineUIColor,
      defineUIFont,
      defineUIImage,
      defineUIView,
      defineUIWindow,
      defineUIScrollView,
      defineUITableView,
      defineUITableViewCell,
      defineUITableViewHeaderFooterView,
      defineUIControl,
      defineUISwitch,
      defineUISegmentedControl,
      defineUISlider,
      defineUIDimmingView,
      defineUIAlertControllerView,
      defineUIKeyboard,
      defineUIPageControl,
      defineUILabel,
      defineUIImageView,
      defineUITextField,
      defineUIActivityIndicatorView,
      defineUIBarButtonItem,
      defineUINavigationItem,
      defineUINavigationBar,
      defineUIViewController,
      defineUINavigationController,
      defineUIPopoverPresentationController,
      defineUIAlertAction,
      defineUIAlertController,
      defineUIScreen,
      defineUIDevice,
      defineUIApplication,
      defineUITouch,
      defineUIPasteboard,
  };
  for (const auto define : classes) define();
}

}  // namespace sim
