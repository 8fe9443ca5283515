# pinorama::sandbox: the lock for processes that work on bytes from strangers.
find_package(PkgConfig REQUIRED)
pkg_check_modules(LibSeccomp REQUIRED IMPORTED_TARGET GLOBAL libseccomp)

pinorama_add_library(sandbox)
target_link_libraries(pinorama_sandbox PRIVATE $<BUILD_INTERFACE:PkgConfig::LibSeccomp>)
target_sources(pinorama_sandbox PRIVATE sandbox.cpp sandbox_calls.cpp)
