// Reference counting and autorelease pools under the names that the add-on calls them by. Blocks are objects to them.
#include "simulator/runtime/objc.hpp"

extern "C" {

Class object_getClass(id object) { return object != nullptr ? object->isa : nullptr; }

id objc_retain(id object) { return sim::send<id>(object, "retain"_sel); }
void objc_release(id object) { sim::send(object, "release"_sel); }
id objc_autorelease(id object) { return sim::send<id>(object, "autorelease"_sel); }

void* objc_autoreleasePoolPush() { return sim::send<id>("NSAutoreleasePool"_cls, "new"_sel); }
void objc_autoreleasePoolPop(void* pool) { sim::send(static_cast<id>(pool), "drain"_sel); }
}
