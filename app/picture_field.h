// The place of the preview. While there is none it shows an outline, so that the window says where
// a picture can be dropped.

#pragma once

#include <QLabel>

class PictureField : public QLabel {
    Q_OBJECT

public:
    explicit PictureField(QWidget* parent = nullptr) : QLabel(parent) {}

protected:
    void paintEvent(QPaintEvent* event) override;
};
