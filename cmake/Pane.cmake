# The settings pane: a second small image in the same two builds, and the pictures of its bundle.
file(GLOB pane_sources CONFIGURE_DEPENDS pane/*.cpp)
add_platform_image(SprigdialSettings SprigdialSettings pane/symbols.txt ${pane_sources} settings/file.cpp)

# Each drawing and the pictures that are made of it, by their sides in pixels.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
set(pane_images)
function(render_pane_image drawing name side)
  set(picture ${CMAKE_BINARY_DIR}/images/${name}.png)
  add_custom_command(OUTPUT ${picture}
    COMMAND ${RSVG_CONVERT} --width ${side} --height ${side} --output ${picture} ${PROJECT_SOURCE_DIR}/pane/images/${drawing}.svg
    DEPENDS pane/images/${drawing}.svg VERBATIM)
  list(APPEND pane_images ${picture})
  return(PROPAGATE pane_images)
endfunction()
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/images)
# What the quick-action entry shows in the two generations, 35 points wide.
render_pane_image(entry Sprigdial 35)
render_pane_image(entry Sprigdial@2x 70)
render_pane_image(entry Sprigdial@3x 105)
render_pane_image(entry icon@3x 105)
# The pane's own, in the list of the settings application.
render_pane_image(pane Pane 29)
render_pane_image(pane Pane@2x 58)
render_pane_image(pane Pane@3x 87)
add_custom_target(pane-images ALL DEPENDS ${pane_images})
