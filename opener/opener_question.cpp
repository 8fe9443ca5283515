#include "opener/opener_question.h"

#include <cerrno>
#include <utility>

namespace pinorama {

void OpenerQuestion::take(const OpenReply& reply, DescriptorHolder& descriptor)
{
    switch (reply.event) {
    case OpenEvent::opened: {
        // Without room for one more descriptor the system leaves it out.
        const int error = descriptor ? 0 : EMFILE;
        const auto item = file_.item();
        file_ = PictureFile(std::move(descriptor), item, error);
        return;
    }
    case OpenEvent::facts: facts_ = reply.facts; return;
    case OpenEvent::names:
        hasNames_ = true;
        if (takeNames_) takeNames_(reply.names);
        return;
    case OpenEvent::count: count_ = reply.count; return;
    case OpenEvent::saved: error_ = reply.error; return;
    // Of its way and its stages, which are the client's.
    case OpenEvent::entering:
    case OpenEvent::leftAlone:
    case OpenEvent::looked:
    case OpenEvent::keeps:
    case OpenEvent::released:
    case OpenEvent::closed: return;
    }
}

}  // namespace pinorama
