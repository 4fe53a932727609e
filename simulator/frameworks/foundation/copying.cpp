#include "simulator/frameworks/foundation/copying.hpp"

namespace sim {

Ref<objc_object> copied(id object) { return Ref<objc_object>::adopt(send<id>(object, "copy"_sel)); }

}  // namespace sim
