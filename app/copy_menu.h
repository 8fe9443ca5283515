// The menu that copies the place of the shown picture in the forms that other programs and people
// take: the forms of docs/manual.md, from the coordinate as the window shows it to the place in
// words.

#pragma once

#include "location/file_info_record.h"
#include "places/place_finder.h"

#include <QMenu>
#include <QString>

#include <array>
#include <cstdint>
#include <memory>

namespace pinorama {

class CopyMenu : public QMenu {
    Q_OBJECT

public:
    // In the order of the menu.
    enum class Form : std::uint8_t {
        asShown,         // degrees, minutes and seconds cut to tenths
        decimalDegrees,  // with six decimals, south and west negative
        degreesMinutes,  // minutes with four decimals
        geoAddress,      // RFC 5870
        plusCode,
        utm,
        mgrs,
        words,    // in the user's language
        mapLink,  // the address of the first map on the web
    };
    static constexpr std::size_t kForms = 9;

    // Disabled until setHasPlace. `info` and `path` are those of the shown picture at any time;
    // they live longer.
    CopyMenu(const fileInfoRecord& info, const TovStringRef& path, QWidget* parent);
    ~CopyMenu() override;

    // Whether there is a place to copy.
    void setHasPlace(bool hasPlace);

    QAction* action(Form form) const { return actions_.at(static_cast<std::size_t>(form)); }

    // The place in a form; empty if that form has no text for it, as UTM has none at the poles.
    QString text(Form form);

private:
    void adapt();
    QString words();

    const fileInfoRecord& info_;
    const TovStringRef& path_;
    std::array<QAction*, kForms> actions_{};
    std::unique_ptr<PlaceFinder> places_;  // null until the first place is to be put into words
};

}  // namespace pinorama
