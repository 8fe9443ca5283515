# pinorama::ui, the half of this room that stands on Qt: target_sources(pinorama_ui PRIVATE ...)
pinorama_add_qt_library(ui)
target_link_libraries(pinorama_ui PUBLIC pinorama_foundation Qt6::Widgets)
target_sources(pinorama_ui PRIVATE qt_text.cpp)
