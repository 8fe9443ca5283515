// Runs pinorama-info, the built one or an installed one, over the whole picture collection.

#pragma once

#include <string>

namespace test {

// Expects `pinorama-info --json` to print what expected.json in `folder` states about each picture
// there.
//
//   program  the path of the pinorama-info to run.
//   folder   the picture collection (test::pictureCollection()).
void expectTheCollectionThrough(const std::string& program, const std::string& folder);

}  // namespace test
