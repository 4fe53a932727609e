# The add-on library: one list of sources, two builds.
file(GLOB_RECURSE addon_sources CONFIGURE_DEPENDS
  loader/*.cpp settings/*.cpp state/*.cpp appdata/*.cpp menu/*.cpp badges/*.cpp clipboard/*.cpp mute/*.cpp labels/*.cpp)

add_platform_image(Sprigdial Sprigdial.dylib platform/symbols.txt ${addon_sources})

if(NOT DEVICE)
  # For tests alone: nothing may hang on what the optimiser does.
  add_platform_image(Sprigdial-unoptimised Sprigdial-unoptimised.dylib platform/symbols.txt ${addon_sources})
  target_compile_options(Sprigdial-unoptimised PRIVATE -O0)
  set_target_properties(Sprigdial-unoptimised PROPERTIES EXCLUDE_FROM_ALL ON)
endif()
