# Where people can turn to: the one place that defines these addresses. To set one for a build, pass it to CMake
# (-DPINORAMA_BUG_URL=...). PINORAMA_SHOWS_HOME and its like say whether an address is there; one that is not is
# shown nowhere: not in the menu and the About box of the window, not in the desktop entry, not in the metainfo.
#
# An address in a domain .example counts as not set, because nobody can have one (RFC 2606). The program knows
# the first two whether they are shown or not.

set(PINORAMA_HOME_URL "https://pinorama.example/" CACHE STRING
    "The maker's home page; the metainfo expects the pictures of docs/pictures in its folder screenshots")
set(PINORAMA_DONATION_URL "https://pinorama.example/donate" CACHE STRING "The maker's donation page")
set(PINORAMA_BUG_URL "" CACHE STRING "Where faults are reported")
set(PINORAMA_CONTACT_URL "" CACHE STRING "Where questions go, and in private faults that somebody could exploit")

foreach(page IN ITEMS HOME DONATION BUG CONTACT)
    set(PINORAMA_SHOWS_${page} ON)
    if(PINORAMA_${page}_URL STREQUAL "" OR PINORAMA_${page}_URL MATCHES "[.]example(/|$)")
        set(PINORAMA_SHOWS_${page} OFF)
    endif()
endforeach()

# The value of the key Actions in the desktop entry.
set(PINORAMA_DESKTOP_ACTIONS "")
if(PINORAMA_SHOWS_DONATION)
    string(APPEND PINORAMA_DESKTOP_ACTIONS "donate;")
endif()
if(PINORAMA_SHOWS_HOME)
    string(APPEND PINORAMA_DESKTOP_ACTIONS "home;")
endif()

include("${CMAKE_CURRENT_LIST_DIR}/PinoramaTexts.cmake")

# pinorama_fill_in(TEMPLATE FILE) adds the translations (PinoramaTexts.cmake) to TEMPLATE, replaces the variables in it
# (@NAME@) and writes it to FILE. The lines between one with "[if NAME]" and the next with "[end]" stay only if the variable NAME is neither OFF nor empty.
function(pinorama_fill_in template file)
    file(READ "${template}" text)
    if(NOT CMAKE_SCRIPT_MODE_FILE)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${template}")
    endif()
    pinorama_add_translations(text "${text}")
    while(TRUE)
        string(FIND "${text}" "[if " at)
        if(at EQUAL -1)
            break()
        endif()
        # Before the line, its condition, the lines between, and after the line with the end.
        string(SUBSTRING "${text}" 0 ${at} before)
        string(SUBSTRING "${text}" ${at} -1 after)
        string(REGEX MATCH "^.*\n" before "${before}")
        string(REGEX MATCH "^.if ([A-Z_]+)[^\n]*\n(.*)$" after "${after}")
        set(condition ${CMAKE_MATCH_1})
        set(after "${CMAKE_MATCH_2}")
        string(FIND "${after}" "[end]" at)
        string(SUBSTRING "${after}" 0 ${at} between)
        string(SUBSTRING "${after}" ${at} -1 after)
        string(REGEX MATCH "^.*\n" between "${between}")
        string(REGEX MATCH "^[^\n]*\n(.*)$" after "${after}")
        set(after "${CMAKE_MATCH_1}")
        if("${${condition}}" STREQUAL "" OR "${${condition}}" STREQUAL "OFF")
            set(between "")
        endif()
        string(CONCAT text "${before}" "${between}" "${after}")
    endwhile()
    file(CONFIGURE OUTPUT "${file}" CONTENT "${text}" @ONLY)
endfunction()
