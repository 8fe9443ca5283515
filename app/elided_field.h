// A read-only line whose text is elided in the middle while it is too long for its place, so that
// both the beginning and the ending of a file name stay readable. With the focus in it the whole
// text is there to walk through, select and copy.

#pragma once

#include <QLineEdit>

namespace pinorama {

class ElidedField : public QLineEdit {
    Q_OBJECT

public:
    explicit ElidedField(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QRect textRect() const;
};

}  // namespace pinorama
