# The default definitions, update.ref, compiled by refc_program.
file(GLOB definition_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/definitions/reference/*.tsv)
add_custom_command(
  OUTPUT ${PROJECT_BINARY_DIR}/update.ref
  COMMAND ${refc_program} lint ${PROJECT_SOURCE_DIR}/definitions/reference
  COMMAND ${refc_program} build ${PROJECT_SOURCE_DIR}/definitions/reference
          -o ${PROJECT_BINARY_DIR}/update.ref
  DEPENDS ${definition_sources} ${refc_program}
  COMMENT "Judging and compiling the definitions"
  VERBATIM)
