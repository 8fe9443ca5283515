// What the window says of the place of a picture beyond what the picture says itself: looked up in
// the file of places, without asking anybody. Nothing of it is loaded before the first place, and
// without the file (the package pinorama-places) nothing of it is shown.

#pragma once

#include "location/file_info_record.h"
#include "pictures/picture_properties.h"
#include "places/place_finder.h"

#include <string>

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
    //
    //   properties  what else the picture says: what its direction counts from, and when it was
    //               taken.
    void show(const fileInfoRecord& info, const PictureProperties& properties);

    // Shows when a picture without a position was taken.
    void showWithoutPosition(const PictureProperties& properties);

    // Shows nothing.
    void clear();

private:
    void showDirection(const fileInfoRecord& info, const PictureProperties& properties);
    void showTaken(const PictureProperties& properties, const std::string& zone);
    void clearPlace();
    void clearDirection();

    MainWindow& window_;
    PlaceFinder places_;
};

}  // namespace pinorama
