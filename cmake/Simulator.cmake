# The simulated home screen. `SpringBoard` runs inside the device and is the home-screen process; beside it run
# `Preferences`, the settings application, `cfprefsd`, the preferences daemon, and `installd`, which tells what is
# installed. `home-screen` is what a person starts, and drives them from outside.
find_package(PkgConfig REQUIRED)
find_package(nlohmann_json REQUIRED)
pkg_check_modules(PLIST REQUIRED IMPORTED_TARGET libplist-2.0)
pkg_check_modules(ARCHIVE REQUIRED IMPORTED_TARGET libarchive)
pkg_check_modules(EDIT REQUIRED IMPORTED_TARGET libedit)
pkg_check_modules(PNG REQUIRED IMPORTED_TARGET libpng)
pkg_check_modules(UTF8PROC REQUIRED IMPORTED_TARGET libutf8proc)

add_library(simulator_options INTERFACE)
target_include_directories(simulator_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(simulator_options INTERFACE -Wall -Wextra -Werror)
target_link_libraries(simulator_options INTERFACE nlohmann_json::nlohmann_json)
if(SANITIZE)
  # Methods are called through the receiver's type as the caller sees it.
  set(sanitizers -fsanitize=address,undefined -fno-sanitize=function,vptr -fno-sanitize-recover=all)
  target_compile_options(simulator_options INTERFACE ${sanitizers} -fno-omit-frame-pointer)
  target_link_options(simulator_options INTERFACE ${sanitizers})
endif()

# Everything of the home-screen process but its main function.
file(GLOB_RECURSE process_sources CONFIGURE_DEPENDS
  simulator/runtime/*.cpp simulator/runtime/*.S simulator/frameworks/*.cpp simulator/homescreen/*.cpp
  simulator/control/agent/*.cpp)
add_library(simulator_process OBJECT ${process_sources} simulator/device/messages.cpp)
target_link_libraries(simulator_process PUBLIC simulator_options)
target_precompile_headers(simulator_process PRIVATE <nlohmann/json.hpp> simulator/homescreen/common/home.hpp
  simulator/runtime/class_builder.hpp)

# GCC's runtime and Foundation are looked up by name at run time, and only by the add-on in part: keep them.
execute_process(COMMAND gcc -print-file-name=libobjc.so OUTPUT_VARIABLE objc_library OUTPUT_STRIP_TRAILING_WHITESPACE)
function(link_home_screen_process target)
  set_target_properties(${target} PROPERTIES ENABLE_EXPORTS ON)
  target_link_libraries(${target} PRIVATE simulator_process
    -Wl,--no-as-needed ${objc_library} gnustep-base -Wl,--as-needed ${CMAKE_DL_LIBS})
endfunction()

add_executable(SpringBoard simulator/springboard.cpp)
link_home_screen_process(SpringBoard)
add_dependencies(SpringBoard package-tree)

# The preferences daemon, beside the home screen inside the device.
file(GLOB daemon_sources CONFIGURE_DEPENDS simulator/preferences/daemon/*.cpp)
add_executable(cfprefsd ${daemon_sources})
link_home_screen_process(cfprefsd)

# The settings application, a process of its own on the same device.
file(GLOB settings_sources CONFIGURE_DEPENDS simulator/preferences/application/*.cpp)
add_executable(Preferences ${settings_sources})
link_home_screen_process(Preferences)

# What is installed, as the home screen reads it.
add_executable(installd simulator/installd.cpp)
link_home_screen_process(installd)

# What a person can do and see, from outside the device.
file(GLOB control_sources CONFIGURE_DEPENDS simulator/control/*.cpp simulator/device/*.cpp)
add_library(simulator_control STATIC ${control_sources})
target_link_libraries(simulator_control PUBLIC simulator_options PRIVATE PkgConfig::PLIST PkgConfig::ARCHIVE
  PkgConfig::EDIT PkgConfig::PNG PkgConfig::UTF8PROC)
target_precompile_headers(simulator_control PRIVATE simulator/control/phone.hpp)

add_executable(home-screen simulator/home_screen.cpp)
target_link_libraries(home-screen PRIVATE simulator_control)
add_dependencies(home-screen SpringBoard Preferences cfprefsd installd)

add_executable(bench EXCLUDE_FROM_ALL benchmarks/bench.cpp)
target_link_libraries(bench PRIVATE simulator_control)
add_dependencies(bench SpringBoard cfprefsd installd)
