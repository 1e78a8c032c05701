# vianda_resources(<target> <list>.qrc)
#
# An object library of Qt resources (objects: an archive would leave their registration out). The .qrc of the present
# folder is the one list of files. It is read in the build folder, where every file of the list comes to stand: images
# are rendered from svg/, anything else is copied from here.
#
# <drawing>.png comes from svg/<drawing>.svg. Where there is no such drawing, <drawing><state>.png is svg/<drawing>.svg
# under the style sheet svg/sidebar<state>.css, if there is one for that state.
find_program(RSVG_CONVERT rsvg-convert REQUIRED DOC "SVG renderer (Debian package librsvg2-bin)")

# Four times the drawings' grid of 24: sharp at 32 px on a threefold display, and a whole step down to 16, 24 and 32 px.
set(VIANDA_IMAGE_PIXELS 96)

function(vianda_render_image file)
  set(folder ${CMAKE_CURRENT_SOURCE_DIR}/svg)
  get_filename_component(name ${file} NAME_WE)
  set(style_option)
  if(NOT EXISTS ${folder}/${name}.svg AND name MATCHES "^(.+)([0-9])$")
    set(name ${CMAKE_MATCH_1})
    if(EXISTS ${folder}/sidebar${CMAKE_MATCH_2}.css)
      set(style_option --stylesheet=${folder}/sidebar${CMAKE_MATCH_2}.css)
    endif()
  endif()
  file(GLOB style_sheets CONFIGURE_DEPENDS ${folder}/*.css)
  set(image ${CMAKE_CURRENT_BINARY_DIR}/${file})
  get_filename_component(image_folder ${image} DIRECTORY)
  file(MAKE_DIRECTORY ${image_folder})
  add_custom_command(OUTPUT ${image}
    COMMAND ${RSVG_CONVERT} --width=${VIANDA_IMAGE_PIXELS} --height=${VIANDA_IMAGE_PIXELS} ${style_option}
      --output=${image} ${folder}/${name}.svg
    DEPENDS ${folder}/${name}.svg ${style_sheets}
    COMMENT "Rendering ${file}"
    VERBATIM)
endfunction()

function(vianda_resources target list)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
  file(STRINGS ${list} entries REGEX "<file>")
  set(files)
  foreach(entry IN LISTS entries)
    string(REGEX REPLACE ".*<file>(.*)</file>.*" "\\1" file ${entry})
    if(file MATCHES "\\.png$")
      vianda_render_image(${file})
    else()
      configure_file(${file} ${file} COPYONLY)
    endif()
    list(APPEND files ${CMAKE_CURRENT_BINARY_DIR}/${file})
  endforeach()
  configure_file(${list} ${list} COPYONLY)

  get_filename_component(name ${list} NAME_WE)
  set(code ${CMAKE_CURRENT_BINARY_DIR}/${target}.cpp)
  add_custom_command(OUTPUT ${code}
    COMMAND Qt5::rcc --name ${name} --output ${code} ${CMAKE_CURRENT_BINARY_DIR}/${list}
    DEPENDS ${files} ${CMAKE_CURRENT_BINARY_DIR}/${list}
    COMMENT "Compiling ${list}"
    VERBATIM)
  add_library(${target} OBJECT ${code})
  set_target_properties(${target} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
  target_link_libraries(${target} PUBLIC Qt5::Core)
endfunction()
