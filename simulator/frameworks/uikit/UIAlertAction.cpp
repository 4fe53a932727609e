#include "simulator/frameworks/uikit/UIAlertAction.hpp"

#include "simulator/frameworks/foundation/copying.hpp"

namespace sim {

UIAlertAction* UIAlertAction::actionWithTitle(Class cls, id title, UIAlertActionStyle style,
                                              const BlockLiteral* handler) {
  auto action = make<UIAlertAction>(cls);
  action->title = copied(title);
  action->style = style;
  action->handler = BlockRef(handler);
  return autoreleased(action);
}

void defineUIAlertAction() {
  ClassBuilder<UIAlertAction>("UIAlertAction", "NSObject")
      .classMethod<&UIAlertAction::actionWithTitle>("actionWithTitle:style:handler:")
      .getter<&UIAlertAction::title>("title")
      .getter<&UIAlertAction::style>("style")
      .add();
}

}  // namespace sim
