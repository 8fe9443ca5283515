// The reader's side where every picture has a process of its own: a process that has never seen a
// picture, the zygote, forks one for each, hands it the descriptor, and passes its reply on.
// Whatever a picture does to its process, the next one is read by another.
//
//     if (!enterSandbox(readerRules(kReaderSocket))) return EXIT_FAILURE;
//     serveInChildren(kReaderSocket, [&](int socket) {
//         if (enterChildSandbox(socket)) servePicture(socket, tasks);
//     });

#pragma once

#include <cstddef>
#include <functional>

namespace pinorama {

// Processes that a zygote has at a time: the one that reads, the one that waits for the next
// picture, and those that were killed while a disk kept them asleep.
constexpr std::size_t kMaxChildren = 4;

// Says that the reader is ready and serves requests until the other side closes the socket or sends
// a malformed request; what has been requested by then is still replied to.
//
//   readPicture  runs in the process of one picture: takes one request for one descriptor from its
//                socket, replies, and returns.
//
// A reply is passed on when all of it has come and its header says what it may say; then, or if
// the process ends without one (ReplyOutcome::failed), the process is killed. It is killed as well
// when its picture is given up, and when it is a preview and another request comes
// (ReplyOutcome::interrupted). One picture is read at a time. While that takes long its processor
// time is reported.
void serveInChildren(int socket, const std::function<void(int socket)>& readPicture);

}  // namespace pinorama
