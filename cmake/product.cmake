# Scourwell.exe and the ready-to-copy program folder.
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

# A function that some target Windows lacks would keep the program from starting there.
add_custom_command(TARGET Scourwell POST_BUILD
  COMMAND ${PROJECT_SOURCE_DIR}/scripts/check-imports.sh $<TARGET_FILE:Scourwell>
  VERBATIM)

set(program_folder ${PROJECT_SOURCE_DIR}/out/Scourwell)

# The default definitions. The tool that makes them must run here, so it is built once more, for
# this machine; it runs for a moment, which no optimising repays.
include(ExternalProject)
set(host_refc ${PROJECT_BINARY_DIR}/host/refc/refc)
ExternalProject_Add(host_tools
  SOURCE_DIR ${PROJECT_SOURCE_DIR}
  BINARY_DIR ${PROJECT_BINARY_DIR}/host
  PREFIX ${PROJECT_BINARY_DIR}/host-tools
  CMAKE_ARGS -DSCOURWELL_HOST_TOOLS=ON -DCMAKE_BUILD_TYPE=None
  BUILD_COMMAND ${CMAKE_COMMAND} --build <BINARY_DIR> --target refc
  BUILD_ALWAYS TRUE
  BUILD_BYPRODUCTS ${host_refc}
  INSTALL_COMMAND ""
  USES_TERMINAL_BUILD TRUE)
file(GLOB definition_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/definitions/reference/*.tsv)
add_custom_command(
  OUTPUT ${PROJECT_BINARY_DIR}/update.ref
  COMMAND ${host_refc} lint ${PROJECT_SOURCE_DIR}/definitions/reference
  COMMAND ${host_refc} build ${PROJECT_SOURCE_DIR}/definitions/reference
          -o ${PROJECT_BINARY_DIR}/update.ref
  DEPENDS ${definition_sources} ${host_refc}
  COMMENT "Judging and compiling the definitions"
  VERBATIM)
# The texts and the pictures of the languages.
file(GLOB language_files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/lang/*.ini ${PROJECT_SOURCE_DIR}/lang/*.bmp)
include(cmake/help.cmake)
add_custom_target(program_folder ALL
  COMMAND ${CMAKE_COMMAND} -E make_directory ${program_folder}/Lang ${program_folder}/Ini
          ${program_folder}/Help
  COMMAND ${CMAKE_COMMAND} -E copy_if_different $<TARGET_FILE:Scourwell> ${program_folder}
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${language_files}
          ${program_folder}/Lang
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${PROJECT_BINARY_DIR}/update.ref
          ${program_folder}/Ini
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${help_files} ${program_folder}/Help
  DEPENDS Scourwell ${PROJECT_BINARY_DIR}/update.ref ${help_files}
  VERBATIM)
