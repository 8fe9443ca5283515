# pinorama::reader_client: having pictures read by another process, both sides of it.
pinorama_add_library(reader_client)
target_link_libraries(pinorama_reader_client PUBLIC pinorama_pictures)
target_compile_definitions(pinorama_reader_client PRIVATE
    PINORAMA_LIBEXEC_DIR="${CMAKE_INSTALL_LIBEXECDIR}")
target_sources(pinorama_reader_client PRIVATE
    reader_client.cpp
    reader_client_messages.cpp
    reader_client_requests.cpp
    reader_process.cpp
    reader_protocol.cpp
    reader_service.cpp
    reader_socket.cpp
    reader_watch.cpp
    stream_byte_source.cpp)

# pinorama::sandboxed_properties: the same without a program of its own, for pinorama-info.
pinorama_add_library(sandboxed_properties)
target_link_libraries(pinorama_sandboxed_properties
    PUBLIC pinorama_reader_client
    PRIVATE pinorama_sandbox)
target_sources(pinorama_sandboxed_properties PRIVATE sandboxed_properties.cpp)
