// pinorama-search: pinorama-info with what a search for places needs. pinorama-info starts it.

#include "cli/info_program.h"
#include "cli/search/folder_search.h"

int main(int argc, char** argv)
{
    return pinorama::runInfoProgram(argc, argv, pinorama::searchPictures);
}
