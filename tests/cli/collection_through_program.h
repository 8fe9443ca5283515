// The whole picture collection through pinorama-info, the built one or an installed one.

#pragma once

#include <string>

namespace test {

// Expects `pinorama-info --json` to print what expected.json in `folder` says of every picture
// there.
//
//   program  the path of the pinorama-info to run.
//   folder   the picture collection (test::pictureCollection()).
void expectTheCollectionThrough(const std::string& program, const std::string& folder);

}  // namespace test
