// Qt for tests of windows: it draws into memory and has one application object for all tests of a
// program.

#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QByteArray>
#include <QStringList>

#include <memory>

#include "tests/support/event_loop.h"

namespace test {

// Put one into a test program with
//   const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);
class Toolkit : public testing::Environment {
public:
    void SetUp() override;
    void TearDown() override;

protected:
    QByteArray platform_ = "offscreen";

private:
    std::unique_ptr<QApplication> application_;
};

// The names of the translations of the window in ":/i18n/", without those of English, which are
// only its plural forms.
QStringList translations();

}  // namespace test
