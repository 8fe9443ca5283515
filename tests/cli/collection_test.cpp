#include "tests/cli/collection_through_program.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

TEST(pinoramaInfoOverTheCollection, printsWhatIsExpectedOfEveryPicture)
{
    const std::optional<std::string> folder = test::pictureCollection();
    if (!folder) GTEST_SKIP() << "PINORAMA_PICTURE_COLLECTION is not set";
    test::expectTheCollectionThrough(PINORAMA_INFO, *folder);
}
