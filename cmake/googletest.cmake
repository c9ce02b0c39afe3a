# The targets gtest and gtest_main: for the host from a library that is installed, otherwise from
# sources, which Debian has as a package and which are fetched where there is none.
if(NOT CMAKE_CROSSCOMPILING)
    find_package(GTest QUIET)
endif()
if(GTest_FOUND)
    add_library(gtest ALIAS GTest::gtest)
    add_library(gtest_main ALIAS GTest::gtest_main)
    return()
endif()

find_path(GOOGLETEST_SOURCES googletest/src/gtest-all.cc
    PATH_SUFFIXES src/googletest NO_CMAKE_FIND_ROOT_PATH)
if(GOOGLETEST_SOURCES)
    set(FETCHCONTENT_SOURCE_DIR_GOOGLETEST ${GOOGLETEST_SOURCES})
endif()
set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
set(BUILD_GMOCK OFF)
set(INSTALL_GTEST OFF)
set(gtest_disable_pthreads ${WIN32})
include(FetchContent)
FetchContent_Declare(googletest
    GIT_REPOSITORY https://github.com/google/googletest.git GIT_TAG v1.14.0)
FetchContent_MakeAvailable(googletest)
target_compile_options(gtest PRIVATE -O0)
