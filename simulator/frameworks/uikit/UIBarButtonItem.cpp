#include "simulator/frameworks/uikit/UIBarButtonItem.hpp"

#include "simulator/frameworks/foundation/copying.hpp"

namespace sim {

UIBarButtonItem* UIBarButtonItem::initWithTitle(id shown, NSInteger, id receiver, SEL selector) {
  auto* self = sendSuper<UIBarButtonItem*>(this, "NSObject"_cls, "init"_sel);
  if (self == nullptr) return nullptr;
  self->title = copied(shown);
  self->target = receiver;
  self->action = selector;
  return self;
}

void defineUIBarButtonItem() {
  ClassBuilder<UIBarButtonItem>("UIBarButtonItem", "NSObject")
      .method<&UIBarButtonItem::initWithTitle>("initWithTitle:style:target:action:")
      .property<&UIBarButtonItem::title>("title")
      .property<&UIBarButtonItem::target>("target")
      .property<&UIBarButtonItem::action>("action")
      .add();
}

}  // namespace sim
