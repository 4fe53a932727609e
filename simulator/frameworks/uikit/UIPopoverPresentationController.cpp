#include "simulator/frameworks/uikit/UIPopoverPresentationController.hpp"

namespace sim {

void defineUIPopoverPresentationController() {
  using Self = UIPopoverPresentationController;
  ClassBuilder<Self>("UIPopoverPresentationController", "NSObject")
      .property<&Self::sourceView>("sourceView")
      .property<&Self::sourceRect>("sourceRect")
      .property<&Self::permittedArrowDirections>("permittedArrowDirections")
      .add();
}

}  // namespace sim
