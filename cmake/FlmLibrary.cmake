# The library: compiled once, linked as a shared object and as an archive.
set(flm_sources
    api/CBIFileListManager.cpp
    api/flm.cpp
    base/bounded_text.cpp
    base/file_list_item.cpp
    dcf/CQDCFDir.cpp
    dcf/CQDCFDir_item.cpp
    dcf/CQDCFDir_lookup.cpp
    dcf/CQDCFDir_scan.cpp
    dcf/CQDCFItem.cpp
    dcf/CQDCFItemList.cpp
    dcf/CQDCFList.cpp
    dcf/CQDCFList_change.cpp
    dcf/CQDCFList_info_walk.cpp
    dcf/CQDCFList_lookup.cpp
    dcf/CQDCFList_marks.cpp
    dcf/CQDCFList_numbering.cpp
    dcf/CQDCFList_path.cpp
    dcf/CQDCFList_scan.cpp
    dcf/CQDCFList_walk.cpp
    dcf/CQDCFMemManager.cpp
    dcf/DCFItem.cpp
    dcf/dcf_name.cpp
    dcf/dcf_path.cpp
    dcf/folder_index.cpp
    dcf/item_index.cpp
    dpof/CQDPOF.cpp
    dpof/CQDPOF_load.cpp
    dpof/CQFileReader.cpp
    dpof/dpof_types.cpp
    filelist/CQFileList.cpp
    filelist/CQFileList_bulk.cpp
    filelist/CQFileList_cursor.cpp
    filelist/CQFileList_delete.cpp
    filelist/CQFileList_files.cpp
    filelist/CQFileList_marks.cpp
    filelist/CQFileList_names.cpp
    filelist/CQFileList_pages.cpp
    filelist/CQFileList_print.cpp
    filelist/interfaces.cpp
    fsio/PCQDCFFSIO.cpp
    fsio/PCQDCFFSIO_change.cpp
    fsio/PCQDCFFSIO_status.cpp
    fsio/file_status.cpp
    fsio/folder_listing.cpp
    fsio/os_calls.cpp)

# An object file of its own: in the archive it gives way to a program's own two functions.
if(FLM_PREFERENCE STREQUAL "file")
  list(APPEND flm_sources platform/preference_file.cpp)
endif()

add_library(flm_objects OBJECT ${flm_sources})
target_link_libraries(flm_objects PRIVATE flm_settings)
set_target_properties(flm_objects PROPERTIES
  CXX_EXTENSIONS OFF
  POSITION_INDEPENDENT_CODE ON
  CXX_VISIBILITY_PRESET hidden
  VISIBILITY_INLINES_HIDDEN ON
  UNITY_BUILD OFF)

# What both forms of the library ask of the programs that use them.
function(flm_set_usage target)
  target_compile_features(${target} PUBLIC cxx_std_17)
  target_include_directories(${target} INTERFACE
    "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR};${FLM_PUBLIC_HEADER_ROOT}>"
    "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
  target_link_libraries(${target} PRIVATE Threads::Threads)
  if(FLM_PREFERENCE STREQUAL "external")
    target_link_libraries(${target} PRIVATE ${FLM_PREFERENCE_LIBRARY})
  endif()
  set_target_properties(${target} PROPERTIES
    OUTPUT_NAME filelistmanagement
    LINKER_LANGUAGE CXX
    ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}"
    LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}")
endfunction()

add_library(filelistmanagement SHARED $<TARGET_OBJECTS:flm_objects>)
add_library(filelistmanagement::filelistmanagement ALIAS filelistmanagement)
flm_set_usage(filelistmanagement)
set(flm_exports "${PROJECT_SOURCE_DIR}/cmake/exports.map")
set_target_properties(filelistmanagement PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  LINK_DEPENDS "${flm_exports}")
target_link_options(filelistmanagement PRIVATE
  "LINKER:--version-script=${flm_exports}" "LINKER:-z,relro,-z,now,-z,text,-z,noexecstack,-z,nodelete")
# A sanitizer's own functions may come with the program.
string(TOUPPER "${CMAKE_BUILD_TYPE}" flm_build_type)
if(NOT "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${flm_build_type}}" MATCHES "-fsanitize")
  target_link_options(filelistmanagement PRIVATE "LINKER:-z,defs")
endif()

add_library(filelistmanagement_static STATIC $<TARGET_OBJECTS:flm_objects>)
add_library(filelistmanagement::filelistmanagement_static ALIAS filelistmanagement_static)
flm_set_usage(filelistmanagement_static)
set_target_properties(filelistmanagement_static PROPERTIES EXPORT_NAME filelistmanagement_static)
