// A reader that does harm when a file tells it to: the file begins with "FAULT", a blank and the
// name of a fault, a blank and what the fault needs. Other files it reads as the real one does.
//
// A file that ends with "SLOW", a blank and a number is read properly after so many milliseconds in
// which the reader sleeps, as it would in a read that a disk does not answer yet.
//
// As the real one it reads each picture in a process of its own, which is the one that does harm.
// With the argument "--alone" it is a single process for all pictures: a reader that is taken over
// as a whole. With "--without-sandbox" it is not sandboxed, which shows that the faults are real;
// with "--file-ban-only" or "--namespaces-only" it has one of the locks.
// With "--slow-start" and a number it sleeps so many milliseconds before its first word.

#include "base/descriptor_box.h"
#include "pictures/more_properties.h"
#include "pictures/picture_properties.h"
#include "pictures/pixels/picture_preview.h"
#include "reader/file_ban.h"
#include "reader/namespaces.h"
#include "reader/reader_limits.h"
#include "reader/reader_process.h"
#include "reader/reader_protocol.h"
#include "reader/reader_socket.h"
#include "reader/reader_zygote.h"
#include "reader/sandbox.h"
#include "reader/stream_byte_source.h"
#include "tests/reader/thefts.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>

#include <poll.h>
#include <sys/prctl.h>
#include <unistd.h>

using namespace pinorama;

namespace {
constexpr int kSocket = kReaderSocket;

struct Fault {
    std::string name;
    std::string argument;
};

Fault faultOf(int descriptor)
{
    char bytes[1024] = {};
    if (pread(descriptor, bytes, sizeof bytes - 1, 0) <= 0) return {};
    std::istringstream line(bytes);
    std::string mark;
    Fault fault;
    line >> mark >> fault.name >> fault.argument;
    return mark == "FAULT" ? fault : Fault{};
}

void sendMessage(const ReaderRequest& request, const std::vector<std::uint8_t>& body,
                 std::uint32_t claimedLength)
{
    (void)sendAll(kSocket, encodeReplyHeader(
                               {request.task, ReplyOutcome::found, request.number, claimedLength}));
    (void)sendAll(kSocket, body);
}

void sendBody(const ReaderRequest& request, const std::vector<std::uint8_t>& body)
{
    sendMessage(request, body, static_cast<std::uint32_t>(body.size()));
}

void sendNothing(const ReaderRequest& request)
{
    (void)sendAll(kSocket,
                  encodeReplyHeader({request.task, ReplyOutcome::nothing, request.number, 0}));
}

// A good reply of the kind that was asked for, carrying what a fault got hold of.
void sendLoot(const ReaderRequest& request, const Loot& loot)
{
    if (!loot) {
        sendNothing(request);
    } else if (asksForProperties(request.task)) {
        PictureProperties properties;
        properties.hasIptc = true;
        properties.caption = loot;
        sendBody(request, encodeProperties(properties));
    } else {
        PreviewReply reply;
        reply.image = {1, 1, {0xff123456}};
        sendBody(request, encodePreview(reply));
    }
}

void spin(std::chrono::milliseconds time)
{
    const auto end = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < end) {
    }
}

// Takes none of the processor meanwhile, in a call that the lock allows.
void sleepFor(int milliseconds)
{
    (void)poll(nullptr, 0, milliseconds);
}

// How long a file wants to be waited for, in milliseconds.
int slownessOf(int descriptor)
{
    constexpr off_t kMaxLength = 32;
    char bytes[kMaxLength + 1] = {};
    const off_t size = lseek(descriptor, 0, SEEK_END);
    if (pread(descriptor, bytes, kMaxLength, size > kMaxLength ? size - kMaxLength : 0) <= 0)
        return 0;
    const std::string_view end(bytes, kMaxLength);
    const std::size_t at = end.rfind("SLOW ");
    return at == std::string_view::npos ? 0 : std::atoi(bytes + at + 5);
}

