// The user-interface framework.
#pragma once

namespace sim {

/// Registers every class of the framework. To be called once, before the add-on is mapped; Foundation is there
/// already.
void defineUIKit();

}  // namespace sim
