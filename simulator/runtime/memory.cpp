// Reference counting and autorelease pools under the names that the add-on calls them by.
// Blocks are objects to them: a copied one is counted, any other stays as it is.
#include "simulator/runtime/blocks.hpp"
#include "simulator/runtime/objc.hpp"

extern "C" {

Class object_getClass(id object) { return object != nullptr ? object->isa : nullptr; }

id objc_retain(id object) {
  if (object == nullptr || !sim::isBlock(object)) return sim::send<id>(object, "retain"_sel);
  if (sim::isCopiedBlock(object)) _Block_copy(object);
  return object;
}

void objc_release(id object) {
  if (object == nullptr || !sim::isBlock(object)) return sim::send(object, "release"_sel);
  if (sim::isCopiedBlock(object)) _Block_release(object);
}

id objc_autorelease(id object) {
  if (object == nullptr || !sim::isBlock(object)) return sim::send<id>(object, "autorelease"_sel);
  if (sim::isCopiedBlock(object)) sim::autoreleaseBlock(object);
  return object;
}

void* objc_autoreleasePoolPush() { return sim::send<id>("NSAutoreleasePool"_cls, "new"_sel); }
void objc_autoreleasePoolPop(void* pool) { sim::send(static_cast<id>(pool), "drain"_sel); }
}
