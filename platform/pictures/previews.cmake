# pinorama::previews: small pictures of picture files. The codecs are this library's alone.
find_package(JPEG REQUIRED GLOBAL)
find_package(PkgConfig REQUIRED)
pkg_check_modules(LibRaw REQUIRED IMPORTED_TARGET GLOBAL libraw)

pinorama_add_library(previews)
target_link_libraries(pinorama_previews
    PUBLIC pinorama_pictures
    PRIVATE JPEG::JPEG $<BUILD_INTERFACE:PkgConfig::LibRaw>)
target_sources(pinorama_previews PRIVATE
    embedded_jpegs.cpp
    jpeg_decode.cpp
    pixel_image.cpp
    preview.cpp
    raw_preview.cpp)
