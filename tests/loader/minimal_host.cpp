// A process that is not the simulator: it exports the closed list and nothing more, answers every message
// with nil, and prints what the library hooks, adds and observes when it is mapped.
//
//   minimal-host LIBRARY CORE-VERSION
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/CoreFoundation.hpp"
#include "platform/dispatch.hpp"
#include "platform/hooking.hpp"
#include "platform/runtime.hpp"

namespace {
// A class or a selector is its name here.
const char* nameOf(const void* thing) { return static_cast<const char*>(thing); }
}  // namespace

struct dispatch_queue_s {};

extern "C" {
double kCFCoreFoundationVersionNumber = 0;
NSString* NSFilePosixPermissions = nullptr;
extern const double UIWindowLevelNormal;
extern const double UIWindowLevelAlert;
const double UIWindowLevelNormal = 0;
const double UIWindowLevelAlert = 2000;
void* _NSConcreteGlobalBlock[32];   // NOLINT(bugprone-reserved-identifier)
void* _NSConcreteStackBlock[32];    // NOLINT(bugprone-reserved-identifier)
dispatch_queue_s _dispatch_main_q;  // NOLINT(bugprone-reserved-identifier)

Class objc_getClass(const char* name) { return reinterpret_cast<Class>(const_cast<char*>(name)); }
Protocol* objc_getProtocol(const char*) { return nullptr; }
Class objc_allocateClassPair(Class, const char* name, std::size_t) { return objc_getClass(name); }
void objc_registerClassPair(Class cls) { std::printf("class %s\n", nameOf(cls)); }
BOOL class_addIvar(Class, const char*, std::size_t, std::uint8_t, const char*) { return true; }
BOOL class_addProtocol(Class, Protocol*) { return true; }
Ivar class_getInstanceVariable(Class, const char*) { return nullptr; }
IMP class_getMethodImplementation(Class, SEL) { return nullptr; }
Class object_getClass(id) { return nullptr; }
std::ptrdiff_t ivar_getOffset(Ivar) { return 0; }
SEL sel_registerName(const char* name) { return reinterpret_cast<SEL>(name); }

BOOL class_addMethod(Class cls, SEL selector, IMP, const char* types) {
  std::printf("add %s %s %s\n", nameOf(cls), nameOf(selector), types);
  return true;
}
void MSHookMessageEx(Class cls, SEL message, IMP replacement, IMP* previous) {
  std::printf("hook %s %s%s\n", nameOf(cls), nameOf(message),
              replacement == nullptr || previous == nullptr ? " without a slot" : "");
}

void* objc_autoreleasePoolPush() {
  std::printf("pool\n");
  return nullptr;
}
void objc_autoreleasePoolPop(void*) { std::printf("end of pool\n"); }
id objc_retain(id object) { return object; }
void objc_release(id) {}
id objc_autorelease(id object) { return object; }
void* _Block_copy(const void*) { return nullptr; }  // NOLINT(bugprone-reserved-identifier)
std::uint64_t dispatch_time(std::uint64_t, std::int64_t) { return 0; }
void dispatch_after(std::uint64_t, dispatch_queue_s*, const void*) {}

CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter() { return nullptr; }
void CFNotificationCenterAddObserver(CFNotificationCenterRef, const void*, CFNotificationCallback, CFStringRef,
                                     const void*, CFNotificationSuspensionBehavior) {
  std::printf("observe\n");
}
void CFNotificationCenterPostNotification(CFNotificationCenterRef, CFStringRef, const void*, const void*,
                                          std::uint8_t) {}
void CFPreferencesSetAppValue(CFStringRef, const void*, CFStringRef) {}
}

// Every message gives nil.
__asm__(
    ".globl objc_msgSend\n.type objc_msgSend, %function\nobjc_msgSend:\n"
#if defined(__x86_64__)
    "xor %eax, %eax\npxor %xmm0, %xmm0\nret\n"
    ".globl objc_msgSend_stret\n.type objc_msgSend_stret, %function\nobjc_msgSend_stret:\nmov %rdi, %rax\nret\n"
#else
    "mov x0, #0\nmovi v0.2d, #0\nret\n"
#endif
);

int main(int count, char** arguments) {
  if (count != 3) {
    std::fprintf(stderr, "usage: minimal-host LIBRARY CORE-VERSION\n");
    return 2;
  }
  kCFCoreFoundationVersionNumber = std::atof(arguments[2]);
  if (dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL) == nullptr) {
    std::fprintf(stderr, "%s\n", dlerror());
    return 1;
  }
  return 0;
}
