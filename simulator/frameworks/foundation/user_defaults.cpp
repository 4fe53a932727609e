#include "simulator/frameworks/foundation/user_defaults.hpp"

#include "simulator/runtime/objc.hpp"

namespace sim {

void installUserDefaults() {
  AutoreleasePool pool;
  id defaults = send<id>("NSUserDefaults"_cls, "standardUserDefaults"_sel);
  id yes = send<id>("NSNumber"_cls, "numberWithBool:"_sel, true);
  send(defaults, "registerDefaults:"_sel,
       send<id>("NSDictionary"_cls, "dictionaryWithObject:forKey:"_sel, yes, ns("GSMacOSXCompatible")));
}

}  // namespace sim
