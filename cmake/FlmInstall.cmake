# What is installed, in three components: Runtime (the shared object), Development (headers, link
# names, the archive, the CMake package and the pkg-config module) and Tools (flm, its manual page and
# completions). Nothing of it
# holds the prefix, so that an installed folder may be moved.
include(CMakePackageConfigHelpers)

set(flm_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/filelistmanagement")

install(TARGETS filelistmanagement filelistmanagement_static
  EXPORT filelistmanagementTargets
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Runtime
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Runtime
          NAMELINK_COMPONENT Development
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Development)
install(DIRECTORY "${FLM_PUBLIC_HEADER_DIR}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
        COMPONENT Development)
if(TARGET flm)
  install(TARGETS flm RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Tools)
  install(FILES "${PROJECT_SOURCE_DIR}/tools/flm.1"
          DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT Tools)
  # Each shell looks for completions in a place and under a name of its own.
  set(flm_completions "${PROJECT_SOURCE_DIR}/tools/completion")
  install(FILES "${flm_completions}/flm.bash" RENAME flm
          DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT Tools)
  install(FILES "${flm_completions}/_flm"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/site-functions" COMPONENT Tools)
  install(FILES "${flm_completions}/flm.fish"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d" COMPONENT Tools)
endif()

# --- CMake package ----------------------------------------------------------------------------------
install(EXPORT filelistmanagementTargets NAMESPACE filelistmanagement::
        DESTINATION "${flm_package_dir}" COMPONENT Development)
configure_package_config_file(
  "${PROJECT_SOURCE_DIR}/cmake/filelistmanagementConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/filelistmanagementConfig.cmake"
  INSTALL_DESTINATION "${flm_package_dir}")
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/filelistmanagementConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/filelistmanagementConfig.cmake"
              "${PROJECT_BINARY_DIR}/filelistmanagementConfigVersion.cmake"
        DESTINATION "${flm_package_dir}" COMPONENT Development)

# --- pkg-config module ------------------------------------------------------------------------------
# The prefix is where the module lies, so many folders up; an absolute library folder is no part of
# the prefix and stays as it is.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(flm_pc_prefix "${CMAKE_INSTALL_PREFIX}")
  set(flm_pc_libdir "${CMAKE_INSTALL_LIBDIR}")
else()
  file(RELATIVE_PATH flm_pc_up "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
  string(REGEX REPLACE "/$" "" flm_pc_up "${flm_pc_up}")
  set(flm_pc_prefix "\${pcfiledir}/${flm_pc_up}")
  set(flm_pc_libdir "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
endif()
if(IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
  set(flm_pc_includedir "${CMAKE_INSTALL_INCLUDEDIR}")
else()
  set(flm_pc_includedir "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
endif()
set(flm_pc_private "-pthread")
if(FLM_PREFERENCE STREQUAL "external")
  if(FLM_PREFERENCE_LIBRARY MATCHES "^[/-]")
    string(APPEND flm_pc_private " ${FLM_PREFERENCE_LIBRARY}")
  else()
    string(APPEND flm_pc_private " -l${FLM_PREFERENCE_LIBRARY}")
  endif()
endif()
configure_file("${PROJECT_SOURCE_DIR}/cmake/filelistmanagement.pc.in"
               "${PROJECT_BINARY_DIR}/filelistmanagement.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/filelistmanagement.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT Development)
