# A phone's library on a PC: clang for arm64 iOS, the headers of libc++ and no SDK.
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR arm64)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_CXX_COMPILER_TARGET arm64-apple-ios10.0)
set(CMAKE_ASM_COMPILER_TARGET arm64-apple-ios10.0)
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES /usr/lib/llvm-16/include/c++/v1)
set(CMAKE_CXX_FLAGS_INIT "-nostdinc++ -fPIC")
