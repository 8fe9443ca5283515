// Which addresses programs of the desktop take, by lists in folders of the test's own.

#include "desktop/scheme_handlers.h"
#include "desktop/url_opener.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

using namespace pinorama;

namespace {
class hasSchemeHandler : public testing::Test {
protected:
    // Writes a file at a path below the test's folder.
    void write(const std::string& path, std::string_view bytes)
    {
        std::filesystem::create_directories(
            std::filesystem::path(folder_.file(path)).parent_path());
        (void)folder_.write(path, bytes);
    }
    void install(const std::string& name)
    {
        write(name, "[Desktop Entry]\nType=Application\nName=Catalogue\nExec=true %u\n");
    }

    const test::TemporaryFolder folder_;
    const test::ScopedVariable config_{"XDG_CONFIG_HOME", folder_.file("config").c_str()};
    const test::ScopedVariable configs_{"XDG_CONFIG_DIRS", folder_.file("configs").c_str()};
    const test::ScopedVariable data_{"XDG_DATA_HOME", folder_.file("data").c_str()};
    const test::ScopedVariable datas_{"XDG_DATA_DIRS", folder_.file("system").c_str()};
    const test::ScopedVariable desktop_{"XDG_CURRENT_DESKTOP", "Odd:GNOME"};
};

constexpr std::string_view kDefault =
    "[Default Applications]\nx-scheme-handler/skallion=catalogue.desktop;\n";
}  // namespace

TEST_F(hasSchemeHandler, findsNoneWithoutLists)
{
    EXPECT_FALSE(pinorama::hasSchemeHandler("skallion"));
    EXPECT_FALSE(pinorama::hasSchemeHandler(""));
}

TEST_F(hasSchemeHandler, readsEveryList)
{
    install("system/applications/catalogue.desktop");
    for (const char* list :
         {"config/mimeapps.list", "config/gnome-mimeapps.list", "configs/mimeapps.list",
          "data/applications/mimeapps.list", "system/applications/odd-mimeapps.list"}) {
        SCOPED_TRACE(list);
        write(list, kDefault);
        EXPECT_TRUE(pinorama::hasSchemeHandler("skallion"));
        EXPECT_FALSE(pinorama::hasSchemeHandler("skall"));
        std::filesystem::remove(folder_.file(list));
        EXPECT_FALSE(pinorama::hasSchemeHandler("skallion"));
    }
    write("system/applications/mimeinfo.cache",
          "[MIME Cache]\nx-scheme-handler/other=a.desktop;\n"
          "x-scheme-handler/skallion=gone.desktop;catalogue.desktop;");
    EXPECT_TRUE(pinorama::hasSchemeHandler("skallion"));
    EXPECT_FALSE(pinorama::hasSchemeHandler("other")) << "its entry is gone";
}

TEST_F(hasSchemeHandler, findsEntriesInSubfolders)
{
    install("data/applications/maker/new-catalogue.desktop");
    write("config/mimeapps.list",
          "[Added Associations]\nx-scheme-handler/skallion = maker-new-catalogue.desktop ;\n");
    EXPECT_TRUE(pinorama::hasSchemeHandler("skallion"));
}

TEST_F(hasSchemeHandler, passesOverWhatTheUserHasRemoved)
{
    install("system/applications/catalogue.desktop");
    write("system/applications/mimeinfo.cache",
          "[MIME Cache]\nx-scheme-handler/skallion=catalogue.desktop;\n");
    write("config/mimeapps.list",
          "[Removed Associations]\nx-scheme-handler/skallion=catalogue.desktop;\n");
    EXPECT_FALSE(pinorama::hasSchemeHandler("skallion"));
}

TEST_F(hasSchemeHandler, survivesListsThatAreNone)
{
    write("config/mimeapps.list", std::string(1000, '\0') + "x-scheme-handler/skallion\n=\n;=;");
    write("data/applications/mimeinfo.cache",
          "x-scheme-handler/skallion=../a.desktop;-a--;/;;-;\n");
    EXPECT_FALSE(pinorama::hasSchemeHandler("skallion"));
}

