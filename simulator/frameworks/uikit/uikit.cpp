#include "simulator/frameworks/uikit/uikit.hpp"

#include "simulator/frameworks/uikit/UIActivityIndicatorView.hpp"
#include "simulator/frameworks/uikit/UIAlertController.hpp"
#include "simulator/frameworks/uikit/UIAlertControllerView.hpp"
#include "simulator/frameworks/uikit/UIApplication.hpp"
#include "simulator/frameworks/uikit/UIDevice.hpp"
#include "simulator/frameworks/uikit/UIImageView.hpp"
#include "simulator/frameworks/uikit/UIKeyboard.hpp"
#include "simulator/frameworks/uikit/UILabel.hpp"
#include "simulator/frameworks/uikit/UIPageControl.hpp"
#include "simulator/frameworks/uikit/UIPasteboard.hpp"
#include "simulator/frameworks/uikit/UIPresentation.hpp"
#include "simulator/frameworks/uikit/UIScreen.hpp"
#include "simulator/frameworks/uikit/UIScrollView.hpp"
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
      defineUIDimmingView,
      defineUIAlertControllerView,
      defineUIKeyboard,
      defineUIPageControl,
      defineUILabel,
      defineUIImageView,
      defineUITextField,
      defineUIActivityIndicatorView,
      defineUIViewController,
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
