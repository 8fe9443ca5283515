// The translations of one language, as a .ts file has them.

#pragma once

#include <string>
#include <vector>

namespace test {

struct Translation {
    std::string context;  // the class of a text of the window, the table of any other
    std::string source;   // in English, as it stands in the code
    std::string comment;  // for the translator; "" for none
    // One text; of a text with a number in it as many as the language has plural forms.
    std::vector<std::string> forms;
    bool hasPlural = false;
    bool isFinished = false;
};

// The texts of the file at `path` in its order. A file that cannot be read fails the test.
std::vector<Translation> translationsIn(const std::string& path);

// The language that the file at `path` is for, such as "pt_BR", by which tools know its plural
// forms.
std::string languageOfTranslations(const std::string& path);

}  // namespace test
