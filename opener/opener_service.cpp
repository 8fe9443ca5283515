#include "opener/opener_service.h"

#include "base/descriptor_box.h"
#include "base/replacing_file.h"
#include "opener/item_facts.h"
#include "opener/kept_files.h"
#include "opener/mount_list.h"
#include "opener/opener_protocol.h"
#include "opener/opener_socket.h"
#include "pictures/picture_file.h"
#include "pictures/sidecar_file.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::size_t kFirstBytes = 4096;  // a page; the kernel reads on by itself

// Whether there is anything of that name; a link is not followed.
bool isThere(const std::string& path)
{
    char target = 0;
    return readlink(path.c_str(), &target, sizeof target) >= 0 || errno == EINVAL;
}

// A descriptor that only refers to an open file; none without /proc.
DescriptorHolder referenceTo(const PictureFile& file)
{
    const std::string link = "/proc/self/fd/" + std::to_string(file.descriptor());
    return DescriptorHolder(openDescriptor(link.c_str(), O_PATH));
}

// Serves one request.
class Service {
public:
    Service(int socket, const OpenRequest& request, int content, MountList mounts, KeptFiles& kept)
        : socket_(socket),
          request_(request),
          content_(content),
          mounts_(std::move(mounts)),
          kept_(kept)
    {
    }

    // False when the other side is gone.
    bool serve()
    {
        if (request_.task == OpenTask::facts) {
            sendFacts();
            return isHeard_;
        }
        if (request_.task == OpenTask::sidecar) {
            openSidecar();
            return isHeard_;
        }
        if (request_.task == OpenTask::close) {
            if (!kept_.closeOldest()) return false;
            send({.event = OpenEvent::closed});
            return isHeard_;
        }
        if (!reaches(request_.paths.front())) {
            sendLeftAlone();
            return isHeard_;
        }
        switch (request_.task) {
        case OpenTask::names: sendNames(); break;
        case OpenTask::count:
            send({.event = OpenEvent::count, .count = countItemsIn(request_.paths.front())});
            break;
        case OpenTask::save: send({.event = OpenEvent::saved, .error = save() ? 0 : errno}); break;
        default: send(PictureFile(request_.paths.front()));
        }
        return isHeard_;
    }

private:
    void send(OpenReply reply, int descriptor = -1)
    {
        reply.number = request_.number;
        // Names are more than a socket holds, so this waits for the window to take them.
        isHeard_ = sendOpenMessage(socket_, messageOf(reply), descriptor, WhenFull::wait);
    }

    // Says which file systems the path leads into. False before one that is to be left alone, and
    // when nobody listens.
    bool reaches(const std::string& path)
    {
        return followPath(path, mounts_, [this](std::uint64_t device) {
            const auto& leftAlone = request_.leftAlone;
            const bool isLeftAlone =
                std::find(leftAlone.begin(), leftAlone.end(), device) != leftAlone.end();
            const bool isNew = !std::exchange(hasEntered_, true) || device != device_;
            device_ = device;
            if (!isLeftAlone && isNew) send({.event = OpenEvent::entering, .device = device});
            return isHeard_ && !isLeftAlone;
        });
    }

    void sendLeftAlone()
    {
        if (isHeard_) send({.event = OpenEvent::leftAlone, .device = device_});
    }

    // The first that can be opened of the paths where the sidecar may be. They are all in one
    // folder, which is entered for the first of them.
    void openSidecar()
    {
        PictureFile file;
        const std::vector<std::string> paths = sidecarPaths(request_.paths.front());
        for (const std::string& path : paths) {
            if (&path != &paths.front() && !isThere(path)) continue;
            if (!reaches(path)) return sendLeftAlone();
            file = PictureFile(path);
            if (file.isOpen()) break;
        }
        send(std::move(file));
    }

    // Hands a file over in a box, so that nobody waits for its disk to close it. If the descriptor
    // of this process is not kept it is closed before that, because whoever is told of the file
    // takes this process for idle.
    void send(PictureFile&& file)
    {
        send({.event = OpenEvent::looked,
              .error = file.error(),
              .item = file.item(),
              .isOpen = file.isOpen()});
        if (!isHeard_ || !file.isOpen()) return;
        char bytes[kFirstBytes];
        (void)readAt(file.descriptor(), 0, bytes, sizeof bytes);  // whoever reads on sees the error
        const DescriptorHolder passed = packed(std::move(file));
        if (isHeard_) send({.event = OpenEvent::opened}, passed.get());
    }

    // What is handed over of a file, which is closed or kept here.
    DescriptorHolder packed(PictureFile file)
    {
        if (request_.task == OpenTask::reference) return referenceTo(file);
        if (!mounts_.keepsWhoGivesUp(device_) || kept_.isFull())
            return boxDescriptor(file.descriptor(), file.realPath());
        DescriptorHolder otherEnd;
        DescriptorHolder box = boxDescriptor(file.descriptor(), file.realPath(), &otherEnd);
        if (!box) return box;
        kept_.add(std::move(file), std::move(otherEnd), device_);
        send({.event = OpenEvent::keeps, .device = device_});
        return box;
    }

    // False with errno set. What has come along is in memory.
    bool save()
    {
        ReplacingFile file;
        if (!file.begin(request_.paths.front())) return false;
        char bytes[kFirstBytes];
        std::int64_t offset = 0;
        while (true) {
            const std::int64_t count = readAt(content_, offset, bytes, sizeof bytes);
            if (count < 0) return false;
            if (count == 0) return file.finish();
            if (!file.write({bytes, static_cast<std::size_t>(count)})) return false;
            offset += count;
        }
    }

    void sendFacts()
    {
        OpenReply reply{.event = OpenEvent::facts};
        for (const std::string& path : request_.paths) {
            const bool isReached = reaches(path);
            if (!isHeard_) return;
            reply.facts.push_back(isReached ? factsOfItem(path) : ItemFacts{});
        }
        send(std::move(reply));
    }

    void sendNames()
    {
        OpenReply part{.event = OpenEvent::names, .isLast = false};
        std::size_t size = 0;
        eachNameIn(request_.paths.front(), [&](std::string_view name) {
            if (!mayBeShownAs(name, request_.shown)) return true;
            if (size + name.size() + 1 > kMaxNameBytes) {
                send(part);
                part.names.clear();
                size = 0;
            }
            part.names.emplace_back(name);
            size += name.size() + 1;
            return isHeard_;
        });
        part.isLast = true;
        if (isHeard_) send(std::move(part));
    }

    int socket_;
    const OpenRequest& request_;
    int content_;
    MountList mounts_;
    KeptFiles& kept_;
    bool hasEntered_ = false;
    std::uint64_t device_ = 0;  // that was entered last, or is left alone
    bool isHeard_ = true;
};
}  // namespace

void serveOpener(int socket, const std::function<MountList()>& mounts)
{
    KeptFiles kept;
    while (true) {
        for (const std::uint64_t device : kept.waitFor(socket)) {
            const OpenReply reply{.event = OpenEvent::released, .device = device};
            if (!sendOpenMessage(socket, messageOf(reply), -1, WhenFull::wait)) return;
        }
        const OpenMessage message = receiveOpenMessage(socket, false);
        if (message.outcome == OpenMessage::Outcome::none) continue;
        if (message.outcome != OpenMessage::Outcome::received) return;
        const std::optional<OpenRequest> request = openRequestIn(message.bytes);
        if (!request) return;
        Service service(socket, *request, message.descriptor.get(), mounts(), kept);
        if (!service.serve()) return;
    }
}

}  // namespace pinorama
