# The add-on library: one list of sources, two builds. It depends on nothing but what the process that maps
# it exports, so no runtime library of the compiler's is linked.
file(GLOB_RECURSE addon_sources CONFIGURE_DEPENDS
  loader/*.cpp settings/*.cpp state/*.cpp appdata/*.cpp menu/*.cpp badges/*.cpp clipboard/*.cpp mute/*.cpp labels/*.cpp)

add_library(addon_options INTERFACE)
target_include_directories(addon_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(addon_options INTERFACE
  -ffreestanding -fno-exceptions -fno-rtti -fno-threadsafe-statics -fvisibility=hidden
  # The platform's exceptions pass through, to whoever above catches them; free-standing code has no tables for that
  # of itself.
  -funwind-tables
  # A message to nil is nothing on this platform, whichever way it is written.
  -fno-delete-null-pointer-checks
  -Wall -Wextra -Werror)
if(SANITIZE)
  target_compile_options(addon_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
    # Messages to nil, and methods called through the receiver's type as the caller sees it.
    -fno-sanitize=null,function,vptr)
endif()

if(NOT DEVICE)
  # The second one is for tests alone: nothing may hang on what the optimiser does.
  foreach(library Sprigdial Sprigdial-unoptimised)
    add_library(${library} MODULE ${addon_sources})
    set_target_properties(${library} PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
    target_link_libraries(${library} PRIVATE addon_options)
    target_link_options(${library} PRIVATE -nostdlib -fuse-ld=lld-16 -Wl,-z,undefs -Wl,-z,now
      -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/no-exports.map)
  endforeach()
  target_compile_options(Sprigdial-unoptimised PRIVATE -O0)
  set_target_properties(Sprigdial-unoptimised PROPERTIES EXCLUDE_FROM_ALL ON)
  return()
endif()

# The link stubs name what a phone's own libraries export, as the closed list tells.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS platform/symbols.txt)
file(STRINGS platform/symbols.txt rows REGEX "^[A-Za-z_]")
# What the compiler and the linker need of themselves.
list(APPEND rows "dyld_stub_binder /usr/lib/libSystem.B.dylib")
foreach(row ${rows})
  string(REGEX MATCH "^([A-Za-z_]+) +([^ ]+)" row ${row})
  list(APPEND symbols_of_${CMAKE_MATCH_2} _${CMAKE_MATCH_1})
  list(APPEND phone_libraries ${CMAKE_MATCH_2})
endforeach()
list(REMOVE_DUPLICATES phone_libraries)
list(REMOVE_ITEM phone_libraries -)
foreach(phone_library ${phone_libraries})
  cmake_path(GET phone_library STEM name)
  list(JOIN symbols_of_${phone_library} ", " symbols)
  string(REPLACE "_dyld_" "dyld_" symbols "${symbols}")
  file(CONFIGURE OUTPUT stubs/${name}.tbd CONTENT [[
--- !tapi-tbd
tbd-version: 4
targets: [ arm64-ios ]
install-name: '@phone_library@'
exports:
  - targets: [ arm64-ios ]
    symbols: [ @symbols@ ]
...
]] @ONLY)
  list(APPEND stubs ${CMAKE_CURRENT_BINARY_DIR}/stubs/${name}.tbd)
endforeach()

# The hooking loader's symbol is no library's. Nobody debugs on the phone: no symbol table.
add_library(addon_objects OBJECT ${addon_sources})
target_link_libraries(addon_objects PRIVATE addon_options)
set(library ${CMAKE_BINARY_DIR}/Sprigdial.dylib)
add_custom_command(OUTPUT ${library}
  COMMAND ld64.lld-16 -dylib -arch arm64 -platform_version ios 10.0 14.0 -adhoc_codesign -no_encryption -dead_strip --icf=safe -x -S
    -install_name @rpath/Sprigdial.dylib -U _MSHookMessageEx -unexported_symbol "*"
    -o ${library} $<TARGET_OBJECTS:addon_objects> ${stubs}
  DEPENDS addon_objects $<TARGET_OBJECTS:addon_objects> ${stubs}
  COMMAND_EXPAND_LISTS VERBATIM)
add_custom_target(Sprigdial ALL DEPENDS ${library})
