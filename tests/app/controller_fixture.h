// A controller with its window on a display in memory, and what tests put around it: a selection of
// their own, a list of the addresses that were opened, and files.

#pragma once

#include "app/app_controller.h"
#include "app/elided_field.h"
#include "app/main_window.h"
#include "app/picture_field.h"
#include "app/pop_up_menu.h"
#include "app/wrapped_field.h"
#include "lib/files/path_text.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/texts.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace test {
using namespace pinorama;

class ChosenSelection final : public pinorama::SelectionSource {
public:
    std::vector<std::string> selectedPaths() override
    {
        ++questions;
        return paths;
    }

    bool isKnown() const override { return !isUnknown; }

    void setListener(Listener heard) override { listener = std::move(heard); }

    std::vector<std::string> paths;
    bool isUnknown = false;
    int questions = 0;
    Listener listener;
};

class RecordingOpener final : public pinorama::UrlOpener {
public:
    bool open(const QByteArray& address) override
    {
        addresses.push_back(address.toStdString());
        return opens;
    }

    bool opens = true;  // whether the desktop has a program that starts

    // Beginnings of addresses and endings of files that no program takes.
    std::vector<std::string> untaken;

    bool isTaken(const QByteArray& address) const override
    {
        const std::string text = address.toStdString();
        return std::ranges::none_of(untaken, [&](const std::string& part) {
            return text.starts_with(part) || text.ends_with(part);
        });
    }

    std::vector<std::string> addresses;
};

// Started as the program starts, but without its timer running, so that a test says itself when the
// selection is looked at.
class ControllerTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(controller.init());
        controller.applicationWillFinishLaunching();
        controller.awakeFromNib();
        controller.gUpdateTimer->stop();
        // On a busy machine too nearly every picture is there at once.
        controller.reading().setPatience(std::chrono::milliseconds(500));
    }

    // Shows a file; what updateValuesForNewPath returned.
    bool show(const std::string& path)
    {
        const Text bytes(pinorama::createPathText(path));
        return controller.updateValuesForNewPath(bytes.get());
    }

    // Writes a picture with these fields and shows it.
    bool showPicture(std::string_view name, const PictureFields& fields)
    {
        return show(folder.write(name, pictureWithGps(fields)));
    }

    std::string shown(const ElidedField* field) { return field->text().toStdString(); }
    std::string shown(const WrappedField* field) { return field->text().toStdString(); }

    // True when the four controls of a location and the marker are all on, or all off.
    void expectLocationActions(bool on)
    {
        EXPECT_EQ(controller.showInGEButton->isEnabled(), on);
        EXPECT_EQ(controller.searchInTovButton->isEnabled(), on);
        EXPECT_EQ(controller.exportKMLButton->isEnabled(), on);
        EXPECT_EQ(controller.webServicesMenu->isEnabled(), on);
        EXPECT_EQ(controller.geoTagField->isHidden(), !on);
        for (const QAction* action :
             {controller.myWindow->showInGEAction, controller.myWindow->searchInTovAction,
              controller.myWindow->exportKMLAction, controller.myWindow->webServicesAction}) {
            EXPECT_EQ(action->isEnabled(), on);
        }
    }

    TemporaryFolder folder;
    ChosenSelection selection;
    RecordingOpener opener;
    AppController controller{&selection, &opener};
};

}  // namespace test
