#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim {

/// What was copied last: one value of one type.
struct UIPasteboard : Object {
  Ref<objc_object> type;   ///< nil while nothing was copied
  Ref<objc_object> value;  ///< nil while nothing was copied

  static UIPasteboard* generalPasteboard(Class cls);
  void setValueForPasteboardType(id value, id type);
  /// Nil when the pasteboard holds nothing of that type.
  id valueForPasteboardType(id type);
};

/// The pasteboard that a person pastes from.
UIPasteboard* generalPasteboard();

void defineUIPasteboard();

}  // namespace sim
