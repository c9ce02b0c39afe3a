# The target `tidy`: clang-tidy over the core and the language, over a file again only when the file,
# a header of it or .clang-tidy has changed.
set(tidy_flags -std=c++${CMAKE_CXX_STANDARD} -I${CMAKE_SOURCE_DIR})
file(GLOB tidy_sources CONFIGURE_DEPENDS
    ${CMAKE_SOURCE_DIR}/*/core/*.cpp ${CMAKE_SOURCE_DIR}/language/*.cpp)
list(FILTER tidy_sources EXCLUDE REGEX "^${CMAKE_SOURCE_DIR}/tests/")
foreach(source ${tidy_sources})
    file(RELATIVE_PATH name ${CMAKE_SOURCE_DIR} ${source})
    string(REPLACE / - name ${name})
    set(stamp ${CMAKE_CURRENT_BINARY_DIR}/tidy/${name}.done)
    add_custom_command(OUTPUT ${stamp}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/tidy
        COMMAND ${CMAKE_CXX_COMPILER} ${tidy_flags} -MM -MT ${stamp} -MF ${stamp}.d ${source}
        COMMAND clang-tidy --quiet ${source} -- ${tidy_flags}
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
        DEPENDS ${source} ${CMAKE_SOURCE_DIR}/.clang-tidy
        DEPFILE ${stamp}.d
        WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
        COMMENT "Checking ${name}" VERBATIM)
    list(APPEND tidy_stamps ${stamp})
endforeach()
add_custom_target(tidy DEPENDS ${tidy_stamps})
