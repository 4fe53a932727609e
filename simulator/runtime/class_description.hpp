// What the runtime knows of a class: for a look at those that the library registers.
#pragma once

#include <string>
#include <vector>

#include "simulator/runtime/objc.hpp"

namespace sim {

struct ClassDescription {
  struct Member {
    std::string name, type;  ///< the type as the runtime encodes it
  };
  std::string superclass;  ///< empty for a root class
  std::vector<std::string> protocols;
  std::vector<Member> instanceVariables;  ///< in their order
  std::vector<Member> methods, classMethods;
};

/// The class itself: what it inherits is left out.
ClassDescription describe(Class cls);

}  // namespace sim