TEST_F(hasSchemeHandler, saysWhatTheOpenerTakes)
{
    const DesktopUrlOpener opener;
    EXPECT_FALSE(opener.isTaken("skallion://find/gps/"));
    install("system/applications/catalogue.desktop");
    write("config/mimeapps.list", kDefault);
    EXPECT_TRUE(opener.isTaken("skallion://find/gps/"));
    EXPECT_TRUE(opener.isTaken("SKALLION:x"));
    EXPECT_FALSE(opener.isTaken("no address"));
}

TEST_F(hasSchemeHandler, saysWhichFilesTheOpenerTakes)
{
    const DesktopUrlOpener opener;
    install("system/applications/editor.desktop");
    write("system/applications/mimeinfo.cache",
          "[MIME Cache]\napplication/xml=editor.desktop;\ntext/plain=editor.desktop;\n");
    EXPECT_FALSE(opener.isTaken("file:///tmp/place.kml")) << "an editor is no globe";
    EXPECT_TRUE(opener.isTaken("file:///tmp/manual.md")) << "a text";
    install("system/applications/catalogue.desktop");
    write("config/mimeapps.list",
          "[Default Applications]\napplication/vnd.google-earth.kml+xml=catalogue.desktop\n");
    EXPECT_TRUE(opener.isTaken("file:///tmp/place.kml"));
    EXPECT_TRUE(opener.isTaken("file:///tmp/PLACE.KML"));
}

TEST_F(hasSchemeHandler, knowsThatNothingOpensTheManual)
{
    const test::ScopedVariable path("PATH", folder_.path().c_str());
    const test::ScopedVariable browser("BROWSER", nullptr);
    const DesktopUrlOpener opener;
    const char* const manual = "file:///usr/share/doc/pinorama/manual.md";
    EXPECT_FALSE(opener.isTaken(manual));
    EXPECT_TRUE(opener.isTaken("file:///tmp/")) << "not known";
    {
        const test::ScopedVariable mine("BROWSER", "w3m");
        EXPECT_TRUE(opener.isTaken(manual));
    }
    install("system/applications/viewer.desktop");
    for (const char* type : {"text/markdown", "text/plain"}) {
        write("system/applications/mimeinfo.cache",
              "[MIME Cache]\n" + std::string(type) + "=viewer.desktop;\n");
        EXPECT_TRUE(opener.isTaken(manual)) << type;
    }
}

TEST_F(hasSchemeHandler, opensNothingMalformed)
{
    DesktopUrlOpener opener;
    for (const char* url : {"", "no address", "https://x.example/%zz", "/tmp/a.kml"}) {
        EXPECT_FALSE(isWellFormed(url)) << url;
        EXPECT_FALSE(opener.open(url)) << url;
    }
    EXPECT_TRUE(isWellFormed("skallion://find/gps/&lat=48.100000&long=-11.500000&distance=2000m"));
    EXPECT_TRUE(isWellFormed("file:///home/a%20b/%FF.jpg"));
}

TEST_F(hasSchemeHandler, knowsTheBrowsersThatNobodyHasRegistered)
{
    const test::ScopedVariable path("PATH", folder_.path().c_str());
    const test::ScopedVariable browser("BROWSER", nullptr);
    const DesktopUrlOpener opener;
    EXPECT_FALSE(opener.isTaken("https://x.example/"));
    {
        const test::ScopedVariable mine("BROWSER", "w3m");
        EXPECT_TRUE(opener.isTaken("https://x.example/"));
        EXPECT_FALSE(opener.isTaken("geo:1,2"));
    }
    std::filesystem::permissions(folder_.write("firefox", "#!/bin/sh\n"),
                                 std::filesystem::perms::owner_all);
    EXPECT_TRUE(opener.isTaken("http://x.example/"));
    std::filesystem::remove(folder_.file("firefox"));
    install("system/applications/catalogue.desktop");
    write("config/mimeapps.list", "[Default Applications]\ntext/html=catalogue.desktop\n");
    EXPECT_TRUE(opener.isTaken("https://x.example/"));
}
