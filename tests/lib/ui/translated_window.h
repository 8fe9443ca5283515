// A window to translate, with a table of texts of its own.

#pragma once

#include "lib/ui/cocoa_utils.h"
#include "lib/ui/string_tables.h"
#include "lib/ui/view_texts.h"
#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <QWidget>

#include <filesystem>
#include <utility>

namespace test {

// Texts 1, 5 and 12 are translated, every other one shows its key.
class TranslatedWindow : public testing::Test {
protected:
    TranslatedWindow()
    {
        std::filesystem::create_directory(folder_.file("en"));
        (void)folder_.write("en/Localizable.strings",
                            "\"STR#1100:1\" = \"one\";\n\"STR#1100:5\" = \"five\";\n"
                            "\"STR#1001:12\" = \"twelve\";\n");
        const Text identifier = text("org.pinorama.TranslationTest");
        iuRegisterBundle(identifier.get(), folder_.path().c_str(), true);
        initStringBundle(identifier.get());
    }
    ~TranslatedWindow() override { cuReplaceViewTextSetter({}); }

    template <typename View, typename... Arguments>
    View* add(Arguments&&... arguments)
    {
        auto* view = new View(std::forward<Arguments>(arguments)...);
        view->setParent(&window_);
        return view;
    }
    void translate() { cocoaUtils::translateWindow(&window_, 1); }

    TemporaryFolder folder_;
    QWidget window_;
};

}  // namespace test
