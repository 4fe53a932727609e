# The add-on library: one list of sources, two builds. It depends on nothing but what the process that maps
# it exports, so no runtime library of the compiler's is linked.
file(GLOB_RECURSE addon_sources CONFIGURE_DEPENDS
  loader/*.cpp settings/*.cpp state/*.cpp appdata/*.cpp menu/*.cpp badges/*.cpp clipboard/*.cpp mute/*.cpp labels/*.cpp)

add_library(Sprigdial MODULE ${addon_sources})
set_target_properties(Sprigdial PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
target_include_directories(Sprigdial PRIVATE ${PROJECT_SOURCE_DIR})
target_compile_options(Sprigdial PRIVATE
  -ffreestanding -fno-exceptions -fno-rtti -fno-threadsafe-statics -fvisibility=hidden
  # A message to nil is nothing on this platform, whichever way it is written.
  -fno-delete-null-pointer-checks
  -Wall -Wextra -Werror)

if(DEVICE)
  set_target_properties(Sprigdial PROPERTIES SUFFIX .dylib)
else()
  target_link_options(Sprigdial PRIVATE -nostdlib -fuse-ld=lld-16 -Wl,-z,undefs -Wl,-z,now)
  if(SANITIZE)
    target_compile_options(Sprigdial PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=all
      # Messages to nil, and methods called through the receiver's type as the caller sees it.
      -fno-sanitize=null,function,vptr)
  endif()
endif()
