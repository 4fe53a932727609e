// The C interface of the Objective-C runtime and of the blocks runtime, in the platform's ABI.
// Only what the add-on uses is declared; the process that maps the library resolves it.
#pragma once

#include <cstddef>
#include <cstdint>

struct objc_class;
using Class = objc_class*;
struct objc_object {
  Class isa;
};
struct objc_selector;
struct objc_ivar;
struct objc_protocol;

using id = objc_object*;
using SEL = const objc_selector*;
using Ivar = objc_ivar*;
using Protocol = objc_protocol;
using BOOL = bool;
using NSInteger = std::int64_t;
using NSUInteger = std::uint64_t;
using CGFloat = double;

/// An implementation of unknown type; cast it to the method's own type before calling it.
using IMP = void (*)();

extern "C" {
Class objc_getClass(const char* name);
Protocol* objc_getProtocol(const char* name);
Class objc_allocateClassPair(Class superclass, const char* name, std::size_t extraBytes);
void objc_registerClassPair(Class cls);
BOOL class_addMethod(Class cls, SEL selector, IMP implementation, const char* types);
BOOL class_addIvar(Class cls, const char* name, std::size_t size, std::uint8_t log2Alignment, const char* types);
BOOL class_addProtocol(Class cls, Protocol* protocol);
Ivar class_getInstanceVariable(Class cls, const char* name);
IMP class_getMethodImplementation(Class cls, SEL selector);
Class object_getClass(id object);
std::ptrdiff_t ivar_getOffset(Ivar ivar);
SEL sel_registerName(const char* name);

void objc_msgSend();
void objc_msgSend_stret();

void* objc_autoreleasePoolPush();
void objc_autoreleasePoolPop(void* pool);
id objc_retain(id object);
void objc_release(id object);
id objc_autorelease(id object);

extern void* _NSConcreteGlobalBlock[32];  // NOLINT(bugprone-reserved-identifier)
extern void* _NSConcreteStackBlock[32];   // NOLINT(bugprone-reserved-identifier)
void* _Block_copy(const void* block);     // NOLINT(bugprone-reserved-identifier)
}
