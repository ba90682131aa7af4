# How our own sources are compiled: the library, the tool, the tests and the benchmarks. Users of
# the library get none of this.
find_package(Threads REQUIRED)

add_library(flm_settings INTERFACE)
target_include_directories(flm_settings INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_features(flm_settings INTERFACE cxx_std_17)

# A movie may exceed 2 GB and be dated after 2038, also on a 32-bit target.
target_compile_definitions(flm_settings INTERFACE _FILE_OFFSET_BITS=64 _TIME_BITS=64)

# Another project's compiler may warn about more than ours.
if(PROJECT_IS_TOP_LEVEL)
  target_compile_options(flm_settings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                                $<$<BOOL:${FLM_WARNINGS_AS_ERRORS}>:-Werror>)
endif()
