# What a phone installs: the tree of files by one table, and the package that holds it. For this PC the same files, with
# the PC's images in the place of the phone's, are what the simulated device boots from.
set(addon_image Sprigdial.dylib)
set(pane_image SprigdialSettings)
set(package_architecture iphoneos-arm)
set(package ${CMAKE_BINARY_DIR}/com.morvanel.sprigdial_${PROJECT_VERSION}_iphoneos-arm.deb)
# The oldest installers read nothing but gzip.
set(package_compression gzip)
if(NOT DEVICE)
  set(addon_image Sprigdial.so)
  set(pane_image SprigdialSettings.so)
  # No phone takes it, and devices are made faster from what is not compressed.
  set(package_architecture pc)
  set(package ${CMAKE_BINARY_DIR}/Sprigdial.deb)
  set(package_compression none)
endif()

cmake_path(RELATIVE_PATH CMAKE_BINARY_DIR BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE build)
set(package_files ${CMAKE_BINARY_DIR}/package-files.txt)
configure_file(packaging/files.txt ${package_files} @ONLY)
configure_file(packaging/control ${CMAKE_BINARY_DIR}/package-control @ONLY)
file(STRINGS ${package_files} rows REGEX "^[^#]")
list(TRANSFORM rows REPLACE " .*" "" OUTPUT_VARIABLE package_sources)
list(TRANSFORM package_sources PREPEND ${PROJECT_SOURCE_DIR}/)

add_custom_command(OUTPUT ${package}
  COMMAND packaging/build ${package_files} ${CMAKE_BINARY_DIR}/package-control ${package_compression}
    ${CMAKE_BINARY_DIR}/package ${package}
  DEPENDS ${package_sources} ${package_files} ${CMAKE_BINARY_DIR}/package-control packaging/build packaging/respring
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} VERBATIM)
add_custom_target(package-tree ALL DEPENDS ${package})
set(images Sprigdial SprigdialSettings)
if(DEVICE)
  list(TRANSFORM images APPEND -image)
endif()
add_dependencies(package-tree ${images} pane-images)
