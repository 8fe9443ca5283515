// The direction of view as people say it, beside the degrees: a small arrow, whose top is north,
// and the point of the compass. Empty without a direction. The arrow stands where the words begin,
// to the right of them in Arabic and Hebrew, and points in the same direction in every language.

#pragma once

#include <QLabel>

namespace pinorama {

class CompassField : public QLabel {
    Q_OBJECT

public:
    explicit CompassField(QWidget* parent = nullptr);

    // Shows a direction, in degrees clockwise from north, and the words for it.
    void setDirection(double degrees, const QString& words);
    void clearDirection();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int arrowSize() const;
    void placeWords();

    double degrees_ = 0;
};

}  // namespace pinorama
