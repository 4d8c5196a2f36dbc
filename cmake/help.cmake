# Help\help.chm and, for computers that cannot show it, the same pages as files. Sets help_files.
find_program(CHMCMD chmcmd REQUIRED)
file(GLOB help_pages CONFIGURE_DEPENDS help/*.html help/*.css)
file(GLOB help_project CONFIGURE_DEPENDS help/help.hh?)
set(help_build ${PROJECT_BINARY_DIR}/help)
add_custom_command(
  OUTPUT ${help_build}/help.chm
  COMMAND ${PROJECT_SOURCE_DIR}/scripts/make-help ${PROJECT_SOURCE_DIR}/help ${help_build}
  DEPENDS ${help_pages} ${help_project} ${PROJECT_SOURCE_DIR}/scripts/make-help
  COMMENT "Compiling the help"
  VERBATIM)
set(help_files ${help_build}/help.chm ${help_pages})
