# out/linux/scourwell with its definitions, and the package of it.
add_executable(scourwell console/main_linux.cpp)
target_include_directories(scourwell PRIVATE ${PROJECT_BINARY_DIR}/generated)
target_link_libraries(scourwell PRIVATE scourwell_console)

set(refc_program $<TARGET_FILE:refc>)
include(cmake/definitions.cmake)
set(linux_folder ${PROJECT_SOURCE_DIR}/out/linux)
add_custom_target(linux_folder ALL
  COMMAND ${CMAKE_COMMAND} -E make_directory ${linux_folder}
  COMMAND ${CMAKE_COMMAND} -E copy_if_different $<TARGET_FILE:scourwell>
          ${PROJECT_BINARY_DIR}/update.ref ${linux_folder}
  DEPENDS scourwell ${PROJECT_BINARY_DIR}/update.ref
  VERBATIM)
