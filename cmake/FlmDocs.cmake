# The reference of the public headers, with every warning of doxygen an error: the target `docs`, for
# which doxygen has to be installed. Nothing else needs it.
find_program(FLM_DOXYGEN doxygen DOC "The program doxygen, for the target docs")
mark_as_advanced(FLM_DOXYGEN)
if(NOT FLM_DOXYGEN)
  return()
endif()

set(flm_docs_dir "${PROJECT_BINARY_DIR}/docs")
set(flm_docs_input "")
foreach(file IN LISTS FLM_PUBLIC_HEADERS ITEMS platform/preference.h docs/reference/mainpage.dox)
  string(APPEND flm_docs_input "\"${PROJECT_SOURCE_DIR}/${file}\" ")
endforeach()
file(MAKE_DIRECTORY "${flm_docs_dir}")
configure_file("${PROJECT_SOURCE_DIR}/docs/reference/Doxyfile.in" "${flm_docs_dir}/Doxyfile" @ONLY)

add_custom_target(docs
  COMMAND "${FLM_DOXYGEN}" "${flm_docs_dir}/Doxyfile"
  WORKING_DIRECTORY "${flm_docs_dir}"
  COMMENT "Writing the reference to ${flm_docs_dir}/html"
  VERBATIM)
