// What the add-on does to the home screen: the methods it hooks and adds, and the messages it sends.
#pragma once

#include <string>
#include <vector>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// One entry. A method of a class is written "-[Class selector]", one of the class itself "+[Class selector]".
struct Call {
  enum class Kind { hook, add, observe, send } kind;
  std::string className;
  std::string selector;
  std::string encoding;  ///< of a hooked or added method; for an observer its arguments
};

/// The log since the process began, oldest first.
std::vector<Call>& callLog();
/// Whether messages are logged too; observers always are. Off until switched on, since a
/// large folder's walk sends very many.
void logMessages(bool on);

/// Whether hooked and added methods are logged: while the library is being mapped. The simulator's own classes
/// are none of the log's business.
void logMethods(bool on);
/// Logs a hooked or added method, if that is on.
void logMethod(Call::Kind kind, Class cls, SEL selector, const char* encoding);

}  // namespace sim
