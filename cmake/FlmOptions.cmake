# What a build may choose. Everything that needs more than a compiler is off, except the tool, which
# is left out with a warning when its two header packages are missing.
option(FLM_BUILD_TOOLS "Build the command-line tool flm" ${PROJECT_IS_TOP_LEVEL})
option(FLM_BUILD_TESTS "Build the tests (needs the GoogleTest sources)" OFF)
option(FLM_TEST_PCH "Compile the tests with precompiled headers" ON)
option(FLM_TOOL_UNITY "Compile the tool's sources in a few large units, which is quicker" OFF)
option(FLM_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(FLM_BUILD_FUZZERS "Build the fuzzers (with Clang; scripts/fuzz builds and runs them)" OFF)

# Off for those who build packages with whatever compiler comes next.
option(FLM_WARNINGS_AS_ERRORS "A warning ends the build" ON)

# Inside another project the library is a part of that project's own package.
option(FLM_INSTALL "Install the library, its headers and its packages" ${PROJECT_IS_TOP_LEVEL})

set(FLM_PREFERENCE "file" CACHE STRING "Where the preference store comes from: file or external")
set_property(CACHE FLM_PREFERENCE PROPERTY STRINGS file external)
set(FLM_PREFERENCE_LIBRARY "prefmanager" CACHE STRING
    "The platform's library with pref_get_long and pref_set_long, for FLM_PREFERENCE=external")
if(NOT FLM_PREFERENCE MATCHES "^(file|external)$")
  message(FATAL_ERROR "FLM_PREFERENCE is \"${FLM_PREFERENCE}\"; it may be file or external.")
endif()

set(FLM_BROWSE "AUTO" CACHE STRING
    "Whether flm gets the contact sheet: AUTO (when its libraries are there), ON or OFF")
set_property(CACHE FLM_BROWSE PROPERTY STRINGS AUTO ON OFF)
if(NOT FLM_BROWSE MATCHES "^(AUTO|ON|OFF)$")
  message(FATAL_ERROR "FLM_BROWSE is \"${FLM_BROWSE}\"; it may be AUTO, ON or OFF.")
endif()

set(FLM_GOOGLETEST_SOURCE "/usr/src/googletest" CACHE PATH "Folder of the GoogleTest sources")

get_property(flm_multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
if(PROJECT_IS_TOP_LEVEL AND NOT flm_multi_config AND NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Release, Debug, RelWithDebInfo or MinSizeRel" FORCE)
endif()
