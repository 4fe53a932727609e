# What the processes of the platform map: the add-on and its settings pane. It depends on nothing but what the process
# that maps it exports, so no runtime library of the compiler's is linked.
add_library(platform_image_options INTERFACE)
target_include_directories(platform_image_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(platform_image_options INTERFACE
  -ffreestanding -fno-exceptions -fno-rtti -fno-threadsafe-statics -fvisibility=hidden
  # The platform's exceptions pass through, to whoever above catches them; free-standing code has no tables for that
  # of itself.
  -funwind-tables
  # A message to nil is nothing on this platform, whichever way it is written.
  -fno-delete-null-pointer-checks
  -Wall -Wextra -Werror)
if(SANITIZE)
  target_compile_options(platform_image_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
    # Messages to nil, and methods called through the receiver's type as the caller sees it.
    -fno-sanitize=null,function,vptr)
endif()

# Writes a stub for each of a phone's libraries that the closed list names; sets `stubs` to them, and `elsewhere` to
# the linker's options for symbols that are no library's and are found at run time.
function(make_link_stubs target symbols)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${symbols})
  file(STRINGS ${symbols} rows REGEX "^[A-Za-z_]")
  # What the compiler and the linker need of themselves.
  list(APPEND rows "dyld_stub_binder /usr/lib/libSystem.B.dylib")
  set(elsewhere)
  foreach(row ${rows})
    string(REGEX MATCH "^([A-Za-z_]+) +([^ ]+)" row ${row})
    if(CMAKE_MATCH_2 STREQUAL "-")
      list(APPEND elsewhere -U _${CMAKE_MATCH_1})
    else()
      list(APPEND symbols_of_${CMAKE_MATCH_2} _${CMAKE_MATCH_1})
      list(APPEND phone_libraries ${CMAKE_MATCH_2})
    endif()
  endforeach()
  list(REMOVE_DUPLICATES phone_libraries)
  foreach(phone_library ${phone_libraries})
    cmake_path(GET phone_library STEM name)
    list(JOIN symbols_of_${phone_library} ", " symbols)
    string(REPLACE "_dyld_" "dyld_" symbols "${symbols}")
    set(stub ${CMAKE_CURRENT_BINARY_DIR}/stubs/${target}/${name}.tbd)
    file(CONFIGURE OUTPUT ${stub} CONTENT [[
--- !tapi-tbd
tbd-version: 4
targets: [ arm64-ios ]
install-name: '@phone_library@'
exports:
  - targets: [ arm64-ios ]
    symbols: [ @symbols@ ]
...
]] @ONLY)
    list(APPEND stubs ${stub})
  endforeach()
  return(PROPAGATE stubs elsewhere)
endfunction()

# Builds the sources as an image of that file name: for a phone with its libraries as the closed list tells, and for
# this PC with an ending of its own.
function(add_platform_image target file symbols)
  if(NOT DEVICE)
    add_library(${target} MODULE ${ARGN})
    set_target_properties(${target} PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
    target_link_libraries(${target} PRIVATE platform_image_options)
    target_link_options(${target} PRIVATE -nostdlib -fuse-ld=lld-16 -Wl,-z,undefs -Wl,-z,now
      -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/no-exports.map)
    return()
  endif()
  make_link_stubs(${target} ${symbols})
  add_library(${target}_objects OBJECT ${ARGN})
  target_link_libraries(${target}_objects PRIVATE platform_image_options)
  set(image ${CMAKE_BINARY_DIR}/${file})
  # Nobody debugs on the phone: no symbol table.
  add_custom_command(OUTPUT ${image}
    COMMAND ld64.lld-16 -dylib -arch arm64 -platform_version ios 10.0 14.0 -adhoc_codesign -no_encryption -dead_strip --icf=safe -x -S -no_data_const
      -install_name @rpath/${file} ${elsewhere} -unexported_symbol "*"
      -o ${image} $<TARGET_OBJECTS:${target}_objects> ${stubs}
    DEPENDS ${target}_objects $<TARGET_OBJECTS:${target}_objects> ${stubs}
    COMMAND_EXPAND_LISTS VERBATIM)
  # A target must not be called like the file.
  add_custom_target(${target}-image ALL DEPENDS ${image})
endfunction()
