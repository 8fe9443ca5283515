// The small map of where a picture was taken, with the marker of a location on it and a wedge in
// the direction of view. Drawn from the file of places: no network, ever. A click, or the space
// bar, walks through three scales. Without a location there is nothing, and without the file only
// the marker.
//
// The map of another place is drawn after the window has been painted with its texts, which do not
// wait for it. Until it is there only its ground is shown: the map before is not of that place.

#pragma once

#include "app/map_drawing.h"

#include <QAbstractButton>
#include <QPixmap>
#include <QString>
#include <QTimer>

#include <optional>

namespace pinorama {

class PlaceData;

class MapView : public QAbstractButton {
    Q_OBJECT

public:
    explicit MapView(QWidget* parent = nullptr);

    // Degrees as in MapFrame.
    struct Subject {
        double latitude = 0;
        double longitude = 0;
        bool isAtSea = false;               // more of the world is needed to recognise the place
        std::optional<double> direction{};  // of view, clockwise from north
    };

    // The marker becomes a child of the map, which keeps its foot on the place. Whether it is
    // visible is for others to say.
    void setMarker(QWidget* marker);

    // Shows the surroundings of a place.
    //
    //   places  borrowed until the next call; null for no map.
    //   words   the place in words, which are the map's name to a screen reader.
    void showPlace(const PlaceData* places, const Subject& subject, const QString& words);

    // Shows nothing: there is no location.
    void showNothing();

    // 0: from a country to a continent, 1: the surroundings, 2: much of the world. It stays from
    // one picture to the next.
    int scale() const { return scale_; }
    static constexpr int kScales = 3;

    // How many maps have been drawn. One that is there already is shown again for places that lie
    // hardly apart on it, as those of one walk do.
    int drawings() const { return drawings_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // What a map shows, and in which size.
    struct Region {
        const PlaceData* data = nullptr;
        double latitude = 0;
        double longitude = 0;
        double span = 0;
        QSize size{};

        bool operator==(const Region&) const = default;
        MapFrame frame() const { return {latitude, longitude, span, size}; }
    };

    double span() const;
    Region region() const;
    bool isDrawn() const { return data_ != nullptr; }
    void showAnew();
    void placeMarker();
    bool isThere() const;
    void draw();
    void drawLater();
    void paintGround(QPainter& painter) const;
    QPixmap drawn(const Region& region) const;

    const PlaceData* data_ = nullptr;
    Subject subject_;
    int scale_ = 0;
    QWidget* marker_ = nullptr;
    QPixmap map_;              // null if it has to be drawn
    Region mapped_;            // what is on it
    bool isOfBefore_ = false;  // it is of another place than what is shown
    QTimer painted_;           // runs out after the window was painted without the map
    int drawings_ = 0;
};

}  // namespace pinorama
