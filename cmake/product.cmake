# Scourwell.exe, ScourwellCon.exe and the ready-to-copy program folder.
add_executable(Scourwell WIN32 shell/main.cpp shell/app.rc)
target_include_directories(Scourwell PRIVATE ${PROJECT_BINARY_DIR}/generated)
target_link_libraries(Scourwell PRIVATE scourwell_shell_windows)
file(GLOB resources CONFIGURE_DEPENDS art/*.ico art/*.bmp art/commands/*.ico)
list(APPEND resources ${PROJECT_SOURCE_DIR}/shell/app.manifest ${PROJECT_SOURCE_DIR}/widgets/resource.h)
set_source_files_properties(shell/app.rc PROPERTIES
  COMPILE_DEFINITIONS
    "SW_MAJOR=${PROJECT_VERSION_MAJOR};SW_MINOR=${PROJECT_VERSION_MINOR};SW_REVISION=${PROJECT_VERSION_PATCH}"
  INCLUDE_DIRECTORIES ${PROJECT_SOURCE_DIR}
  OBJECT_DEPENDS "${resources}")

# The same without windows.
add_executable(ScourwellCon console/main_win.cpp console/console.rc)
target_include_directories(ScourwellCon PRIVATE ${PROJECT_BINARY_DIR}/generated)
target_link_libraries(ScourwellCon PRIVATE scourwell_console scourwell_win)
set_source_files_properties(console/console.rc PROPERTIES
  COMPILE_DEFINITIONS
    "SW_MAJOR=${PROJECT_VERSION_MAJOR};SW_MINOR=${PROJECT_VERSION_MINOR};SW_REVISION=${PROJECT_VERSION_PATCH}"
  INCLUDE_DIRECTORIES ${PROJECT_SOURCE_DIR})

# A function that some target Windows lacks would keep a program from starting there.
foreach(program Scourwell ScourwellCon)
  add_custom_command(TARGET ${program} POST_BUILD
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/check-imports.sh $<TARGET_FILE:${program}>
    VERBATIM)
endforeach()

set(program_folder ${PROJECT_SOURCE_DIR}/out/Scourwell)

# The default definitions. The tool that makes them must run here, so it is built once more, for
# this machine; it runs for a moment, which no optimising repays.
include(ExternalProject)
set(refc_program ${PROJECT_BINARY_DIR}/host/refc/refc)
ExternalProject_Add(host_tools
  SOURCE_DIR ${PROJECT_SOURCE_DIR}
  BINARY_DIR ${PROJECT_BINARY_DIR}/host
  PREFIX ${PROJECT_BINARY_DIR}/host-tools
  CMAKE_ARGS -DSCOURWELL_HOST_TOOLS=ON -DSCOURWELL_ROOMS_WHOLE=ON -DCMAKE_BUILD_TYPE=None
  BUILD_COMMAND ${CMAKE_COMMAND} --build <BINARY_DIR> --target refc
  BUILD_ALWAYS TRUE
  BUILD_BYPRODUCTS ${refc_program}
  INSTALL_COMMAND ""
  USES_TERMINAL_BUILD TRUE)
include(cmake/definitions.cmake)
# The texts and the pictures of the languages.
file(GLOB language_files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/lang/*.ini ${PROJECT_SOURCE_DIR}/lang/*.bmp)
include(cmake/help.cmake)
add_custom_target(program_folder ALL
  COMMAND ${CMAKE_COMMAND} -E make_directory ${program_folder}/Lang ${program_folder}/Ini
          ${program_folder}/Help
  COMMAND ${CMAKE_COMMAND} -E copy_if_different $<TARGET_FILE:Scourwell>
          $<TARGET_FILE:ScourwellCon> ${program_folder}
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${language_files}
          ${program_folder}/Lang
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${PROJECT_BINARY_DIR}/update.ref
          ${program_folder}/Ini
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${help_files} ${program_folder}/Help
  DEPENDS Scourwell ScourwellCon ${PROJECT_BINARY_DIR}/update.ref ${help_files}
  VERBATIM)
