# vianda_room(<name> [SOURCES ...] [USES <rooms below> ...] [QT <modules> ...])
#
# Makes the library of the folder src/<name>. Includes are written from src/ ("store/foodrepository.h"), but no target
# has src/ itself on its include path: each room publishes an include root in the build tree that holds a link to that
# one folder. A room therefore sees the headers of the rooms it links (and of those below them) and no others; an
# include that breaks the order of the house does not compile.
function(vianda_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;USES;QT" ${ARGN})
  set(target vianda_${name})
  set(include_root ${CMAKE_BINARY_DIR}/rooms/${name})
  file(MAKE_DIRECTORY ${include_root})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${include_root}/${name} SYMBOLIC)

  list(TRANSFORM ROOM_USES PREPEND vianda_)
  list(TRANSFORM ROOM_QT PREPEND Qt5::)
  if(ROOM_SOURCES)
    add_library(${target} STATIC ${ROOM_SOURCES})
    target_include_directories(${target} PUBLIC ${include_root})
    target_link_libraries(${target} PUBLIC ${ROOM_USES} ${ROOM_QT})
    vianda_warnings(${target})
  else()
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE ${include_root})
    target_link_libraries(${target} INTERFACE ${ROOM_USES} ${ROOM_QT})
  endif()
endfunction()
