// pinorama-opener: looks at files and opens them for the window. The window starts it with a
// socket; started from a command line it has none and ends at once.

#include "opener/opener_service.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <sys/socket.h>

using namespace pinorama;

int main()
{
    int type = 0;
    socklen_t size = sizeof type;
    if (getsockopt(kOpenerSocket, SOL_SOCKET, SO_TYPE, &type, &size) != 0 ||
        type != SOCK_SEQPACKET) {
        std::fputs("pinorama-opener is started by Pinorama and does nothing by itself.\n", stderr);
        return EXIT_FAILURE;
    }
    // A write beyond a limit on the size of files fails and is reported; the program goes on.
    (void)std::signal(SIGXFSZ, SIG_IGN);
    serveOpener(kOpenerSocket);
    return EXIT_SUCCESS;
}
