// pinorama-info: what the window shows, on a terminal and for many files.

#include "cli/info_program.h"

int main(int argc, char** argv)
{
    return pinorama::runInfoProgram(argc, argv);
}
