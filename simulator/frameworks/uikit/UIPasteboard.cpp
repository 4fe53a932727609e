#include "simulator/frameworks/uikit/UIPasteboard.hpp"

#include "simulator/frameworks/foundation/copying.hpp"

namespace sim {

UIPasteboard* UIPasteboard::generalPasteboard(Class cls) {
  static Slot<UIPasteboard> pasteboard;
  if (!pasteboard) pasteboard.set(make<UIPasteboard>(cls));
  return pasteboard.get();
}

void UIPasteboard::setValueForPasteboardType(id changed, id changedType) {
  type = copied(changedType);
  value = copied(changed);
}

id UIPasteboard::valueForPasteboardType(id wanted) {
  return send<BOOL>(type.get(), "isEqual:"_sel, wanted) ? value.get() : nullptr;
}

UIPasteboard* generalPasteboard() { return UIPasteboard::generalPasteboard("UIPasteboard"_cls); }

void defineUIPasteboard() {
  ClassBuilder<UIPasteboard>("UIPasteboard", "NSObject")
      .classMethod<&UIPasteboard::generalPasteboard>("generalPasteboard")
      .method<&UIPasteboard::setValueForPasteboardType>("setValue:forPasteboardType:")
      .method<&UIPasteboard::valueForPasteboardType>("valueForPasteboardType:")
      .add();
}

}  // namespace sim