void replyGarbage()
{
    std::vector<std::uint8_t> bytes(4096);
    std::uint32_t state = 12345;
    for (std::uint8_t& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<std::uint8_t>(state >> 24);
    }
    (void)sendAll(kSocket, bytes);
}

void replyTooMuch(const ReaderRequest& request)
{
    const std::vector<std::uint8_t> flood(1 << 20);
    sendMessage(request, flood, std::numeric_limits<std::uint32_t>::max());
    for (int i = 0; i < 64; i++) {
        if (!sendAll(kSocket, flood)) return;
    }
}

std::size_t pixelsOf(PixelSize box)
{
    return static_cast<std::size_t>(box.width) * static_cast<std::size_t>(box.height);
}

// A preview larger than the box, which is well-formed otherwise.
void replyLargePreview(const ReaderRequest& request)
{
    PreviewReply reply;
    const std::int32_t width = request.box.width + 1;
    reply.image = {width, 1, std::vector<std::uint32_t>(static_cast<std::size_t>(width))};
    sendBody(request, encodePreview(reply));
}

// A preview of the size of the box whose body is not: shorter or longer by one pixel, or without
// any height.
void replyPreviewOf(const ReaderRequest& request, std::size_t pixels, bool isFlat)
{
    PreviewReply reply;
    reply.image = {request.box.width, isFlat ? 0 : request.box.height,
                   std::vector<std::uint32_t>(pixels)};
    sendBody(request, encodePreview(reply));
}

// The header and one pixel of such a preview, and nothing more.
void beginPreview(const ReaderRequest& request)
{
    PreviewReply reply;
    reply.image = {request.box.width, request.box.height, {0xff000000}};
    sendMessage(request, encodePreview(reply),
                static_cast<std::uint32_t>(maxBodyLength(request.task, request.box)));
    for (;;) spin(std::chrono::hours(1));
}

void replyNaN(const ReaderRequest& request)
{
    PictureProperties properties;
    properties.hasGps = true;
    properties.latitude = 1.0;
    std::vector<std::uint8_t> body = encodeProperties(properties);
    std::fill(body.end() - 8, body.end(), std::uint8_t{0xff});
    sendBody(request, body);
}

// A good reply of its own making to this request and to each that comes afterwards, whatever
// picture that is for.
void poison(ReaderRequest request)
{
    std::array<std::uint8_t, kRequestSize> bytes;
    std::vector<DescriptorHolder> descriptors;
    for (;;) {
        sendLoot(request, text("poison"));
        if (!receiveRequest(kSocket, bytes, &descriptors)) _exit(1);
        request = decodeRequest(bytes).value_or(request);
    }
}

void commit(const Fault& fault, const ReaderRequest& request)
{
    if (const auto theft = theftCalled(fault.name)) {
        sendLoot(request, theft(fault.argument));
    } else if (fault.name == "loop") {
        for (;;) spin(std::chrono::hours(1));
    } else if (fault.name == "crash") {
        (void)std::raise(SIGSEGV);
    } else if (fault.name == "exit") {
        _exit(0);
    } else if (fault.name == "garbage") {
        replyGarbage();
    } else if (fault.name == "too-much") {
        replyTooMuch(request);
    } else if (fault.name == "twice") {
        sendNothing(request);
        sendNothing(request);
    } else if (fault.name == "large-preview") {
        replyLargePreview(request);
    } else if (fault.name == "short-preview") {
        replyPreviewOf(request, std::max<std::size_t>(pixelsOf(request.box), 1) - 1, false);
    } else if (fault.name == "long-preview") {
        replyPreviewOf(request, pixelsOf(request.box) + 1, false);
    } else if (fault.name == "flat-preview") {
        replyPreviewOf(request, 0, true);
    } else if (fault.name == "half-preview") {
        beginPreview(request);
    } else if (fault.name == "nan") {
        replyNaN(request);
    } else if (fault.name == "late") {
        spin(std::chrono::milliseconds(std::atoi(fault.argument.c_str())));
        sendLoot(request, text("late"));
    } else if (fault.name == "poison") {
        poison(request);
    } else if (fault.name == "name-itself") {
        sendLoot(request, text(std::to_string(getpid())));
    } else if (fault.name == "burn-afterwards") {
        sendLoot(request, text(std::to_string(getpid())));
        for (;;) spin(std::chrono::hours(1));
    } else if (fault.name == "die-afterwards") {
        sendNothing(request);
        _exit(0);
    } else if (fault.name == "half") {
        const auto header =
            encodeReplyHeader({request.task, ReplyOutcome::found, request.number, 64});
        (void)sendAll(kSocket, header);
        for (;;) spin(std::chrono::hours(1));
    } else {
        sendNothing(request);
    }
}

