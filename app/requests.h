// What the program is asked to do, by its command line and over the session bus, and by whom: a
// second instance hands its request over to the first.

#pragma once

#include <chrono>
#include <string>

namespace pinorama {

class AppController;
class ApplicationBus;
struct CommandLine;

// Lets `controller` do what arrives over the bus; of a burst of files and texts only the last is
// shown. Both live until the program ends.
void connectRequests(ApplicationBus& bus, AppController& controller);

// True when what the command line asks of the first instance brings the window to the screen.
bool opensWindow(const CommandLine& line);

// Does what the command line asks of the first instance: shows a text's or the last file, runs an
// action, or else opens the window. Nothing for the help texts and for --service.
void carryOut(AppController& controller, const CommandLine& line);

// Ends the program (--service) when nobody asks for its window within `patience`. Once somebody
// has, it stays, because closing a window leaves the program running. An action needs no window and
// keeps nothing waiting. Both arguments live until the program ends.
void endUnlessUsed(ApplicationBus& bus, AppController& controller,
                   std::chrono::milliseconds patience);

// Shows a file in the window of the running instance, which stays where it is. If there is none,
// nothing happens: a file manager in a terminal asks for this with every move of its cursor, and
// the user who has closed the window does not want it back. False when the instance does not
// answer.
bool showInOpenWindow(ApplicationBus& bus, const std::string& path);

// Asks the running instance to do what the command line asks for, and lets it come to the front.
// False when it does not answer.
bool handOver(ApplicationBus& bus, const CommandLine& line);

}  // namespace pinorama
