// What a reader passes on of the processes that read its pictures, and whom it starts again.

#include "reader/reader_zygote.h"

#include "reader/reader_protocol.h"
#include "reader/reader_service.h"
#include "reader/reader_socket.h"
#include "reader/rehearsal.h"
#include "tests/reader/reader_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <functional>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using test::childrenOf;
using test::propertiesOf;
using test::waitUntil;
using Pictures = test::ReaderPictures;

// A reader whose processes do as they are told.
ReaderLauncher readerOf(const std::function<void(int socket)>& readPicture)
{
    return [readPicture] {
        return forkReader([readPicture](int socket) { serveInChildren(socket, readPicture); });
    };
}

// Takes a request and sends a reply to it, which may be to another one.
void replyWith(int socket, const std::function<ReplyHeader(const ReaderRequest&)>& header,
               const std::vector<std::uint8_t>& body = {})
{
    std::array<std::uint8_t, kRequestSize> bytes;
    std::vector<DescriptorHolder> descriptors;
    if (!receiveRequest(socket, bytes, &descriptors)) return;
    (void)sendAll(socket, encodeReplyHeader(header(*decodeRequest(bytes))));
    (void)sendAll(socket, body);
}

TEST(serveInChildren, passesOnWhatBelongsToThePictureAndNothingElse)
{
    const Pictures pictures;
    const std::vector<std::uint8_t> some(8, 1);
    const std::vector<std::uint8_t> large(maxBodyLength(ReaderTask::properties, {}) + 1);
    const struct {
        const char* name;
        std::function<ReplyHeader(const ReaderRequest&)> header;
        std::vector<std::uint8_t> body;
        ReadOutcome expected;
    } rows[] = {
        {"nothing",
         [](auto& r) {
             return ReplyHeader{r.task, ReplyOutcome::nothing, r.number, 0};
         },
         {},
         ReadOutcome::nothing},
        {"nothing, and more",
         [](auto& r) {
             return ReplyHeader{r.task, ReplyOutcome::nothing, r.number, 0};
         },
         some, ReadOutcome::nothing},
        {"for another picture",
         [](auto& r) {
             return ReplyHeader{r.task, ReplyOutcome::nothing, r.number + 1, 0};
         },
         {},
         ReadOutcome::failed},
        {"for another task",
         [](auto& r) {
             return ReplyHeader{ReaderTask::picturePreview, ReplyOutcome::nothing, r.number, 0};
         },
         {},
         ReadOutcome::failed},
        {"a report of its own",
         [](auto& r) {
             return ReplyHeader{r.task, ReplyOutcome::atWork, r.number, 8};
         },
         some, ReadOutcome::failed},
        {"an interruption of its own",
         [](auto& r) {
             return ReplyHeader{r.task, ReplyOutcome::interrupted, r.number, 0};
         },
         {},
         ReadOutcome::failed},
        {"too much",
         [&](auto& r) {
             return ReplyHeader{r.task, ReplyOutcome::found, r.number,
                                static_cast<std::uint32_t>(large.size())};
         },
         large, ReadOutcome::failed},
        {"too little",
         [](auto& r) {
             return ReplyHeader{r.task, ReplyOutcome::found, r.number, 9};
         },
         some, ReadOutcome::failed},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ReaderClient client(
            readerOf([&row](int socket) { replyWith(socket, row.header, row.body); }));
        const pid_t first =
            propertiesOf(client, pictures.good()).outcome == row.expected ? client.processID() : -1;
        EXPECT_NE(first, -1);
        EXPECT_EQ(propertiesOf(client, pictures.good()).outcome, row.expected);
        EXPECT_EQ(client.processID(), first) << "the client found it, not the reader";
    }
}

TEST(rehearse, readsItsPicture)
{
    EXPECT_TRUE(rehearse());
}

TEST(serveInChildren, aProcessThatDiesBeforeItsPictureIsReplaced)
{
    const Pictures pictures;
    ReaderClient client(readerOf([](int socket) {
        servePicture(socket, {readPictureProperties, {}});
    }));
    for (int i = 0; i < 3; i++) {
        EXPECT_EQ(propertiesOf(client, pictures.good()).outcome, ReadOutcome::found);
        std::vector<pid_t> spare;
        ASSERT_TRUE(waitUntil([&] {
            spare = childrenOf(client.processID());
            return spare.size() == 1;
        }));
        kill(spare.front(), SIGKILL);
        ASSERT_TRUE(waitUntil([&] {
            const std::vector<pid_t> left = childrenOf(client.processID());
            return std::find(left.begin(), left.end(), spare.front()) == left.end();
        }));
    }
}
}  // namespace
