#include "simulator/runtime/exception.hpp"

#include <cstdlib>

#include "simulator/runtime/objc.hpp"

namespace sim {

void raiseException(const std::string& name, const std::string& reason) {
  id exception = send<id>("NSException"_cls, "exceptionWithName:reason:userInfo:"_sel, ns(name), ns(reason),
                          static_cast<id>(nullptr));
  // The exception outlives the pools that drain on its way.
  objc_retain(exception);
  send(exception, "raise"_sel);
  std::abort();
}

}  // namespace sim
