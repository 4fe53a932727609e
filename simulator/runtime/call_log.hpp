// What the add-on does to the home screen: the methods it hooks and adds, or would have hooked, the Darwin
// notifications it observes and posts, and the messages it sends.
#pragma once

#include <string>
#include <vector>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// One entry. A method of a class is written "-[Class selector]", one of the class itself "+[Class selector]".
struct Call {
  enum class Kind { hook, add, observe, send, post, missing } kind;
  std::string className;
  std::string selector;
  std::string encoding;  ///< of a hooked or added method; for what is observed or posted its arguments
};

/// The log since the process began, oldest first.
std::vector<Call>& callLog();
/// Whether messages are logged too; what is observed and posted always is. Off until switched on, since a
/// large folder's walk sends very many.
void logMessages(bool on);

/// Tells whether the library is being mapped: hooked and added methods are logged meanwhile. The simulator's own
/// classes are none of the log's business.
void setMappingLibrary(bool on);
bool isMappingLibrary();
/// Logs, and tells on the error output, that there is no such method to hook: the add-on does without. The class may be
/// nil.
void logMissingMethod(Class cls, SEL selector);
/// Logs a hooked or added method while the library is being mapped.
void logMethod(Call::Kind kind, Class cls, SEL selector, const char* encoding);

}  // namespace sim
