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

# The package: scourwell_VERSION_amd64.deb, by `cpack` in the folder of the build.
install(TARGETS scourwell RUNTIME DESTINATION bin)
install(FILES ${PROJECT_BINARY_DIR}/update.ref DESTINATION share/scourwell)
install(FILES ${PROJECT_SOURCE_DIR}/docs/scourwell.1 DESTINATION share/man/man1)
install(FILES ${PROJECT_SOURCE_DIR}/docs/scourwell.bash-completion
  DESTINATION share/bash-completion/completions RENAME scourwell)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION share/doc/scourwell RENAME copyright)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME scourwell)
set(CPACK_PACKAGE_VENDOR "The Scourwell project")
set(CPACK_PACKAGE_CONTACT "The Scourwell project <scourwell@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Finds and removes spyware on Windows disks")
set(CPACK_PACKAGE_DESCRIPTION
  "Scans the disk of a Windows that does not run, or plain folders, backs up what it finds and removes it.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES TRUE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS TRUE)
include(CPack)