void readProperly(int descriptor, const ReaderRequest& request)
{
    const auto size = static_cast<std::uint64_t>(lseek(descriptor, 0, SEEK_END));
    StreamByteSource source(descriptor, size);
    if (asksForProperties(request.task)) {
        const auto properties = request.task == ReaderTask::properties
                                    ? readPictureProperties(source)
                                    : readMoreProperties(source, "");
        return properties ? sendBody(request, encodeProperties(*properties)) : sendNothing(request);
    }
    std::optional<Preview> preview = makePreview(source, request.box.width, request.box.height);
    if (!preview) return sendNothing(request);
    sendBody(request, encodePreview({std::move(preview->image), preview->wasDecoded, {}, {}}));
}

// Serves one request. False if there is none.
bool serveNext()
{
    std::array<std::uint8_t, kRequestSize> bytes;
    std::vector<DescriptorHolder> descriptors;
    if (!receiveRequest(kSocket, bytes, &descriptors)) return false;
    std::optional<ReaderRequest> request = decodeRequest(bytes);
    if (!request) return false;
    for (const DescriptorHolder& descriptor : descriptors) {
        const DescriptorHolder unboxed = unboxDescriptor(descriptor.get());
        const int file = unboxed ? unboxed.get() : descriptor.get();
        const Fault fault = faultOf(file);
        if (fault.name.empty()) {
            sleepFor(slownessOf(file));
            readProperly(file, *request);
        } else {
            commit(fault, *request);
        }
        request->number++;
    }
    return true;
}

void serveAlone()
{
    (void)sendAll(kSocket, encodeReplyHeader({ReaderTask::hello, ReplyOutcome::found, 0, 0}));
    while (serveNext()) {
    }
}
}  // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string_view> options(argv + 1, argv + argc);
    const auto has = [&options](std::string_view option) {
        return std::find(options.begin(), options.end(), option) != options.end();
    };
    if (has("--exit-at-once")) return 1;
    if (has("--never-ready")) spin(std::chrono::hours(1));
    if (has("--slow-start")) sleepFor(std::atoi(argv[argc - 1]));
    const bool hasOneLock = has("--file-ban-only") || has("--namespaces-only");
    const bool isSandboxed = !has("--without-sandbox") && !hasOneLock;
    SandboxRules rules = readerRules(kSocket);
    rules.mayFork = !has("--alone");
    bool hasNamespaces = false;
    if (isSandboxed && !enterSandbox(rules, rules.mayFork ? &hasNamespaces : nullptr)) return 1;
    if (has("--namespaces-only")) hasNamespaces = enterNamespaces();
    if (has("--file-ban-only")) {
        (void)prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
        (void)forbidFiles();
    }
    const ReaderProcess keeper = hasNamespaces ? forkNamespaceKeeper() : ReaderProcess();
    if (has("--alone")) {
        serveAlone();
        _exit(0);
    }
    serveInChildren(kSocket, [isSandboxed](int socket) {
        if (!isSandboxed || enterChildSandbox(socket)) (void)serveNext();
    });
    _exit(0);
}
