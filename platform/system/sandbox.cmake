# pinorama::sandbox: the lock for processes that work on bytes from strangers.
find_package(PkgConfig REQUIRED)
pkg_check_modules(LibSeccomp REQUIRED IMPORTED_TARGET GLOBAL libseccomp)

# The filter of system calls, ready to be loaded.
add_executable(pinorama_make_sandbox_filter make_sandbox_filter.cpp)
target_link_libraries(pinorama_make_sandbox_filter PRIVATE
    pinorama_options pinorama_warnings PkgConfig::LibSeccomp)
set_target_properties(pinorama_make_sandbox_filter PROPERTIES
    EXCLUDE_FROM_ALL ON RUNTIME_OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}")
add_custom_command(OUTPUT sandbox_filter.cpp
    COMMAND pinorama_make_sandbox_filter sandbox_filter.cpp
    DEPENDS pinorama_make_sandbox_filter
    COMMENT "Putting together the filter of system calls"
    VERBATIM)

pinorama_add_library(sandbox)
target_sources(pinorama_sandbox PRIVATE
    sandbox.cpp sandbox_calls.cpp "${CMAKE_CURRENT_BINARY_DIR}/sandbox_filter.cpp")
