# pinorama::ui, the half of this room that stands on Qt: target_sources(pinorama_ui PRIVATE ...)
pinorama_add_qt_library(ui)
target_link_libraries(pinorama_ui PUBLIC pinorama_foundation Qt6::Widgets)

# Previews.
target_sources(pinorama_ui PRIVATE
    file_icon.cpp
    image_conversion.cpp
    late_properties.cpp
    picture_reader.cpp
    png_writer.cpp
    preview.cpp
    preview_loader.cpp
    preview_plan.cpp
    thumbnail_cache.cpp)
target_link_libraries(pinorama_ui PUBLIC pinorama_reader_client)
target_sources(pinorama_ui PRIVATE
    cocoa_utils.cpp
    qt_text.cpp
    view_texts.cpp
    window_translation.cpp
    zip_archive.cpp)
