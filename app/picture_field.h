// The place of the preview, or of a few words on why there is none. While it is empty it shows an
// outline, so that the window says where a picture can be dropped.

#pragma once

#include <QLabel>

class PictureField : public QLabel {
    Q_OBJECT

public:
    explicit PictureField(QWidget* parent = nullptr) : QLabel(parent) { setWordWrap(true); }

protected:
    void paintEvent(QPaintEvent* event) override;
};
