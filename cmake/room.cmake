# In one piece a room makes a smaller program in half the time. Names in the unnamed namespaces of a
# room have to be different ones for that.
option(SCOURWELL_ROOMS_WHOLE "Compile each room in one piece" OFF)

# room(NAME [SMALL] [APART] BELOW ROOM... SOURCES FILE... [COLD FILE...] [FAST FILE...]): the library
# scourwell_NAME of this folder. It sees the rooms that are named, and those below them. SMALL: no loop of a scan runs
# through it, so it is made for size; those rooms are most of the program. COLD: the same of single
# sources of a room. FAST: sources of a small room that are made for speed all the same. APART: never in one
# piece.
function(room name)
  cmake_parse_arguments(room "SMALL;APART" "" "BELOW;SOURCES;COLD;FAST" ${ARGN})
  add_library(scourwell_${name} STATIC ${room_SOURCES} ${room_COLD} ${room_FAST})
  set_source_files_properties(${room_COLD} PROPERTIES COMPILE_OPTIONS $<$<CONFIG:Release>:-Os>)
  set_source_files_properties(${room_FAST} PROPERTIES COMPILE_OPTIONS $<$<CONFIG:Release>:-O2>)
  target_link_libraries(scourwell_${name} PUBLIC scourwell_flags)
  foreach(below ${room_BELOW})
    target_link_libraries(scourwell_${name} PUBLIC scourwell_${below})
  endforeach()
  if(SCOURWELL_ROOMS_WHOLE AND NOT room_APART)
    set_target_properties(scourwell_${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
  endif()
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
