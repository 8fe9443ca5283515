// The place where a picture was taken, as people call it: its country, the town that is meant by
// "near" or the sea, and the time zone. Found in one file without asking anybody; docs/formats.md
// describes it, scripts/make-places makes it.
//
// Angles are degrees, distances kilometres, texts UTF-8. Countries are ISO 3166-1 codes of two
// letters, with XK for Kosovo.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace pinorama {

// A town as seen from a point.
struct NearTown {
    std::string name;     // as the source writes it, in Latin letters
    std::string country;  // the country that the town belongs to
    double distance;      // kilometres from the town's centre to the point
    double bearing;       // degrees clockwise from north, from the town to the point: 0 to 360
    double radius;        // kilometres, about how far a town of so many people extends
};

struct Place {
    std::string country;  // empty at sea and where no country is
    std::string sea;      // the English name, which is the key of its translations; empty on land
    // The town that a point on land is best described by, in the same country. At sea the nearest
    // one of any country. None if there is none within 1000 km on land, 4000 km at sea.
    std::optional<NearTown> town;
    // At sea: the code under which ICU knows the islands that the town lies on, such as TA for
    // Tristan da Cunha. Empty if people would rather name the town.
    std::string islands;
    // The time zone by its name in the tz database, that of the town; empty if the town's is not
    // known, and at sea, where ships keep their own time.
    std::string zone;
};

class PlaceData;
class MappedFile;

class PlaceFinder {
public:
    // Remembers the path of the file, in the raw bytes of the system; nothing is opened yet.
    explicit PlaceFinder(std::string path);
    PlaceFinder(const PlaceFinder&) = delete;
    PlaceFinder& operator=(const PlaceFinder&) = delete;
    ~PlaceFinder();

    // The place at a point. The first call maps the file and checks its header. Blocks of the file
    // are checked when they are first needed; after that a look-up takes some microseconds.
    //
    //   latitude   -90 to 90, south is negative.
    //   longitude  -180 to 180, west is negative.
    //
    // Nothing if the file is missing or damaged, if a coordinate is out of range or no number, if
    // memory runs out, and where there is neither country nor sea.
    std::optional<Place> find(double latitude, double longitude);

    // Why there is no usable file although there is one: an errno, such as EMFILE. 0 if it is
    // usable, missing or damaged. Maps the file like find.
    int error();

    // The file's content for those who draw a map of it; null if there is no usable file, or once
    // it turned out to be damaged. Lives as long as the finder. Maps the file like find.
    const PlaceData* data();

private:
    std::string path_;
    int error_ = 0;
    bool isOpened_ = false;  // or could not be opened, which is not tried again
    std::unique_ptr<MappedFile> file_;
    std::unique_ptr<PlaceData> data_;
};

// The same in content that is in memory already.
std::optional<Place> findPlace(const PlaceData& data, double latitude, double longitude);

// Where the programs find the file: <resources>/places/places.bin.
std::string placesFile();

}  // namespace pinorama
