// What the window says of the place of a picture beyond what the picture says itself: looked up in
// the file of places, without asking anybody. Nothing of it is loaded before the first place, and
// without the file (the package pinorama-places) nothing of it is shown.

#pragma once

#include "location/file_info_record.h"
#include "places/place_finder.h"

namespace pinorama {

class MainWindow;

class PlaceFields {
public:
    // The window, which has its views, lives longer.
    explicit PlaceFields(MainWindow& window) : window_(window), places_(placesFile()) {}
    PlaceFields(const PlaceFields&) = delete;
    PlaceFields& operator=(const PlaceFields&) = delete;
    ~PlaceFields();

    // Shows what is known of the position of `info`, which counts as one even if a coordinate is
    // zero. A position that is not on the Earth is shown as none.
    void show(const fileInfoRecord& info);

    // Shows that there is no position.
    void clear();

private:
    MainWindow& window_;
    PlaceFinder places_;
};

}  // namespace pinorama
