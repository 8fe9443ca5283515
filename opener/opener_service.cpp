#include "opener/opener_service.h"

#include "opener/mount_list.h"
#include "opener/opener_protocol.h"
#include "pictures/picture_file.h"

#include <algorithm>

namespace pinorama {
namespace {
constexpr std::size_t kFirstBytes = 4096;  // a page; the kernel reads on by itself

// Serves one request. False when the other side is gone.
bool serve(int socket, const OpenRequest& request)
{
    OpenReply reply{.number = request.number};
    bool isHeard = true;
    const auto enter = [&](std::uint64_t device) {
        const auto& leftAlone = request.leftAlone;
        const bool isLeftAlone =
            std::find(leftAlone.begin(), leftAlone.end(), device) != leftAlone.end();
        reply.event = isLeftAlone ? OpenEvent::leftAlone : OpenEvent::entering;
        reply.device = device;
        isHeard = sendOpenMessage(socket, messageOf(reply));
        return isHeard && !isLeftAlone;
    };
    if (!followPath(request.path, MountList::current(), enter)) return isHeard;

    const PictureFile file(request.path);
    reply = {.number = request.number,
             .event = OpenEvent::looked,
             .error = file.error(),
             .item = file.item(),
             .isOpen = file.isOpen()};
    isHeard = sendOpenMessage(socket, messageOf(reply));
    if (!isHeard || !file.isOpen()) return isHeard;

    char bytes[kFirstBytes];
    (void)readAt(file.descriptor(), 0, bytes, sizeof bytes);  // whoever reads on sees the error
    reply = {.number = request.number, .event = OpenEvent::opened};
    return sendOpenMessage(socket, messageOf(reply), file.descriptor());
}
}  // namespace

void serveOpener(int socket)
{
    while (true) {
        const OpenMessage message = receiveOpenMessage(socket, true);
        if (message.outcome != OpenMessage::Outcome::received) return;
        const std::optional<OpenRequest> request = openRequestIn(message.bytes);
        if (!request || !serve(socket, *request)) return;
    }
}

}  // namespace pinorama
