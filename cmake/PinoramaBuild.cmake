# How every target of the project is compiled, and the libraries that the folders add their sources to.

include(GNUInstallDirs)

if(PROJECT_IS_TOP_LEVEL)
    # The flags of a release stand here and nowhere else. -O2 because Debian builds with it: no other
    # level of its compilers is tried as much.
    set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
    if(NOT CMAKE_BUILD_TYPE)
        set(CMAKE_BUILD_TYPE Release)
    endif()

    set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
    find_program(PINORAMA_CCACHE ccache)
    if(PINORAMA_CCACHE)
        set(CMAKE_CXX_COMPILER_LAUNCHER "${PINORAMA_CCACHE}")
    endif()
endif()

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

# What is found here is seen by every folder, and by a project that has this one as a subdirectory.
set(CMAKE_FIND_PACKAGE_TARGETS_GLOBAL ON)
if(PINORAMA_WITH_QT)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets DBus LinguistTools)
    if(PINORAMA_BUILD_TESTS)
        find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
    endif()
    # Developers do not get to see what Qt has deprecated up to 6.8. Packagers do: a later Qt may
    # deprecate something that is still used.
    if(PROJECT_IS_TOP_LEVEL AND PINORAMA_WERROR)
        target_compile_definitions(Qt6::Core INTERFACE QT_DISABLE_DEPRECATED_BEFORE=0x060800)
    endif()
endif()

add_library(pinorama_options INTERFACE)
target_compile_features(pinorama_options INTERFACE cxx_std_20)
target_include_directories(pinorama_options INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_options(pinorama_options INTERFACE
    # A coordinate is split step by step in plain double arithmetic: no fused multiply-add.
    -ffp-contract=off
    # The same sources give the same program, wherever they lie.
    "-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.")

# Warnings are for the project's own targets, not for those that link them.
add_library(pinorama_warnings INTERFACE)
target_compile_options(pinorama_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual
    -Wformat=2 -Wimplicit-fallthrough
    # std::stable_sort of libstdc++ 12 calls what the same library deprecates; g++ keeps silent about
    # its own headers and tells of all others.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>
    $<$<BOOL:${PINORAMA_WERROR}>:-Werror>)

option(PINORAMA_HARDEN "Build with the compiler's and linker's protections" ON)
if(PINORAMA_HARDEN AND NOT PINORAMA_SANITIZE)
    include(CheckCXXCompilerFlag)
    check_cxx_compiler_flag(-fcf-protection PINORAMA_HAS_CF_PROTECTION)
    target_compile_options(pinorama_options INTERFACE
        -fstack-protector-strong -fstack-clash-protection
        $<$<BOOL:${PINORAMA_HAS_CF_PROTECTION}>:-fcf-protection>
        # Fortify needs the optimiser.
        $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE>
        $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
    target_link_options(pinorama_options INTERFACE -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
endif()

if(PINORAMA_SANITIZE)
    target_compile_options(pinorama_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    # Libstdc++ marks what lies between the end of a vector and its capacity, so that an item that has
    # been erased is as forbidden as freed memory.
    target_compile_definitions(pinorama_options INTERFACE _GLIBCXX_SANITIZE_VECTOR=1)
    target_link_options(pinorama_options INTERFACE -fsanitize=address,undefined)
endif()

if(PINORAMA_COVERAGE)
    target_compile_options(pinorama_options INTERFACE --coverage -fprofile-update=atomic)
    target_link_options(pinorama_options INTERFACE --coverage)
endif()

# The fuzzers steer by what the libraries do with their input.
if(PINORAMA_FUZZ)
    target_compile_options(pinorama_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# pinorama_add_library(NAME) makes the static library pinorama_NAME, known to others as pinorama::NAME.
# The folders add their sources to it with target_sources.
function(pinorama_add_library name)
    add_library(pinorama_${name} STATIC)
    add_library(pinorama::${name} ALIAS pinorama_${name})
    target_link_libraries(pinorama_${name}
        PUBLIC pinorama_options
        PRIVATE $<BUILD_INTERFACE:pinorama_warnings>)
endfunction()

# pinorama_add_qt_library(NAME) makes such a library for a folder that stands on Qt.
function(pinorama_add_qt_library name)
    pinorama_add_library(${name})
    set_target_properties(pinorama_${name} PROPERTIES AUTOMOC ON AUTOUIC ON)
    target_compile_definitions(pinorama_${name} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
endfunction()
