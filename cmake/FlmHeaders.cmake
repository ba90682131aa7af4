# The headers that applications include, copied into one folder: <filelistmanagement/flm.h>. In the
# tree they name each other from the root ("base/flm_export.h"), in the copies by their own names.
set(FLM_PUBLIC_HEADERS
    api/CBIFileListManager.h
    api/flm.h
    base/file_list_item.h
    base/flm_export.h
    filelist/CQFileListItem.h
    filelist/IQFileList.h
    filelist/IQPageUtil.h
    filelist/IQSelectedFileList.h
    filelist/filelist_types.h)
set(FLM_PUBLIC_HEADER_ROOT "${PROJECT_BINARY_DIR}/include")
set(FLM_PUBLIC_HEADER_DIR "${FLM_PUBLIC_HEADER_ROOT}/filelistmanagement")

foreach(header IN LISTS FLM_PUBLIC_HEADERS)
  set(source "${PROJECT_SOURCE_DIR}/${header}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${source}")
  cmake_path(GET header FILENAME name)
  file(READ "${source}" text)
  string(REGEX REPLACE "#include \"(api|base|filelist)/" "#include \"" text "${text}")
  file(CONFIGURE OUTPUT "${FLM_PUBLIC_HEADER_DIR}/${name}" CONTENT "${text}" @ONLY)
endforeach()
