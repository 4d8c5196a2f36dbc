# room(NAME [SMALL] BELOW ROOM... SOURCES FILE... [COLD FILE...]): the library scourwell_NAME of this folder. It sees
# the rooms that are named, and those below them. SMALL: no loop of a scan runs through it, so it is
# made for size; those rooms are most of the program. COLD: the same of single sources of a room.
function(room name)
  cmake_parse_arguments(room SMALL "" "BELOW;SOURCES;COLD" ${ARGN})
  add_library(scourwell_${name} STATIC ${room_SOURCES} ${room_COLD})
  set_source_files_properties(${room_COLD} PROPERTIES COMPILE_OPTIONS $<$<CONFIG:Release>:-Os>)
  target_link_libraries(scourwell_${name} PUBLIC scourwell_flags)
  foreach(below ${room_BELOW})
    target_link_libraries(scourwell_${name} PUBLIC scourwell_${below})
  endforeach()
  if(room_SMALL)
    target_compile_options(scourwell_${name} PRIVATE $<$<CONFIG:Release>:-Os>)
  endif()
  set_property(GLOBAL APPEND PROPERTY SCOURWELL_ROOMS scourwell_${name})
endfunction()

# room_windows(NAME FILE...): the forms and panes of a room, in a library of their own.
function(room_windows name)
  if(NOT WIN32)
    return()
  endif()
  room(${name}_windows SMALL BELOW ${name} widgets SOURCES ${ARGN})
endfunction()
