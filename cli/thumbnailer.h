// The thumbnails of a document. The program that can make them brings them along (cli/search); what
// reads and prints pictures only asks for them.

#pragma once

#include <functional>
#include <string>

namespace pinorama {

// The thumbnail of the picture at a path (bytes of the system) as a JPEG stream; empty if it has
// none. Called in the workers, first after they have been forked.
using Thumbnailer = std::function<std::string(const std::string& path)>;

}  // namespace pinorama
