# One program holds all tests; CTest starts it once for each suite.
enable_testing()
find_package(GTest REQUIRED)

# A host of the library that is not the simulator.
add_executable(minimal-host tests/loader/minimal_host.cpp)
target_link_libraries(minimal-host PRIVATE simulator_options ${CMAKE_DL_LIBS})
set_target_properties(minimal-host PROPERTIES ENABLE_EXPORTS ON)
add_dependencies(minimal-host Sprigdial)

# The settings as the library reads them, printed.
add_library(settings_room OBJECT settings/settings.cpp)
target_link_libraries(settings_room PRIVATE platform_image_options)
add_executable(settings-probe tests/settings/settings_probe.cpp)
target_link_libraries(settings-probe PRIVATE settings_room)
link_home_screen_process(settings-probe)

# What the readers of property lists give, printed.
add_executable(property-list-probe tests/platform/property_list_probe.cpp)
link_home_screen_process(property-list-probe)

# What the platform does with what the add-on might ask of it, printed.
add_executable(platform-probe tests/platform/platform_probe.cpp)
link_home_screen_process(platform-probe)

# A pane that the settings application's tests install, and one that needs what no process has.
foreach(pane test-pane incomplete-pane)
  string(REPLACE "-" "_" source ${pane})
  add_library(${pane} MODULE tests/preferences/${source}.cpp)
  set_target_properties(${pane} PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
  target_link_libraries(${pane} PRIVATE platform_image_options)
  target_link_options(${pane} PRIVATE -nostdlib -fuse-ld=lld-16 -Wl,-z,undefs -Wl,-z,now)
endforeach()

file(GLOB_RECURSE test_sources CONFIGURE_DEPENDS tests/*_test.cpp tests/support/*.cpp)
if(SANITIZE)
  # What the files are made of is asked of the builds that are used.
  list(FILTER test_sources EXCLUDE REGEX tests/package/|tests/loader/library_file_test.cpp)
endif()
add_executable(sprigdial-tests ${test_sources})
target_link_libraries(sprigdial-tests PRIVATE simulator_control GTest::gtest_main PkgConfig::PNG PkgConfig::ARCHIVE)
# The tests' own code is run once: the time goes into compiling it. What it shares with the simulator's, templates
# mostly, comes from there, since the linker takes the first that it finds.
target_compile_options(sprigdial-tests PRIVATE -O0 -g1)
target_link_options(sprigdial-tests PRIVATE
  -Wl,--whole-archive $<TARGET_FILE:simulator_control> -Wl,--no-whole-archive)
target_precompile_headers(sprigdial-tests PRIVATE tests/support/phone.hpp)
set_source_files_properties(tests/support/places.cpp PROPERTIES SKIP_PRECOMPILE_HEADERS ON COMPILE_DEFINITIONS
  "SOURCE_DIR=\"${PROJECT_SOURCE_DIR}\";BUILD_DIR=\"${CMAKE_BINARY_DIR}\";DRIVER=\"$<TARGET_FILE:home-screen>\";\
MINIMAL_HOST=\"$<TARGET_FILE:minimal-host>\";PC_LIBRARY=\"$<TARGET_FILE:Sprigdial>\";\
DEVICE_LIBRARY=\"${PROJECT_SOURCE_DIR}/build/device/Sprigdial.dylib\";\
PC_PANE=\"$<TARGET_FILE:SprigdialSettings>\";DEVICE_PANE=\"${PROJECT_SOURCE_DIR}/build/device/SprigdialSettings\";\
PANE_IMAGES=\"${CMAKE_BINARY_DIR}/images\";\
DEVICE_PACKAGE=\"${PROJECT_SOURCE_DIR}/build/device/com.morvanel.sprigdial_${PROJECT_VERSION}_iphoneos-arm.deb\"")
add_dependencies(sprigdial-tests SpringBoard Preferences cfprefsd installd home-screen minimal-host settings-probe
  property-list-probe platform-probe package-tree test-pane incomplete-pane Sprigdial-unoptimised)

# What the runtime and Foundation keep for the life of a process is no leak.
set(sanitizer_environment "ASAN_OPTIONS=detect_leaks=0:allocator_may_return_null=1")
set(suites ${CMAKE_BINARY_DIR}/suites.cmake)
add_custom_command(TARGET sprigdial-tests POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E env ${sanitizer_environment} ${CMAKE_COMMAND} -D PROGRAM=$<TARGET_FILE:sprigdial-tests>
    -D OUTPUT=${suites} -D ENVIRONMENT=${sanitizer_environment} -P ${PROJECT_SOURCE_DIR}/cmake/DiscoverSuites.cmake
  VERBATIM)
set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${suites})

# The example scripts are played as they stand.
file(GLOB scripts CONFIGURE_DEPENDS scripts/*.txt)
foreach(script ${scripts})
  get_filename_component(name ${script} NAME_WE)
  add_test(NAME Scripts.${name} COMMAND home-screen ${script})
  set_tests_properties(Scripts.${name} PROPERTIES ENVIRONMENT "${sanitizer_environment}")
endforeach()
